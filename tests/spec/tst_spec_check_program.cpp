// The real program: exit statuses and options of check, its processes, terminals and full disks.

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "checked_texts.h"
#include "places.h"
#include "program_on_terminal.h"
#include "rules.h"
#include "spec_generator.h"
#include "spec_program.h"

namespace {

const QByteArray CLEAN = QByteArray::fromStdString(generateSpec({}));
const QByteArray WARNED = "# \xe4\n" + CLEAN;
const QByteArray WRONG = QByteArray(CLEAN).replace("@MODE\ntest", "@MODE\n7est");

SpecRun check(const QStringList& arguments, const QByteArray& input = {})
{
    return runSpec(QStringList{"check"_s} + arguments, input);
}

// The parts of a command line; FOLDER is the folder of the files.
QStringList partsOf(const QString& line, const QString& folder)
{
    QStringList parts = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return parts.replaceInStrings("FOLDER"_s, folder);
}

QList<int> childrenOf(qint64 process)
{
    QList<int> children;
    for (const QByteArray& child : readFile("/proc/%1/task/%1/children"_s.arg(process)).split(' '))
        if (child.toInt() > 0)
            children.append(child.toInt());
    return children;
}

}  // namespace

class tst_SpecCheckProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void statuses_data();
    void statuses();
    void complaintsTellWhatIsWrong_data();
    void complaintsTellWhatIsWrong();
    void severitiesChangeTheReport();
    void foldersAreSearched();
    void whatCannotBeSearchedIsTold();
    void standardInput();
    void filesAroundABadOneAreChecked();
    void unreadableTellsWhy();
    void rulesAreListed();
    void helpNamesTheCommand();
    void namesThatAreNoUtf8();

    void jobsChangeNothing_data();
    void jobsChangeNothing();
    void aDeadProcessIsTold();
    void nothingIsWritten();

    void terminalShowsLinesAndColours();
    void terminalWithoutColours();
    void terminalShowsAPartOfLongLines();
    void controlCharactersDoNotReachTheTerminal();
    void progressIsShownAndErased();

    void lostOutput_data();
    void lostOutput();

private:
    QString file(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_folder;
};

void tst_SpecCheckProgram::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QVERIFY(QDir(m_folder.path()).mkpath("many"_s));
    QVERIFY(QDir(m_folder.path()).mkpath("none"_s));
    QVERIFY(writeFile(file("clean"), CLEAN));
    QVERIFY(writeFile(file("warned"), WARNED));
    QVERIFY(writeFile(file("wrong"), WRONG));
    QVERIFY(writeFile(file("refused"), "no spec\n"));
    QVERIFY(writeFile(file("locked"), CLEAN));
    QVERIFY(QFile::setPermissions(file("locked"), {}));
    int number = 0;
    for (const NamedText& text : manyTexts())
        QVERIFY(writeFile(m_folder.filePath("many/scrib_%1"_s.arg(number++)), text.bytes));
}

void tst_SpecCheckProgram::statuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("status");
    const auto add = [](const char* line, int status) {
        QTest::newRow(line) << QString::fromUtf8(line) << status;
    };
    add("FOLDER/clean", 0);
    add("FOLDER/wrong", 1);
    add("FOLDER/clean FOLDER/wrong FOLDER/clean", 1);
    add("FOLDER/refused", 1);
    add("FOLDER/missing", 2);
    add("FOLDER/locked", 2);
    add("FOLDER/missing FOLDER/wrong", 2);
    add("--disable unreadable FOLDER/missing", 2);
    add("--warning unreadable FOLDER/missing", 2);
    add("FOLDER/warned", 0);
    add("--fail-on error FOLDER/warned", 0);
    add("--fail-on warning FOLDER/warned", 1);
    add("--fail-on warning FOLDER/clean", 0);
    add("--error encoding FOLDER/warned", 1);
    add("--disable encoding --fail-on warning FOLDER/warned", 0);
    add("--warning syntax FOLDER/wrong", 0);
    add("--warning syntax --fail-on warning FOLDER/wrong", 1);
    add("--disable syntax FOLDER/wrong", 0);
    add("--warning syntax --error syntax FOLDER/wrong", 1);
    add("--jobs 1 FOLDER/wrong", 1);
    add("--jobs 3 FOLDER/wrong FOLDER/clean", 1);
    add("--jobs 99999 FOLDER/clean FOLDER/clean FOLDER/missing", 2);
    add("--format json FOLDER/wrong", 1);
    add("--format sarif --fail-on warning FOLDER/warned", 1);
    add("--format html FOLDER/missing", 2);
    add("--help", 0);
}

