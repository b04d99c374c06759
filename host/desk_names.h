// Names of desk platforms and of their shared memory objects. Platforms of different names are
// independent of each other.
#pragma once

#include <string>

#include "marvane_headers.h"

namespace marvane {

inline constexpr char DESK_NAME_VARIABLE[] = "MARVANE_DESK_NAME";

// The value of the environment variable, or "desk" if it is not set or empty. May be invalid.
std::string deskNameOfEnvironment();

// A valid name has 1 to 64 ASCII letters, digits, '_' and '-'.
bool isValidDeskName(const std::string& name);

// Names for shm_open(). The area must be one of AREA_NAMES.
std::string areaObjectName(const std::string& deskName, SM_AREA_ID area);
std::string directoryObjectName(const std::string& deskName);

}  // namespace marvane
