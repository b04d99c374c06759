// Loading files into the window, and the window after a failed load.

#include <sys/stat.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <QUndoGroup>
#include <QUndoStack>

#include "antlr3_basetreedelegate.h"
#include "editor_access.h"
#include "editor_antlr3.h"
#include "statusbarform.h"
#include "window_test.h"

namespace {

const auto SCRATCH = QStringLiteral("/tmp/untitled.txt");
const auto GOOD = QStringLiteral("/specs/good");
const auto BAD = QStringLiteral("/specs/bad");
const auto BAD_TITLE = QStringLiteral("Invalid scribon_specs file: /specs/bad");
const auto NOTHING = QStringLiteral("Empty File");

QStringList objectNames(const MainWindow& window)
{
    QStringList names;
    for (int tab = 0; tab < 5; ++tab) {
        const QAbstractItemModel* const model = viewOf(window, tab)->model();
        names.append(model == nullptr ? QString() : model->objectName());
    }
    return names;
}

QStringList headers(const QAbstractItemModel& model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal).toString());
    return texts;
}

// The number of objects that must not grow with each load.
int objectsOf(const MainWindow& window)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return window.findChildren<QObject*>().size();
}

}  // namespace

class tst_WindowDocument : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void startsWithNothingLoaded();
    void scratchFile_data();
    void scratchFile();

    void titleShowsTheState();
    void fiveTabsShowTheFile();
    void viewsAreSetUp();
    void columnsFitTheirTexts();
    void messageOfALoadIsShownForTwoSeconds();
    void specsDirectoryIsTriedNext_data();
    void specsDirectoryIsTriedNext();
    void workingDirectoryIsTriedFirst();
    void specsDirectoryIsNotTriedForNamesWithSpecs_data();
    void specsDirectoryIsNotTriedForNamesWithSpecs();
    void unreadableFileLeavesTheDocument();
    void fileVanishesBetweenTheTwoOpens();
    void fileTurnsIntoAPipeBetweenTheTwoOpens();
    void loadWithoutReadingKeepsTheTree();
    void loadWithoutReadingAndWithoutATree();
    void loadByNameLeavesLoadingFileAlone();

    void loadClearsTheUndoStacks();
    void failedLoadClearsTheUndoStacks();
    void firstLoadGivesNoWarning();
    void reloadReplacesAllTabs();
    void loadsDoNotLeakObjects();
    void newDocumentIsDirtyAndUnmodified();

    void failedLoadKeepsTheOldModels();
    void failedLoadDeletesDelegatesAndSelections();
    void failedLoadDisablesRowActions();
    void viewsCanPaintAfterAFailedLoad();
    void viewsAcceptKeysAfterAFailedLoad_data();
    void viewsAcceptKeysAfterAFailedLoad();
    void loadAfterAFailedLoad();
    void twoFailedLoads();

    void windowOnOneFile();
    void windowOnOneFileCountsItsErrors();
    void windowOnOneBadFile();
    void parserIsFreedWhenTheWindowIsDeleted();
    void editorAccessIsSetWhileTheWindowExists();
};

void tst_WindowDocument::startsWithNothingLoaded()
{
    QCOMPARE(titleOf(*m_window), NOTHING);
    QCOMPARE(m_window->windowFilePath(), NOTHING);
    QCOMPARE(EditorMainWindow, m_window.get());
    QCOMPARE(LoadingFile, 0);
    for (int tab = 0; tab < 5; ++tab)
        QVERIFY(viewOf(*m_window, tab)->model() == nullptr);
    QVERIFY(!actionOf(*m_window, "insertRowAction")->isEnabled());
    QVERIFY(!actionOf(*m_window, "removeRowAction")->isEnabled());
    QVERIFY(!actionOf(*m_window, "insertColumnAction")->isEnabled());
    QVERIFY(!actionOf(*m_window, "removeColumnAction")->isEnabled());
    QCOMPARE(newsOf(*m_window), QString());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDocument::scratchFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("title");
    QTest::newRow("a spec file is the document") << QStringLiteral("good") << SCRATCH;
    QTest::newRow("another file is told in the title")
        << QStringLiteral("bad") << QStringLiteral("Invalid scribon_specs file: ") + SCRATCH;
    QTest::newRow("an empty file")
        << QStringLiteral("empty") << QStringLiteral("Invalid scribon_specs file: ") + SCRATCH;
    QTest::newRow("a directory") << QStringLiteral("directory") << NOTHING;
    QTest::newRow("a pipe") << QStringLiteral("pipe") << NOTHING;
    QTest::newRow("a link to a device") << QStringLiteral("device") << NOTHING;
    QTest::newRow("a file that may not be read") << QStringLiteral("locked") << NOTHING;
}

