// The functions that read and edit single nodes, and the error handlers.

#include <QTest>
#include <array>

#include "captured_output.h"
#include "editor_antlr3.h"
#include "loaded_text.h"
#include "scribonspecs_hooks.h"
#include "scribonspecs_state.h"
#include "scribonspecs_tokens.h"
#include "tree_nodes.h"
#include "tree_printer.h"

namespace {

constexpr char SPEC[] = "@SCRIBON s\n@MODE x # note\n@SCAN_LIST\na .AV b\nc d\n";

// Child indexes in the root of the tree above.
constexpr int MODE_STATEMENT = 2;
constexpr int COMMENT_STATEMENT = 3;
constexpr int SCAN_LIST_STATEMENT = 5;

pANTLR3_BASE_TREE modeKeyword()
{
    return childAt(treeChild(MODE_STATEMENT), 1);
}

pANTLR3_BASE_TREE modeValue()
{
    return childAt(modeKeyword(), 0);
}

pANTLR3_BASE_TREE commentNode()
{
    return childAt(treeChild(COMMENT_STATEMENT), 1);
}

// The row "a .AV b" of the scan list.
pANTLR3_BASE_TREE firstRow()
{
    return childAt(childAt(treeChild(SCAN_LIST_STATEMENT), 1), 4);
}

int typeOf(pANTLR3_BASE_TREE node)
{
    return static_cast<int>(node->getType(node));
}

QByteArray textOf(pANTLR3_BASE_TREE node)
{
    return reinterpret_cast<const char*>(node->getText(node)->chars);
}

QVector<pANTLR3_BASE_TREE> nodesBelow(pANTLR3_BASE_TREE tree)
{
    QVector<pANTLR3_BASE_TREE> nodes;
    for (ANTLR3_UINT32 i = 0; i < tree->getChildCount(tree); ++i) {
        nodes.append(childAt(tree, i));
        nodes += nodesBelow(childAt(tree, i));
    }
    return nodes;
}

QString printed(pANTLR3_BASE_TREE node)
{
    return QString::fromStdString(printTree(node));
}

void update(pANTLR3_BASE_TREE node, const QByteArray& text)
{
    QCOMPARE(update_token(node->getToken(node), text.constData(), static_cast<size_t>(text.size())),
             0);
}

// A recognizer without input, for functions that only use its flags.
class IdleRecognizer {
public:
    IdleRecognizer()
        : m_recognizer(antlr3BaseRecognizerNew(ANTLR3_TYPE_PARSER, ANTLR3_SIZE_HINT, nullptr))
    {
    }
    ~IdleRecognizer() { m_recognizer->free(m_recognizer); }
    IdleRecognizer(const IdleRecognizer&) = delete;
    IdleRecognizer& operator=(const IdleRecognizer&) = delete;

    pANTLR3_BASE_RECOGNIZER get() const { return m_recognizer; }
    void setError() { m_recognizer->state->error = ANTLR3_TRUE; }
    bool hasError() const { return m_recognizer->state->error == ANTLR3_TRUE; }

private:
    pANTLR3_BASE_RECOGNIZER m_recognizer;
};

}  // namespace

class tst_TreeTools : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanupTestCase() { free_resources(); }

    void rootsChildren();
    void nodesOfSpecialTypes_data();
    void nodesOfSpecialTypes();
    void nullNodes();
    void linesAndPositions();
    void newChildComesLast();

    void updatedTokens_data();
    void updatedTokens();
    void updatedTokenShowsInTheTree();
    void updatedTokensOfAllOrigins();
    void updatedCommentEndsItsLine();
    void updateReadsTheGivenLengthOnly();
    void updateWithoutALengthReadsTenCharacters();
    void updateResetsTheStatementInProgress_data();
    void updateResetsTheStatementInProgress();
    void updateOfAFileThatEndsInAMetaDataList();
    void manyUpdates();
    void updatedTextsGoWithTheLoad();
    void newLine();

    void insertedColumn_data();
    void insertedColumn();
    void insertedColumnIsACopyWithABlank();
    void insertedColumnRefreshesIndexes();
    void insertedColumnPrintsAMessageAboutTheEcmList();
    void insertionElsewhereOverwritesASibling();
    void insertionOfForeignNodes();

    void tokenSkipList();
    void errorFlags();
    void errorNodes();
    void systemoutPrintsALine();
    void functionsWithoutEffect();
};

void tst_TreeTools::init()
{
    resetParseState();
    QCOMPARE(loadText(SPEC), 0);
}

