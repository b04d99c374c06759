#include "textjudge.h"

#include <algorithm>

#include "editor_antlr3.h"

namespace {

// Maximum number of results in each cache, which is cleared when it is full.
constexpr int MAX_CACHED_RESULTS = 4096;

// The result for a text if it is known without the lexer or the regular expression.
enum class Verdict { Accepted, Refused, Ask };

Verdict verdict(bool accepted)
{
    return accepted ? Verdict::Accepted : Verdict::Refused;
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isLetter(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
           (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
}

bool isWordChar(QChar c)
{
    return isLetter(c) || isDigit(c) || c == QLatin1Char('_');
}

// The character class at the end of VarName_VF: its range "_-(" is "(" to "_".
bool isSuffixChar(QChar c)
{
    return c == QLatin1Char('%') || (c >= QLatin1Char('(') && c <= QLatin1Char('_')) || isLetter(c);
}

bool isInSingleQuotes(QChar c)
{
    return isWordChar(c) || c == QLatin1Char('.') || c == QLatin1Char(' ');
}

bool isInDoubleQuotes(QChar c)
{
    return isInSingleQuotes(c) || c == QLatin1Char('\'');
}

bool isChannelChar(QChar c)
{
    return isWordChar(c) || c == QLatin1Char('@') || c == QLatin1Char('/') ||
           c == QLatin1Char(':') || c == QLatin1Char('$');
}

template <typename Predicate>
bool all(const QString& text, Predicate predicate)
{
    return std::all_of(text.begin(), text.end(), predicate);
}

constexpr int LONGEST_SUFFIX = 32;
constexpr int MOST_REPEATS = 79;

// A run of `inRun` characters from `from` on, and a suffix of at most 32 from there to `to`.
template <typename Predicate>
bool isRunWithSuffix(const QString& text, int from, int to, Predicate inRun)
{
    const auto end = text.begin() + to;
    const auto suffix = std::find_if_not(text.begin() + from, end, inRun);
    return end - suffix <= LONGEST_SUFFIX && std::all_of(suffix, end, isSuffixChar);
}

Verdict judgeVariable(const QString& text)
{
    return verdict(!text.isEmpty() && isLetter(text.at(0)) &&
                   isRunWithSuffix(text, 1, text.size(), isWordChar));
}

template <typename Predicate>
Verdict judgeQuoted(const QString& text, char quote, Predicate inside)
{
    const QLatin1Char mark(quote);
    const bool quoted = text.size() >= 2 && text.startsWith(mark) && text.endsWith(mark);
    return verdict(quoted && isRunWithSuffix(text, 1, text.size() - 1, inside));
}

// Each dollar sign starts another repetition of the group in the regular expression.
Verdict judgeChannel(const QString& text)
{
    const bool starts = !text.isEmpty() && (isLetter(text.at(0)) || text.at(0) == QLatin1Char('$'));
    if (!starts || !all(text, isChannelChar))
        return Verdict::Refused;
    return verdict(text.midRef(1).count(QLatin1Char('$')) < MOST_REPEATS);
}

// Names, each with an optional instance such as "@12". A name that follows an instance is another
// repetition of the group in the regular expression.
Verdict judgeParameter(const QString& text)
{
    int repeats = 0;
    auto next = text.begin();
    while (next != text.end()) {
        if (!isLetter(*next) || ++repeats > MOST_REPEATS)
            return Verdict::Refused;
        next = std::find_if_not(next, text.end(), isWordChar);
        if (next != text.end() && *next == QLatin1Char('@'))
            next = std::find_if_not(next + 1, text.end(), isDigit);
    }
    return verdict(repeats > 0);
}

Verdict judgeWord(const QString& text, int longest)
{
    return verdict(!text.isEmpty() && text.size() <= longest && all(text, isWordChar));
}

Verdict judgeRegisteredName(const QString& text)
{
    return verdict(!text.isEmpty() && !isDigit(text.at(0)) && all(text, isWordChar));
}

Verdict judgeAtOnce(VaidatorFormat format, const QString& text)
{
    switch (format) {
        case Event_Name_VF:
            return judgeWord(text, 62);
        case RegName_VF:
            return judgeRegisteredName(text);
        case VarName_VF:
            return judgeVariable(text);
        case Scribonid_VF:
            return judgeWord(text, MOST_REPEATS);
        case ChannelName_VF:
            return judgeChannel(text);
        case ParameterName_VF:
            return judgeParameter(text);
        case VarName_dblq_VF:
            return judgeQuoted(text, '"', isInDoubleQuotes);
        case VarName_sq_VF:
            return judgeQuoted(text, '\'', isInSingleQuotes);
        default:
            return Verdict::Ask;
    }
}

constexpr int ASK = -1;

// The editor type of a text if its first character decides it; ASK otherwise. A text that starts
// with a digit may be a number with a malformed exponent, whose characters the lexer drops.
int editorTypeAtOnce(const QString& text)
{
    constexpr auto PLAIN_STARTS = " \t\f_$%()-/:<>[]\"'";
    if (text.isEmpty())
        return TEXT_BLOCK;
    const QChar first = text.at(0);
    if (first == QLatin1Char('#'))
        return COMMENT_LINE;
    if (first == QLatin1Char('L'))
        return text.startsWith(QLatin1String("LOG_DIGITAL_DESCP")) ? ASK : int(TEXT_BLOCK);
    if (isDigit(first))
        return text.contains(QLatin1Char('+')) ? ASK : int(TEXT_BLOCK);
    return isLetter(first) || QLatin1String(PLAIN_STARTS).contains(first) ? int(TEXT_BLOCK) : ASK;
}

int askLexer(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    int tokenType = 0;
    return appGrammerTypeToEditorType(bytes.constData(), bytes.size(), &tokenType);
}

// The cached result for a text; computed and cached if there is none.
template <typename Ask>
int remembered(QHash<QString, int>* answers, const QString& text, Ask ask)
{
    const auto known = answers->constFind(text);
    if (known != answers->constEnd())
        return *known;
    if (answers->size() >= MAX_CACHED_RESULTS)
        answers->clear();
    return *answers->insert(text, ask(text));
}

}  // namespace

int TextJudge::editorType(const QString& text) const
{
    const int known = editorTypeAtOnce(text);
    return known == ASK ? remembered(&m_editorTypes, text, askLexer) : known;
}

bool TextJudge::accepts(VaidatorFormat format, const QString& text) const
{
    const Verdict known = judgeAtOnce(format, text);
    if (known != Verdict::Ask)
        return known == Verdict::Accepted;
    const auto askPattern = [this, format](QString asked) {
        int position = 0;
        return m_validators[format]->validate(asked, position) == QValidator::Acceptable ? 1 : 0;
    };
    return remembered(&m_acceptance[format], text, askPattern) != 0;
}
