// The platform's shared memory as the desk sees it: the tables of marvane_tables.h, with the names
// of areas, records and counts in catalogue files, and the size of each area. Shared by the process
// that makes the areas and the library that maps them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "marvane_headers.h"
#include "marvane_tables.h"

namespace marvane {

// The names of the kinds of records in catalogue files, in the order of RecordKind.
// clang-format off
inline constexpr std::array<const char*, RECORD_LAYOUTS.size()> RECORD_NAMES{
    "real", "integer", "logical", "string",
    "real_array", "integer_array", "string_array", "logical_array",
    "statistic", "composition", "property", "emission",
};
// clang-format on

constexpr const char* recordName(RecordKind kind)
{
    return RECORD_NAMES[static_cast<size_t>(kind)];
}

// A count in SYSTEM_ATTRIBUTES. Counters have one for their two tables.
struct CountLayout {
    const char* name;
    TableCounter counter;
};

// clang-format off
#define MARVANE_COUNT(name) {#name, &SYSTEM_ATTRIBUTES::name}

inline constexpr std::array<CountLayout, 16> COUNT_LAYOUTS{{
    MARVANE_COUNT(analog_inputs),
    MARVANE_COUNT(counter_inputs),
    MARVANE_COUNT(digital_inputs),
    MARVANE_COUNT(frequency_inputs),
    MARVANE_COUNT(digital_outputs),
    MARVANE_COUNT(general_use_reals),
    MARVANE_COUNT(general_use_integers),
    MARVANE_COUNT(general_use_logicals),
    MARVANE_COUNT(general_use_statistics),
    MARVANE_COUNT(general_use_strings),
    MARVANE_COUNT(limit_logicals),
    MARVANE_COUNT(real_arrays),
    MARVANE_COUNT(integer_arrays),
    MARVANE_COUNT(string_arrays),
    MARVANE_COUNT(logical_arrays),
    MARVANE_COUNT(datapoint_statistics),
}};

#undef MARVANE_COUNT

struct AreaName {
    SM_AREA_ID area;
    const char* name;
};

#define MARVANE_AREA(area) {area, #area}

inline constexpr std::array<AreaName, 26> AREA_NAMES{{
    MARVANE_AREA(SYS_ATTR_MEM),
    MARVANE_AREA(AI_REAL_MEM),
    MARVANE_AREA(CI_INTG_MEM),
    MARVANE_AREA(CONTROL_MEM),
    MARVANE_AREA(ENGINE_CONST_MEM),
    MARVANE_AREA(ENGINE_PERF_MEM),
    MARVANE_AREA(LOGI_MEM),
    MARVANE_AREA(FI_REAL_MEM),
    MARVANE_AREA(CI_REAL_MEM),
    MARVANE_AREA(DI_LOGI_MEM),
    MARVANE_AREA(DO_LOGI_MEM),
    MARVANE_AREA(DISPLAY_STRINGS_MEM),
    MARVANE_AREA(FUEL_READING_MEM),
    MARVANE_AREA(LIMIT_LOGI_MEM),
    MARVANE_AREA(KEYWORD_MEM),
    MARVANE_AREA(PROPERTIES_MEM),
    MARVANE_AREA(GU_REAL_MEM),
    MARVANE_AREA(GU_INTEGER_MEM),
    MARVANE_AREA(GU_LOGICAL_MEM),
    MARVANE_AREA(GU_STRING_MEM),
    MARVANE_AREA(GU_STAT_MEM),
    MARVANE_AREA(REAL_ARRAY_MEM),
    MARVANE_AREA(INT_ARRAY_MEM),
    MARVANE_AREA(STRING_ARRAY_MEM),
    MARVANE_AREA(LOGI_ARRAY_MEM),
    MARVANE_AREA(DP_STAT_MEM),
}};

#undef MARVANE_AREA
// clang-format on

// The row of COUNT_LAYOUTS that has the table's length; only for a counted table.
constexpr size_t countOf(const TableLayout& table)
{
    size_t row = 0;
    while (COUNT_LAYOUTS[row].counter != table.counter)
        ++row;
    return row;
}

// The name of an area that the platform has, otherwise null.
constexpr const char* areaName(SM_AREA_ID area)
{
    for (const AreaName& row : AREA_NAMES) {
        if (row.area == area)
            return row.name;
    }
    return nullptr;
}

// How far from its start a reader can get who believes every count.
constexpr size_t areaReach(SM_AREA_ID area)
{
    if (area == SYS_ATTR_MEM)
        return sizeof(SYSTEM_ATTRIBUTES);
    if (area == KEYWORD_MEM)
        return sizeof(KEYWORD_MEMORY);
    size_t reach = 0;
    for (const TableLayout& table : TABLE_LAYOUTS) {
        if (table.area == area && tableEnd(table) > reach)
            reach = tableEnd(table);
    }
    return reach;
}

constexpr bool everyAreaHasContent()
{
    for (const AreaName& row : AREA_NAMES) {
        if (areaReach(row.area) == 0)
            return false;
    }
    return true;
}

static_assert(everyAreaHasContent());

}  // namespace marvane
