#include "finding.h"

#include <array>

namespace {

constexpr std::array<const char*, TAB_COUNT> TAB_TITLES{"Keywords", "Scan List", "Meta Data List",
                                                        "Scan List Aux User", "ECM List"};

}  // namespace

QString messageWithHint(const Finding& finding)
{
    if (finding.hint.isEmpty())
        return finding.message;
    const bool isSentence = finding.message.endsWith(QLatin1Char('!'));
    return finding.message + QLatin1String(isSentence ? " " : ". ") + finding.hint;
}

QString tabTitle(int tab)
{
    return QString::fromLatin1(TAB_TITLES[static_cast<size_t>(tab)]);
}

QString fieldName(const TreeModel& table, int column)
{
    const QString header = table.headerData(column, Qt::Horizontal).toString().simplified();
    return header.isEmpty() ? QStringLiteral("Second Value") : header;
}

int visibleRow(const CellPlace& cell)
{
    return cell.row - firstVisible(cell.tab) + 1;
}

int firstVisible(int tab)
{
    return tab == DE_TAB1 ? 0 : 1;
}
