#include "validatorformat.h"

#include <string_view>

#include "stat_members.h"

namespace {

// A text that is put together by the compiler. Too long a text fails to compile.
struct PatternText {
    constexpr void append(std::string_view text)
    {
        for (const char c : text)
            characters[size++] = c;
    }

    std::array<char, 512> characters{};
    size_t size = 0;
};

// "^((\.AV)|(\.MN)|...|(\.NR))|(LOG_DIGITAL_DESCP)|(FILLER_TXT)"
constexpr std::array<char, 512> statMemberPattern()
{
    PatternText pattern;
    pattern.append("^(");
    for (const StatMember& member : STAT_MEMBERS) {
        pattern.append(&member == STAT_MEMBERS.data() ? "(\\" : "|(\\");
        pattern.append(member.name);
        pattern.append(")");
    }
    pattern.append(")|(");
    pattern.append(LOG_DIGITAL_DESCP.name);
    pattern.append(")|(FILLER_TXT)");
    return pattern.characters;
}

constexpr auto STAT_MEMBER_PATTERN = statMemberPattern();

}  // namespace

// clang-format off
// Some accept more than they seem to, such as VarName_VF, whose "_-(" is a range of characters.
// Existing behaviour, kept for compatibility.
const std::array<const char*, VALIDATOR_COUNT> ValidatorPatterns{
    R"x(^([A-Za-z_0-9][A-Za-z_0-9]?){1,31})x",
    R"x(^[A-Za-z_]([A-Za-z_0-9]*){1,31})x",
    R"x(^\/(([A-Za-z_0-9.])+\/?)+)x",
    R"x(^(".*")|('.*'))x",
    R"x(^.?\d+(.\d+)?\[(min|sec|hr|msec|MIN|SEC|HR|MSEC)\])x",
    R"x(^([A-Za-z]([A-Za-z_0-9]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?)x",
    R"x(^[0-9]{1,31})x",
    R"x(^(YES|Yes|yes|NO|No|no))x",
    R"x(^#.{0,79})x",
    R"x(^.{1,32})x",
    R"x(^[A-Za-z_0-9]{1,79})x",
    STAT_MEMBER_PATTERN.data(),
    R"x(^([$A-Za-z]([A-Za-z_0-9@/:]*)){1,79})x",
    R"x(^(([A-Za-z]([A-Za-z_0-9]*)(@[0-9]*)?)){1,79})x",
    R"x(^(/([^(/:)]*))*:([A-Za-z_-0-9]*):[0-9]{1,2})x",
    R"x(^"(([A-Za-z_0-9. ']*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?")x",
    R"x(^'(([A-Za-z_0-9. ]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?')x",
};
// clang-format on
