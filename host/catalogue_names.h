// The rules for names in catalogue files, for the process that reads such a file and for the
// program that writes one.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "marvane_headers.h"

namespace marvane {

inline constexpr size_t MAX_LABEL_LENGTH = MARVANE_LABEL_SIZE - 1;
inline constexpr size_t MAX_UNITS_LENGTH = sizeof(UNITS_NAME) - 1;
inline constexpr size_t MAX_KEYWORD_LENGTH = sizeof(PAM_KEYWORD::keyword) - 1;
inline constexpr size_t MAX_UNITS = INT16_MAX;

struct KeywordKind {
    std::string_view name;
    char kind;
};

inline constexpr std::array<KeywordKind, 3> KEYWORD_KINDS{{
    {"channel", CHANNEL_KEYWORD},
    {"parameter", PARAMETER_KEYWORD},
    {"channel_or_parameter", CHANNEL_OR_PARAMETER_KEYWORD},
}};

// What is wrong with the text, empty if nothing is. None of the functions depends on the locale.
std::string lengthFault(std::string_view text, size_t longest);
std::string labelFault(std::string_view label, bool isStructured);
std::string aliasFault(std::string_view alias);
std::string unitsNameFault(std::string_view name);
std::string keywordNameFault(std::string_view name);

// Units are compared by their names in upper case.
std::string inUpperCase(std::string_view text);

// Labels are compared without the full stop of a structured variable.
std::string_view withoutFullStop(std::string_view label);

std::string inQuotes(std::string_view text);

}  // namespace marvane
