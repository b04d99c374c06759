// The variables, units and keywords of a desk platform, as read from a catalogue file.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "area_layout.h"

namespace marvane {

struct CatalogueUnits {
    std::string name;
    int32_t dimension;  // the same number for all units of one dimension
};

struct CatalogueVariable {
    std::string label;
    std::string alias;  // empty if there is none
    std::string units;  // empty if there are none
    uint16_t index = 0;
    bool isActive = true;
};

struct CatalogueKeyword {
    std::string name;
    int32_t unitsCode = 0;  // 1 + index into Catalogue::units, 0 for none
    char kind = CHANNEL_KEYWORD;
    uint16_t index = 0;
};

// Labels, aliases, units and keywords are unique, and every index lies in its table.
struct Catalogue {
    std::vector<CatalogueUnits> units;
    std::array<uint16_t, COUNT_LAYOUTS.size()> counts{};
    std::set<SM_AREA_ID> areas;  // the areas that the platform has
    std::array<std::vector<CatalogueVariable>, TABLE_LAYOUTS.size()> tables;
    std::vector<CatalogueKeyword> keywords;
};

// Reads and checks the file. If there is a fault, returns nullopt and stores one line with the
// place of the first fault in *complaint.
std::optional<Catalogue> readCatalogue(const std::string& fileName, std::string* complaint);

// The number of records of the table.
size_t tableLength(const Catalogue& catalogue, const TableLayout& table);

}  // namespace marvane
