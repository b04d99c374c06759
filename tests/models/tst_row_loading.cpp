// From the syntax tree to rows: complete texts, and trees that no text produces.

#include <QTest>

#include "model_text.h"
#include "samples.h"
#include "scribonspecs_tokens.h"
#include "tree_nodes.h"

Q_DECLARE_METATYPE(Sample)

namespace {

// A tree made by hand: a root with statements.
class HandMadeTree {
public:
    HandMadeTree() : m_root(nilNode()) {}

    pANTLR3_BASE_TREE root() const { return m_root; }
    pANTLR3_BASE_TREE add(int type, const char* text = "text") { return add(m_root, type, text); }
    pANTLR3_BASE_TREE add(pANTLR3_BASE_TREE parent, int type, const char* text = "text")
    {
        return createNewChild(m_nodes.adaptor(), static_cast<ANTLR3_UINT32>(type), text, parent);
    }

    // Appends a section: its keyword, then the items on the same level.
    pANTLR3_BASE_TREE addSection(int tab, const char* keyword)
    {
        const pANTLR3_BASE_TREE section = add(TOKEN_SCAN_LIST_DECL);
        add(section, tab, "marker");
        add(section, TOKEN_KYWD_SCAN_LIST, keyword);
        for (int column = 1; column < (tab == EDIT_TAB2 ? 4 : 3); ++column)
            add(section, TOKEN_FILLER_TXT, "FILLER_TXT");
        return section;
    }

private:
    pANTLR3_BASE_TREE nilNode() const
    {
        return static_cast<pANTLR3_BASE_TREE>(m_nodes.adaptor()->nilNode(m_nodes.adaptor()));
    }

    NodeMaker m_nodes;
    pANTLR3_BASE_TREE m_root;
};

struct Item {
    int type;
    const char* text;
};
using Items = QVector<Item>;

const Item WORD{TOKEN_TEXT_BLK, "word"};
const Item OTHER{TOKEN_TEXT_BLK, "other"};
const Item NEXT{TOKEN_TEXT_BLK, "next"};
const Item FILLER{TOKEN_FILLER_TXT, "FILLER_TXT"};
const Item NOTE{TOKEN_COMMENT, "# note"};
const Item MEMBER{TOKEN_STAT_MEM, ".AV"};
const Item DIGITAL{TOKEN_LOG_DIGITAL_DESC, "LOG_DIGITAL_DESCP"};
const Item LABEL{TOKEN_LABEL_DECL, "label"};
const Item KEYWORD{TOKEN_KYWD_MODE, "@MODE"};
const Item LINE_END{TOKEN_EOL, "\n"};
const Item BROKEN{TOKEN_INVALID, "broken"};

}  // namespace

Q_DECLARE_METATYPE(Items)

class tst_RowLoading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { free_resources(); }

    void keywords_data() { addRows("rows_keywords.txt"); }
    void keywords() { checkRow(EDIT_TAB1); }
    void scanList_data() { addRows("rows_scan_list.txt"); }
    void scanList() { checkRow(EDIT_TAB2); }
    void metaDataList_data() { addRows("rows_meta_data.txt"); }
    void metaDataList() { checkRow(EDIT_TAB3); }
    void scanListAuxUser_data() { addRows("rows_aux_user.txt"); }
    void scanListAuxUser() { checkRow(EDIT_TAB4); }
    void ecmList_data() { addRows("rows_ecm_list.txt"); }
    void ecmList() { checkRow(EDIT_TAB5); }

    void noTree();
    void rootWithoutChildren();
    void statementWithoutChildren();
    void statementWithAnEmptyChildVector();
    void statementOfNoTab();
    void statementOfAnotherTab();
    void statementWithTheTabMarkerOnly_data();
    void statementWithTheTabMarkerOnly();
    void keywordRowHasThreeCells();
    void levels();
    void blanksAreTrimmedDownToTheThirdLevel();
    void whiteSpaceIsTrimmedToAnEmptyText();
    void lineEndsAreNotCells();
    void listItems_data();
    void listItems();
    void bytesOfTheFile_data();
    void bytesOfTheFile();
    void rowsAreKeptAfterTheTreeIsFreed();
    void manyRowsStayInOrder();

private:
    static void addRows(const char* fileName);
    static void checkRow(int tab);
};