void tst_TreeTools::rootsChildren()
{
    QCOMPARE(treeChildCount(), ANTLR3_UINT32(10));
    QCOMPARE(typeOf(treeChild(0)), int(TOKEN_STRING_DECL));
    QCOMPARE(typeOf(treeChild(9)), -1);
    QVERIFY(treeChild(10) == nullptr);
    QVERIFY(treeChild(-1) == nullptr);
}

void tst_TreeTools::nodesOfSpecialTypes_data()
{
    QTest::addColumn<int>("type");
    for (int type = 0; type < TOKEN_TYPE_COUNT; ++type)
        QTest::newRow(typeName(type).c_str()) << type;
}

void tst_TreeTools::nodesOfSpecialTypes()
{
    QFETCH(int, type);
    const NodeMaker maker;
    const pANTLR3_BASE_TREE node = maker.node(type);
    QCOMPARE(isFillerTxt(node), type == 22);
    QCOMPARE(isMisplacedToken2(node), type == 82 || type == 83);
}

void tst_TreeTools::nullNodes()
{
    QVERIFY(!isFillerTxt(nullptr));
    QVERIFY(!isMisplacedToken2(nullptr));
    QCOMPARE(lineNo(nullptr), 0);
    QCOMPARE(linePos(nullptr), 0);
    const QString tree = loadedTree();
    setNewLine(nullptr);
    QVERIFY(insertColInTree(nullptr) == nullptr);
    QVERIFY(insertColInTreeAt(nullptr, 0) == nullptr);
    QCOMPARE(loadedTree(), tree);
}

void tst_TreeTools::linesAndPositions()
{
    QCOMPARE(lineNo(modeKeyword()), 2);
    QCOMPARE(linePos(modeKeyword()), 0);
    QCOMPARE(linePos(modeValue()), 6);
    QCOMPARE(lineNo(firstRow()), 4);
    QCOMPARE(linePos(childAt(firstRow(), 1)), 6);
}

void tst_TreeTools::newChildComesLast()
{
    const NodeMaker maker;
    const pANTLR3_BASE_TREE parent = maker.node(TOKEN_STRING_DECL, "STRING_DECL");
    const pANTLR3_BASE_TREE first =
        createNewChild(maker.adaptor(), TOKEN_EDITOR_TAB1, "EDITOR_TAB1", parent);
    const pANTLR3_BASE_TREE second = createNewChild(maker.adaptor(), TOKEN_EOL, "\n", parent);
    QVERIFY(childAt(parent, 0) == first);
    QVERIFY(childAt(parent, 1) == second);
    QCOMPARE(printed(parent), QStringLiteral("STRING_DECL [ EDITOR_TAB1, EOL(\\n) ]"));
}

void tst_TreeTools::updatedTokens_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("type");
    const auto row = [](const char* title, const QByteArray& text, int type) {
        QTest::newRow(title) << text << type;
    };
    row("another word", "other", TOKEN_TEXT_BLK);
    row("a keyword", "@GROUP", TOKEN_KYWD_GROUP);
    row("an unknown at-word", "@FOO", TOKEN_KYWD_DEFAULT);
    row("digits", "12", TOKEN_DIGITS);
    row("an answer", "yes", TOKEN_RESPNS);
    row("an interval", "5[sec]", TOKEN_TIME_INTERVAL);
    row("quoted text", "\"some text\"", TOKEN_DESCRIP);
    row("a comment", "# note", TOKEN_COMMENT);
    row("a blank", " ", TOKEN_WS);
    row("a number with a signed exponent", "1e+5", TOKEN_FLOAT);
    row("two words take the first one's type", "12 words", TOKEN_DIGITS);
    row("a text without a token leaves the type", "=,;", TOKEN_TEXT_BLK);
    row("an unclosed quote leaves the type", "\"open", TOKEN_TEXT_BLK);
    row("a text of 200 characters", QByteArray(200, '7'), TOKEN_DIGITS);
}

void tst_TreeTools::updatedTokens()
{
    QFETCH(QByteArray, text);
    QFETCH(int, type);
    update(modeValue(), text);
    QCOMPARE(textOf(modeValue()), text);
    QCOMPARE(typeOf(modeValue()), type);
}

void tst_TreeTools::updatedTokenShowsInTheTree()
{
    const QString tree = loadedTree();
    update(modeValue(), "@GROUP");
    QCOMPARE(loadedTree(), QString(tree).replace(QStringLiteral("TEXT_BLK(x)"),
                                                 QStringLiteral("KYWD_GROUP(@GROUP)")));
}

