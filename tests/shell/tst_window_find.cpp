// Find: the line that Ctrl+F opens over a table, and typing in a table.

#include <QAccessible>
#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>
#include <QUndoStack>

#include "window_test.h"

namespace {

// "max" stands in four cells of the Keywords tab, (0, 1), (1, 0), (2, 1) and (3, 0), in two of the
// Scan List, (1, 3) and (3, 3), and in one of the Scan List Aux User, (1, 2).
QByteArray specWithMax()
{
    return "@SCRIBON\ncell_max\n@MAX_SCANS\n5\n@ENABLE\nMax_on\n# the maximum\n"
           "@SCAN_LIST\nalpha .MX MAXCH\nbeta B\ngamma MAX_2\n@META_DATA\nA x\n"
           "@SCAN_LIST_AUX_USER\nv max_name\n@ECM_LIST\n1 /a:b:1\n";
}

QByteArray specWithRows(int rows)
{
    QByteArray text = "@SCRIBON\ncell\n@SCAN_LIST\n";
    for (int i = 1; i <= rows; ++i)
        text += "name_" + QByteArray::number(i) + " N" + QByteArray::number(i) + "\n";
    return text;
}

}  // namespace

class tst_WindowFind : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void typingGoesToTheFirstMatch_data();
    void typingGoesToTheFirstMatch();
    void startsAtTheCurrentCell_data();
    void startsAtTheCurrentCell();
    void eachLetterGoesOnFromTheCurrentCell();
    void returnGoesOnAndBack();
    void goesToTheOtherTabs();
    void tellsOfACurrentCellThatIsNoMatch();
    void emptyLineDoesNothing();
    void noMatchIsSeenInTheLine();
    void escapeCloses();
    void escapeInTheTableCloses();
    void closeButtonCloses();
    void escapeInAnEditorDoesNotClose();
    void secondCtrlFSelectsTheText();
    void openedAgainItKeepsTheText();
    void openEditorIsTakenOver();
    void changesAreCounted();
    void changesAreCountedBeforeTheNextStep();
    void clickOnACellIsCounted();
    void tabsAreFollowed();
    void loadClosesTheLine();
    void loadUnderADialogLeavesTheFocusInTheTable();
    void failedLoadClosesTheLine();
    void doesNothingWithoutADocument();
    void liesBesideTheScrollBars_data();
    void liesBesideTheScrollBars();
    void followsTheTable();
    void movesNothing();
    void neverHidesTheCurrentCell();
    void undoneCellIsNotBehindTheLine();
    void matchInViewIsNotScrolled();
    void matchBehindTheLineIsScrolled_data();
    void matchBehindTheLineIsScrolled();
    void matchOutOfSightComesIntoTheMiddle();
    void currentMatchComesBackIntoView();
    void hasTheFontOfTheTable();
    void staysOutOfTheTabOrder();
    void keysOfALineEditStay();
    void isAccessible();
    void changesNothing();
    void typingInATable_data();
    void typingInATable();
    void sameLetterGoesOnInATable();

private:
    void showWindow(const QByteArray& text = specWithMax(), const QSize& size = {900, 600});
    QLineEdit* line() { return m_window->findChild<QLineEdit*>(QStringLiteral("findText")); }
    QWidget* frame() { return line()->parentWidget(); }
    QString news() { return m_window->findChild<QLabel*>(QStringLiteral("findNews"))->text(); }
    QTreeView* view() { return viewOf(*m_window, tabsOf(*m_window)->currentIndex()); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void openLine() { press(Qt::Key_F, Qt::ControlModifier); }
    void find(const QString& text);
    QVector<int> currentPlace();
    QRect placeOf(const QWidget* widget);
    QRect placeOfCurrentCell();
    bool seesCurrentCell();
};

void tst_WindowFind::showWindow(const QByteArray& text, const QSize& size)
{
    loadGoodFile(text);
    m_window->resize(size);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_WindowFind::press(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus == nullptr ? m_window.get() : focus, Qt::Key(key), modifiers);
}

void tst_WindowFind::find(const QString& text)
{
    openLine();
    QTest::keyClicks(QApplication::focusWidget(), text);
}

// Tab, row and column.
QVector<int> tst_WindowFind::currentPlace()
{
    const QModelIndex index = view()->currentIndex();
    return {tabsOf(*m_window)->currentIndex(), index.row(), index.column()};
}

QRect tst_WindowFind::placeOf(const QWidget* widget)
{
    return {widget->mapTo(m_window.get(), QPoint()), widget->size()};
}

