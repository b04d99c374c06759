// What the window shows and allows while no document is open: at the start, and after a file was
// refused.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QUndoStack>

#include "window_test.h"

namespace {

const auto HINT = QStringLiteral("Ctrl+O opens a spec file, Ctrl+N starts a new one");
const auto REASON = QStringLiteral("Its first statement is not @SCRIBON.");
const auto BAD = QStringLiteral("/specs/bad");

QByteArray spec()
{
    return "@SCRIBON\n1-wrong\n# a comment\n@MODE\nmode_var\n@LOG_STATISTICS\nmaybe\n"
           "@SCAN_LIST\nspeed .AV N\n# note\n2wrong P\n@META_DATA\nNAME name\n"
           "@SCAN_LIST_AUX_USER\na b\n@ECM_LIST\n1 /specs/a:b:1\n";
}

bool isDark(QRgb pixel)
{
    return qGray(pixel) < qGray(QColor(Qt::darkGray).rgb()) - 8;
}

bool isColoured(QRgb pixel)
{
    const int red = qRed(pixel);
    return red > qGreen(pixel) + 24 && red > qBlue(pixel) + 24;
}

// The points of a picture that are unlike the right end of their line, which has no text.
QVector<bool> marks(const QImage& image)
{
    constexpr int STRENGTH = 40;
    QVector<bool> points;
    for (int y = 0; y < image.height(); ++y) {
        const int ground = qGray(image.pixel(image.width() - 3, y));
        for (int x = 0; x < image.width(); ++x)
            points.append(qAbs(qGray(image.pixel(x, y)) - ground) > STRENGTH);
    }
    return points;
}

// The part of the points that two pictures have in common.
double similarity(const QImage& one, const QImage& other)
{
    const QVector<bool> ones = marks(one);
    const QVector<bool> others = marks(other);
    int both = 0;
    int any = 0;
    for (int i = 0; i < ones.size(); ++i) {
        both += ones[i] && others[i] ? 1 : 0;
        any += ones[i] || others[i] ? 1 : 0;
    }
    return any == 0 ? 1 : double(both) / any;
}

}  // namespace

class tst_WindowNothingOpen : public WindowTest {
    Q_OBJECT

public:
    // For the icons.
    tst_WindowNothingOpen() { Q_INIT_RESOURCE(scriboneditor); }

private Q_SLOTS:
    void emptyPageTellsWhatToDo();
    void refusedFileIsTold();
    void reasonIsTrue_data();
    void reasonIsTrue();
    void longNameIsCut();
    void noticeStaysInTheMiddle();
    void noticeLetsTheMouseThrough();
    void noticeGoesWithTheNextFile();
    void noticeKnowsNoMarkup();
    void rowsLookAsBeforeButGrey_data();
    void rowsLookAsBeforeButGrey();
    void rowsCannotBeChanged_data();
    void rowsCannotBeChanged();
    void nextFileIsNormalAgain();
    void refusedTwice();

private:
    QLabel* notice() { return m_window->findChild<QLabel*>(QStringLiteral("pageNotice")); }
    QTreeView* view(int tab) { return viewOf(*m_window, tab); }
    void show();
    void refuse(const QString& name = BAD);
    QImage picture(int tab);
    QVector<QStringList> texts();
    QPoint middleOfPage();
};

void tst_WindowNothingOpen::show()
{
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_WindowNothingOpen::refuse(const QString& name)
{
    QVERIFY(writeFile(name, badSpec()));
    m_window->loadFile(name, false);
    QCOMPARE(titleOf(*m_window), QStringLiteral("Invalid scribon_specs file: ") + name);
}

// Without the mouse over a cell.
QImage tst_WindowNothingOpen::picture(int tab)
{
    tabsOf(*m_window)->setCurrentIndex(tab);
    view(tab)->clearSelection();
    view(tab)->setCurrentIndex(QModelIndex());
    QApplication::processEvents();
    return view(tab)->viewport()->grab().toImage();
}

QVector<QStringList> tst_WindowNothingOpen::texts()
{
    QVector<QStringList> all;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (int row = 0; row < modelOf(*m_window, tab)->rowCount(); ++row)
            all.append(rowTexts(*modelOf(*m_window, tab), row));
    }
    return all;
}

QPoint tst_WindowNothingOpen::middleOfPage()
{
    const QWidget* const page = tabsOf(*m_window)->currentWidget();
    return page->mapTo(m_window.get(), page->rect().center());
}

// ---- The notice --------------------------------------------------------------------------------

