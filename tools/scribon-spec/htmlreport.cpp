#include "htmlreport.h"

#include <QMultiMap>
#include <tuple>

#include "htmltables.h"

namespace {

// clang-format off
constexpr char PAGE_STYLE[] = R"(
:root { color-scheme: light; }
body { background: #fff; color: #1a1a1a; font: 15px/1.45 sans-serif; margin: 1.5em auto; max-width: 75em; padding: 0 1.5em; }
h1 { font-size: 1.6em; margin: 0 0 0.3em; }
h2 { border-top: 2px solid #888; font-size: 1.25em; margin: 2em 0 0.4em; overflow-wrap: anywhere; padding-top: 0.8em; }
h3 { font-size: 1.05em; margin: 1.2em 0 0.4em; }
a { color: #1a4f9c; }
td.number { text-align: right; }
td.place { white-space: nowrap; }
.severity { font-weight: bold; white-space: nowrap; }
.severity.error { color: #a00000; }
.severity.warning { color: #7a4a00; }
td.found { border: 2px solid #a00000; }
td.found.only-warned { border: 2px dashed #7a4a00; }
.note { color: #1a1a1a; display: block; font-size: 0.85em; font-style: normal; margin-top: 0.2em; }
.rule { color: #555; white-space: nowrap; }
@media print {
body { font-size: 9pt; margin: 0; max-width: none; padding: 0; }
h2, h3 { break-after: avoid; }
a { color: inherit; text-decoration: none; }
td, th { print-color-adjust: exact; }
}
)";
// clang-format on

QString verdictOf(const FileCounts& file)
{
    if (file.isUnreadable)
        return QStringLiteral("cannot be read");
    return file.loads ? QStringLiteral("yes") : QStringLiteral("refused");
}

// ---- The summary --------------------------------------------------------------------------------

QString numberCell(int number)
{
    return QStringLiteral("<td class=\"number\">%1</td>").arg(number);
}

QString summaryRow(const FileCounts& file)
{
    return QStringLiteral("<tr><td><a href=\"#f%1\">%2</a></td><td>%3</td>%4%5</tr>\n")
        .arg(QString::number(file.number), htmlText(file.name), verdictOf(file),
             numberCell(file.errors), numberCell(file.warnings));
}

QString summary(const Totals& totals)
{
    QString html = QStringLiteral(
                       "<p>%1.</p>\n<table>\n<thead><tr><th scope=\"col\">File</th>"
                       "<th scope=\"col\">Opens</th><th scope=\"col\">Errors</th>"
                       "<th scope=\"col\">Warnings</th></tr></thead>\n<tbody>\n")
                       .arg(summaryOf(totals));
    for (const FileCounts& file : totals.files)
        html += summaryRow(file);
    return html + QStringLiteral("</tbody>\n</table>\n");
}

// ---- A file -------------------------------------------------------------------------------------

// The findings of a file, each with a number and an anchor, and the tables with links to them.
class FileArticle {
public:
    FileArticle(const SpecFile& file, const FileReport& report);

    QString html() const;

private:
    using Cell = std::tuple<int, int, int>;

    static Cell keyOf(const CellPlace& cell) { return {cell.tab, cell.row, cell.column}; }
    QString counts() const;
    QString findings() const;
    QString findingRow(size_t number) const;
    QString placeOf(const Finding& finding) const;
    QString cellLink(const Finding& finding) const;
    QString note(size_t number) const;
    HtmlCellAddition additionOf(const CellPlace& cell) const;

    const SpecFile& m_file;
    const FileReport& m_report;
    QString m_prefix;                   // of ids
    QMultiMap<Cell, size_t> m_numbers;  // of the findings in a cell
};

FileArticle::FileArticle(const SpecFile& file, const FileReport& report)
    : m_file(file), m_report(report), m_prefix(QStringLiteral("f%1").arg(report.number))
{
    for (size_t number = report.findings.size(); number-- > 0;) {
        const CellPlace& cell = report.findings[number].cell;
        if (isInHtmlTables(cell))
            m_numbers.insert(keyOf(cell), number);
    }
}

QString FileArticle::html() const
{
    QString html = QStringLiteral("<article id=\"%1\">\n<h2>%2</h2>\n%3")
                       .arg(m_prefix, htmlText(m_report.name), findings());
    if (m_report.loads) {
        html += counts() + htmlTables(m_file, {m_prefix, [this](const CellPlace& cell) {
                                                   return additionOf(cell);
                                               }});
    }
    return html + QStringLiteral("</article>\n");
}

QString FileArticle::counts() const
{
    QStringList counts;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        counts += QStringLiteral("%1 %2")
                      .arg(tabTitle(tab))
                      .arg(m_report.errors[static_cast<size_t>(tab)]);
    }
    return QStringLiteral("<p>Wrong cells, as the editor counts them: %1.</p>\n")
        .arg(counts.join(QStringLiteral(", ")));
}

QString FileArticle::findings() const
{
    if (m_report.findings.empty())
        return QStringLiteral("<p>Nothing is wrong with this file.</p>\n");
    QString html = QStringLiteral(
        "<table>\n<thead><tr><th scope=\"col\">No.</th><th scope=\"col\">Severity</th>"
        "<th scope=\"col\">Line</th><th scope=\"col\">Cell</th><th scope=\"col\">Text</th>"
        "<th scope=\"col\">Finding</th><th scope=\"col\">Rule</th></tr></thead>\n<tbody>\n");
    for (size_t number = 0; number < m_report.findings.size(); ++number)
        html += findingRow(number);
    return html + QStringLiteral("</tbody>\n</table>\n");
}

QString FileArticle::findingRow(size_t number) const
{
    const Finding& finding = m_report.findings[number];
    const QString severity = QLatin1String(nameOf(finding.severity));
    return QStringLiteral("<tr id=\"%1n%2\"><th scope=\"row\">%2</th>")
               .arg(m_prefix)
               .arg(number + 1) +
           QStringLiteral("<td class=\"severity %1\">%1</td><td class=\"place\">%2</td><td>%3</td>")
               .arg(severity, placeOf(finding), cellLink(finding)) +
           QStringLiteral("<td>%1</td>").arg(htmlText(finding.text)) +
           QStringLiteral("<td>%1</td><td class=\"rule\">%2</td></tr>\n")
               .arg(htmlText(messageWithHint(finding)), QLatin1String(factsOf(finding.rule).name));
}

QString FileArticle::placeOf(const Finding& finding) const
{
    return finding.hasPlace()
               ? QStringLiteral("%1:%2").arg(finding.place.line).arg(finding.place.column)
               : QString();
}

QString FileArticle::cellLink(const Finding& finding) const
{
    const CellPlace& cell = finding.cell;
    if (!cell.isValid())
        return {};
    const QString name = QStringLiteral("%1, row %2, %3")
                             .arg(tabTitle(cell.tab))
                             .arg(visibleRow(cell))
                             .arg(htmlText(fieldName(m_file.table(cell.tab), cell.column)));
    return isInHtmlTables(cell)
               ? QStringLiteral("<a href=\"#%1\">%2</a>").arg(htmlCellId(cell, m_prefix), name)
               : name;
}

QString FileArticle::note(size_t number) const
{
    const Finding& finding = m_report.findings[number];
    return QStringLiteral("<span class=\"note\"><a href=\"#%1n%2\">%3 %2</a>: %4</span>")
        .arg(m_prefix)
        .arg(number + 1)
        .arg(QLatin1String(nameOf(finding.severity)), htmlText(finding.message));
}

HtmlCellAddition FileArticle::additionOf(const CellPlace& cell) const
{
    HtmlCellAddition addition;
    bool hasError = false;
    for (const size_t number : m_numbers.values(keyOf(cell))) {
        addition.html += note(number);
        hasError = hasError || m_report.findings[number].severity == Severity::Error;
    }
    if (!addition.html.isEmpty())
        addition.classes = hasError ? QStringLiteral("found") : QStringLiteral("found only-warned");
    return addition;
}

}  // namespace

QByteArray HtmlReport::head(const Totals& totals) const
{
    return QByteArray(
               "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
               "<meta name=\"viewport\" content=\"width=device-width\"/>\n"
               "<title>Check of spec files</title>\n<style>") +
           HTML_TABLES_STYLE + PAGE_STYLE +
           "</style>\n</head>\n<body>\n<h1>Check of spec files</h1>\n" + summary(totals).toUtf8();
}

QByteArray HtmlReport::file(const SpecFile& file, const FileReport& report) const
{
    return FileArticle(file, report).html().toUtf8();
}

QByteArray HtmlReport::foot(const Totals& /*totals*/) const
{
    return "</body>\n</html>\n";
}
