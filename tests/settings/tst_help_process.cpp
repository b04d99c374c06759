// Help and the About box in the real program: without QT5DIR, after the program's end, and with a
// platform without a version text.

#include <QMessageBox>
#include <QTest>
#include <csignal>
#include <memory>

#include "desk_process.h"
#include "editor_process.h"
#include "help_viewer.h"
#include "places.h"

namespace {

const auto EMPTY = QStringLiteral("Scribon Specification Editor:Empty File");
const auto ASK_FOR_HELP = QStringLiteral("trigger actionContents");
const auto ASK_WHAT_IT_IS = QStringLiteral("trigger aboutAct");

}  // namespace

class tst_HelpProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void withoutQt5dirTheProgramAborts();
    void missingHelpCollectionIsCheckedBeforeQt5dir();
    void viewerOutlivesTheProgram();
    void aboutTellsThePlatformsVersion_data();
    void aboutTellsThePlatformsVersion();

private:
    void startEditor();

    std::unique_ptr<DeskProcess> m_desk;
    std::unique_ptr<HelpViewer> m_viewers;
    std::unique_ptr<EditorProcess> m_editor;
};

void tst_HelpProcess::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_HelpProcess::init()
{
    emptyPlaces();
    QVERIFY(installHelpCollection());
    setViewerVariables({});
    m_desk = std::make_unique<DeskProcess>();
    QVERIFY(m_desk->start(qEnvironmentVariable("SCRIBON_EXAMPLES") +
                          QStringLiteral("/catalogue.json")));
    m_viewers = std::make_unique<HelpViewer>();
    m_editor = std::make_unique<EditorProcess>();
}

void tst_HelpProcess::cleanup()
{
    m_editor.reset();
    m_viewers.reset();
    m_desk.reset();
}

void tst_HelpProcess::startEditor()
{
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(EMPTY).isEmpty());
}

void tst_HelpProcess::withoutQt5dirTheProgramAborts()
{
    startEditor();
    m_editor->ask(ASK_FOR_HELP);
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::CrashExit);
    QCOMPARE(m_editor->status(), SIGABRT);
    const QStringList fatal = m_editor->complaints().filter(QRegExp(QStringLiteral("^Fatal: ")));
    QCOMPARE(fatal.size(), 1);
    QVERIFY2(fatal.first().startsWith(QStringLiteral("Fatal: ASSERT: \"!isEmpty()\" in file ")),
             qPrintable(fatal.first()));
}

void tst_HelpProcess::missingHelpCollectionIsCheckedBeforeQt5dir()
{
    removeHelpCollection();
    startEditor();
    m_editor->ask(ASK_FOR_HELP);
    const QJsonObject box = m_editor->window(QStringLiteral("Documentation Error"));
    QCOMPARE(box.value(QLatin1String("icon")).toInt(), int(QMessageBox::Information));
    QVERIFY(!box.value(QLatin1String("hasParent")).toBool());
    m_editor->ask(QStringLiteral("press ok"));
    m_editor->ask(QStringLiteral("close"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
}

// The viewer writes to its output after the program has ended.
void tst_HelpProcess::viewerOutlivesTheProgram()
{
    QVERIFY(HelpViewer::install(QStringLiteral("/tmp/qt")));
    m_editor->setVariable(QStringLiteral("QT5DIR"), QStringLiteral("/tmp/qt"));
    startEditor();
    m_editor->ask(ASK_FOR_HELP);
    QTRY_COMPARE_WITH_TIMEOUT(HelpViewer::input(), helpCommands(), 30000);
    m_editor->ask(QStringLiteral("close"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
    QTRY_VERIFY_WITH_TIMEOUT(HelpViewer::outlivedItsInput(), 30000);
    QCOMPARE(HelpViewer::processes().size(), 1);
    QVERIFY(HelpViewer::isThere(HelpViewer::processes().at(0)));
    QVERIFY(!HelpViewer::wasTerminated());
    QCOMPARE(m_editor->complaints().filter(QStringLiteral("the input has ended")), QStringList());
}

void tst_HelpProcess::aboutTellsThePlatformsVersion_data()
{
    QTest::addColumn<QString>("libraries");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the desk platform's")
        << QString() << QStringLiteral("</b>( D-" SCRIBON_VERSION " ) allows");
    QTest::newRow("none with a library that has none")
        << QStringLiteral(SCRIBON_HOST_WITHOUT_VERSION) << QStringLiteral("</b>( ) allows");
}

void tst_HelpProcess::aboutTellsThePlatformsVersion()
{
    QFETCH(QString, libraries);
    QFETCH(QString, expected);
    if (!libraries.isEmpty())
        m_editor->setVariable(QStringLiteral("LD_LIBRARY_PATH"), libraries);
    startEditor();
    m_editor->ask(ASK_WHAT_IT_IS);
    const QJsonObject box = m_editor->window(QStringLiteral("About Scribon Specification Editor"));
    const QString text = box.value(QLatin1String("text")).toString();
    QVERIFY2(text.contains(expected), qPrintable(text));
    QVERIFY(box.value(QLatin1String("hasParent")).toBool());
    m_editor->ask(QStringLiteral("press ok"));
    m_editor->ask(QStringLiteral("close"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_HelpProcess)
#include "tst_help_process.moc"
