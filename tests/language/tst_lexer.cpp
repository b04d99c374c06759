// The lexer alone: which characters give which tokens.

#include <QTest>
#include <array>

#include "captured_output.h"
#include "golden_keywords.h"
#include "lexed_tokens.h"
#include "scribonspecs_tokens.h"
#include "stat_members.h"
#include "tree_printer.h"

namespace {

struct NamedType {
    const char* name;
    int type;
};

// clang-format off
// All types but those of the keywords, which are in GOLDEN_KEYWORDS.
constexpr std::array<NamedType, 49> OTHER_TYPES{{
    {"<invalid>", 0}, {"<EOR>", 1}, {"<DOWN>", 2}, {"<UP>", 3}, {"APOST", 4}, {"CHARS", 5},
    {"COMMENT", 6}, {"COMMENT_DECL", 7}, {"OMBRA_SS_DECL", 8}, {"DESCRIP", 9}, {"DESCRIP_DECL", 10},
    {"DIGITS", 11}, {"ECM_LIST_DECL", 12}, {"EDITOR_TAB1", 13}, {"EDITOR_TAB2", 14},
    {"EDITOR_TAB3", 15}, {"EDITOR_TAB4", 16}, {"EDITOR_TAB5", 17}, {"EOL", 18}, {"EOL_CR", 19},
    {"EVENT_DECL", 20}, {"EXPONENT", 21}, {"FILLER_TXT", 22}, {"FLOAT", 23}, {"HEADER_ROW", 24},
    {"INT", 25}, {"INTERVAL_DECL", 26}, {"KYWD_DEFAULT", 29}, {"LABEL_DECL", 66},
    {"LOG_DIGITAL_DESC", 67}, {"META_DATA_LIST_DECL", 68}, {"META_FILENAME_DECL", 69},
    {"OUTPUT_PATH_DECL", 70}, {"QUOTE", 71}, {"RA_DECL", 72}, {"RESPNS", 73}, {"SCANS_DECL", 74},
    {"SCAN_LIST_ARGS_DECL", 75}, {"SCAN_LIST_AUX_USER_DECL", 76}, {"SCAN_LIST_DECL", 77},
    {"STAT_MEM", 78}, {"STRING_DECL", 79}, {"TEXT_BLK", 80}, {"TIME_INTERVAL", 81},
    {"UNKNOWN_DECL", 82}, {"UNKNOWN_TXT_DECL", 83}, {"VERR_NODE", 84}, {"WS", 85},
    {"YESNO_DECL", 86},
}};

constexpr std::array<const char*, 33> STATISTICAL_MEMBERS{{
    "AV", "MN", "MX", "RN", "SD", "C0", "IV", "FV", "DL", "E0", "CI", "I0", "I5", "I9", "ME", "MD",
    "RM", "ST", "EN", "TN", "TX", "C1", "IN", "IT", "RS", "CV", "E1", "RA", "NM", "SE", "RC", "QF",
    "NR",
}};

constexpr std::array<const char*, 8> UNITS{{
    "SEC", "sec", "min", "MIN", "HR", "hr", "MSEC", "msec",
}};
// clang-format on

// All words of capital letters and digits with at most this many characters.
std::vector<std::string> wordsUpTo(size_t longest)
{
    std::vector<std::string> words{""};
    for (size_t i = 0; words[i].size() < longest; ++i) {
        for (const char c : std::string("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
            words.push_back(words[i] + c);
    }
    return words;
}

bool isWordStart(int byte)
{
    static const QByteArray OTHERS("$%()-./:<>[]_");
    const char c = static_cast<char>(byte);
    return byte != 0 && byte < 0x80 &&
           ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
            OTHERS.contains(c));
}

bool isBlank(int byte)
{
    return byte == ' ' || byte == '\t' || byte == '\f';
}

std::string printed(const std::string& text)
{
    return printTokens(lexText(text));
}

std::string token(const char* name, const std::string& text)
{
    return std::string(name) + "(" + escapedText(text) + ")";
}

// The tokens of a byte between a word and the word y.
std::string betweenWords(const std::string& word, int byte)
{
    const std::string c(1, static_cast<char>(byte));
    std::string x = token("TEXT_BLK", word);
    const std::string y = token("TEXT_BLK", "y");
    if (isWordStart(byte) || byte == '@')
        return token("TEXT_BLK", word + c + "y");
    if (isBlank(byte))
        return x + " " + token("WS", c) + " " + y;
    if (byte == '\n')
        return x + " " + token("EOL", c) + " " + y;
    if (byte == '\r')
        return x + " " + token("EOL_CR", c) + " " + y;
    if (byte == '#')
        return x + " " + token("COMMENT", "#y");
    if (byte == '"' || byte == '\'')
        return x;
    return x + " " + y;
}

// The tokens of a single byte.
std::string alone(int byte)
{
    const std::string c(1, static_cast<char>(byte));
    if (byte >= '0' && byte <= '9')
        return token("DIGITS", c);
    if (isWordStart(byte))
        return token("TEXT_BLK", c);
    if (isBlank(byte))
        return token("WS", c);
    if (byte == '\n')
        return token("EOL", c);
    if (byte == '\r')
        return token("EOL_CR", c);
    if (byte == '#')
        return token("COMMENT", c);
    return {};
}

}  // namespace

class tst_Lexer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTypeHasItsNumberAndName_data();
    void everyTypeHasItsNumberAndName();
    void numberOfTypes();
    void keywords_data();
    void keywords();
    void keywordIsAWholeWord_data();
    void keywordIsAWholeWord();
    void statisticalMembers_data();
    void statisticalMembers();
    void statisticalMembersAreThoseOfTheProgramsTable();
    void unitsOfIntervals_data();
    void unitsOfIntervals();
    void byteBetweenWords_data();
    void byteBetweenWords();
    void byteAlone_data();
    void byteAlone();
    void texts_data();
    void texts();
    void channels_data();
    void channels();
    void linesAndColumns();
    void lexerPrintsNothing();
};