void tst_WindowDocument::scratchFile()
{
    QFETCH(QString, kind);
    const QHash<QString, std::function<bool()>> makers{
        {QStringLiteral("good"), [] { return writeFile(SCRATCH, goodSpec()); }},
        {QStringLiteral("bad"), [] { return writeFile(SCRATCH, badSpec()); }},
        {QStringLiteral("empty"), [] { return writeFile(SCRATCH, QByteArray()); }},
        {QStringLiteral("directory"), [] { return QDir().mkpath(SCRATCH); }},
        {QStringLiteral("pipe"), [] { return makePipe(SCRATCH); }},
        {QStringLiteral("device"),
         [] { return QFile::link(QStringLiteral("/dev/zero"), SCRATCH); }},
        {QStringLiteral("locked"), [] {
             return writeFile(SCRATCH, goodSpec()) &&
                    QFile::setPermissions(SCRATCH, QFileDevice::Permissions());
         }}};
    QVERIFY(makers.value(kind)());
    const MainWindow window;
    QTEST(titleOf(window), "title");
    QCOMPARE(viewOf(window, 0)->model() != nullptr, kind == QLatin1String("good"));
    QCOMPARE(actionOf(window, "insertRowAction")->isEnabled(), kind == QLatin1String("good"));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDocument::titleShowsTheState()
{
    QCOMPARE(titleOf(*m_window), NOTHING);
    QVERIFY(writeFile(BAD, badSpec()));
    m_window->loadFile(BAD, false);
    QCOMPARE(titleOf(*m_window), BAD_TITLE);
    QCOMPARE(m_window->windowFilePath(), BAD_TITLE);
    QCOMPARE(newsOf(*m_window), QString());
    loadGoodFile();
    QCOMPARE(m_window->windowFilePath(), GOOD);
    edit(0, 0, 1, QStringLiteral("other_name"));
    QCOMPARE(titleOf(*m_window), GOOD);
    QVERIFY(!m_window->isWindowModified());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDocument::fiveTabsShowTheFile()
{
    loadGoodFile();
    QCOMPARE(objectNames(*m_window),
             QStringList({QStringLiteral("Model13"), QStringLiteral("Model14"),
                          QStringLiteral("Model15"), QStringLiteral("Model16"),
                          QStringLiteral("Model17")}));
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).mid(0, 2),
             QStringList({QStringLiteral("@SCRIBON"), QStringLiteral("engine_log")}));
    QCOMPARE(columnTexts(*modelOf(*m_window, 0), 0).size(), 9);
    QCOMPARE(rowTexts(*modelOf(*m_window, 1), 2),
             QStringList({QString(), QStringLiteral("torque"), QStringLiteral(".MX"),
                          QStringLiteral("torque_chan")}));
    QCOMPARE(rowTexts(*modelOf(*m_window, 2), 1),
             QStringList({QString(), QStringLiteral("oil_pam"), QStringLiteral("oil_temp")}));
    QCOMPARE(rowTexts(*modelOf(*m_window, 3), 1),
             QStringList({QString(), QStringLiteral("fuel_rate"), QStringLiteral("other_name")}));
    QCOMPARE(modelOf(*m_window, 4)->index(0, 0).data().toString(), QStringLiteral("@ECM_LIST"));
    QCOMPARE(modelOf(*m_window, 4)->rowCount(), 2);
    QCOMPARE(headers(*modelOf(*m_window, 1)),
             QStringList({QStringLiteral("Keyword          "),
                          QStringLiteral("Marvane Variable                  "),
                          QStringLiteral("Statistical\nMember        "),
                          QStringLiteral("Channel\nKeyword")}));
    QCOMPARE(headers(*modelOf(*m_window, 0)).last(), QString());
    QCOMPARE(newsOf(*m_window), QStringLiteral("File loaded"));
    QVERIFY(actionOf(*m_window, "insertRowAction")->isEnabled());
    QVERIFY(!actionOf(*m_window, "removeRowAction")->isEnabled());
}