void tst_RowLoading::addRows(const char* fileName)
{
    QTest::addColumn<Sample>("sample");
    const QString path = QStringLiteral(SCRIBON_SAMPLES_DIR "/%1").arg(QLatin1String(fileName));
    for (const Sample& sample : readSamples(path))
        QTest::newRow(qPrintable(sample.title)) << sample;
}

void tst_RowLoading::checkRow(int tab)
{
    QFETCH(Sample, sample);
    const auto model = modelOfText(sample.text, tab);
    const QStringList rows = rowLines(*model);
    const QString message =
        QStringLiteral("the text\n%1\nhas the rows (- wanted, + got)\n%2")
            .arg(QString::fromLatin1(sample.text), treeDifference(sample.tree, rows));
    QVERIFY2(rows == sample.tree, qPrintable(message));
    QVERIFY(!model->isModified());
    QVERIFY(!model->isDirty());
    for (int row = 0; row < model->rowCount(); ++row)
        QVERIFY(!model->errorCode(model->index(row, 1)).isValid());
}

void tst_RowLoading::noTree()
{
    const auto model = modelOfTree(nullptr, EDIT_TAB2);
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), 4);
}

void tst_RowLoading::rootWithoutChildren()
{
    const HandMadeTree tree;
    QVERIFY(tree.root()->children == nullptr);
    QCOMPARE(modelOfTree(tree.root(), EDIT_TAB1)->rowCount(), 0);
}

void tst_RowLoading::statementWithoutChildren()
{
    HandMadeTree tree;
    tree.add(TOKEN_INVALID, "lost");
    QCOMPARE(modelOfTree(tree.root(), EDIT_TAB1)->rowCount(), 0);
}

void tst_RowLoading::statementWithAnEmptyChildVector()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_STRING_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB1);
    statement->deleteChild(statement, 0);
    QVERIFY(statement->children != nullptr);
    QCOMPARE(statement->getChildCount(statement), 0U);
    QCOMPARE(modelOfTree(tree.root(), EDIT_TAB1)->rowCount(), 0);
}

void tst_RowLoading::statementOfNoTab()
{
    HandMadeTree tree;
    tree.add(tree.add(TOKEN_STRING_DECL), TOKEN_KYWD_MODE, "@MODE");
    for (int tab = EDIT_TAB1; tab <= EDIT_TAB5; ++tab)
        QCOMPARE(modelOfTree(tree.root(), tab)->rowCount(), 0);
}

void tst_RowLoading::statementOfAnotherTab()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_STRING_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB1);
    tree.add(statement, TOKEN_KYWD_MODE, "@MODE");
    QCOMPARE(modelOfTree(tree.root(), EDIT_TAB1)->rowCount(), 1);
    QCOMPARE(modelOfTree(tree.root(), EDIT_TAB3)->rowCount(), 0);
}

void tst_RowLoading::statementWithTheTabMarkerOnly_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("Keywords") << 13 << lines({"<unset> | <unset> | <unset>"});
    QTest::newRow("Scan List") << 14 << lines({"<unset> | <unset> | <unset> | <unset>"});
    QTest::newRow("ECM List") << 17 << lines({"<unset> | <unset> | <unset>"});
}

void tst_RowLoading::statementWithTheTabMarkerOnly()
{
    QFETCH(int, tab);
    HandMadeTree tree;
    tree.add(tree.add(TOKEN_STRING_DECL), tab);
    QTEST(rowLines(*modelOfTree(tree.root(), tab)), "rows");
}

void tst_RowLoading::keywordRowHasThreeCells()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_STRING_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB1);
    for (const char* text : {"one", "two", "three", "four"})
        tree.add(statement, TOKEN_TEXT_BLK, text);
    QCOMPARE(rowLines(*modelOfTree(tree.root(), EDIT_TAB1)), lines({"one | two | three"}));
}

// Four levels are read, a node before its children; nodes of the fifth level are ignored.
void tst_RowLoading::levels()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_SCAN_LIST_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB3);
    const pANTLR3_BASE_TREE first = tree.add(statement, TOKEN_KYWD_META_DATA, "first");
    const pANTLR3_BASE_TREE second = tree.add(first, TOKEN_TEXT_BLK, "second");
    const pANTLR3_BASE_TREE third = tree.add(second, TOKEN_TEXT_BLK, "third");
    const pANTLR3_BASE_TREE fourth = tree.add(third, TOKEN_TEXT_BLK, "fourth");
    tree.add(fourth, TOKEN_TEXT_BLK, "fifth");
    tree.add(second, TOKEN_TEXT_BLK, "third again");
    tree.add(statement, TOKEN_TEXT_BLK, "first again");
    QCOMPARE(rowLines(*modelOfTree(tree.root(), EDIT_TAB3)),
             lines({"first | second | third", "<unset> | fourth | third again",
                    "<unset> | first again | <unset>"}));
}

