// Preloaded library that makes file calls of a program fail as a plan says (fault_plan.h). It
// replaces the C library functions that QFile and stdio streams call. The reads and writes inside a
// stdio stream cannot be intercepted, so the stream functions count as reads and writes.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "fault_plan.h"

namespace {

template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// ---- The plan ----------------------------------------------------------------------------------

FaultPlan* noPlan()
{
    static FaultPlan none{};
    return &none;
}

FaultPlan* planOfDisk(std::string_view directory)
{
    static FaultPlan plan{};
    directory.copy(plan.prefix, MAX_PREFIX);
    const char* const size = std::getenv(DISK_SIZE_VARIABLE);
    plan.space = size == nullptr ? 0 : std::strtoll(size, nullptr, 10);
    return &plan;
}

FaultPlan* planInFile(const char* name)
{
    const int file = next<int(const char*, int, ...)>("open64")(name, O_RDWR | O_CLOEXEC);
    void* const address =
        mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    next<int(int)>("close")(file);
    return address == MAP_FAILED ? noPlan() : static_cast<FaultPlan*>(address);
}

FaultPlan* findPlan()
{
    if (const char* const name = std::getenv(PLAN_VARIABLE))
        return planInFile(name);
    if (const char* const directory = std::getenv(DISK_VARIABLE))
        return planOfDisk(directory);
    return noPlan();
}

FaultPlan& plan()
{
    static FaultPlan* const found = findPlan();
    return *found;
}

// ---- The files that it is about ----------------------------------------------------------------

bool isMeant(std::string_view path)
{
    const std::string_view prefix(plan().prefix);
    return !prefix.empty() && path.substr(0, prefix.size()) == prefix;
}

std::string pathOf(int descriptor)
{
    std::string path(PATH_MAX, '\0');
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t size = readlink(link.c_str(), path.data(), path.size());
    path.resize(size > 0 ? static_cast<size_t>(size) : 0);
    return path;
}

bool isMeant(int descriptor)
{
    const int before = errno;
    const bool result = plan().prefix[0] != '\0' && isMeant(pathOf(descriptor));
    errno = before;
    return result;
}

bool isMeant(int directory, const char* path)
{
    if (plan().prefix[0] == '\0' || path == nullptr)
        return false;
    if (*path == '/')
        return isMeant(path);
    std::error_code error;
    const std::string base =
        directory == AT_FDCWD ? std::filesystem::current_path(error).string() : pathOf(directory);
    return isMeant(base + "/" + path);
}

// ---- Faults ------------------------------------------------------------------------------------

enum class Fault { None, Error, Short, Ended };

// Counts the call and returns the fault that the plan has for it.
Fault faultOf(FileCall call)
{
    FaultPlan& p = plan();
    const uint32_t number =
        __atomic_add_fetch(&p.counts[static_cast<size_t>(call)], 1, __ATOMIC_RELAXED);
    if (call != p.call || p.nth == 0 || number < p.nth || (number > p.nth && p.persists == 0))
        return Fault::None;
    if (p.signal != 0)
        raise(p.signal);
    errno = p.error;
    if (p.error != 0)
        return Fault::Error;
    return number == p.nth ? Fault::Short : Fault::Ended;
}

bool fails(FileCall call)
{
    return faultOf(call) == Fault::Error;
}

// ---- The disk of a fixed size ------------------------------------------------------------------

constexpr int64_t PAGE = 4096;

int64_t inPages(int64_t size)
{
    return (size + PAGE - 1) / PAGE * PAGE;
}

int64_t sizeOf(const std::filesystem::directory_entry& entry)
{
    std::error_code error;
    if (!isMeant(entry.path().native()) || !entry.is_regular_file(error))
        return 0;
    const auto size = entry.file_size(error);
    return error ? 0 : inPages(static_cast<int64_t>(size));
}

// The space that the files below the prefix's directory use.
int64_t usedSpace()
{
    const std::string prefix(plan().prefix);
    std::error_code error;
    std::filesystem::path top(prefix);
    if (!std::filesystem::is_directory(top, error))
        top = top.parent_path();
    int64_t used = 0;
    for (auto entry = std::filesystem::recursive_directory_iterator(top, error);
         !error && entry != std::filesystem::recursive_directory_iterator(); entry.increment(error))
        used += sizeOf(*entry);
    return used;
}

// How many of the bytes fit on the limited disk at this offset.
size_t fitting(int descriptor, int64_t place, size_t size)
{
    struct stat status {};
    if (plan().space < 0 || fstat(descriptor, &status) != 0)
        return size;
    const int64_t ofOthers = usedSpace() - inPages(status.st_size);
    const int64_t end = std::max<int64_t>((plan().space - ofOthers) / PAGE * PAGE, 0);
    return static_cast<size_t>(std::clamp<int64_t>(end - place, 0, static_cast<int64_t>(size)));
}

int64_t placeOfWriting(int descriptor)
{
    struct stat status {};
    if ((fcntl(descriptor, F_GETFL) & O_APPEND) != 0 && fstat(descriptor, &status) == 0)
        return status.st_size;
    return lseek(descriptor, 0, SEEK_CUR);
}

// The number of bytes to write; -1 if the call has to fail.
ssize_t sizeToWrite(int descriptor, int64_t place, size_t size)
{
    const Fault fault = faultOf(FileCall::Write);
    if (fault == Fault::Error)
        return -1;
    const int before = errno;
    const size_t wanted = fault == Fault::Short && size > 1 ? size / 2 : size;
    const size_t granted = fault == Fault::Ended ? 0 : fitting(descriptor, place, wanted);
    errno = granted == 0 && size > 0 ? ENOSPC : before;
    return granted == 0 && size > 0 ? -1 : static_cast<ssize_t>(granted);
}

// ---- What the entry points share ---------------------------------------------------------------

using OpenAt = int(int, const char*, int, ...);

int openMeant(const char* name, int directory, const char* file, int flags, mode_t mode)
{
    if (isMeant(directory, file) && fails(FileCall::Open))
        return -1;
    return next<OpenAt>(name)(directory, file, flags, mode);
}

FILE* openStream(const char* name, const char* file, const char* modes)
{
    if (isMeant(AT_FDCWD, file) && fails(FileCall::Open))
        return nullptr;
    return next<FILE*(const char*, const char*)>(name)(file, modes);
}

// Calls the function on the descriptor, unless it has to fail. A close that fails closes the file
// nevertheless.
int onDescriptor(const char* name, FileCall call, int descriptor)
{
    const bool failing = isMeant(descriptor) && fails(call);
    const int error = errno;
    if (failing && call != FileCall::Close)
        return -1;
    const int result = next<int(int)>(name)(descriptor);
    if (failing)
        errno = error;
    return failing ? -1 : result;
}

int truncateTo(const char* name, int descriptor, off64_t length)
{
    if (isMeant(descriptor) && fails(FileCall::Truncate))
        return -1;
    return next<int(int, off64_t)>(name)(descriptor, length);
}

bool renameFails(int oldDirectory, const char* oldName, int newDirectory, const char* newName)
{
    return (isMeant(oldDirectory, oldName) || isMeant(newDirectory, newName)) &&
           fails(FileCall::Rename);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

// ---- In place of the system's ------------------------------------------------------------------

extern "C" {

int open(const char* file, int oflag, ...)
{
    va_list arguments;
    va_start(arguments, oflag);
    const mode_t mode = modeOf(oflag, arguments);
    va_end(arguments);
    return openMeant("openat64", AT_FDCWD, file, oflag, mode);
}

int open64(const char* file, int oflag, ...)
{
    va_list arguments;
    va_start(arguments, oflag);
    const mode_t mode = modeOf(oflag, arguments);
    va_end(arguments);
    return openMeant("openat64", AT_FDCWD, file, oflag, mode);
}

int openat(int fd, const char* file, int oflag, ...)
{
    va_list arguments;
    va_start(arguments, oflag);
    const mode_t mode = modeOf(oflag, arguments);
    va_end(arguments);
    return openMeant("openat64", fd, file, oflag, mode);
}

int openat64(int fd, const char* file, int oflag, ...)
{
    va_list arguments;
    va_start(arguments, oflag);
    const mode_t mode = modeOf(oflag, arguments);
    va_end(arguments);
    return openMeant("openat64", fd, file, oflag, mode);
}

int creat(const char* file, mode_t mode)
{
    return openMeant("openat64", AT_FDCWD, file, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

int creat64(const char* file, mode_t mode)
{
    return openMeant("openat64", AT_FDCWD, file, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

ssize_t read(int fd, void* buf, size_t nbytes)
{
    const Fault fault = isMeant(fd) ? faultOf(FileCall::Read) : Fault::None;
    if (fault == Fault::Error || fault == Fault::Ended)
        return fault == Fault::Error ? -1 : 0;
    const ssize_t size = next<ssize_t(int, void*, size_t)>("read")(fd, buf, nbytes);
    if (fault == Fault::None || size <= 1)
        return size;
    lseek(fd, size / 2 - size, SEEK_CUR);
    return size / 2;
}

ssize_t pread64(int fd, void* buf, size_t nbytes, off64_t offset)
{
    const Fault fault = isMeant(fd) ? faultOf(FileCall::Read) : Fault::None;
    if (fault == Fault::Error || fault == Fault::Ended)
        return fault == Fault::Error ? -1 : 0;
    const ssize_t size =
        next<ssize_t(int, void*, size_t, off64_t)>("pread64")(fd, buf, nbytes, offset);
    return fault == Fault::None || size <= 1 ? size : size / 2;
}

ssize_t pread(int fd, void* buf, size_t nbytes, off_t offset)
{
    return pread64(fd, buf, nbytes, offset);
}

ssize_t write(int fd, const void* buf, size_t n)
{
    const ssize_t size =
        isMeant(fd) ? sizeToWrite(fd, placeOfWriting(fd), n) : static_cast<ssize_t>(n);
    if (size < 0)
        return -1;
    return next<ssize_t(int, const void*, size_t)>("write")(fd, buf, static_cast<size_t>(size));
}

ssize_t pwrite64(int fd, const void* buf, size_t n, off64_t offset)
{
    const ssize_t size = isMeant(fd) ? sizeToWrite(fd, offset, n) : static_cast<ssize_t>(n);
    if (size < 0)
        return -1;
    return next<ssize_t(int, const void*, size_t, off64_t)>("pwrite64")(
        fd, buf, static_cast<size_t>(size), offset);
}

ssize_t pwrite(int fd, const void* buf, size_t n, off_t offset)
{
    return pwrite64(fd, buf, n, offset);
}

int close(int fd)
{
    return onDescriptor("close", FileCall::Close, fd);
}

int fsync(int fd)
{
    return onDescriptor("fsync", FileCall::Sync, fd);
}

int fdatasync(int fildes)
{
    return onDescriptor("fdatasync", FileCall::Sync, fildes);
}

int ftruncate(int fd, off_t length) noexcept
{
    return truncateTo("ftruncate", fd, length);
}

int ftruncate64(int fd, off64_t length) noexcept
{
    return truncateTo("ftruncate64", fd, length);
}

int rename(const char* old, const char* _new) noexcept
{
    if (renameFails(AT_FDCWD, old, AT_FDCWD, _new))
        return -1;
    return next<int(const char*, const char*)>("rename")(old, _new);
}

int renameat2(int oldfd, const char* old, int newfd, const char* _new, unsigned int flags) noexcept
{
    if (renameFails(oldfd, old, newfd, _new))
        return -1;
    return next<int(int, const char*, int, const char*, unsigned int)>("renameat2")(
        oldfd, old, newfd, _new, flags);
}

int linkat(int fromfd, const char* from, int tofd, const char* to, int flags) noexcept
{
    if (renameFails(fromfd, from, tofd, to))
        return -1;
    return next<int(int, const char*, int, const char*, int)>("linkat")(fromfd, from, tofd, to,
                                                                        flags);
}

FILE* fopen(const char* filename, const char* modes)
{
    return openStream("fopen", filename, modes);
}

FILE* fopen64(const char* filename, const char* modes)
{
    return openStream("fopen64", filename, modes);
}

// Sets glibc's flags of the stream like a real read.
size_t fread(void* ptr, size_t size, size_t n, FILE* stream)
{
    auto* const readItems = next<size_t(void*, size_t, size_t, FILE*)>("fread");
    const Fault fault = isMeant(fileno(stream)) ? faultOf(FileCall::Read) : Fault::None;
    if (fault == Fault::None || size * n == 0)
        return readItems(ptr, size, n, stream);
    const size_t there = fault == Fault::Short ? readItems(ptr, 1, size * n, stream) : 0;
    const size_t given = there / 2;
    std::fill_n(static_cast<char*>(ptr) + given, there - given, '\0');
    stream->_flags |= fault == Fault::Error ? _IO_ERR_SEEN : _IO_EOF_SEEN;
    return given / size;
}

int fclose(FILE* stream)
{
    const bool failing = isMeant(fileno(stream)) && fails(FileCall::Close);
    const int error = errno;
    const int result = next<int(FILE*)>("fclose")(stream);
    if (failing)
        errno = error;
    return failing ? EOF : result;
}

}  // extern "C"
