#include "jsonbytes.h"

QByteArray bytesOf(const Json& json)
{
    return QByteArray::fromStdString(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}
