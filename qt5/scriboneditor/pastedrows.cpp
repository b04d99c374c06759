#include "pastedrows.h"

#include <algorithm>

#include "cell_edits.h"
#include "editor_types.h"
#include "textjudge.h"
#include "treeitem.h"
#include "treemodel.h"
#include "value_kinds.h"

namespace {

// The time grows with the square of the number of rows; this many take one or two seconds.
constexpr int MAX_PASTED_ROWS = 5000;

bool isBlank(const QStringList& line)
{
    return std::all_of(line.begin(), line.end(),
                       [](const QString& field) { return field.trimmed().isEmpty(); });
}

QVector<QStringList> withoutBlankLines(QVector<QStringList> lines)
{
    lines.erase(std::remove_if(lines.begin(), lines.end(), isBlank), lines.end());
    return lines;
}

bool isComment(const QStringList& fields)
{
    return fields.first().trimmed().startsWith(QLatin1Char('#'));
}

// A row as a load makes it of a comment. A comment is one text, so it takes the other fields too.
QStringList commentRow(int columns, QStringList fields)
{
    fields.removeAll(QString());
    QStringList texts{pastedKeyword(fields.join(QLatin1Char(' ')))};
    while (texts.size() < columns)
        texts.append(FILLER_TEXT);
    return texts;
}

QStringList entryRow(int tab, const QStringList& fields)
{
    const bool keywords = tab == EDIT_TAB1;
    const QString keyword = keywords ? pastedKeyword(fields.first()) : QString();
    const ValueKind& kind = valueKind(classify(keyword));
    QStringList texts;
    for (int i = 0; i < fields.size(); ++i)
        texts.append(pastedValue(tab, firstColumnOf(tab) + i, kind, fields[i]));
    if (keywords)
        texts.first() = keyword;
    return texts;
}

// Whether there is a second value, and the keyword has no editor for one. The first is always
// taken: a file can have one behind any keyword.
bool hasForeignValue(const QStringList& texts)
{
    const QString second = texts.value(KeywordsTab::SECOND_VALUE);
    const ValueKind& kind = valueKind(classify(texts.first()));
    return !second.isEmpty() && !takesValue(kind, KeywordsTab::SECOND_VALUE);
}

int longestOf(const QStringList& texts)
{
    const auto longest =
        std::max_element(texts.begin(), texts.end(),
                         [](const QString& a, const QString& b) { return a.size() < b.size(); });
    return longest->size();
}

// Adds the row of a line. Returns why it is refused, or an empty text.
QString addRow(int tab, int columns, const QStringList& fields, QVector<QStringList>* rows)
{
    const int number = rows->size() + 1;
    if (fields.size() > columns) {
        const QString reason = PastedRows::tr("Row %1 has %2 fields, not %3: not pasted");
        return reason.arg(number).arg(fields.size()).arg(columns);
    }
    const bool comment = isComment(fields);
    rows->append(comment ? commentRow(columns, fields) : entryRow(tab, fields));
    if (tab == EDIT_TAB1 && !comment && hasForeignValue(rows->last()))
        return PastedRows::tr("Row %1 has too many values: not pasted").arg(number);
    return tooLong(longestOf(rows->last()));
}

}  // namespace

int firstColumnOf(int tab)
{
    return tab == EDIT_TAB1 ? KEYWORD_COLUMN : ENTRY_COLUMN;
}

QString tooLong(int length)
{
    return length > MAX_PASTED_LENGTH ? PastedRows::tr("A text is too long: not pasted")
                                      : QString();
}

QString onlyField(const QVector<QStringList>& lines)
{
    const QVector<QStringList> filled = withoutBlankLines(lines);
    return filled.size() == 1 && filled.first().size() == 1 ? filled.first().first() : QString();
}

PastedRows pastedRows(int tab, const QVector<QStringList>& lines)
{
    const int columns = NumberOfColumns[static_cast<size_t>(tab - EDIT_TAB1)] - firstColumnOf(tab);
    const QVector<QStringList> filled = withoutBlankLines(lines);
    if (filled.size() > MAX_PASTED_ROWS)
        return {{}, PastedRows::tr("More than %1 rows: not pasted").arg(MAX_PASTED_ROWS)};
    PastedRows pasted;
    for (const QStringList& fields : filled) {
        pasted.refusal = addRow(tab, columns, fields, &pasted.rows);
        if (!pasted.refusal.isEmpty())
            return {{}, pasted.refusal};
    }
    return pasted;
}
