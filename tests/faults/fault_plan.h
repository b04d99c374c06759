// Which of a program's calls on files are to fail: what a test and the library that it preloads
// share, a file that both have mapped. The test writes it while the program waits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

// The variables that the preloaded library reads once, at its first use. PLAN_VARIABLE names the
// file of the plan. Without one, the two others make what lies below a directory a disk of a fixed
// number of bytes, for programs that need a small disk and nothing else.
inline constexpr char PLAN_VARIABLE[] = "FAULTS_PLAN";
inline constexpr char DISK_VARIABLE[] = "FAULTS_DISK";
inline constexpr char DISK_SIZE_VARIABLE[] = "FAULTS_DISK_SIZE";

enum class FileCall : uint32_t { Open, Read, Write, Close, Sync, Rename, Truncate };
constexpr size_t FILE_CALL_COUNT = 7;

constexpr size_t LONGEST_PREFIX = 255;

struct FaultPlan {
    // Only calls on files whose absolute paths begin so count and fail; none when it is empty.
    char prefix[LONGEST_PREFIX + 1];
    FileCall call;
    uint32_t nth;  // of these calls fails, from 1; 0 for none
    // What it gives as errno. When that is 0, a read or write transfers half of what it could.
    int32_t error;
    // Unless it is 0, the nth call ends the program by this signal and does nothing else.
    int32_t signal;
    // Whether all later calls of the kind fail as well. A short read is followed by the end of the
    // file then, a short write by a full disk.
    uint32_t persists;
    // Bytes that the files may take in all, rounded up to pages; -1 for no limit.
    int64_t space;
    // Calls up to now.
    std::array<uint32_t, FILE_CALL_COUNT> counts;
};

static_assert(std::is_trivially_copyable_v<FaultPlan> && std::is_standard_layout_v<FaultPlan>);
