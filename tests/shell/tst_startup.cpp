// The real program as a process: its start with and without the platform, its command line, and its
// end.

#include <QDir>
#include <QJsonArray>
#include <QMessageBox>
#include <QTest>
#include <csignal>
#include <memory>

#include "desk_process.h"
#include "editor_process.h"
#include "places.h"
#include "virtual_display.h"

namespace {

const auto PROGRAM_TITLE = QStringLiteral("Scribon Specification Editor:");
const auto NO_PLATFORM_TITLE = QStringLiteral("Marvane Not Running Error");
const auto BOX_TITLE = QStringLiteral("Scribon Specification Editor");
const auto SCRATCH = QStringLiteral("/tmp/untitled.txt");
const auto ONE = QStringLiteral("/specs/one");
const auto TWO = QStringLiteral("/specs/two");

QString title(const QString& document)
{
    return PROGRAM_TITLE + document;
}

// The lines of the program itself, without those of its libraries.
QStringList only(const char* prefix, const QStringList& lines)
{
    return lines.filter(QRegExp(QLatin1Char('^') + QLatin1String(prefix)));
}

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* const text : texts)
        result.append(QLatin1String(text));
    return result;
}

}  // namespace

class tst_Startup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void commandLine_data();
    void commandLine();
    void scratchFileIsOpened();
    void namedFileReplacesTheScratchFile();
    void unreadableFileIsReported();
    void callsInOrder();
    void applicationIsSetUp();
    void resourcesOpen();
    void logGoesToStandardError();
    void fatalMessageAborts();
    void closingTheWindowEndsTheProgram();

    void withoutThePlatform();
    void withoutThePlatformNoFileIsRead();
    void fifoInPlaceOfThePlatform();
    void withoutThePlatformOnADisplay();
    void killedPlatformIsDetected();

private:
    std::unique_ptr<DeskProcess> m_desk;
    std::unique_ptr<EditorProcess> m_editor;
};

void tst_Startup::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_Startup::init()
{
    emptyPlaces();
    QVERIFY(QDir::setCurrent(QStringLiteral("/tmp")));
    m_desk = std::make_unique<DeskProcess>();
    QVERIFY(m_desk->start(qEnvironmentVariable("SCRIBON_EXAMPLES") +
                          QStringLiteral("/catalogue.json")));
    m_editor = std::make_unique<EditorProcess>();
}

void tst_Startup::cleanup()
{
    m_editor.reset();
    m_desk.reset();
}

void tst_Startup::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("document");

    QTest::newRow("nothing") << QStringList() << QStringLiteral("Empty File");
    QTest::newRow("a file") << list({"/specs/one"}) << ONE;
    QTest::newRow("a file below /specs by its bare name") << list({"one"}) << ONE;
    QTest::newRow("two files: the second is ignored") << list({"/specs/one", "/specs/two"}) << ONE;
    QTest::newRow("two files, the second is not there")
        << list({"/specs/two", "/specs/none"}) << TWO;
    QTest::newRow("a Qt option is no file")
        << list({"-style", "fusion"}) << QStringLiteral("Empty File");
    QTest::newRow("a Qt option before the file") << list({"-style", "fusion", "/specs/one"}) << ONE;
    QTest::newRow("a Qt option behind the file") << list({"/specs/one", "-style", "fusion"}) << ONE;
    QTest::newRow("a file that is no spec file")
        << list({"/specs/bad"}) << QStringLiteral("Invalid scribon_specs file: /specs/bad");
}

void tst_Startup::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, document);
    QVERIFY(writeFile(ONE, goodSpec()));
    QVERIFY(writeFile(TWO, goodSpec()));
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    QVERIFY(m_editor->start(arguments));
    QVERIFY(!m_editor->window(title(document)).isEmpty());
    QCOMPARE(m_editor->titles(), QStringList(title(document)));
    QCOMPARE(m_editor->complaints().filter(QStringLiteral("Warning")), QStringList());
}

void tst_Startup::scratchFileIsOpened()
{
    QVERIFY(writeFile(SCRATCH, goodSpec()));
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(title(SCRATCH)).isEmpty());
}

