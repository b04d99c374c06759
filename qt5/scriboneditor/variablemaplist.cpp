#include "variablemaplist.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

std::shared_ptr<const VariablesByGroup> Master_variables;
int VMLType = 0;

namespace {

// A label that fills its field has no terminating zero.
QString labelText(const char* label)
{
    return QString::fromUtf8(label, static_cast<int>(strnlen(label, MARVANE_LABEL_SIZE)));
}

[[noreturn]] void endWithoutPlatform()
{
    std::printf("\n %s must be running to use this command\n", "Marvane");
    std::exit(0);
}

}  // namespace

// ---- The tables --------------------------------------------------------------------------------

// A table of records in an area. Its group is listed when the filter contains any of the wanted
// flags; a table with a count of its own has no counter.
struct VariableMapList::Table {
    using Counter = uint16_t SYSTEM_ATTRIBUTES::*;
    using Walk = void (*)(VariableMapList*, const Table&, const void* records, unsigned short n,
                          bool useKeys, bool useIndexNumber);

    // A table of variables that may have aliases.
    template <typename T>
    static void plain(VariableMapList* list, const Table& table, const void* records,
                      unsigned short n, bool useKeys, bool useIndexNumber)
    {
        list->x_label(static_cast<const T*>(records), n, table.group, useKeys, useIndexNumber);
    }

    // A table of variables with members.
    template <typename T>
    static void structured(VariableMapList* list, const Table& table, const void* records,
                           unsigned short n, bool useKeys, bool /*useIndexNumber*/)
    {
        list->other_label(static_cast<const T*>(records), n, table.group, useKeys);
    }

    unsigned short count(const SYSTEM_ATTRIBUTES& attributes) const
    {
        return counter != nullptr ? attributes.*counter : fixedCount;
    }

    bool isWanted(QT_MARVANE_VAR_TYPE type) const { return (int(type) & wanted) != 0; }

    int wanted;
    SM_AREA_ID area;
    Walk walk;
    size_t offset;  // of the first record in the area
    Counter counter;
    unsigned short fixedCount;
    const char* group;
};

// The tables of an area stand together. Two groups of channels differ in a blank.
struct VariableMapList::Tables {
    using A = SYSTEM_ATTRIBUTES;
    static constexpr int R = QT_MARVANE_REAL | QT_MARVANE_REAL_INTEGER;
    static constexpr int I = QT_MARVANE_INTEGER | QT_MARVANE_REAL_INTEGER;
    static constexpr int L = QT_MARVANE_LOGICAL;
    static constexpr int S = QT_MARVANE_STRING;
    static constexpr int STAT = QT_MARVANE_STAT;
    static constexpr int COMP = QT_MARVANE_COMP;
    static constexpr int IO = QT_MARVANE_IO_MEM;

    static constexpr Table::Walk REALS = Table::plain<_real_variable>;
    static constexpr Table::Walk INTEGERS = Table::plain<integer_variable>;
    static constexpr Table::Walk LOGICALS = Table::plain<_logical_variable>;
    static constexpr Table::Walk STRINGS = Table::plain<_string_variable>;
    static constexpr Table::Walk REAL_ARRAYS = Table::plain<_real_array_variable>;
    static constexpr Table::Walk INT_ARRAYS = Table::plain<_integer_array_variable>;
    static constexpr Table::Walk STRING_ARRAYS = Table::plain<_string_array_variable>;
    static constexpr Table::Walk LOGI_ARRAYS = Table::plain<_logical_array_variable>;
    static constexpr Table::Walk STATS = Table::structured<_stat_variable>;
    static constexpr Table::Walk COMPS = Table::structured<_comp_variable>;
    static constexpr Table::Walk PROPS = Table::structured<_prop_variable>;
    static constexpr Table::Walk EMISSIONS = Table::structured<_emis_variable>;

    // clang-format off
    static constexpr Table GENERAL_USE[] = {
        {R, GU_REAL_MEM,    REALS,    0, &A::general_use_reals,    0, "General Use (real)"},
        {I, GU_INTEGER_MEM, INTEGERS, 0, &A::general_use_integers, 0, "General Use (integer)"},
        {L, GU_LOGICAL_MEM, LOGICALS, 0, &A::general_use_logicals, 0, "General Use (logical)"},
        {S, GU_STRING_MEM,  STRINGS,  0, &A::general_use_strings,  0, "General Use (string)"},
    };

