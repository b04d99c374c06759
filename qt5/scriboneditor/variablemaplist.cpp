#include "variablemaplist.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "marvane_tables.h"

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
// flags.
struct VariableMapList::Table {
    using Walk = void (*)(VariableMapList*, const Table&, const void* records, unsigned short n,
                          bool useKeys, bool useIndexNumber);

    struct Records {
        marvane::RecordKind kind;
        Walk walk;
    };

    // A row for a table that the area does not have fails to compile.
    constexpr Table(int flags, SM_AREA_ID area, const Records& records, const char* groupName)
        : wanted(flags),
          layout(*marvane::findTable(area, records.kind)),
          walk(records.walk),
          group(groupName)
    {
    }

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
        return marvane::isCounted(layout) ? attributes.*layout.counter : layout.fixedLength;
    }

    bool isWanted(QT_MARVANE_VAR_TYPE type) const { return (int(type) & wanted) != 0; }

    int wanted;
    const marvane::TableLayout& layout;
    Walk walk;
    const char* group;
};

// The tables of an area stand together. Among the channels, and only there, the group of digital
// inputs ends in a blank.
struct VariableMapList::Tables {
    using Kind = marvane::RecordKind;
    using Records = Table::Records;
    static constexpr int R = QT_MARVANE_REAL | QT_MARVANE_REAL_INTEGER;
    static constexpr int I = QT_MARVANE_INTEGER | QT_MARVANE_REAL_INTEGER;
    static constexpr int L = QT_MARVANE_LOGICAL;
    static constexpr int S = QT_MARVANE_STRING;
    static constexpr int STAT = QT_MARVANE_STAT;
    static constexpr int COMP = QT_MARVANE_COMP;
    static constexpr int IO = QT_MARVANE_IO_MEM;

    static constexpr Records REALS{Kind::Real, Table::plain<_real_variable>};
    static constexpr Records INTEGERS{Kind::Integer, Table::plain<integer_variable>};
    static constexpr Records LOGICALS{Kind::Logical, Table::plain<_logical_variable>};
    static constexpr Records STRINGS{Kind::String, Table::plain<_string_variable>};
    static constexpr Records REAL_ARRAYS{Kind::RealArray, Table::plain<_real_array_variable>};
    static constexpr Records INT_ARRAYS{Kind::IntegerArray, Table::plain<_integer_array_variable>};
    static constexpr Records STRING_ARRAYS{Kind::StringArray, Table::plain<_string_array_variable>};
    static constexpr Records LOGI_ARRAYS{Kind::LogicalArray, Table::plain<_logical_array_variable>};
    static constexpr Records STATS{Kind::Statistic, Table::structured<_stat_variable>};
    static constexpr Records COMPS{Kind::Composition, Table::structured<_comp_variable>};
    static constexpr Records PROPS{Kind::Property, Table::structured<_prop_variable>};
    static constexpr Records EMISSIONS{Kind::Emission, Table::structured<_emis_variable>};

    // clang-format off
    static constexpr Table GENERAL_USE[] = {
        {R,    GU_REAL_MEM,         REALS,         "General Use (real)"},
        {I,    GU_INTEGER_MEM,      INTEGERS,      "General Use (integer)"},
        {L,    GU_LOGICAL_MEM,      LOGICALS,      "General Use (logical)"},
        {S,    GU_STRING_MEM,       STRINGS,       "General Use (string)"},
    };

