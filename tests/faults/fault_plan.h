// The plan of the file calls of a program that have to fail: a file that both the test and the
// preloaded library have mapped. The test writes it while the program waits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

// Environment variables that the preloaded library reads once, at its first use. PLAN_VARIABLE is
// the file of the plan. Without it, the two others make a directory a disk of a fixed size in
// bytes, for programs that need nothing but a small disk.
inline constexpr char PLAN_VARIABLE[] = "FAULTS_PLAN";
inline constexpr char DISK_VARIABLE[] = "FAULTS_DISK";
inline constexpr char DISK_SIZE_VARIABLE[] = "FAULTS_DISK_SIZE";

enum class FileCall : uint32_t { Open, Read, Write, Close, Sync, Rename, Truncate };
constexpr size_t FILE_CALL_COUNT = 7;

constexpr size_t MAX_PREFIX = 255;

struct FaultPlan {
    // Only calls on files whose absolute paths begin with this count and fail; none if it is empty.
    char prefix[MAX_PREFIX + 1];
    FileCall call;
    uint32_t nth;  // number of the call that fails, from 1; 0 for none
    // The errno of the failing call. If it is 0, a read or write transfers half of its bytes.
    int32_t error;
    // If it is not 0, the nth call ends the program by this signal instead.
    int32_t signal;
    // Whether all later calls of this kind fail, too. After a short read they return the end of the
    // file, after a short write ENOSPC.
    uint32_t persists;
    // Maximum space of the files in bytes, rounded up to pages; -1 for no limit.
    int64_t space;
    // Number of calls so far.
    std::array<uint32_t, FILE_CALL_COUNT> counts;
};

static_assert(std::is_trivially_copyable_v<FaultPlan> && std::is_standard_layout_v<FaultPlan>);
