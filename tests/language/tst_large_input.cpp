// Files of 100 MB with hardly any token: checks the result of the load.

#include <QTest>

#include "editor_antlr3.h"
#include "loaded_text.h"

class tst_LargeInput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { resetParseState(); }
    void cleanupTestCase() { free_resources(); }

    void onePiece_data();
    void onePiece();
    void noToken();
    void behindASpec_data();
    void behindASpec();
};

namespace {

constexpr int SIZE = 100 * 1000 * 1000;

size_t textLength(pANTLR3_BASE_TREE node)
{
    return node->getText(node)->len;
}

}  // namespace

void tst_LargeInput::onePiece_data()
{
    QTest::addColumn<char>("first");
    QTest::addColumn<char>("other");
    QTest::newRow("one word") << 'w' << 'w';
    QTest::newRow("one comment") << '#' << 'c';
    QTest::newRow("one unclosed quote") << '"' << 'q';
    QTest::newRow("one run of line feeds") << '\n' << '\n';
}

void tst_LargeInput::onePiece()
{
    QFETCH(char, first);
    QFETCH(char, other);
    QCOMPARE(loadText(first + QByteArray(SIZE - 1, other)), -2);
    QVERIFY(getTree() != nullptr);
}

void tst_LargeInput::noToken()
{
    QCOMPARE(loadText(QByteArray(SIZE, '=')), -2);
    QVERIFY(getTree() != nullptr);
}

void tst_LargeInput::behindASpec_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<char>("letter");
    // Index among the root's children of the statement with the large text; -1 if it is lost.
    QTest::addColumn<int>("statement");
    QTest::newRow("one word as a value") << QByteArray("@SCRIBON s\n@GROUP ") << 'w' << 2;
    QTest::newRow("one comment") << QByteArray("@SCRIBON s\n# ") << 'c' << 2;
    QTest::newRow("one unclosed quote") << QByteArray("@SCRIBON s\n@GROUP \"") << 'q' << -1;
}

void tst_LargeInput::behindASpec()
{
    QFETCH(QByteArray, start);
    QFETCH(char, letter);
    QFETCH(int, statement);
    QCOMPARE(loadText(start + QByteArray(SIZE, letter)), 0);
    if (statement < 0)
        return;
    pANTLR3_BASE_TREE node = childAt(treeChild(statement), 1);
    if (node->getChildCount(node) > 0)
        node = childAt(node, 0);
    QVERIFY(textLength(node) >= static_cast<size_t>(SIZE));
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_LargeInput)
#include "tst_large_input.moc"
