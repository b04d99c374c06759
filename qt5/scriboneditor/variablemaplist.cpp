#include "variablemaplist.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

std::shared_ptr<const VariablesByGroup> Master_variables;
int VMLType = 0;
void (*beforePlainExit)() = nullptr;

namespace {

// A label that fills its field has no terminating zero.
QString labelText(const char* label)
{
    return QString::fromUtf8(label, static_cast<int>(strnlen(label, MARVANE_LABEL_SIZE)));
}

[[noreturn]] void endWithoutPlatform()
{
    std::printf("\n %s must be running to use this command\n", "Marvane");
    if (beforePlainExit != nullptr)
        beforePlainExit();
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
    unsigned short fixedCount;
    Walk walk;
    size_t offset;  // of the first record in the area
    Counter counter;
    const char* group;
};

// The tables of an area stand together. Among the channels, and only there, the group of digital
// inputs ends in a blank.
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
        {R, GU_REAL_MEM,    0, REALS,    0, &A::general_use_reals,    "General Use (real)"},
        {I, GU_INTEGER_MEM, 0, INTEGERS, 0, &A::general_use_integers, "General Use (integer)"},
        {L, GU_LOGICAL_MEM, 0, LOGICALS, 0, &A::general_use_logicals, "General Use (logical)"},
        {S, GU_STRING_MEM,  0, STRINGS,  0, &A::general_use_strings,  "General Use (string)"},
    };

    static constexpr Table VARIABLES[] = {
        {R,    AI_REAL_MEM,         0,   REALS,         0,      &A::analog_inputs,          "Analog Inputs"},
        {R,    FI_REAL_MEM,         0,   REALS,         0,      &A::frequency_inputs,       "Frequency Inputs (engineering units)"},
        {R,    CI_REAL_MEM,         0,   REALS,         0,      &A::counter_inputs,         "Counter Inputs (engineering units)"},
        {R,    REAL_ARRAY_MEM,      0,   REAL_ARRAYS,   0,      &A::real_arrays,            "Real (array)"},
        {R,    INT_ARRAY_MEM,       0,   INT_ARRAYS,    0,      &A::integer_arrays,         "Integer (array)"},
        {I,    CI_INTG_MEM,         0,   INTEGERS,      0,      &A::counter_inputs,         "Counter Inputs (counts)"},
        {R,    ENGINE_PERF_MEM,     100, REALS,         0,      nullptr,                    "Engine Performance (real)"},
        {I,    ENGINE_PERF_MEM,     50,  INTEGERS,      39000,  nullptr,                    "Engine Performance (integer)"},
        {R,    ENGINE_CONST_MEM,    50,  REALS,         0,      nullptr,                    "Engine Constants"},
        {S,    ENGINE_CONST_MEM,    32,  STRINGS,       19500,  nullptr,                    "Engine/Cell (string)"},
        {R,    FUEL_READING_MEM,    152, REALS,         0,      nullptr,                    "Fuel Reading (real)"},
        {I,    FUEL_READING_MEM,    16,  INTEGERS,      59280,  nullptr,                    "Fuel Reading (integer)"},
        {S,    FUEL_READING_MEM,    24,  STRINGS,       64560,  nullptr,                    "Fuel Reading (string)"},
        {R,    CONTROL_MEM,         893, REALS,         0,      nullptr,                    "Control"},
        {L,    CONTROL_MEM,         301, LOGICALS,      348270, nullptr,                    "Control (logical)"},
        {I,    CONTROL_MEM,         4,   INTEGERS,      495760, nullptr,                    "Control (integer)"},
        {S,    CONTROL_MEM,         298, STRINGS,       497080, nullptr,                    "Control (string)"},
        {S,    DISPLAY_STRINGS_MEM, 100, STRINGS,       300,    nullptr,                    "Display (string)"},
        {S,    STRING_ARRAY_MEM,    0,   STRING_ARRAYS, 0,      &A::string_arrays,          "String (array)"},
        {L,    LOGI_MEM,            400, LOGICALS,      0,      nullptr,                    "General Purpose (logical)"},
        {L,    DI_LOGI_MEM,         0,   LOGICALS,      0,      &A::digital_inputs,         "Digital Input (logical)"},
        {L,    DO_LOGI_MEM,         0,   LOGICALS,      0,      &A::digital_outputs,        "Digital Output (logical)"},
        {L,    LIMIT_LOGI_MEM,      0,   LOGICALS,      0,      &A::limit_logicals,         "Limit (logical)"},
        {L,    LOGI_ARRAY_MEM,      0,   LOGI_ARRAYS,   0,      &A::logical_arrays,         "Logical (array)"},
        {STAT, GU_STAT_MEM,         0,   STATS,         0,      &A::general_use_statistics, "General Use (statistical)"},
        {STAT, DP_STAT_MEM,         0,   STATS,         0,      &A::datapoint_statistics,   "Datapoint (statistical)"},
    };

    static constexpr Table PROPERTIES[] = {
        {COMP, PROPERTIES_MEM, 34, COMPS,     0,      nullptr, "Gas/Fluid (compostion)"},
        {COMP, PROPERTIES_MEM, 32, PROPS,     70448,  nullptr, "Gas/Fluid (property)"},
        {COMP, PROPERTIES_MEM, 34, EMISSIONS, 377648, nullptr, "Emissions"},
    };

    static constexpr Table CHANNELS[] = {
        {IO, AI_REAL_MEM, 0, REALS,    0, &A::analog_inputs,    "Analog Inputs"},
        {IO, FI_REAL_MEM, 0, REALS,    0, &A::frequency_inputs, "Frequency Inputs (engineering units)"},
        {IO, CI_REAL_MEM, 0, REALS,    0, &A::counter_inputs,   "Counter Inputs (engineering units)"},
        {IO, CI_INTG_MEM, 0, INTEGERS, 0, &A::counter_inputs,   "Counter Inputs (counts)"},
        {IO, DI_LOGI_MEM, 0, LOGICALS, 0, &A::digital_inputs,   "Digital Input (logical) "},
        {IO, DO_LOGI_MEM, 0, LOGICALS, 0, &A::digital_outputs,  "Digital Output (logical)"},
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
    if (area == nullptr)
        return;
    for (const Table* table = begin; table != end; ++table) {
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
    if (!useIndexNumber)
        addAliases(ptr, n, section_label, useKeys, &list);
    insertGroup(section_label, list);
}

template <typename T>
void VariableMapList::addAliases(const T* ptr, unsigned short n, const char* section_label,
                                 bool useKeys, QStringList* list)
{
    for (const T* record = ptr; record != ptr + n; ++record) {
        SHARED_MEMORY mem{};
        char* alias_label = nullptr;
        if (record->active == 0 || find_alias_of_target(record->label, &mem, &alias_label) != 0)
            continue;
        if (useKeys)
            list->append(labelText(alias_label));
        else
            m_variables->insert(labelText(record->label), QString::fromLatin1(section_label));
    }
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
    const VariableMapList filled(map.get(), type, nullptr);
    VMLType = int(type);
    Master_variables = map;
}
