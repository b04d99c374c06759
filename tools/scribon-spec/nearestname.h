// "Did you mean": the name that a wrong one was probably meant to be.
#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <tuple>
#include <vector>

class NearestName {
public:
    explicit NearestName(const QStringList& names = {});

    // The name that differs in the fewest letters: changed, added, left out, or swapped with their
    // neighbour. Upper and lower case do not count. Of several, the first in alphabetical order.
    // Empty if all names differ in more than two letters, or in more than one from a text of up to
    // four.
    QString nearestTo(const QString& text) const;

private:
    struct Name {
        QString folded;
        QString spelling;

        bool operator<(const Name& other) const
        {
            return std::tie(folded, spelling) < std::tie(other.folded, other.spelling);
        }
    };
    using Iterator = std::vector<Name>::const_iterator;
    class Search;

    const Name* findWithin(int limit, const QString& folded) const;

    // By length. Sorted, so that names that begin alike are together.
    std::map<int, std::vector<Name>> m_names;
};

// A hint that asks for the name; empty for an empty one.
QString didYouMean(const QString& name);
