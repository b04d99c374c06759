#include "rowmatching.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "editor_types.h"

namespace {

constexpr int NO_FIELD = -1;
const QChar BETWEEN_TEXTS(0x1f);

using KeyFields = std::array<int, 2>;

// By which fields the rows of a tab are known, the better ones first.
constexpr std::array<std::array<KeyFields, 2>, TAB_COUNT> KEYS{{
    {{{0, NO_FIELD}, {NO_FIELD, NO_FIELD}}},  // keyword
    {{{2, NO_FIELD}, {0, 1}}},                // channel keyword; variable and member
    {{{0, NO_FIELD}, {1, NO_FIELD}}},         // PAM keyword; variable
    {{{1, NO_FIELD}, {0, NO_FIELD}}},         // alternate name; variable
    {{{0, NO_FIELD}, {1, NO_FIELD}}},         // number; path
}};

QString wholeKey(const TableRow& row)
{
    return row.texts.join(BETWEEN_TEXTS);
}

// Empty if the row cannot be known by these fields.
QString keyOf(const TableRow& row, const KeyFields& fields)
{
    if (fields[0] == NO_FIELD || row.texts.at(fields[0]).isEmpty())
        return {};
    const QString second = fields[1] == NO_FIELD ? QString() : row.texts.at(fields[1]);
    return row.texts.at(fields[0]) + BETWEEN_TEXTS + second;
}

class RowMatcher {
public:
    RowMatcher(const std::vector<TableRow>& before, const std::vector<TableRow>& after)
        : m_before(before),
          m_after(after),
          m_isTaken(before.size()),
          m_matches(after.size(), NO_ROW)
    {
    }

    void matchUniqueRows();
    void matchNeighbours();

    // In order, of those that are left. Rows with an empty key are left out.
    template <typename KeyOf>
    void matchByKey(KeyOf keyOfRow);

    const std::vector<int>& matches() const { return m_matches; }

private:
    bool isEqual(int before, int after) const;
    bool isFree(int before) const;
    void match(int before, int after);
    std::optional<int> placeOfMatch(int after) const;
    void matchBeside(int after, int neighbour, int step);

    const std::vector<TableRow>& m_before;
    const std::vector<TableRow>& m_after;
    std::vector<bool> m_isTaken;  // of the rows before
    std::vector<int> m_matches;
};

bool RowMatcher::isEqual(int before, int after) const
{
    return m_before[static_cast<size_t>(before)].texts == m_after[static_cast<size_t>(after)].texts;
}

bool RowMatcher::isFree(int before) const
{
    return before >= 0 && before < static_cast<int>(m_before.size()) &&
           !m_isTaken[static_cast<size_t>(before)];
}

void RowMatcher::match(int before, int after)
{
    m_isTaken[static_cast<size_t>(before)] = true;
    m_matches[static_cast<size_t>(after)] = before;
}

// Where a text stands, if it stands there once.
QHash<QString, int> placesOfUniqueTexts(const std::vector<TableRow>& rows)
{
    QHash<QString, int> places;
    for (size_t row = 0; row < rows.size(); ++row) {
        const QString key = wholeKey(rows[row]);
        places[key] = places.contains(key) ? NO_ROW : static_cast<int>(row);
    }
    return places;
}

void RowMatcher::matchUniqueRows()
{
    const QHash<QString, int> before = placesOfUniqueTexts(m_before);
    const QHash<QString, int> after = placesOfUniqueTexts(m_after);
    for (auto text = after.begin(); text != after.end(); ++text) {
        const int place = before.value(text.key(), NO_ROW);
        if (place != NO_ROW && text.value() != NO_ROW)
            match(place, text.value());
    }
}

// Where the row's match stands, if it has one. The ends of both tables match.
std::optional<int> RowMatcher::placeOfMatch(int after) const
{
    if (after < 0)
        return -1;
    if (after == static_cast<int>(m_after.size()))
        return static_cast<int>(m_before.size());
    const int match = m_matches[static_cast<size_t>(after)];
    return match == NO_ROW ? std::nullopt : std::make_optional(match);
}

// Matches a row with the one beside its neighbour's match.
void RowMatcher::matchBeside(int after, int neighbour, int step)
{
    const std::optional<int> place = placeOfMatch(neighbour);
    if (place && m_matches[static_cast<size_t>(after)] == NO_ROW && isFree(*place + step) &&
        isEqual(*place + step, after))
        match(*place + step, after);
}

void RowMatcher::matchNeighbours()
{
    const int count = static_cast<int>(m_after.size());
    for (int row = 0; row < count; ++row)
        matchBeside(row, row - 1, 1);
    for (int row = count - 1; row >= 0; --row)
        matchBeside(row, row + 1, -1);
}

template <typename KeyOf>
void RowMatcher::matchByKey(KeyOf keyOfRow)
{
    QHash<QString, std::vector<int>> free;  // in reverse order
    for (int row = static_cast<int>(m_before.size()) - 1; row >= 0; --row) {
        const QString key = keyOfRow(m_before[static_cast<size_t>(row)]);
        if (isFree(row) && !key.isEmpty())
            free[key].push_back(row);
    }
    for (size_t row = 0; row < m_after.size(); ++row) {
        const auto found =
            m_matches[row] == NO_ROW ? free.find(keyOfRow(m_after[row])) : free.end();
        if (found == free.end() || found->empty())
            continue;
        match(found->back(), static_cast<int>(row));
        found->pop_back();
    }
}

// The longest sequence of rows whose matches increase. For each length it keeps the sequence that
// ends with the least match.
class LongestSequence {
public:
    explicit LongestSequence(const std::vector<int>& matches)
        : m_matches(matches), m_previous(matches.size(), NO_ROW)
    {
    }

    void add(int row);
    std::vector<bool> rows() const;

private:
    int matchOf(int row) const { return m_matches[static_cast<size_t>(row)]; }

    const std::vector<int>& m_matches;
    std::vector<int> m_previous;  // of each row in the longest sequence that it ends
    std::vector<int> m_ends;      // by length
};

void LongestSequence::add(int row)
{
    const auto end =
        std::lower_bound(m_ends.begin(), m_ends.end(), matchOf(row),
                         [this](int last, int match) { return matchOf(last) < match; });
    if (end != m_ends.begin())
        m_previous[static_cast<size_t>(row)] = *std::prev(end);
    if (end == m_ends.end())
        m_ends.push_back(row);
    else
        *end = row;
}

std::vector<bool> LongestSequence::rows() const
{
    std::vector<bool> rows(m_matches.size());
    for (int row = m_ends.empty() ? NO_ROW : m_ends.back(); row != NO_ROW;
         row = m_previous[static_cast<size_t>(row)])
        rows[static_cast<size_t>(row)] = true;
    return rows;
}

}  // namespace

std::vector<int> matchRows(int tab, const std::vector<TableRow>& before,
                           const std::vector<TableRow>& after)
{
    RowMatcher matcher(before, after);
    matcher.matchUniqueRows();
    matcher.matchNeighbours();
    matcher.matchByKey(wholeKey);
    for (const KeyFields& fields : KEYS[static_cast<size_t>(tab)])
        matcher.matchByKey([&fields](const TableRow& row) { return keyOf(row, fields); });
    return matcher.matches();
}

std::vector<bool> rowsInOrder(const std::vector<int>& matches)
{
    LongestSequence sequence(matches);
    for (int row = 0; row < static_cast<int>(matches.size()); ++row) {
        if (matches[static_cast<size_t>(row)] != NO_ROW)
            sequence.add(row);
    }
    return sequence.rows();
}
