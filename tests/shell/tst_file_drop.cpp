// A file dropped on the window opens as by File, Open; anything else is refused.

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QSpinBox>
#include <QStatusBar>
#include <QSysInfo>
#include <QUndoStack>
#include <QUrl>

#include "statusbarform.h"
#include "window_test.h"

namespace {

const auto GOOD = QStringLiteral("/specs/good");
const auto OTHER = QStringLiteral("/specs/other");

QList<QUrl> filesAt(const QStringList& paths)
{
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    return urls;
}

}  // namespace

Q_DECLARE_METATYPE(Qt::DropActions)

class tst_FileDrop : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void fileIsOpened();
    void addressIsUnderstood_data();
    void addressIsUnderstood();
    void columnsFitTheTexts();
    void dropWorksEverywhere_data();
    void dropWorksEverywhere();
    void countersTakeNoText();
    void linesTakeNoFile_data();
    void linesTakeNoFile();
    void linesTakeAText();
    void fileIsNeverMoved_data();
    void fileIsNeverMoved();
    void unsavedWorkIsAskedFor_data();
    void unsavedWorkIsAskedFor();
    void openEditorCountsAsUnsavedWork();
    void missingFileIsToldAsByOpen();
    void otherFileIsToldInTheTitle();
    void refused_data();
    void refused();
    void refusedWhileADialogIsOpen();
    void messagesFitBesideTheCounters_data();
    void messagesFitBesideTheCounters();

private:
    void showWindow();
    // Drags the data over the widget and drops them there. Returns whether they are accepted.
    bool drop(const QMimeData& data, QWidget* widget);
    bool drop(const QList<QUrl>& urls, QWidget* widget = nullptr);

    Qt::DropActions m_offered = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
    Qt::DropAction m_taken = Qt::IgnoreAction;
};

