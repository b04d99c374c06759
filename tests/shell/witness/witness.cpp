// Preloaded library that prints calls of functions of the platform and the system on standard
// error, with their arguments, and passes them on.

#include <dlfcn.h>
#include <sys/mman.h>

#include <cstdio>

#include "marvane_headers.h"

namespace {

template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

int16_t marvane_init_fn(int16_t mode)
{
    std::fprintf(stderr, "call: marvane_init_fn(%d)\n", mode);
    return next<int16_t(int16_t)>("marvane_init_fn")(mode);
}

int16_t join_layer(int16_t layer)
{
    std::fprintf(stderr, "call: join_layer(%d)\n", layer);
    return next<int16_t(int16_t)>("join_layer")(layer);
}

int16_t link_to_memory(SM_AREA_ID area, void** address)
{
    std::fprintf(stderr, "call: link_to_memory(%d)\n", area);
    return next<int16_t(SM_AREA_ID, void**)>("link_to_memory")(area, address);
}

extern "C" int munlockall() noexcept
{
    std::fprintf(stderr, "call: munlockall()\n");
    return next<int()>("munlockall")();
}
