// The row actions: when they are enabled, and the tab that they change.

#include <QMenu>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTimer>
#include <QUndoGroup>
#include <QUndoStack>

#include "window_test.h"

namespace {

const QString BLANK(QLatin1Char(' '));

QStringList blanks(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(BLANK);
    return list;
}

}  // namespace

class tst_WindowRows : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void insertRow_data();
    void insertRow();
    void insertRowWithoutACurrentRow();
    void insertRowFillsItsCells_data();
    void insertRowFillsItsCells();
    void insertRowMakesTheNewRowCurrent();
    void insertRowMarksTheModel();
    void insertRowOnATabWithoutRows();

    void removeRow();
    void removeRowIsUndone();
    void requiredKeywordStays_data();
    void requiredKeywordStays();
    void sectionRowStays_data();
    void sectionRowStays();
    void keywordsTabWithoutACurrentRow();
    void refusalStaysInTheStatusBar();
    void removedTextsOfTheMetaDataTab();

    void undoActsOnTheCurrentTab();
    void undoMenuEntriesFollowTheTab();
    void rowActionsAreConnected();
    void rowActionsByKey();
    void removeActionsNeedASelection_data();
    void removeActionsNeedASelection();
    void removeActionsUseTheSelectionOfTheCurrentTab();
    void editMenuUpdatesTheActions();
    void rowActionsAreDisabledWithoutADocument();
    void contextMenuOpensAtTheWindowPosition_data();
    void contextMenuOpensAtTheWindowPosition();
    void firstColumnSpanned();
    void quitActionQuits();
    void closeActionCloses();
};

void tst_WindowRows::insertRow_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("column");
    for (int tab = 0; tab < 5; ++tab) {
        QTest::addRow("tab %d, from its first visible column", tab) << tab << (tab == 0 ? 0 : 1);
        QTest::addRow("tab %d, from its last column", tab) << tab << 2;
    }
}

void tst_WindowRows::insertRow()
{
    QFETCH(int, tab);
    QFETCH(int, column);
    loadGoodFile();
    tabsOf(*m_window)->setCurrentIndex(tab);
    TreeModel* const model = modelOf(*m_window, tab);
    const QStringList before = columnTexts(*model, 1);
    goTo(viewOf(*m_window, tab), 1, column);
    m_window->insertRow();
    QStringList expected = before;
    expected.insert(2, BLANK);
    QCOMPARE(columnTexts(*model, 1), expected);
    QCOMPARE(m_window->uStack()->count(), 1);
    m_window->uStack()->undo();
    QCOMPARE(columnTexts(*model, 1), before);
    m_window->uStack()->redo();
    QCOMPARE(columnTexts(*model, 1), expected);
}

void tst_WindowRows::insertRowWithoutACurrentRow()
{
    loadGoodFile();
    QVERIFY(!viewOf(*m_window, 0)->currentIndex().isValid());
    m_window->insertRow();
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 1), blanks(3));
    QCOMPARE(modelOf(*m_window, 0)->index(0, 0).data().toString(), QStringLiteral("@SCRIBON"));
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 10);
}

void tst_WindowRows::insertRowFillsItsCells_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("cells");
    QTest::newRow("keywords") << 0 << 3;
    QTest::newRow("scan list") << 1 << 4;
    QTest::newRow("meta data") << 2 << 3;
    QTest::newRow("scan list aux user") << 3 << 3;
    QTest::newRow("ecm list") << 4 << 3;
}

void tst_WindowRows::insertRowFillsItsCells()
{
    QFETCH(int, tab);
    QFETCH(int, cells);
    loadGoodFile();
    tabsOf(*m_window)->setCurrentIndex(tab);
    m_window->insertRow();
    QCOMPARE(rowTexts(*modelOf(*m_window, tab), 1), blanks(cells));
    for (int column = 0; column < cells; ++column)
        QVERIFY(modelOf(*m_window, tab)->index(1, column).data(Qt::EditRole).isValid());
}

void tst_WindowRows::insertRowMakesTheNewRowCurrent()
{
    loadGoodFile();
    QTreeView* const view = viewOf(*m_window, 0);
    goTo(view, 4, 1);
    m_window->insertRow();
    QCOMPARE(view->currentIndex(), view->model()->index(5, 0));
    QCOMPARE(view->selectionModel()->selectedIndexes(),
             QModelIndexList{view->model()->index(5, 0)});
    QVERIFY(actionOf(*m_window, "removeRowAction")->isEnabled());
}

