// Writes a catalogue as a text that people can read and compare line by line.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace snapshot {

// The text of a file, with each variable on a line of its own.
std::string catalogueText(const nlohmann::ordered_json& json);

}  // namespace snapshot
