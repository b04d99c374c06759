// The connection of this process to a desk platform, with the areas that it has attached.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "area_mapping.h"
#include "desk_directory.h"
#include "marvane_headers.h"

namespace marvane {

class Platform {
public:
    static Platform& instance();

    // Connects to the platform that the environment names now, and detaches all areas. Their
    // addresses stay valid.
    void join();

    // Null if the platform does not run. Valid until the next call of any member function.
    const DeskDirectory* directory();

    // The area's address; null if there is no such area or the platform does not run. It stays
    // valid until detach(), even if the platform ends.
    void* attach(SM_AREA_ID area);
    bool isAttached(SM_AREA_ID area) const;
    // False if the area was not attached.
    bool detach(SM_AREA_ID area);

private:
    Platform() { join(); }

    // Moves the attached areas to retired_.
    void retireAreas();

    std::string deskName_;
    std::unique_ptr<DeskDirectory> directory_;
    std::array<AreaMapping, MAX_NUM_SHRD_MEM> areas_;
    // Areas of platforms that have ended. Clients may still use their addresses, so they are never
    // unmapped: each restart of a platform leaks the areas that were attached.
    std::vector<AreaMapping> retired_;
};

}  // namespace marvane