void tst_SpecCheckProgram::statuses()
{
    QFETCH(QString, line);
    const SpecRun run = check(partsOf(line, m_folder.path()));
    QTEST(run.status, "status");
    QCOMPARE(run.complaints, QByteArray());
    QVERIFY(!run.output.isEmpty());
}

void tst_SpecCheckProgram::complaintsTellWhatIsWrong_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("complaint");
    const auto add = [](const char* line, const char* complaint) {
        QTest::newRow(line) << QString::fromUtf8(line)
                            << "scribon-spec: " + QByteArray(complaint) + '\n';
    };
    add("", "no files to check");
    add("FOLDER/none", "no files to check; folders are searched for scrib*");
    add("--format xml FOLDER/clean", "--format takes text, json, sarif or html");
    add("--fail-on never FOLDER/clean", "--fail-on takes error or warning");
    add("--disable other FOLDER/clean", "no rule other; see scribon-spec rules");
    add("--jobs 0 FOLDER/clean", "--jobs takes a number from 1");
    add("--jobs -2 FOLDER/clean", "--jobs takes a number from 1");
    add("--jobs two FOLDER/clean", "--jobs takes a number from 1");
    add("--jobs 1.5 FOLDER/clean", "--jobs takes a number from 1");
    add("--jobs 99999999999 FOLDER/clean", "--jobs takes a number from 1");
    add("- FOLDER/clean -", "standard input can be checked once only");
    add("--unknown FOLDER/clean", "Unknown option 'unknown'.");
}

void tst_SpecCheckProgram::complaintsTellWhatIsWrong()
{
    QFETCH(QString, line);
    const SpecRun run = check(partsOf(line, m_folder.path()));
    QCOMPARE(run.status, 2);
    QTEST(run.complaints, "complaint");
    QCOMPARE(run.output, QByteArray());
}

void tst_SpecCheckProgram::severitiesChangeTheReport()
{
    const auto output = [this](const QString& option) {
        return QString::fromUtf8(check({option, "syntax"_s, file("wrong")}).output);
    };
    QVERIFY(output("--error"_s).contains(": error: Invalid chars in variable name [syntax]\n"_s));
    QVERIFY(
        output("--warning"_s).contains(": warning: Invalid chars in variable name [syntax]\n"_s));
    QCOMPARE(output("--disable"_s), "1 file checked: 0 errors, 0 warnings\n"_s);
}

void tst_SpecCheckProgram::foldersAreSearched()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("b/c"_s));
    for (const char* name :
         {"scrib_2", "scrib_1", "b/scribon", "b/c/scrib_3", "other", "b/a_scrib"})
        QVERIFY(writeFile(folder.filePath(QString::fromLatin1(name)), "x"));
    const SpecRun run = check({"--format"_s, "json"_s, folder.path(), folder.filePath("other"_s)});
    QStringList names;
    for (const QJsonValue entry : QJsonDocument::fromJson(run.output)["files"_s].toArray())
        names.append(QDir(folder.path()).relativeFilePath(entry["file"_s].toString()));
    QCOMPARE(names,
             QStringList({"b/c/scrib_3"_s, "b/scribon"_s, "scrib_1"_s, "scrib_2"_s, "other"_s}));
}

void tst_SpecCheckProgram::whatCannotBeSearchedIsTold()
{
    QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("scrib_good"_s), CLEAN));
    QVERIFY(writeFile(folder.filePath("scrib_locked"_s), CLEAN));
    QVERIFY(writeFile(folder.filePath(".git/refs/scrib_branch"_s), "no spec\n"));
    QVERIFY(makePipe(folder.filePath("scrib_pipe"_s)));
    QVERIFY(QFile::link("nowhere"_s, folder.filePath("scrib_link"_s)));
    QVERIFY(QFile::setPermissions(folder.filePath("scrib_locked"_s), {}));
    QVERIFY(QDir(folder.path()).mkpath("closed"_s));
    QVERIFY(QFile::setPermissions(folder.filePath("closed"_s), {}));
    const SpecRun run = check({folder.path()});
    QVERIFY(QFile::setPermissions(folder.filePath("closed"_s), QFile::ReadOwner | QFile::ExeOwner));
    QCOMPARE(run.status, 2);
    const QString start = folder.path() + "/"_s;
    QCOMPARE(QString::fromUtf8(run.output),
             start + "closed: error: Permission denied [unreadable]\n"_s + start +
                 "scrib_link: error: No such file or directory [unreadable]\n"_s + start +
                 "scrib_locked: error: Permission denied [unreadable]\n"_s +
                 "4 files checked: 3 errors, 0 warnings\n"_s);
}