// Tokens of the file, of imaginary nodes, of error nodes and of sections that the load has added.
void tst_TreeTools::updatedTokensOfAllOrigins()
{
    QCOMPARE(loadText("@SCRIBON s\n@ENABLE 5\n@FOO x\n# c\n@FILENAME\n@SCAN_LIST\na\n"), 0);
    QVector<pANTLR3_BASE_TREE> nodes = nodesBelow(getTree());
    nodes.removeLast();  // the end of input, at which the parser stops
    for (const pANTLR3_BASE_TREE node : qAsConst(nodes)) {
        const bool comment = typeOf(node) == TOKEN_COMMENT;
        update(node, "@GROUP");
        QCOMPARE(textOf(node), QByteArray(comment ? "@GROUP\n" : "@GROUP"));
        QCOMPARE(typeOf(node), int(TOKEN_KYWD_GROUP));
    }
}

void tst_TreeTools::updatedCommentEndsItsLine()
{
    update(commentNode(), "# other");
    QCOMPARE(textOf(commentNode()), QByteArray("# other\n"));
    QCOMPARE(typeOf(commentNode()), int(TOKEN_COMMENT));
    update(commentNode(), "word");
    QCOMPARE(textOf(commentNode()), QByteArray("word\n"));
    QCOMPARE(typeOf(commentNode()), int(TOKEN_TEXT_BLK));
    update(commentNode(), "word");
    QCOMPARE(textOf(commentNode()), QByteArray("word"));
}

void tst_TreeTools::updateReadsTheGivenLengthOnly()
{
    update_token(modeValue()->getToken(modeValue()), "@MODEX", 5);
    QCOMPARE(textOf(modeValue()), QByteArray("@MODE"));
    QCOMPARE(typeOf(modeValue()), int(TOKEN_KYWD_MODE));
    update_token(modeValue()->getToken(modeValue()), "12", 50);
    QCOMPARE(textOf(modeValue()), QByteArray("12"));
    QCOMPARE(typeOf(modeValue()), int(TOKEN_DIGITS));
}

void tst_TreeTools::updateWithoutALengthReadsTenCharacters()
{
    update_token(modeValue()->getToken(modeValue()), "@SCAN_LIST_AUX_USER", 0);
    QCOMPARE(textOf(modeValue()), QByteArray("@SCAN_LIST"));
    QCOMPARE(typeOf(modeValue()), int(TOKEN_KYWD_SCAN_LIST));
    update_token(modeValue()->getToken(modeValue()), "", 0);
    QCOMPARE(textOf(modeValue()), QByteArray());
    QCOMPARE(typeOf(modeValue()), int(TOKEN_KYWD_SCAN_LIST));
}

void tst_TreeTools::updateResetsTheStatementInProgress_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* title, const char* text) {
        QTest::newRow(title) << QByteArray(text);
    };
    row("a file that ends in a statement", "@SCRIBON s\n@MODE x\n");
    row("a file that ends in a scan list", "@SCRIBON s\n@SCAN_LIST\na b\n");
    row("a file that ends in a meta data list", "@SCRIBON s\n@META_DATA\na b\n");
    row("a file that ends in an aux user list", "@SCRIBON s\n@SCAN_LIST_AUX_USER\na b\n");
    row("a file that ends in an ECM list", "@SCRIBON s\n@ECM_LIST\n1 b\n");
    row("a file that ends in a stray word of a list", "@SCRIBON s\n@META_DATA\na b\n5");
}

void tst_TreeTools::updateResetsTheStatementInProgress()
{
    QFETCH(QByteArray, text);
    QCOMPARE(loadText(text), 0);
    const QString tree = loadedTree();
    const pANTLR3_BASE_TREE root = getTree();
    const ANTLR3_INT32 tab = ctab;
    const ANTLR3_UINT32 mask = und_mask;
    const pANTLR3_BASE_TREE value = childAt(childAt(treeChild(0), 1), 0);
    update(value, "t");
    QCOMPARE(ecm_init, 0);
    QCOMPARE(ctab, tab);
    QCOMPARE(und_mask, mask);
    QVERIFY(getTree() == root);
    update(value, "s");
    QCOMPARE(loadedTree(), tree);
}

