#include "regularrows.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "scribon_keywords.h"
#include "specfile.h"
#include "stat_members.h"
#include "treeitem.h"

namespace {

// The kinds of words that the grammar tells apart, as far as these rows need them. A text of none
// of these kinds may be one that the lexer takes for something else.
enum TextKind : unsigned {
    NO_TEXT = 1,
    WORD = 2,
    QUOTED_TEXT = 4,
    NUMBER = 8,
    YES_OR_NO = 16,
    INTERVAL = 32,
    MEMBER = 64,
    COMMENT_TEXT = 128,
    OTHER_TEXT = 256
};

constexpr std::array<const char*, 8> INTERVAL_UNITS{"SEC", "sec", "min",  "MIN",
                                                    "HR",  "hr",  "MSEC", "msec"};

// ---- Characters ---------------------------------------------------------------------------------

constexpr std::string_view DIGITS = "0123456789";
constexpr std::string_view LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view WORD_SIGNS = "$%()-./:<>[]_@";
constexpr std::string_view WORD_START_SIGNS = "$%(/_";

// A set of ASCII characters.
class CharacterSet {
public:
    constexpr CharacterSet(std::initializer_list<std::string_view> parts) : m_has()
    {
        for (const std::string_view part : parts)
            for (const char c : part)
                m_has[static_cast<unsigned char>(c)] = true;
    }
    constexpr bool operator()(QChar c) const
    {
        return c.unicode() < ASCII_END && m_has[c.unicode()];
    }

private:
    static constexpr ushort ASCII_END = 0x80;
    std::array<bool, ASCII_END> m_has;
};

constexpr CharacterSet isDigit{DIGITS};
constexpr CharacterSet isQuote{"'\""};
constexpr CharacterSet isOfWord{DIGITS, LETTERS, WORD_SIGNS};
constexpr CharacterSet startsWord{LETTERS, WORD_START_SIGNS};

template <typename Test>
bool areAll(const QString& text, int from, Test test)
{
    return std::all_of(text.begin() + from, text.end(), test);
}

// ---- Kinds --------------------------------------------------------------------------------------

bool isYesOrNo(const QString& text)
{
    constexpr int LONGEST = 3;
    return text.size() <= LONGEST &&
           (text.compare(QLatin1String("yes"), Qt::CaseInsensitive) == 0 ||
            text.compare(QLatin1String("no"), Qt::CaseInsensitive) == 0);
}

// Not all words: those that begin otherwise may be numbers, intervals or members.
bool isWord(const QString& text)
{
    return startsWord(text.at(0)) && areAll(text, 1, isOfWord) &&
           !text.startsWith(QLatin1String("LOG_DIGITAL"));
}

bool isMember(const QString& text)
{
    return std::any_of(STAT_MEMBERS.begin(), STAT_MEMBERS.end(), [&text](const StatMember& member) {
        return text == QLatin1String(member.name);
    });
}

bool isInterval(const QString& text)
{
    const int bracket = text.indexOf(QLatin1Char('['));
    const QString number = text.left(bracket).remove(QLatin1Char('.'));
    const QString units = text.mid(bracket + 1).chopped(1);
    return bracket > 0 && text.endsWith(QLatin1Char(']')) && areAll(number, 0, isDigit) &&
           bracket - number.size() <= 1 &&
           std::any_of(INTERVAL_UNITS.begin(), INTERVAL_UNITS.end(),
                       [&units](const char* known) { return units == QLatin1String(known); });
}

TextKind kindOfNumber(const QString& text)
{
    if (areAll(text, 0, isDigit))
        return NUMBER;
    return isInterval(text) ? INTERVAL : OTHER_TEXT;
}

TextKind kindOfQuoted(const QString& text)
{
    const bool closed = text.size() > 1 && text.indexOf(text.at(0), 1) == text.size() - 1;
    return closed && !text.contains(QChar::Null) ? QUOTED_TEXT : OTHER_TEXT;
}

TextKind kindOfComment(const QString& text)
{
    return text.contains(QLatin1Char('\n')) || text.contains(QChar::Null) ? OTHER_TEXT
                                                                          : COMMENT_TEXT;
}

TextKind kindOf(const QString& text)
{
    if (text.isEmpty())
        return NO_TEXT;
    const QChar first = text.at(0);
    if (first == QLatin1Char(FILLER_TEXT.latin1()[0]) && text == FILLER_TEXT)
        return NO_TEXT;
    if (first == QLatin1Char('#'))
        return kindOfComment(text);
    if (isQuote(first))
        return kindOfQuoted(text);
    if (isDigit(first))
        return kindOfNumber(text);
    if (first == QLatin1Char('.'))
        return isMember(text) ? MEMBER : OTHER_TEXT;
    if (isYesOrNo(text))
        return YES_OR_NO;
    return isWord(text) ? WORD : OTHER_TEXT;
}

// ---- The Keywords tab ---------------------------------------------------------------------------

// The kinds of the value that the statement of a keyword reads as such.
unsigned valueKinds(const ScribonKeyword& keyword)
{
    switch (keyword.editor) {
        case SCRIBON_EDITOR:
        case STRING_VAR_EDITOR:
        case REGNAME_EDITOR:
            return WORD | QUOTED_TEXT;
        case EVENT_EDITOR:
        case LOGICAL_VAR_EDITOR:
        case DIR_PATH_EDITOR:
            return WORD;
        case INTEGER_EDITOR:
            return NUMBER | WORD;
        case YESNO_EDITOR:
            return YES_OR_NO;
        case DESCRIPTION_EDITOR:
            return QUOTED_TEXT;
        case FLOAT_UNIT_EDITOR:
        case SCAN_INTERVAL_EDITOR:
        case INTEGER_TIME_INT_EDITOR:
            return INTERVAL;
        case NOEDITOR:
            return keyword.token == TOKEN_KYWD_FIFO_LOG_BUF ? NO_TEXT | YES_OR_NO : NO_TEXT;
        default:
            return 0;
    }
}

unsigned secondValueKinds(const ScribonKeyword& keyword)
{
    return keyword.editor == INTEGER_TIME_INT_EDITOR ? WORD : NO_TEXT;
}

const ScribonKeyword* keywordOf(const QString& spelling)
{
    const auto* const found = std::find_if(
        std::begin(SCRIBON_KEYWORDS), std::end(SCRIBON_KEYWORDS),
        [&spelling](const auto& keyword) { return spelling == QLatin1String(keyword.spelling); });
    return found == std::end(SCRIBON_KEYWORDS) ? nullptr : found;
}

// The statements whose first decides whether a file is a spec file.
bool isString(const ScribonKeyword& keyword)
{
    return keyword.editor == SCRIBON_EDITOR || keyword.editor == STRING_VAR_EDITOR ||
           keyword.editor == REGNAME_EDITOR;
}

using Kinds = std::array<unsigned, ScanListTab::COLUMN_COUNT>;

class RegularRows {
public:
    explicit RegularRows(const TreeModel& table) : m_table(table) {}

