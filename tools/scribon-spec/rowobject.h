// Rows of tables as JSON.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <nlohmann/json.hpp>

#include "tablerows.h"

using Json = nlohmann::ordered_json;

Json textArray(const QStringList& texts);
Json rowObject(const TableRow& row);

// On one line, in UTF-8.
QByteArray bytesOf(const Json& json);