void tst_WindowRows::insertRowMarksTheModel()
{
    loadGoodFile();
    m_window->insertRow();
    QVERIFY(modelOf(*m_window, 0)->isModified());
    for (int tab = 1; tab < 5; ++tab)
        QVERIFY(!modelOf(*m_window, tab)->isModified());
}

// The command is still a step, which does nothing.
void tst_WindowRows::insertRowOnATabWithoutRows()
{
    m_window->loadFile(QStringLiteral("/specs/new"), true);
    QVERIFY(modelOf(*m_window, 0) != nullptr);
    TreeModel* const model = modelOf(*m_window, 0);
    model->removeRows(0, model->rowCount());
    m_window->insertRow();
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(m_window->uStack()->count(), 1);
    m_window->uStack()->undo();
    m_window->uStack()->redo();
    QCOMPARE(model->rowCount(), 0);
}

void tst_WindowRows::removeRow()
{
    loadGoodFile();
    TreeModel* const model = modelOf(*m_window, 0);
    QCOMPARE(model->index(8, 0).data().toString(), QStringLiteral("@MAX_SCANS"));
    goTo(viewOf(*m_window, 0), 8, 1);
    m_window->removeRow();
    QCOMPARE(model->rowCount(), 8);
    QVERIFY(!columnTexts(*model, 0).contains(QStringLiteral("@MAX_SCANS")));
    QVERIFY(model->isModified());
    QCOMPARE(m_window->uStack()->count(), 1);
}

void tst_WindowRows::removeRowIsUndone()
{
    loadGoodFile();
    for (int tab = 1; tab < 5; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        TreeModel* const model = modelOf(*m_window, tab);
        const int rows = model->rowCount();
        const QStringList texts = rowTexts(*model, 1);
        goTo(viewOf(*m_window, tab), 1, 1);
        m_window->removeRow();
        QCOMPARE(model->rowCount(), rows - 1);
        m_window->uStack()->undo();
        QCOMPARE(model->rowCount(), rows);
        QCOMPARE(rowTexts(*model, 1), texts);
    }
}

void tst_WindowRows::requiredKeywordStays_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::newRow("@SCRIBON") << 0 << QStringLiteral("scribon");
    QTest::newRow("@DESCRIPTION") << 1 << QStringLiteral("description");
    QTest::newRow("@GROUP") << 2 << QStringLiteral("group");
    QTest::newRow("@MODE") << 3 << QStringLiteral("mode");
    QTest::newRow("@PROGRAM") << 4 << QStringLiteral("program");
    QTest::newRow("@TEST_ID") << 5 << QStringLiteral("test_id");
    QTest::newRow("@TEST_TYPE") << 6 << QStringLiteral("test_type");
    QTest::newRow("@SCAN_INTERVAL") << 7 << QStringLiteral("scan_interval");
}

void tst_WindowRows::requiredKeywordStays()
{
    QFETCH(int, row);
    QFETCH(QString, name);
    loadGoodFile();
    TreeModel* const model = modelOf(*m_window, 0);
    QCOMPARE(model->index(row, 0).data().toString(), QString::fromLatin1(QTest::currentDataTag()));
    goTo(viewOf(*m_window, 0), row, 1);
    m_window->removeRow();
    QCOMPARE(model->rowCount(), 9);
    QVERIFY(!model->isModified());
    QCOMPARE(m_window->uStack()->count(), 0);
    QCOMPARE(newsOf(*m_window),
             QStringLiteral("Unable to remove a required keyword  (%1)").arg(name));
}

void tst_WindowRows::sectionRowStays_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("hasCurrent");
    QTest::addColumn<QString>("name");
    const auto row = [](int tab, const char* name) {
        QTest::addRow("%s, no current row", name) << tab << false << QString::fromLatin1(name);
        QTest::addRow("%s, its own row", name) << tab << true << QString::fromLatin1(name);
    };
    row(1, "scan_list");
    row(2, "meta_data");
    row(3, "scan_list_aux_user");
    row(4, "ecm_list");
}

void tst_WindowRows::sectionRowStays()
{
    QFETCH(int, tab);
    QFETCH(bool, hasCurrent);
    QFETCH(QString, name);
    loadGoodFile();
    tabsOf(*m_window)->setCurrentIndex(tab);
    if (hasCurrent)
        goTo(viewOf(*m_window, tab), 0, 0);
    const int rows = modelOf(*m_window, tab)->rowCount();
    m_window->removeRow();
    QCOMPARE(modelOf(*m_window, tab)->rowCount(), rows);
    QCOMPARE(m_window->uStack()->count(), 0);
    QCOMPARE(newsOf(*m_window),
             QStringLiteral("Unable to remove a required keyword  (%1)").arg(name));
}

