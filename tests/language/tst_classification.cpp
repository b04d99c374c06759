// Classification of texts: the editor type, and whether the text is a required keyword.

#include <QTest>
#include <array>
#include <memory>

#include "editor_antlr3.h"
#include "golden_keywords.h"
#include "loaded_text.h"
#include "tree_nodes.h"

namespace {

constexpr int UNKNOWN_KEYWORD = 29;

struct TypeRow {
    int type;
    int editor;
};

// clang-format off
// All types that are neither keywords nor have TEXT_BLOCK as their editor.
constexpr std::array<TypeRow, 12> OTHER_EDITORS{{
    {6, COMMENT_LINE},
    {13, EDIT_TAB1}, {14, EDIT_TAB2}, {15, EDIT_TAB3}, {16, EDIT_TAB4}, {17, EDIT_TAB5},
    {18, EOL_FLAG}, {22, FILLER_DATA}, {UNKNOWN_KEYWORD, DESCRIPTION_EDITOR},
    {66, LOG_DIG_DESCRIPTION}, {67, LOG_DIG_DESCRIPTION},
    {78, STAT_MEM_EDITOR},
}};
// clang-format on

int editorOf(int type)
{
    for (const TypeRow& row : OTHER_EDITORS) {
        if (row.type == type)
            return row.editor;
    }
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (keyword.token == type)
            return keyword.editor;
    }
    return TEXT_BLOCK;
}

struct Classified {
    int editor;
    int type;
};

// Classifies a text in a buffer of exactly its size, so that AddressSanitizer finds reads behind
// it.
Classified classify(const QByteArray& text)
{
    const auto size = static_cast<size_t>(text.size());
    const auto buffer = std::make_unique<char[]>(size);
    std::copy_n(text.constData(), size, buffer.get());
    int type = -5;
    const int editor = appGrammerTypeToEditorType(buffer.get(), text.size(), &type);
    return {editor, type};
}

bool isRequired(const QByteArray& text)
{
    return appGrammerRequired(text.constData(), static_cast<size_t>(text.size()));
}

}  // namespace

class tst_Classification : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { free_resources(); }

    // Must run first, before any load of this process.
    void beforeTheFirstLoad();
    void afterALoadOfNothing();
    void afterARefusedLoad();
    void doesNotTouchTheLoadedTree();

    void nodes_data();
    void nodes();
    void nullNode();
    void keywords_data();
    void keywords();
    void texts_data();
    void texts();
    void lengths_data();
    void lengths();
    void onlyTheGivenLengthCounts();
    void requiredTexts_data();
    void requiredTexts();
    void requiredWithLengthZero();
    void nullIsNotRequired();
    void minAndMaxType();
};

void tst_Classification::beforeTheFirstLoad()
{
    QVERIFY(getTree() == nullptr);
    QCOMPARE(classify("@MODE").editor, int(STRING_VAR_EDITOR));
    QVERIFY(isRequired("@MODE"));
    QVERIFY(getTree() == nullptr);
}

void tst_Classification::afterALoadOfNothing()
{
    QCOMPARE(read_file("/nowhere/at/all"), -1);
    QCOMPARE(classify("@MODE").editor, int(STRING_VAR_EDITOR));
    QVERIFY(isRequired("@MODE"));
}

void tst_Classification::afterARefusedLoad()
{
    QCOMPARE(loadText("@MODE x\n"), -2);
    const QString tree = loadedTree();
    QCOMPARE(classify("@MODE").editor, int(STRING_VAR_EDITOR));
    QVERIFY(isRequired("@MODE"));
    QCOMPARE(loadedTree(), tree);
}

void tst_Classification::doesNotTouchTheLoadedTree()
{
    QCOMPARE(loadText("@SCRIBON s\n@SCAN_LIST\na .AV b # c\n"), 0);
    const QString tree = loadedTree();
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        classify(keyword.spelling);
    QCOMPARE(loadedTree(), tree);
    QCOMPARE(loadText("@SCRIBON s\n@SCAN_LIST\na .AV b # c\n"), 0);
    QCOMPARE(loadedTree(), tree);
}