void tst_WindowDocument::viewsAreSetUp()
{
    loadGoodFile();
    QSet<QAbstractItemDelegate*> delegates;
    for (int tab = 0; tab < 5; ++tab) {
        const QTreeView* const view = viewOf(*m_window, tab);
        QVERIFY(!view->rootIsDecorated());
        QVERIFY(qobject_cast<Antlr3_BaseTreeDelegate*>(view->itemDelegate()) != nullptr);
        delegates.insert(view->itemDelegate());
        QCOMPARE(view->isRowHidden(0, QModelIndex()), tab > 0);
        QVERIFY(!view->isRowHidden(1, QModelIndex()));
        for (int column = 0; column < view->model()->columnCount(); ++column)
            QCOMPARE(view->isColumnHidden(column), tab > 0 && column == 0);
    }
    QCOMPARE(delegates.size(), 5);
}

void tst_WindowDocument::columnsFitTheirTexts()
{
    const QByteArray longName(120, 'x');
    m_window->show();
    loadGoodFile();
    const int before = viewOf(*m_window, 0)->columnWidth(1);
    loadGoodFile(goodSpec().replace("engine_log", longName));
    const QFontMetrics metrics(viewOf(*m_window, 0)->font());
    QVERIFY(viewOf(*m_window, 0)->columnWidth(1) > before);
    QVERIFY(viewOf(*m_window, 0)->columnWidth(1) >=
            metrics.horizontalAdvance(QString::fromLatin1(longName)));
}

void tst_WindowDocument::messageOfALoadIsShownForTwoSeconds()
{
    QElapsedTimer time;
    time.start();
    loadGoodFile();
    QCOMPARE(newsOf(*m_window), QStringLiteral("File loaded"));
    QTRY_COMPARE(newsOf(*m_window), QString());
    QVERIFY2(time.elapsed() > 1500 && time.elapsed() < 4000,
             qPrintable(QString::number(time.elapsed())));
}

void tst_WindowDocument::specsDirectoryIsTriedNext_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("place");
    QTest::newRow("a bare name") << QStringLiteral("engine") << QStringLiteral("/specs/engine");
    QTest::newRow("a relative name")
        << QStringLiteral("cell_3/engine") << QStringLiteral("/specs/cell_3/engine");
    QTest::newRow("an absolute name")
        << QStringLiteral("/cell_3/engine") << QStringLiteral("/specs//cell_3/engine");
    QTest::newRow("a name with specs, but no slash before it")
        << QStringLiteral("specs/engine") << QStringLiteral("/specs/specs/engine");
    QTest::newRow("a name outside the local alphabet")
        << QStringLiteral("Pr\u00fcfling") << QStringLiteral("/specs/Pr\u00fcfling");
}

void tst_WindowDocument::specsDirectoryIsTriedNext()
{
    QFETCH(QString, name);
    QFETCH(QString, place);
    QDir::setCurrent(QStringLiteral("/tmp"));
    QVERIFY(writeFile(place, goodSpec()));
    m_window->loadFile(name, false);
    QCOMPARE(titleOf(*m_window), place);
    QCOMPARE(m_window->windowFilePath(), place);
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("engine_log"));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDocument::workingDirectoryIsTriedFirst()
{
    QDir::setCurrent(QStringLiteral("/tmp"));
    QVERIFY(writeFile(QStringLiteral("/specs/engine"), goodSpec()));
    QVERIFY(writeFile(QStringLiteral("/tmp/engine"), goodSpec().replace("engine_log", "here")));
    m_window->loadFile(QStringLiteral("engine"), false);
    QCOMPARE(titleOf(*m_window), QStringLiteral("engine"));
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("here"));
}