void tst_Lexer::everyTypeHasItsNumberAndName_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    for (const NamedType& row : OTHER_TYPES)
        QTest::newRow(row.name) << row.type << QString::fromLatin1(row.name);
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QTest::newRow(keyword.tokenName) << keyword.token << QString::fromLatin1(keyword.tokenName);
}

void tst_Lexer::everyTypeHasItsNumberAndName()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    QVERIFY(type < TOKEN_TYPE_COUNT);
    QCOMPARE(QString::fromStdString(typeName(type)), name);
}

void tst_Lexer::numberOfTypes()
{
    QCOMPARE(static_cast<int>(TOKEN_YESNO_DECL), 86);
    QCOMPARE(static_cast<size_t>(TOKEN_TYPE_COUNT),
             OTHER_TYPES.size() + std::size(GOLDEN_KEYWORDS));
    QCOMPARE(TOKEN_TYPE_COUNT - 1, highestType());
}

void tst_Lexer::keywords_data()
{
    QTest::addColumn<QByteArray>("spelling");
    QTest::addColumn<int>("type");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QTest::newRow(keyword.spelling) << QByteArray(keyword.spelling) << keyword.token;
}

void tst_Lexer::keywords()
{
    QFETCH(QByteArray, spelling);
    QFETCH(int, type);
    const std::vector<LexedToken> tokens = lexText(spelling.toStdString());
    QCOMPARE(tokens.size(), size_t(1));
    QCOMPARE(tokens[0].type, type);
    QCOMPARE(tokens[0].text, spelling.toStdString());
}