    static constexpr Table VARIABLES[] = {
        {R, AI_REAL_MEM,         REALS,         0,      &A::analog_inputs,    0,   "Analog Inputs"},
        {R, FI_REAL_MEM,         REALS,         0,      &A::frequency_inputs, 0,   "Frequency Inputs (engineering units)"},
        {R, CI_REAL_MEM,         REALS,         0,      &A::counter_inputs,   0,   "Counter Inputs (engineering units)"},
        {R, REAL_ARRAY_MEM,      REAL_ARRAYS,   0,      &A::real_arrays,      0,   "Real (array)"},
        {R, INT_ARRAY_MEM,       INT_ARRAYS,    0,      &A::integer_arrays,   0,   "Integer (array)"},
        {I, CI_INTG_MEM,         INTEGERS,      0,      &A::counter_inputs,   0,   "Counter Inputs (counts)"},
        {R, ENGINE_PERF_MEM,     REALS,         0,      nullptr,              100, "Engine Performance (real)"},
        {I, ENGINE_PERF_MEM,     INTEGERS,      39000,  nullptr,              50,  "Engine Performance (integer)"},
        {R, ENGINE_CONST_MEM,    REALS,         0,      nullptr,              50,  "Engine Constants"},
        {S, ENGINE_CONST_MEM,    STRINGS,       19500,  nullptr,              32,  "Engine/Cell (string)"},
        {R, FUEL_READING_MEM,    REALS,         0,      nullptr,              152, "Fuel Reading (real)"},
        {I, FUEL_READING_MEM,    INTEGERS,      59280,  nullptr,              16,  "Fuel Reading (integer)"},
        {S, FUEL_READING_MEM,    STRINGS,       64560,  nullptr,              24,  "Fuel Reading (string)"},
        {R, CONTROL_MEM,         REALS,         0,      nullptr,              893, "Control"},
        {L, CONTROL_MEM,         LOGICALS,      348270, nullptr,              301, "Control (logical)"},
        {I, CONTROL_MEM,         INTEGERS,      495760, nullptr,              4,   "Control (integer)"},
        {S, CONTROL_MEM,         STRINGS,       497080, nullptr,              298, "Control (string)"},
        {S, DISPLAY_STRINGS_MEM, STRINGS,       300,    nullptr,              100, "Display (string)"},
        {S, STRING_ARRAY_MEM,    STRING_ARRAYS, 0,      &A::string_arrays,    0,   "String (array)"},
        {L, LOGI_MEM,            LOGICALS,      0,      nullptr,              400, "General Purpose (logical)"},
        {L, DI_LOGI_MEM,         LOGICALS,      0,      &A::digital_inputs,   0,   "Digital Input (logical)"},
        {L, DO_LOGI_MEM,         LOGICALS,      0,      &A::digital_outputs,  0,   "Digital Output (logical)"},
        {L, LIMIT_LOGI_MEM,      LOGICALS,      0,      &A::limit_logicals,   0,   "Limit (logical)"},
        {L, LOGI_ARRAY_MEM,      LOGI_ARRAYS,   0,      &A::logical_arrays,   0,   "Logical (array)"},
        {STAT, GU_STAT_MEM,      STATS,         0,      &A::general_use_statistics, 0, "General Use (statistical)"},
        {STAT, DP_STAT_MEM,      STATS,         0,      &A::datapoint_statistics,   0, "Datapoint (statistical)"},
    };

    static constexpr Table PROPERTIES[] = {
        {COMP, PROPERTIES_MEM, COMPS,     0,      nullptr, 34, "Gas/Fluid (compostion)"},
        {COMP, PROPERTIES_MEM, PROPS,     70448,  nullptr, 32, "Gas/Fluid (property)"},
        {COMP, PROPERTIES_MEM, EMISSIONS, 377648, nullptr, 34, "Emissions"},
    };

    static constexpr Table CHANNELS[] = {
        {IO, AI_REAL_MEM, REALS,    0, &A::analog_inputs,    0, "Analog Inputs"},
        {IO, FI_REAL_MEM, REALS,    0, &A::frequency_inputs, 0, "Frequency Inputs (engineering units)"},
        {IO, CI_REAL_MEM, REALS,    0, &A::counter_inputs,   0, "Counter Inputs (engineering units)"},
        {IO, CI_INTG_MEM, INTEGERS, 0, &A::counter_inputs,   0, "Counter Inputs (counts)"},
        {IO, DI_LOGI_MEM, LOGICALS, 0, &A::digital_inputs,   0, "Digital Input (logical) "},
        {IO, DO_LOGI_MEM, LOGICALS, 0, &A::digital_outputs,  0, "Digital Output (logical)"},
    };
    // clang-format on
};

// ---- Walking -----------------------------------------------------------------------------------

VariableMapList::VariableMapList(QMap<QString, QString>* map, QFlags<QT_MARVANE_FLAGS> type,
                                 QObject* parent)
    : QObject(parent), m_variables(map)
{
    retrieveData(false, type);
}

VariableMapList::VariableMapList(VariablesByGroup* map, QFlags<QT_MARVANE_FLAGS> type,
                                 QObject* parent)
    : QObject(parent), m_variables_keys(map)
{
    retrieveData(true, type);
}