void tst_SpecCheckProgram::standardInput()
{
    const SpecRun run = check({"-"_s}, WRONG);
    QCOMPARE(run.status, 1);
    QVERIFY(run.output.startsWith("<stdin>:"));
    for (const char* jobs : {"1", "2"}) {
        const SpecRun among = check(
            {"--jobs"_s, QString::fromLatin1(jobs), file("clean"), "-"_s, file("clean")}, WRONG);
        QCOMPARE(among.status, 1);
        QCOMPARE(among.output, QByteArray(run.output).replace("1 file ", "3 files "));
    }
}

void tst_SpecCheckProgram::filesAroundABadOneAreChecked()
{
    for (const char* bad : {"missing", "locked", "refused"}) {
        const SpecRun run = check({file("wrong"), file(bad), file("warned")});
        const QString output = QString::fromUtf8(run.output);
        QVERIFY(output.contains(file("wrong") + ":"_s));
        QVERIFY(output.contains(file(bad) + ": error: "_s));
        QVERIFY(output.contains(file("warned") + ":1:3: warning: "_s));
        QVERIFY(output.endsWith("3 files checked: 2 errors, 1 warning\n"_s));
    }
}

void tst_SpecCheckProgram::unreadableTellsWhy()
{
    QVERIFY(check({"/dev/null"_s}).output.startsWith("/dev/null: error: not a regular file ["));
    SpecProcess program;
    program.setStandardInputFile(m_folder.path());
    program.start({"check"_s, "-"_s});
    QCOMPARE(program.status(), 2);
    QVERIFY(program.readAllStandardOutput().startsWith("<stdin>: error: Is a directory ["));
}

void tst_SpecCheckProgram::helpNamesTheCommand()
{
    for (const char* command : {"check", "rules", "show", "format", "diff"}) {
        const QByteArray help = runSpec({QString::fromLatin1(command), "--help"_s}).output;
        QVERIFY2(help.startsWith("Usage: scribon-spec " + QByteArray(command) + " [options]"),
                 help.constData());
    }
}

void tst_SpecCheckProgram::rulesAreListed()
{
    const SpecRun run = runSpec({"rules"_s});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.output.count('\n'), static_cast<int>(RULES.size()));
    for (const RuleFacts& facts : RULES)
        QVERIFY2(run.output.contains(facts.name), facts.name);
    QCOMPARE(runSpec({"rules"_s, "syntax"_s}).status, 2);
}

// As a shell passes them; QProcess would encode them.
void tst_SpecCheckProgram::namesThatAreNoUtf8()
{
    QProcess shell;
    shell.start("/bin/sh"_s, {"-c"_s, "\"$0\" check --format json \"$(printf 'scrib_\\344')\""_s,
                              specProgram()});
    QVERIFY(shell.waitForFinished());
    const QJsonDocument report = QJsonDocument::fromJson(shell.readAllStandardOutput());
    QCOMPARE(report["files"_s][0]["file"_s].toString(), "scrib_\ufffd"_s);
    QCOMPARE(report["files"_s][0]["findings"_s][0]["message"_s].toString(),
             "its name is not UTF-8"_s);
}

// ---- Processes ----------------------------------------------------------------------------------

void tst_SpecCheckProgram::jobsChangeNothing_data()
{
    QTest::addColumn<QString>("format");
    for (const char* format : {"text", "json", "sarif", "html"})
        QTest::newRow(format) << QString::fromLatin1(format);
}

