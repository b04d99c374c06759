#include "tablerows.h"

#include "cellfindings.h"
#include "finding.h"
#include "treeitem.h"

namespace {

int firstField(int tab)
{
    return tab == DE_TAB1 ? KEYWORD_COLUMN : ENTRY_COLUMN;
}

QString textAt(const TreeModel& table, int row, int column)
{
    const QString text = table.index(row, column).data(Qt::EditRole).toString().trimmed();
    return text == FILLER_TEXT ? QString() : text;
}

TableRow rowAt(const SpecFile& file, int tab, int row)
{
    const TreeModel& table = file.table(tab);
    TableRow result;
    result.number = visibleRow({tab, row, KEYWORD_COLUMN});
    result.line = file.lineNumberOf(rangeOfCell(file, {tab, row, KEYWORD_COLUMN}).offset);
    for (int column = firstField(tab); column < table.columnCount(); ++column)
        result.texts.append(textAt(table, row, column));
    const QString keyword = textAt(table, row, KEYWORD_COLUMN);
    if (!keyword.isEmpty())
        result.texts.first() = keyword;
    return result;
}

}  // namespace

QStringList fieldsOf(const SpecFile& file, int tab)
{
    QStringList fields;
    for (int column = firstField(tab); column < file.table(tab).columnCount(); ++column)
        fields.append(fieldName(file.table(tab), column));
    return fields;
}

std::vector<TableRow> rowsOf(const SpecFile& file, int tab)
{
    std::vector<TableRow> rows;
    for (int row = firstField(tab); row < file.table(tab).rowCount(); ++row)
        rows.push_back(rowAt(file, tab, row));
    return rows;
}
