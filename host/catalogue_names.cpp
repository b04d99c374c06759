#include "catalogue_names.h"

#include <algorithm>

namespace marvane {

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isWordCharacter(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_';
}

bool isVariableName(std::string_view name)
{
    return !name.empty() && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), isWordCharacter);
}

bool isPrintableWord(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

}  // namespace

std::string lengthFault(std::string_view text, size_t longest)
{
    if (text.empty())
        return "must not be empty";
    return text.size() > longest ? "is longer than " + std::to_string(longest) + " bytes" : "";
}

std::string labelFault(std::string_view label, bool isStructured)
{
    std::string fault = lengthFault(label, MAX_LABEL_LENGTH);
    if (!fault.empty())
        return fault;
    const bool hasFullStop = label.back() == '.';
    if (isStructured && !hasFullStop)
        return "a structured variable's label ends in a full stop";
    if (!isStructured && hasFullStop)
        return "the label must not end in a full stop";
    return aliasFault(withoutFullStop(label));
}

std::string aliasFault(std::string_view alias)
{
    if (alias.size() > MAX_LABEL_LENGTH)
        return lengthFault(alias, MAX_LABEL_LENGTH);
    return isVariableName(alias) ? "" : "must be a letter, then letters, digits and underscores";
}

std::string unitsNameFault(std::string_view name)
{
    std::string fault = lengthFault(name, MAX_UNITS_LENGTH);
    if (!fault.empty())
        return fault;
    const bool isName = isPrintableWord(name) && name.find_first_of("[]") == std::string_view::npos;
    return isName ? "" : "must be one printable ASCII word without brackets";
}

std::string keywordNameFault(std::string_view name)
{
    std::string fault = lengthFault(name, MAX_KEYWORD_LENGTH);
    if (!fault.empty())
        return fault;
    return isPrintableWord(name) ? "" : "must be one printable ASCII word";
}

std::string inUpperCase(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return upper;
}

std::string_view withoutFullStop(std::string_view label)
{
    if (!label.empty() && label.back() == '.')
        label.remove_suffix(1);
    return label;
}

std::string inQuotes(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

}  // namespace marvane