void tst_SpecCheckProgram::jobsChangeNothing()
{
    QFETCH(QString, format);
    const QStringList arguments{"--format"_s, format, file("many"), file("missing"), file("wrong")};
    const SpecRun alone = check(QStringList{"--jobs"_s, "1"_s} + arguments);
    QCOMPARE(alone.status, 2);
    for (const QStringList& jobs : {QStringList{"--jobs"_s, "9"_s}, QStringList()}) {
        const SpecRun run = check(jobs + arguments);
        QCOMPARE(run.status, alone.status);
        QVERIFY(run.output == alone.output);
        QCOMPARE(run.complaints, QByteArray());
    }
}

// The processes are killed while one of them waits for the standard input.
void tst_SpecCheckProgram::aDeadProcessIsTold()
{
    SpecProcess program;
    program.start({"check"_s, "--format"_s, "json"_s, "--jobs"_s, "2"_s, file("wrong"), "-"_s,
                   file("clean"), file("wrong")});
    QVERIFY(program.waitForStarted());
    QList<int> children;
    QTRY_COMPARE((children = childrenOf(program.processId())).size(), 2);
    QTRY_VERIFY(program.bytesAvailable() > 100 || program.waitForReadyRead(10));
    for (const int child : children)
        kill(child, SIGKILL);
    QCOMPARE(program.status(), 2);
    QVERIFY(program.readAllStandardError().contains(
        "-: the check broke off: its process ended by signal 9 (Killed)\n"));
    const QJsonArray files =
        QJsonDocument::fromJson(program.readAllStandardOutput())["files"_s].toArray();
    QCOMPARE(files.size(), 4);
    QCOMPARE(files.at(1)["findings"_s][0]["rule"_s].toString(), "unreadable"_s);
    // The other process may have been at one of the files behind.
    const auto unreadable = std::count_if(files.begin(), files.end(), [](const QJsonValue& file) {
        return file["findings"_s][0]["rule"_s].toString() == "unreadable"_s;
    });
    QVERIFY(unreadable <= 2);
}

