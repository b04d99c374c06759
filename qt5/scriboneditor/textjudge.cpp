#include "textjudge.h"

#include <QRegularExpression>

#include "editor_antlr3.h"
#include "stat_members.h"

namespace {

// Maximum number of results in each cache, which is cleared when it is full.
constexpr int MAX_CACHED_RESULTS = 4096;

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isLetter(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
           (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
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
        return text.startsWith(QLatin1String(LOG_DIGITAL_DESCP.name)) ? ASK : int(TEXT_BLOCK);
    if (isDigit(first))
        return text.contains(QLatin1Char('+')) ? ASK : int(TEXT_BLOCK);
    return isLetter(first) || QLatin1String(PLAIN_STARTS).contains(first) ? int(TEXT_BLOCK) : ASK;
}

int askLexer(const QString& text, int* tokenType)
{
    const QByteArray bytes = text.toUtf8();
    return appGrammerTypeToEditorType(bytes.constData(), bytes.size(), tokenType);
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

int TextJudge::classify(const QString& text, int* tokenType) const
{
    if (tokenType != nullptr)
        return askLexer(text, tokenType);
    const int known = editorTypeAtOnce(text);
    const auto ask = [](const QString& asked) {
        int type = 0;
        return askLexer(asked, &type);
    };
    return known == ASK ? remembered(&m_editorTypes, text, ask) : known;
}

bool TextJudge::accepts(VaidatorFormat format, const QString& text,
                        const FormatValidators& validators) const
{
    if (const QRegularExpression* const fast = fastPattern(format))
        return fast->match(text).hasMatch();
    const auto askPattern = [&validators, format](QString asked) {
        int position = 0;
        return validators[format]->validate(asked, position) == QValidator::Acceptable ? 1 : 0;
    };
    return remembered(&m_acceptance[format], text, askPattern) != 0;
}

const TextJudge& textJudge()
{
    static const TextJudge judge;
    return judge;
}

int classify(const QString& text, int* tokenType)
{
    return textJudge().classify(text, tokenType);
}
