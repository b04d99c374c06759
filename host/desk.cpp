#include "desk.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "desk_names.h"
#include "directory_content.h"
#include "directory_format.h"
#include "trusted_object.h"

namespace marvane {

namespace {

std::string failureOf(const std::string& object)
{
    return "shared memory " + object + ": " + std::strerror(errno);
}

// Opens or creates the object. Not open, with the reason in *complaint, if that fails or if the
// object is not trusted.
FileDescriptor openOwnObject(const std::string& object, std::string* complaint)
{
    FileDescriptor descriptor = openObject(object, O_RDWR | O_CREAT);
    if (!descriptor.isOpen()) {
        *complaint = failureOf(object);
    } else if (!isTrusted(descriptor)) {
        *complaint = "shared memory " + object + ": not an object of this user";
        return {};
    }
    return descriptor;
}

// Takes the write lock. False if another process has it.
bool lock(int descriptor)
{
    struct flock wanted {};
    wanted.l_type = F_WRLCK;
    wanted.l_whence = SEEK_SET;
    return fcntl(descriptor, F_OFD_SETLK, &wanted) == 0;
}

// The states of a directory that no other process has locked: left by a killed platform, just
// removed by a platform that ended, or new.
enum class Unlocked { Left, Removed, New };

Unlocked stateOf(int descriptor)
{
    struct stat status {};
    fstat(descriptor, &status);
    if (status.st_nlink == 0)
        return Unlocked::Removed;
    return status.st_size != 0 ? Unlocked::Left : Unlocked::New;
}

// Creates and locks the directory. One that a killed platform has left is unlinked and not reused:
// clients may still have it mapped, and it must not be truncated under them. nullopt, with the
// reason in *complaint, if that fails.
std::optional<SharedObject> lockNewDirectory(const std::string& name, std::string* complaint)
{
    const std::string object = directoryObjectName(name);
    for (;;) {
        FileDescriptor descriptor = openOwnObject(object, complaint);
        if (!descriptor.isOpen())
            return std::nullopt;
        if (!lock(descriptor.get())) {
            *complaint = "a platform of the name \"" + name + "\" is running already";
            return std::nullopt;
        }
        const Unlocked state = stateOf(descriptor.get());
        if (state == Unlocked::New)
            return SharedObject(object, std::move(descriptor));
        if (state == Unlocked::Left && shm_unlink(object.c_str()) != 0 && errno != ENOENT) {
            *complaint = failureOf(object);
            return std::nullopt;
        }
    }
}

void removeLeftAreas(const std::string& name)
{
    for (const AreaName& row : AREA_NAMES)
        shm_unlink(areaObjectName(name, row.area).c_str());
}

size_t areaSize(const Catalogue& catalogue, SM_AREA_ID area)
{
    if (area == SYS_ATTR_MEM || area == KEYWORD_MEM)
        return areaReach(area);
    size_t size = 0;
    for (const TableLayout& table : TABLE_LAYOUTS) {
        if (table.area == area)
            size = std::max(
                size, table.offset + tableLength(catalogue, table) * recordLayout(table).size);
    }
    return size;
}

bool writeCounts(const Catalogue& catalogue, SharedObject& area)
{
    SYSTEM_ATTRIBUTES attributes{};
    for (size_t i = 0; i < COUNT_LAYOUTS.size(); ++i)
        attributes.*COUNT_LAYOUTS[i].counter = catalogue.counts[i];
    return area.write(0, &attributes, sizeof attributes);
}

bool writeKeyword(const CatalogueKeyword& keyword, SharedObject& area)
{
    PAM_KEYWORD entry{};
    std::memcpy(entry.keyword, keyword.name.data(),
                std::min(keyword.name.size(), sizeof entry.keyword - 1));
    entry.unitscode = keyword.unitsCode;
    entry.type = keyword.kind;
    return area.write(keyword.index * sizeof entry, &entry, sizeof entry);
}

// Writes only these fields: the rest of a record stays zero and, if it is large, takes no memory.
bool writeVariable(const CatalogueVariable& variable, const TableLayout& table, SharedObject& area)
{
    const RecordLayout& record = recordLayout(table);
    const size_t at = table.offset + variable.index * record.size;
    const int16_t active = variable.isActive ? 1 : 0;
    return area.write(at + record.activeOffset, &active, sizeof active) &&
           area.write(at + record.labelOffset, variable.label.data(), variable.label.size());
}

bool writeTables(const Catalogue& catalogue, SM_AREA_ID code, SharedObject& area)
{
    for (size_t i = 0; i < TABLE_LAYOUTS.size(); ++i) {
        if (TABLE_LAYOUTS[i].area != code)
            continue;
        for (const CatalogueVariable& variable : catalogue.tables[i]) {
            if (!writeVariable(variable, TABLE_LAYOUTS[i], area))
                return false;
        }
    }
    return true;
}

bool writeArea(const Catalogue& catalogue, SM_AREA_ID code, SharedObject& area)
{
    if (code == SYS_ATTR_MEM)
        return writeCounts(catalogue, area);
    if (code != KEYWORD_MEM)
        return writeTables(catalogue, code, area);
    return std::all_of(
        catalogue.keywords.begin(), catalogue.keywords.end(),
        [&area](const CatalogueKeyword& keyword) { return writeKeyword(keyword, area); });
}

}  // namespace

std::optional<Desk> Desk::start(const std::string& name, const Catalogue& catalogue,
                                std::string* complaint)
{
    auto directory = lockNewDirectory(name, complaint);
    if (!directory)
        return std::nullopt;
    removeLeftAreas(name);
    Desk desk(std::move(*directory));
    if (!desk.makeAreas(name, catalogue, complaint))
        return std::nullopt;
    if (!desk.publish(catalogue)) {
        *complaint = failureOf(directoryObjectName(name));
        return std::nullopt;
    }
    return desk;
}

Desk::~Desk()
{
    if (directory_.isOpen())
        setReady(0);
}

bool Desk::makeAreas(const std::string& name, const Catalogue& catalogue, std::string* complaint)
{
    for (const SM_AREA_ID code : catalogue.areas) {
        const std::string object = areaObjectName(name, code);
        auto area = SharedObject::create(object, areaSize(catalogue, code));
        if (!area || !writeArea(catalogue, code, *area)) {
            *complaint = failureOf(object);
            return false;
        }
        areas_.push_back(std::move(*area));
    }
    return true;
}

bool Desk::publish(const Catalogue& catalogue)
{
    const std::vector<char> content = directoryContent(catalogue);
    return directory_.resize(content.size()) &&
           directory_.write(0, content.data(), content.size()) && setReady(1);
}

bool Desk::setReady(uint32_t ready)
{
    return directory_.write(offsetof(DirectoryHeader, ready), &ready, sizeof ready);
}

}  // namespace marvane