void tst_Classification::nodes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("editor");
    for (int type = 0; type <= highestType(); ++type)
        QTest::addRow("type %d", type) << type << editorOf(type);
    QTest::newRow("the end of input") << -1 << int(TEXT_BLOCK);
    QTest::newRow("a type beyond the highest") << highestType() + 1 << int(TEXT_BLOCK);
}

void tst_Classification::nodes()
{
    QFETCH(int, type);
    QFETCH(int, editor);
    const NodeMaker maker;
    QCOMPARE(appGrammerTypeToEditorTypeOrig(maker.node(type)), editor);
}

void tst_Classification::nullNode()
{
    QCOMPARE(appGrammerTypeToEditorTypeOrig(nullptr), int(TEXT_BLOCK));
}

void tst_Classification::keywords_data()
{
    QTest::addColumn<QByteArray>("spelling");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("required");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QTest::newRow(keyword.spelling)
            << QByteArray(keyword.spelling) << keyword.token << keyword.is(MUST_STAY);
    QTest::newRow("an unknown keyword") << QByteArray("@FOO") << UNKNOWN_KEYWORD << false;
}

void tst_Classification::keywords()
{
    QFETCH(QByteArray, spelling);
    QFETCH(int, type);
    QFETCH(bool, required);
    for (const QByteArray& behind :
         {QByteArray(), QByteArray(" x"), QByteArray("\n"), QByteArray(200, ' ')}) {
        const Classified result = classify(spelling + behind);
        QCOMPARE(result.type, type);
        QCOMPARE(result.editor, editorOf(type));
        QCOMPARE(isRequired(spelling + behind), required);
    }
}

void tst_Classification::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("editor");
    const auto row = [](const char* title, const QByteArray& text, int type, int editor) {
        QTest::newRow(title) << text << type << editor;
    };
    row("no text", "", 0, TEXT_BLOCK);
    row("dropped characters alone", "=,;", 0, TEXT_BLOCK);
    row("zero bytes alone", QByteArray(5, '\0'), 0, TEXT_BLOCK);
    row("an unclosed quote", "\"open", 0, TEXT_BLOCK);
    row("a keyword", "@MODE", 50, STRING_VAR_EDITOR);
    row("a keyword behind a blank is white space", " @MODE", 85, TEXT_BLOCK);
    row("a keyword behind a carriage return", "\r@MODE", 19, TEXT_BLOCK);
    row("a keyword behind a line feed", "\n@MODE", 18, EOL_FLAG);
    row("a keyword behind a dropped character", "=@MODE", 50, STRING_VAR_EDITOR);
    row("a keyword behind a zero byte", QByteArray("\0@MODE", 6), 50, STRING_VAR_EDITOR);
    row("a keyword with a letter too many", "@MODES", 29, DESCRIPTION_EDITOR);
    row("a keyword in lower case", "@mode", 29, DESCRIPTION_EDITOR);
    row("one blank", " ", 85, TEXT_BLOCK);
    row("a comment", "# note", 6, COMMENT_LINE);
    row("a line feed", "\n", 18, EOL_FLAG);
    row("a word", "my_var", 80, TEXT_BLOCK);
    row("the filler's name is a word", "FILLER_TXT", 80, TEXT_BLOCK);
    row("digits", "12", 11, TEXT_BLOCK);
    row("an answer", "yes", 73, TEXT_BLOCK);
    row("an interval", "5[sec]", 81, TEXT_BLOCK);
    row("quoted text", "\"a\"", 9, TEXT_BLOCK);
    row("a number with a signed exponent", "1e+5", 23, TEXT_BLOCK);
    row("a member", ".AV", 78, STAT_MEM_EDITOR);
    row("a member with a letter too many", ".AVE", 80, TEXT_BLOCK);
    row("the description word", "LOG_DIGITAL_DESCP", 67, LOG_DIG_DESCRIPTION);
    row("a text beyond ASCII", "\xc3\xa4", 0, TEXT_BLOCK);
    row("the mark of an unknown statement", "UNKNOWN_KEYWORD", 80, TEXT_BLOCK);
}

