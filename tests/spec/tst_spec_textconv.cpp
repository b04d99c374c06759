// git diff with scribon-spec as its text converter, as the help sets it up.

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "places.h"
#include "spec_program.h"

namespace {

// The lines that set up the converter.
QStringList linesOfTheHelp()
{
    QStringList lines;
    const QByteArray help = readFile(QStringLiteral(SCRIBON_HELP "/spec_tables.md"));
    for (const QString& line : QString::fromUtf8(help).split(QLatin1Char('\n'))) {
        if (line.startsWith("    echo 'scrib*"_s) || line.startsWith("    git config"_s))
            lines.append(line.trimmed());
    }
    return lines;
}

}  // namespace

class tst_SpecTextconv : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void rowsDiffer();
    void changeOfLayoutIsNone();
    void fileThatIsNoSpecFile();

private:
    QByteArray run(const QString& program, const QStringList& arguments);
    QByteArray git(const QStringList& arguments) { return run("git"_s, arguments); }
    void commit(const QByteArray& text);
    QByteArray differenceTo(const QByteArray& text);

    std::unique_ptr<QTemporaryDir> m_repository;
};

void tst_SpecTextconv::initTestCase()
{
    if (QStandardPaths::findExecutable("git"_s).isEmpty())
        QSKIP("git is not installed");
    QCOMPARE(linesOfTheHelp().size(), 3);
}

// Settings of the machine and of the user must not matter.
QByteArray tst_SpecTextconv::run(const QString& program, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME"_s, m_repository->path());
    environment.insert("GIT_CONFIG_NOSYSTEM"_s, "1"_s);
    environment.insert("PATH"_s,
                       QFileInfo(specProgram()).path() + ":"_s + environment.value("PATH"_s));
    environment.insert("GIT_CONFIG_GLOBAL"_s, "/dev/null"_s);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_repository->path());
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

void tst_SpecTextconv::init()
{
    m_repository = std::make_unique<QTemporaryDir>();
    git({"init"_s, "--quiet"_s});
    git({"config"_s, "user.name"_s, "tester"_s});
    git({"config"_s, "user.email"_s, "tester@example.org"_s});
    for (const QString& line : linesOfTheHelp())
        run("/bin/sh"_s, {"-c"_s, line});
}

void tst_SpecTextconv::commit(const QByteArray& text)
{
    QVERIFY(writeFile(m_repository->filePath("scrib_x"_s), text));
    git({"add"_s, "."_s});
    git({"commit"_s, "--quiet"_s, "--message=test"_s});
}

// Without the lines that name the files.
QByteArray tst_SpecTextconv::differenceTo(const QByteArray& text)
{
    if (!writeFile(m_repository->filePath("scrib_x"_s), text))
        return "not written";
    const QByteArray difference = git({"diff"_s, "--unified=0"_s, "--no-color"_s});
    return difference.mid(difference.indexOf("\n@@") + 1);
}

void tst_SpecTextconv::rowsDiffer()
{
    commit(smallSpec());
    QByteArray text = smallSpec();
    text.replace("dyno_speed\t\tN_DYNO", "dyno_speed\t\t.MX\t\tN_DYNO");
    QCOMPARE(differenceTo(text),
             QByteArray("@@ -14 +14 @@ Scan List\n"
                        "-  dyno_speed                                              N_DYNO\n"
                        "+  dyno_speed                      .MX                     N_DYNO\n"));
}

void tst_SpecTextconv::changeOfLayoutIsNone()
{
    commit("@SCRIBON x\n@SCAN_LIST\na   A\n");
    QCOMPARE(differenceTo("@SCRIBON\nx\n\n@SCAN_LIST\na\t\tA\n"), QByteArray());
}

void tst_SpecTextconv::fileThatIsNoSpecFile()
{
    commit(smallSpec());
    const QByteArray difference = differenceTo("no spec file\n");
    QVERIFY2(difference.contains("\n+no spec file\n"), difference.constData());
    QVERIFY(difference.contains("\n-  @SCRIBON                        small\n"));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecTextconv)
#include "tst_spec_textconv.moc"
