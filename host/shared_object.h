// A shared memory object that goes with its owner.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "file_descriptor.h"

namespace marvane {

// What is not written is zeros and takes no memory. Failures leave their cause in errno; written
// through the file interface, so that a full file system is one of them and no signal.
class SharedObject {
public:
    // Nothing when there is such an object already, or none can be made.
    static std::optional<SharedObject> create(const std::string& name, size_t size);

    // Takes over an open object of this name.
    SharedObject(std::string name, FileDescriptor descriptor);
    SharedObject(SharedObject&&) = default;
    SharedObject& operator=(SharedObject&&) = default;
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;
    ~SharedObject();

    // False once it has been moved from.
    bool isOpen() const { return descriptor_.isOpen(); }
    bool resize(size_t size);
    bool write(size_t offset, const void* data, size_t size);

private:
    std::string name_;
    FileDescriptor descriptor_;
};

}  // namespace marvane