void tst_FileDrop::showWindow()
{
    loadGoodFile();
    QVERIFY(writeFile(OTHER, largeSpec(40)));
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

// Qt offers the drag to the widget and then to its parents, and sends what follows to the one that
// has accepted it.
bool tst_FileDrop::drop(const QMimeData& data, QWidget* widget)
{
    const QPoint place(1, 1);
    QDragEnterEvent enter(place, m_offered, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(widget, &enter);
    QDragMoveEvent move(place, m_offered, &data, Qt::LeftButton, Qt::NoModifier);
    move.ignore();
    QCoreApplication::sendEvent(widget, &move);
    QDropEvent end(place, m_offered, &data, Qt::LeftButton, Qt::NoModifier);
    end.ignore();
    QCoreApplication::sendEvent(widget, &end);
    m_taken = end.dropAction();
    return enter.isAccepted() && move.isAccepted() && end.isAccepted();
}

bool tst_FileDrop::drop(const QList<QUrl>& urls, QWidget* widget)
{
    QMimeData data;
    data.setUrls(urls);
    return drop(data, widget == nullptr ? m_window.get() : widget);
}

// Not before the drop has ended.
void tst_FileDrop::fileIsOpened()
{
    showWindow();
    QVERIFY(drop(filesAt({OTHER})));
    QCOMPARE(titleOf(*m_window), GOOD);
    QTRY_COMPARE(titleOf(*m_window), OTHER);
    QCOMPARE(newsOf(*m_window), QStringLiteral("File loaded"));
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 41);
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_FileDrop::addressIsUnderstood_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("no computer") << QStringLiteral("file:///specs/a%20%C3%B6%23b");
    QTest::newRow("this computer") << QStringLiteral("file://localhost/specs/a%20%C3%B6%23b");
    QTest::newRow("its name")
        << QStringLiteral("file://%1/specs/a%20%C3%B6%23b").arg(QSysInfo::machineHostName());
}

void tst_FileDrop::addressIsUnderstood()
{
    QFETCH(QString, address);
    showWindow();
    const QString name = QString::fromUtf8("/specs/a \xC3\xB6#b");
    QVERIFY(writeFile(name, goodSpec()));
    QVERIFY(drop({QUrl(address)}));
    QTRY_COMPARE(titleOf(*m_window), name);
}

void tst_FileDrop::columnsFitTheTexts()
{
    showWindow();
    QVERIFY(writeFile(OTHER, "@SCRIBON\ncell\n@SCAN_LIST\n" + QByteArray(80, 'v') + " N\n"));
    const int before = viewOf(*m_window, 1)->columnWidth(1);
    QVERIFY(drop(filesAt({OTHER})));
    QTRY_COMPARE(titleOf(*m_window), OTHER);
    QVERIFY(viewOf(*m_window, 1)->columnWidth(1) > before);
}

void tst_FileDrop::dropWorksEverywhere_data()
{
    QTest::addColumn<QString>("part");
    for (const char* const part : {"table", "header", "tabs", "menus", "status bar", "counter"})
        QTest::newRow(part) << QString::fromLatin1(part);
}

void tst_FileDrop::dropWorksEverywhere()
{
    QFETCH(QString, part);
    showWindow();
    auto* const counter = m_window->findChild<QSpinBox*>(QStringLiteral("errors"));
    const QMap<QString, QWidget*> parts{
        {QStringLiteral("table"), viewOf(*m_window, 0)->viewport()},
        {QStringLiteral("header"), viewOf(*m_window, 0)->header()->viewport()},
        {QStringLiteral("tabs"), tabsOf(*m_window)->tabBar()},
        {QStringLiteral("menus"), m_window->findChild<QMenuBar*>()},
        {QStringLiteral("status bar"), m_window->findChild<QStatusBar*>()},
        {QStringLiteral("counter"), counter->findChild<QLineEdit*>()}};
    // File managers offer the address as text too.
    QMimeData data;
    data.setUrls(filesAt({OTHER}));
    data.setText(QStringLiteral("7"));
    QVERIFY(drop(data, parts[part]));
    QTRY_COMPARE(titleOf(*m_window), OTHER);
}

void tst_FileDrop::countersTakeNoText()
{
    showWindow();
    auto* const counter = m_window->findChild<QSpinBox*>(QStringLiteral("errors"));
    const int before = counter->value();
    QMimeData data;
    data.setText(QStringLiteral("7"));
    QVERIFY(!drop(data, counter->findChild<QLineEdit*>()));
    QCOMPARE(counter->value(), before);
    QCOMPARE(newsOf(*m_window), QStringLiteral("Drop a file to open it"));
}

void tst_FileDrop::linesTakeNoFile_data()
{
    QTest::addColumn<bool>("isFind");
    QTest::newRow("Find") << true;
    QTest::newRow("editor of a cell") << false;
}

// File managers offer the address as text too, which a line edit would take.
void tst_FileDrop::linesTakeNoFile()
{
    QFETCH(bool, isFind);
    showWindow();
    goTo(viewOf(*m_window, 0), 0, 1);
    QTest::keyClick(viewOf(*m_window, 0), isFind ? Qt::Key_F : Qt::Key_F2,
                    isFind ? Qt::ControlModifier : Qt::NoModifier);
    auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(line != nullptr);
    const QString before = line->text();
    QMimeData data;
    data.setText(QStringLiteral("words"));
    data.setUrls(filesAt({OTHER, GOOD}));
    QVERIFY(!drop(data, line));
    QCOMPARE(newsOf(*m_window), QStringLiteral("One file at a time"));
    data.setUrls(filesAt({OTHER}));
    QVERIFY(drop(data, line));
    QCOMPARE(line->text(), before);
    QTRY_COMPARE(titleOf(*m_window), OTHER);
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_FileDrop::linesTakeAText()
{
    showWindow();
    QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
    auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(line != nullptr);
    QMimeData data;
    data.setText(QStringLiteral("words"));
    QVERIFY(drop(data, line));
    QCOMPARE(line->text(), QStringLiteral("words"));
}

void tst_FileDrop::fileIsNeverMoved_data()
{
    QTest::addColumn<Qt::DropActions>("offered");
    QTest::addColumn<Qt::DropAction>("taken");
    QTest::newRow("all actions") << m_offered << Qt::CopyAction;
    QTest::newRow("copy or move") << (Qt::CopyAction | Qt::MoveAction) << Qt::CopyAction;
    QTest::newRow("move") << Qt::DropActions(Qt::MoveAction) << Qt::IgnoreAction;
}

// A file manager removes a file whose move was accepted.
void tst_FileDrop::fileIsNeverMoved()
{
    showWindow();
    QFETCH(Qt::DropActions, offered);
    m_offered = offered;
    QVERIFY(drop(filesAt({OTHER})));
    QTEST(m_taken, "taken");
    QTRY_COMPARE(titleOf(*m_window), OTHER);
}

void tst_FileDrop::unsavedWorkIsAskedFor_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("saved");
    QTest::newRow("Save") << int(QMessageBox::Save) << OTHER << true;
    QTest::newRow("Discard") << int(QMessageBox::Discard) << OTHER << false;
    QTest::newRow("Cancel") << int(QMessageBox::Cancel) << GOOD << false;
}

void tst_FileDrop::unsavedWorkIsAskedFor()
{
    QFETCH(int, answer);
    QFETCH(QString, title);
    QFETCH(bool, saved);
    showWindow();
    edit(0, 0, 1, QStringLiteral("edited"));
    m_dialogs->answerBox(static_cast<QMessageBox::StandardButton>(answer));
    QVERIFY(drop(filesAt({OTHER})));
    QVERIFY(m_dialogs->boxes.isEmpty());
    QTRY_COMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text,
             QStringLiteral("The file has been modified.\nDo you want to save your chanages?"));
    QTRY_COMPARE(titleOf(*m_window), title);
    QCOMPARE(readFile(GOOD).contains("edited"), saved);
    QCOMPARE(modelOf(*m_window, 0)->isModified(), title == GOOD);
}

