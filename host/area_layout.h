// What lies where in the platform's shared memory: the areas, the tables of records in them and the
// counts of those whose length varies. Shared by the process that makes the areas and the library
// that maps them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "marvane_headers.h"

namespace marvane {

enum class RecordKind : int16_t {
    Real,
    Integer,
    Logical,
    String,
    RealArray,
    IntegerArray,
    StringArray,
    LogicalArray,
    Statistic,
    Composition,
    Property,
    Emission
};

// The names are those of the catalogue.
struct RecordLayout {
    RecordKind kind;
    const char* name;
    size_t size;
    size_t activeOffset;
    size_t labelOffset;
    bool isStructured;  // its variables have members
};

// clang-format off
#define MARVANE_RECORD(kind, name, type, isStructured) \
    {RecordKind::kind, name, sizeof(type), offsetof(type, active), offsetof(type, label), isStructured}

// One row for each RecordKind, in its order.
inline constexpr std::array<RecordLayout, 12> RECORD_LAYOUTS{{
    MARVANE_RECORD(Real,         "real",          _real_variable,          false),
    MARVANE_RECORD(Integer,      "integer",       integer_variable,        false),
    MARVANE_RECORD(Logical,      "logical",       _logical_variable,       false),
    MARVANE_RECORD(String,       "string",        _string_variable,        false),
    MARVANE_RECORD(RealArray,    "real_array",    _real_array_variable,    false),
    MARVANE_RECORD(IntegerArray, "integer_array", _integer_array_variable, false),
    MARVANE_RECORD(StringArray,  "string_array",  _string_array_variable,  false),
    MARVANE_RECORD(LogicalArray, "logical_array", _logical_array_variable, false),
    MARVANE_RECORD(Statistic,    "statistic",     _stat_variable,          true),
    MARVANE_RECORD(Composition,  "composition",   _comp_variable,          true),
    MARVANE_RECORD(Property,     "property",      _prop_variable,          true),
    MARVANE_RECORD(Emission,     "emission",      _emis_variable,          true),
}};

#undef MARVANE_RECORD

// A count in SYSTEM_ATTRIBUTES. Counters have one for their two tables.
struct CountLayout {
    const char* name;
    size_t offset;
};

#define MARVANE_COUNT(name) {#name, offsetof(SYSTEM_ATTRIBUTES, name)}

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

constexpr size_t NOT_COUNTED = SIZE_MAX;

// A table of records. Its length is either fixed or one of COUNT_LAYOUTS.
struct TableLayout {
    SM_AREA_ID area;
    RecordKind kind;
    size_t offset;  // from the start of the area
    uint16_t fixedLength;
    size_t count = NOT_COUNTED;  // index into COUNT_LAYOUTS
};

constexpr size_t countOf(size_t offsetInAttributes)
{
    for (size_t i = 0; i < COUNT_LAYOUTS.size(); ++i) {
        if (COUNT_LAYOUTS[i].offset == offsetInAttributes)
            return i;
    }
    return NOT_COUNTED;
}

#define MARVANE_COUNTED(name) 0, countOf(offsetof(SYSTEM_ATTRIBUTES, name))

inline constexpr std::array<TableLayout, 33> TABLE_LAYOUTS{{
    {AI_REAL_MEM,         RecordKind::Real,         0,      MARVANE_COUNTED(analog_inputs)},
    {CI_INTG_MEM,         RecordKind::Integer,      0,      MARVANE_COUNTED(counter_inputs)},
    {CONTROL_MEM,         RecordKind::Real,         0,      893},
    {CONTROL_MEM,         RecordKind::Logical,      348270, 301},
    {CONTROL_MEM,         RecordKind::Integer,      495760, 4},
    {CONTROL_MEM,         RecordKind::String,       497080, 298},
    {ENGINE_CONST_MEM,    RecordKind::Real,         0,      50},
    {ENGINE_CONST_MEM,    RecordKind::String,       19500,  32},
    {ENGINE_PERF_MEM,     RecordKind::Real,         0,      100},
    {ENGINE_PERF_MEM,     RecordKind::Integer,      39000,  50},
    {LOGI_MEM,            RecordKind::Logical,      0,      400},
    {FI_REAL_MEM,         RecordKind::Real,         0,      MARVANE_COUNTED(frequency_inputs)},
    {CI_REAL_MEM,         RecordKind::Real,         0,      MARVANE_COUNTED(counter_inputs)},
    {DI_LOGI_MEM,         RecordKind::Logical,      0,      MARVANE_COUNTED(digital_inputs)},
    {DO_LOGI_MEM,         RecordKind::Logical,      0,      MARVANE_COUNTED(digital_outputs)},
    {DISPLAY_STRINGS_MEM, RecordKind::String,       300,    100},
    {FUEL_READING_MEM,    RecordKind::Real,         0,      152},
    {FUEL_READING_MEM,    RecordKind::Integer,      59280,  16},
    {FUEL_READING_MEM,    RecordKind::String,       64560,  24},
    {LIMIT_LOGI_MEM,      RecordKind::Logical,      0,      MARVANE_COUNTED(limit_logicals)},
    {PROPERTIES_MEM,      RecordKind::Composition,  0,      34},
    {PROPERTIES_MEM,      RecordKind::Property,     70448,  32},
    {PROPERTIES_MEM,      RecordKind::Emission,     377648, 34},
    {GU_REAL_MEM,         RecordKind::Real,         0,      MARVANE_COUNTED(general_use_reals)},
    {GU_INTEGER_MEM,      RecordKind::Integer,      0,      MARVANE_COUNTED(general_use_integers)},
    {GU_LOGICAL_MEM,      RecordKind::Logical,      0,      MARVANE_COUNTED(general_use_logicals)},
    {GU_STRING_MEM,       RecordKind::String,       0,      MARVANE_COUNTED(general_use_strings)},
    {GU_STAT_MEM,         RecordKind::Statistic,    0,      MARVANE_COUNTED(general_use_statistics)},
    {REAL_ARRAY_MEM,      RecordKind::RealArray,    0,      MARVANE_COUNTED(real_arrays)},
    {INT_ARRAY_MEM,       RecordKind::IntegerArray, 0,      MARVANE_COUNTED(integer_arrays)},
    {STRING_ARRAY_MEM,    RecordKind::StringArray,  0,      MARVANE_COUNTED(string_arrays)},
    {LOGI_ARRAY_MEM,      RecordKind::LogicalArray, 0,      MARVANE_COUNTED(logical_arrays)},
    {DP_STAT_MEM,         RecordKind::Statistic,    0,      MARVANE_COUNTED(datapoint_statistics)},
}};
// clang-format on

#undef MARVANE_COUNTED

constexpr bool isCounted(const TableLayout& table)
{
    return table.count != NOT_COUNTED;
}

constexpr const RecordLayout& recordLayout(RecordKind kind)
{
    return RECORD_LAYOUTS[static_cast<size_t>(kind)];
}

constexpr const RecordLayout& recordLayout(const TableLayout& table)
{
    return recordLayout(table.kind);
}

// The most records that the table can have.
constexpr size_t maxLength(const TableLayout& table)
{
    return isCounted(table) ? size_t{UINT16_MAX} : table.fixedLength;
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
        const size_t end = table.offset + maxLength(table) * recordLayout(table).size;
        if (table.area == area && end > reach)
            reach = end;
    }
    return reach;
}

constexpr bool kindsAreInOrder()
{
    for (size_t i = 0; i < RECORD_LAYOUTS.size(); ++i) {
        if (static_cast<size_t>(RECORD_LAYOUTS[i].kind) != i)
            return false;
    }
    return true;
}

constexpr bool everyAreaHasContent()
{
    for (const AreaName& row : AREA_NAMES) {
        if (areaReach(row.area) == 0)
            return false;
    }
    return true;
}

static_assert(kindsAreInOrder());
static_assert(everyAreaHasContent());

}  // namespace marvane
