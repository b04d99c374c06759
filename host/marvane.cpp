// The host functions (marvane_headers.h), implemented on the shared memory of a desk platform.

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "area_layout.h"
#include "marvane_headers.h"
#include "platform.h"

using marvane::DeskDirectory;
using marvane::NameKind;
using marvane::Platform;
using marvane::RecordKind;
using marvane::textIn;
using marvane::VariableRow;

const char* MARVANE_VER = "$Version: D-" MARVANE_DESK_VERSION "   $";

namespace {

constexpr int16_t FOUND = 0;
constexpr int16_t NOT_FOUND = -1;

// The caller's text may be in a field of shared memory that has no terminating zero.
std::string_view boundedText(const char* text, size_t width)
{
    return text == nullptr ? std::string_view() : std::string_view(text, strnlen(text, width));
}

// Looks a label or alias up; nullopt if it is unknown or the platform does not run.
std::optional<DeskDirectory::NameMatch> findName(const char* label)
{
    const DeskDirectory* directory = Platform::instance().directory();
    const std::string_view name = boundedText(label, MARVANE_LABEL_SIZE);
    return directory != nullptr ? directory->findName(name) : std::nullopt;
}

void fillHandle(SHARED_MEMORY* handle, const VariableRow& variable)
{
    *handle = {};
    handle->code = variable.area;
    handle->index = static_cast<int16_t>(variable.index);
    handle->vari_type = variable.type;
}

int16_t findLabelOfKind(const char* label, RecordKind kind, SHARED_MEMORY* mem)
{
    const auto match = findName(label);
    if (!match || match->variable->type != static_cast<SM_VARI_TYPE>(kind))
        return NOT_FOUND;
    fillHandle(mem, *match->variable);
    return FOUND;
}

// Copies the text out of shared memory and terminates it. Returns the buffer.
template <size_t width>
char* copyOfText(const char (&field)[width], std::array<char, width + 1>& buffer)
{
    const std::string_view text = textIn(field);
    std::copy(text.begin(), text.end(), buffer.begin());
    buffer[text.size()] = '\0';
    return buffer.data();
}

}  // namespace

int16_t marvane_init_fn(int16_t /*mode*/)
{
    Platform::instance().join();
    return 0;
}

// A desk platform has only one layer; marvane_init_fn() attaches to it.
int16_t join_layer(int16_t /*layer*/)
{
    return 0;
}

int16_t link_to_memory(SM_AREA_ID area, void** address)
{
    *address = Platform::instance().attach(area);
    return *address != nullptr ? 1 : 0;
}

int16_t shrd_mem_in_use(SM_AREA_ID area)
{
    return Platform::instance().isAttached(area) ? 1 : 0;
}

void* get_shrd_mem(SM_AREA_ID area, int16_t /*mode*/)
{
    return Platform::instance().attach(area);
}

int16_t fre_shrd_mem(SM_AREA_ID area)
{
    return Platform::instance().detach(area) ? 0 : -1;
}

int16_t find_variable(const char* label, SHARED_MEMORY* mem)
{
    const auto match = findName(label);
    if (!match)
        return NOT_FOUND;
    fillHandle(mem, *match->variable);
    return FOUND;
}

int16_t find_stat_label(const char* label, SHARED_MEMORY* mem)
{
    return findLabelOfKind(label, RecordKind::Statistic, mem);
}

int16_t find_comp_label(const char* label, SHARED_MEMORY* mem)
{
    return findLabelOfKind(label, RecordKind::Composition, mem);
}

int16_t find_prop_label(const char* label, SHARED_MEMORY* mem)
{
    return findLabelOfKind(label, RecordKind::Property, mem);
}

int16_t find_emis_label(const char* label, SHARED_MEMORY* mem)
{
    return findLabelOfKind(label, RecordKind::Emission, mem);
}

int16_t find_alias_of_target(const char* label, SHARED_MEMORY* mem, char** alias)
{
    static std::array<char, MARVANE_LABEL_SIZE + 1> text;
    const auto match = findName(label);
    if (!match || match->kind != NameKind::Label || match->variable->alias[0] == '\0')
        return NOT_FOUND;
    fillHandle(mem, *match->variable);
    *alias = copyOfText(match->variable->alias, text);
    return FOUND;
}

const char* get_variable_units(SHARED_MEMORY mem)
{
    static std::array<char, sizeof(UNITS_NAME) + 1> text;
    const DeskDirectory* directory = Platform::instance().directory();
    const VariableRow* variable = directory != nullptr ? directory->variableOf(mem) : nullptr;
    return variable != nullptr ? copyOfText(variable->units, text) : "";
}

int16_t LV_get_units2(const char* name, int16_t* count, UNITS_NAME* units)
{
    const int16_t capacity = *count;
    *count = 0;
    const DeskDirectory* directory = Platform::instance().directory();
    if (directory == nullptr)
        return NOT_FOUND;
    const auto named = directory->findUnits(boundedText(name, sizeof(UNITS_NAME)));
    if (!named)
        return NOT_FOUND;
    const int32_t dimension = directory->units(*named).dimension;
    for (uint32_t i = 0; i < directory->unitsCount() && *count < capacity; ++i) {
        if (directory->units(i).dimension == dimension)
            std::memcpy(units[(*count)++], directory->units(i).name, sizeof(UNITS_NAME));
    }
    return FOUND;
}

int16_t units_keyword_to_code(const char* text, int32_t* code)
{
    const DeskDirectory* directory = Platform::instance().directory();
    if (directory == nullptr)
        return NOT_FOUND;
    const auto named = directory->findUnits(boundedText(text, sizeof(UNITS_NAME)));
    if (!named)
        return NOT_FOUND;
    *code = static_cast<int32_t>(*named) + 1;
    return FOUND;
}

int16_t check_keyword(const PAM_KEYWORD* entry, int16_t kind)
{
    return entry->type == kind || entry->type == CHANNEL_OR_PARAMETER_KEYWORD ? 0 : -1;
}
