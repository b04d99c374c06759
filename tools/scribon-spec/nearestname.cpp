#include "nearestname.h"

#include <algorithm>
#include <deque>
#include <numeric>

namespace {

constexpr int SHORT_TEXT = 4;

int mostDifferences(const QString& text)
{
    return text.size() <= SHORT_TEXT ? 1 : 2;
}

}  // namespace

// Looks for a name within a number of differences, among names of one length. Names that begin
// alike share the comparison of their beginning, and a beginning that differs too much already is
// not followed any further.
class NearestName::Search {
public:
    Search(const QString& text, int limit) : m_text(text), m_limit(limit)
    {
        std::iota(rowOf(0).begin(), rowOf(0).end(), 0);
    }

    // The first of the names; null if there is none.
    const Name* run(Iterator begin, Iterator end) { return descend(begin, end, 0); }

private:
    // For the letters of a name up to a depth: their differences from each beginning of the text.
    // Only those near the diagonal are worked out, since the others are too many anyway.
    using Row = std::vector<int>;

    // Among names that are the same in their first `depth` letters.
    const Name* descend(Iterator begin, Iterator end, int depth)
    {
        if (begin == end || begin->folded.size() == depth)
            return begin != end && rowOf(depth).back() <= m_limit ? &*begin : nullptr;
        while (begin != end) {
            const auto next = endOfLetter(begin, end, depth);
            if (compare(begin->folded, depth)) {
                if (const Name* const found = descend(begin, next, depth + 1))
                    return found;
            }
            begin = next;
        }
        return nullptr;
    }

    static Iterator endOfLetter(Iterator begin, Iterator end, int depth)
    {
        const QChar letter = begin->folded[depth];
        return std::partition_point(
            begin, end, [depth, letter](const Name& name) { return name.folded[depth] == letter; });
    }

    // Makes the row of the next depth. False if all of it is beyond the limit.
    bool compare(const QString& name, int depth)
    {
        Row& row = rowOf(depth + 1);
        const int first = std::max(1, depth + 1 - m_limit);
        const int last = std::min(m_text.size(), depth + 1 + m_limit);
        row[static_cast<size_t>(first - 1)] = first == 1 ? depth + 1 : m_limit + 1;
        int least = row[static_cast<size_t>(first - 1)];
        for (int at = first; at <= last; ++at) {
            const int here = differences(name, depth, at);
            row[static_cast<size_t>(at)] = here;
            least = std::min(least, here);
        }
        if (last < m_text.size())
            row[static_cast<size_t>(last) + 1] = m_limit + 1;
        return least <= m_limit;
    }

    int differences(const QString& name, int depth, int at)
    {
        const auto column = static_cast<size_t>(at);
        const Row& above = rowOf(depth);
        const int changed = above[column - 1] + (name[depth] == m_text[at - 1] ? 0 : 1);
        const int least = std::min({changed, above[column] + 1, rowOf(depth + 1)[column - 1] + 1});
        const bool isSwapped = depth > 0 && at > 1 && name[depth] == m_text[at - 2] &&
                               name[depth - 1] == m_text[at - 1];
        return isSwapped ? std::min(least, rowOf(depth - 1)[column - 2] + 1) : least;
    }

    Row& rowOf(int depth)
    {
        while (m_rows.size() <= static_cast<size_t>(depth))
            m_rows.emplace_back(static_cast<size_t>(m_text.size()) + 1);
        return m_rows[static_cast<size_t>(depth)];
    }

    const QString& m_text;
    int m_limit;
    std::deque<Row> m_rows;
};

NearestName::NearestName(const QStringList& names)
{
    for (const QString& name : names) {
        const QString folded = name.toLower();
        m_names[folded.size()].push_back({folded, name});
    }
    for (auto& ofLength : m_names)
        std::sort(ofLength.second.begin(), ofLength.second.end());
}

QString NearestName::nearestTo(const QString& text) const
{
    for (int limit = 0; limit <= mostDifferences(text); ++limit) {
        const Name* const found = findWithin(limit, text.toLower());
        if (found != nullptr)
            return found->spelling;
    }
    return {};
}

const NearestName::Name* NearestName::findWithin(int limit, const QString& folded) const
{
    const Name* first = nullptr;
    const auto end = m_names.upper_bound(folded.size() + limit);
    for (auto ofLength = m_names.lower_bound(folded.size() - limit); ofLength != end; ++ofLength) {
        const std::vector<Name>& names = ofLength->second;
        const Name* const found = Search(folded, limit).run(names.begin(), names.end());
        if (found != nullptr && (first == nullptr || *found < *first))
            first = found;
    }
    return first;
}

QString didYouMean(const QString& name)
{
    return name.isEmpty() ? QString() : QStringLiteral("Did you mean %1?").arg(name);
}
