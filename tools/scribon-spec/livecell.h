// What a test cell has, as its running platform tells it: by the tables that the editor lists its
// variables from, and by the platform's functions.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <map>
#include <vector>

#include "nearestname.h"

class LiveCell {
public:
    // Joins the platform that the environment names. False if it does not run.
    static bool join();

    // The platform must run. One that stops meanwhile ends the program with EXIT_TROUBLE.
    LiveCell();

    // What a platform tells that has stopped is worth nothing.
    static bool isRunning();

    // By label or alias. The full stop of a structured variable may be left out.
    bool hasVariable(const QString& name) const;

    // Whether the variable is of one of these kinds (QT_MARVANE_FLAGS), as the editor lists them.
    // True for one that it does not list at all.
    bool isOfKind(const QString& name, int kinds) const;
    bool isArrayOfIntegers(const QString& name) const;

    // Empty if none is near.
    QString nearestVariable(const QString& name, int kinds) const;

    // False if the platform has no keywords at all.
    bool hasKeywords() const { return m_hasKeywords; }

    // The codes of the units that the keywords of this name are for, 0 for none. Empty if there is
    // no keyword of this name and kind (CHANNEL_KEYWORD, PARAMETER_KEYWORD).
    QList<int> unitsOfKeyword(const QString& name, int kind) const;
    QString nearestKeyword(const QString& name, int kind) const;

private:
    struct Variables {
        QSet<QString> names;
        NearestName nearest;
    };
    struct Keywords {
        QMultiHash<QString, int> units;  // by name
        NearestName nearest;
    };

    void addVariables(int kinds);
    static Keywords readKeywords(int kind);

    std::map<int, Variables> m_variables;  // by the kinds that keywords need
    QSet<QString> m_integerArrays;
    std::vector<Keywords> m_keywords;  // by kind
    bool m_hasKeywords = false;
};
