// The commands of the examples' workflow file, run as the build server runs them.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "places.h"
#include "spec_program.h"

namespace {

// Prints the file as JSON. Status 77 if Python cannot read YAML.
constexpr auto YAML_TO_JSON = R"(import json, sys
try:
    import yaml
except ImportError:
    sys.exit(77)
print(json.dumps(yaml.load(open(sys.argv[1]), yaml.BaseLoader)))
)";
constexpr int NO_YAML = 77;

QString examples()
{
    return qEnvironmentVariable("SCRIBON_EXAMPLES");
}

}  // namespace

class tst_SpecBuildServer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void eachStepIsWhole();
    void installsThePackages();
    void goodFilesPass();
    void wrongFilesFail();
    void reportsAreWritten();
    void optionsReachTheCheck();

private:
    QVector<QJsonObject> steps() const;
    QString commandsOf(const QString& step) const;
    SpecRun runStep(const QString& step, const QMap<QString, QString>& variables);

    QJsonObject m_workflow;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_SpecBuildServer::initTestCase()
{
    QProcess python;
    python.start("python3"_s, {"-c"_s, QString::fromLatin1(YAML_TO_JSON),
                               examples() + "/build_server/check_spec_files.yml"_s});
    if (!python.waitForFinished() || python.exitCode() == NO_YAML)
        QSKIP("Python, or its module yaml, is not installed");
    QVERIFY2(python.exitCode() == 0, python.readAllStandardError().constData());
    m_workflow = QJsonDocument::fromJson(python.readAllStandardOutput()).object();
}

void tst_SpecBuildServer::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QVector<QJsonObject> tst_SpecBuildServer::steps() const
{
    const QJsonObject job = m_workflow.value("jobs"_s).toObject().value("check"_s).toObject();
    const QJsonArray values = job.value("steps"_s).toArray();
    QVector<QJsonObject> steps;
    for (const QJsonValue& value : values)
        steps.append(value.toObject());
    return steps;
}

QString tst_SpecBuildServer::commandsOf(const QString& step) const
{
    for (const QJsonObject& told : steps()) {
        if (told.value("name"_s).toString() == step)
            return told.value("run"_s).toString();
    }
    return {};
}

// The variables replace those of the file.
SpecRun tst_SpecBuildServer::runStep(const QString& step, const QMap<QString, QString>& variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString programs = m_folder->path() + ":"_s + QFileInfo(specProgram()).path();
    environment.insert("PATH"_s, programs + ":"_s + environment.value("PATH"_s));
    const QJsonObject told = m_workflow.value("env"_s).toObject();
    for (auto variable = told.begin(); variable != told.end(); ++variable)
        environment.insert(variable.key(),
                           variables.value(variable.key(), variable.value().toString()));
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setWorkingDirectory(m_folder->path());
    shell.start("/bin/sh"_s, {"-e"_s, "-c"_s, commandsOf(step)});
    if (!shell.waitForFinished() || shell.exitStatus() != QProcess::NormalExit)
        return {-1, {}, shell.errorString().toUtf8()};
    return {shell.exitCode(), shell.readAllStandardOutput(), shell.readAllStandardError()};
}

// The build server would replace its own expressions in the commands of a step before it runs them.
void tst_SpecBuildServer::eachStepIsWhole()
{
    QCOMPARE(m_workflow.value("on"_s).toArray(), (QJsonArray{"push"_s, "pull_request"_s}));
    QStringList commands;
    for (const QJsonObject& step : steps()) {
        QVERIFY(step.contains("run"_s) != step.contains("uses"_s));
        QVERIFY(!step.value("run"_s).toString().contains("${{"_s));
        if (step.contains("run"_s))
            commands.append(step.value("name"_s).toString());
    }
    QCOMPARE(commands, QStringList({"Install scribon-spec"_s, "Check the spec files"_s,
                                    "Write the reports"_s}));
}

// With a program in place of apt-get that keeps its arguments.
void tst_SpecBuildServer::installsThePackages()
{
    const QString aptGet = m_folder->filePath("apt-get"_s);
    QVERIFY(writeFile(aptGet, "#!/bin/sh\necho \"$@\"\n"));
    QVERIFY(QFile::setPermissions(aptGet, QFile::ReadOwner | QFile::ExeOwner));
    QVERIFY(writeFile(m_folder->filePath("packages/scribon-spec_1.deb"_s), ""));
    QVERIFY(writeFile(m_folder->filePath("packages/marvane-desk_1.deb"_s), ""));
    const SpecRun result = runStep("Install scribon-spec"_s, {});
    QVERIFY2(result.status == 0, result.complaints.constData());
    const QString packages = QDir(m_folder->path()).canonicalPath() + "/packages/"_s;
    QCOMPARE(QString::fromUtf8(result.output),
             "update\ninstall --yes --no-install-recommends %1marvane-desk_1.deb "
             "%1scribon-spec_1.deb\n"_s.arg(packages));
}

void tst_SpecBuildServer::goodFilesPass()
{
    QVERIFY(writeFile(m_folder->filePath("specs/cell 4/scrib_x"_s), exampleSpec("scrib_small"_s)));
    const SpecRun result = runStep("Check the spec files"_s, {});
    QVERIFY2(result.status == 0, result.output + result.complaints);
}

void tst_SpecBuildServer::wrongFilesFail()
{
    const SpecRun result = runStep("Check the spec files"_s, {{"SPEC_FOLDER"_s, examples()}});
    QCOMPARE(result.status, 1);
    QVERIFY(result.output.contains("/scrib_broken:6:1: error: Syntax Error! [syntax]\n"));
}

// Findings do not end this step, so that the next ones show them.
void tst_SpecBuildServer::reportsAreWritten()
{
    const SpecRun result = runStep("Write the reports"_s, {{"SPEC_FOLDER"_s, examples()}});
    QVERIFY2(result.status == 0, result.complaints.constData());
    const QByteArray sarif = readFile(m_folder->filePath("spec_files.sarif"_s));
    const QJsonArray runs = QJsonDocument::fromJson(sarif).object().value("runs"_s).toArray();
    QVERIFY(!runs.at(0).toObject().value("results"_s).toArray().isEmpty());
    QVERIFY(readFile(m_folder->filePath("spec_files.html"_s)).startsWith("<!DOCTYPE html>"));
    for (const QJsonObject& step : steps()) {
        const QJsonObject inputs = step.value("with"_s).toObject();
        for (const QString& key : {"sarif_file"_s, "path"_s}) {
            if (inputs.contains(key))
                QVERIFY(QFile::exists(m_folder->filePath(inputs.value(key).toString())));
        }
    }
}

void tst_SpecBuildServer::optionsReachTheCheck()
{
    const QByteArray wrong =
        exampleSpec("scrib_small"_s).replace("@SCAN_LIST", "@MAX_SCANS\nplenty\n@SCAN_LIST");
    QVERIFY(writeFile(m_folder->filePath("specs/scrib_x"_s), wrong));
    QCOMPARE(runStep("Check the spec files"_s, {}).status, 1);
    const SpecRun result = runStep("Check the spec files"_s,
                                   {{"CHECK_OPTIONS"_s, "--fail-on error --warning syntax"_s}});
    QVERIFY2(result.status == 0, result.output + result.complaints);
    QVERIFY(result.output.contains(" warning: Syntax Error! [syntax]\n"));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecBuildServer)
#include "tst_spec_build_server.moc"
