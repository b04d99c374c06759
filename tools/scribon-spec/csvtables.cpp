#include "csvtables.h"

#include "finding.h"
#include "tablerows.h"

namespace {

constexpr int FIELD_COUNT = 3;  // of the widest tabs

bool needsQuotes(const QString& text)
{
    return text.contains(QLatin1Char('"')) || text.contains(QLatin1Char(',')) ||
           text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'));
}

QString quoted(QString text)
{
    text.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString record(QStringList texts)
{
    for (QString& text : texts)
        text = needsQuotes(text) ? quoted(text) : text;
    return texts.join(QLatin1Char(',')) + QStringLiteral("\r\n");
}

QString recordOf(const QString& file, int tab, const TableRow& row)
{
    QStringList texts{file, tabTitle(tab), QString::number(row.number)};
    for (int field = 0; field < FIELD_COUNT; ++field)
        texts.append(row.texts.value(field));
    return record(texts);
}

}  // namespace

QByteArray CsvTables::head() const
{
    return "file,tab,row,field1,field2,field3\r\n";
}

QByteArray CsvTables::file(const SpecFile& file) const
{
    QString text;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (const TableRow& row : rowsOf(file, tab))
            text += recordOf(file.name(), tab, row);
    }
    return text.toUtf8();
}
