// Files for the commands that need tables.
#pragma once

#include "specfile.h"

// Complains of a file that cannot be read or that the editor does not open; false for such a one.
bool isLoaded(const SpecFile& file);
