// Preloaded into marvane-snapshot: kills the platform, the process TEST_PLATFORM, when the units of
// the first variable are asked for, and goes on when the platform has ended.

#include <dlfcn.h>
#include <marvane_headers.h>
#include <poll.h>

#include <csignal>
#include <cstdlib>

const char* get_variable_units(SHARED_MEMORY mem)
{
    constexpr int PAUSE_MS = 1;
    void* address = nullptr;
    const char* const platform = std::getenv("TEST_PLATFORM");
    if (platform != nullptr)
        kill(static_cast<pid_t>(std::strtol(platform, nullptr, 10)), SIGKILL);
    while (platform != nullptr && link_to_memory(SYS_ATTR_MEM, &address) != 0)
        poll(nullptr, 0, PAUSE_MS);
    const auto next =
        reinterpret_cast<const char* (*)(SHARED_MEMORY)>(dlsym(RTLD_NEXT, "get_variable_units"));
    return next(mem);
}
