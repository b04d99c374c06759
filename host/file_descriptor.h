// Owns a file descriptor and closes it in its destructor.
#pragma once

#include <unistd.h>

#include <utility>

namespace marvane {

class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1))
    {
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (isOpen())
            close(descriptor_);
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int get() const { return descriptor_; }

private:
    int descriptor_ = -1;
};

}  // namespace marvane