QRect tst_WindowFind::placeOfCurrentCell()
{
    const QPoint corner = view()->viewport()->mapTo(m_window.get(), QPoint());
    return view()->visualRect(view()->currentIndex()).translated(corner);
}

bool tst_WindowFind::seesCurrentCell()
{
    const QRect cell = placeOfCurrentCell();
    const QRect table = placeOf(view()->viewport());
    return cell.isValid() && cell.top() >= table.top() && cell.bottom() <= table.bottom() &&
           cell.left() <= table.right() && !cell.intersects(placeOf(frame()));
}

void tst_WindowFind::typingGoesToTheFirstMatch_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("place");
    QTest::addColumn<QString>("news");
    const auto row = [](const char* name, int tab, const char* text, const QVector<int>& place,
                        const char* news) {
        QTest::newRow(name) << tab << QString::fromUtf8(text) << place << QString::fromUtf8(news);
    };
    const QVector<int> nowhere{-1, -1};
    row("shown name", 0, "max scans", {1, 0}, "1 of 1");
    row("text of the file", 0, "@max_s", {1, 0}, "1 of 1");
    row("part of both", 0, "max", {0, 1}, "1 of 4, 3 on other tabs");
    row("capitals", 0, "MAX", {0, 1}, "1 of 4, 3 on other tabs");
    row("small letters for capitals", 1, "maxch", {1, 3}, "1 of 1");
    row("in the middle", 1, "AX_", {3, 3}, "1 of 1, 3 on other tabs");
    row("a member", 1, ".mx", {1, 2}, "1 of 1");
    row("letters that are not ASCII", 0, "ÖL", {5, 0}, "1 of 1");
    row("on other tabs only", 2, "max", nowhere, "No match here, 7 on other tabs");
    row("nowhere", 0, "maxi mum", nowhere, "No match");
    row("placeholder of an empty cell", 1, "FILLER", nowhere, "No match");
    row("keyword of a list, which is hidden", 1, "scan_list", nowhere, "No match");
    row("keyword without a shown name", 0, "meta_header", {4, 0}, "1 of 1");
    row("blank", 0, " ", {1, 0}, "1 of 3");
}

void tst_WindowFind::typingGoesToTheFirstMatch()
{
    QFETCH(int, tab);
    QFETCH(QString, text);
    QFETCH(QVector<int>, place);
    QByteArray spec = specWithMax();
    spec.replace("@SCAN_LIST\n", "@META_HEADER_FILENAME\nx\n# öl\n@SCAN_LIST\n");
    showWindow(spec);
    tabsOf(*m_window)->setCurrentIndex(tab);
    openLine();
    line()->setText(text);
    QTEST(news(), "news");
    QCOMPARE(currentPlace(), QVector<int>{tab} + place);
    QVERIFY(line()->hasFocus());
    if (place.first() >= 0)
        QCOMPARE(view()->selectionModel()->selectedIndexes(),
                 QModelIndexList{view()->currentIndex()});
}

void tst_WindowFind::startsAtTheCurrentCell_data()
{
    QTest::addColumn<QVector<int>>("start");
    QTest::addColumn<QVector<int>>("typed");
    QTest::addColumn<QVector<int>>("next");
    QTest::addColumn<QVector<int>>("previous");
    using V = QVector<int>;
    QTest::newRow("on a match") << V{1, 0} << V{0, 1, 0} << V{0, 2, 1} << V{0, 0, 1};
    QTest::newRow("behind one in its row") << V{1, 1} << V{0, 2, 1} << V{0, 3, 0} << V{0, 1, 0};
    QTest::newRow("before one in its row") << V{2, 0} << V{0, 2, 1} << V{0, 3, 0} << V{0, 1, 0};
    QTest::newRow("on the first") << V{0, 1} << V{0, 0, 1} << V{0, 1, 0} << V{0, 3, 0};
    QTest::newRow("on the last") << V{3, 0} << V{0, 3, 0} << V{0, 0, 1} << V{0, 2, 1};
    QTest::newRow("behind the last") << V{3, 1} << V{0, 0, 1} << V{0, 1, 0} << V{0, 3, 0};
}

void tst_WindowFind::startsAtTheCurrentCell()
{
    QFETCH(QVector<int>, start);
    showWindow();
    goTo(view(), start[0], start[1]);
    openLine();
    line()->setText(QStringLiteral("max"));
    QTEST(currentPlace(), "typed");
    press(Qt::Key_Return);
    QTEST(currentPlace(), "next");
    press(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Return, Qt::ShiftModifier);
    QTEST(currentPlace(), "previous");
}

