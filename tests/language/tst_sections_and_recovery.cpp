// Whole files: results of the load, sections that the load adds, error recovery, and state that
// remains for the next load.

#include <QTest>

#include "captured_output.h"
#include "editor_antlr3.h"
#include "loaded_text.h"
#include "samples.h"
#include "scribonspecs_state.h"

namespace {

// Whether the child indexes of all nodes are right.
bool indexesAreRight(pANTLR3_BASE_TREE tree)
{
    for (ANTLR3_UINT32 i = 0; i < tree->getChildCount(tree); ++i) {
        const pANTLR3_BASE_TREE child = childAt(tree, i);
        if (child->getChildIndex(child) != static_cast<ANTLR3_INT32>(i))
            return false;
    }
    return true;
}

QStringList treeLines()
{
    return loadedTree().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

class tst_SectionsAndRecovery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { resetParseState(); }
    void cleanupTestCase() { free_resources(); }

    void frame_data() { addSampleRows(QStringLiteral("frame.txt")); }
    void frame() { checkSampleRow(); }
    void sections_data() { addSampleRows(QStringLiteral("sections.txt")); }
    void sections() { checkSampleRow(); }

    void childIndexesOfMadeUpSections();
    void childIndexesOfCompletedSections();
    void endOfInputStaysLast();
    void typesOfSpecialNodes();
    void placesOfNodes();
    void strayTextIsAnErrorAfterAFileThatEndedInAList_data();
    void strayTextIsAnErrorAfterAFileThatEndedInAList();
    void strayTextAfterAStatementIgnoresTheLastFile();
    void failedLoadKeepsItsTree();
    void loadFreesThePreviousTree();
    void freeResourcesLeavesNothing();
    void badFileIsLoadedWithoutOutput();
};

// The runtime does not set the child indexes of parsed nodes; the load sets those of the sections
// that it completes.
void tst_SectionsAndRecovery::childIndexesOfMadeUpSections()
{
    QCOMPARE(loadText("@SCRIBON s\n@MODE x\n"), 0);
    QVERIFY(indexesAreRight(getTree()));
    for (int i = 4; i <= 6; ++i)
        QVERIFY(indexesAreRight(treeChild(i)));
}

void tst_SectionsAndRecovery::childIndexesOfCompletedSections()
{
    QCOMPARE(loadText("@SCRIBON s\n@META_DATA\na\n@ECM_LIST\n1\n@SCAN_LIST_AUX_USER\nb\n"), 0);
    QVERIFY(indexesAreRight(treeChild(2)));
    QVERIFY(indexesAreRight(treeChild(3)));
}

void tst_SectionsAndRecovery::endOfInputStaysLast()
{
    QCOMPARE(loadText("@SCRIBON s\n@MODE x\n"), 0);
    const ANTLR3_UINT32 count = treeChildCount();
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE child = treeChild(static_cast<int>(i));
        QCOMPARE(static_cast<int>(child->getType(child)) == -1, i == count - 1);
    }
}

// Compares numbers, which the models use; the printer shows names.
void tst_SectionsAndRecovery::typesOfSpecialNodes()
{
    QCOMPARE(loadText("@SCRIBON s\n@ENABLE 5\n@FOO bar\n"), 0);
    const pANTLR3_BASE_TREE label = treeChild(2);
    QCOMPARE(static_cast<int>(label->getType(label)), 66);
    const pANTLR3_BASE_TREE error = childAt(label, 2);
    QCOMPARE(static_cast<int>(error->getType(error)), 0);
    QVERIFY(!error->isNilNode(error));
    const pANTLR3_BASE_TREE stray = treeChild(3);
    QCOMPARE(static_cast<int>(stray->getType(stray)), 83);
    const pANTLR3_BASE_TREE unknown = treeChild(5);
    QCOMPARE(static_cast<int>(unknown->getType(unknown)), 82);
    const pANTLR3_BASE_TREE mark = childAt(unknown, 1);
    QCOMPARE(static_cast<int>(mark->getType(mark)), 84);
    QVERIFY(getTree()->isNilNode(getTree()));
}

