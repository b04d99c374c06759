// The dialogs that edit cells: their position, and what remains after they were closed.

#include <QHeaderView>
#include <QScreen>
#include <QtTest>

#include "editing_test.h"
#include "editor_types.h"

class TestCellDialogs : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void staysBesideItsCell_data();
    void staysBesideItsCell();
    void staysOnTheScreen_data();
    void staysOnTheScreen();
    void cancelledDialogHasNoErrorCode_data();
    void cancelledDialogHasNoErrorCode();
    void undoOnTheTabWhereADialogEndedSparesOtherRows();
    void undoOnTheTabWhereADialogEndedFindsItsRowAgain();

private:
    // Opens the dialog of Scan List row 5, changes to the Keywords tab, accepts another variable
    // and removes the row.
    void dialogAcceptedOnAnotherTabThenRowRemoved();
    QStringList scanList() const { return columnTexts(*modelOf(*m_window, DE_TAB2), 1); }
    void undoOn(int tab);

    // The expected position of the dialog's contents. The cell's position in the view counts from
    // the window's corner, and the dialog's position includes its frame.
    QPoint placeOf(const QModelIndex& cell, int below) const;
};

QPoint TestCellDialogs::placeOf(const QModelIndex& cell, int below) const
{
    const QPoint inTable = viewAt(cell)->visualRect(cell).topLeft();
    const QWidget* const dialog = editorOf(cell);
    const QPoint frame = dialog->geometry().topLeft() - dialog->pos();
    return m_window->mapToGlobal(inTable - frame) + QPoint(0, below);
}

void TestCellDialogs::staysBesideItsCell_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("below");
    QTest::newRow("a variable of the Scan List") << int{DE_TAB2} << 1 << 0;
    QTest::newRow("a variable or literal of the Meta Data List") << int{DE_TAB3} << 2 << 0;
    QTest::newRow("an ECM list") << int{DE_TAB5} << 2 << 80;
}

void TestCellDialogs::staysBesideItsCell()
{
    QFETCH(int, tab);
    QFETCH(int, column);
    QFETCH(int, below);
    show();
    const QModelIndex index = cell(tab, 2, column);
    const auto* const dialog = openAs<QDialog>(index);
    QVERIFY(dialog != nullptr);

    m_window->resize(m_window->size() - QSize(120, 90));
    QTRY_COMPARE(dialog->geometry().topLeft(), placeOf(index, below));

    QHeaderView* const header = viewAt(index)->header();
    const QPoint before = dialog->geometry().topLeft();
    header->resizeSection(column - 1, header->sectionSize(column - 1) + 37);
    QTRY_COMPARE(dialog->geometry().topLeft(), before + QPoint(column == 1 ? 0 : 37, 0));
    QCOMPARE(dialog->geometry().topLeft(), placeOf(index, below));
}

void TestCellDialogs::staysOnTheScreen_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("lowerRight");
    for (const bool lowerRight : {true, false}) {
        const char* const corner = lowerRight ? "lower right" : "upper left";
        QTest::addRow("a variable, %s", corner) << int{DE_TAB2} << 1 << lowerRight;
        QTest::addRow("a literal, %s", corner) << int{DE_TAB3} << 2 << lowerRight;
        QTest::addRow("an ECM list, %s", corner) << int{DE_TAB5} << 2 << lowerRight;
    }
}

// The window is partly off the screen. The dialog at its cell must not be: its buttons and its
// title bar would be out of reach.
void TestCellDialogs::staysOnTheScreen()
{
    QFETCH(int, tab);
    QFETCH(int, column);
    QFETCH(bool, lowerRight);
    show();
    const QRect area = m_window->screen()->availableGeometry();
    const QPoint upperLeft = area.topLeft() - QPoint(m_window->width(), m_window->height()) * 3 / 4;
    m_window->move(lowerRight ? area.bottomRight() - QPoint(250, 150) : upperLeft);
    const QModelIndex index = cell(tab, 2, column);
    const auto* const dialog = openAs<QDialog>(index);
    QVERIFY(dialog != nullptr);
    QTRY_VERIFY(area.contains(dialog->geometry()));
    m_window->resize(m_window->size() - QSize(20, 20));
    QCoreApplication::processEvents();
    QVERIFY(area.contains(dialog->geometry()));
}

