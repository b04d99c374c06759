// scribon-spec check --catalogue, --live and --specs by the real program: whom it asks, what it
// says when there is nobody, and that it leaves no platform behind.

#include <signal.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include "cell_check.h"
#include "commands.h"
#include "desk_process.h"
#include "places.h"
#include "spec_program.h"

namespace {

const auto DASH = QStringLiteral("-");

QByteArray wrongName()
{
    return cellSpec("@SCAN_LIST\neng_sped N_ENG");
}

QByteArray goodNames()
{
    return cellSpec("@SCAN_LIST\neng_speed N_ENG");
}

const QByteArray FINDING =
    "<stdin>:10:1: error: the test cell has no variable eng_sped. Did you mean eng_speed? "
    "[unknown-variable]\n";

SpecRun check(const QStringList& options, const QByteArray& input)
{
    return runSpec(QStringList{QStringLiteral("check")} + options + QStringList{DASH}, input);
}

QStringList catalogueOption(const QString& catalogue)
{
    return {QStringLiteral("--catalogue"), catalogue};
}

// The shared memory of the desks that the process has started.
QStringList memoryOf(const QProcess& program)
{
    const auto ofProgram = QStringLiteral("marvane.spec-%1-*").arg(program.processId());
    return QDir(QStringLiteral("/dev/shm")).entryList({ofProgram}, QDir::Files);
}

// Of any of them.
QStringList memoryOfAnyRun()
{
    return QDir(QStringLiteral("/dev/shm"))
        .entryList({QStringLiteral("marvane.spec-*")}, QDir::Files);
}

// A check of standard input that has joined its cell and waits for the input.
class WaitingCheck : public QProcess {
public:
    bool startWith(const QStringList& options)
    {
        start(specProgram(), QStringList{QStringLiteral("check"), QStringLiteral("--format"),
                                         QStringLiteral("json")} +
                                 options + QStringList{DASH});
        while (!canReadLine() && waitForReadyRead()) {
        }
        return readLine().startsWith("{\"version\"");
    }

    bool endWith(const QByteArray& input)
    {
        write(input);
        closeWriteChannel();
        return waitForFinished() && exitStatus() == NormalExit;
    }
};

}  // namespace

class tst_SpecCellOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(inPrivateNamespace()); }
    void cleanup() { emptyPlaces(); }

    void catalogue();
    void severalFiles();
    void goodFile();
    void wrongCatalogue_data();
    void wrongCatalogue();
    void noDeskProgram();
    void deskProgramInPath();
    void leavesNoPlatform();
    void killed_data();
    void killed();

    void live();
    void liveWithoutAPlatform();
    void livePlatformStops();
    void liveSearchesSpecs();

    void specsAlone();
    void wrongOptions_data();
    void wrongOptions();
};

void tst_SpecCellOptions::catalogue()
{
    const SpecRun run = check(catalogueOption(demoCatalogue()), wrongName());
    QCOMPARE(run.complaints, QByteArray());
    QCOMPARE(run.output, FINDING + "1 file checked: 1 error, 0 warnings\n");
    QCOMPARE(run.status, EXIT_FINDINGS);
}

void tst_SpecCellOptions::severalFiles()
{
    QVERIFY(writeFile(QStringLiteral("/tmp/scrib_a"), wrongName()));
    QVERIFY(writeFile(QStringLiteral("/tmp/scrib_b"), wrongName()));
    WaitingCheck program;
    QVERIFY(
        program.startWith(catalogueOption(demoCatalogue()) + QStringList{QStringLiteral("/tmp")}));
    QSet<QString> desks;
    for (const QString& object : memoryOf(program))
        desks.insert(object.section(QLatin1Char('.'), 1, 1));
    QCOMPARE(desks.size(), 1);
    QVERIFY(program.endWith(wrongName()));
    QCOMPARE(program.readAllStandardOutput().count("unknown-variable"), 3);
}