    static constexpr Table VARIABLES[] = {
        {R,    AI_REAL_MEM,         REALS,         "Analog Inputs"},
        {R,    FI_REAL_MEM,         REALS,         "Frequency Inputs (engineering units)"},
        {R,    CI_REAL_MEM,         REALS,         "Counter Inputs (engineering units)"},
        {R,    REAL_ARRAY_MEM,      REAL_ARRAYS,   "Real (array)"},
        {R,    INT_ARRAY_MEM,       INT_ARRAYS,    "Integer (array)"},
        {I,    CI_INTG_MEM,         INTEGERS,      "Counter Inputs (counts)"},
        {R,    ENGINE_PERF_MEM,     REALS,         "Engine Performance (real)"},
        {I,    ENGINE_PERF_MEM,     INTEGERS,      "Engine Performance (integer)"},
        {R,    ENGINE_CONST_MEM,    REALS,         "Engine Constants"},
        {S,    ENGINE_CONST_MEM,    STRINGS,       "Engine/Cell (string)"},
        {R,    FUEL_READING_MEM,    REALS,         "Fuel Reading (real)"},
        {I,    FUEL_READING_MEM,    INTEGERS,      "Fuel Reading (integer)"},
        {S,    FUEL_READING_MEM,    STRINGS,       "Fuel Reading (string)"},
        {R,    CONTROL_MEM,         REALS,         "Control"},
        {L,    CONTROL_MEM,         LOGICALS,      "Control (logical)"},
        {I,    CONTROL_MEM,         INTEGERS,      "Control (integer)"},
        {S,    CONTROL_MEM,         STRINGS,       "Control (string)"},
        {S,    DISPLAY_STRINGS_MEM, STRINGS,       "Display (string)"},
        {S,    STRING_ARRAY_MEM,    STRING_ARRAYS, "String (array)"},
        {L,    LOGI_MEM,            LOGICALS,      "General Purpose (logical)"},
        {L,    DI_LOGI_MEM,         LOGICALS,      "Digital Input (logical)"},
        {L,    DO_LOGI_MEM,         LOGICALS,      "Digital Output (logical)"},
        {L,    LIMIT_LOGI_MEM,      LOGICALS,      "Limit (logical)"},
        {L,    LOGI_ARRAY_MEM,      LOGI_ARRAYS,   "Logical (array)"},
        {STAT, GU_STAT_MEM,         STATS,         "General Use (statistical)"},
        {STAT, DP_STAT_MEM,         STATS,         "Datapoint (statistical)"},
    };

    static constexpr Table PROPERTIES[] = {
        {COMP, PROPERTIES_MEM,      COMPS,         "Gas/Fluid (compostion)"},
        {COMP, PROPERTIES_MEM,      PROPS,         "Gas/Fluid (property)"},
        {COMP, PROPERTIES_MEM,      EMISSIONS,     "Emissions"},
    };

    static constexpr Table CHANNELS[] = {
        {IO,   AI_REAL_MEM,         REALS,         "Analog Inputs"},
        {IO,   FI_REAL_MEM,         REALS,         "Frequency Inputs (engineering units)"},
        {IO,   CI_REAL_MEM,         REALS,         "Counter Inputs (engineering units)"},
        {IO,   CI_INTG_MEM,         INTEGERS,      "Counter Inputs (counts)"},
        {IO,   DI_LOGI_MEM,         LOGICALS,      "Digital Input (logical) "},
        {IO,   DO_LOGI_MEM,         LOGICALS,      "Digital Output (logical)"},
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
        return local_link_to_memory(Tables::GENERAL_USE[row].layout.area, &areas[row]);
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
        local_fre_shrd_mem(table.layout.area);
}

template <size_t N>
void VariableMapList::walk(const Table (&tables)[N], QT_MARVANE_VAR_TYPE type, bool useKeys,
                           bool useIndexNumber)
{
    const Table* const end = tables + N;
    for (const Table* begin = tables; begin != end;) {
        const Table* const next = std::find_if(begin, end, [begin](const Table& table) {
            return table.layout.area != begin->layout.area;
        });
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
    if (!local_link_to_memory(begin->layout.area, &area))
        return;
    walkTables(begin, end, area, type, useKeys, useIndexNumber);
    local_fre_shrd_mem(begin->layout.area);
}

void VariableMapList::walkTables(const Table* begin, const Table* end, const void* area,
                                 QT_MARVANE_VAR_TYPE type, bool useKeys, bool useIndexNumber)
{
    if (area == nullptr)
        return;
    for (const Table* table = begin; table != end; ++table) {
        if (table->isWanted(type))
            table->walk(this, *table, static_cast<const char*>(area) + table->layout.offset,
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
