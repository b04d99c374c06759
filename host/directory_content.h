// The bytes of a desk platform's directory (directory_format.h).
#pragma once

#include <vector>

#include "catalogue.h"

namespace marvane {

// Marked as not ready.
std::vector<char> directoryContent(const Catalogue& catalogue);

}  // namespace marvane
