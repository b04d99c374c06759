// Assistant: when the viewer is started, from where, and the commands that it gets.

#include <QElapsedTimer>
#include <QTest>

#include "assistant.h"
#include "help_viewer.h"
#include "modal_dialogs.h"
#include "places.h"

namespace {

const auto VIEWER = QStringLiteral("/tmp/qt");

QVector<QByteArray> entries(std::initializer_list<const char*> texts)
{
    QVector<QByteArray> result;
    for (const char* const text : texts)
        result.append(text);
    return result;
}

}  // namespace

Q_DECLARE_METATYPE(QVector<QByteArray>)

class tst_Assistant : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void missingHelpCollectionIsReported_data();
    void missingHelpCollectionIsReported();
    void viewerGetsItsArguments();
    void viewerGetsThePageToShow();
    void secondRequestGoesToTheSameViewer();
    void closedViewerIsStartedAgain();
    void viewerIsFoundByQt5dir_data();
    void viewerIsFoundByQt5dir();
    void failedStartOfTheViewerIsReported_data();
    void failedStartOfTheViewerIsReported();
    void failedStartOfTheViewerIsRetried();

    void deletingTheAssistantClosesTheViewer();
    void assistantKillsAViewerThatIgnoresTerminate();
    void deletingAnUnusedAssistant();
    void deletingTheAssistantAfterTheViewerEnded();

private:
    qint64 openViewer();
    void showsTheViewer();

    std::unique_ptr<ModalDialogs> m_dialogs;
    std::unique_ptr<HelpViewer> m_viewers;
    std::unique_ptr<Assistant> m_assistant;
};

void tst_Assistant::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_Assistant::init()
{
    emptyPlaces();
    QVERIFY(installHelpCollection());
    QVERIFY(HelpViewer::install(VIEWER));
    setViewerVariables({"QT5DIR=" + VIEWER.toLocal8Bit()});
    m_dialogs = std::make_unique<ModalDialogs>();
    m_viewers = std::make_unique<HelpViewer>();
    m_assistant = std::make_unique<Assistant>();
}

void tst_Assistant::cleanup()
{
    m_viewers.reset();
    m_assistant.reset();
    m_dialogs.reset();
}

// The process ID of the viewer after it has read its commands; 0 if it does not start.
qint64 tst_Assistant::openViewer()
{
    m_assistant->showDocumentation();
    if (!QTest::qWaitFor([] { return HelpViewer::input() == helpCommands(); }, 30000))
        return 0;
    return HelpViewer::processes().value(0);
}

void tst_Assistant::missingHelpCollectionIsReported_data()
{
    QTest::addColumn<QVector<QByteArray>>("environment");

    QTest::newRow("with a viewer") << entries({"QT5DIR=/tmp/qt"});
    QTest::newRow("with a viewer that is not there") << entries({"QT5DIR=/tmp/none"});
    QTest::newRow("without QT5DIR, which nobody looks at") << entries({});
}

void tst_Assistant::missingHelpCollectionIsReported()
{
    QFETCH(QVector<QByteArray>, environment);
    setViewerVariables(environment);
    removeHelpCollection();
    m_assistant->showDocumentation();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, QStringLiteral("Documentation Error"));
    QCOMPARE(box.text,
             QStringLiteral(
                 "The documentation for this program isn't installed on your system.\n\nYou can "
                 "install it by using your system's package manager to install the package "
                 "'scriboneditor_docs'."));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(box.parent, nullptr);
    QVERIFY(HelpViewer::processes().isEmpty());
}