void tst_Startup::namedFileReplacesTheScratchFile()
{
    QVERIFY(writeFile(SCRATCH, goodSpec()));
    QVERIFY(writeFile(ONE, goodSpec()));
    QVERIFY(m_editor->start({ONE}));
    const QJsonObject window = m_editor->window(title(ONE));
    QCOMPARE(window.value(QLatin1String("news")).toString(), QStringLiteral("File loaded"));
}

void tst_Startup::unreadableFileIsReported()
{
    QVERIFY(m_editor->start({QStringLiteral("none")}));
    const QJsonObject box = m_editor->window(BOX_TITLE);
    QCOMPARE(box.value(QLatin1String("text")).toString(),
             QStringLiteral("Cannot read file none:\nNo such file or directory."));
    m_editor->ask(QStringLiteral("press ok"));
    QVERIFY(!m_editor->window(title(QStringLiteral("Empty File"))).isEmpty());
    QCOMPARE(m_editor->titles().size(), 1);
}

void tst_Startup::callsInOrder()
{
    m_editor->watchCalls();
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(title(QStringLiteral("Empty File"))).isEmpty());
    QStringList lines;
    for (const QString& line : m_editor->complaints()) {
        if (line.startsWith(QLatin1String("call: ")))
            lines.append(line.mid(6));
        else if (line.startsWith(QLatin1String("Critical: the application object is being made (")))
            lines.append(QStringLiteral("the application object, told by the message handler"));
    }
    QCOMPARE(lines.mid(0, 5),
             list({"marvane_init_fn(1)", "join_layer(5)", "munlockall()",
                   "the application object, told by the message handler", "link_to_memory(1)"}));
    QCOMPARE(lines.count(lines.at(0)), 1);
    QCOMPARE(lines.count(lines.at(1)), 1);
    QCOMPARE(lines.count(lines.at(2)), 1);
}

void tst_Startup::applicationIsSetUp()
{
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(title(QStringLiteral("Empty File"))).isEmpty());
    const QJsonValue state = m_editor->ask(QStringLiteral("state"));
    QVERIFY(state[QLatin1String("styleSheet")].toString().contains(QLatin1String("#b9f8ff")));
    QVERIFY(state[QLatin1String("metaType")].toInt() != 0);
    QVERIFY(state[QLatin1String("polishedHidden")].toBool());
    QVERIFY(state[QLatin1String("stylePropagation")].toBool());
}

// Resources of a static library are dropped by the linker unless Q_INIT_RESOURCE is used.
void tst_Startup::resourcesOpen()
{
    QVERIFY(m_editor->start());
    const QJsonObject resources = m_editor->ask(QStringLiteral("resources")).toObject();
    QStringList expected = list({":/resources/qss/default.qss", ":/resources/default.txt",
                                 ":/resources/dialog-error.png", ":/resources/arrow-down.png",
                                 ":/resources/arrow_downo.png", ":/images/up_arrow.png",
                                 ":/images/down_arrow.png", ":/images/sizegrip.png"});
    for (const char* const kind : {"checkbox", "radiobutton"}) {
        for (const char* const state : {"checked", "unchecked"}) {
            for (const char* const look : {"", "_hover", "_pressed"}) {
                expected.append(
                    QStringLiteral(":/images/%1_%2%3.png")
                        .arg(QLatin1String(kind), QLatin1String(state), QLatin1String(look)));
            }
        }
    }
    for (const QString& name : qAsConst(expected)) {
        const QJsonArray facts = resources.value(name).toArray();
        QVERIFY2(facts.size() == 2 && facts.at(0).toInt() > 0, qPrintable(name));
        QVERIFY2(facts.at(1).toBool() == name.endsWith(QLatin1String(".png")), qPrintable(name));
    }
}

void tst_Startup::logGoesToStandardError()
{
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(title(QStringLiteral("Empty File"))).isEmpty());
    m_editor->ask(QStringLiteral("log"));
    m_editor->ask(QStringLiteral("close"));
    QVERIFY(m_editor->waitForEnd());
    QStringList lines =
        only("(Debug|Warning|Critical|Fatal|Info|.*a warning)", m_editor->complaints());
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.takeFirst().startsWith(QStringLiteral("Critical: the application object")));
    QCOMPARE(lines.takeFirst(), QStringLiteral("Debug: a debug text "));
    QVERIFY(lines.takeFirst().startsWith(QStringLiteral("Critical: a critical text (")));
    QVERIFY(lines.takeFirst().startsWith(QStringLiteral("Info: an info (")));
}

