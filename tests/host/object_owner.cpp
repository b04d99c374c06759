// Replaces fstat() and geteuid(), so that shared memory seems to have another owner: in the test
// itself and, preloaded, in marvane-desk. For tests that cannot change owners.
//
// TEST_USER is the user that the process seems to run as. TEST_OWNER is the owner of the
// descriptors whose files end in TEST_OBJECT. Without these variables nothing changes.

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool isTheObject(int descriptor)
{
    const char* const object = std::getenv("TEST_OBJECT");
    if (object == nullptr)
        return false;
    std::array<char, 4096> buffer{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t size = readlink(link.c_str(), buffer.data(), buffer.size());
    const std::string_view path(buffer.data(), size > 0 ? static_cast<size_t>(size) : 0);
    const std::string_view end(object);
    return path.size() >= end.size() && path.substr(path.size() - end.size()) == end;
}

}  // namespace

extern "C" int fstat(int fd, struct stat* buf) noexcept
{
    const int result = next<int(int, struct stat*)>("fstat")(fd, buf);
    const char* const owner = std::getenv("TEST_OWNER");
    if (result == 0 && owner != nullptr && isTheObject(fd))
        buf->st_uid = static_cast<uid_t>(std::strtoul(owner, nullptr, 10));
    return result;
}

extern "C" uid_t geteuid() noexcept
{
    const char* const user = std::getenv("TEST_USER");
    return user != nullptr ? static_cast<uid_t>(std::strtoul(user, nullptr, 10))
                           : next<uid_t()>("geteuid")();
}