void tst_WindowDocument::specsDirectoryIsNotTriedForNamesWithSpecs_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("in the spec directory") << QStringLiteral("/specs/missing");
    QTest::newRow("specs in the middle, and a file where a second try would look")
        << QStringLiteral("/tmp/old/specs/missing");
    QTest::newRow("relative, with specs in the middle") << QStringLiteral("old/specs/missing");
}

void tst_WindowDocument::specsDirectoryIsNotTriedForNamesWithSpecs()
{
    QFETCH(QString, name);
    QDir::setCurrent(QStringLiteral("/tmp"));
    QVERIFY(writeFile(QStringLiteral("/specs/") + name, goodSpec()));
    QFile::remove(QStringLiteral("/specs/missing"));
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(name, false);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(titleOf(*m_window), NOTHING);
}

void tst_WindowDocument::unreadableFileLeavesTheDocument()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("other_name"));
    const auto* const model = modelOf(*m_window, 0);
    const auto* const delegate = viewOf(*m_window, 0)->itemDelegate();
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(QStringLiteral("missing"), false);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, QStringLiteral("Scribon Specification Editor"));
    QCOMPARE(box.text, QStringLiteral("Cannot read file missing:\nNo such file or directory."));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_window.get());
    QCOMPARE(titleOf(*m_window), GOOD);
    QCOMPARE(modelOf(*m_window, 0), model);
    QCOMPARE(viewOf(*m_window, 0)->itemDelegate(), delegate);
    QVERIFY(modelOf(*m_window, 0)->isModified());
    QVERIFY(m_window->uStack()->canUndo());
    QVERIFY(actionOf(*m_window, "insertRowAction")->isEnabled());
}

// The title changes between reading and parsing the file.
void tst_WindowDocument::fileVanishesBetweenTheTwoOpens()
{
    loadGoodFile();
    QVERIFY(writeFile(QStringLiteral("/specs/brief"), goodSpec()));
    connect(m_window.get(), &QWidget::windowTitleChanged, m_window.get(),
            [] { QFile::remove(QStringLiteral("/specs/brief")); });
    m_window->loadFile(QStringLiteral("/specs/brief"), false);
    QCOMPARE(titleOf(*m_window), NOTHING);
    QVERIFY(m_dialogs->boxes.isEmpty());
    QVERIFY(!actionOf(*m_window, "insertRowAction")->isEnabled());
    QVERIFY(!m_window->save());
}

void tst_WindowDocument::fileTurnsIntoAPipeBetweenTheTwoOpens()
{
    const auto brief = QStringLiteral("/specs/brief");
    QVERIFY(writeFile(brief, goodSpec()));
    connect(m_window.get(), &QWidget::windowTitleChanged, m_window.get(), [brief] {
        QFile::remove(brief);
        makePipe(brief);
    });
    m_window->loadFile(brief, false);
    QCOMPARE(titleOf(*m_window), NOTHING);
}

void tst_WindowDocument::loadWithoutReadingKeepsTheTree()
{
    loadGoodFile();
    m_window->loadFile(QStringLiteral("/specs/not there"), true);
    QCOMPARE(titleOf(*m_window), QStringLiteral("/specs/not there"));
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("engine_log"));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDocument::loadWithoutReadingAndWithoutATree()
{
    free_resources();
    m_window->loadFile(QStringLiteral("/specs/new"), true);
    QCOMPARE(titleOf(*m_window), QStringLiteral("/specs/new"));
    for (int tab = 0; tab < 5; ++tab)
        QCOMPARE(modelOf(*m_window, tab)->rowCount(), 0);
    QCOMPARE(modelOf(*m_window, 1)->columnCount(), 4);
    QCOMPARE(newsOf(*m_window), QStringLiteral("File loaded"));
}

void tst_WindowDocument::loadByNameLeavesLoadingFileAlone()
{
    QVector<int> flags;
    connect(m_window.get(), &QWidget::windowTitleChanged, m_window.get(),
            [&flags] { flags.append(LoadingFile); });
    loadGoodFile();
    QVERIFY(!flags.isEmpty());
    QCOMPARE(flags.count(0), flags.size());
}

