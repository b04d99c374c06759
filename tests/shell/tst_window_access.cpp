// What a screen reader finds in the window: the tables, their cells and the counters.

#include <QSpinBox>
#include <QStatusBar>

#include "form_walk.h"
#include "window_test.h"

class tst_WindowAccess : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void fieldsHaveNames();
    void tablesHaveTheNamesOfTheirTabs();
    void cells_data();
    void cells();
    void wrongCellTellsWhatIsWrong();
    void countersHaveTheirLabels();

private:
    QAccessibleInterface* accessibleCell(int tab, int row, int column);
};

// Rows of the accessible table are those of the view.
QAccessibleInterface* tst_WindowAccess::accessibleCell(int tab, int row, int column)
{
    QTreeView* const view = viewOf(*m_window, tab);
    int hidden = 0;
    for (int i = 0; i < row; ++i)
        hidden += view->isRowHidden(i, {}) ? 1 : 0;
    return QAccessible::queryAccessibleInterface(view)->tableInterface()->cellAt(row - hidden,
                                                                                 column);
}

void tst_WindowAccess::fieldsHaveNames()
{
    loadGoodFile();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QCOMPARE(namelessFields(*m_window), QStringList());
        QCOMPARE(labelsWithoutBuddy(*m_window), QStringList());
    }
}

void tst_WindowAccess::tablesHaveTheNamesOfTheirTabs()
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QTreeView* const view = viewOf(*m_window, tab);
        QCOMPARE(accessibleText(view, QAccessible::Name), tabsOf(*m_window)->tabText(tab));
        QCOMPARE(roleOf(view), QAccessible::Tree);
    }
}

void tst_WindowAccess::cells_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("spoken");
    QTest::newRow("a keyword") << 0 << 0 << "@SCAN_INTERVAL"
                               << "Scan Interval";
    QTest::newRow("a value") << 0 << 1 << "10[sec]"
                             << "10[sec]";
    QTest::newRow("a comment") << 0 << 0 << "# When"
                               << "# When";
    QTest::newRow("a placeholder") << 0 << 2 << "FILLER_TXT"
                                   << "Empty";
    QTest::newRow("a blank") << 1 << 3 << " "
                             << "Empty";
    QTest::newRow("a member") << 1 << 2 << "  .AV"
                              << " .AV";
    QTest::newRow("a keyword without a name") << 0 << 0 << "@META_HEADER_FILENAME"
                                              << "Empty";
}

void tst_WindowAccess::cells()
{
    QFETCH(int, tab);
    QFETCH(int, column);
    QFETCH(QString, stored);
    loadGoodFile();
    m_window->show();
    tabsOf(*m_window)->setCurrentIndex(tab);
    TreeModel* const model = modelOf(*m_window, tab);
    const QModelIndex index = model->index(1, column);
    model->setData(index, stored);
    model->setErrorCode(index, int(DE_NOERROR));
    const QAccessibleInterface* const cell = accessibleCell(tab, 1, column);
    QVERIFY(cell != nullptr);
    QTEST(cell->text(QAccessible::Name), "spoken");
    QCOMPARE(cell->text(QAccessible::Description), QString());
    QCOMPARE(cell->role(), QAccessible::TreeItem);
}

// Also of a wrong cell that shows no mark.
void tst_WindowAccess::wrongCellTellsWhatIsWrong()
{
    loadGoodFile();
    m_window->show();
    edit(1, 2, 3, QStringLiteral("speed_chan"));
    edit(1, 1, 1, QStringLiteral("2nd_speed"));
    m_window->checkErrorCount();
    QCOMPARE(accessibleCell(1, 2, 3)->text(QAccessible::Description),
             QStringLiteral("Duplicate Channel"));
    QCOMPARE(accessibleCell(1, 1, 1)->text(QAccessible::Description),
             QStringLiteral("Invalid chars in variable name"));
    edit(1, 2, 3, QStringLiteral("FILLER_TXT"));
    m_window->checkErrorCount();
    QVERIFY(!accessibleCell(1, 2, 3)->text(QAccessible::Description).isEmpty());
}

void tst_WindowAccess::countersHaveTheirLabels()
{
    loadGoodFile();
    m_window->show();
    auto* const ofTab = m_window->statusBar()->findChild<QSpinBox*>(QStringLiteral("tabErrs"));
    auto* const ofAll = m_window->statusBar()->findChild<QSpinBox*>(QStringLiteral("errors"));
    edit(1, 1, 1, QStringLiteral("2nd_speed"));
    tabsOf(*m_window)->setCurrentIndex(1);
    m_window->checkErrorCount();
    QCOMPARE(accessibleText(ofTab, QAccessible::Name), QStringLiteral("Scan List Errors:"));
    QCOMPARE(accessibleText(ofTab, QAccessible::Value), QStringLiteral("1"));
    QCOMPARE(accessibleText(ofAll, QAccessible::Name).trimmed(), QStringLiteral("Total Errors:"));
    QCOMPARE(roleOf(ofAll), QAccessible::SpinBox);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowAccess)
#include "tst_window_access.moc"
