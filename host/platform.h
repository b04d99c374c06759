// This process as a client of a desk platform: which one, and what it has attached of it.
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

    // Begins anew, with the platform that the environment names now.
    void join();

    // Null when the platform does not run. Good until the next call of any member function.
    const DeskDirectory* directory();

    // The area's address; null when there is no such area or the platform does not run. It stays
    // good until detach, whatever becomes of the platform.
    void* attach(SM_AREA_ID area);
    bool isAttached(SM_AREA_ID area) const;
    // False when the area was not attached.
    bool detach(SM_AREA_ID area);

private:
    Platform() { join(); }

    void retireAreas();

    std::string deskName_;
    std::unique_ptr<DeskDirectory> directory_;
    std::array<AreaMapping, MAX_NUM_SHRD_MEM> areas_;
    // Areas of a platform that has been followed by another. Their addresses are still in hands,
    // and nobody tells when no more, so each restart of a platform leaves those that were attached.
    std::vector<AreaMapping> retired_;
};

}  // namespace marvane
