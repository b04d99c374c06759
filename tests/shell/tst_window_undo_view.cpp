// After Undo and Redo, the changed cell is in view; the selection and the current cell stay.

#include <QMenu>
#include <QScrollBar>
#include <QUndoStack>

#include "editorundocommand.h"
#include "window_test.h"

namespace {

constexpr int ROWS = 300;
constexpr int FAR_ROW = 250;

// Every list has this many rows, the Keywords tab as many comments.
QByteArray longSpec()
{
    QByteArray keywords = "@SCRIBON\ncell\n";
    QByteArray scanList = "@SCAN_LIST\n";
    QByteArray metaData = "@META_DATA\n";
    QByteArray auxUser = "@SCAN_LIST_AUX_USER\n";
    QByteArray ecmList = "@ECM_LIST\n";
    for (int i = 0; i < ROWS; ++i) {
        const QByteArray number = QByteArray::number(i);
        keywords += "# " + number + "\n";
        scanList += "v" + number + " N" + number + "\n";
        metaData += "N" + number + " v" + number + "\n";
        auxUser += "v" + number + " n" + number + "\n";
        ecmList += number + " /a:b:" + number + "\n";
    }
    return keywords + scanList + metaData + auxUser + ecmList;
}

}  // namespace

class tst_WindowUndoView : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void changeComesIntoView_data();
    void changeComesIntoView();
    void keysDoTheSame();
    void cellComesIntoViewSideways();
    void rowActionsDoNotScrollSideways();
    void visibleCellIsNotScrolled();
    void firstExecutionDoesNotScroll();
    void stackAloneDoesNotScroll();
    void cellOfAnotherTabIsLeftAlone();
    void macroShowsItsFirstChange();
    void lastRowRemoved();
    void rowRemovedMeanwhile();

private:
    void openLongFile();
    void goToTab(int tab);
    QAction* undoAction() { return editActions().at(editActions().size() - 2); }
    QAction* redoAction() { return editActions().last(); }
    QList<QAction*> editActions();
    bool sees(int tab, int row, int column);
    QScrollBar* bar(int tab) { return viewOf(*m_window, tab)->verticalScrollBar(); }
    void change(const QByteArray& kind, int tab, int row);
};

void tst_WindowUndoView::openLongFile()
{
    loadGoodFile(longSpec());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

// Makes a cell at the top current.
void tst_WindowUndoView::goToTab(int tab)
{
    tabsOf(*m_window)->setCurrentIndex(tab);
    goTo(viewOf(*m_window, tab), 2, 1);
    viewOf(*m_window, tab)->setFocus();
}

QList<QAction*> tst_WindowUndoView::editActions()
{
    return m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"))->actions();
}

bool tst_WindowUndoView::sees(int tab, int row, int column)
{
    const QTreeView* const view = viewOf(*m_window, tab);
    return view->viewport()->rect().contains(
        view->visualRect(view->model()->index(row, column)).center());
}

// Pushes the command as the window does, but leaves the current cell where it is.
void tst_WindowUndoView::change(const QByteArray& kind, int tab, int row)
{
    TreeModel* const model = modelOf(*m_window, tab);
    if (kind == "edit")
        edit(tab, row, 1, QStringLiteral("changed"));
    else if (kind == "removed")
        m_window->uStack()->push(
            new EditorUndoCommand(model, model->index(row, 1), row, 0, 2, uremoveRow));
    else
        m_window->uStack()->push(
            new EditorUndoCommand(model, model->index(row - 1, 0), row, 0, 2, uaddRow));
}

void tst_WindowUndoView::changeComesIntoView_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("kind");
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (const char* const kind : {"edit", "removed", "inserted"})
            QTest::addRow("tab %d, %s", tab, kind) << tab << QByteArray(kind);
    }
}

void tst_WindowUndoView::changeComesIntoView()
{
    QFETCH(int, tab);
    QFETCH(QByteArray, kind);
    openLongFile();
    goToTab(tab);
    QTreeView* const view = viewOf(*m_window, tab);
    change(kind, tab, FAR_ROW);
    QVERIFY(!sees(tab, FAR_ROW, 1));
    for (QAction* const action : {undoAction(), redoAction(), undoAction()}) {
        bar(tab)->setValue(0);
        action->trigger();
        QVERIFY(sees(tab, FAR_ROW, 1));
        QCOMPARE(view->currentIndex(), view->model()->index(2, 1));
        QCOMPARE(view->selectionModel()->selectedIndexes(),
                 QModelIndexList{view->model()->index(2, 1)});
    }
}

