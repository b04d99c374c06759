// A client's view of the directory of a running desk platform.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "directory_format.h"
#include "file_descriptor.h"

namespace marvane {

class DeskDirectory {
public:
    // Null if no platform of this name runs, or if its directory is not trusted or inconsistent.
    static std::unique_ptr<DeskDirectory> open(const std::string& deskName);

    DeskDirectory(const DeskDirectory&) = delete;
    DeskDirectory& operator=(const DeskDirectory&) = delete;
    ~DeskDirectory();

    // Whether the platform still runs.
    bool isLive() const;

    struct NameMatch {
        const VariableRow* variable;
        NameKind kind;
    };

    // The variable of this label or alias; nullopt if there is none. With a full stop at the end,
    // only structured variables are found; without it, those too. Pointers to rows are valid as
    // long as this object.
    std::optional<NameMatch> findName(std::string_view name) const;

    // Null if the handle is not that of a variable in use.
    const VariableRow* variableOf(const SHARED_MEMORY& handle) const;

    uint32_t unitsCount() const { return header_.units.count; }
    const UnitsRow& units(uint32_t index) const { return array<UnitsRow>(header_.units)[index]; }

    // The index of the units of this name, compared case-insensitively; nullopt if there are none.
    std::optional<uint32_t> findUnits(std::string_view name) const;

private:
    DeskDirectory(FileDescriptor object, const void* address, size_t size);

    // Copies and checks the header. False if it is inconsistent.
    bool takeHeader();
    template <typename Element>
    bool holds(const DirectoryArray& array) const;

    const DirectoryHeader& sharedHeader() const
    {
        return *static_cast<const DirectoryHeader*>(address_);
    }
    template <typename Element>
    const Element* array(const DirectoryArray& array) const
    {
        return reinterpret_cast<const Element*>(static_cast<const char*>(address_) + array.offset);
    }
    std::optional<NameMatch> matchInBucket(uint32_t bucket, std::string_view name) const;

    FileDescriptor object_;  // the platform holds its write lock while it runs
    const void* address_;
    size_t size_;
    // The checked copy: the shared header may be changed by another process.
    DirectoryHeader header_{};
};

// The text in a field of fixed width, which may have no terminating zero.
template <size_t width>
std::string_view textIn(const char (&field)[width])
{
    const std::string_view all(field, width);
    return all.substr(0, all.find('\0'));
}

}  // namespace marvane