void tst_SpecCellOptions::goodFile()
{
    const SpecRun run = check(catalogueOption(demoCatalogue()), goodNames());
    QCOMPARE(run.status, EXIT_CLEAN);
    QCOMPARE(check({}, wrongName()).status, EXIT_CLEAN);  // without a cell
}

void tst_SpecCellOptions::wrongCatalogue_data()
{
    QTest::addColumn<QByteArray>("catalogue");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("no file") << QByteArray() << QByteArray("No such file");
    QTest::newRow("no JSON") << QByteArray("@SCRIBON x") << QByteArray("syntax error");
    QTest::newRow("no catalogue") << QByteArray("{}") << QByteArray("areas");
    QTest::newRow("unknown area") << QByteArray(R"({"areas":{"NO_MEM":{}}})")
                                  << QByteArray("NO_MEM");
}

void tst_SpecCellOptions::wrongCatalogue()
{
    QFETCH(QByteArray, catalogue);
    QFETCH(QByteArray, complaint);
    const auto path = QStringLiteral("/tmp/cell.json");
    QVERIFY(catalogue.isEmpty() || writeFile(path, catalogue));
    const SpecRun run = check(catalogueOption(path), wrongName());
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.complaints.startsWith("scribon-spec: /tmp/cell.json:"), run.complaints);
    QVERIFY2(run.complaints.contains(complaint), run.complaints);
    QCOMPARE(run.complaints.count('\n'), 1);
    QCOMPARE(run.status, EXIT_TROUBLE);
    QCOMPARE(memoryOfAnyRun(), QStringList());
}

namespace {

// Runs a copy of the program that is alone in its folder.
SpecRun checkWithPath(const QString& path)
{
    const auto copy = QStringLiteral("/tmp/alone/scribon-spec");
    QDir().mkpath(QFileInfo(copy).path());
    QFile::copy(specProgram(), copy);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), path);
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"), QStringLiteral(MARVANE_LIBRARY_DIR));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(copy, QStringList{QStringLiteral("check")} + catalogueOption(demoCatalogue()) +
                            QStringList{DASH});
    program.write(wrongName());
    program.closeWriteChannel();
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

}  // namespace

void tst_SpecCellOptions::noDeskProgram()
{
    const SpecRun run = checkWithPath(QStringLiteral("/nowhere"));
    QCOMPARE(run.complaints,
             QByteArray("scribon-spec: no program marvane-desk beside this one or in PATH\n"));
    QCOMPARE(run.status, EXIT_TROUBLE);
}

void tst_SpecCellOptions::deskProgramInPath()
{
    const SpecRun run = checkWithPath(QStringLiteral("/nowhere:" MARVANE_DESK_DIR));
    QCOMPARE(run.complaints, QByteArray());
    QVERIFY(run.output.startsWith(FINDING));
}

void tst_SpecCellOptions::leavesNoPlatform()
{
    WaitingCheck program;
    QVERIFY(program.startWith(catalogueOption(demoCatalogue())));
    QVERIFY(!memoryOf(program).isEmpty());
    QVERIFY(program.endWith(wrongName()));
    QCOMPARE(program.exitCode(), EXIT_FINDINGS);
    QCOMPARE(memoryOfAnyRun(), QStringList());
}

void tst_SpecCellOptions::killed_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGKILL") << SIGKILL;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void tst_SpecCellOptions::killed()
{
    QFETCH(int, signal);
    WaitingCheck program;
    QVERIFY(program.startWith(catalogueOption(demoCatalogue())));
    QVERIFY(!memoryOfAnyRun().isEmpty());
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), signal), 0);
    QVERIFY(program.waitForFinished());
    QTRY_COMPARE(memoryOfAnyRun(), QStringList());
}

// ---- A platform that runs already --------------------------------------------------------------