void tst_WindowDocument::loadClearsTheUndoStacks()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("other_name"));
    tabsOf(*m_window)->setCurrentIndex(1);
    edit(1, 1, 1, QStringLiteral("other_variable"));
    loadGoodFile();
    for (const QUndoStack* const stack : m_window->undoGroup->stacks())
        QCOMPARE(stack->count(), 0);
    QCOMPARE(m_window->uStack(), m_window->undoGroup->stacks().at(1));
}

void tst_WindowDocument::failedLoadClearsTheUndoStacks()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("other_name"));
    QVERIFY(writeFile(BAD, badSpec()));
    m_window->loadFile(BAD, false);
    QVERIFY(!m_window->undoGroup->canUndo());
}

// The views have no selection models yet that could be disconnected.
void tst_WindowDocument::firstLoadGivesNoWarning()
{
    static QStringList warnings;
    const auto collect = [](QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                            const QString& message) { warnings.append(message); };
    const QtMessageHandler before = qInstallMessageHandler(collect);
    loadGoodFile();
    qInstallMessageHandler(before);
    QCOMPARE(warnings, QStringList());
}

void tst_WindowDocument::reloadReplacesAllTabs()
{
    loadGoodFile();
    QList<QPointer<QObject>> old;
    for (int tab = 0; tab < 5; ++tab) {
        old.append(viewOf(*m_window, tab)->model());
        old.append(viewOf(*m_window, tab)->itemDelegate());
        old.append(viewOf(*m_window, tab)->selectionModel());
    }
    goTo(viewOf(*m_window, 0), 3, 1);
    loadGoodFile(largeSpec(40));
    for (const QPointer<QObject>& object : qAsConst(old))
        QVERIFY(object.isNull());
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 41);
    QVERIFY(!viewOf(*m_window, 0)->currentIndex().isValid());
    QVERIFY(!actionOf(*m_window, "removeRowAction")->isEnabled());
    goTo(viewOf(*m_window, 0), 3, 1);
    QVERIFY(actionOf(*m_window, "removeRowAction")->isEnabled());
}

void tst_WindowDocument::loadsDoNotLeakObjects()
{
    QVERIFY(writeFile(BAD, badSpec()));
    loadGoodFile();
    m_window->loadFile(BAD, false);
    const int failed = objectsOf(*m_window);
    loadGoodFile();
    const int loaded = objectsOf(*m_window);
    for (int i = 0; i < 3; ++i) {
        m_window->loadFile(BAD, false);
        m_window->loadFile(BAD, false);
        QCOMPARE(objectsOf(*m_window), failed);
        loadGoodFile();
        loadGoodFile();
        QCOMPARE(objectsOf(*m_window), loaded);
    }
}

void tst_WindowDocument::newDocumentIsDirtyAndUnmodified()
{
    loadGoodFile();
    for (int tab = 0; tab < 5; ++tab)
        QVERIFY(!modelOf(*m_window, tab)->isModified());
}

void tst_WindowDocument::failedLoadKeepsTheOldModels()
{
    failOverLoadedDocument();
    QCOMPARE(titleOf(*m_window), BAD_TITLE);
    QVERIFY(modelOf(*m_window, 1) != nullptr);
    QCOMPARE(columnTexts(*modelOf(*m_window, 1), 1).last(), QStringLiteral("torque"));
}

void tst_WindowDocument::failedLoadDeletesDelegatesAndSelections()
{
    loadGoodFile();
    QList<QPointer<QObject>> old;
    for (int tab = 0; tab < 5; ++tab) {
        old.append(viewOf(*m_window, tab)->itemDelegate());
        old.append(viewOf(*m_window, tab)->selectionModel());
    }
    QVERIFY(writeFile(BAD, badSpec()));
    m_window->loadFile(BAD, false);
    for (const QPointer<QObject>& object : qAsConst(old))
        QVERIFY(object.isNull());
}

