// The way from one wrong cell to the next: by F8, Shift+F8 and a click on the counters.

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QStatusBar>
#include <QUndoStack>
#include <algorithm>

#include "statusbarform.h"
#include "window_test.h"

namespace {

struct Place {
    int tab;
    int row;
    int column;

    bool operator==(const Place& other) const
    {
        return tab == other.tab && row == other.row && column == other.column;
    }
};

char* toString(const Place& place)
{
    return qstrdup(
        qPrintable(QStringLiteral("%1, %2, %3").arg(place.tab).arg(place.row).arg(place.column)));
}

// Errors on the Scan List (1, 1), (2, 1) and (3, 3), and on the Meta Data List (2, 1).
QByteArray specWithErrors()
{
    return "@SCRIBON\ncell\n@SCAN_LIST\n1a A\n2b B\nc A\n@META_DATA\nA x\nA y\n"
           "@SCAN_LIST_AUX_USER\nv name\n@ECM_LIST\n1 /a:b:1\n";
}

QByteArray brokenExample()
{
    return readFile(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_broken"));
}

QVector<Place> markedCells(const QWidget& window)
{
    QVector<Place> places;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(window, tab);
        for (int row = 0; row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column) {
                if (model->errorCode(model->index(row, column)).toInt() > 0)
                    places.append({tab, row, column});
            }
        }
    }
    return places;
}

}  // namespace

class tst_WindowErrors : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void keysVisitEveryError_data();
    void keysVisitEveryError();
    void startsAtTheCurrentCell_data();
    void startsAtTheCurrentCell();
    void staysOnTheOnlyError();
    void emptyChannelKeywordIsFound();
    void clickOnTheCountOfTheTab_data();
    void clickOnTheCountOfTheTab();
    void clickOnTheTotal_data();
    void clickOnTheTotal();
    void otherClicksDoNothing();
    void countersSayWhatAClickDoes();
    void tellsWhatIsWrong_data();
    void tellsWhatIsWrong();
    void messageFitsBesideTheCounters_data();
    void messageFitsBesideTheCounters();
    void openEditorIsTakenOver();
    void editIsValidatedFirst();
    void rowsThatAreNotCountedAreLeftOut();
    void tellsThatThereAreNone();
    void tellsThatNothingIsOpen();
    void tellsThatNothingIsOpenAfterAFailedLoad();
    void keysAreNotThoseOfActions();
    void changesNothing();
    void thousandsOfErrors();
    void visibleErrorIsNotScrolled();

private:
    void showWindow(const QByteArray& text, const QSize& size = {1600, 600});
    void press(Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickOn(const char* name);
    Place currentPlace();
    bool showsCurrentCell();
};

void tst_WindowErrors::showWindow(const QByteArray& text, const QSize& size)
{
    loadGoodFile(text);
    m_window->resize(size);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_WindowErrors::press(Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus == nullptr ? m_window.get() : focus, Qt::Key_F8, modifiers);
}

void tst_WindowErrors::clickOn(const char* name)
{
    auto* const part = m_window->findChild<QWidget*>(QLatin1String(name));
    auto* const line = part->findChild<QLineEdit*>();
    QTest::mouseClick(line == nullptr ? part : line, Qt::LeftButton);
}

Place tst_WindowErrors::currentPlace()
{
    const int tab = tabsOf(*m_window)->currentIndex();
    const QModelIndex index = viewOf(*m_window, tab)->currentIndex();
    return {tab, index.row(), index.column()};
}

bool tst_WindowErrors::showsCurrentCell()
{
    const QTreeView* const view = viewOf(*m_window, tabsOf(*m_window)->currentIndex());
    const QModelIndex cell = view->currentIndex();
    const QRect place = view->visualRect(cell);
    return view->isVisible() && !place.isEmpty() && place.top() >= 0 &&
           place.bottom() <= view->viewport()->height() && place.left() >= 0 &&
           place.left() < view->viewport()->width() && view->hasFocus() &&
           view->selectionModel()->selectedIndexes() == QModelIndexList{cell};
}

