// The one area that the desk platform has for itself, its directory: whether it runs, and what the
// records have no place for, the units and the aliases of variables. docs/DESK_PLATFORM.md
// describes it for those who read it from outside.
//
// The process holds a write lock on the object as long as it lives, which the system drops however
// the process ends. All texts end in a zero unless they fill their field.
#pragma once

#include <cstdint>
#include <type_traits>

#include "marvane_headers.h"

namespace marvane {

inline constexpr char DIRECTORY_MAGIC[8] = {'M', 'A', 'R', 'V', 'D', 'E', 'S', 'K'};
constexpr uint32_t DIRECTORY_VERSION = 1;

// Where an array lies in the directory.
struct DirectoryArray {
    uint32_t offset;  // in bytes, from its start
    uint32_t count;   // of elements
};

struct DirectoryHeader {
    char magic[8];
    uint32_t version;
    uint32_t size;   // of the whole directory
    uint32_t ready;  // nonzero while all areas are there
    int32_t process;
    DirectoryArray units;      // UnitsRow; the code of a row's units is its index + 1
    DirectoryArray variables;  // VariableRow, ordered by area, type and index
    DirectoryArray buckets;    // uint32_t, a power of two of them
};

struct UnitsRow {
    UNITS_NAME name;
    int32_t dimension;  // the same number for all units of one dimension
};

// A variable in use.
struct VariableRow {
    char label[MARVANE_LABEL_SIZE];  // without the full stop of a structured variable
    char alias[MARVANE_LABEL_SIZE];  // empty when it has none
    UNITS_NAME units;
    SM_AREA_ID area;
    SM_VARI_TYPE type;
    uint16_t index;  // of its record in its table
    uint16_t reserved;
};

// Names are found by their hash: the search begins in the bucket of the hash modulo the number of
// buckets and goes on from bucket to bucket, round the end, up to an empty one. A bucket is 0 when
// empty, otherwise 1 + twice the row of the variable, plus 1 for its alias.
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

// FNV-1a.
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