void VariableMapList::retrieveData(bool useKeys, QT_MARVANE_VAR_TYPE type)
{
    void* Sys_attr = nullptr;
    if (link_to_memory(SYS_ATTR_MEM, &Sys_attr) == 0)
        endWithoutPlatform();
    m_attributes = static_cast<const SYSTEM_ATTRIBUTES*>(Sys_attr);
    if (useKeys)
        m_variables_keys->clear();
    else
        m_variables->clear();
    walkGeneralUse(useKeys, type);
    walk(Tables::VARIABLES, type, useKeys);
    if (type.testFlag(QT_MARVANE_COMP))
        walk(Tables::PROPERTIES, type, useKeys);
    if (int(type) == QT_MARVANE_IO_MEM)
        walk(Tables::CHANNELS, type, useKeys, true);
}

// All four areas or none: without the reals, the other three are neither walked nor freed.
void VariableMapList::walkGeneralUse(bool useKeys, QT_MARVANE_VAR_TYPE type)
{
    std::array<void*, std::size(Tables::GENERAL_USE)> areas{};
    const auto link = [&](size_t row) {
        return local_link_to_memory(Tables::GENERAL_USE[row].area, &areas[row]);
    };
    for (size_t row = 1; row < areas.size(); ++row)
        link(row);
    if (!link(0))
        return;
    for (size_t row = 0; row < areas.size(); ++row) {
        const Table* const table = Tables::GENERAL_USE + row;
        walkTables(table, table + 1, areas[row], type, useKeys, false);
    }
    for (const Table& table : Tables::GENERAL_USE)
        local_fre_shrd_mem(table.area);
}

template <size_t N>
void VariableMapList::walk(const Table (&tables)[N], QT_MARVANE_VAR_TYPE type, bool useKeys,
                           bool useIndexNumber)
{
    const Table* const end = tables + N;
    for (const Table* begin = tables; begin != end;) {
        const Table* const next = std::find_if(
            begin, end, [begin](const Table& table) { return table.area != begin->area; });
        walkArea(begin, next, type, useKeys, useIndexNumber);
        begin = next;
    }
}

// An area is attached once for all of its tables, whichever of them are wanted.
void VariableMapList::walkArea(const Table* begin, const Table* end, QT_MARVANE_VAR_TYPE type,
                               bool useKeys, bool useIndexNumber)
{
    const bool onlyTable = end - begin == 1;
    if (onlyTable && !begin->isWanted(type))
        return;
    void* area = nullptr;
    if (!local_link_to_memory(begin->area, &area))
        return;
    walkTables(begin, end, area, type, useKeys, useIndexNumber);
    local_fre_shrd_mem(begin->area);
}

void VariableMapList::walkTables(const Table* begin, const Table* end, const void* area,
                                 QT_MARVANE_VAR_TYPE type, bool useKeys, bool useIndexNumber)
{
    for (const Table* table = begin; area != nullptr && table != end; ++table) {
        if (table->isWanted(type))
            table->walk(this, *table, static_cast<const char*>(area) + table->offset,
                        table->count(*m_attributes), useKeys, useIndexNumber);
    }
}

// All labels in the order of the table, then all aliases in the same order. The records of arrays
// are large, so only the two fields are touched.
template <typename T>
void VariableMapList::x_label(const T* ptr, unsigned short n, const char* section_label,
                              bool useKeys, bool useIndexNumber)
{
    QStringList list;
    for (const T* record = ptr; record != ptr + n; ++record) {
        if (record->active == 0)
            continue;
        if (!useKeys)
            m_variables->insert(labelText(record->label), QString::fromLatin1(section_label));
        else if (useIndexNumber)
            list.append(QString::number(record - ptr));
        else
            list.append(labelText(record->label));
    }
    for (const T* record = ptr; record != ptr + n && !useIndexNumber; ++record) {
        SHARED_MEMORY mem{};
        char* alias_label = nullptr;
        if (record->active == 0 || find_alias_of_target(record->label, &mem, &alias_label) != 0)
            continue;
        if (useKeys)
            list.append(labelText(alias_label));
        else
            m_variables->insert(labelText(record->label), QString::fromLatin1(section_label));
    }
    insertGroup(section_label, list);
}

template <typename T>
void VariableMapList::other_label(const T* ptr, unsigned short n, const char* section_title,
                                  bool useKeys)
{
    QStringList list;
    for (const T* record = ptr; record != ptr + n; ++record) {
        if (record->active == 0)
            continue;
        if (useKeys)
            list.append(labelText(record->label));
        else
            m_variables->insert(labelText(record->label), QString::fromLatin1(section_title));
    }
    insertGroup(section_title, list);
}

// Only the form by group gathers a list.
void VariableMapList::insertGroup(const char* section_label, const QStringList& list)
{
    if (!list.isEmpty())
        m_variables_keys->insert(QString::fromLatin1(section_label), list);
}

// ---- The current catalogue ---------------------------------------------------------------------

void rebuildMasterVariables(QT_MARVANE_VAR_TYPE type)
{
    const auto map = std::make_shared<VariablesByGroup>();
    VariableMapList(map.get(), type, nullptr);
    VMLType = int(type);
    Master_variables = map;
}