void tst_WindowFind::eachLetterGoesOnFromTheCurrentCell()
{
    showWindow();
    find(QStringLiteral("ma"));
    QCOMPARE(currentPlace(), (QVector<int>{0, 0, 1}));
    QTest::keyClicks(line(), QStringLiteral("x_"));
    QCOMPARE(currentPlace(), (QVector<int>{0, 1, 0}));
    QTest::keyClicks(line(), QStringLiteral("o"));
    QCOMPARE(currentPlace(), (QVector<int>{0, 2, 1}));
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Backspace);
    QCOMPARE(currentPlace(), (QVector<int>{0, 2, 1}));
    QCOMPARE(news(), QStringLiteral("3 of 4, 4 on other tabs"));
}

void tst_WindowFind::returnGoesOnAndBack()
{
    showWindow();
    find(QStringLiteral("max"));
    const QVector<QVector<int>> places{{0, 0, 1}, {0, 1, 0}, {0, 2, 1}, {0, 3, 0}};
    for (int step = 0; step < 9; ++step) {
        QCOMPARE(currentPlace(), places[step % 4]);
        QCOMPARE(news(), QStringLiteral("%1 of 4, 3 on other tabs").arg(step % 4 + 1));
        QVERIFY(seesCurrentCell());
        press(step % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
    }
    for (int step = 13; step > 4; --step) {
        QCOMPARE(currentPlace(), places[(step + 4) % 4]);
        press(Qt::Key_Return, Qt::ShiftModifier);
    }
    QVERIFY(line()->hasFocus());
}

void tst_WindowFind::goesToTheOtherTabs()
{
    showWindow();
    find(QStringLiteral("max"));
    const QVector<QVector<int>> places{{1, 1, 3}, {3, 1, 2}, {0, 0, 1}, {1, 1, 3}};
    const QStringList told{QStringLiteral("1 of 2, 5 on other tabs"),
                           QStringLiteral("1 of 1, 6 on other tabs"),
                           QStringLiteral("1 of 4, 3 on other tabs")};
    for (int step = 0; step < places.size(); ++step) {
        press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(currentPlace(), places[step]);
        QCOMPARE(news(), told[step % 3]);
        QVERIFY(seesCurrentCell());
        QVERIFY(line()->hasFocus());
    }
    line()->setText(QStringLiteral("gamma"));
    const QVector<int> before = currentPlace();
    press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(currentPlace(), before);
}

void tst_WindowFind::tellsOfACurrentCellThatIsNoMatch()
{
    showWindow();
    find(QStringLiteral("max"));
    goTo(view(), 1, 1);
    QCOMPARE(news(), QStringLiteral("4 found, 3 on other tabs"));
    press(Qt::Key_Return);
    QCOMPARE(currentPlace(), (QVector<int>{0, 2, 1}));
    QCOMPARE(news(), QStringLiteral("3 of 4, 3 on other tabs"));
}

void tst_WindowFind::emptyLineDoesNothing()
{
    showWindow();
    goTo(view(), 2, 1);
    openLine();
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}) {
        press(Qt::Key_Return, modifiers);
        QCOMPARE(currentPlace(), (QVector<int>{0, 2, 1}));
        QCOMPARE(news(), QString());
    }
    QVERIFY(line()->isVisible() && line()->hasFocus());
    QTest::keyClicks(line(), QStringLiteral("%"));
    press(Qt::Key_Backspace);
    QCOMPARE(news(), QString());
    QCOMPARE(line()->palette().color(QPalette::Base),
             QApplication::palette().color(QPalette::Base));
}

// By a text, and by another colour.
void tst_WindowFind::noMatchIsSeenInTheLine()
{
    showWindow();
    find(QStringLiteral("max"));
    const QColor usual = line()->palette().color(QPalette::Base);
    QTest::keyClicks(line(), QStringLiteral("%"));
    QCOMPARE(news(), QStringLiteral("No match"));
    QVERIFY(line()->palette().color(QPalette::Base) != usual);
    QCOMPARE(line()->palette().color(QPalette::Text), QColor(Qt::black));
    const QVector<int> before = currentPlace();
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier})
        press(Qt::Key_Return, modifiers);
    QCOMPARE(currentPlace(), before);
    press(Qt::Key_Backspace);
    QCOMPARE(line()->palette().color(QPalette::Base), usual);
}

void tst_WindowFind::escapeCloses()
{
    showWindow();
    find(QStringLiteral("max"));
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    QVERIFY(!frame()->isVisible());
    QVERIFY(view()->hasFocus());
    QCOMPARE(currentPlace(), (QVector<int>{0, 1, 0}));
    press(Qt::Key_Down);
    QCOMPARE(currentPlace(), (QVector<int>{0, 2, 0}));
}

