// Makes the content of a desk platform's directory (directory_format.h).
#pragma once

#include <vector>

#include "catalogue.h"

namespace marvane {

// The bytes of the directory, with the ready flag cleared.
std::vector<char> directoryContent(const Catalogue& catalogue);

}  // namespace marvane
