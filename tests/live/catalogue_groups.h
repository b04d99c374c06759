// The groups of the variable catalogue and where their variables lie, written down once more: these
// tests share no table with the editor or the platform.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

// Where a kind of record has what the catalogue reads. Variables of a structured kind have members,
// a full stop at the end of their labels and no aliases.
struct RecordFacts {
    const char* kind;
    int size;
    int activeAt;
    int labelAt;
    bool structured;
};

// Which filters list a group: reals, integers, logicals, strings, statistics, compositions.
using Condition = char;

struct GroupFacts {
    const char* name;
    Condition condition;
    const char* area;
    int areaNumber;
    const char* kind;
    int offset;  // of the first record in the area
    int length;
    // For a length that the platform counts: the count's name in a catalogue file, and its place
    // in SYS_ATTR_MEM.
    const char* count;
    int countAt;
};

// In the order in which the catalogue walks them. Those that are counted have different lengths, as
// far as they have different counts.
const QVector<GroupFacts>& groups();

const RecordFacts& recordOf(const GroupFacts& group);

// The names of the areas, and their groups, in the same order.
QStringList areas();
QVector<GroupFacts> groupsOf(const QString& area);

// The variables of a group in the test catalogue: the first and the last record of its table are in
// use and have aliases, the second, which has one too, is not in use.
QString firstLabel(const GroupFacts& group);
QString lastLabel(const GroupFacts& group);

// What the catalogue lists of a group: labels, then aliases.
QStringList listOf(const GroupFacts& group);

// The text of the test catalogue, less some areas.
QByteArray catalogueWithout(const QStringList& missingAreas);
QByteArray fullCatalogue();

// What the catalogue of the test platform is for a filter that lists the groups of these
// conditions, in the form by group and in that by variable.
QMap<QString, QStringList> variablesByGroup(const QString& conditions);
QMap<QString, QString> groupsByVariable(const QString& conditions);
