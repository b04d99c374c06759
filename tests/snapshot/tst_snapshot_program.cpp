// The program marvane-snapshot: its options, what it writes and where, and its exit status.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <array>
#include <cstdlib>
#include <memory>

#include "desk_process.h"
#include "places.h"
#include "preload.h"
#include "taken_snapshot.h"

namespace {

constexpr int TIMEOUT_MS = 30000;

constexpr char CATALOGUE[] = R"({ "units": { "speed": ["RPM", "HZ"] }, "areas": {
    "AI_REAL_MEM": { "real": [ { "label": "speed", "units": "RPM" } ] } } })";

const auto OUTPUT = QStringLiteral("--output");

// With its standard error on a terminal, if there is one.
class Program : public QProcess {
public:
    int terminal = -1;

protected:
    void setupChildProcess() override
    {
        if (terminal >= 0)
            dup2(terminal, STDERR_FILENO);
    }
};

struct Result {
    int status;  // -1 if it crashed or did not end
    QByteArray output;
    QByteArray complaints;
};

Result finish(QProcess& process)
{
    if (!process.waitForFinished(TIMEOUT_MS) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

Result run(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(MARVANE_SNAPSHOT_PROGRAM), arguments);
    return finish(process);
}

QByteArray variablesOfAllTables(int count)
{
    QByteArray variables;
    for (int i = 0; i < count; ++i)
        variables += (i == 0 ? "" : ",") + QByteArray(R"({"label":"v)") + QByteArray::number(i) +
                     R"(","units":"RPM","alias":"a)" + QByteArray::number(i) + "\"}";
    return R"({"units":{"speed":["RPM"]},"areas":{"GU_REAL_MEM":{"real":[)" + variables + "]}}}";
}

}  // namespace

class TestSnapshotProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_desk = std::make_unique<DeskProcess>();
        QVERIFY(m_desk->startWith(CATALOGUE));
    }
    void cleanup()
    {
        m_desk.reset();
        m_folder.reset();
    }

    void commandLine_data();
    void commandLine();
    void namedPlatform();
    void withoutAFile();
    void omissionsAreListedAndCounted();
    void noPlatform();
    void platformThatEnds_data();
    void platformThatEnds();

    void newFile();
    void replacedFile();
    void followsLinks_data();
    void followsLinks();
    void fileThatCannotBeWritten_data();
    void fileThatCannotBeWritten();
    void fullDisk();
    void outputThatCannotBeWritten();

    void progressOnATerminal();
    void manyVariables();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }

    QStringList files() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DeskProcess> m_desk;
};

void TestSnapshotProgram::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    const auto list = [](const char* text) {
        return QString::fromLatin1(text).split(QLatin1Char(' '));
    };
    QTest::newRow("help") << list("--help") << 0;
    QTest::newRow("version") << list("-V") << 0;
    QTest::newRow("an argument that is no option") << list("cell_4.json") << 2;
    QTest::newRow("an unknown option") << list("--frob") << 2;
    QTest::newRow("an option without its value") << list("--output") << 2;
    QTest::newRow("a bad name") << list("--name a/b") << 2;
    QTest::newRow("no name of a file") << QStringList{OUTPUT, QString()} << 2;
}

void TestSnapshotProgram::commandLine()
{
    QFETCH(QStringList, arguments);
    const Result result = run(arguments);
    QTEST(result.status, "status");
    QCOMPARE(result.output.isEmpty(), result.status != 0);
    QCOMPARE(result.complaints.isEmpty(), result.status == 0);
}

void TestSnapshotProgram::namedPlatform()
{
    const QString name = m_desk->name();
    const Result byEnvironment = run({});
    DeskProcess other;  // MARVANE_DESK_NAME is that of a platform that does not run
    QCOMPARE(run({}).status, 2);
    const Result byName = run({QStringLiteral("--name"), name});
    QCOMPARE(byName.status, 0);
    QCOMPARE(byName.output, byEnvironment.output);
}

void TestSnapshotProgram::withoutAFile()
{
    const Result result = run({});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.complaints, QByteArray());
    QVERIFY(acceptedCatalogue(result.output));
    QVERIFY(result.output.contains(R"({ "label": "speed", "units": "RPM" })"));
}

