#include "validatorformat.h"

#include <QRegularExpression>
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

struct FormatPattern {
    const char* pattern = nullptr;
    const char* fastPattern = nullptr;
};

// clang-format off
// Some patterns accept more than they seem to, such as that of VarName_VF, whose "_-(" is a range
// of characters. Existing behaviour, kept for compatibility. The fast patterns accept the same
// texts; their possessive quantifiers never backtrack.
constexpr std::array<FormatPattern, VALIDATOR_COUNT> FORMATS{{
    {R"x(^([A-Za-z_0-9][A-Za-z_0-9]?){1,31})x",
     R"x(\A[A-Za-z_0-9]{1,62}+\z)x"},
    {R"x(^[A-Za-z_]([A-Za-z_0-9]*){1,31})x",
     R"x(\A[A-Za-z_][A-Za-z_0-9]*+\z)x"},
    {R"x(^\/(([A-Za-z_0-9.])+\/?)+)x"},
    {R"x(^(".*")|('.*'))x"},
    {R"x(^.?\d+(.\d+)?\[(min|sec|hr|msec|MIN|SEC|HR|MSEC)\])x"},
    {R"x(^([A-Za-z]([A-Za-z_0-9]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?)x",
     R"x(\A[A-Za-z][A-Za-z_0-9]*+[A-Za-z%(-_]{0,32}+\z)x"},
    {R"x(^[0-9]{1,31})x"},
    {R"x(^(YES|Yes|yes|NO|No|no))x"},
    {R"x(^#.{0,79})x"},
    {R"x(^.{1,32})x"},
    {R"x(^[A-Za-z_0-9]{1,79})x",
     R"x(\A[A-Za-z_0-9]{1,79}+\z)x"},
    {STAT_MEMBER_PATTERN.data()},
    {R"x(^([$A-Za-z]([A-Za-z_0-9@/:]*)){1,79})x",
     R"x(\A[$A-Za-z][A-Za-z_0-9@/:]*+(?:\$[A-Za-z_0-9@/:]*+){0,78}+\z)x"},
    {R"x(^(([A-Za-z]([A-Za-z_0-9]*)(@[0-9]*)?)){1,79})x",
     R"x(\A(?:[A-Za-z][A-Za-z_0-9]*+(?:@[0-9]*+)?+){1,79}+\z)x"},
    {R"x(^(/([^(/:)]*))*:([A-Za-z_-0-9]*):[0-9]{1,2})x"},
    {R"x(^"(([A-Za-z_0-9. ']*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?")x",
     R"x(\A"[A-Za-z_0-9. ']*+[A-Za-z%(-_]{0,32}+"\z)x"},
    {R"x(^'(([A-Za-z_0-9. ]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?')x",
     R"x(\A'[A-Za-z_0-9. ]*+[A-Za-z%(-_]{0,32}+'\z)x"},
}};
// clang-format on

constexpr std::array<const char*, VALIDATOR_COUNT> patterns()
{
    std::array<const char*, VALIDATOR_COUNT> patterns{};
    for (size_t i = 0; i < patterns.size(); ++i)
        patterns[i] = FORMATS[i].pattern;
    return patterns;
}

using FastPatterns = std::array<std::unique_ptr<const QRegularExpression>, VALIDATOR_COUNT>;

FastPatterns compiledFastPatterns()
{
    FastPatterns compiled;
    for (size_t i = 0; i < compiled.size(); ++i) {
        if (FORMATS[i].fastPattern != nullptr)
            compiled[i] = std::make_unique<const QRegularExpression>(
                QString::fromLatin1(FORMATS[i].fastPattern));
    }
    return compiled;
}

}  // namespace

const std::array<const char*, VALIDATOR_COUNT> ValidatorPatterns = patterns();

const std::array<QRegExp, VALIDATOR_COUNT>& compiledPatterns()
{
    static const auto patterns = [] {
        std::array<QRegExp, VALIDATOR_COUNT> compiled;
        for (size_t i = 0; i < compiled.size(); ++i)
            compiled[i].setPattern(QString::fromLatin1(ValidatorPatterns[i]));
        return compiled;
    }();
    return patterns;
}

const QRegularExpression* fastPattern(VaidatorFormat format)
{
    static const FastPatterns patterns = compiledFastPatterns();
    return patterns[format].get();
}