void tst_Lexer::keywordIsAWholeWord_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        const QByteArray spelling(keyword.spelling);
        const QByteArray name(keyword.tokenName);
        const auto unknown = [](const QByteArray& text) { return "KYWD_DEFAULT(" + text + ")"; };
        const QByteArray longer = spelling + "X";
        const QByteArray numbered = spelling + "2";
        const QByteArray shorter = spelling.chopped(1);
        const QByteArray lower = spelling.toLower();
        QTest::newRow((spelling + " with one more letter").constData())
            << longer << unknown(longer);
        QTest::newRow((spelling + " with a digit behind").constData())
            << numbered << unknown(numbered);
        QTest::newRow((spelling + " without its last letter").constData())
            << shorter << unknown(shorter);
        QTest::newRow((spelling + " in lower case").constData()) << lower << unknown(lower);
        QTest::newRow((spelling + " with an equals sign and a number").constData())
            << QByteArray(spelling + "=1") << QByteArray(name + "(" + spelling + ") DIGITS(1)");
        QTest::newRow((spelling + " with a comment right behind").constData())
            << QByteArray(spelling + "#c") << QByteArray(name + "(" + spelling + ") COMMENT(#c)");
    }
}

void tst_Lexer::keywordIsAWholeWord()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(printed(text.toStdString()), expected.toStdString());
}

void tst_Lexer::statisticalMembers_data()
{
    QTest::addColumn<QByteArray>("member");
    for (const char* const member : STATISTICAL_MEMBERS)
        QTest::newRow(member) << QByteArray(member);
}

void tst_Lexer::statisticalMembers()
{
    QFETCH(QByteArray, member);
    const std::string text = "." + member.toStdString();
    const std::string lower = "." + member.toLower().toStdString();
    QCOMPARE(printed(text), token("STAT_MEM", text));
    QCOMPARE(printed(lower), token("TEXT_BLK", lower));
    QCOMPARE(printed(text + "x"), token("TEXT_BLK", text + "x"));
    QCOMPARE(printed("x" + text), token("TEXT_BLK", "x" + text));
    QCOMPARE(printed(text + "=" + text), token("STAT_MEM", text) + " " + token("STAT_MEM", text));
}

// Every text of one to three capital letters and digits behind a full stop is tried.
void tst_Lexer::statisticalMembersAreThoseOfTheProgramsTable()
{
    std::string text;
    for (const std::string& word : wordsUpTo(3))
        text += "." + word + " ";
    QStringList members;
    for (const LexedToken& lexed : lexText(text)) {
        if (lexed.type == TOKEN_STAT_MEM)
            members.append(QString::fromStdString(lexed.text));
    }
    QStringList expected;
    for (const StatMember& member : STAT_MEMBERS)
        expected.append(QString::fromLatin1(member.name));
    expected.sort();
    QCOMPARE(members, expected);
}

void tst_Lexer::unitsOfIntervals_data()
{
    QTest::addColumn<QByteArray>("unit");
    for (const char* const unit : UNITS)
        QTest::newRow(unit) << QByteArray(unit);
}

void tst_Lexer::unitsOfIntervals()
{
    QFETCH(QByteArray, unit);
    const std::string bracket = "[" + unit.toStdString() + "]";
    for (const char* const number : {"2", "2.5", ".5", "2.", ".", "", "007", "12.0625"}) {
        const std::string text = number + bracket;
        QCOMPARE(printed(text), token("TIME_INTERVAL", text));
        QCOMPARE(printed(text + "x"), token("TEXT_BLK", text + "x"));
    }
    const std::string open = "1[" + unit.toStdString();
    QCOMPARE(printed(open), token("TEXT_BLK", open));
    QCOMPARE(printed("x" + bracket), token("TEXT_BLK", "x" + bracket));
    QCOMPARE(printed("-1" + bracket), token("TEXT_BLK", "-1" + bracket));
    QCOMPARE(printed("1.2.3" + bracket), token("TEXT_BLK", "1.2.3" + bracket));
}

void tst_Lexer::byteBetweenWords_data()
{
    QTest::addColumn<int>("byte");
    for (int byte = 0; byte <= 0xff; ++byte)
        QTest::newRow(qPrintable(QStringLiteral("byte 0x%1").arg(byte, 2, 16, QLatin1Char('0'))))
            << byte;
}

