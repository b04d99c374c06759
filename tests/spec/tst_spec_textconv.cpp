// git diff with scribon-spec as its text converter, as the help sets it up.

#include <QTest>
#include <memory>

#include "git_repository.h"
#include "places.h"

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
    void commit(const QByteArray& text);
    QByteArray differenceTo(const QByteArray& text);

    std::unique_ptr<GitRepository> m_repository;
};

void tst_SpecTextconv::initTestCase()
{
    if (!GitRepository::isGitInstalled())
        QSKIP("git is not installed");
    QCOMPARE(linesOfTheHelp().size(), 3);
}

void tst_SpecTextconv::init()
{
    m_repository = std::make_unique<GitRepository>();
    for (const QString& line : linesOfTheHelp())
        QCOMPARE(m_repository->run("/bin/sh"_s, {"-c"_s, line}).status, 0);
}

void tst_SpecTextconv::commit(const QByteArray& text)
{
    QVERIFY(m_repository->write("scrib_x"_s, text));
    m_repository->git({"add"_s, "."_s});
    m_repository->git({"commit"_s, "--quiet"_s, "--message=test"_s});
}

// Without the lines that name the files.
QByteArray tst_SpecTextconv::differenceTo(const QByteArray& text)
{
    if (!m_repository->write("scrib_x"_s, text))
        return "not written";
    const QByteArray difference = m_repository->git({"diff"_s, "--unified=0"_s, "--no-color"_s});
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