void tst_FileDrop::openEditorCountsAsUnsavedWork()
{
    showWindow();
    QTreeView* const view = viewOf(*m_window, 0);
    goTo(view, 0, 1);
    view->edit(view->currentIndex());
    qobject_cast<QLineEdit*>(view->indexWidget(view->currentIndex()))
        ->setText(QStringLiteral("typed"));
    m_dialogs->answerBox(QMessageBox::Save);
    QVERIFY(drop(filesAt({OTHER}), tabsOf(*m_window)));
    QTRY_COMPARE(titleOf(*m_window), OTHER);
    QVERIFY(readFile(GOOD).contains("typed"));
}

void tst_FileDrop::missingFileIsToldAsByOpen()
{
    showWindow();
    QVERIFY(drop(filesAt({QStringLiteral("/specs/none")})));
    QTRY_COMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(m_dialogs->boxes[0].text.startsWith(QStringLiteral("Cannot read file /specs/none:\n")));
    QCOMPARE(titleOf(*m_window), GOOD);
}

void tst_FileDrop::otherFileIsToldInTheTitle()
{
    showWindow();
    QVERIFY(writeFile(OTHER, badSpec()));
    QVERIFY(drop(filesAt({OTHER})));
    QTRY_COMPARE(titleOf(*m_window), QStringLiteral("Invalid scribon_specs file: ") + OTHER);
}

void tst_FileDrop::refused_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("news");
    const auto row = [](const char* name, const QList<QUrl>& urls, const char* text,
                        const char* news) {
        QTest::newRow(name) << urls << QString::fromLatin1(text) << QString::fromLatin1(news);
    };
    row("text", {}, "/specs/other", "Drop a file to open it");
    row("nothing", {}, "", "Drop a file to open it");
    row("two files", filesAt({OTHER, GOOD}), "", "One file at a time");
    row("folder", filesAt({QStringLiteral("/specs")}), "", "A folder cannot be opened");
    row("web page", {QUrl(QStringLiteral("http://localhost/specs/other"))}, "",
        "Not on this computer");
    row("file of another computer", {QUrl(QStringLiteral("file://elsewhere.example/specs/other"))},
        "", "Not on this computer");
    row("file without a name", {QUrl(QStringLiteral("file:"))}, "", "Not on this computer");
}

void tst_FileDrop::refused()
{
    QFETCH(QList<QUrl>, urls);
    QFETCH(QString, text);
    showWindow();
    edit(0, 0, 1, QStringLiteral("edited"));
    QMimeData data;
    if (!urls.isEmpty())
        data.setUrls(urls);
    if (!text.isEmpty())
        data.setText(text);
    QVERIFY(!drop(data, viewOf(*m_window, 0)->viewport()));
    QTEST(newsOf(*m_window), "news");
    QCoreApplication::processEvents();
    QCOMPARE(titleOf(*m_window), GOOD);
    QVERIFY(m_dialogs->boxes.isEmpty());
    QCOMPARE(m_window->uStack()->count(), 1);
}

void tst_FileDrop::refusedWhileADialogIsOpen()
{
    showWindow();
    bool accepted = true;
    m_dialogs->answer([&](QDialog* dialog) {
        accepted = drop(filesAt({OTHER}));
        dialog->reject();
    });
    m_window->about();
    QVERIFY(!accepted);
    QCOMPARE(newsOf(*m_window), QStringLiteral("Answer the dialog first"));
    QCoreApplication::processEvents();
    QCOMPARE(titleOf(*m_window), GOOD);
}

void tst_FileDrop::messagesFitBesideTheCounters_data()
{
    refused_data();
}

// Beside the longest name of a counter.
void tst_FileDrop::messagesFitBesideTheCounters()
{
    QFETCH(QList<QUrl>, urls);
    showWindow();
    m_window->resize(600, 600);
    tabsOf(*m_window)->setCurrentIndex(3);
    QVERIFY(!drop(urls));
    const auto* const bar = m_window->findChild<QStatusBar*>(QStringLiteral("statusbar"));
    const auto* const counters = bar->findChild<StatusBarForm*>();
    QVERIFY(!newsOf(*m_window).isEmpty());
    QVERIFY(bar->fontMetrics().horizontalAdvance(newsOf(*m_window)) < counters->x() - 6);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_FileDrop)

#include "tst_file_drop.moc"
