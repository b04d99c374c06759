#include "desk_names.h"

#include <algorithm>
#include <cstdlib>

#include "area_layout.h"

namespace marvane {

namespace {

constexpr size_t MAX_NAME_LENGTH = 64;

bool isNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-';
}

std::string objectName(const std::string& deskName, const char* object)
{
    return "/marvane." + deskName + "." + object;
}

}  // namespace

std::string deskNameOfEnvironment()
{
    const char* name = std::getenv(DESK_NAME_VARIABLE);
    return name != nullptr && *name != '\0' ? name : "desk";
}

bool isValidDeskName(const std::string& name)
{
    return !name.empty() && name.size() <= MAX_NAME_LENGTH &&
           std::all_of(name.begin(), name.end(), isNameCharacter);
}

std::string areaObjectName(const std::string& deskName, SM_AREA_ID area)
{
    return objectName(deskName, areaName(area));
}

std::string directoryObjectName(const std::string& deskName)
{
    return objectName(deskName, "directory");
}

}  // namespace marvane