void tst_Classification::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(int, type);
    QFETCH(int, editor);
    const Classified result = classify(text);
    QCOMPARE(result.type, type);
    QCOMPARE(result.editor, editor);
}

void tst_Classification::lengths_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 2, 125, 126, 127, 128, 129, 130, 200, 256, 257, 100000})
        QTest::newRow(qPrintable(QStringLiteral("%1 characters").arg(length))) << length;
}

// Each text below is one token of its full length, so that the last characters matter, too.
void tst_Classification::lengths()
{
    QFETCH(int, length);
    QCOMPARE(classify(QByteArray(length, '7')).type, 11);
    QCOMPARE(classify(QByteArray(length - 1, '7') + 'x').type, 80);
    QCOMPARE(classify('"' + QByteArray(length - 1, 'x')).type, 0);
    if (length > 1)
        QCOMPARE(classify('"' + QByteArray(length - 2, 'x') + '"').type, 9);
    if (length > 5) {
        QCOMPARE(classify("@MODE" + QByteArray(length - 5, ' ')).editor, int(STRING_VAR_EDITOR));
        QVERIFY(isRequired("@MODE" + QByteArray(length - 5, ' ')));
        QCOMPARE(classify("@MODE" + QByteArray(length - 5, 'x')).type, 29);
        QVERIFY(!isRequired("@MODE" + QByteArray(length - 5, 'x')));
    }
}

void tst_Classification::onlyTheGivenLengthCounts()
{
    int type = 0;
    QCOMPARE(appGrammerTypeToEditorType("@MODEX", 5, &type), int(STRING_VAR_EDITOR));
    QCOMPARE(type, 50);
    QCOMPARE(appGrammerTypeToEditorType("@MODEX", 6, &type), int(DESCRIPTION_EDITOR));
    QCOMPARE(type, 29);
    QCOMPARE(appGrammerTypeToEditorType("@MODE", 0, &type), int(TEXT_BLOCK));
    QCOMPARE(type, 0);
    QVERIFY(appGrammerRequired("@SCAN_LIST_AUX_USER", 10));
    QVERIFY(!appGrammerRequired("@SCAN_LIST_AUX_USER", 19));
}

void tst_Classification::requiredTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("required");
    QTest::newRow("a required keyword") << QByteArray("@SCAN_LIST") << true;
    QTest::newRow("a keyword that may go") << QByteArray("@REG_NAME") << false;
    QTest::newRow("a required keyword behind a blank") << QByteArray(" @MODE") << false;
    QTest::newRow("a required keyword behind a dropped character") << QByteArray("=@MODE") << true;
    QTest::newRow("a required keyword behind a comment") << QByteArray("# @MODE") << false;
    QTest::newRow("a word") << QByteArray("MODE") << false;
    QTest::newRow("one character") << QByteArray("x") << false;
    QTest::newRow("dropped characters alone") << QByteArray("=") << false;
}

void tst_Classification::requiredTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, required);
    QCOMPARE(isRequired(text), required);
}

// If the length is 0, ten characters are used.
void tst_Classification::requiredWithLengthZero()
{
    QVERIFY(appGrammerRequired("@MODE", 0));
    QVERIFY(appGrammerRequired("@SCAN_LIST", 0));
    QVERIFY(appGrammerRequired("@SCAN_LIST_AUX_USER", 0));
    QVERIFY(!appGrammerRequired("@SCAN_INTERVAL", 0));
    QVERIFY(!appGrammerRequired("", 0));
}

void tst_Classification::nullIsNotRequired()
{
    QVERIFY(!appGrammerRequired(nullptr, 0));
    QVERIFY(!appGrammerRequired(nullptr, 5));
}

void tst_Classification::minAndMaxType()
{
    QCOMPARE(appGrammerMinType(), 29);
    QCOMPARE(appGrammerMaxType(), highestType());
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_Classification)
#include "tst_classification.moc"
