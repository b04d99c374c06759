#include "rowobject.h"

Json textArray(const QStringList& texts)
{
    Json array = Json::array();
    for (const QString& text : texts)
        array.push_back(text.toStdString());
    return array;
}

Json rowObject(const TableRow& row)
{
    return {{"row", row.number},
            {"line", row.line},
            {"comment", row.isComment()},
            {"texts", textArray(row.texts)}};
}
