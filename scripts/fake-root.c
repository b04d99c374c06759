/* Preloaded after fakechroot, if a private root is made without namespaces: replaces functions of
   the C library that fakechroot does not handle, or handles wrongly. FAKECHROOT_BASE is the private
   root. */

#define _GNU_SOURCE

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

enum { DISK_SIZE = 65536, PATH_SIZE = 4096 };

/* --- Files without a name

   fakechroot does not pass on the mode of O_TMPFILE files, which cannot be read when they get a
   name later. EOPNOTSUPP makes programs use a temporary file with a name instead. */

static int isWithoutName(int flags)
{
    return (flags & O_TMPFILE) == O_TMPFILE;
}

static int openNamed(int directory, const char* path, int flags, mode_t mode)
{
    if (isWithoutName(flags)) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return (int)syscall(SYS_openat, directory, path, flags, mode);
}

static mode_t modeOf(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openNamed(AT_FDCWD, path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openNamed(AT_FDCWD, path, flags | O_LARGEFILE, mode);
}

/* --- Shared memory: shm_open of the C library would use the machine's /dev/shm. */

static int pathOfObject(const char* name, char* path)
{
    while (*name == '/')
        ++name;
    if (*name == '\0' || strchr(name, '/') != NULL) {
        errno = EINVAL;
        return -1;
    }
    const int length = snprintf(path, PATH_SIZE, "%s/dev/shm/%s", getenv("FAKECHROOT_BASE"), name);
    return length > 0 && length < PATH_SIZE ? 0 : -1;
}

int shm_open(const char* name, int flags, mode_t mode)
{
    char path[PATH_SIZE];
    if (pathOfObject(name, path) != 0)
        return -1;
    const int file = openNamed(AT_FDCWD, path, flags | O_NOFOLLOW | O_CLOEXEC, mode);
    if (file < 0 && errno == EISDIR)
        errno = EINVAL;
    return file;
}

int shm_unlink(const char* name)
{
    char path[PATH_SIZE];
    return pathOfObject(name, path) == 0 ? (int)syscall(SYS_unlinkat, AT_FDCWD, path, 0) : -1;
}

/* --- The small disk: files in /small-disk cannot grow beyond DISK_SIZE. */

static int isOnSmallDisk(int file)
{
    char link[64];
    char path[PATH_SIZE];
    char disk[PATH_SIZE];
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const int length = snprintf(disk, sizeof disk, "%s/small-disk/", getenv("FAKECHROOT_BASE"));
    const long found = syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path);
    return found >= length && strncmp(path, disk, (size_t)length) == 0;
}

static off_t placeOfWrite(int file)
{
    struct stat status;
    if ((fcntl(file, F_GETFL) & O_APPEND) != 0 && fstat(file, &status) == 0)
        return status.st_size;
    return lseek(file, 0, SEEK_CUR);
}

ssize_t write(int file, const void* data, size_t size)
{
    const int before = errno;
    if (size > 0 && isOnSmallDisk(file)) {
        const off_t room = DISK_SIZE - placeOfWrite(file);
        if (room <= 0) {
            errno = ENOSPC;
            return -1;
        }
        size = size < (size_t)room ? size : (size_t)room;
    }
    errno = before;
    return syscall(SYS_write, file, data, size);
}

/* --- The working directory: if a directory is given as /specs, that is a symbolic link in the
   private root, but getcwd must return /specs, since the program uses paths relative to it for its
   icons. fakechroot calls the kernel's getcwd by syscall(). */

static long nextSyscall(long number, const long* arguments)
{
    static long (*next)(long, ...) = NULL;
    if (next == NULL)
        *(void**)&next = dlsym(RTLD_NEXT, "syscall");
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4],
                arguments[5]);
}

/* Returns the length with the terminating zero, like the kernel; -1 with ERANGE if path is too
   small. */
static long replaceSpecs(const char* specs, char* path, size_t size)
{
    char place[PATH_SIZE];
    const size_t known = strlen(specs);
    if (strncmp(path, specs, known) != 0 || (path[known] != '\0' && path[known] != '/'))
        return (long)strlen(path) + 1;
    const int length =
        snprintf(place, sizeof place, "%s/specs%s", getenv("FAKECHROOT_BASE"), path + known);
    if (length < 0 || length >= PATH_SIZE || (size_t)length >= size) {
        errno = ERANGE;
        return -1;
    }
    strcpy(path, place);
    return length + 1;
}

long syscall(long number, ...)
{
    long arguments[6];
    va_list list;
    va_start(list, number);
    for (int i = 0; i < 6; ++i)
        arguments[i] = va_arg(list, long);
    va_end(list);
    const char* const specs = getenv("SCRIBON_SPECS");
    const long result = nextSyscall(number, arguments);
    if (number != SYS_getcwd || result <= 0 || specs == NULL)
        return result;
    return replaceSpecs(specs, (char*)arguments[0], (size_t)arguments[1]);
}

char* getcwd(char* buffer, size_t size)
{
    char path[PATH_SIZE];
    if (syscall(SYS_getcwd, path, sizeof path) < 0)
        return NULL;
    if (buffer == NULL)
        return strdup(path);
    if (strlen(path) >= size) {
        errno = ERANGE;
        return NULL;
    }
    return strcpy(buffer, path);
}
