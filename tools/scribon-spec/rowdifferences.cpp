#include "rowdifferences.h"

#include <algorithm>

#include "rowmatching.h"

namespace {

class Comparison {
public:
    Comparison(int tab, const std::vector<TableRow>& before, const std::vector<TableRow>& after)
        : m_before(before),
          m_after(after),
          m_matches(matchRows(tab, before, after)),
          m_inOrder(rowsInOrder(m_matches)),
          m_isKept(before.size())
    {
        for (const int row : m_matches) {
            if (row != NO_ROW)
                m_isKept[static_cast<size_t>(row)] = true;
        }
    }

    TabDifferences run();

private:
    void addRemovedUpTo(size_t end);
    void addOfRow(size_t row);
    void addOfPair(const TableRow& before, const TableRow& after, bool isMoved);

    const std::vector<TableRow>& m_before;
    const std::vector<TableRow>& m_after;
    std::vector<int> m_matches;
    std::vector<bool> m_inOrder;
    std::vector<bool> m_isKept;  // of the rows before
    size_t m_position = 0;       // in the rows before
    TabDifferences m_differences;
};

void Comparison::addRemovedUpTo(size_t end)
{
    for (; m_position < end; ++m_position) {
        if (!m_isKept[m_position])
            m_differences.push_back({RowDifference::Removed, false, m_before[m_position], {}});
    }
}

void Comparison::addOfPair(const TableRow& before, const TableRow& after, bool isMoved)
{
    if (before.texts != after.texts)
        m_differences.push_back({RowDifference::Changed, isMoved, before, after});
    else if (isMoved)
        m_differences.push_back({RowDifference::Moved, true, before, after});
}

void Comparison::addOfRow(size_t row)
{
    if (m_matches[row] == NO_ROW) {
        m_differences.push_back({RowDifference::Added, false, {}, m_after[row]});
        return;
    }
    const auto match = static_cast<size_t>(m_matches[row]);
    if (m_inOrder[row])
        addRemovedUpTo(match);
    addOfPair(m_before[match], m_after[row], !m_inOrder[row]);
}

TabDifferences Comparison::run()
{
    for (size_t row = 0; row < m_after.size(); ++row)
        addOfRow(row);
    addRemovedUpTo(m_before.size());
    return std::move(m_differences);
}

}  // namespace

TabDifferences differencesBetween(int tab, const std::vector<TableRow>& before,
                                  const std::vector<TableRow>& after)
{
    return Comparison(tab, before, after).run();
}

SpecDifferences differencesBetween(const SpecFile& before, const SpecFile& after)
{
    SpecDifferences differences;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        differences[static_cast<size_t>(tab)] =
            differencesBetween(tab, rowsOf(before, tab), rowsOf(after, tab));
    return differences;
}