void tst_SpecCellOptions::live()
{
    DeskProcess desk;
    QVERIFY(desk.start(demoCatalogue()));
    const SpecRun run = check({QStringLiteral("--live")}, wrongName());
    QCOMPARE(run.output, FINDING + "1 file checked: 1 error, 0 warnings\n");
    QCOMPARE(run.status, EXIT_FINDINGS);
    QVERIFY(desk.terminate());
}

void tst_SpecCellOptions::liveWithoutAPlatform()
{
    const DeskProcess notStarted;
    const SpecRun run = check({QStringLiteral("--live")}, wrongName());
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.complaints, QByteArray("scribon-spec: no Marvane platform runs here\n"));
    QCOMPARE(run.status, EXIT_TROUBLE);
}

void tst_SpecCellOptions::livePlatformStops()
{
    DeskProcess desk;
    QVERIFY(desk.start(demoCatalogue()));
    WaitingCheck program;
    QVERIFY(program.startWith({QStringLiteral("--live")}));
    QVERIFY(desk.terminate());
    QVERIFY(program.endWith(goodNames()));
    QCOMPARE(program.readAllStandardError(),
             QByteArray("scribon-spec: the platform has stopped\n"));
    QCOMPARE(program.exitCode(), EXIT_TROUBLE);
}

void tst_SpecCellOptions::liveSearchesSpecs()
{
    const QByteArray spec = goodNames() + "@ECM_LIST\n1 /specs/asam3_specs.engine:ECM0:0\n";
    DeskProcess desk;
    QVERIFY(desk.start(demoCatalogue()));
    QVERIFY(check({QStringLiteral("--live")}, spec).output.contains("[unknown-list]"));
    QVERIFY(QFile::copy(
        qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/asam3_specs.engine"),
        QStringLiteral("/specs/asam3_specs.engine")));
    QCOMPARE(check({QStringLiteral("--live")}, spec).status, EXIT_CLEAN);
    QCOMPARE(check(catalogueOption(demoCatalogue()), spec).status, EXIT_CLEAN);
    const QStringList elsewhere{QStringLiteral("--live"), QStringLiteral("--specs"),
                                QStringLiteral("/tmp")};
    QVERIFY(check(elsewhere, spec).output.contains("[unknown-list]"));
}

// ---- Options -----------------------------------------------------------------------------------

void tst_SpecCellOptions::specsAlone()
{
    const DeskProcess notStarted;
    const QStringList options{QStringLiteral("--specs"), qEnvironmentVariable("SCRIBON_EXAMPLES")};
    const SpecRun run = check(options, cellSpec("@SCAN_LIST\neng_sped N_ENG\n@ECM_LIST\n"
                                                "1 /specs/asam3_specs.engine:ECM0:0\n"
                                                "2 /specs/asam3_specs.engine:ECM7:0"));
    QCOMPARE(run.output, QByteArray("<stdin>:13:3: error: no asam3_specs file offers the list "
                                    "/specs/asam3_specs.engine:ECM7:0. Did you mean "
                                    "/specs/asam3_specs.engine:ECM0:0? [unknown-list]\n"
                                    "1 file checked: 1 error, 0 warnings\n"));
    QCOMPARE(run.status, EXIT_FINDINGS);
}

void tst_SpecCellOptions::wrongOptions_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("two cells") << catalogueOption(demoCatalogue()) +
                                      QStringList{QStringLiteral("--live")}
                               << QByteArray("--catalogue and --live exclude each other");
    QTest::newRow("no folder") << QStringList{QStringLiteral("--specs"), QStringLiteral("/nowhere")}
                               << QByteArray("/nowhere is not a folder");
}

void tst_SpecCellOptions::wrongOptions()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, complaint);
    const SpecRun run = check(options, wrongName());
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.complaints, "scribon-spec: " + complaint + '\n');
    QCOMPARE(run.status, EXIT_TROUBLE);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCellOptions)
#include "tst_spec_cell_options.moc"
