// A shared memory object mapped so that no reader can run out of it unnoticed.
#pragma once

#include <cstddef>
#include <string>

namespace marvane {

// The host's functions tell no sizes, and the counts that readers go by stand in memory of another
// process. So zeros follow the object up to the reach, which a reader sees as records not in use,
// and then a page that cannot be read.
class AreaMapping {
public:
    // Not mapped when there is no such object, or none to be trusted. What the object has beyond
    // the reach stays unmapped.
    static AreaMapping map(const std::string& objectName, size_t reach);

    AreaMapping() = default;
    AreaMapping(AreaMapping&& other) noexcept;
    AreaMapping& operator=(AreaMapping&& other) noexcept;
    AreaMapping(const AreaMapping&) = delete;
    AreaMapping& operator=(const AreaMapping&) = delete;
    ~AreaMapping();

    bool isMapped() const { return address_ != nullptr; }
    void* address() const { return address_; }

private:
    AreaMapping(void* address, size_t size) : address_(address), size_(size) {}

    bool mapObject(int descriptor, size_t size);

    void* address_ = nullptr;
    size_t size_ = 0;  // with the guard page
};

}  // namespace marvane