void tst_WindowFind::escapeInTheTableCloses()
{
    showWindow();
    find(QStringLiteral("max"));
    press(Qt::Key_Return, Qt::ControlModifier);
    view()->setFocus();
    press(Qt::Key_Escape);
    QVERIFY(!frame()->isVisible());
    QVERIFY(view()->hasFocus());
    QKeyEvent another(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(view(), &another);
    QVERIFY(!another.isAccepted());
}

void tst_WindowFind::closeButtonCloses()
{
    showWindow();
    find(QStringLiteral("max"));
    auto* const button = m_window->findChild<QToolButton*>(QStringLiteral("findClose"));
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!frame()->isVisible());
    QVERIFY(view()->hasFocus());
}

void tst_WindowFind::escapeInAnEditorDoesNotClose()
{
    showWindow();
    find(QStringLiteral("max_name"));
    press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(currentPlace(), (QVector<int>{3, 1, 2}));
    view()->setFocus();
    view()->edit(view()->currentIndex());
    auto* const editor = view()->indexWidget(view()->currentIndex());
    QVERIFY(editor != nullptr && editor->hasFocus());
    press(Qt::Key_Escape);
    QVERIFY(frame()->isVisible());
    QVERIFY(editor->hasFocus());
}

void tst_WindowFind::secondCtrlFSelectsTheText()
{
    showWindow();
    find(QStringLiteral("max"));
    QCOMPARE(line()->selectedText(), QString());
    openLine();
    QCOMPARE(line()->selectedText(), QStringLiteral("max"));
    view()->setFocus();
    line()->deselect();
    openLine();
    QVERIFY(line()->hasFocus());
    QCOMPARE(line()->selectedText(), QStringLiteral("max"));
    QCOMPARE(news(), QStringLiteral("1 of 4, 3 on other tabs"));
}

void tst_WindowFind::openedAgainItKeepsTheText()
{
    showWindow();
    find(QStringLiteral("max"));
    press(Qt::Key_Escape);
    edit(0, 2, 1, QStringLiteral("on"));
    goTo(view(), 2, 0);
    openLine();
    QCOMPARE(line()->selectedText(), QStringLiteral("max"));
    QCOMPARE(news(), QStringLiteral("3 found, 3 on other tabs"));
    QCOMPARE(currentPlace(), (QVector<int>{0, 2, 0}));
}

void tst_WindowFind::openEditorIsTakenOver()
{
    showWindow();
    tabsOf(*m_window)->setCurrentIndex(3);
    goTo(view(), 1, 2);
    view()->edit(view()->currentIndex());
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor != nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("other"));
    openLine();
    QVERIFY(line()->hasFocus());
    QVERIFY(view()->indexWidget(view()->currentIndex()) == nullptr);
    QCOMPARE(view()->currentIndex().data().toString(), QStringLiteral("other"));
    QCOMPARE(m_window->uStack()->count(), 1);
    QTest::keyClicks(line(), QStringLiteral("other"));
    QCOMPARE(news(), QStringLiteral("1 of 1"));

    // The line can also get a text without the focus.
    view()->edit(view()->currentIndex());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("second"));
    line()->setText(QStringLiteral("seco"));
    QVERIFY(view()->indexWidget(view()->currentIndex()) == nullptr);
    QCOMPARE(news(), QStringLiteral("1 of 1"));
}

void tst_WindowFind::changesAreCounted()
{
    showWindow();
    tabsOf(*m_window)->setCurrentIndex(1);
    find(QStringLiteral("max"));
    QCOMPARE(news(), QStringLiteral("1 of 2, 5 on other tabs"));
    edit(1, 2, 1, QStringLiteral("maximum"));
    QTRY_COMPARE(news(), QStringLiteral("1 of 3, 5 on other tabs"));
    edit(3, 1, 2, QStringLiteral("name"));
    QTRY_COMPARE(news(), QStringLiteral("1 of 3, 4 on other tabs"));
    m_window->uStack()->undo();
    QTRY_COMPARE(news(), QStringLiteral("1 of 3, 5 on other tabs"));
    m_window->uStack()->undo();
    QTRY_COMPARE(news(), QStringLiteral("1 of 2, 5 on other tabs"));
    m_window->removeRow();
    QTRY_COMPARE(news(), QStringLiteral("1 found, 5 on other tabs"));
    m_window->uStack()->undo();
    QTRY_COMPARE(news(), QStringLiteral("2 found, 5 on other tabs"));
    goTo(view(), 1, 3);
    edit(1, 1, 3, QStringLiteral("none"));
    QTRY_COMPARE(news(), QStringLiteral("1 found, 5 on other tabs"));
    QVERIFY(line()->isVisible());
}

