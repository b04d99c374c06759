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

QByteArray bytesOf(const Json& json)
{
    return QByteArray::fromStdString(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}