void tst_WindowDocument::failedLoadDisablesRowActions()
{
    loadGoodFile();
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    goTo(viewOf(*m_window, 0), 8, 0);
    QVERIFY(actionOf(*m_window, "removeRowAction")->isEnabled());
    failOverLoadedDocument();
    QVERIFY(!actionOf(*m_window, "insertRowAction")->isEnabled());
    QVERIFY(!actionOf(*m_window, "removeRowAction")->isEnabled());
    goTo(viewOf(*m_window, 0), 8, 0);
    QVERIFY(!actionOf(*m_window, "removeRowAction")->isEnabled());
    const QStringList before = columnTexts(*modelOf(*m_window, 0), 0);
    viewOf(*m_window, 0)->setFocus();
    QTest::keyClick(viewOf(*m_window, 0), Qt::Key_I, Qt::ControlModifier);
    QTest::keyClick(viewOf(*m_window, 0), Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(columnTexts(*modelOf(*m_window, 0), 0), before);
    Q_EMIT m_window->findChild<QMenu*>(QStringLiteral("actionsMenu"))->aboutToShow();
    QVERIFY(!actionOf(*m_window, "insertRowAction")->isEnabled());
    tabsOf(*m_window)->setCurrentIndex(2);
    QVERIFY(!actionOf(*m_window, "insertRowAction")->isEnabled());
}

void tst_WindowDocument::viewsCanPaintAfterAFailedLoad()
{
    m_window->show();
    failOverLoadedDocument();
    for (int tab = 0; tab < 5; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QVERIFY(!viewOf(*m_window, tab)->grab().isNull());
        QVERIFY(viewOf(*m_window, tab)->itemDelegate() != nullptr);
        QVERIFY(viewOf(*m_window, tab)->selectionModel() != nullptr);
        QCOMPARE(viewOf(*m_window, tab)->isRowHidden(0, QModelIndex()), tab > 0);
    }
}

void tst_WindowDocument::viewsAcceptKeysAfterAFailedLoad_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("down") << int(Qt::Key_Down);
    QTest::newRow("up") << int(Qt::Key_Up);
    QTest::newRow("end") << int(Qt::Key_End);
    QTest::newRow("page down") << int(Qt::Key_PageDown);
    QTest::newRow("edit") << int(Qt::Key_F2);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("a letter") << int(Qt::Key_E);
    QTest::newRow("delete") << int(Qt::Key_Delete);
    QTest::newRow("tab") << int(Qt::Key_Tab);
    QTest::newRow("escape") << int(Qt::Key_Escape);
}

void tst_WindowDocument::viewsAcceptKeysAfterAFailedLoad()
{
    QFETCH(int, key);
    m_window->show();
    failOverLoadedDocument();
    for (int tab = 0; tab < 5; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QTreeView* const view = viewOf(*m_window, tab);
        const QStringList before = columnTexts(*view->model(), 1);
        QTest::keyClick(view, static_cast<Qt::Key>(key));
        goTo(view, 1, 1);
        QTest::keyClick(view, static_cast<Qt::Key>(key));
        const QPoint cell = view->visualRect(view->model()->index(1, 1)).center();
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        QVERIFY(view->findChildren<QLineEdit*>().isEmpty());
        QCOMPARE(columnTexts(*view->model(), 1), before);
    }
}

void tst_WindowDocument::loadAfterAFailedLoad()
{
    failOverLoadedDocument();
    loadGoodFile();
    QTreeView* const view = viewOf(*m_window, 0);
    QVERIFY(qobject_cast<Antlr3_BaseTreeDelegate*>(view->itemDelegate()) != nullptr);
    QCOMPARE(view->editTriggers(), QTreeView().editTriggers());
    QVERIFY(actionOf(*m_window, "insertRowAction")->isEnabled());
    goTo(view, 8, 0);
    QVERIFY(actionOf(*m_window, "removeRowAction")->isEnabled());
    m_window->insertRow();
    QCOMPARE(view->model()->rowCount(), 10);
}

void tst_WindowDocument::twoFailedLoads()
{
    failOverLoadedDocument();
    m_window->loadFile(BAD, false);
    QCOMPARE(titleOf(*m_window), BAD_TITLE);
    m_window->show();
    QVERIFY(!viewOf(*m_window, 0)->grab().isNull());
}