void tst_Lexer::byteBetweenWords()
{
    QFETCH(int, byte);
    const std::string c(1, static_cast<char>(byte));
    for (const char* const word : {"x", "xx", "xxx"})
        QCOMPARE(printed(word + c + "y"), betweenWords(word, byte));
}

void tst_Lexer::byteAlone_data()
{
    byteBetweenWords_data();
}

void tst_Lexer::byteAlone()
{
    QFETCH(int, byte);
    QCOMPARE(printed(std::string(1, static_cast<char>(byte))), alone(byte));
}

void tst_Lexer::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* title, const char* text, const char* expected) {
        QTest::newRow(title) << QByteArray(text) << QByteArray(expected);
    };
    // Words that begin like a token of another kind: the longer match wins.
    const auto words = [](const char* type, std::initializer_list<const char*> texts) {
        for (const char* const text : texts) {
            QTest::newRow(qPrintable(
                QStringLiteral("%1 is a %2").arg(QLatin1String(text), QLatin1String(type))))
                << QByteArray(text)
                << QByteArray::fromStdString(token(type, QByteArray(text).toStdString()));
        }
    };
    words("TIME_INTERVAL", {"2[sec]", "2.5[min]", ".5[hr]", "2.[hr]", ".[sec]", "[sec]", "5[SEC]",
                            "5[MSEC]", "5[HR]", "007[msec]"});
    words("TEXT_BLK", {"5[Sec]",
                       "5[mSec]",
                       "5[s]",
                       "5[]",
                       "1[sec",
                       "1.2.3[sec]",
                       "1[sec]]",
                       "5[sec]x",
                       "5[sec]@",
                       "[sec][sec]",
                       ".av",
                       "x.AV",
                       ".AVE",
                       ".AVx",
                       ".AV@",
                       "..AV",
                       ".A",
                       "Y",
                       "N",
                       "y1",
                       "Nox",
                       "YESS",
                       "no1",
                       "yes@",
                       "yesno",
                       "12a",
                       "12@",
                       "12:30",
                       "2020-01-01",
                       "1-2",
                       "1a",
                       "LOG_DIGITAL_DESCPX",
                       "LOG_DIGITAL_DESC",
                       "log_digital_descp",
                       "/tmp/x",
                       "$HOME",
                       "(a)",
                       "<x>",
                       "[x]",
                       "a/b",
                       "a@b",
                       "a@",
                       "C:/x",
                       "_x",
                       "%d",
                       "12.5",
                       ".5",
                       "5.",
                       "-5",
                       "1e5",
                       "1E-5",
                       "1e",
                       "1.5e3",
                       "-",
                       ".",
                       "x.y[0]"});
    words("STAT_MEM", {".AV", ".C0", ".NR"});
    words("RESPNS", {"yes", "YES", "Yes", "yEs", "YeS", "no", "NO", "No", "nO"});
    words("DIGITS", {"0", "00", "007", "1234567890"});
    words("LOG_DIGITAL_DESC", {"LOG_DIGITAL_DESCP"});
    words("KYWD_DEFAULT", {"@1", "@_", "@.AV", "@A@", "@SCRIBON@", "@SCRIBONX", "@SCAN_LIST_AUX",
                           "@META_DATA_LIST", "@MAX_SCANS2", "@scribon", "@yes", "@5[sec]", "@-"});
    words("FLOAT", {"1e+5", "1E+5", "1.5e+3", ".5e+3", "1.e+5", "12.25E+007"});
    words("DESCRIP", {"\"\"", "''", "\"a'b\"", "'a\"b'", "\"a b\"", "\"# no comment\"",
                      "\"@MODE = x\"", "\"back\\slash\""});
    words("COMMENT", {"#", "# a 'b \"c", "##", "# @MODE x"});

    row("an empty text has no token", "", "");
    row("a comment may begin straight after a word", "abc#def", "TEXT_BLK(abc) COMMENT(#def)");
    row("a quote may begin straight after a word", "abc\"def\"", "TEXT_BLK(abc) DESCRIP(\"def\")");
    row("a word may begin straight after a quote", "\"def\"abc", "DESCRIP(\"def\") TEXT_BLK(abc)");
    row("two quotes side by side", "\"a\"\"b\"", "DESCRIP(\"a\") DESCRIP(\"b\")");
    row("quoted text runs over line ends", "\"a\nb\r\nc\" d",
        "DESCRIP(\"a\\nb\\r\\nc\") WS( ) TEXT_BLK(d)");
    row("a backslash does not escape a quote", "\"a\\\"b", "DESCRIP(\"a\\\") TEXT_BLK(b)");
    row("an unclosed double quote loses the rest", "a \"b\n@MODE x\n", "TEXT_BLK(a) WS( )");
    row("an unclosed apostrophe loses the rest", "a 'b\n@MODE x\n", "TEXT_BLK(a) WS( )");
    row("a run of line feeds is one token", "a\n\n\nb", "TEXT_BLK(a) EOL(\\n\\n\\n) TEXT_BLK(b)");
    row("carriage returns part the line feeds", "a\r\n\r\nb",
        "TEXT_BLK(a) EOL_CR(\\r) EOL(\\n) EOL_CR(\\r) EOL(\\n) TEXT_BLK(b)");
    row("each carriage return is a token", "\r\r", "EOL_CR(\\r) EOL_CR(\\r)");
    row("a blank parts line feeds", "\n \n", "EOL(\\n) WS( ) EOL(\\n)");
    row("a run of white space is one token", "a \t\f b", "TEXT_BLK(a) WS( \\t\f ) TEXT_BLK(b)");
    row("a comment ends before the line feed", "#a\n#b", "COMMENT(#a) EOL(\\n) COMMENT(#b)");
    row("a comment keeps the carriage return", "#a\r\nb", "COMMENT(#a\\r) EOL(\\n) TEXT_BLK(b)");
    row("an equals sign parts words", "a=b", "TEXT_BLK(a) TEXT_BLK(b)");
    row("a comma parts words", "x,y", "TEXT_BLK(x) TEXT_BLK(y)");
    row("dropped characters only", "=,+*;!&?\\^`{|}~", "");
    row("a lone at-sign is dropped", "@", "");
    row("two at-signs are dropped", "@@", "");
    row("an at-sign before a blank is dropped", "@ x", "WS( ) TEXT_BLK(x)");
    row("of two at-signs the second begins the word", "@@MODE", "KYWD_MODE(@MODE)");
    row("an at-sign before a quote is dropped", "@\"x\"", "DESCRIP(\"x\")");
    row("a keyword ends at an equals sign", "@MODE=1", "KYWD_MODE(@MODE) DIGITS(1)");
    row("a keyword ends at a quote", "@MODE\"x\"", "KYWD_MODE(@MODE) DESCRIP(\"x\")");
    row("an at-word ends at a dropped character", "@FOO,bar", "KYWD_DEFAULT(@FOO) TEXT_BLK(bar)");
    row("a word goes on behind an exponent", "1e+5x", "FLOAT(1e+5) TEXT_BLK(x)");
    row("an interval's unit goes on behind an exponent", "1.5e+3[sec]",
        "FLOAT(1.5e+3) TIME_INTERVAL([sec])");
    row("a member behind an exponent", "1e+5.AV", "FLOAT(1e+5) STAT_MEM(.AV)");
    row("a sign before an exponent's number", "-1e+5", "TEXT_BLK(-1e) DIGITS(5)");
    row("a letter before an exponent's number", "x1e+5", "TEXT_BLK(x1e) DIGITS(5)");
    row("no digits before the exponent", ".e+5", "TEXT_BLK(.e) DIGITS(5)");
    row("two points before the exponent", "1.2.3e+5", "TEXT_BLK(1.2.3e) DIGITS(5)");
    row("an exponent without digits and the character behind it are gone", "1e+x y",
        "WS( ) TEXT_BLK(y)");
    row("the line feed behind an exponent without digits is gone", "1e+\nx", "TEXT_BLK(x)");
    row("only one character behind an exponent without digits is gone", "1e+@MODE",
        "TEXT_BLK(MODE)");
    row("an exponent without digits behind a fraction", "1.5e+x y", "WS( ) TEXT_BLK(y)");
    row("an exponent without digits behind a point", ".5E+x y", "WS( ) TEXT_BLK(y)");
    row("an exponent without digits at the end", "a 1e+", "TEXT_BLK(a) WS( )");
    row("two signs in an exponent", "1e++5", "DIGITS(5)");
    row("a keyword's value", "@SCAN_INTERVAL 5[sec] # fast\n",
        "KYWD_SCAN_INTV(@SCAN_INTERVAL) WS( ) TIME_INTERVAL(5[sec]) WS( ) COMMENT(# fast) "
        "EOL(\\n)");
}

