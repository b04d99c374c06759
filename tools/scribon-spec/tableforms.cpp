#include "tableforms.h"

#include "csvtables.h"
#include "jsontables.h"
#include "tablespage.h"
#include "texttables.h"

std::unique_ptr<TableForm> tableFormOfName(const QString& name, bool severalFiles)
{
    if (name == QLatin1String("text"))
        return std::make_unique<TextTables>(severalFiles);
    if (name == QLatin1String("csv"))
        return std::make_unique<CsvTables>();
    if (name == QLatin1String("json"))
        return std::make_unique<JsonTables>();
    if (name == QLatin1String("html"))
        return std::make_unique<TablesPage>();
    return nullptr;
}
