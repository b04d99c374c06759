// What a desk platform offers: its variables, units and keywords, read from a catalogue file.
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
    std::string alias;  // empty when it has none
    std::string units;  // empty when it has none
    uint16_t index = 0;
    bool isActive = true;
};

struct CatalogueKeyword {
    std::string name;
    int32_t unitsCode = 0;  // 1 + the index of its units, 0 when it has none
    char kind = CHANNEL_KEYWORD;
    uint16_t index = 0;
};

// Labels and aliases, units and keywords are unique, and every index lies in its table.
struct Catalogue {
    std::vector<CatalogueUnits> units;
    std::array<uint16_t, COUNT_LAYOUTS.size()> counts{};
    std::set<SM_AREA_ID> areas;  // those that the platform has
    std::array<std::vector<CatalogueVariable>, TABLE_LAYOUTS.size()> tables;
    std::vector<CatalogueKeyword> keywords;
};

// Reads and checks the file. When something is wrong with it, there is no catalogue, and *complaint
// is one line with the place of the first fault.
std::optional<Catalogue> readCatalogue(const std::string& fileName, std::string* complaint);

// The number of records that the table has.
size_t tableLength(const Catalogue& catalogue, const TableLayout& table);

}  // namespace marvane
