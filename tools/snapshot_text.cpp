#include "snapshot_text.h"

#include <algorithm>

namespace snapshot {

namespace {

using Json = nlohmann::ordered_json;

constexpr size_t INDENT = 2;
constexpr size_t LONGEST_LINE = 100;

std::string keyText(const Json& parent, const std::string& key)
{
    return parent.is_object() ? Json(key).dump() + ": " : std::string();
}

std::string onOneLine(const Json& value)
{
    if (!value.is_structured() || value.empty())
        return value.dump();
    std::string text;
    for (const auto& [key, member] : value.items())
        text += (text.empty() ? "" : ", ") + keyText(value, key) + onOneLine(member);
    return value.is_object() ? "{ " + text + " }" : '[' + text + ']';
}

bool fitsLine(const Json& value, size_t indent)
{
    const bool isFlat = std::none_of(value.begin(), value.end(),
                                     [](const Json& member) { return member.is_structured(); });
    return !value.is_structured() || (isFlat && indent + onOneLine(value).size() <= LONGEST_LINE);
}

void append(std::string& text, const Json& value, size_t indent)
{
    if (fitsLine(value, indent)) {
        text += onOneLine(value);
        return;
    }
    text += value.is_object() ? '{' : '[';
    const char* separator = "\n";
    for (const auto& [key, member] : value.items()) {
        text += separator + std::string(indent + INDENT, ' ') + keyText(value, key);
        append(text, member, indent + INDENT);
        separator = ",\n";
    }
    text += '\n' + std::string(indent, ' ') + (value.is_object() ? '}' : ']');
}

}  // namespace

std::string catalogueText(const Json& json)
{
    std::string text;
    append(text, json, 0);
    return text + '\n';
}

}  // namespace snapshot