// The constructor with a file name: no scratch file, undo stacks or help.
void tst_WindowDocument::windowOnOneFile()
{
    QVERIFY(writeFile(GOOD, goodSpec()));
    QVERIFY(writeFile(SCRATCH, badSpec()));
    MainWindow window(GOOD, nullptr);
    QCOMPARE(EditorMainWindow, &window);
    QCOMPARE(titleOf(window), GOOD);
    QCOMPARE(modelOf(window, 0)->rowCount(), 9);
    QVERIFY(window.undoGroup->stacks().isEmpty());
    QVERIFY(window.StatMemList().isEmpty());
    QVERIFY(window.keywordHelp().isEmpty());
    const auto entries = window.findChild<QMenu*>(QStringLiteral("actionsMenu"))->actions();
    QCOMPARE(entries.size(), 9);
    QVERIFY(entries.at(6)->isSeparator());
    QCOMPARE(entries.at(7)->text(), QStringLiteral("&Undo"));
    // The actions are as in the form until the selection changes.
    QVERIFY(actionOf(window, "removeRowAction")->isEnabled());
    window.insertRow();
    window.removeRow();
    QCOMPARE(modelOf(window, 0)->rowCount(), 9);
}

void tst_WindowDocument::windowOnOneFileCountsItsErrors()
{
    QVERIFY(writeFile(GOOD, "@SCRIBON\nlog\n@MAX_SCANS\n1\n@MAX_SCANS\n2\n"));
    const MainWindow window(GOOD, nullptr);
    const auto* const form = window.findChild<StatusBarForm*>();
    QVERIFY(form != nullptr);
    QCOMPARE(form->parentWidget(), window.statusBar());
    QVERIFY2(!form->isHidden(), "it was added to the status bar");
    const auto* const errors = form->findChild<QSpinBox*>(QStringLiteral("errors"));
    QVERIFY2(errors->value() == 1, "counted while the file was loaded");
    QCOMPARE(form->findChild<QSpinBox*>(QStringLiteral("tabErrs"))->value(), 1);
    const auto timers = window.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first()->interval(), 500);
    QVERIFY(modelOf(window, 0)->removeRows(2, 1));
    QTRY_COMPARE(errors->value(), 0);
}

void tst_WindowDocument::windowOnOneBadFile()
{
    QVERIFY(writeFile(BAD, badSpec()));
    const MainWindow window(BAD, nullptr);
    QCOMPARE(titleOf(window), BAD_TITLE);
    QVERIFY(!actionOf(window, "removeRowAction")->isEnabled());
    QVERIFY(!actionOf(window, "insertRowAction")->isEnabled());
}

void tst_WindowDocument::parserIsFreedWhenTheWindowIsDeleted()
{
    loadGoodFile();
    QVERIFY(getTree() != nullptr);
    m_window.reset();
    QVERIFY(getTree() == nullptr);
    QVERIFY(EditorMainWindow == nullptr);
}

// What models and delegates use of the window, and what they get after it is gone.
void tst_WindowDocument::editorAccessIsSetWhileTheWindowExists()
{
    EditorAccess* access = &editorAccess();
    QCOMPARE(access->activeUndoStack(), m_window->undoGroup->activeStack());
    QVERIFY(access->activeUndoStack() != nullptr);
    QCOMPARE(&access->preferences(), &m_window->myPrefs);
    QCOMPARE(access->keywordHelp(QStringLiteral("mode")),
             m_window->keywordHelp().value(QStringLiteral("mode")));
    QVERIFY(!access->keywordHelp(QStringLiteral("mode")).isEmpty());
    QCOMPARE(&access->statisticalMembers(), &m_window->statMemList);
    QCOMPARE(access->dialogParent(), m_window.get());

    m_window.reset();
    access = &editorAccess();
    QVERIFY(access->activeUndoStack() == nullptr);
    QCOMPARE(access->preferences().syntaxColor, QColor(Qt::black));
    QVERIFY(access->keywordHelp(QStringLiteral("mode")).isEmpty());
    QVERIFY(access->statisticalMembers().isEmpty());
    QVERIFY(access->dialogParent() == nullptr);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowDocument)
#include "tst_window_document.moc"
