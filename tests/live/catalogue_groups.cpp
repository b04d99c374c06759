#include "catalogue_groups.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace {

// clang-format off
const QVector<RecordFacts> RECORDS{
    {"real",          390,    50,     64,   false},
    {"integer",       330,    2,      80,   false},
    {"logical",       490,    2,      56,   false},
    {"string",        410,    2,      128,  false},
    {"real_array",    360186, 360088, 0,    false},
    {"integer_array", 360186, 360104, 0,    false},
    {"string_array",  360178, 360138, 0,    false},
    {"logical_array", 360410, 360088, 0,    false},
    {"statistic",     1728,   1480,   0,    true},
    {"composition",   2072,   2040,   1960, true},
    {"property",      9600,   9562,   9400, true},
    {"emission",      2472,   2440,   2280, true},
};

const QVector<GroupFacts> GROUPS{
    {"General Use (real)",                   'R', "GU_REAL_MEM",         54, "real",          0,      21,  "general_use_reals",      1742},
    {"General Use (integer)",                'I', "GU_INTEGER_MEM",      55, "integer",       0,      22,  "general_use_integers",   1744},
    {"General Use (logical)",                'L', "GU_LOGICAL_MEM",      56, "logical",       0,      23,  "general_use_logicals",   1746},
    {"General Use (string)",                 'S', "GU_STRING_MEM",       57, "string",        0,      24,  "general_use_strings",    1750},
    {"Analog Inputs",                        'R', "AI_REAL_MEM",         6,  "real",          0,      31,  "analog_inputs",          1400},
    {"Frequency Inputs (engineering units)", 'R', "FI_REAL_MEM",         22, "real",          0,      32,  "frequency_inputs",       1412},
    {"Counter Inputs (engineering units)",   'R', "CI_REAL_MEM",         24, "real",          0,      33,  "counter_inputs",         1404},
    {"Real (array)",                         'R', "REAL_ARRAY_MEM",      64, "real_array",    0,      3,   "real_arrays",            1764},
    {"Integer (array)",                      'R', "INT_ARRAY_MEM",       65, "integer_array", 0,      4,   "integer_arrays",         1766},
    {"Counter Inputs (counts)",              'I', "CI_INTG_MEM",         8,  "integer",       0,      33,  "counter_inputs",         1404},
    {"Engine Performance (real)",            'R', "ENGINE_PERF_MEM",     11, "real",          0,      100, nullptr,                  0},
    {"Engine Performance (integer)",         'I', "ENGINE_PERF_MEM",     11, "integer",       39000,  50,  nullptr,                  0},
    {"Engine Constants",                     'R', "ENGINE_CONST_MEM",    10, "real",          0,      50,  nullptr,                  0},
    {"Engine/Cell (string)",                 'S', "ENGINE_CONST_MEM",    10, "string",        19500,  32,  nullptr,                  0},
    {"Fuel Reading (real)",                  'R', "FUEL_READING_MEM",    33, "real",          0,      152, nullptr,                  0},
    {"Fuel Reading (integer)",               'I', "FUEL_READING_MEM",    33, "integer",       59280,  16,  nullptr,                  0},
    {"Fuel Reading (string)",                'S', "FUEL_READING_MEM",    33, "string",        64560,  24,  nullptr,                  0},
    {"Control",                              'R', "CONTROL_MEM",         9,  "real",          0,      893, nullptr,                  0},
    {"Control (logical)",                    'L', "CONTROL_MEM",         9,  "logical",       348270, 301, nullptr,                  0},
    {"Control (integer)",                    'I', "CONTROL_MEM",         9,  "integer",       495760, 4,   nullptr,                  0},
    {"Control (string)",                     'S', "CONTROL_MEM",         9,  "string",        497080, 298, nullptr,                  0},
    {"Display (string)",                     'S', "DISPLAY_STRINGS_MEM", 31, "string",        300,    100, nullptr,                  0},
    {"String (array)",                       'S', "STRING_ARRAY_MEM",    66, "string_array",  0,      5,   "string_arrays",          1768},
    {"General Purpose (logical)",            'L', "LOGI_MEM",            19, "logical",       0,      400, nullptr,                  0},
    {"Digital Input (logical)",              'L', "DI_LOGI_MEM",         27, "logical",       0,      34,  "digital_inputs",         1408},
    {"Digital Output (logical)",             'L', "DO_LOGI_MEM",         28, "logical",       0,      35,  "digital_outputs",        1420},
    {"Limit (logical)",                      'L', "LIMIT_LOGI_MEM",      42, "logical",       0,      36,  "limit_logicals",         1758},
    {"Logical (array)",                      'L', "LOGI_ARRAY_MEM",      67, "logical_array", 0,      6,   "logical_arrays",         1770},
    {"General Use (statistical)",            'T', "GU_STAT_MEM",         58, "statistic",     0,      25,  "general_use_statistics", 1748},
    {"Datapoint (statistical)",              'T', "DP_STAT_MEM",         70, "statistic",     0,      37,  "datapoint_statistics",   1772},
    {"Gas/Fluid (compostion)",               'C', "PROPERTIES_MEM",      53, "composition",   0,      34,  nullptr,                  0},
    {"Gas/Fluid (property)",                 'C', "PROPERTIES_MEM",      53, "property",      70448,  32,  nullptr,                  0},
    {"Emissions",                            'C', "PROPERTIES_MEM",      53, "emission",      377648, 34,  nullptr,                  0},
};
// clang-format on