void tst_TreeTools::updateOfAFileThatEndsInAMetaDataList()
{
    QCOMPARE(loadText("@SCRIBON s\n@META_DATA\na b\n"), 0);
    QCOMPARE(ecm_init, int(TOKEN_KYWD_META_DATA));
    const pANTLR3_BASE_TREE value = childAt(childAt(treeChild(0), 1), 0);
    update(value, "t");
    QCOMPARE(ecm_init, 0);
    QCOMPARE(typeOf(treeChild(2)), int(TOKEN_META_DATA_LIST_DECL));
}

void tst_TreeTools::manyUpdates()
{
    for (int i = 0; i < 1000; ++i)
        update(i % 2 == 0 ? modeValue() : commentNode(), "text" + QByteArray::number(i));
    QCOMPARE(textOf(modeValue()), QByteArray("text998"));
    QCOMPARE(treeChildCount(), ANTLR3_UINT32(10));
}

void tst_TreeTools::updatedTextsGoWithTheLoad()
{
    update(modeValue(), "other");
    QCOMPARE(loadText(SPEC), 0);
    QCOMPARE(textOf(modeValue()), QByteArray("x"));
}

void tst_TreeTools::newLine()
{
    setNewLine(modeValue());
    QCOMPARE(textOf(modeValue()), QByteArray("\n"));
    QCOMPARE(typeOf(modeValue()), getEOL());
    QCOMPARE(getEOL(), 18);
}

void tst_TreeTools::insertedColumn_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("row");
    QTest::newRow("behind the first child")
        << 0 << QStringLiteral("TEXT_BLK(a) [ STAT_MEM(.AV), STAT_MEM( ), TEXT_BLK(b) ]");
    QTest::newRow("behind the last child")
        << 1 << QStringLiteral("TEXT_BLK(a) [ STAT_MEM(.AV), TEXT_BLK(b), TEXT_BLK( ) ]");
}

void tst_TreeTools::insertedColumn()
{
    QFETCH(int, index);
    QFETCH(QString, row);
    const auto place = static_cast<ANTLR3_UINT32>(index);
    const pANTLR3_BASE_TREE inserted = insertColInTree(childAt(firstRow(), place));
    QCOMPARE(printed(firstRow()), row);
    QVERIFY(inserted == childAt(firstRow(), place + 1));

    QCOMPARE(loadText(SPEC), 0);
    const pANTLR3_BASE_TREE insertedAt = insertColInTreeAt(childAt(firstRow(), place), place);
    QCOMPARE(printed(firstRow()), row);
    QVERIFY(insertedAt == childAt(firstRow(), place + 1));
}

void tst_TreeTools::insertedColumnIsACopyWithABlank()
{
    const pANTLR3_BASE_TREE original = childAt(firstRow(), 0);
    const pANTLR3_BASE_TREE inserted = insertColInTree(original);
    QVERIFY(inserted->getToken(inserted) != original->getToken(original));
    QCOMPARE(textOf(inserted), QByteArray(" "));
    QCOMPARE(typeOf(inserted), typeOf(original));
    QCOMPARE(lineNo(inserted), lineNo(original));
    QCOMPARE(textOf(original), QByteArray(".AV"));
    update(inserted, "word");
    QCOMPARE(textOf(original), QByteArray(".AV"));
}

void tst_TreeTools::insertedColumnRefreshesIndexes()
{
    insertColInTree(childAt(firstRow(), 0));
    for (ANTLR3_UINT32 i = 0; i < 3; ++i) {
        const pANTLR3_BASE_TREE child = childAt(firstRow(), i);
        QCOMPARE(child->getChildIndex(child), static_cast<ANTLR3_INT32>(i));
    }
    const pANTLR3_BASE_TREE statement = treeChild(MODE_STATEMENT);
    const pANTLR3_BASE_TREE inserted = insertColInTree(statement);
    QVERIFY(treeChild(MODE_STATEMENT + 1) == inserted);
    QCOMPARE(treeChildCount(), ANTLR3_UINT32(11));
    QCOMPARE(typeOf(treeChild(10)), -1);
}

void tst_TreeTools::insertedColumnPrintsAMessageAboutTheEcmList()
{
    const auto insert = [] { insertColInTree(childAt(firstRow(), 0)); };
    const auto insertNull = [] { insertColInTree(nullptr); };
    const auto insertAt = [] { insertColInTreeAt(childAt(firstRow(), 0), 0); };
    QCOMPARE(outputOf(stdout, insert), QByteArray("found ecm LIst \n"));
    QCOMPARE(outputOf(stdout, insertNull), QByteArray("found ecm LIst \n"));
    QCOMPARE(outputOf(stdout, insertAt), QByteArray());
    QCOMPARE(loadText("@MODE x\n"), -2);
    QCOMPARE(outputOf(stdout, insertNull), QByteArray());
    free_resources();
    QCOMPARE(outputOf(stdout, insertNull), QByteArray());
}

