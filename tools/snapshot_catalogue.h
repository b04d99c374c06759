// Makes a catalogue for marvane-desk of what was read from a platform.
#pragma once

#include <string>
#include <vector>

#include "snapshot_platform.h"

namespace snapshot {

struct Catalogue {
    std::string text;                    // of a file that marvane-desk takes, whatever was read
    std::vector<std::string> omissions;  // what it lacks of the platform and why, a line each
};

Catalogue makeCatalogue(const Platform& platform);

}  // namespace snapshot
