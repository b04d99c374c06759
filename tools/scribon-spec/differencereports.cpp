#include "differencereports.h"

#include <algorithm>

#include "finding.h"
#include "jsonbytes.h"
#include "rowobject.h"
#include "terminaltext.h"
#include "texttables.h"

namespace {

constexpr std::array<const char*, 4> KIND_NAMES{"added", "removed", "moved", "changed"};  // by Kind
constexpr int KIND_WIDTH = 11;
constexpr int ROW_WIDTH = 16;

QString nameOf(RowDifference::Kind kind)
{
    return QString::fromLatin1(KIND_NAMES[static_cast<size_t>(kind)]);
}

// ---- Text ---------------------------------------------------------------------------------------

QString rowNumbers(const RowDifference& difference)
{
    QString before = QString::number(difference.before.number);
    QString after = QString::number(difference.after.number);
    if (difference.kind == RowDifference::Added)
        return after;
    if (difference.kind == RowDifference::Removed || (!difference.isMoved && before == after))
        return before;
    return before + QStringLiteral(" -> ") + after;
}

QString valueOrNothing(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("(empty)") : visibleText(text);
}

QString changedFields(const RowDifference& difference, const QStringList& fields)
{
    QString lines;
    for (int i = 0; i < fields.size(); ++i) {
        const QString& before = difference.before.texts.at(i);
        const QString& after = difference.after.texts.at(i);
        if (before != after) {
            lines += QStringLiteral("      %1: %2 -> %3\n")
                         .arg(fields.at(i), valueOrNothing(before), valueOrNothing(after));
        }
    }
    return lines;
}

QString differenceLines(int tab, const RowDifference& difference, const QStringList& fields)
{
    const bool removed = difference.kind == RowDifference::Removed;
    const QStringList& texts = removed ? difference.before.texts : difference.after.texts;
    const QString line = QStringLiteral("  ") + paddedTo(KIND_WIDTH, nameOf(difference.kind)) +
                         paddedTo(ROW_WIDTH, rowNumbers(difference)) + alignedTexts(tab, texts) +
                         QLatin1Char('\n');
    return difference.kind == RowDifference::Changed ? line + changedFields(difference, fields)
                                                     : line;
}

QString tabLines(const FileComparison& comparison, int tab)
{
    const TabDifferences& differences = comparison.differences[static_cast<size_t>(tab)];
    if (differences.empty())
        return {};
    const QStringList fields = fieldsOf(comparison.after, tab);
    QString lines = tabTitle(tab) + QLatin1Char('\n');
    for (const RowDifference& difference : differences)
        lines += differenceLines(tab, difference, fields);
    return lines;
}

// ---- JSON ---------------------------------------------------------------------------------------

Json differenceObject(int tab, const RowDifference& difference)
{
    Json object{{"tab", tabTitle(tab).toStdString()},
                {"change", nameOf(difference.kind).toStdString()},
                {"moved", difference.isMoved}};
    if (difference.kind != RowDifference::Added)
        object["before"] = rowObject(difference.before);
    if (difference.kind != RowDifference::Removed)
        object["after"] = rowObject(difference.after);
    return object;
}

}  // namespace

bool FileComparison::isEmpty() const
{
    return std::all_of(differences.begin(), differences.end(),
                       [](const TabDifferences& tab) { return tab.empty(); });
}

QByteArray differencesAsText(const FileComparison& comparison)
{
    if (comparison.isEmpty())
        return {};
    QString text =
        QStringLiteral("--- %1\n+++ %2\n")
            .arg(visibleText(comparison.before.name()), visibleText(comparison.after.name()));
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        text += tabLines(comparison, tab);
    return text.toUtf8();
}

QByteArray differencesAsJson(const FileComparison& comparison)
{
    Json differences = Json::array();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (const RowDifference& difference : comparison.differences[static_cast<size_t>(tab)])
            differences.push_back(differenceObject(tab, difference));
    }
    const Json object{{"version", 1},
                      {"before", comparison.before.name().toStdString()},
                      {"after", comparison.after.name().toStdString()},
                      {"differences", differences}};
    return bytesOf(object) + '\n';
}