void TestSnapshotProgram::omissionsAreListedAndCounted()
{
    QFile area(sharedMemoryPath(m_desk->name(), QStringLiteral("AI_REAL_MEM")));
    QVERIFY(area.open(QIODevice::ReadWrite) && area.seek(64) && area.write("1st\0", 4) == 4);
    area.close();
    const Result result = run({OUTPUT, path("cell.json")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.complaints,
             QByteArray("marvane-snapshot: AI_REAL_MEM real 0: label \"1st\": must be a letter, "
                        "then letters, digits and underscores\n"
                        "marvane-snapshot: left out: 1\n"));
    QVERIFY(acceptedCatalogue(readFile(path("cell.json"))));
}

void TestSnapshotProgram::noPlatform()
{
    QVERIFY(m_desk->terminate());
    const Result result = run({OUTPUT, path("cell.json")});
    QCOMPARE(result.status, 2);
    QCOMPARE(result.complaints, QByteArray("marvane-snapshot: no Marvane platform is running\n"));
    QCOMPARE(files(), QStringList());
}

void TestSnapshotProgram::platformThatEnds_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<bool>("toFile");
    QTest::newRow("to a new file") << QStringList() << true;
    QTest::newRow("to a file that is there") << QStringList(QStringLiteral("cell.json")) << true;
    QTest::newRow("to standard output") << QStringList() << false;
}

void TestSnapshotProgram::platformThatEnds()
{
    QFETCH(QStringList, before);
    QFETCH(bool, toFile);
    for (const QString& file : before)
        QVERIFY(writeFile(path(qPrintable(file)), "as before"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    addPreloaded(&environment, QStringLiteral(ENDING_PLATFORM));
    environment.insert(QStringLiteral("TEST_PLATFORM"), QString::number(m_desk->processId()));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MARVANE_SNAPSHOT_PROGRAM),
                  toFile ? QStringList{OUTPUT, path("cell.json")} : QStringList());
    const Result result = finish(process);
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(
        result.complaints,
        QByteArray("marvane-snapshot: the platform has stopped meanwhile; nothing is written\n"));
    QCOMPARE(files(), before);
    for (const QString& file : before)
        QCOMPARE(readFile(path(qPrintable(file))), QByteArray("as before"));
}

// ---- The file ----------------------------------------------------------------------------------

void TestSnapshotProgram::newFile()
{
    const mode_t before = umask(002);
    const Result result = run({QStringLiteral("-o"), path("cell.json")});
    umask(before);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.complaints, QByteArray());
    QCOMPARE(files(), QStringList(QStringLiteral("cell.json")));
    QCOMPARE(readFile(path("cell.json")), run({}).output);
    struct stat status {};
    QCOMPARE(stat(qPrintable(path("cell.json")), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0664U);
}

// Who has the old file open keeps it: the file is replaced, not written over.
void TestSnapshotProgram::replacedFile()
{
    QVERIFY(writeFile(path("cell.json"), QByteArray(100000, 'x')));
    QFile old(path("cell.json"));
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(run({OUTPUT, path("cell.json")}).status, 0);
    QCOMPARE(old.readAll(), QByteArray(100000, 'x'));
    QCOMPARE(readFile(path("cell.json")), run({}).output);
    QCOMPARE(files(), QStringList(QStringLiteral("cell.json")));
}

void TestSnapshotProgram::followsLinks_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("to a file") << true;
    QTest::newRow("to no file yet") << false;
}

void TestSnapshotProgram::followsLinks()
{
    QFETCH(bool, exists);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    if (exists)
        QVERIFY(writeFile(path("folder/cell.json"), "as before"));
    QCOMPARE(symlink("cell.json", qPrintable(path("folder/inner"))), 0);
    QCOMPARE(symlink("folder/inner", qPrintable(path("outer"))), 0);
    QCOMPARE(run({OUTPUT, path("outer")}).status, 0);
    QVERIFY(QFileInfo(path("outer")).isSymLink());
    QVERIFY(QFileInfo(path("folder/inner")).isSymLink());
    QCOMPARE(readFile(path("folder/cell.json")), run({}).output);
    QCOMPARE(files(), QStringList({QStringLiteral("folder"), QStringLiteral("outer")}));
}

