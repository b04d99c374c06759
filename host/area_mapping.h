// Read-only mapping, zero-padded to its maximum, with a guard page behind it.
#pragma once

#include <cstddef>
#include <string>

namespace marvane {

// The host functions return no sizes, and readers use counts that another process may change. So
// the object is followed by zeros up to `reach` bytes, which are records not in use, and then by a
// page that cannot be read.
class AreaMapping {
public:
    // isMapped() is false if there is no such object, it is not trusted or it cannot be mapped.
    // Bytes of the object beyond `reach` are not mapped.
    static AreaMapping map(const std::string& objectName, size_t reach);

    AreaMapping() = default;
    AreaMapping(AreaMapping&& other) noexcept;
    AreaMapping& operator=(AreaMapping&& other) noexcept;
    AreaMapping(const AreaMapping&) = delete;
    AreaMapping& operator=(const AreaMapping&) = delete;
    ~AreaMapping();

    bool isMapped() const { return address_ != nullptr; }
    // Null if nothing is mapped.
    void* address() const { return address_; }

private:
    AreaMapping(void* address, size_t size) : address_(address), size_(size) {}

    bool mapObject(int descriptor, size_t size);

    void* address_ = nullptr;
    size_t size_ = 0;  // includes the guard page
};

}  // namespace marvane
