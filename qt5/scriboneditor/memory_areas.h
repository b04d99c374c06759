// The platform's areas that an object has attached for a while. What somebody else in the process
// had attached before stays attached when the object is done with it.
#pragma once

#include <array>

#include "marvane_headers.h"

class MemoryAreas {
protected:
    // False, with a null address, when the area is not there or addr is null.
    bool local_link_to_memory(SM_AREA_ID memcode, void** addr);

    void local_fre_shrd_mem(SM_AREA_ID memcode);

private:
    // By area: whether it was in use before it was attached here.
    std::array<bool, MAX_NUM_SHRD_MEM> mem_handles{};
};
