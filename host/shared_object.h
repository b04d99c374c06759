// Owns a shared memory object and unlinks it in its destructor.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "file_descriptor.h"

namespace marvane {

// Bytes that were not written are zeros and take no memory. Failures set errno. Written by pwrite()
// and not through a mapping, where a full file system would be a SIGBUS.
class SharedObject {
public:
    // Returns nullopt if there is such an object already, or if it cannot be created.
    static std::optional<SharedObject> create(const std::string& name, size_t size);

    // Takes ownership of an open object of this name.
    SharedObject(std::string name, FileDescriptor descriptor);
    SharedObject(SharedObject&&) = default;
    SharedObject& operator=(SharedObject&&) = default;
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;
    ~SharedObject();

    // False after it has been moved from.
    bool isOpen() const { return descriptor_.isOpen(); }
    // Both return false if they fail.
    bool resize(size_t size);
    bool write(size_t offset, const void* data, size_t size);

private:
    std::string name_;
    FileDescriptor descriptor_;
};

}  // namespace marvane
