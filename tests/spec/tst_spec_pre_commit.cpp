// The pre-commit hook of the examples in a real repository.

#include <QFile>
#include <QTest>
#include <memory>

#include "git_repository.h"
#include "places.h"

namespace {

QByteArray cleanSpec()
{
    return exampleSpec("scrib_ecm"_s);
}

QByteArray wrongSpec()
{
    QByteArray text = cleanSpec();
    text.replace("test_group", "7th_group");
    return text;
}

}  // namespace

class tst_SpecPreCommit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void goodFileIsCommitted();
    void wrongFileIsRefused_data();
    void wrongFileIsRefused();
    void stagedVersionCounts();
    void changeOfAllFilesIsChecked();
    void otherFilesAreLeftAlone_data();
    void otherFilesAreLeftAlone();
    void wrongFileCanBeRemoved();
    void optionsReachTheCheck();
    void missingProgramRefuses();

private:
    void stage(const QString& name, const QByteArray& text);
    SpecRun commit(const QStringList& options = {});
    int commits() const;

    std::unique_ptr<GitRepository> m_repository;
    QString m_hook;
};

void tst_SpecPreCommit::initTestCase()
{
    if (!GitRepository::isGitInstalled())
        QSKIP("git is not installed");
}

void tst_SpecPreCommit::init()
{
    m_repository = std::make_unique<GitRepository>();
    m_hook = m_repository->filePath(".git/hooks/pre-commit"_s);
    const QString hook = qEnvironmentVariable("SCRIBON_EXAMPLES") + "/build_server/pre-commit"_s;
    QVERIFY(writeFile(m_hook, readFile(hook)));
    QVERIFY(QFile::setPermissions(m_hook, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void tst_SpecPreCommit::stage(const QString& name, const QByteArray& text)
{
    QVERIFY(m_repository->write(name, text));
    m_repository->git({"add"_s, "--"_s, name});
}

SpecRun tst_SpecPreCommit::commit(const QStringList& options)
{
    return m_repository->run("git"_s, QStringList{"commit"_s, "--message=test"_s} + options);
}

int tst_SpecPreCommit::commits() const
{
    return m_repository->git({"rev-list"_s, "--all"_s}).count('\n');
}

void tst_SpecPreCommit::goodFileIsCommitted()
{
    stage("scrib_x"_s, cleanSpec());
    const SpecRun result = commit();
    QVERIFY2(result.status == 0, result.complaints.constData());
    QVERIFY2(result.complaints.contains("1 file checked: 0 errors"), result.complaints.constData());
    QCOMPARE(commits(), 1);
    QCOMPARE(m_repository->temporaryFiles(), QStringList());
    QCOMPARE(m_repository->git({"status"_s, "--porcelain"_s}), QByteArray());
}

void tst_SpecPreCommit::wrongFileIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("at the top") << "scrib_x"_s;
    QTest::newRow("in a folder") << "cells/4/scrib_x"_s;
    QTest::newRow("in a hidden folder") << ".cells/scrib_x"_s;
    QTest::newRow("blanks") << "cell 4/scrib full load"_s;
    QTest::newRow("like an option") << "-x/scrib_x"_s;
    QTest::newRow("letters beyond a to z") << "scrib_prüfstand"_s;
}

void tst_SpecPreCommit::wrongFileIsRefused()
{
    QFETCH(QString, name);
    stage("scrib_good"_s, cleanSpec());
    stage(name, wrongSpec());
    const QByteArray before = m_repository->git({"status"_s, "--porcelain"_s});
    const SpecRun result = commit();
    QCOMPARE(result.status, 1);
    QVERIFY2(result.complaints.contains(name.toUtf8() + ":"), result.complaints.constData());
    QVERIFY(result.complaints.contains("Invalid chars in variable name [syntax]"));
    QVERIFY(result.complaints.contains("Nothing was committed"));
    QCOMPARE(commits(), 0);
    QCOMPARE(m_repository->temporaryFiles(), QStringList());
    QCOMPARE(m_repository->git({"status"_s, "--porcelain"_s}), before);
}

void tst_SpecPreCommit::stagedVersionCounts()
{
    stage("scrib_x"_s, wrongSpec());
    QVERIFY(m_repository->write("scrib_x"_s, cleanSpec()));
    QCOMPARE(commit().status, 1);

    stage("scrib_x"_s, cleanSpec());
    QVERIFY(m_repository->write("scrib_x"_s, wrongSpec()));
    QCOMPARE(commit().status, 0);
    QCOMPARE(readFile(m_repository->filePath("scrib_x"_s)), wrongSpec());
}

// git uses another index then.
void tst_SpecPreCommit::changeOfAllFilesIsChecked()
{
    stage("scrib_x"_s, cleanSpec());
    QCOMPARE(commit().status, 0);
    QVERIFY(m_repository->write("scrib_x"_s, wrongSpec()));
    QCOMPARE(commit({"--all"_s}).status, 1);
    QCOMPARE(commit({"scrib_x"_s}).status, 1);
    QCOMPARE(commits(), 1);
}

void tst_SpecPreCommit::otherFilesAreLeftAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("another name") << "notes"_s;
    QTest::newRow("scrib within the name") << "describe_scrib"_s;
    QTest::newRow("in a folder of such a name") << "scrib_notes/read_me"_s;
}

void tst_SpecPreCommit::otherFilesAreLeftAlone()
{
    QFETCH(QString, name);
    stage(name, wrongSpec());
    QVERIFY(QFile::link("gone"_s, m_repository->filePath("scrib_link"_s)));
    m_repository->git({"add"_s, "scrib_link"_s});
    const SpecRun result = commit();
    QVERIFY2(result.status == 0, result.complaints.constData());
    QVERIFY2(!result.complaints.contains("checked"), result.complaints.constData());
}

void tst_SpecPreCommit::wrongFileCanBeRemoved()
{
    stage("scrib_x"_s, wrongSpec());
    QCOMPARE(commit({"--no-verify"_s}).status, 0);
    m_repository->git({"rm"_s, "--quiet"_s, "scrib_x"_s});
    const SpecRun result = commit();
    QVERIFY2(result.status == 0, result.complaints.constData());
}

void tst_SpecPreCommit::optionsReachTheCheck()
{
    QByteArray hook = readFile(m_hook);
    QCOMPARE(hook.count("\noptions=()\n"), 1);
    hook.replace("\noptions=()\n", "\noptions=(--specs \"$PWD/asam3\" --warning syntax)\n");
    QVERIFY(writeFile(m_hook, hook));
    stage("asam3/asam3_specs.x"_s, exampleSpec("asam3_specs.engine"_s));
    stage("scrib_x"_s, wrongSpec());
    const SpecRun result = commit();
    QVERIFY2(result.complaints.contains(" warning: Invalid chars"), result.complaints.constData());
    QVERIFY2(result.complaints.contains("[unknown-list]"), result.complaints.constData());
}

void tst_SpecPreCommit::missingProgramRefuses()
{
    QByteArray hook = readFile(m_hook);
    hook.replace("scribon-spec check", "scribon-spec-gone check");
    QVERIFY(writeFile(m_hook, hook));
    stage("scrib_x"_s, cleanSpec());
    QCOMPARE(commit().status, 1);
    QCOMPARE(commits(), 0);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecPreCommit)
#include "tst_spec_pre_commit.moc"
