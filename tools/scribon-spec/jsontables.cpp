#include "jsontables.h"

#include <string>

#include "finding.h"
#include "jsonbytes.h"
#include "rowobject.h"
#include "tablerows.h"

namespace {

Json tabObject(const SpecFile& file, int tab)
{
    Json rows = Json::array();
    for (const TableRow& row : rowsOf(file, tab))
        rows.push_back(rowObject(row));
    return {{"tab", tabTitle(tab).toStdString()},
            {"fields", textArray(fieldsOf(file, tab))},
            {"rows", rows}};
}

}  // namespace

QByteArray JsonTables::head() const
{
    return "{\"version\":1,\"files\":[\n";
}

QByteArray JsonTables::file(const SpecFile& file) const
{
    Json tabs = Json::array();
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        tabs.push_back(tabObject(file, tab));
    const Json object{{"file", file.name().toStdString()}, {"tabs", tabs}};
    return bytesOf(object);
}

QByteArray JsonTables::separator() const
{
    return ",\n";
}

QByteArray JsonTables::foot() const
{
    return "\n]}\n";
}
