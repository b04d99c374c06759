#include "desk_directory.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <tuple>
#include <utility>

#include "area_layout.h"
#include "desk_names.h"
#include "trusted_object.h"

namespace marvane {

namespace {

bool isStructured(const VariableRow& variable)
{
    return variable.type >= 0 && static_cast<size_t>(variable.type) < RECORD_LAYOUTS.size() &&
           RECORD_LAYOUTS[static_cast<size_t>(variable.type)].isStructured;
}

bool equalsInAnyCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

}  // namespace

std::unique_ptr<DeskDirectory> DeskDirectory::open(const std::string& deskName)
{
    FileDescriptor object = openObject(directoryObjectName(deskName), O_RDONLY);
    struct stat status {};
    if (!isTrusted(object) || fstat(object.get(), &status) != 0)
        return nullptr;
    const auto size = static_cast<size_t>(status.st_size);
    if (size < sizeof(DirectoryHeader))
        return nullptr;
    void* address = mmap(nullptr, size, PROT_READ, MAP_SHARED, object.get(), 0);
    if (address == MAP_FAILED)
        return nullptr;
    std::unique_ptr<DeskDirectory> directory(new DeskDirectory(std::move(object), address, size));
    return directory->isLive() && directory->takeHeader() ? std::move(directory) : nullptr;
}

DeskDirectory::DeskDirectory(FileDescriptor object, const void* address, size_t size)
    : object_(std::move(object)), address_(address), size_(size)
{
}

DeskDirectory::~DeskDirectory()
{
    munmap(const_cast<void*>(address_), size_);
}

bool DeskDirectory::isLive() const
{
    if (__atomic_load_n(&sharedHeader().ready, __ATOMIC_ACQUIRE) == 0)
        return false;
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    return fcntl(object_.get(), F_OFD_GETLK, &lock) == 0 && lock.l_type == F_WRLCK;
}

bool DeskDirectory::takeHeader()
{
    header_ = sharedHeader();
    return std::memcmp(header_.magic, DIRECTORY_MAGIC, sizeof header_.magic) == 0 &&
           header_.version == DIRECTORY_VERSION && header_.size == size_ &&
           holds<UnitsRow>(header_.units) && holds<VariableRow>(header_.variables) &&
           holds<uint32_t>(header_.buckets) &&
           (header_.buckets.count & (header_.buckets.count - 1)) == 0;
}

template <typename Element>
bool DeskDirectory::holds(const DirectoryArray& array) const
{
    return array.offset % alignof(uint32_t) == 0 && array.offset <= size_ &&
           array.count <= (size_ - array.offset) / sizeof(Element);
}

std::optional<DeskDirectory::NameMatch> DeskDirectory::findName(std::string_view name) const
{
    const bool mustBeStructured = !name.empty() && name.back() == '.';
    if (mustBeStructured)
        name.remove_suffix(1);
    const auto* buckets = array<uint32_t>(header_.buckets);
    const uint32_t count = header_.buckets.count;
    const uint32_t hash = hashOfName(name.data(), name.size());
    for (uint32_t probe = 0; probe < count; ++probe) {
        const uint32_t bucket = buckets[(hash + probe) & (count - 1)];
        if (bucket == 0)
            break;
        const auto match = matchInBucket(bucket, name);
        if (match && (!mustBeStructured || isStructured(*match->variable)))
            return match;
    }
    return std::nullopt;
}

std::optional<DeskDirectory::NameMatch> DeskDirectory::matchInBucket(uint32_t bucket,
                                                                     std::string_view name) const
{
    const uint32_t row = rowOfBucket(bucket);
    if (row >= header_.variables.count)
        return std::nullopt;
    const VariableRow& variable = array<VariableRow>(header_.variables)[row];
    const NameKind kind = kindOfBucket(bucket);
    const std::string_view text = textIn(kind == NameKind::Label ? variable.label : variable.alias);
    if (text != name)
        return std::nullopt;
    return NameMatch{&variable, kind};
}

const VariableRow* DeskDirectory::variableOf(const SHARED_MEMORY& handle) const
{
    const auto key = [](const VariableRow& row) {
        return std::tuple(row.area, row.type, row.index);
    };
    const std::tuple wanted(SM_AREA_ID{handle.code}, SM_VARI_TYPE{handle.vari_type},
                            static_cast<uint16_t>(handle.index));
    const auto* begin = array<VariableRow>(header_.variables);
    const auto* end = begin + header_.variables.count;
    const auto* row = std::lower_bound(
        begin, end, wanted, [&key](const VariableRow& a, const auto& b) { return key(a) < b; });
    return row != end && key(*row) == wanted ? row : nullptr;
}

std::optional<uint32_t> DeskDirectory::findUnits(std::string_view name) const
{
    for (uint32_t i = 0; i < unitsCount(); ++i) {
        if (equalsInAnyCase(textIn(units(i).name), name))
            return i;
    }
    return std::nullopt;
}

}  // namespace marvane
