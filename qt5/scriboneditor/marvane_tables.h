// The tables of records in the platform's areas: which area holds which, how long they are and
// where they begin. C++ beside the C declarations of marvane_headers.h, and without Qt: the editor
// reads the areas by these tables, the desk platform makes them by the same ones.
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

struct RecordLayout {
    RecordKind kind;
    size_t size;
    size_t activeOffset;
    size_t labelOffset;
    bool isStructured;  // its variables have members
};

// clang-format off
#define MARVANE_RECORD(kind, type, isStructured) \
    {RecordKind::kind, sizeof(type), offsetof(type, active), offsetof(type, label), isStructured}

// One row for each RecordKind, in its order.
inline constexpr std::array<RecordLayout, 12> RECORD_LAYOUTS{{
    MARVANE_RECORD(Real,         _real_variable,          false),
    MARVANE_RECORD(Integer,      integer_variable,        false),
    MARVANE_RECORD(Logical,      _logical_variable,       false),
    MARVANE_RECORD(String,       _string_variable,        false),
    MARVANE_RECORD(RealArray,    _real_array_variable,    false),
    MARVANE_RECORD(IntegerArray, _integer_array_variable, false),
    MARVANE_RECORD(StringArray,  _string_array_variable,  false),
    MARVANE_RECORD(LogicalArray, _logical_array_variable, false),
    MARVANE_RECORD(Statistic,    _stat_variable,          true),
    MARVANE_RECORD(Composition,  _comp_variable,          true),
    MARVANE_RECORD(Property,     _prop_variable,          true),
    MARVANE_RECORD(Emission,     _emis_variable,          true),
}};
// clang-format on

#undef MARVANE_RECORD

constexpr const RecordLayout& recordLayout(RecordKind kind)
{
    return RECORD_LAYOUTS[static_cast<size_t>(kind)];
}

// The number of records of a table of variable length.
using TableCounter = uint16_t SYSTEM_ATTRIBUTES::*;

// A table of records. Its length is either fixed or counted.
struct TableLayout {
    SM_AREA_ID area;
    RecordKind kind;
    uint16_t fixedLength;
    TableCounter counter = nullptr;  // null for a fixed length
    size_t offset = 0;               // of the first record, in bytes from the start of the area
};