// Siblings behind the item move up, so another location overwrites one and doubles another.
void tst_TreeTools::insertionElsewhereOverwritesASibling()
{
    const pANTLR3_BASE_TREE inserted = insertColInTreeAt(childAt(firstRow(), 0), 1);
    QCOMPARE(printed(firstRow()),
             QStringLiteral("TEXT_BLK(a) [ STAT_MEM(.AV), TEXT_BLK(b), STAT_MEM( ) ]"));
    QVERIFY(childAt(firstRow(), 2) == inserted);
}

void tst_TreeTools::insertionOfForeignNodes()
{
    const NodeMaker maker;
    QVERIFY(insertColInTree(maker.node(TOKEN_TEXT_BLK)) == nullptr);
    QVERIFY(insertColInTreeAt(maker.node(TOKEN_TEXT_BLK), 0) == nullptr);
    QVERIFY(insertColInTree(getTree()) == nullptr);
}

void tst_TreeTools::tokenSkipList()
{
    create_token_skip_list();
    constexpr std::array<int, META_TOKEN_COUNT> TYPES{{7,  10, 12, 13, 14, 15, 16, 17, 20,
                                                       26, 66, 69, 68, 70, 72, 74, 75, 76,
                                                       77, 79, 82, 83, 86, 8,  22, -1}};
    for (size_t i = 0; i < TYPES.size(); ++i) {
        QCOMPARE(MetaTokenNamesTypes[i], TYPES[i]);
        if (TYPES[i] >= 0)
            QCOMPARE(std::string(MetaTokenNames[i]), typeName(TYPES[i]));
    }
    QCOMPARE(std::string(MetaTokenNames[META_TOKEN_COUNT - 1]), std::string("<EOF>"));
}

void tst_TreeTools::errorFlags()
{
    IdleRecognizer recognizer;
    recognizer.setError();
    LAntlrErrorHandler(recognizer.get());
    QVERIFY(recognizer.hasError());
    AntlrErrorHandler(recognizer.get());
    QVERIFY(!recognizer.hasError());
    recognizer.setError();
    QVERIFY(mismatchIsUnwantedTokenNew(recognizer.get()));
    QVERIFY(!recognizer.hasError());
}

void tst_TreeTools::errorNodes()
{
    const NodeMaker maker;
    const pANTLR3_BASE_TREE start = maker.node(TOKEN_TEXT_BLK, "start");
    const pANTLR3_BASE_TREE offending = maker.node(TOKEN_DIGITS, "offending");
    const auto errorNode = [&maker, start](pANTLR3_EXCEPTION exception) {
        return static_cast<pANTLR3_BASE_TREE>(
            AntlrErrorNode(maker.adaptor(), nullptr, start->getToken(start), nullptr, exception));
    };
    QCOMPARE(printed(errorNode(nullptr)), QStringLiteral("ERROR(start)"));

    const std::unique_ptr<ANTLR3_EXCEPTION, void (*)(pANTLR3_EXCEPTION)> exception(
        antlr3ExceptionNew(ANTLR3_RECOGNITION_EXCEPTION, nullptr, nullptr, ANTLR3_FALSE),
        [](pANTLR3_EXCEPTION e) { e->freeEx(e); });
    exception->token = offending->getToken(offending);
    QCOMPARE(printed(errorNode(exception.get())), QStringLiteral("ERROR(offending)"));
}

void tst_TreeTools::systemoutPrintsALine()
{
    QCOMPARE(outputOf(stdout, [] { systemout(7, "seven"); }), QByteArray("7 seven\n"));
    QCOMPARE(outputOf(stdout, [] { systemout(-1, ""); }), QByteArray("-1 \n"));
}

void tst_TreeTools::functionsWithoutEffect()
{
    const QString tree = loadedTree();
    const auto callAll = [] {
        skip();
        displayRecognitionErrorNew(nullptr, nullptr);
        log_error_parse();
    };
    for (std::FILE* const stream : {stdout, stderr})
        QCOMPARE(outputOf(stream, callAll), QByteArray());
    QCOMPARE(loadedTree(), tree);
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_TreeTools)
#include "tst_tree_tools.moc"