void tst_WindowFind::changesAreCountedBeforeTheNextStep()
{
    showWindow();
    find(QStringLiteral("max"));
    edit(0, 1, 1, QStringLiteral("5max"));
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    QCOMPARE(currentPlace(), (QVector<int>{0, 1, 1}));
    QCOMPARE(news(), QStringLiteral("3 of 5, 3 on other tabs"));
    modelOf(*m_window, 0)->insertRows(0, 1);
    press(Qt::Key_Return);
    QCOMPARE(currentPlace(), (QVector<int>{0, 3, 1}));
}

void tst_WindowFind::clickOnACellIsCounted()
{
    showWindow();
    find(QStringLiteral("max"));
    const QRect cell = view()->visualRect(view()->model()->index(3, 0));
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QVERIFY(view()->hasFocus() && frame()->isVisible());
    QCOMPARE(news(), QStringLiteral("4 of 4, 3 on other tabs"));
}

void tst_WindowFind::tabsAreFollowed()
{
    showWindow();
    find(QStringLiteral("max"));
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabsOf(*m_window)->currentIndex(), 1);
    QVERIFY(line()->hasFocus());
    QCOMPARE(news(), QStringLiteral("2 found, 5 on other tabs"));
    QCOMPARE(currentPlace(), (QVector<int>{1, -1, -1}));
    tabsOf(*m_window)->setCurrentIndex(2);
    QCOMPARE(news(), QStringLiteral("No match here, 7 on other tabs"));
    QCOMPARE(placeOf(frame()).bottomRight(), placeOf(view()->viewport()).bottomRight());
    tabsOf(*m_window)->setCurrentIndex(0);
    QCOMPARE(news(), QStringLiteral("1 of 4, 3 on other tabs"));
}

void tst_WindowFind::loadClosesTheLine()
{
    showWindow();
    find(QStringLiteral("max"));
    loadGoodFile("@SCRIBON\nother\n@SCAN_LIST\nmax N\n");
    QVERIFY(!frame()->isVisible());
    QVERIFY(view()->hasFocus());
    openLine();
    QCOMPARE(news(), QStringLiteral("No match here, 1 on other tabs"));
    edit(0, 0, 1, QStringLiteral("max"));
    QTRY_COMPARE(news(), QStringLiteral("1 found, 1 on other tabs"));
}

// As File, Open does: its dialog is active until the file is loaded.
void tst_WindowFind::loadUnderADialogLeavesTheFocusInTheTable()
{
    showWindow();
    find(QStringLiteral("max"));
    QDialog dialog(m_window.get());
    QLineEdit name(&dialog);
    dialog.show();
    dialog.activateWindow();
    QTRY_VERIFY(name.hasFocus());
    loadGoodFile(specWithMax());
    QCOMPARE(m_window->focusWidget(), view());
}

void tst_WindowFind::failedLoadClosesTheLine()
{
    showWindow();
    find(QStringLiteral("max"));
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
    QVERIFY(!frame()->isVisible());
    openLine();
    QVERIFY(!frame()->isVisible());
}

void tst_WindowFind::doesNothingWithoutADocument()
{
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QWidget* const before = QApplication::focusWidget();
    openLine();
    QVERIFY(!frame()->isVisible());
    QCOMPARE(QApplication::focusWidget(), before);
    QCOMPARE(newsOf(*m_window), QStringLiteral("No file is open"));
}

void tst_WindowFind::liesBesideTheScrollBars_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QSize>("size");
    QTest::newRow("both bars") << specWithRows(100) << QSize(600, 600);
    QTest::newRow("no bars") << specWithMax() << QSize(1900, 1000);
    QTest::newRow("vertical bar") << specWithRows(100) << QSize(1900, 1000);
}

void tst_WindowFind::liesBesideTheScrollBars()
{
    QFETCH(QByteArray, text);
    QFETCH(QSize, size);
    showWindow(text, size);
    tabsOf(*m_window)->setCurrentIndex(1);
    if (size.width() == 600)
        view()->setColumnWidth(1, 800);
    openLine();
    QTRY_COMPARE(placeOf(frame()).bottomRight(), placeOf(view()->viewport()).bottomRight());
    QVERIFY(placeOf(view()->viewport()).contains(placeOf(frame())));
    QVERIFY(frame()->height() >= line()->sizeHint().height());
    for (const QScrollBar* const bar : {view()->verticalScrollBar(), view()->horizontalScrollBar()})
        QVERIFY(!bar->isVisible() || !placeOf(bar).intersects(placeOf(frame())));
    QVERIFY(frame()->isVisible() && line()->visibleRegion() == QRegion(line()->rect()));
}