void tst_WindowNothingOpen::emptyPageTellsWhatToDo()
{
    show();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QVERIFY(notice()->isVisible());
        QCOMPARE(notice()->text(), HINT);
    }
    const QImage seen = notice()->grab().toImage();
    for (int x = 0; x < seen.width(); ++x)
        QVERIFY(qGray(seen.pixel(x, seen.height() / 2)) > 0x40);
}

void tst_WindowNothingOpen::refusedFileIsTold()
{
    show();
    refuse();
    QVERIFY(notice()->isVisible());
    QCOMPARE(notice()->text().split(QLatin1Char('\n')),
             (QStringList{QStringLiteral("Invalid scribon_specs file: /specs/bad"), REASON, HINT}));
}

void tst_WindowNothingOpen::reasonIsTrue_data()
{
    const auto begins =
        QStringLiteral("It begins with @SCRIBON, but has a line that cannot be read.");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an empty file") << QByteArray() << REASON;
    QTest::newRow("comments only") << QByteArray("# one\n#@SCRIBON\n\n# two") << REASON;
    QTest::newRow("another name first") << QByteArray("@GROUP\ng\n@SCRIBON\nx\n") << REASON;
    QTest::newRow("a longer word") << QByteArray("@SCRIBONS\nx\n") << REASON;
    const QByteArray number = "@META_DATA\nNAME name\n4\nOTHER other\n";
    QTest::newRow("a number alone") << "@SCRIBON\nx\n" + number << begins;
    QTest::newRow("DOS line ends, a comment, a number alone")
        << "# one\r\n\r\n\t@SCRIBON x\r\n" + number << begins;
}

void tst_WindowNothingOpen::reasonIsTrue()
{
    QFETCH(QByteArray, text);
    QVERIFY(writeFile(BAD, text));
    m_window->loadFile(BAD, false);
    QVERIFY(titleOf(*m_window).startsWith(QLatin1String("Invalid scribon_specs file: ")));
    QTEST(notice()->text().section(QLatin1Char('\n'), 1, 1), "reason");
}

void tst_WindowNothingOpen::longNameIsCut()
{
    show();
    refuse(QStringLiteral("/specs/") + QString(100, QLatin1Char('n')));
    const QStringList lines = notice()->text().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines[0].startsWith(QLatin1String("Invalid scribon_specs file: ")),
             qPrintable(lines[0]));
    QVERIFY(lines[0].endsWith(QLatin1String("nnn")));
    QVERIFY(lines[0].contains(QChar(0x2026)));
    QVERIFY(tabsOf(*m_window)->rect().contains(notice()->geometry()));
    m_window->resize(m_window->width() * 4, m_window->height());
    QTRY_VERIFY(!notice()->text().contains(QChar(0x2026)));
}

void tst_WindowNothingOpen::noticeStaysInTheMiddle()
{
    show();
    const auto isInTheMiddle = [this] {
        const QPoint middle = notice()->mapTo(m_window.get(), notice()->rect().center());
        return (middle - middleOfPage()).manhattanLength() <= 2 &&
               notice()->height() >= notice()->heightForWidth(notice()->width());
    };
    QTRY_VERIFY(isInTheMiddle());
    m_window->resize(1100, 800);
    QTRY_VERIFY(isInTheMiddle());
    notice()->setFont(QFont(QStringLiteral("DejaVu Sans"), 40));
    QTRY_VERIFY(isInTheMiddle());
    QVERIFY(tabsOf(*m_window)->rect().contains(notice()->geometry()));
}

void tst_WindowNothingOpen::noticeLetsTheMouseThrough()
{
    show();
    loadGoodFile(spec());
    refuse();
    QCOMPARE(m_window->childAt(middleOfPage()), view(0)->viewport());
}

void tst_WindowNothingOpen::noticeGoesWithTheNextFile()
{
    show();
    loadGoodFile(spec());
    QVERIFY(!notice()->isVisible());
    refuse();
    QVERIFY(notice()->isVisible());
    loadGoodFile(spec());
    QVERIFY(!notice()->isVisible());
    tabsOf(*m_window)->setCurrentIndex(3);
    QVERIFY(!notice()->isVisible());
}

void tst_WindowNothingOpen::noticeKnowsNoMarkup()
{
    show();
    refuse(QStringLiteral("/specs/<b>bad"));
    QVERIFY(notice()->text().contains(QLatin1String("/specs/<b>bad")));
    QCOMPARE(notice()->textFormat(), Qt::PlainText);
}

// ---- The rows of the last document -------------------------------------------------------------

void tst_WindowNothingOpen::rowsLookAsBeforeButGrey_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        QTest::addRow("tab %d", tab) << tab;
}

