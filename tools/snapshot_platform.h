// Reads the running platform by the host functions of marvane_headers.h and nothing else, so it
// works with any library that has them. What it reads is bounded, but judged only by
// snapshot_catalogue.h.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "area_layout.h"

namespace snapshot {

struct Variable {
    uint16_t index = 0;
    bool isActive = false;
    bool isKnown = false;  // to the functions, which are asked for valid labels in use only
    std::string label;     // at most the bytes of its field, like every text here
    std::string alias;     // empty if there is none, like the units
    std::string units;
};

struct Keyword {
    uint16_t index = 0;
    char kind = CHANNEL_KEYWORD;
    int32_t unitsCode = 0;
    std::string name;
};

struct Units {
    std::string name;
    int32_t code = 0;  // 0 if the platform tells none
};

struct Platform {
    std::array<uint16_t, marvane::COUNT_LAYOUTS.size()> counts{};
    std::set<SM_AREA_ID> areas;
    // The records that are in use or have a label, in the order of TABLE_LAYOUTS.
    std::array<std::vector<Variable>, marvane::TABLE_LAYOUTS.size()> tables;
    std::vector<Keyword> keywords;
    // The units of each dimension of which a variable has units: the functions tell no others.
    std::vector<std::vector<Units>> dimensions;
};

enum class Reading {
    Done,
    NoPlatform,
    Stopped,  // the platform has ended or was replaced, so what was read is not of one platform
};

// Joins the platform, reads all of it and detaches its areas. Calls `progress` with the name of
// each area before it is read.
Reading readPlatform(Platform& platform, const std::function<void(const char*)>& progress);

}  // namespace snapshot