void tst_WindowRows::keywordsTabWithoutACurrentRow()
{
    loadGoodFile();
    m_window->removeRow();
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 9);
    QCOMPARE(m_window->uStack()->count(), 0);
    QCOMPARE(newsOf(*m_window), QStringLiteral("File loaded"));
}

void tst_WindowRows::refusalStaysInTheStatusBar()
{
    loadGoodFile();
    goTo(viewOf(*m_window, 0), 0, 0);
    m_window->removeRow();
    const QString refusal = newsOf(*m_window);
    QVERIFY(!QTest::qWaitFor([this, refusal] { return newsOf(*m_window) != refusal; }, 2500));
}

// Insert Row fills the tab's columns; Remove Row saves one column more than there is.
void tst_WindowRows::removedTextsOfTheMetaDataTab()
{
    loadGoodFile();
    tabsOf(*m_window)->setCurrentIndex(2);
    m_window->insertRow();
    edit(2, 1, 1, QStringLiteral("a_pam"));
    goTo(viewOf(*m_window, 2), 1, 2);
    m_window->removeRow();
    m_window->uStack()->undo();
    QCOMPARE(rowTexts(*modelOf(*m_window, 2), 1),
             QStringList({BLANK, QStringLiteral("a_pam"), BLANK}));
}

void tst_WindowRows::undoActsOnTheCurrentTab()
{
    loadGoodFile();
    QTabWidget* const tabs = tabsOf(*m_window);
    tabs->setCurrentIndex(2);
    m_window->insertRow();
    QCOMPARE(modelOf(*m_window, 2)->rowCount(), 3);
    tabs->setCurrentIndex(0);
    m_window->undoGroup->undo();
    QCOMPARE(modelOf(*m_window, 2)->rowCount(), 3);
    tabs->setCurrentIndex(2);
    m_window->undoGroup->undo();
    QCOMPARE(modelOf(*m_window, 2)->rowCount(), 2);
}

void tst_WindowRows::undoMenuEntriesFollowTheTab()
{
    loadGoodFile();
    const auto actions = m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"))->actions();
    QAction* const undo = actions.at(actions.size() - 2);
    QAction* const redo = actions.last();
    tabsOf(*m_window)->setCurrentIndex(1);
    m_window->insertRow();
    QVERIFY(undo->isEnabled());
    tabsOf(*m_window)->setCurrentIndex(0);
    QVERIFY(!undo->isEnabled());
    tabsOf(*m_window)->setCurrentIndex(1);
    undo->trigger();
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 3);
    QVERIFY(!undo->isEnabled());
    QVERIFY(redo->isEnabled());
    redo->trigger();
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 4);
}

void tst_WindowRows::rowActionsAreConnected()
{
    loadGoodFile();
    goTo(viewOf(*m_window, 0), 8, 0);
    actionOf(*m_window, "insertRowAction")->trigger();
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 10);
    actionOf(*m_window, "removeRowAction")->trigger();
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 9);
}

// Remove Row closes the editor that Insert Row opened, which adds a step, too.
void tst_WindowRows::rowActionsByKey()
{
    loadGoodFile();
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTreeView* const view = viewOf(*m_window, 0);
    view->setFocus();
    goTo(view, 8, 0);
    QTest::keyClick(view, Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(view->model()->rowCount(), 10);
    QTest::keyClick(view, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(view->model()->rowCount(), 9);
    QCOMPARE(m_window->uStack()->index(), 3);
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_window->uStack()->index(), 0);
    QCOMPARE(view->model()->rowCount(), 9);
}

void tst_WindowRows::removeActionsNeedASelection_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        QTest::addRow("tab %d", tab) << tab;
}

