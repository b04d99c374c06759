#include "trusted_object.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace marvane {

FileDescriptor openObject(const std::string& name, int flags)
{
    return FileDescriptor(
        shm_open(name.c_str(), flags | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

bool isTrusted(const FileDescriptor& object)
{
    constexpr uid_t ROOT = 0;
    struct stat status {};
    return object.isOpen() && fstat(object.get(), &status) == 0 && S_ISREG(status.st_mode) &&
           (status.st_uid == geteuid() || status.st_uid == ROOT);
}

}  // namespace marvane
