#include "htmltables.h"

#include <QVector>

#include "shown_text.h"

// clang-format off
const char HTML_TABLES_STYLE[] = R"(
table { border-collapse: collapse; margin: 0 0 1.5em; }
th, td { border: 1px solid #999; padding: 0.2em 0.6em; text-align: left; vertical-align: top; }
thead th { background: #e4e8ee; }
tbody th { color: #666; font-weight: normal; text-align: right; }
td { min-width: 9em; overflow-wrap: anywhere; white-space: pre-wrap; }
tbody tr:nth-child(even) { background: #f5f7f9; }
tr.comment td { color: #4a6a4a; font-style: italic; }
tbody td.wrong { background: #fde8e8; box-shadow: inset 3px 0 #c00000; color: #a00000; font-style: normal; }
td:target { outline: 3px solid #1a5fb4; }
thead { display: table-header-group; }
tr { break-inside: avoid; }
)";
// clang-format on

namespace {

bool isAllowed(uint character)
{
    return character == '\n' || character == '\t' ||
           (QChar::category(character) != QChar::Other_Control &&
            !QChar::isNonCharacter(character));
}

bool isComment(const TreeModel& table, int tab, int row)
{
    return table.index(row, firstVisible(tab))
        .data(Qt::EditRole)
        .toString()
        .startsWith(QLatin1Char('#'));
}

QString attribute(const char* name, const QString& value)
{
    return value.isEmpty() ? QString()
                           : QStringLiteral(" %1=\"%2\"").arg(QLatin1String(name), htmlText(value));
}

QString headRow(const TreeModel& table, int tab)
{
    QString html = QStringLiteral("<thead><tr><th scope=\"col\">Row</th>");
    for (int column = firstVisible(tab); column < table.columnCount(); ++column)
        html += QStringLiteral("<th scope=\"col\">%1</th>").arg(htmlText(fieldName(table, column)));
    return html + QStringLiteral("</tr></thead>\n");
}

class TableWriter {
public:
    TableWriter(const SpecFile& file, int tab, const HtmlTablesOptions& options)
        : m_table(file.table(tab)), m_tab(tab), m_options(options)
    {
    }

    QString html() const;

private:
    QString rowHtml(int row) const;
    QString cellHtml(const CellPlace& cell) const;
    HtmlCellAddition additionOf(const CellPlace& cell) const;

    const TreeModel& m_table;
    int m_tab;
    const HtmlTablesOptions& m_options;
};

QString TableWriter::html() const
{
    QString html = QStringLiteral("<section id=\"%1t%2\">\n<h3>%3</h3>\n<table>\n")
                       .arg(m_options.idPrefix)
                       .arg(m_tab + 1)
                       .arg(htmlText(tabTitle(m_tab)));
    html += headRow(m_table, m_tab) + QStringLiteral("<tbody>\n");
    for (int row = firstVisible(m_tab); row < m_table.rowCount(); ++row)
        html += rowHtml(row);
    return html + QStringLiteral("</tbody>\n</table>\n</section>\n");
}

QString TableWriter::rowHtml(int row) const
{
    const bool comment = isComment(m_table, m_tab, row);
    QString html = comment ? QStringLiteral("<tr class=\"comment\">") : QStringLiteral("<tr>");
    html += QStringLiteral("<th scope=\"row\">%1</th>").arg(visibleRow({m_tab, row, 0}));
    for (int column = firstVisible(m_tab); column < m_table.columnCount(); ++column)
        html += cellHtml({m_tab, row, column});
    return html + QStringLiteral("</tr>\n");
}

HtmlCellAddition TableWriter::additionOf(const CellPlace& cell) const
{
    return m_options.additionOf ? m_options.additionOf(cell) : HtmlCellAddition();
}

QString TableWriter::cellHtml(const CellPlace& cell) const
{
    const QModelIndex index = m_table.index(cell.row, cell.column);
    const QString error = m_table.errorText(index);
    const HtmlCellAddition addition = additionOf(cell);
    const QString wrong = error.isEmpty() ? QString() : QStringLiteral("wrong ");
    QString html = QStringLiteral("<td");
    html += attribute("id", htmlCellId(cell, m_options.idPrefix));
    html += attribute("class", (wrong + addition.classes).trimmed());
    html += attribute("title", addition.title.isEmpty() ? error : addition.title);
    html += QLatin1Char('>') + htmlText(shownText(index.data(Qt::EditRole).toString()));
    return html + addition.html + QStringLiteral("</td>");
}

}  // namespace

QString htmlTables(const SpecFile& file, const HtmlTablesOptions& options)
{
    QString html;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        html += TableWriter(file, tab, options).html();
    return html;
}

bool isInHtmlTables(const CellPlace& cell)
{
    return cell.isValid() && cell.row >= firstVisible(cell.tab) &&
           cell.column >= firstVisible(cell.tab);
}

QString htmlCellId(const CellPlace& cell, const QString& prefix)
{
    return prefix + QStringLiteral("t%1r%2c%3")
                        .arg(cell.tab + 1)
                        .arg(visibleRow(cell))
                        .arg(cell.column - firstVisible(cell.tab) + 1);
}

QString htmlText(const QString& text)
{
    QString allowed;
    for (const uint character : text.toUcs4()) {
        const uint shown = isAllowed(character) ? character : uint(QChar::ReplacementCharacter);
        allowed += QString::fromUcs4(&shown, 1);
    }
    return allowed.toHtmlEscaped();
}