void tst_WindowErrors::keysVisitEveryError_data()
{
    QTest::addColumn<bool>("forward");
    QTest::addColumn<QSize>("size");
    QTest::newRow("F8") << true << QSize(600, 600);
    QTest::newRow("Shift+F8") << false << QSize(600, 600);
    QTest::newRow("F8 in a large window") << true << QSize(1920, 1080);
}

void tst_WindowErrors::keysVisitEveryError()
{
    QFETCH(bool, forward);
    QFETCH(QSize, size);
    showWindow(brokenExample(), size);
    QVector<Place> expected = markedCells(*m_window);
    QCOMPARE(expected.size(), 42);
    const int count = expected.size();
    if (!forward)
        std::reverse(expected.begin(), expected.end());
    expected.append(expected.first());
    for (int step = 0; step <= count; ++step) {
        press(forward ? Qt::NoModifier : Qt::ShiftModifier);
        QCOMPARE(currentPlace(), expected[step]);
        QVERIFY(showsCurrentCell());
        const int number = forward ? step % count + 1 : count - step % count;
        const auto start = QStringLiteral("%1 of 42: ").arg(number);
        QVERIFY2(newsOf(*m_window).startsWith(start), qPrintable(newsOf(*m_window)));
    }
}

void tst_WindowErrors::startsAtTheCurrentCell_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<QString>("number");
    const auto row = [](const char* name, int tab, int cellRow, int column, bool forward,
                        int number) {
        QTest::newRow(name) << tab << cellRow << column << forward
                            << QStringLiteral("%1 of 4: ").arg(number);
    };
    row("on an error", 1, 1, 1, true, 2);
    row("on an error, back", 1, 2, 1, false, 1);
    row("on the first error, back", 1, 1, 1, false, 4);
    row("on the last error", 2, 2, 1, true, 1);
    row("before an error in its row", 1, 3, 1, true, 3);
    row("behind an error in its row", 1, 2, 3, true, 3);
    row("behind an error in its row, back", 1, 2, 3, false, 2);
    row("on the tab before", 0, 0, 0, true, 1);
    row("on the tab before, back", 0, 0, 0, false, 4);
    row("on a later tab", 3, 1, 1, true, 1);
    row("on a later tab, back", 3, 1, 1, false, 4);
}

void tst_WindowErrors::startsAtTheCurrentCell()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(bool, forward);
    QFETCH(QString, number);
    showWindow(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(tab);
    goTo(viewOf(*m_window, tab), row, column);
    press(forward ? Qt::NoModifier : Qt::ShiftModifier);
    QVERIFY2(newsOf(*m_window).startsWith(number), qPrintable(newsOf(*m_window)));
    const QVector<Place> places = markedCells(*m_window);
    QCOMPARE(currentPlace(), places[number.left(1).toInt() - 1]);
}

void tst_WindowErrors::staysOnTheOnlyError()
{
    showWindow("@SCRIBON\ncell\n@SCAN_LIST\n1a A\n");
    for (int i = 0; i < 2; ++i) {
        press();
        QCOMPARE(currentPlace(), (Place{1, 1, 1}));
        QVERIFY(newsOf(*m_window).startsWith(QStringLiteral("1 of 1: ")));
    }
}

// Such a cell has neither text nor icon, and its row is not red.
void tst_WindowErrors::emptyChannelKeywordIsFound()
{
    showWindow(goodSpec());
    tabsOf(*m_window)->setCurrentIndex(1);
    m_window->insertRow();
    edit(1, 1, 1, QStringLiteral("speed"));
    press();
    QCOMPARE(currentPlace(), (Place{1, 1, 3}));
    QVERIFY(newsOf(*m_window).contains(QStringLiteral("Invalid chars in keyword")));
}

