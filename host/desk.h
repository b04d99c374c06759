// A running desk platform: its areas in shared memory, and its locked directory.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue.h"
#include "shared_object.h"

namespace marvane {

class Desk {
public:
    // Removes what a killed platform of this name has left, and creates all areas of the catalogue.
    // If that fails, such as because a platform of this name is running, returns nullopt, removes
    // what was created, and stores the reason as one line in *complaint.
    static std::optional<Desk> start(const std::string& name, const Catalogue& catalogue,
                                     std::string* complaint);

    Desk(Desk&&) = default;
    Desk& operator=(Desk&&) = delete;
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    // Clears the ready flag first, then removes the areas.
    ~Desk();

private:
    explicit Desk(SharedObject directory) : directory_(std::move(directory)) {}

    bool makeAreas(const std::string& name, const Catalogue& catalogue, std::string* complaint);
    bool publish(const Catalogue& catalogue);
    bool setReady(uint32_t ready);

    SharedObject directory_;  // destroyed last: its lock keeps other platforms of this name away
    std::vector<SharedObject> areas_;
};

}  // namespace marvane
