// Base class of those that attach areas of the platform's shared memory. An area that other code of
// the process had attached before stays attached when it is freed here.
#pragma once

#include <array>

#include "marvane_headers.h"

class MemoryAreas {
protected:
    // Attaches the area and stores its address in *addr. False if addr is null or if there is no
    // such area; *addr is null then.
    bool local_link_to_memory(SM_AREA_ID memcode, void** addr);

    // Detaches the area, unless it was attached before local_link_to_memory().
    void local_fre_shrd_mem(SM_AREA_ID memcode);

private:
    // By area number: whether the area was in use before it was attached here.
    std::array<bool, MAX_NUM_SHRD_MEM> mem_handles{};
};
