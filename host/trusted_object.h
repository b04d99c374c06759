// Opening shared memory objects, which any user of the machine may have put there.
#pragma once

#include <string>

#include "file_descriptor.h"

namespace marvane {

// As shm_open, with access for the running user alone when the flags have it made. Never waits,
// whatever stands under the name: a pipe that nobody writes to would hold whoever opens it.
// Failures leave their cause in errno.
FileDescriptor openObject(const std::string& name, int flags);

// Whether it is regular and belongs to the running user or to root. Another user could change it,
// or cut it shorter, at any time.
bool isTrusted(const FileDescriptor& object);

}  // namespace marvane