void tst_WindowFind::followsTheTable()
{
    showWindow(specWithRows(100), {900, 700});
    tabsOf(*m_window)->setCurrentIndex(1);
    find(QStringLiteral("name"));
    const auto isInItsCorner = [this] {
        return placeOf(frame()).bottomRight() == placeOf(view()->viewport()).bottomRight();
    };
    QVERIFY(isInItsCorner());
    const QRect before = placeOf(frame());
    m_window->resize(1200, 650);
    QTRY_VERIFY(placeOf(frame()) != before);
    QTRY_VERIFY(isInItsCorner());
    view()->setColumnWidth(1, 3000);
    QTRY_VERIFY(view()->horizontalScrollBar()->isVisible());
    QTRY_VERIFY(isInItsCorner());
    view()->header()->setMinimumHeight(100);
    QTRY_VERIFY(isInItsCorner());
    view()->verticalScrollBar()->setValue(50);
    QVERIFY(isInItsCorner());
}

void tst_WindowFind::movesNothing()
{
    showWindow();
    const auto places = [this] {
        QVector<QRect> all;
        for (const QWidget* const widget : {static_cast<QWidget*>(view()), view()->viewport(),
                                            static_cast<QWidget*>(tabsOf(*m_window)),
                                            static_cast<QWidget*>(m_window->centralWidget())})
            all.append(placeOf(widget));
        return all;
    };
    const QVector<QRect> before = places();
    const QSize minimum = m_window->minimumSizeHint();
    find(QStringLiteral("max"));
    QCoreApplication::processEvents();
    QCOMPARE(places(), before);
    QCOMPARE(m_window->minimumSizeHint(), minimum);
}

// The line is over the last row, which cannot scroll away from it.
void tst_WindowFind::neverHidesTheCurrentCell()
{
    showWindow(specWithRows(100), {600, 600});
    tabsOf(*m_window)->setCurrentIndex(1);
    view()->setColumnWidth(1, 560);
    find(QStringLiteral("name_"));
    for (int step = 0; step < 101; ++step) {
        QVERIFY(seesCurrentCell());
        press(Qt::Key_Return);
    }
    press(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(currentPlace(), (QVector<int>{1, 100, 1}));
    QVERIFY(seesCurrentCell());
    QCOMPARE(placeOf(frame()).topRight(), placeOf(view()->viewport()).topRight());
    view()->setFocus();
    press(Qt::Key_Home);
    QVERIFY(seesCurrentCell());
    QCOMPARE(placeOf(frame()).bottomRight(), placeOf(view()->viewport()).bottomRight());
}

// Undo brings the cell that it changes into view, but leaves the current one, for which the line
// makes way.
void tst_WindowFind::undoneCellIsNotBehindTheLine()
{
    showWindow(specWithRows(100), {600, 600});
    tabsOf(*m_window)->setCurrentIndex(1);
    goTo(view(), 1, 3);
    openLine();
    const QModelIndex changed = view()->indexAt(frame()->geometry().center() -
                                                view()->viewport()->mapTo(tabsOf(*m_window), {}));
    QVERIFY(changed.isValid());
    edit(1, changed.row(), 3, QStringLiteral("OTHER"));
    const auto isBehind = [&] {
        const QPoint corner = view()->viewport()->mapTo(m_window.get(), QPoint());
        return view()->visualRect(changed).translated(corner).intersects(placeOf(frame()));
    };
    QVERIFY(isBehind());
    view()->setFocus();
    for (const auto& keys : {QKeySequence::Undo, QKeySequence::Redo}) {
        view()->scrollToTop();
        QVERIFY(isBehind());
        QTest::keySequence(m_window.get(), QKeySequence(keys));
        QVERIFY(!isBehind());
        QVERIFY(view()->viewport()->rect().contains(view()->visualRect(changed)));
        QCOMPARE(currentPlace(), (QVector<int>{1, 1, 3}));
    }
}

void tst_WindowFind::matchInViewIsNotScrolled()
{
    showWindow(specWithRows(100), {600, 600});
    tabsOf(*m_window)->setCurrentIndex(1);
    view()->verticalScrollBar()->setValue(40);
    find(QStringLiteral("name_43"));
    QCOMPARE(currentPlace(), (QVector<int>{1, 43, 1}));
    line()->setText(QStringLiteral("name_46"));
    QCOMPARE(currentPlace(), (QVector<int>{1, 46, 1}));
    QVERIFY(seesCurrentCell());
    const int top = view()->verticalScrollBar()->value();
    line()->setText(QStringLiteral("name_47"));
    QCOMPARE(view()->verticalScrollBar()->value(), top);
}

void tst_WindowFind::matchBehindTheLineIsScrolled_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::newRow("in view") << 1 << QStringLiteral("name_%1");
    QTest::newRow("at the right of the view") << 3 << QStringLiteral("N%1");
}

