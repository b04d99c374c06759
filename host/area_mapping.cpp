#include "area_mapping.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <utility>

#include "trusted_object.h"

namespace marvane {

namespace {

size_t pageSize()
{
    static const auto size = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

size_t roundedToPages(size_t size)
{
    return (size + pageSize() - 1) / pageSize() * pageSize();
}

// Reserves address space, without memory. Null if that fails.
void* reserve(size_t size)
{
    void* address =
        mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return address == MAP_FAILED ? nullptr : address;
}

}  // namespace

AreaMapping AreaMapping::map(const std::string& objectName, size_t reach)
{
    const FileDescriptor object = openObject(objectName, O_RDONLY);
    struct stat status {};
    if (!isTrusted(object) || fstat(object.get(), &status) != 0)
        return {};
    const size_t readable = roundedToPages(reach);
    AreaMapping mapping(reserve(readable + pageSize()), readable + pageSize());
    if (!mapping.isMapped() || mprotect(mapping.address_, readable, PROT_READ) != 0)
        return {};
    const size_t objectSize = std::min(static_cast<size_t>(status.st_size), readable);
    if (objectSize != 0 && !mapping.mapObject(object.get(), objectSize))
        return {};
    return mapping;
}

bool AreaMapping::mapObject(int descriptor, size_t size)
{
    return mmap(address_, size, PROT_READ, MAP_SHARED | MAP_FIXED, descriptor, 0) != MAP_FAILED;
}

AreaMapping::AreaMapping(AreaMapping&& other) noexcept
    : address_(std::exchange(other.address_, nullptr)), size_(std::exchange(other.size_, 0))
{
}

AreaMapping& AreaMapping::operator=(AreaMapping&& other) noexcept
{
    std::swap(address_, other.address_);
    std::swap(size_, other.size_);
    return *this;
}

AreaMapping::~AreaMapping()
{
    if (isMapped())
        munmap(address_, size_);
}

}  // namespace marvane