    bool areStatements();
    bool areEntries(QLatin1String section, const Kinds& kinds);

private:
    QString text(int row, int column) const
    {
        return m_table.index(row, column).data(Qt::EditRole).toString();
    }
    bool hasKinds(int row, int firstColumn, const Kinds& kinds) const;
    bool isComment(int row, int column) const;
    bool isStatement(int row);

    const TreeModel& m_table;
    bool m_hasString = false;
};

// Columns behind those of the table have no text.
bool RegularRows::hasKinds(int row, int firstColumn, const Kinds& kinds) const
{
    for (int column = firstColumn; column < m_table.columnCount(); ++column) {
        const unsigned wanted = kinds[static_cast<size_t>(column)];
        if ((kindOf(text(row, column)) & wanted) == 0)
            return false;
    }
    return true;
}

bool RegularRows::isComment(int row, int column) const
{
    Kinds kinds{NO_TEXT, NO_TEXT, NO_TEXT, NO_TEXT};
    kinds[static_cast<size_t>(column)] = COMMENT_TEXT;
    return hasKinds(row, KEYWORD_COLUMN, kinds);
}

bool RegularRows::isStatement(int row)
{
    const ScribonKeyword* const keyword = keywordOf(text(row, KEYWORD_COLUMN));
    if (keyword == nullptr)
        return isComment(row, KEYWORD_COLUMN);
    if (isString(*keyword) && !m_hasString && keyword->editor != SCRIBON_EDITOR)
        return false;
    m_hasString = m_hasString || isString(*keyword);
    return hasKinds(row, ENTRY_COLUMN, {0, valueKinds(*keyword), secondValueKinds(*keyword)});
}

bool RegularRows::areStatements()
{
    for (int row = 0; row < m_table.rowCount(); ++row) {
        if (!isStatement(row))
            return false;
    }
    return m_hasString;
}

bool RegularRows::areEntries(QLatin1String section, const Kinds& kinds)
{
    if (m_table.rowCount() == 0 || text(0, KEYWORD_COLUMN) != section)
        return false;
    for (int row = 1; row < m_table.rowCount(); ++row) {
        if (!hasKinds(row, KEYWORD_COLUMN, kinds) && !isComment(row, ENTRY_COLUMN))
            return false;
    }
    return true;
}

}  // namespace

bool hasRegularRows(const SpecFile& file)
{
    struct List {
        int tab = 0;
        const char* section = nullptr;
        Kinds kinds{};
    };
    static constexpr std::array<List, TAB_COUNT - 1> LISTS{{
        {DE_TAB2, "@SCAN_LIST", {NO_TEXT, WORD, NO_TEXT | MEMBER, WORD}},
        {DE_TAB3, "@META_DATA", {NO_TEXT, WORD, WORD | MEMBER | QUOTED_TEXT, 0}},
        {DE_TAB4, "@SCAN_LIST_AUX_USER", {NO_TEXT, WORD | QUOTED_TEXT, WORD | QUOTED_TEXT, 0}},
        {DE_TAB5, "@ECM_LIST", {NO_TEXT, NUMBER, WORD, 0}},
    }};
    return file.encoding() == SpecEncoding::Local &&
           RegularRows(file.table(DE_TAB1)).areStatements() &&
           std::all_of(LISTS.begin(), LISTS.end(), [&file](const List& list) {
               return RegularRows(file.table(list.tab))
                   .areEntries(QLatin1String(list.section), list.kinds);
           });
}