void tst_Assistant::viewerGetsItsArguments()
{
    QVERIFY(openViewer() != 0);
    QCOMPARE(HelpViewer::arguments(),
             "-collectionFile\n" + helpCollection().toLocal8Bit() + "\n-enableRemoteControl\n");
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Assistant::viewerGetsThePageToShow()
{
    m_assistant->showDocumentation();
    QTRY_COMPARE(HelpViewer::input(), helpCommands());
}

// The viewer is not searched again then.
void tst_Assistant::secondRequestGoesToTheSameViewer()
{
    QVERIFY(openViewer() != 0);
    setViewerVariables({});
    m_assistant->showDocumentation();
    QTRY_COMPARE(HelpViewer::input(), helpCommands() + helpCommands());
    QCOMPARE(HelpViewer::processes().size(), 1);
}

void tst_Assistant::closedViewerIsStartedAgain()
{
    const qint64 first = openViewer();
    QVERIFY(first != 0);
    HelpViewer::close(first);
    QTRY_VERIFY(!HelpViewer::isThere(first));
    m_assistant->showDocumentation();
    QTRY_COMPARE(HelpViewer::input(), helpCommands() + helpCommands());
    QCOMPARE(HelpViewer::processes().size(), 2);
    QVERIFY(HelpViewer::isThere(HelpViewer::processes().at(1)));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Assistant::viewerIsFoundByQt5dir_data()
{
    QTest::addColumn<QVector<QByteArray>>("environment");
    QTest::addColumn<QString>("directory");

    QTest::newRow("the value") << entries({"QT5DIR=/tmp/one"}) << QStringLiteral("/tmp/one");
    QTest::newRow("a value with a blank")
        << entries({"QT5DIR=/tmp/one two"}) << QStringLiteral("/tmp/one two");
    QTest::newRow("what stands behind the last = of the value")
        << entries({"QT5DIR=/tmp/no=/tmp/nor=/tmp/one"}) << QStringLiteral("/tmp/one");
    QTest::newRow("another variable with QT5DIR in its name")
        << entries({"MY_QT5DIR_OF_OLD=/tmp/one"}) << QStringLiteral("/tmp/one");
    QTest::newRow("another variable with QT5DIR in its value")
        << entries({"SOME_PLACE=/tmp/QT5DIR"}) << QStringLiteral("/tmp/QT5DIR");
    QTest::newRow("the first variable: QT5DIR")
        << entries({"QT5DIR=/tmp/one", "OLD_QT5DIR=/tmp/two"}) << QStringLiteral("/tmp/one");
    QTest::newRow("the first variable: another one")
        << entries({"OLD_QT5DIR=/tmp/two", "QT5DIR=/tmp/one"}) << QStringLiteral("/tmp/two");
    QTest::newRow("the first variable: another one by its value")
        << entries({"SOME_PLACE=/tmp/QT5DIR", "QT5DIR=/tmp/one"}) << QStringLiteral("/tmp/QT5DIR");
    QTest::newRow("a name in lower case does not count")
        << entries({"qt5dir=/tmp/two", "QT5DIR=/tmp/one"}) << QStringLiteral("/tmp/one");
}

void tst_Assistant::viewerIsFoundByQt5dir()
{
    QFETCH(QVector<QByteArray>, environment);
    QFETCH(QString, directory);
    for (const char* const place : {"/tmp/one", "/tmp/two", "/tmp/one two", "/tmp/QT5DIR"})
        QVERIFY(HelpViewer::install(QLatin1String(place)));
    setViewerVariables(environment);
    QVERIFY(openViewer() != 0);
    QCOMPARE(HelpViewer::directory(), directory);
    QCOMPARE(HelpViewer::processes().size(), 1);
    qunsetenv("SOME_PLACE");
}

void tst_Assistant::failedStartOfTheViewerIsReported_data()
{
    QTest::addColumn<QString>("directory");

    QTest::newRow("no such directory") << QStringLiteral("/tmp/none");
    QTest::newRow("a directory instead of a program") << QStringLiteral("/tmp/directory");
    QTest::newRow("a file that is no program") << QStringLiteral("/tmp/file");
}

void tst_Assistant::failedStartOfTheViewerIsReported()
{
    QFETCH(QString, directory);
    QVERIFY(writeFile(QStringLiteral("/tmp/directory/bin/assistant/file"), "text"));
    QVERIFY(writeFile(QStringLiteral("/tmp/file/bin/assistant"), "text"));
    setViewerVariables({"QT5DIR=" + directory.toLocal8Bit()});
    m_assistant->showDocumentation();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, QStringLiteral("scriboneditor"));
    QCOMPARE(box.text,
             QStringLiteral("Unable to launch Qt Assistant (%1/bin/assistant)").arg(directory));
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(box.parent, nullptr);
}

void tst_Assistant::failedStartOfTheViewerIsRetried()
{
    setViewerVariables(entries({"QT5DIR=/tmp/later"}));
    m_assistant->showDocumentation();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(HelpViewer::install(QStringLiteral("/tmp/later")));
    QVERIFY(openViewer() != 0);
    QCOMPARE(m_dialogs->boxes.size(), 1);
}

void tst_Assistant::deletingTheAssistantClosesTheViewer()
{
    const qint64 process = openViewer();
    QVERIFY(process != 0);
    m_assistant.reset();
    QVERIFY(!HelpViewer::isThere(process));
    QVERIFY(HelpViewer::wasTerminated());
}

void tst_Assistant::assistantKillsAViewerThatIgnoresTerminate()
{
    QVERIFY(HelpViewer::install(QStringLiteral("/tmp/deaf"), Obedience::EndsOnlyWhenKilled));
    setViewerVariables(entries({"QT5DIR=/tmp/deaf"}));
    const qint64 process = openViewer();
    QVERIFY(process != 0);
    QElapsedTimer timer;
    timer.start();
    m_assistant.reset();
    QVERIFY(timer.elapsed() >= 3000);
    QVERIFY(!HelpViewer::isThere(process));
}

void tst_Assistant::deletingAnUnusedAssistant()
{
    m_assistant.reset();
    QVERIFY(HelpViewer::processes().isEmpty());
}

void tst_Assistant::deletingTheAssistantAfterTheViewerEnded()
{
    const qint64 process = openViewer();
    QVERIFY(process != 0);
    HelpViewer::close(process);
    QTRY_VERIFY(!HelpViewer::isThere(process));
    m_assistant.reset();
    QCOMPARE(HelpViewer::processes().size(), 1);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_Assistant)
#include "tst_assistant.moc"
