// Reading a file so that either all of it is there or the error is known.
#pragma once

#include <cstddef>
#include <string>

// Replaces *bytes by the content of the regular file `fileName` (local 8-bit encoding). Returns 0,
// or the system's error number, and then *bytes holds what was read up to the error. A read that
// ends before the length of the file is an error too (EIO); so is anything but a regular file
// (EINVAL), which is never waited for, and a file of more than maxSize bytes (EFBIG), for which no
// memory is taken.
int readWholeFile(const char* fileName, size_t maxSize, std::string* bytes);
