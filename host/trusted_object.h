// Opens shared memory objects, which any user of the machine may have created.
#pragma once

#include <string>

#include "file_descriptor.h"

namespace marvane {

// Like shm_open(); a new object is accessible to the current user only. Never blocks, not even if
// the name is that of a FIFO. If it fails, the descriptor is not open and errno is set.
FileDescriptor openObject(const std::string& name, int flags);

// Whether the object is open, a regular file, and owned by the current user or root. Other users
// could change or truncate it at any time.
bool isTrusted(const FileDescriptor& object);

}  // namespace marvane
