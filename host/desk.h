// A desk platform while it runs: its areas, and the directory whose lock says so.
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
    // Removes what a platform of this name has left that was killed, and makes all areas of the
    // catalogue. When that fails there is no desk, nothing of it is left, and *complaint tells why
    // in a line; above all when a platform of this name runs already.
    static std::optional<Desk> start(const std::string& name, const Catalogue& catalogue,
                                     std::string* complaint);

    Desk(Desk&&) = default;
    Desk& operator=(Desk&&) = delete;
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    // Clients see the platform as gone before its areas are.
    ~Desk();

private:
    explicit Desk(SharedObject directory) : directory_(std::move(directory)) {}

    bool makeAreas(const std::string& name, const Catalogue& catalogue, std::string* complaint);
    bool publish(const Catalogue& catalogue);
    bool setReady(uint32_t ready);

    SharedObject directory_;  // goes last, so that nothing is left behind it
    std::vector<SharedObject> areas_;
};

}  // namespace marvane
