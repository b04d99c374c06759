#include "shared_object.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <utility>

#include "trusted_object.h"

namespace marvane {

std::optional<SharedObject> SharedObject::create(const std::string& name, size_t size)
{
    FileDescriptor descriptor = openObject(name, O_RDWR | O_CREAT | O_EXCL);
    if (!descriptor.isOpen())
        return std::nullopt;
    SharedObject object(name, std::move(descriptor));
    if (!object.resize(size))
        return std::nullopt;
    return object;
}

SharedObject::SharedObject(std::string name, FileDescriptor descriptor)
    : name_(std::move(name)), descriptor_(std::move(descriptor))
{
}

SharedObject::~SharedObject()
{
    if (descriptor_.isOpen())
        shm_unlink(name_.c_str());
}

bool SharedObject::resize(size_t size)
{
    return ftruncate(descriptor_.get(), static_cast<off_t>(size)) == 0;
}

bool SharedObject::write(size_t offset, const void* data, size_t size)
{
    const auto* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = pwrite(descriptor_.get(), bytes, size, static_cast<off_t>(offset));
        if (written < 0)
            return false;
        bytes += written;
        offset += static_cast<size_t>(written);
        size -= static_cast<size_t>(written);
    }
    return true;
}

}  // namespace marvane
