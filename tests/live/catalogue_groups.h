// The groups of the variable catalogue and the layout of their variables, repeated here: these
// tests share no table with the editor or the platform.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

// The layout of a kind of record. Variables of a structured kind have members, labels that end with
// a full stop, and no aliases.
struct RecordFacts {
    const char* kind;
    int size;
    int activeAt;
    int labelAt;
    bool structured;
};

// The filter that lists a group: reals, integers, logicals, strings, statistics, compositions.
using Condition = char;

struct GroupFacts {
    const char* name;
    Condition condition;
    const char* area;
    int areaNumber;
    const char* kind;
    int offset;  // offset of the first record in the area
    int length;
    // For a table whose length is a count: the count's name in a catalogue file, and its offset in
    // SYS_ATTR_MEM.
    const char* count;
    int countAt;
};

// In the order of the catalogue. Tables with different counts have different lengths.
const QVector<GroupFacts>& groups();

const RecordFacts& recordOf(const GroupFacts& group);

// The names of the areas, in the order of their groups.
QStringList areas();
QVector<GroupFacts> groupsOf(const QString& area);

// The labels of a group in the test catalogue. The first and the last record of its table are
// active and have aliases; the second one also has an alias, but is not active.
QString firstLabel(const GroupFacts& group);
QString lastLabel(const GroupFacts& group);

// What the catalogue lists for a group: labels, then aliases.
QStringList listOf(const GroupFacts& group);

// The text of the test catalogue without some areas.
QByteArray catalogueWithout(const QStringList& missingAreas);
QByteArray fullCatalogue();

// The expected catalogue of the test platform for a filter that lists the groups of these
// conditions, by group and by variable.
QMap<QString, QStringList> variablesByGroup(const QString& conditions);
QMap<QString, QString> groupsByVariable(const QString& conditions);