void tst_SpecCheckProgram::nothingIsWritten()
{
    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : {"HOME"_s, "TMPDIR"_s, "XDG_CACHE_HOME"_s, "XDG_CONFIG_HOME"_s})
        environment.insert(name, home.path());
    const auto namesAndTimes = [this] {
        QStringList facts;
        for (const QFileInfo& info :
             QDir(m_folder.path()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            facts.append(info.fileName() + info.lastModified().toString(Qt::ISODateWithMs));
        return facts;
    };
    const QStringList before = namesAndTimes();
    for (const char* format : {"text", "json", "sarif", "html"}) {
        runSpec({"check"_s, "--jobs"_s, "2"_s, "--format"_s, QString::fromLatin1(format),
                 m_folder.path(), file("wrong")},
                {}, environment);
    }
    QCOMPARE(namesAndTimes(), before);
    QVERIFY(QDir(home.path()).isEmpty());
}

// ---- Terminals ----------------------------------------------------------------------------------

void tst_SpecCheckProgram::terminalShowsLinesAndColours()
{
    Terminal terminal;
    SpecProcess program;
    program.setOutput(terminal.programsEnd());
    program.start({"check"_s, file("wrong")});
    QCOMPARE(program.status(), 1);
    const QByteArray text = terminal.text();
    QVERIFY(text.contains("\x1b[1;31merror:\x1b[0m Invalid chars in variable name [syntax]\n"));
    QVERIFY(text.contains("\n7est_mode_name\n\x1b[1;32m^~~~~~~~~~~~~~\x1b[0m\n"));
}

void tst_SpecCheckProgram::terminalWithoutColours()
{
    Terminal terminal;
    SpecProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("NO_COLOR"_s, "1"_s);
    program.setProcessEnvironment(environment);
    program.setOutput(terminal.programsEnd());
    program.start({"check"_s, file("wrong")});
    QCOMPARE(program.status(), 1);
    QVERIFY(terminal.text().contains(" [syntax]\n7est_mode_name\n^~~~~~~~~~~~~~\n"));
    QVERIFY(!terminal.text().contains('\x1b'));
    QVERIFY(!check({file("wrong")}).output.contains("\n7est"));
}

void tst_SpecCheckProgram::terminalShowsAPartOfLongLines()
{
    const QByteArray entries = QByteArray("speed RPM ").repeated(300);
    QVERIFY(writeFile(file("long"), "@SCRIBON x @SCAN_LIST " + entries + "5 " + entries + '\n'));
    Terminal terminal;
    SpecProcess program;
    program.setOutput(terminal.programsEnd());
    program.start({"check"_s, "--disable"_s, "duplicate"_s, file("long")});
    QCOMPARE(program.status(), 1);
    const QByteArray part = QByteArray("speed RPM ").repeated(10);
    QVERIFY(terminal.text().contains("\n\u2026" + part + "5 " + part.left(98) + "\u2026\n" +
                                     QByteArray(101, ' ') + "\x1b[1;32m^"));
}

void tst_SpecCheckProgram::controlCharactersDoNotReachTheTerminal()
{
    const QString name = m_folder.filePath("bad\x1b[2Jname"_s);
    QVERIFY(writeFile(name,
                      "@SCRIBON x\n@MODE\t'\xe6\xb8\xa9\x1b[2J\xe2\x80\xae' \xc2\x9b  @MISTAKE\n"));
    Terminal terminal;
    SpecProcess program;
    program.setOutput(terminal.programsEnd());
    program.start({"check"_s, name});
    QCOMPARE(program.status(), 1);
    const QString text = QString::fromUtf8(terminal.text());
    QVERIFY(!text.contains("\x1b[2J"_s) && !text.contains(QChar(0x202e)) &&
            !text.contains(QChar(0x9b)));
    // The mark stands below the text: the first character takes two columns.
    QVERIFY(text.contains(
        "@MODE\t'\u6e29\ufffd[2J\ufffd' \ufffd  @MISTAKE\n     \t          \x1b[1;32m^"_s));
    QVERIFY(QFile::remove(name));
}

// The standard input keeps one process waiting until the line has been seen. The program without a
// terminal has waited longer by then.
void tst_SpecCheckProgram::progressIsShownAndErased()
{
    const QStringList arguments{"check"_s,     "--jobs"_s, "2"_s,         file("clean"),
                                file("clean"), "-"_s,      file("clean"), file("wrong")};
    SpecProcess other;
    other.start(arguments);
    QVERIFY(other.waitForStarted());
    Terminal terminal;
    SpecProcess program;
    program.setComplaints(terminal.programsEnd());
    program.start(arguments);
    QTRY_VERIFY(terminal.text().contains("\r\x1b[K2 of 5 files"));
    for (SpecProcess* process : {&other, &program}) {
        process->write(CLEAN);
        process->closeWriteChannel();
        QCOMPARE(process->status(), 1);
        QVERIFY(
            process->readAllStandardOutput().contains("5 files checked: 1 error, 0 warnings\n"));
    }
    QVERIFY(terminal.text().endsWith("files\r\x1b[K"));
    QCOMPARE(other.readAllStandardError(), QByteArray());
}

// ---- Output that cannot be written --------------------------------------------------------------

void tst_SpecCheckProgram::lostOutput_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("a full disk") << "full"_s << QByteArray("No space left on device");
    QTest::newRow("no stream") << "closed"_s << QByteArray("Bad file descriptor");
    QTest::newRow("a reader that has gone") << "pipe"_s << QByteArray("Broken pipe");
}

void tst_SpecCheckProgram::lostOutput()
{
    QFETCH(QString, output);
    std::array<int, 2> pipeEnds{CLOSED, CLOSED};
    if (output == "pipe"_s)
        QCOMPARE(pipe(pipeEnds.data()), 0);
    if (output == "full"_s)
        pipeEnds[1] = open("/dev/full", O_WRONLY);
    if (pipeEnds[0] >= 0)
        close(pipeEnds[0]);
    for (const QStringList& command :
         {QStringList{"check"_s, "--jobs"_s, "1"_s, file("many")},
          QStringList{"check"_s, "--jobs"_s, "2"_s, file("many")},
          QStringList{"check"_s, "--format"_s, "html"_s, file("clean")},
          QStringList{"check"_s, "--help"_s}, QStringList{"rules"_s},
          QStringList{"show"_s, file("clean"), file("missing")},
          QStringList{"format"_s, file("clean"), file("missing")}}) {
        SpecProcess program;
        program.setOutput(pipeEnds[1]);
        program.start(command);
        QCOMPARE(program.status(), 2);
        QFETCH(QByteArray, reason);
        QCOMPARE(program.readAllStandardError(),
                 "scribon-spec: cannot write to standard output: " + reason + '\n');
    }
    if (pipeEnds[1] >= 0)
        close(pipeEnds[1]);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCheckProgram)
#include "tst_spec_check_program.moc"