void tst_Lexer::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(printed(text.toStdString()), expected.toStdString());
}

void tst_Lexer::channels_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("channel");
    QTest::newRow("blanks are skipped by the parser") << QByteArray(" ") << 6;
    QTest::newRow("tabs are skipped by the parser") << QByteArray("\t") << 6;
    QTest::newRow("form feeds are skipped by the parser") << QByteArray("\f") << 6;
    QTest::newRow("carriage returns are hidden") << QByteArray("\r") << 99;
    QTest::newRow("line ends are seen") << QByteArray("\n") << 0;
    QTest::newRow("comments are seen") << QByteArray("# c") << 0;
    QTest::newRow("words are seen") << QByteArray("x") << 0;
    QTest::newRow("numbers are seen") << QByteArray("1") << 0;
    QTest::newRow("quoted text is seen") << QByteArray("\"q\"") << 0;
    QTest::newRow("intervals are seen") << QByteArray("1[sec]") << 0;
    QTest::newRow("members are seen") << QByteArray(".AV") << 0;
    QTest::newRow("answers are seen") << QByteArray("yes") << 0;
    QTest::newRow("the description word is seen") << QByteArray("LOG_DIGITAL_DESCP") << 0;
    QTest::newRow("exponents are seen") << QByteArray("1e+5") << 0;
    QTest::newRow("keywords are seen") << QByteArray("@MODE") << 0;
    QTest::newRow("other at-words are seen") << QByteArray("@FOO") << 0;
}