// The last row that is all in view.
void tst_WindowFind::matchBehindTheLineIsScrolled()
{
    QFETCH(int, column);
    QFETCH(QString, text);
    showWindow(specWithRows(100), {600, 600});
    tabsOf(*m_window)->setCurrentIndex(1);
    for (const int wide : {1, 3})
        view()->setColumnWidth(wide, 560);
    openLine();
    int row = 1;
    while (view()->visualRect(view()->model()->index(row + 1, 1)).bottom() <
           view()->viewport()->height())
        ++row;
    line()->setText(text.arg(row));
    QCOMPARE(currentPlace(), (QVector<int>{1, row, column}));
    QVERIFY(view()->verticalScrollBar()->value() > 0);
    QVERIFY(seesCurrentCell());
    QCOMPARE(placeOf(frame()).bottomRight(), placeOf(view()->viewport()).bottomRight());
}

void tst_WindowFind::matchOutOfSightComesIntoTheMiddle()
{
    showWindow(specWithRows(100), {600, 600});
    tabsOf(*m_window)->setCurrentIndex(1);
    const QVector<int> widths{0, 400, 150, 400};
    for (int column = 1; column < widths.size(); ++column)
        view()->setColumnWidth(column, widths[column]);
    for (const int row : {20, 50, 80})
        edit(1, row, 2, QStringLiteral("MEMBER%1").arg(row));
    openLine();
    for (const int row : {50, 20, 80}) {
        line()->setText(QStringLiteral("MEMBER%1").arg(row));
        QCOMPARE(currentPlace(), (QVector<int>{1, row, 2}));
        QVERIFY(seesCurrentCell());
        const QRect table = placeOf(view()->viewport());
        const int off = placeOfCurrentCell().center().y() - table.center().y();
        QVERIFY(qAbs(off) < table.height() / 4);
        QCOMPARE(view()->horizontalScrollBar()->value(), 0);
    }
}

// The last row comes into view again, and the line gives way.
void tst_WindowFind::currentMatchComesBackIntoView()
{
    showWindow(specWithRows(100), {600, 600});
    tabsOf(*m_window)->setCurrentIndex(1);
    view()->setColumnWidth(1, 560);
    goTo(view(), 100, 1);
    find(QStringLiteral("name_10"));
    QCOMPARE(currentPlace(), (QVector<int>{1, 100, 1}));
    view()->verticalScrollBar()->setValue(0);
    QTest::keyClicks(line(), QStringLiteral("0"));
    QCOMPARE(currentPlace(), (QVector<int>{1, 100, 1}));
    QVERIFY(seesCurrentCell());
}

void tst_WindowFind::hasTheFontOfTheTable()
{
    showWindow(specWithMax(), {600, 600});
    find(QStringLiteral("max"));
    const int height = frame()->height();
    QFont large = view()->font();
    large.setPointSize(24);
    view()->setFont(large);
    QCOMPARE(line()->font(), large);
    QTRY_VERIFY(frame()->height() > 2 * height);
    QVERIFY(placeOf(view()->viewport()).contains(placeOf(frame())));
    const auto* const label = m_window->findChild<QLabel*>(QStringLiteral("findNews"));
    QTRY_VERIFY(placeOf(label).top() > placeOf(line()).bottom());
    QVERIFY(label->height() >= label->heightForWidth(label->width()));
    QVERIFY(seesCurrentCell());
}

// Tab in the line leads to the table; elsewhere Tab passes the line by.
void tst_WindowFind::staysOutOfTheTabOrder()
{
    showWindow();
    view()->setFocus();
    const auto widgetsInOrder = [this] {
        QVector<QWidget*> order;
        for (int i = 0; i < 6; ++i) {
            press(Qt::Key_Tab);
            order.append(QApplication::focusWidget());
        }
        return order;
    };
    const QVector<QWidget*> closed = widgetsInOrder();
    find(QStringLiteral("max"));
    for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        line()->setFocus();
        press(key);
        QVERIFY(view()->hasFocus());
        QVERIFY(frame()->isVisible());
    }
    closed.first()->setFocus();
    view()->setFocus();
    QCOMPARE(widgetsInOrder(), closed);
}