void TestCellDialogs::cancelledDialogHasNoErrorCode_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("a wrong text") << QStringLiteral("abc");
    QTest::newRow("a good text") << QStringLiteral("\"abc\"");
    QTest::newRow("no text") << QString();
}

// The cell kept its value, so the next validation clears its mark.
void TestCellDialogs::cancelledDialogHasNoErrorCode()
{
    QFETCH(QString, typed);
    show();
    const QModelIndex index = cell(DE_TAB3, 3, 2);
    const QString before = index.data().toString();
    const TreeModel* const model = modelAt(index);
    m_window->checkErrorCount();
    QCOMPARE(model->errorCode(index).toInt(), int{DE_NOERROR});
    auto* const dialog = openAs<VariableSelectionDialog>(index);
    QVERIFY(dialog != nullptr);
    dialog->lineEdit()->setFocus();
    typeOver(typed);
    cancelDialog(dialog);
    m_window->checkErrorCount();
    QCOMPARE(model->errorCode(index).toInt(), int{DE_NOERROR});
    QCOMPARE(index.data().toString(), before);
    QCOMPARE(stack()->count(), 0);
}

namespace {

const QByteArray SEVEN_ENTRIES =
    "@SCRIBON\nlog\n@SCAN_LIST\nv_1 A\nv_2 B\nv_3 C\nv_4 D\nv_5 E\nv_6 F\nv_7 G\n";

}  // namespace

void TestCellDialogs::undoOn(int tab)
{
    tabsOf(*m_window)->setCurrentIndex(tab);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    viewOf(*m_window, tab)->setFocus();
    press(Qt::Key_Z, Qt::ControlModifier);
}

void TestCellDialogs::dialogAcceptedOnAnotherTabThenRowRemoved()
{
    show(SEVEN_ENTRIES);
    auto* const dialog = openAs<VariableSelectionDialog>(cell(DE_TAB2, 5, 1));
    QVERIFY(dialog != nullptr);
    tabsOf(*m_window)->setCurrentIndex(DE_TAB1);
    typeVariable(dialog, QStringLiteral("renamed"));
    acceptDialog(dialog);
    QCOMPARE(scanList().at(5), QStringLiteral("renamed"));
    QCOMPARE(stack()->count(), 1);

    tabsOf(*m_window)->setCurrentIndex(DE_TAB2);
    goTo(viewOf(*m_window, DE_TAB2), 5, 1);
    actionOf(*m_window, "removeRowAction")->trigger();
    QCOMPARE(scanList().size(), 7);
    QVERIFY(!scanList().contains(QStringLiteral("renamed")));
}

void TestCellDialogs::undoOnTheTabWhereADialogEndedSparesOtherRows()
{
    dialogAcceptedOnAnotherTabThenRowRemoved();
    const QStringList rest = document();
    undoOn(DE_TAB1);
    QCOMPARE(stack()->index(), 0);
    QCOMPARE(document(), rest);
    stack()->redo();
    QCOMPARE(stack()->index(), 1);
    QCOMPARE(document(), rest);
}

void TestCellDialogs::undoOnTheTabWhereADialogEndedFindsItsRowAgain()
{
    dialogAcceptedOnAnotherTabThenRowRemoved();
    undoOn(DE_TAB2);
    QCOMPARE(scanList().at(5), QStringLiteral("renamed"));
    undoOn(DE_TAB1);
    const QStringList variables{QStringLiteral("FILLER_TXT"), QStringLiteral("v_1"),
                                QStringLiteral("v_2"),        QStringLiteral("v_3"),
                                QStringLiteral("v_4"),        QStringLiteral("v_5"),
                                QStringLiteral("v_6"),        QStringLiteral("v_7")};
    QCOMPARE(scanList(), variables);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestCellDialogs)
#include "tst_cell_dialogs.moc"
