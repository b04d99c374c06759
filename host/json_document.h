// Parses JSON and reports the place of the first fault.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace marvane {

// Objects keep their keys in the order of the text.
using Json = nlohmann::ordered_json;
using JsonPointer = Json::json_pointer;

struct JsonFault {
    std::string place;  // "LINE:COLUMN", or the JSON pointer of a key that occurs twice
    std::string reason;
};

// Returns nullopt, with the fault in *fault, if the text is not JSON or an object has a key twice.
std::optional<Json> parseJson(const std::string& text, JsonFault* fault);

}  // namespace marvane
