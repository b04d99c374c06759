// Makes a catalogue for marvane-desk of what was read from a platform.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "snapshot_platform.h"

namespace snapshot {

struct Catalogue {
    nlohmann::ordered_json json;         // marvane-desk takes it, whatever was read
    std::vector<std::string> omissions;  // what it lacks of the platform and why, a line each
};

Catalogue makeCatalogue(const Platform& platform);

// The catalogue as the text of a file, with each variable on a line of its own.
std::string catalogueText(const nlohmann::ordered_json& json);

}  // namespace snapshot