QString labelOf(const GroupFacts& group, const char* place)
{
    const QString name = QString::fromLatin1(group.name).simplified();
    QString label = QStringLiteral("v");
    std::copy_if(name.begin(), name.end(), std::back_inserter(label),
                 [](QChar c) { return c.isLetterOrNumber(); });
    label += QLatin1Char('_') + QLatin1String(place);
    return recordOf(group).structured ? label + QLatin1Char('.') : label;
}

QString aliasOf(const QString& label)
{
    return QStringLiteral("alias_") + label;
}

QJsonObject variable(const GroupFacts& group, const QString& label, int index, bool active)
{
    QJsonObject variable{{QStringLiteral("label"), label},
                         {QStringLiteral("index"), index},
                         {QStringLiteral("active"), active}};
    if (!recordOf(group).structured)
        variable.insert(QStringLiteral("alias"), aliasOf(label));
    return variable;
}

QJsonArray variablesOf(const GroupFacts& group)
{
    return {variable(group, firstLabel(group), 0, true),
            variable(group, labelOf(group, "idle"), 1, false),
            variable(group, lastLabel(group), group.length - 1, true)};
}

QJsonObject tablesOf(const QString& area)
{
    QJsonObject tables;
    for (const GroupFacts& group : groupsOf(area))
        tables.insert(QString::fromLatin1(group.kind), variablesOf(group));
    return tables;
}

QJsonObject counts()
{
    QJsonObject counts;
    for (const GroupFacts& group : groups()) {
        if (group.count != nullptr)
            counts.insert(QString::fromLatin1(group.count), group.length);
    }
    return counts;
}

}  // namespace

const QVector<GroupFacts>& groups()
{
    return GROUPS;
}

const RecordFacts& recordOf(const GroupFacts& group)
{
    const auto hasKind = [&group](const RecordFacts& record) {
        return qstrcmp(record.kind, group.kind) == 0;
    };
    return *std::find_if(RECORDS.begin(), RECORDS.end(), hasKind);
}

QStringList areas()
{
    QStringList areas;
    for (const GroupFacts& group : groups())
        areas.append(QString::fromLatin1(group.area));
    areas.removeDuplicates();
    return areas;
}

QVector<GroupFacts> groupsOf(const QString& area)
{
    QVector<GroupFacts> found;
    std::copy_if(groups().begin(), groups().end(), std::back_inserter(found),
                 [&area](const GroupFacts& group) { return QLatin1String(group.area) == area; });
    return found;
}

QString firstLabel(const GroupFacts& group)
{
    return labelOf(group, "first");
}

QString lastLabel(const GroupFacts& group)
{
    return labelOf(group, "last");
}

QStringList listOf(const GroupFacts& group)
{
    QStringList list{firstLabel(group), lastLabel(group)};
    if (!recordOf(group).structured)
        list += {aliasOf(firstLabel(group)), aliasOf(lastLabel(group))};
    return list;
}

QByteArray catalogueWithout(const QStringList& missingAreas)
{
    QJsonObject described;
    for (const QString& area : areas()) {
        if (!missingAreas.contains(area))
            described.insert(area, tablesOf(area));
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("counts"), counts()},
                                     {QStringLiteral("areas"), described}})
        .toJson();
}

QByteArray fullCatalogue()
{
    return catalogueWithout({});
}

QMap<QString, QStringList> variablesByGroup(const QString& conditions)
{
    QMap<QString, QStringList> variables;
    for (const GroupFacts& group : groups()) {
        if (conditions.contains(QLatin1Char(group.condition)))
            variables.insert(QString::fromLatin1(group.name), listOf(group));
    }
    return variables;
}

QMap<QString, QString> groupsByVariable(const QString& conditions)
{
    QMap<QString, QString> variables;
    for (const GroupFacts& group : groups()) {
        if (!conditions.contains(QLatin1Char(group.condition)))
            continue;
        variables.insert(firstLabel(group), QString::fromLatin1(group.name));
        variables.insert(lastLabel(group), QString::fromLatin1(group.name));
    }
    return variables;
}
