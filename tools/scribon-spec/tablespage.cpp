#include "tablespage.h"

#include "htmltables.h"

QByteArray TablesPage::head() const
{
    return QByteArray(
               "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<title>Spec files</title>\n<style>\nbody { font-family: sans-serif; "
               "margin: 1.5em; }") +
           HTML_TABLES_STYLE + "</style>\n</head>\n<body>\n<h1>Spec files</h1>\n";
}

QByteArray TablesPage::file(const SpecFile& file) const
{
    HtmlTablesOptions options;
    if (m_files++ > 0)
        options.idPrefix = QStringLiteral("f%1").arg(m_files);
    return QStringLiteral("<h2>%1</h2>\n%2")
        .arg(htmlText(file.name()), htmlTables(file, options))
        .toUtf8();
}

QByteArray TablesPage::foot() const
{
    return "</body>\n</html>\n";
}