void tst_WindowNothingOpen::rowsLookAsBeforeButGrey()
{
    QFETCH(int, tab);
    show();
    loadGoodFile(spec());
    const QImage before = picture(tab);
    refuse();
    const QImage after = picture(tab);
    QCOMPARE(after.size(), before.size());
    int dark = 0;
    int coloured = 0;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            dark += isDark(after.pixel(x, y)) ? 1 : 0;
            coloured += isColoured(after.pixel(x, y)) ? 1 : 0;
        }
    }
    QCOMPARE(dark, 0);
    QCOMPARE(coloured, 0);
    const double common = similarity(before, after);
    QVERIFY2(common > 0.7, qPrintable(QString::number(common)));
}

Q_DECLARE_METATYPE(std::function<void(MainWindow*, QTreeView*)>)

void tst_WindowNothingOpen::rowsCannotBeChanged_data()
{
    using Attempt = std::function<void(MainWindow*, QTreeView*)>;
    QTest::addColumn<Attempt>("attempt");
    const auto key = [](Qt::Key which, Qt::KeyboardModifiers with = {}) {
        return Attempt(
            [=](MainWindow* /*window*/, QTreeView* view) { QTest::keyClick(view, which, with); });
    };
    QTest::newRow("F2") << key(Qt::Key_F2);
    QTest::newRow("Return") << key(Qt::Key_Return);
    QTest::newRow("a letter") << key(Qt::Key_A);
    QTest::newRow("Delete") << key(Qt::Key_Delete);
    QTest::newRow("Ctrl+I") << key(Qt::Key_I, Qt::ControlModifier);
    QTest::newRow("Ctrl+R") << key(Qt::Key_R, Qt::ControlModifier);
    QTest::newRow("Ctrl+V") << key(Qt::Key_V, Qt::ControlModifier);
    QTest::newRow("Ctrl+Z") << key(Qt::Key_Z, Qt::ControlModifier);
    QTest::newRow("F8") << key(Qt::Key_F8);
    QTest::newRow("double click") << Attempt([](MainWindow* /*window*/, QTreeView* view) {
        const QPoint cell = view->visualRect(view->currentIndex()).center();
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cell);
    });
    QTest::newRow("edit()") << Attempt(
        [](MainWindow* /*window*/, QTreeView* view) { view->edit(view->currentIndex()); });
    QTest::newRow("insertRow()") << Attempt(
        [](MainWindow* window, QTreeView* /*view*/) { window->insertRow(); });
    QTest::newRow("removeRow()") << Attempt(
        [](MainWindow* window, QTreeView* /*view*/) { window->removeRow(); });
    QTest::newRow("the Edit menu") << Attempt([](MainWindow* window, QTreeView* /*view*/) {
        auto* const menu = window->findChild<QMenu*>(QStringLiteral("actionsMenu"));
        Q_EMIT menu->aboutToShow();
        for (QAction* const action : menu->actions()) {
            if (action->objectName() != QLatin1String("actionPreferences"))
                action->trigger();
        }
    });
}

void tst_WindowNothingOpen::rowsCannotBeChanged()
{
    QFETCH(std::function<void(MainWindow*, QTreeView*)>, attempt);
    show();
    loadGoodFile(spec());
    edit(0, 2, 1, QStringLiteral("edited"));
    refuse();
    const QVector<QStringList> before = texts();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        for (int column = 0; column < view(tab)->model()->columnCount(); ++column) {
            goTo(view(tab), 1, column);
            view(tab)->setFocus();
            attempt(m_window.get(), view(tab));
            QVERIFY(view(tab)->findChildren<QLineEdit*>().isEmpty());
            QVERIFY(view(tab)->findChildren<QComboBox*>().isEmpty());
            QVERIFY(QApplication::activeModalWidget() == nullptr);
        }
    }
    QCOMPARE(texts(), before);
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowNothingOpen::nextFileIsNormalAgain()
{
    show();
    loadGoodFile(spec());
    const QImage before = picture(0);
    refuse();
    QVERIFY(picture(0) != before);
    loadGoodFile(spec());
    QCOMPARE(picture(0), before);
    goTo(view(0), 2, 0);
    view(0)->setFocus();
    QTest::keyClick(view(0), Qt::Key_F2);
    QVERIFY(view(0)->findChild<QComboBox*>() != nullptr);
}

void tst_WindowNothingOpen::refusedTwice()
{
    show();
    loadGoodFile(spec());
    refuse();
    const QImage before = picture(0);
    refuse(QStringLiteral("/specs/worse"));
    QCOMPARE(picture(0), before);
    QVERIFY(notice()->text().contains(QLatin1String("/specs/worse")));
    QVERIFY(view(0)->isFirstColumnSpanned(1, QModelIndex()));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowNothingOpen)
#include "tst_window_nothing_open.moc"