void tst_RowLoading::blanksAreTrimmedDownToTheThirdLevel()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_SCAN_LIST_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB2);
    const pANTLR3_BASE_TREE first = tree.add(statement, TOKEN_KYWD_SCAN_LIST, " \tfirst ");
    const pANTLR3_BASE_TREE second = tree.add(first, TOKEN_TEXT_BLK, " second\r");
    const pANTLR3_BASE_TREE third = tree.add(second, TOKEN_STAT_MEM, " third ");
    tree.add(third, TOKEN_TEXT_BLK, " fourth ");
    QCOMPARE(rowLines(*modelOfTree(tree.root(), EDIT_TAB2)),
             lines({"first | second | third | \\sfourth\\s"}));
}

// Such a cell can be edited, unlike one that was never assigned.
void tst_RowLoading::whiteSpaceIsTrimmedToAnEmptyText()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_STRING_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB1);
    tree.add(statement, TOKEN_TEXT_BLK, " \t ");
    tree.add(statement, TOKEN_TEXT_BLK, "");
    QCOMPARE(rowLines(*modelOfTree(tree.root(), EDIT_TAB1)),
             lines({"<empty> | <empty> | <unset>"}));
}

// The children of a line end are read nevertheless.
void tst_RowLoading::lineEndsAreNotCells()
{
    HandMadeTree tree;
    const pANTLR3_BASE_TREE statement = tree.add(TOKEN_LABEL_DECL);
    tree.add(statement, TOKEN_EDITOR_TAB1);
    tree.add(statement, TOKEN_EOL, "\n\n");
    tree.add(statement, TOKEN_KYWD_ENABLE, "@ENABLE");
    tree.add(tree.add(statement, TOKEN_EOL, "\nx"), TOKEN_TEXT_BLK, "on");
    QCOMPARE(rowLines(*modelOfTree(tree.root(), EDIT_TAB1)), lines({"@ENABLE | on | <unset>"}));
}

void tst_RowLoading::listItems_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<Items>("items");
    QTest::addColumn<QStringList>("rows");

    const auto scan = [](const char* name) -> QTestData& {
        return QTest::newRow(qPrintable(QStringLiteral("Scan List, ") + QLatin1String(name))) << 14;
    };
    scan("word, filler, word") << Items{WORD, FILLER, OTHER}
                               << lines({"<unset> | word | FILLER_TXT | other"});
    scan("word, word: the second is the channel")
        << Items{WORD, OTHER, NEXT}
        << lines({"<unset> | word | <unset> | other", "<unset> | next | <unset> | <unset>"});
    scan("word, member, word") << Items{WORD, MEMBER, OTHER, NEXT}
                               << lines({"<unset> | word | .AV | other",
                                         "<unset> | next | <unset> | <unset>"});
    scan("word, digital description, filler")
        << Items{WORD, DIGITAL, FILLER}
        << lines({"<unset> | word | LOG_DIGITAL_DESCP | FILLER_TXT"});
    scan("word, label, filler") << Items{WORD, LABEL, FILLER}
                                << lines({"<unset> | word | label | FILLER_TXT"});
    scan("filler, comment, filler")
        << Items{FILLER, NOTE, FILLER} << lines({"<unset> | # note | <unset> | FILLER_TXT"});
    scan("comment, filler, filler")
        << Items{NOTE, FILLER, FILLER} << lines({"<unset> | # note | FILLER_TXT | FILLER_TXT"});
    scan("a comment in the last slot lands over the variable")
        << Items{WORD, FILLER, NOTE} << lines({"<unset> | # note | FILLER_TXT | <unset>"});
    scan("a keyword uses up its slot")
        << Items{WORD, KEYWORD, OTHER} << lines({"<unset> | word | <unset> | other"});
    scan("a member in the first slot is dropped")
        << Items{MEMBER, FILLER, OTHER} << lines({"<unset> | <unset> | FILLER_TXT | other"});
    scan("a member in the last slot is dropped")
        << Items{WORD, FILLER, MEMBER} << lines({"<unset> | word | FILLER_TXT | <unset>"});
    scan("an error node is plain text")
        << Items{BROKEN, FILLER, BROKEN} << lines({"<unset> | broken | FILLER_TXT | broken"});
    scan("line ends take no slot") << Items{WORD, LINE_END, FILLER, LINE_END, OTHER}
                                   << lines({"<unset> | word | FILLER_TXT | other"});

    const auto meta = [](const char* name) -> QTestData& {
        return QTest::newRow(qPrintable(QStringLiteral("Meta Data List, ") + QLatin1String(name)))
               << 15;
    };
    meta("two words and the next") << Items{WORD, OTHER, NEXT}
                                   << lines({"<unset> | word | other", "<unset> | next | <unset>"});
    meta("word, member") << Items{WORD, MEMBER} << lines({"<unset> | word | .AV"});
    meta("word, filler") << Items{WORD, FILLER} << lines({"<unset> | word | FILLER_TXT"});
    meta("filler, comment") << Items{FILLER, NOTE} << lines({"<unset> | # note | <unset>"});
    meta("a keyword uses up its slot")
        << Items{KEYWORD, WORD, OTHER}
        << lines({"<unset> | <unset> | word", "<unset> | other | <unset>"});

    QTest::newRow("Scan List Aux User, two words")
        << 16 << Items{WORD, OTHER} << lines({"<unset> | word | other"});
    QTest::newRow("ECM List, two words")
        << 17 << Items{WORD, OTHER} << lines({"<unset> | word | other"});
}