void tst_WindowUndoView::keysDoTheSame()
{
    openLongFile();
    goToTab(1);
    change("edit", 1, FAR_ROW);
    QTest::keySequence(viewOf(*m_window, 1), undoAction()->shortcut());
    QVERIFY(sees(1, FAR_ROW, 1));
    bar(1)->setValue(0);
    QTest::keySequence(viewOf(*m_window, 1), redoAction()->shortcut());
    QVERIFY(sees(1, FAR_ROW, 1));
    QCOMPARE(modelOf(*m_window, 1)->index(FAR_ROW, 1).data().toString(), QStringLiteral("changed"));
}

void tst_WindowUndoView::cellComesIntoViewSideways()
{
    openLongFile();
    goToTab(1);
    QTreeView* const view = viewOf(*m_window, 1);
    view->setColumnWidth(1, 900);
    edit(1, FAR_ROW, 3, QStringLiteral("CHANGED"));
    view->horizontalScrollBar()->setValue(0);
    QVERIFY(!sees(1, 2, 3));
    undoAction()->trigger();
    QVERIFY(sees(1, FAR_ROW, 3));
}

void tst_WindowUndoView::rowActionsDoNotScrollSideways()
{
    openLongFile();
    goToTab(1);
    QTreeView* const view = viewOf(*m_window, 1);
    view->setColumnWidth(1, 900);
    change("removed", 1, FAR_ROW);
    QTRY_VERIFY(view->horizontalScrollBar()->maximum() > 100);
    view->horizontalScrollBar()->setValue(100);
    for (QAction* const action : {undoAction(), redoAction()}) {
        action->trigger();
        QCOMPARE(view->horizontalScrollBar()->value(), 100);
    }
}

void tst_WindowUndoView::visibleCellIsNotScrolled()
{
    openLongFile();
    goToTab(1);
    change("edit", 1, 6);
    bar(1)->setValue(3);
    undoAction()->trigger();
    QCOMPARE(bar(1)->value(), 3);
}

void tst_WindowUndoView::firstExecutionDoesNotScroll()
{
    openLongFile();
    goToTab(1);
    for (const char* const kind : {"edit", "removed", "inserted"}) {
        change(kind, 1, FAR_ROW);
        QCOMPARE(bar(1)->value(), 0);
    }
}

// Only the user's Undo scrolls.
void tst_WindowUndoView::stackAloneDoesNotScroll()
{
    openLongFile();
    goToTab(1);
    change("edit", 1, FAR_ROW);
    m_window->uStack()->undo();
    m_window->uStack()->redo();
    QCOMPARE(bar(1)->value(), 0);
}

// A dialog may be accepted while another tab is in front: its edit belongs to that tab's stack.
void tst_WindowUndoView::cellOfAnotherTabIsLeftAlone()
{
    openLongFile();
    goToTab(1);
    goToTab(2);
    edit(1, FAR_ROW, 1, QStringLiteral("changed"));
    undoAction()->trigger();
    QCOMPARE(tabsOf(*m_window)->currentIndex(), 2);
    QCOMPARE(bar(2)->value(), 0);
    tabsOf(*m_window)->setCurrentIndex(1);
    QCOMPARE(bar(1)->value(), 0);
}

void tst_WindowUndoView::macroShowsItsFirstChange()
{
    openLongFile();
    goToTab(1);
    m_window->uStack()->beginMacro(QString());
    change("inserted", 1, FAR_ROW);
    change("inserted", 1, FAR_ROW + 1);
    m_window->uStack()->endMacro();
    for (QAction* const action : {undoAction(), redoAction()}) {
        bar(1)->setValue(0);
        action->trigger();
        QVERIFY(sees(1, FAR_ROW, 1));
    }
}

void tst_WindowUndoView::lastRowRemoved()
{
    openLongFile();
    goToTab(1);
    change("removed", 1, ROWS);
    undoAction()->trigger();
    QVERIFY(sees(1, ROWS, 1));
    bar(1)->setValue(0);
    redoAction()->trigger();
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), ROWS);
    QVERIFY(sees(1, ROWS - 1, 1));
}

// An edit on the stack of another tab can be undone while its row is removed.
void tst_WindowUndoView::rowRemovedMeanwhile()
{
    openLongFile();
    goToTab(2);
    edit(1, FAR_ROW, 1, QStringLiteral("changed"));
    goToTab(1);
    change("removed", 1, FAR_ROW);
    goToTab(2);
    undoAction()->trigger();
    QCOMPARE(bar(1)->value(), 0);
    QCOMPARE(bar(2)->value(), 0);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowUndoView)

#include "tst_window_undo_view.moc"
