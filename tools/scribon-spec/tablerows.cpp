#include "tablerows.h"

#include "cellfindings.h"
#include "finding.h"

namespace {

TableRow rowAt(const SpecFile& file, int tab, int row)
{
    TableRow result;
    result.number = visibleRow({tab, row, KEYWORD_COLUMN});
    result.line = file.lineNumberOf(rangeOfCell(file, {tab, row, KEYWORD_COLUMN}).offset);
    for (int column = firstVisible(tab); column < file.table(tab).columnCount(); ++column)
        result.texts.append(file.cellText({tab, row, column}));
    const QString keyword = file.cellText({tab, row, KEYWORD_COLUMN});
    if (!keyword.isEmpty())
        result.texts.first() = keyword;
    return result;
}

}  // namespace

QStringList fieldsOf(const SpecFile& file, int tab)
{
    QStringList fields;
    for (int column = firstVisible(tab); column < file.table(tab).columnCount(); ++column)
        fields.append(fieldName(file.table(tab), column));
    return fields;
}

std::vector<TableRow> rowsOf(const SpecFile& file, int tab)
{
    std::vector<TableRow> rows;
    for (int row = firstVisible(tab); row < file.table(tab).rowCount(); ++row)
        rows.push_back(rowAt(file, tab, row));
    return rows;
}