void tst_RowLoading::listItems()
{
    QFETCH(int, tab);
    QFETCH(Items, items);
    HandMadeTree tree;
    const pANTLR3_BASE_TREE section = tree.addSection(tab, "@LIST");
    for (const Item& item : qAsConst(items))
        tree.add(section, item.type, item.text);

    QStringList rows = rowLines(*modelOfTree(tree.root(), tab));
    const QString keywordRow = rows.takeFirst();
    QVERIFY(keywordRow.startsWith(QStringLiteral("@LIST | FILLER_TXT | FILLER_TXT")));
    QTEST(rows, "rows");
}

void tst_RowLoading::bytesOfTheFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("letters beyond ASCII") << QByteArray("'\xc3\xa4\xc3\xb6 \xe2\x82\xac'");
    QTest::newRow("zero bytes") << QByteArray("'a\0b\0'", 6);
    QTest::newRow("all signs") << QByteArray("'!#$%&()*+,-./:;<=>?@[\\]^_`{|}~'");
    QTest::newRow("tabs and line ends") << QByteArray("'a\tb\n\nc\r\nd'");
}

// The bytes are unchanged after loading and saving.
void tst_RowLoading::bytesOfTheFile()
{
    QFETCH(QByteArray, text);
    const auto model = modelOfText("@SCRIBON x\n@DESCRIPTION " + text + "\n", EDIT_TAB1);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(1, 1).data().toString().toLocal8Bit(), text);
    QCOMPARE(dumpOf(model.get()), QByteArray("@SCRIBON\nx\n\n@DESCRIPTION\n" + text + "\n"));
}

void tst_RowLoading::rowsAreKeptAfterTheTreeIsFreed()
{
    const auto model = modelOfText("@SCRIBON x\n@MODE m\n", EDIT_TAB1);
    free_resources();
    QCOMPARE(rowLines(*model), lines({"@SCRIBON | x | FILLER_TXT", "@MODE | m | FILLER_TXT"}));
    QVERIFY(model->setData(model->index(1, 1), QStringLiteral("n")));
    QCOMPARE(dumpOf(model.get()), QByteArray("@SCRIBON\nx\n\n@MODE\nn\n"));
}

void tst_RowLoading::manyRowsStayInOrder()
{
    constexpr int COUNT = 5000;
    QByteArray text = "@SCRIBON x\n@SCAN_LIST\n";
    for (int i = 0; i < COUNT; ++i)
        text += "v" + QByteArray::number(i) + " c" + QByteArray::number(i) + "\n";
    const auto model = modelOfText(text, EDIT_TAB2);
    QCOMPARE(model->rowCount(), COUNT + 1);
    for (int i = 0; i < COUNT; ++i) {
        QCOMPARE(model->index(i + 1, 1).data().toString(), QStringLiteral("v%1").arg(i));
        QCOMPARE(model->index(i + 1, 3).data().toString(), QStringLiteral("c%1").arg(i));
    }
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_RowLoading)
#include "tst_row_loading.moc"
