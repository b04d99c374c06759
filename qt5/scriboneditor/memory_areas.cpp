#include "memory_areas.h"

bool MemoryAreas::local_link_to_memory(SM_AREA_ID memcode, void** addr)
{
    if (addr == nullptr)
        return false;
    mem_handles[static_cast<size_t>(memcode)] = shrd_mem_in_use(memcode) != 0;
    *addr = get_shrd_mem(memcode, 0);
    return *addr != nullptr;
}

void MemoryAreas::local_fre_shrd_mem(SM_AREA_ID memcode)
{
    if (!mem_handles[static_cast<size_t>(memcode)])
        fre_shrd_mem(memcode);
}