void tst_Startup::fatalMessageAborts()
{
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(title(QStringLiteral("Empty File"))).isEmpty());
    m_editor->ask(QStringLiteral("fatal"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::CrashExit);
    QCOMPARE(m_editor->status(), SIGABRT);
    QCOMPARE(only("Fatal: the end \\(", m_editor->complaints()).size(), 1);
}

void tst_Startup::closingTheWindowEndsTheProgram()
{
    QVERIFY(writeFile(ONE, goodSpec()));
    QVERIFY(m_editor->start({ONE}));
    QVERIFY(!m_editor->window(title(ONE)).isEmpty());
    m_editor->ask(QStringLiteral("close"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
    QCOMPARE(m_editor->status(), 0);
}

void tst_Startup::withoutThePlatform()
{
    QVERIFY(m_desk->terminate());
    QVERIFY(m_editor->start());
    const QJsonObject box = m_editor->window(NO_PLATFORM_TITLE);
    QCOMPARE(box.value(QLatin1String("class")).toString(), QStringLiteral("QMessageBox"));
    QCOMPARE(box.value(QLatin1String("text")).toString(),
             QStringLiteral("Marvane must be running to use this command"));
    QCOMPARE(box.value(QLatin1String("icon")).toInt(), int(QMessageBox::Information));
    QCOMPARE(box.value(QLatin1String("buttons")).toInt(), int(QMessageBox::Ok));
    QVERIFY(!box.value(QLatin1String("hasParent")).toBool());
    QCOMPARE(m_editor->titles(), QStringList(NO_PLATFORM_TITLE));
    m_editor->ask(QStringLiteral("press ok"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
    QCOMPARE(m_editor->status(), 1);
}

void tst_Startup::withoutThePlatformNoFileIsRead()
{
    QVERIFY(m_desk->terminate());
    QVERIFY(writeFile(SCRATCH, goodSpec()));
    QVERIFY(m_editor->start({QStringLiteral("/specs/none")}));
    QVERIFY(!m_editor->window(NO_PLATFORM_TITLE).isEmpty());
    m_editor->ask(QStringLiteral("press ok"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->status(), 1);
}

// No process writes to the FIFO: opening it would block for ever.
void tst_Startup::fifoInPlaceOfThePlatform()
{
    QVERIFY(m_desk->terminate());
    const QString directory = sharedMemoryPath(m_desk->name(), QStringLiteral("directory"));
    QVERIFY(makePipe(directory));
    QVERIFY(m_editor->start());
    const QJsonObject box = m_editor->window(NO_PLATFORM_TITLE);
    QVERIFY(QFile::remove(directory));
    QVERIFY(!box.isEmpty());
    m_editor->ask(QStringLiteral("press ok"));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->status(), 1);
}

// Without the probe plugin, on a virtual display.
void tst_Startup::withoutThePlatformOnADisplay()
{
    QVERIFY(m_desk->terminate());
    VirtualDisplay display;
    QVERIFY(display.start());
    m_editor->setVariable(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QString());
    m_editor->setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_editor->setVariable(QStringLiteral("DISPLAY"), display.name());
    QVERIFY(m_editor->start());
    QTRY_COMPARE_WITH_TIMEOUT(display.windows(), QStringList(NO_PLATFORM_TITLE), 30000);
    QVERIFY(display.strike(NO_PLATFORM_TITLE, QStringLiteral("Return")));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
    QCOMPARE(m_editor->status(), 1);
}

void tst_Startup::killedPlatformIsDetected()
{
    QVERIFY(m_desk->kill());
    QVERIFY(m_editor->start());
    QVERIFY(!m_editor->window(NO_PLATFORM_TITLE).isEmpty());
    QCOMPARE(m_editor->titles(), QStringList(NO_PLATFORM_TITLE));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_Startup)
#include "tst_startup.moc"
