// Names of desk platforms and of their shared memory objects. Platforms of different names do not
// know of each other.
#pragma once

#include <string>

#include "marvane_headers.h"

namespace marvane {

inline constexpr char DESK_NAME_VARIABLE[] = "MARVANE_DESK_NAME";

// The name that the environment asks for, "desk" when it asks for none. It need not be valid.
std::string deskNameOfEnvironment();

// 1 to 64 letters, digits, '_' and '-'.
bool isValidDeskName(const std::string& name);

// Names for shm_open. The area must be one that the platform has.
std::string areaObjectName(const std::string& deskName, SM_AREA_ID area);
std::string directoryObjectName(const std::string& deskName);

}  // namespace marvane