void tst_WindowRows::removeActionsNeedASelection()
{
    QFETCH(int, tab);
    loadGoodFile();
    tabsOf(*m_window)->setCurrentIndex(tab);
    const QAction* const remove = actionOf(*m_window, "removeRowAction");
    const QAction* const removeColumn = actionOf(*m_window, "removeColumnAction");
    QVERIFY(!remove->isEnabled());
    goTo(viewOf(*m_window, tab), 1, 1);
    QVERIFY(remove->isEnabled());
    QVERIFY(removeColumn->isEnabled());
    viewOf(*m_window, tab)->clearSelection();
    QVERIFY(!remove->isEnabled());
    QVERIFY(!removeColumn->isEnabled());
    QVERIFY(actionOf(*m_window, "insertRowAction")->isEnabled());
    QVERIFY(actionOf(*m_window, "insertColumnAction")->isEnabled());
}

void tst_WindowRows::removeActionsUseTheSelectionOfTheCurrentTab()
{
    loadGoodFile();
    auto* const menu = m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"));
    goTo(viewOf(*m_window, 0), 3, 1);
    tabsOf(*m_window)->setCurrentIndex(1);
    Q_EMIT menu->aboutToShow();
    QVERIFY(!actionOf(*m_window, "removeRowAction")->isEnabled());
    tabsOf(*m_window)->setCurrentIndex(0);
    Q_EMIT menu->aboutToShow();
    QVERIFY(actionOf(*m_window, "removeRowAction")->isEnabled());
}

void tst_WindowRows::editMenuUpdatesTheActions()
{
    auto* const menu = m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"));
    QAction* const insert = actionOf(*m_window, "insertRowAction");
    insert->setEnabled(true);
    Q_EMIT menu->aboutToShow();
    QVERIFY(!insert->isEnabled());
    loadGoodFile();
    insert->setEnabled(false);
    Q_EMIT menu->aboutToShow();
    QVERIFY(insert->isEnabled());
}

void tst_WindowRows::rowActionsAreDisabledWithoutADocument()
{
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QVERIFY(!actionOf(*m_window, "insertRowAction")->isEnabled());
    QTest::keyClick(m_window.get(), Qt::Key_I, Qt::ControlModifier);
    QTest::keyClick(m_window.get(), Qt::Key_R, Qt::ControlModifier);
    m_window->insertRow();
    m_window->removeRow();
    QCOMPARE(m_window->uStack()->count(), 0);
}

// The position is in view coordinates but mapped as the window's, so the menu is displaced.
void tst_WindowRows::contextMenuOpensAtTheWindowPosition_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < 5; ++tab)
        QTest::addRow("tab %d", tab) << tab;
}

void tst_WindowRows::contextMenuOpensAtTheWindowPosition()
{
    QFETCH(int, tab);
    loadGoodFile();
    m_window->move(50, 50);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    tabsOf(*m_window)->setCurrentIndex(tab);
    auto* const menu = m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"));
    QPoint place;
    QTimer closer;
    connect(&closer, &QTimer::timeout, menu, [menu, &place] {
        if (!menu->isVisible())
            return;
        place = menu->pos();
        menu->close();
    });
    closer.start(2);
    const QPoint pos(20, 30);
    Q_EMIT viewOf(*m_window, tab)->customContextMenuRequested(pos);
    QCOMPARE(place, m_window->mapToGlobal(pos));
    QVERIFY(!menu->isVisible());
}

void tst_WindowRows::firstColumnSpanned()
{
    loadGoodFile();
    const QTreeView* const view = viewOf(*m_window, 2);
    m_window->setFirstColumnSpanned(2, 1, QModelIndex(), true);
    QVERIFY(view->isFirstColumnSpanned(1, QModelIndex()));
    QVERIFY(!viewOf(*m_window, 1)->isFirstColumnSpanned(1, QModelIndex()));
    m_window->setFirstColumnSpanned(2, 1, QModelIndex(), true);
    QVERIFY(view->isFirstColumnSpanned(1, QModelIndex()));
    m_window->setFirstColumnSpanned(2, 1, QModelIndex(), false);
    QVERIFY(!view->isFirstColumnSpanned(1, QModelIndex()));
    for (const int noTab : {-1, 5, 6, 1000})
        m_window->setFirstColumnSpanned(noTab, 1, QModelIndex(), true);
}

void tst_WindowRows::quitActionQuits()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("changed"));
    QSignalSpy quitting(qApp, &QCoreApplication::aboutToQuit);
    QTimer::singleShot(0, actionOf(*m_window, "exitAction"), &QAction::trigger);
    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(quitting.count(), 1);
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowRows::closeActionCloses()
{
    m_window->show();
    actionOf(*m_window, "actionexit")->trigger();
    QVERIFY(!m_window->isVisible());
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowRows)
#include "tst_window_rows.moc"
