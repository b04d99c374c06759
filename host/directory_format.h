// The layout of the directory, a shared memory object of the desk platform's own: it shows whether
// the platform runs, and has the units and aliases of variables, for which their records have no
// field. docs/DESK_PLATFORM.md describes it for other programs.
//
// marvane-desk holds a write lock on the object as long as it runs; the kernel releases the lock
// however the process ends. Texts have a terminating zero unless they fill their field.
#pragma once

#include <cstdint>
#include <type_traits>

#include "marvane_headers.h"

namespace marvane {

inline constexpr char DIRECTORY_MAGIC[8] = {'M', 'A', 'R', 'V', 'D', 'E', 'S', 'K'};
constexpr uint32_t DIRECTORY_VERSION = 1;

// Where an array lies in the directory.
struct DirectoryArray {
    uint32_t offset;  // in bytes, from the start of the directory
    uint32_t count;   // number of elements
};

struct DirectoryHeader {
    char magic[8];
    uint32_t version;
    uint32_t size;             // of the whole directory, in bytes
    uint32_t ready;            // nonzero while all areas exist
    int32_t process;           // process ID of marvane-desk
    DirectoryArray units;      // UnitsRow; the code of a row's units is its index + 1
    DirectoryArray variables;  // VariableRow, ordered by area, type and index
    DirectoryArray buckets;    // uint32_t; the count is a power of two
};

struct UnitsRow {
    UNITS_NAME name;
    int32_t dimension;  // the same number for all units of one dimension
};

// A variable in use.
struct VariableRow {
    char label[MARVANE_LABEL_SIZE];  // without the full stop of a structured variable
    char alias[MARVANE_LABEL_SIZE];  // empty if there is none
    UNITS_NAME units;
    SM_AREA_ID area;
    SM_VARI_TYPE type;
    uint16_t index;  // of its record in its table
    uint16_t reserved;
};

// The buckets are a hash table of names with linear probing: the search begins at the hash modulo
// the number of buckets and ends at an empty bucket. An empty bucket is 0. Others are 1 + 2 * row
// of the variable, plus 1 if the name is the variable's alias.
enum class NameKind : uint32_t { Label = 0, Alias = 1 };

constexpr uint32_t bucketOf(uint32_t row, NameKind kind)
{
    return 1 + 2 * row + static_cast<uint32_t>(kind);
}

constexpr uint32_t rowOfBucket(uint32_t bucket)
{
    return (bucket - 1) / 2;
}

constexpr NameKind kindOfBucket(uint32_t bucket)
{
    return static_cast<NameKind>((bucket - 1) % 2);
}

// The 32-bit FNV-1a hash.
constexpr uint32_t hashOfName(const char* name, size_t length)
{
    uint32_t hash = 2166136261U;
    for (size_t i = 0; i < length; ++i)
        hash = (hash ^ static_cast<unsigned char>(name[i])) * 16777619U;
    return hash;
}

static_assert(sizeof(DirectoryHeader) == 48 && std::is_trivially_copyable_v<DirectoryHeader>);
static_assert(sizeof(UnitsRow) == 20 && std::is_trivially_copyable_v<UnitsRow>);
static_assert(sizeof(VariableRow) == 184 && std::is_trivially_copyable_v<VariableRow>);

}  // namespace marvane
