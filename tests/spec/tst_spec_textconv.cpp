// git diff with scribon-spec as its text converter, as the help sets it up.

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "places.h"
#include "spec_program.h"

class tst_SpecTextconv : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void rowsDiffer();
    void changeOfLayoutIsNone();
    void fileThatIsNoSpecFile();

private:
    QByteArray git(const QStringList& arguments);
    void commit(const QByteArray& text);
    QByteArray differenceTo(const QByteArray& text);

    std::unique_ptr<QTemporaryDir> m_repository;
};

void tst_SpecTextconv::initTestCase()
{
    if (QStandardPaths::findExecutable("git"_s).isEmpty())
        QSKIP("git is not installed");
}

// Settings of the machine and of the user must not matter.
QByteArray tst_SpecTextconv::git(const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME"_s, m_repository->path());
    environment.insert("GIT_CONFIG_NOSYSTEM"_s, "1"_s);
    environment.insert("GIT_CONFIG_GLOBAL"_s, "/dev/null"_s);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_repository->path());
    process.start("git"_s, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("git: %s", process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

void tst_SpecTextconv::init()
{
    m_repository = std::make_unique<QTemporaryDir>();
    git({"init"_s, "--quiet"_s});
    QVERIFY(writeFile(m_repository->filePath(".gitattributes"_s), "scrib* diff=scribon\n"));
    git({"config"_s, "user.name"_s, "tester"_s});
    git({"config"_s, "user.email"_s, "tester@example.org"_s});
    git({"config"_s, "diff.scribon.textconv"_s, "'%1' show --fallback"_s.arg(specProgram())});
    git({"config"_s, "diff.scribon.cachetextconv"_s, "true"_s});
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
