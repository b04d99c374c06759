#include "sortednames.h"

namespace {

// Whether only equal texts match.
bool isExact(Qt::MatchFlags flags)
{
    const Qt::MatchFlags how = flags & ~Qt::MatchFlags(Qt::MatchWrap);
    return how == Qt::MatchFlags(Qt::MatchExactly) ||
           how == (Qt::MatchExactly | Qt::MatchCaseSensitive) ||
           how == (Qt::MatchFixedString | Qt::MatchCaseSensitive);
}

}  // namespace

void SortedNames::markSorted()
{
    m_sortedRows = rowCount();
}

bool SortedNames::isSorted() const
{
    return rowCount() == m_sortedRows;
}

QModelIndexList SortedNames::match(const QModelIndex& start, int role, const QVariant& value,
                                   int hits, Qt::MatchFlags flags) const
{
    const bool wholeColumn = start.row() == 0 && start.column() == 0;
    if (!isSorted() || !wholeColumn || role != Qt::DisplayRole || hits != 1 || !isExact(flags))
        return QSortFilterProxyModel::match(start, role, value, hits, flags);
    const QString text = value.toString();
    const QModelIndex found = index(firstRowFrom(text), 0);
    return found.data().toString() == text && found.isValid() ? QModelIndexList{found}
                                                              : QModelIndexList();
}

// The first row whose text is not less than this one; the number of rows if all are.
int SortedNames::firstRowFrom(const QString& text) const
{
    int first = 0;
    int count = rowCount();
    while (count > 0) {
        const int half = count / 2;
        if (index(first + half, 0).data().toString() < text) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return first;
}
