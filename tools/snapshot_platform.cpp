#include "snapshot_platform.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <unordered_set>
#include <utility>

#include "catalogue_names.h"

namespace snapshot {

namespace {

using marvane::TABLE_LAYOUTS;
using marvane::TableLayout;

// The editor's values: the first one is not documented, the second one is the layer of its kind of
// programs.
constexpr int16_t INIT_MODE = 1;
constexpr int16_t LAYER = 5;

// The text at an address of the library or of shared memory, which may lack a terminating zero.
std::string boundedText(const char* text, size_t width)
{
    return text != nullptr ? std::string(text, strnlen(text, width)) : std::string();
}

// The text in a field that other processes may change: it is copied before it is measured.
template <size_t width>
std::string copiedText(const void* field)
{
    std::array<char, width> copy{};
    std::memcpy(copy.data(), field, width);
    return boundedText(copy.data(), width);
}

class AttachedArea {
public:
    explicit AttachedArea(SM_AREA_ID area)
        : area_(area), address_(static_cast<const char*>(get_shrd_mem(area, 0)))
    {
    }
    AttachedArea(const AttachedArea&) = delete;
    AttachedArea& operator=(const AttachedArea&) = delete;
    ~AttachedArea()
    {
        if (address_ != nullptr)
            fre_shrd_mem(area_);
    }

    // Null if the platform has no such area.
    const char* address() const { return address_; }

private:
    SM_AREA_ID area_;
    const char* address_;
};

bool isRunning()
{
    void* address = nullptr;
    return link_to_memory(SYS_ATTR_MEM, &address) != 0 && address != nullptr;
}

std::string aliasOf(const std::string& label)
{
    SHARED_MEMORY handle{};
    char* alias = nullptr;
    const bool hasAlias = find_alias_of_target(label.c_str(), &handle, &alias) == 0;
    return hasAlias ? boundedText(alias, MARVANE_LABEL_SIZE) : std::string();
}

void askFor(Variable& variable, bool isStructured)
{
    SHARED_MEMORY handle{};
    variable.isKnown = find_variable(variable.label.c_str(), &handle) == 0;
    if (variable.isKnown)
        variable.units = boundedText(get_variable_units(handle), sizeof(UNITS_NAME));
    if (!isStructured)
        variable.alias = aliasOf(variable.label);
}

Variable readVariable(const char* record, const marvane::RecordLayout& layout)
{
    int16_t active = 0;
    std::memcpy(&active, record + layout.activeOffset, sizeof active);
    Variable variable;
    variable.isActive = active != 0;
    variable.label = copiedText<MARVANE_LABEL_SIZE>(record + layout.labelOffset);
    if (variable.isActive && marvane::labelFault(variable.label, layout.isStructured).empty())
        askFor(variable, layout.isStructured);
    return variable;
}

size_t lengthOf(const TableLayout& table, const SYSTEM_ATTRIBUTES& attributes)
{
    return marvane::isCounted(table) ? attributes.*table.counter : table.fixedLength;
}

std::vector<Variable> readTable(const char* area, const TableLayout& table, size_t length)
{
    const marvane::RecordLayout& layout = marvane::recordLayout(table);
    std::vector<Variable> variables;
    for (size_t i = 0; i < length; ++i) {
        Variable variable = readVariable(area + table.offset + i * layout.size, layout);
        variable.index = static_cast<uint16_t>(i);
        if (variable.isActive || !variable.label.empty())
            variables.push_back(std::move(variable));
    }
    return variables;
}

void readTables(Platform& platform, const SYSTEM_ATTRIBUTES& attributes, SM_AREA_ID code)
{
    const AttachedArea area(code);
    if (area.address() == nullptr)
        return;
    platform.areas.insert(code);
    for (size_t i = 0; i < TABLE_LAYOUTS.size(); ++i) {
        const TableLayout& table = TABLE_LAYOUTS[i];
        if (table.area == code)
            platform.tables[i] = readTable(area.address(), table, lengthOf(table, attributes));
    }
}

void readKeywords(Platform& platform)
{
    const AttachedArea area(KEYWORD_MEM);
    if (area.address() == nullptr)
        return;
    platform.areas.insert(KEYWORD_MEM);
    for (size_t i = 0; i < MAX_PAM_KEYWORDS; ++i) {
        PAM_KEYWORD entry{};
        std::memcpy(&entry, area.address() + i * sizeof entry, sizeof entry);
        if (entry.keyword[0] != '\0')
            platform.keywords.push_back({static_cast<uint16_t>(i), entry.type, entry.unitscode,
                                         boundedText(entry.keyword, sizeof entry.keyword)});
    }
}

// All units of the dimension of these; none if they are unknown.
std::vector<Units> dimensionOf(const std::string& units)
{
    static const auto names = std::make_unique<UNITS_NAME[]>(INT16_MAX);
    int16_t count = INT16_MAX;
    LV_get_units2(units.c_str(), &count, names.get());
    std::vector<Units> dimension;
    for (int16_t i = 0; i < count; ++i) {
        Units known;
        known.name = boundedText(names[static_cast<size_t>(i)], sizeof(UNITS_NAME));
        if (units_keyword_to_code(known.name.c_str(), &known.code) != 0)
            known.code = 0;
        dimension.push_back(std::move(known));
    }
    return dimension;
}

void readDimensions(Platform& platform)
{
    std::unordered_set<std::string> seen{""};
    for (const std::vector<Variable>& table : platform.tables) {
        for (const Variable& variable : table) {
            if (!seen.insert(marvane::inUpperCase(variable.units)).second)
                continue;
            platform.dimensions.push_back(dimensionOf(variable.units));
            for (const Units& units : platform.dimensions.back())
                seen.insert(marvane::inUpperCase(units.name));
        }
    }
}

void readAll(Platform& platform, const SYSTEM_ATTRIBUTES& attributes,
             const std::function<void(const char*)>& progress)
{
    std::transform(
        marvane::COUNT_LAYOUTS.begin(), marvane::COUNT_LAYOUTS.end(), platform.counts.begin(),
        [&attributes](const marvane::CountLayout& row) { return attributes.*row.counter; });
    for (const marvane::AreaName& row : marvane::AREA_NAMES) {
        progress(row.name);
        if (row.area == KEYWORD_MEM)
            readKeywords(platform);
        else if (row.area != SYS_ATTR_MEM)
            readTables(platform, attributes, row.area);
    }
    readDimensions(platform);
}

}  // namespace

Reading readPlatform(Platform& platform, const std::function<void(const char*)>& progress)
{
    marvane_init_fn(INIT_MODE);
    join_layer(LAYER);
    if (!isRunning())
        return Reading::NoPlatform;
    const AttachedArea attributesArea(SYS_ATTR_MEM);
    if (attributesArea.address() == nullptr)
        return Reading::NoPlatform;
    SYSTEM_ATTRIBUTES attributes{};
    std::memcpy(&attributes, attributesArea.address(), sizeof attributes);
    readAll(platform, attributes, progress);
    // The library forgets the areas of a platform that another one has replaced.
    const bool isTheSame = get_shrd_mem(SYS_ATTR_MEM, 0) == attributesArea.address();
    return isTheSame && isRunning() ? Reading::Done : Reading::Stopped;
}

}  // namespace snapshot
