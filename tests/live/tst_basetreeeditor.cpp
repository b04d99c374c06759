// Antlr3_BaseTreeEditor: its node, its size and its mouse events.

#include <QtTest>

#include "antlr3_basetreeeditor.h"

class TestBaseTreeEditor : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutANode();
    void holdsANode();
    void nodeIsStoredInAVariant();
    void belongsToItsParent();
    void size();
    void paintsOnlyItsBackground();
    void mouseReleaseEndsTheEdit_data();
    void mouseReleaseEndsTheEdit();
    void mouseMovesDoNothing();
};

void TestBaseTreeEditor::startsWithoutANode()
{
    const Antlr3_BaseTreeEditor editor(nullptr);
    QVERIFY(editor.baseTree() == nullptr);
    QVERIFY(editor.hasMouseTracking());
    QVERIFY(editor.autoFillBackground());
}

void TestBaseTreeEditor::holdsANode()
{
    ANTLR3_BASE_TREE node{};
    Antlr3_BaseTreeEditor editor(nullptr);
    editor.setBaseTree(&node);
    QCOMPARE(editor.baseTree(), &node);
    editor.setBaseTree(nullptr);
    QVERIFY(editor.baseTree() == nullptr);
}

void TestBaseTreeEditor::nodeIsStoredInAVariant()
{
    ANTLR3_BASE_TREE node{};
    QCOMPARE(QVariant::fromValue(&node).value<pANTLR3_BASE_TREE>(), &node);
}

void TestBaseTreeEditor::belongsToItsParent()
{
    QWidget parent;
    auto* const editor = new Antlr3_BaseTreeEditor(&parent);
    QCOMPARE(editor->parentWidget(), &parent);
    QVERIFY(!editor->isWindow());
}

void TestBaseTreeEditor::size()
{
    const Antlr3_BaseTreeEditor editor(nullptr);
    QCOMPARE(editor.sizeHint(), QSize(15, 20));
}

void TestBaseTreeEditor::paintsOnlyItsBackground()
{
    Antlr3_BaseTreeEditor editor(nullptr);
    editor.resize(editor.sizeHint());
    QPalette palette = editor.palette();
    palette.setColor(QPalette::Window, Qt::green);
    editor.setPalette(palette);
    const QImage shown = editor.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QImage green(editor.size(), QImage::Format_RGB32);
    green.fill(Qt::green);
    QCOMPARE(shown, green);
}

void TestBaseTreeEditor::mouseReleaseEndsTheEdit_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("of the left button") << int{Qt::LeftButton};
    QTest::newRow("of the right button") << int{Qt::RightButton};
    QTest::newRow("of the middle button") << int{Qt::MiddleButton};
}

void TestBaseTreeEditor::mouseReleaseEndsTheEdit()
{
    QFETCH(int, button);
    Antlr3_BaseTreeEditor editor(nullptr);
    const QSignalSpy spy(&editor, &Antlr3_BaseTreeEditor::editingFinished);
    QTest::mousePress(&editor, static_cast<Qt::MouseButton>(button));
    QCOMPARE(spy.size(), 0);
    QTest::mouseRelease(&editor, static_cast<Qt::MouseButton>(button));
    QCOMPARE(spy.size(), 1);
}

// They are accepted: the parent widget does not get them.
void TestBaseTreeEditor::mouseMovesDoNothing()
{
    Antlr3_BaseTreeEditor editor(nullptr);
    editor.resize(editor.sizeHint());
    const QSignalSpy spy(&editor, &Antlr3_BaseTreeEditor::editingFinished);
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QVERIFY(QCoreApplication::sendEvent(&editor, &move));
    QVERIFY(move.isAccepted());
    QCOMPARE(spy.size(), 0);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestBaseTreeEditor)
#include "tst_basetreeeditor.moc"