void tst_Lexer::channels()
{
    QFETCH(QByteArray, text);
    QFETCH(int, channel);
    const std::vector<LexedToken> tokens = lexText(text.toStdString());
    QCOMPARE(tokens.size(), size_t(1));
    QCOMPARE(tokens[0].channel, channel);
}

// Columns count from 0. In the first line of a text the runtime counts them from -1.
void tst_Lexer::linesAndColumns()
{
    struct Place {
        const char* text;
        int line;
        int column;
    };
    const std::array<Place, 12> expected{{{"@MODE", 1, -1},
                                          {" ", 1, 4},
                                          {"x", 1, 5},
                                          {"\n\n", 1, 6},
                                          {"  ", 3, 0},
                                          {"\"a\nb\"", 3, 2},
                                          {"\t", 4, 2},
                                          {"y", 4, 3},
                                          {"\r", 4, 4},
                                          {"\n", 4, 5},
                                          {"z", 5, 0},
                                          {"w", 5, 2}}};
    const std::vector<LexedToken> tokens = lexText("@MODE x\n\n  \"a\nb\"\ty\r\nz=w");
    QCOMPARE(tokens.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        QCOMPARE(tokens[i].text, std::string(expected[i].text));
        QCOMPARE(tokens[i].line, expected[i].line);
        QCOMPARE(tokens[i].column, expected[i].column);
    }
}

void tst_Lexer::lexerPrintsNothing()
{
    const auto lexBadText = [] { lexText("=,+ @ 1e+x \x80\xff \"unclosed"); };
    QCOMPARE(outputOf(stderr, lexBadText), QByteArray());
    QCOMPARE(outputOf(stdout, lexBadText), QByteArray());
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_Lexer)
#include "tst_lexer.moc"
