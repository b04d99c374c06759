#include "platform.h"

#include <utility>

#include "area_layout.h"
#include "desk_names.h"

namespace marvane {

// Never destroyed: clients may use the areas until the process ends.
Platform& Platform::instance()
{
    static auto* const platform = new Platform;
    return *platform;
}

void Platform::join()
{
    deskName_ = deskNameOfEnvironment();
    directory_.reset();
    retireAreas();
}

const DeskDirectory* Platform::directory()
{
    if (directory_ && directory_->isLive())
        return directory_.get();
    auto successor = isValidDeskName(deskName_) ? DeskDirectory::open(deskName_) : nullptr;
    if (successor)
        retireAreas();
    directory_ = std::move(successor);
    return directory_.get();
}

void* Platform::attach(SM_AREA_ID area)
{
    if (areaName(area) == nullptr || directory() == nullptr)
        return nullptr;
    AreaMapping& mapping = areas_[static_cast<size_t>(area)];
    if (!mapping.isMapped())
        mapping = AreaMapping::map(areaObjectName(deskName_, area), areaReach(area));
    return mapping.address();
}

bool Platform::isAttached(SM_AREA_ID area) const
{
    return areaName(area) != nullptr && areas_[static_cast<size_t>(area)].isMapped();
}

bool Platform::detach(SM_AREA_ID area)
{
    if (!isAttached(area))
        return false;
    areas_[static_cast<size_t>(area)] = AreaMapping();
    return true;
}

void Platform::retireAreas()
{
    for (AreaMapping& area : areas_) {
        if (area.isMapped())
            retired_.push_back(std::move(area));
    }
}

}  // namespace marvane
