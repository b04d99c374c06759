// JSON as all reports write it.
#pragma once

#include <QByteArray>
#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

// On one line, in UTF-8. What is not UTF-8 becomes replacement characters.
QByteArray bytesOf(const Json& json);