void TestSnapshotProgram::fileThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray irregular("is no regular file");
    QTest::newRow("a folder") << QStringLiteral(".") << irregular;
    QTest::newRow("a device") << QStringLiteral("/dev/null") << irregular;
    QTest::newRow("a pipe") << QStringLiteral("pipe") << irregular;
    QTest::newRow("a link to itself")
        << QStringLiteral("loop") << QByteArray("Too many levels of symbolic links");
    QTest::newRow("in no folder") << QStringLiteral("none/cell.json")
                                  << QByteArray("No such file or directory");
    QTest::newRow("below a file") << QStringLiteral("file/cell.json")
                                  << QByteArray("Not a directory");
}

void TestSnapshotProgram::fileThatCannotBeWritten()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, reason);
    QCOMPARE(mkfifo(qPrintable(path("pipe")), 0600), 0);
    QCOMPARE(symlink("loop", qPrintable(path("loop"))), 0);
    QVERIFY(writeFile(path("file"), "as before"));
    const QStringList before = files();
    const QString name = QDir(m_folder->path()).absoluteFilePath(file);
    const Result result = run({OUTPUT, name});
    QCOMPARE(result.status, 2);
    QCOMPARE(result.complaints, "marvane-snapshot: " + name.toLocal8Bit() + ": " + reason + '\n');
    QCOMPARE(files(), before);
    QVERIFY(!QFileInfo(QStringLiteral("/dev/null")).isFile());
}

void TestSnapshotProgram::fullDisk()
{
    QVERIFY(inPrivateNamespace());
    const QString disk = QStringLiteral("/small-disk/");
    QVERIFY(writeFile(disk + QStringLiteral("cell.json"), "as before"));
    QFile filler(disk + QStringLiteral("filler"));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'x')) == 4096) {
    }
    const Result result = run({OUTPUT, disk + QStringLiteral("cell.json")});
    QCOMPARE(result.status, 2);
    QCOMPARE(result.complaints,
             QByteArray("marvane-snapshot: /small-disk/cell.json: No space left on device\n"));
    QCOMPARE(readFile(disk + QStringLiteral("cell.json")), QByteArray("as before"));
    QCOMPARE(QDir(disk).entryList(QDir::Files | QDir::Hidden),
             QStringList({QStringLiteral("cell.json"), QStringLiteral("filler")}));
    emptyPlaces();
}

void TestSnapshotProgram::outputThatCannotBeWritten()
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(MARVANE_SNAPSHOT_PROGRAM), QStringList());
    const Result result = finish(process);
    QCOMPARE(result.status, 2);
    QCOMPARE(
        result.complaints,
        QByteArray("marvane-snapshot: cannot write to standard output: No space left on device\n"));
}

// ---- At work -----------------------------------------------------------------------------------

void TestSnapshotProgram::progressOnATerminal()
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    QVERIFY(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    Program process;
    process.terminal = open(ptsname(terminal), O_RDWR | O_NOCTTY);
    process.start(QStringLiteral(MARVANE_SNAPSHOT_PROGRAM), {OUTPUT, path("cell.json")});
    QCOMPARE(finish(process).status, 0);
    // The system passes on what was written in its own time.
    QByteArray shown;
    const auto readMore = [terminal, &shown] {
        std::array<char, 4096> bytes{};
        const ssize_t got = read(terminal, bytes.data(), bytes.size());
        return shown.append(bytes.data(), static_cast<int>(qMax<ssize_t>(0, got)));
    };
    QTRY_VERIFY2(readMore().endsWith("\r\033[Kreading DP_STAT_MEM\r\033[K"), shown);
    QVERIFY2(shown.contains("\r\033[Kreading AI_REAL_MEM\r\033[K"), shown);
    ::close(process.terminal);
    ::close(terminal);
}

void TestSnapshotProgram::manyVariables()
{
    constexpr int VARIABLES = 20000;
    constexpr int FEW_SECONDS_MS = 3000;
    QVERIFY(m_desk->terminate());
    QVERIFY(m_desk->startWith(variablesOfAllTables(VARIABLES)));
    QElapsedTimer timer;
    timer.start();
    const Result result = run({OUTPUT, path("cell.json")});
    const qint64 needed = timer.elapsed();
    QCOMPARE(result.status, 0);
    QVERIFY2(needed < FEW_SECONDS_MS, qPrintable(QString::number(needed)));
    QCOMPARE(readFile(path("cell.json")).count("\"alias\""), VARIABLES);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestSnapshotProgram)
#include "tst_snapshot_program.moc"
