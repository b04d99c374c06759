// The directory of a running desk platform, as a client reads it.
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
    // Null when no platform of this name runs, its directory is another user's, or what the
    // directory holds does not fit together.
    static std::unique_ptr<DeskDirectory> open(const std::string& deskName);

    DeskDirectory(const DeskDirectory&) = delete;
    DeskDirectory& operator=(const DeskDirectory&) = delete;
    ~DeskDirectory();

    // Whether the platform of this directory still runs.
    bool isLive() const;

    struct NameMatch {
        const VariableRow* variable;
        NameKind kind;
    };

    // The variable of this label or alias. A full stop at the end is taken as a structured
    // variable's; it may be left out.
    std::optional<NameMatch> findName(std::string_view name) const;

    // Null when the handle is not one of a variable in use.
    const VariableRow* variableOf(const SHARED_MEMORY& handle) const;

    uint32_t unitsCount() const { return header_.units.count; }
    const UnitsRow& units(uint32_t index) const { return array<UnitsRow>(header_.units)[index]; }

    // The index of the units of this name in any case.
    std::optional<uint32_t> findUnits(std::string_view name) const;

private:
    DeskDirectory(FileDescriptor object, const void* address, size_t size);

    // False when it does not fit together.
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

    FileDescriptor object_;  // whose lock tells whether the platform runs
    const void* address_;
    size_t size_;
    // As it was checked: the shared one may have been written to since.
    DirectoryHeader header_{};
};

// The text in a field of fixed width, which need not have a terminating zero.
template <size_t width>
std::string_view textIn(const char (&field)[width])
{
    const std::string_view all(field, width);
    return all.substr(0, all.find('\0'));
}

}  // namespace marvane
