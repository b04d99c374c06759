// JSON text into a document, with the place of what is wrong with the text.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace marvane {

// Objects keep the order of the text.
using Json = nlohmann::ordered_json;
using JsonPointer = Json::json_pointer;

struct JsonFault {
    std::string place;  // "LINE:COLUMN", or the JSON pointer of a key that occurs twice
    std::string reason;
};

// Nothing when the text is no JSON or has a key twice in an object.
std::optional<Json> parseJson(const std::string& text, JsonFault* fault);

}  // namespace marvane