void tst_SectionsAndRecovery::placesOfNodes()
{
    QCOMPARE(loadText("@SCRIBON s\n\n  @MODE \tx\n"), 0);
    const pANTLR3_BASE_TREE keyword = childAt(treeChild(2), 1);
    QCOMPARE(lineNo(keyword), 3);
    QCOMPARE(linePos(keyword), 2);
    const pANTLR3_BASE_TREE value = childAt(keyword, 0);
    QCOMPARE(lineNo(value), 3);
    QCOMPARE(linePos(value), 9);
}

void tst_SectionsAndRecovery::strayTextIsAnErrorAfterAFileThatEndedInAList_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::newRow("a scan list") << QByteArray("@SCAN_LIST\na\n");
    QTest::newRow("a meta data list") << QByteArray("@META_DATA\na\n");
    QTest::newRow("an aux user list") << QByteArray("@SCAN_LIST_AUX_USER\na\n");
    QTest::newRow("an ECM list") << QByteArray("@ECM_LIST\na\n");
}

// ctab is not reset between files, ecm_init is.
void tst_SectionsAndRecovery::strayTextIsAnErrorAfterAFileThatEndedInAList()
{
    QFETCH(QByteArray, before);
    loadText(before);
    QCOMPARE(loadText("stray\n@SCRIBON s\nstray\n"), 0);
    const QStringList lines = treeLines();
    QCOMPARE(lines.mid(0, 3),
             QStringList({QStringLiteral("ERROR(stray)"), QStringLiteral("ERROR(stray)"),
                          QStringLiteral("EOL(\\n)")}));
    QCOMPARE(lines[5],
             QStringLiteral(
                 "UNKNOWN_TXT_DECL [ EDITOR_TAB1, FILLER_TXT, TEXT_BLK(stray), FILLER_TXT ]"));
}

void tst_SectionsAndRecovery::strayTextAfterAStatementIgnoresTheLastFile()
{
    loadText("@SCAN_LIST\na\n");
    QCOMPARE(loadText("# note\nstray\n@SCRIBON s\n"), 0);
    QCOMPARE(treeLines()[2],
             QStringLiteral(
                 "UNKNOWN_TXT_DECL [ EDITOR_TAB1, FILLER_TXT, TEXT_BLK(stray), FILLER_TXT ]"));
}

void tst_SectionsAndRecovery::failedLoadKeepsItsTree()
{
    QCOMPARE(loadText("@MODE x\n"), -2);
    QCOMPARE(treeLines().size(), 3);
    QCOMPARE(treeChildCount(), ANTLR3_UINT32(3));
}

void tst_SectionsAndRecovery::loadFreesThePreviousTree()
{
    QCOMPARE(loadText("@SCRIBON first\n"), 0);
    QCOMPARE(loadText("@SCRIBON second\n"), 0);
    QVERIFY(loadedTree().contains(QStringLiteral("second")));
    QCOMPARE(read_file("/nowhere/at/all"), -1);
    QCOMPARE(treeChildCount(), ANTLR3_UINT32(0));
    QCOMPARE(loadText("@SCRIBON third\n"), 0);
    QVERIFY(loadedTree().contains(QStringLiteral("third")));
}

void tst_SectionsAndRecovery::freeResourcesLeavesNothing()
{
    QCOMPARE(loadText("@SCRIBON s\n"), 0);
    QCOMPARE(free_resources(), 0);
    QVERIFY(getTree() == nullptr);
    QCOMPARE(treeChildCount(), ANTLR3_UINT32(0));
    QVERIFY(treeChild(0) == nullptr);
    QCOMPARE(free_resources(), 0);
}

void tst_SectionsAndRecovery::badFileIsLoadedWithoutOutput()
{
    const QByteArray text(
        "@SCRIBON 1e+5\n@FOO # c\n@DESCRIPTION\n@ENABLE 5\n=;,\n@RUNNING_AVERAGE 5[sec]\n@MODE x\n"
        "@SCAN_LIST\na\n5 6 7\n@META_DATA\nb\n8\n\"unclosed\n");
    for (std::FILE* const stream : {stdout, stderr})
        QCOMPARE(outputOf(stream, [&text] { loadText(text); }), QByteArray());
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_SectionsAndRecovery)
#include "tst_sections_and_recovery.moc"