constexpr bool isCounted(const TableLayout& table)
{
    return table.counter != nullptr;
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

// The offset behind the last record of the longest table.
constexpr size_t tableEnd(const TableLayout& table)
{
    return table.offset + maxLength(table) * recordLayout(table).size;
}

// The display strings have a header.
constexpr size_t firstRecordOffset(SM_AREA_ID area)
{
    return area == DISPLAY_STRINGS_MEM ? 300 : 0;
}

// The tables of an area lie end to end.
template <size_t N>
constexpr std::array<TableLayout, N> laidOut(std::array<TableLayout, N> tables)
{
    for (size_t i = 0; i < N; ++i) {
        const bool isFirst = i == 0 || tables[i - 1].area != tables[i].area;
        tables[i].offset = isFirst ? firstRecordOffset(tables[i].area) : tableEnd(tables[i - 1]);
    }
    return tables;
}

// The tables of an area stand together, in the order in which they lie there.
// clang-format off
inline constexpr auto TABLE_LAYOUTS = laidOut(std::array<TableLayout, 33>{{
    {AI_REAL_MEM,         RecordKind::Real,         0, &SYSTEM_ATTRIBUTES::analog_inputs},
    {CI_INTG_MEM,         RecordKind::Integer,      0, &SYSTEM_ATTRIBUTES::counter_inputs},
    {CONTROL_MEM,         RecordKind::Real,         893},
    {CONTROL_MEM,         RecordKind::Logical,      301},
    {CONTROL_MEM,         RecordKind::Integer,      4},
    {CONTROL_MEM,         RecordKind::String,       298},
    {ENGINE_CONST_MEM,    RecordKind::Real,         50},
    {ENGINE_CONST_MEM,    RecordKind::String,       32},
    {ENGINE_PERF_MEM,     RecordKind::Real,         100},
    {ENGINE_PERF_MEM,     RecordKind::Integer,      50},
    {LOGI_MEM,            RecordKind::Logical,      400},
    {FI_REAL_MEM,         RecordKind::Real,         0, &SYSTEM_ATTRIBUTES::frequency_inputs},
    {CI_REAL_MEM,         RecordKind::Real,         0, &SYSTEM_ATTRIBUTES::counter_inputs},
    {DI_LOGI_MEM,         RecordKind::Logical,      0, &SYSTEM_ATTRIBUTES::digital_inputs},
    {DO_LOGI_MEM,         RecordKind::Logical,      0, &SYSTEM_ATTRIBUTES::digital_outputs},
    {DISPLAY_STRINGS_MEM, RecordKind::String,       100},
    {FUEL_READING_MEM,    RecordKind::Real,         152},
    {FUEL_READING_MEM,    RecordKind::Integer,      16},
    {FUEL_READING_MEM,    RecordKind::String,       24},
    {LIMIT_LOGI_MEM,      RecordKind::Logical,      0, &SYSTEM_ATTRIBUTES::limit_logicals},
    {PROPERTIES_MEM,      RecordKind::Composition,  34},
    {PROPERTIES_MEM,      RecordKind::Property,     32},
    {PROPERTIES_MEM,      RecordKind::Emission,     34},
    {GU_REAL_MEM,         RecordKind::Real,         0, &SYSTEM_ATTRIBUTES::general_use_reals},
    {GU_INTEGER_MEM,      RecordKind::Integer,      0, &SYSTEM_ATTRIBUTES::general_use_integers},
    {GU_LOGICAL_MEM,      RecordKind::Logical,      0, &SYSTEM_ATTRIBUTES::general_use_logicals},
    {GU_STRING_MEM,       RecordKind::String,       0, &SYSTEM_ATTRIBUTES::general_use_strings},
    {GU_STAT_MEM,         RecordKind::Statistic,    0, &SYSTEM_ATTRIBUTES::general_use_statistics},
    {REAL_ARRAY_MEM,      RecordKind::RealArray,    0, &SYSTEM_ATTRIBUTES::real_arrays},
    {INT_ARRAY_MEM,       RecordKind::IntegerArray, 0, &SYSTEM_ATTRIBUTES::integer_arrays},
    {STRING_ARRAY_MEM,    RecordKind::StringArray,  0, &SYSTEM_ATTRIBUTES::string_arrays},
    {LOGI_ARRAY_MEM,      RecordKind::LogicalArray, 0, &SYSTEM_ATTRIBUTES::logical_arrays},
    {DP_STAT_MEM,         RecordKind::Statistic,    0, &SYSTEM_ATTRIBUTES::datapoint_statistics},
}});
// clang-format on

// Null when the area has no such table.
constexpr const TableLayout* findTable(SM_AREA_ID area, RecordKind kind)
{
    for (const TableLayout& table : TABLE_LAYOUTS) {
        if (table.area == area && table.kind == kind)
            return &table;
    }
    return nullptr;
}

// ---- The layout, pinned ----

constexpr bool kindsAreInOrder()
{
    for (size_t i = 0; i < RECORD_LAYOUTS.size(); ++i) {
        if (static_cast<size_t>(RECORD_LAYOUTS[i].kind) != i)
            return false;
    }
    return true;
}

// A table behind one of variable length would have no offset.
constexpr bool countedTablesAreAlone()
{
    for (size_t i = 1; i < TABLE_LAYOUTS.size(); ++i) {
        if (TABLE_LAYOUTS[i].area == TABLE_LAYOUTS[i - 1].area && isCounted(TABLE_LAYOUTS[i - 1]))
            return false;
    }
    return true;
}

constexpr bool beginsAt(SM_AREA_ID area, RecordKind kind, size_t offset)
{
    return findTable(area, kind)->offset == offset;
}

static_assert(kindsAreInOrder());
static_assert(countedTablesAreAlone());
static_assert(beginsAt(CONTROL_MEM, RecordKind::Logical, 348270));
static_assert(beginsAt(CONTROL_MEM, RecordKind::Integer, 495760));
static_assert(beginsAt(CONTROL_MEM, RecordKind::String, 497080));
static_assert(beginsAt(ENGINE_CONST_MEM, RecordKind::String, 19500));
static_assert(beginsAt(ENGINE_PERF_MEM, RecordKind::Integer, 39000));
static_assert(beginsAt(DISPLAY_STRINGS_MEM, RecordKind::String, 300));
static_assert(beginsAt(FUEL_READING_MEM, RecordKind::Integer, 59280));
static_assert(beginsAt(FUEL_READING_MEM, RecordKind::String, 64560));
static_assert(beginsAt(PROPERTIES_MEM, RecordKind::Property, 70448));
static_assert(beginsAt(PROPERTIES_MEM, RecordKind::Emission, 377648));

}  // namespace marvane