void tst_WindowErrors::clickOnTheCountOfTheTab_data()
{
    QTest::addColumn<QString>("part");
    for (const char* const name : {"tabErrs", "label"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_WindowErrors::clickOnTheCountOfTheTab()
{
    QFETCH(QString, part);
    showWindow(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(1);
    const QVector<Place> expected{{1, 1, 1}, {1, 2, 1}, {1, 3, 3}, {1, 1, 1}};
    for (int step = 0; step < expected.size(); ++step) {
        clickOn(qPrintable(part));
        QCOMPARE(currentPlace(), expected[step]);
        QVERIFY(showsCurrentCell());
        QVERIFY(newsOf(*m_window).startsWith(QStringLiteral("%1 of 3: ").arg(step % 3 + 1)));
    }
}

void tst_WindowErrors::clickOnTheTotal_data()
{
    QTest::addColumn<QString>("part");
    for (const char* const name : {"errors", "label_2"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_WindowErrors::clickOnTheTotal()
{
    QFETCH(QString, part);
    showWindow(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(1);
    goTo(viewOf(*m_window, 1), 3, 3);
    const QVector<Place> expected{{2, 2, 1}, {1, 1, 1}};
    for (const Place& place : expected) {
        clickOn(qPrintable(part));
        QCOMPARE(currentPlace(), place);
        QVERIFY(showsCurrentCell());
    }
    QVERIFY(newsOf(*m_window).startsWith(QStringLiteral("1 of 4: ")));
}

void tst_WindowErrors::otherClicksDoNothing()
{
    showWindow(specWithErrors());
    const Place before = currentPlace();
    auto* const part = m_window->findChild<QLabel*>(QStringLiteral("label_2"));
    QTest::mouseClick(part, Qt::RightButton);
    QTest::mousePress(part, Qt::LeftButton);
    QTest::mouseRelease(part, Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
    QTest::mouseClick(m_window->findChild<StatusBarForm*>(), Qt::LeftButton);
    QCOMPARE(currentPlace(), before);
}

void tst_WindowErrors::countersSayWhatAClickDoes()
{
    for (const char* const name : {"tabErrs", "label", "errors", "label_2"}) {
        auto* const part = m_window->findChild<QWidget*>(QLatin1String(name));
        QVERIFY(part->toolTip().startsWith(QStringLiteral("Click to go to the next error")));
        auto* const line = part->findChild<QLineEdit*>();
        QCOMPARE((line == nullptr ? part : line)->cursor().shape(), Qt::PointingHandCursor);
    }
}

void tst_WindowErrors::tellsWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("news");
    const QByteArray start = "@SCRIBON\ncell\n";
    const auto row = [&](const char* name, const QByteArray& text, const char* news) {
        QTest::newRow(name) << start + text << QStringLiteral("1 of 1: ") + QLatin1String(news);
    };
    row("expression", "@DESCRIPTION\nplain\n",
        "Computed expression must begin and end with double-quotes or single-quotes - Enter a "
        "computed expression");
    row("event", "@START_EVENT\na-b\n", "Invalid chars in event name - Enter a event name");
    row("kind without a tip", "@MAX_SCANS\nmany\n", "Syntax Error!");
    row("repeated keyword", "@ENABLE\na\n@ENABLE\nb\n",
        "Duplicate entry found! - Logical variable that must be TRUE before logging can start.");
    row("variable", "@SCAN_LIST\n1a A\n",
        "Invalid chars in variable name - Click to select a Marvane Variable");
    row("channel keyword", "@SCAN_LIST\na A\nb A\n",
        "Duplicate Channel - Click to select a Channel Keyword");
    row("PAM keyword", "@META_DATA\nA x\nA y\n",
        "Duplicate keyword found! - Click to select a PAM keyword");
    row("alternate name", "@SCAN_LIST_AUX_USER\nv name\nw name\n",
        "Duplicate alternate name - Click to enter or modify a alternate name");
    row("ECM path", "@ECM_LIST\n1 /a:b:1\n2 /a:b:1\n",
        "Duplicate path - Click to Select ASAM3_specs path");
}

void tst_WindowErrors::tellsWhatIsWrong()
{
    QFETCH(QByteArray, text);
    showWindow(text);
    press();
    QTEST(newsOf(*m_window), "news");
}

// On the last tab but one the counters are widest.
void tst_WindowErrors::messageFitsBesideTheCounters_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("many errors") << brokenExample();
    QTest::newRow("from the first tab to the last but one")
        << QByteArray("@SCRIBON\na-b\n@SCAN_LIST_AUX_USER\n1v name\n");
}

void tst_WindowErrors::messageFitsBesideTheCounters()
{
    QFETCH(QByteArray, text);
    showWindow(text, {600, 600});
    auto* const bar = m_window->findChild<QStatusBar*>(QStringLiteral("statusbar"));
    const auto* const counters = m_window->findChild<StatusBarForm*>();
    const int height = bar->height();
    for (int step = 0; step < 42; ++step) {
        press();
        QCoreApplication::sendPostedEvents();
        const int width = bar->fontMetrics().horizontalAdvance(newsOf(*m_window));
        QVERIFY2(width > 0 && width < counters->x() - 6, qPrintable(newsOf(*m_window)));
        QCOMPARE(bar->height(), height);
    }
}

void tst_WindowErrors::openEditorIsTakenOver()
{
    showWindow(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(3);
    QTreeView* const view = viewOf(*m_window, 3);
    goTo(view, 1, 2);
    view->edit(view->currentIndex());
    auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(line != nullptr);
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("2nd"));
    press();
    QCOMPARE(modelOf(*m_window, 3)->index(1, 2).data().toString(), QStringLiteral("2nd"));
    QVERIFY(view->indexWidget(view->model()->index(1, 2)) == nullptr);
    QVERIFY(newsOf(*m_window).startsWith(QStringLiteral("1 of 5: ")));
    QCOMPARE(currentPlace(), (Place{1, 1, 1}));
    tabsOf(*m_window)->setCurrentIndex(3);
    QCOMPARE(m_window->uStack()->count(), 1);
}

void tst_WindowErrors::editIsValidatedFirst()
{
    showWindow(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(1);
    edit(1, 1, 1, QStringLiteral("good_now"));
    press();
    QCOMPARE(currentPlace(), (Place{1, 2, 1}));
    QVERIFY(newsOf(*m_window).startsWith(QStringLiteral("1 of 3: ")));
}

// The channel keyword of a comment keeps its code, but is neither shown nor counted.
void tst_WindowErrors::rowsThatAreNotCountedAreLeftOut()
{
    showWindow("@SCRIBON\ncell\n@SCAN_LIST\na A\nb A\n");
    tabsOf(*m_window)->setCurrentIndex(1);
    press();
    QCOMPARE(currentPlace(), (Place{1, 2, 3}));
    edit(1, 2, 1, QStringLiteral("# a comment"));
    QVERIFY(modelOf(*m_window, 1)->errorCode(modelOf(*m_window, 1)->index(2, 3)).toInt() > 0);
    press();
    QCOMPARE(newsOf(*m_window), QStringLiteral("No errors"));
    QCOMPARE(m_window->findChild<QSpinBox*>(QStringLiteral("errors"))->value(), 0);
}

void tst_WindowErrors::tellsThatThereAreNone()
{
    showWindow(specWithErrors());
    goTo(viewOf(*m_window, 0), 0, 1);
    clickOn("tabErrs");
    QCOMPARE(newsOf(*m_window), QStringLiteral("No errors on this tab"));
    QCOMPARE(currentPlace(), (Place{0, 0, 1}));
    loadGoodFile(
        "@SCRIBON\ncell\n@SCAN_LIST\nv N\n@META_DATA\nA x\n@SCAN_LIST_AUX_USER\nv n\n"
        "@ECM_LIST\n1 /a:b:1\n");
    press();
    QCOMPARE(newsOf(*m_window), QStringLiteral("No errors"));
}

void tst_WindowErrors::tellsThatNothingIsOpen()
{
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    press();
    QCOMPARE(newsOf(*m_window), QStringLiteral("No file is open"));
    m_window->statusBar()->clearMessage();
    clickOn("errors");
    QCOMPARE(newsOf(*m_window), QStringLiteral("No file is open"));
}

void tst_WindowErrors::tellsThatNothingIsOpenAfterAFailedLoad()
{
    showWindow(specWithErrors());
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
    press();
    clickOn("errors");
    QCOMPARE(newsOf(*m_window), QStringLiteral("No file is open"));
    QCOMPARE(tabsOf(*m_window)->currentIndex(), 0);
}

void tst_WindowErrors::keysAreNotThoseOfActions()
{
    QList<QKeySequence> keys;
    for (const QAction* const action : m_window->findChildren<QAction*>())
        keys += action->shortcuts();
    for (const QShortcut* const shortcut : m_window->findChildren<QShortcut*>()) {
        QVERIFY(!keys.contains(shortcut->key()));
        keys.append(shortcut->key());
    }
    QVERIFY(keys.contains(QKeySequence(QStringLiteral("F8"))));
    QVERIFY(keys.contains(QKeySequence(QStringLiteral("Shift+F8"))));
    for (const QMenu* const menu : m_window->findChildren<QMenu*>()) {
        for (const QAction* const action : menu->actions())
            QVERIFY(!action->text().contains(QStringLiteral("rror")));
    }
}

void tst_WindowErrors::changesNothing()
{
    showWindow(brokenExample());
    const QVector<Place> marks = markedCells(*m_window);
    for (int step = 0; step < 42; ++step)
        press();
    QCOMPARE(markedCells(*m_window), marks);
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QCOMPARE(m_window->uStack()->count(), 0);
        QVERIFY(!modelOf(*m_window, tab)->isModified());
    }
}

// The counters stop at 999, the message does not.
void tst_WindowErrors::thousandsOfErrors()
{
    QByteArray text = "@SCRIBON\ncell\n@SCAN_LIST\n";
    for (int i = 0; i < 1100; ++i)
        text += "1bad N" + QByteArray::number(i) + "\n";
    showWindow(text);
    press(Qt::ShiftModifier);
    QCOMPARE(currentPlace(), (Place{1, 1100, 1}));
    QVERIFY(showsCurrentCell());
    QVERIFY(newsOf(*m_window).startsWith(QStringLiteral("1100 of 1100: ")));
}

// The cell that was current is far from what is in view.
void tst_WindowErrors::visibleErrorIsNotScrolled()
{
    QByteArray text = "@SCRIBON\ncell\n@SCAN_LIST\n1bad A\n";
    for (int i = 2; i < 500; ++i)
        text += "good N" + QByteArray::number(i) + "\n";
    showWindow(text, {600, 600});
    press();
    QCOMPARE(currentPlace(), (Place{1, 1, 1}));
    edit(1, 250, 2, QStringLiteral("wrong"));
    QTreeView* const view = viewOf(*m_window, 1);
    for (int column : {1, 3})
        view->setColumnWidth(column, 500);
    QTRY_VERIFY(view->horizontalScrollBar()->maximum() > 400);
    view->verticalScrollBar()->setValue(247);
    view->horizontalScrollBar()->setValue(400);
    press();
    QCOMPARE(currentPlace(), (Place{1, 250, 2}));
    QVERIFY(showsCurrentCell());
    QCOMPARE(view->verticalScrollBar()->value(), 247);
    QCOMPARE(view->horizontalScrollBar()->value(), 400);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowErrors)

#include "tst_window_errors.moc"