// Ctrl+C copies from the line and not from the table, Ctrl+X does not leave the program, and Ctrl+Z
// does not undo the document's last change.
void tst_WindowFind::keysOfALineEditStay()
{
    showWindow();
    edit(0, 0, 1, QStringLiteral("cell"));
    find(QStringLiteral("max"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("max"));
    press(Qt::Key_X, Qt::ControlModifier);
    QVERIFY(m_window->isVisible());
    QCOMPARE(line()->text(), QString());
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(line()->text(), QStringLiteral("maxmax"));
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(line()->text(), QStringLiteral("max"));
    QCOMPARE(modelOf(*m_window, 0)->index(0, 1).data().toString(), QStringLiteral("cell"));
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 4);
}

void tst_WindowFind::isAccessible()
{
    showWindow();
    find(QStringLiteral("max"));
    QAccessibleInterface* const text = QAccessible::queryAccessibleInterface(line());
    QCOMPARE(text->text(QAccessible::Name), QStringLiteral("Find"));
    QCOMPARE(text->text(QAccessible::Description), QStringLiteral("1 of 4, 3 on other tabs"));
    auto* const button = m_window->findChild<QToolButton*>(QStringLiteral("findClose"));
    QCOMPARE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name),
             QStringLiteral("Close"));
    for (const char* const key : {"Return", "Shift+Return", "Ctrl+Return", "Escape"})
        QVERIFY(line()->toolTip().contains(QLatin1String(key)));
}

void tst_WindowFind::changesNothing()
{
    showWindow();
    find(QStringLiteral("max"));
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier})
        press(Qt::Key_Return, modifiers);
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QCOMPARE(m_window->uStack()->count(), 0);
        QVERIFY(!modelOf(*m_window, tab)->isModified());
    }
}

void tst_WindowFind::typingInATable_data()
{
    QTest::addColumn<QVector<int>>("start");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("place");
    using V = QVector<int>;
    const auto row = [](const char* name, const V& start, const char* text, const V& place) {
        QTest::newRow(name) << start << QString::fromUtf8(text) << place;
    };
    row("shown name", {0, 0, 0}, "max", {0, 1, 0});
    row("shown name with a blank in it", {0, 0, 0}, "Max Scans", {0, 1, 0});
    row("text of the file", {0, 0, 0}, "@max", {0, 1, 0});
    row("text of the file in capitals", {0, 0, 0}, "@MAX_", {0, 1, 0});
    row("round the end", {0, 3, 0}, "scri", {0, 0, 0});
    row("a comment", {0, 0, 0}, "# the", {0, 3, 0});
    row("not in the middle", {0, 0, 0}, "scans", {0, 0, 0});
    row("value", {0, 1, 1}, "max", {0, 2, 1});
    row("entry of a list", {1, 1, 1}, "ga", {1, 3, 1});
    row("nothing", {1, 2, 1}, "x", {1, 2, 1});
    row("not the placeholder of an empty cell", {1, 1, 2}, "filler", {1, 1, 2});
    row("entry behind its leading blank", {3, 1, 1}, "w", {3, 2, 1});
}

void tst_WindowFind::typingInATable()
{
    QFETCH(QVector<int>, start);
    QFETCH(QString, text);
    QByteArray spec = specWithMax();
    spec.replace("v max_name\n", "v max_name\nw n\n");
    showWindow(spec);
    modelOf(*m_window, 3)->setData(modelOf(*m_window, 3)->index(2, 1), QStringLiteral(" w"));
    tabsOf(*m_window)->setCurrentIndex(start[0]);
    goTo(view(), start[1], start[2]);
    view()->setFocus();
    QTest::keyClicks(view(), text);
    QTEST(currentPlace(), "place");
}

void tst_WindowFind::sameLetterGoesOnInATable()
{
    showWindow("@SCRIBON\ncell\n@STOP_EVENT\na\n@MAX_SCANS\n5\n@START_EVENT\nb\n");
    goTo(view(), 0, 0);
    view()->setFocus();
    for (const int row : {1, 3, 0, 1}) {
        press(Qt::Key_S);
        QCOMPARE(currentPlace(), (QVector<int>{0, row, 0}));
    }
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowFind)

#include "tst_window_find.moc"
