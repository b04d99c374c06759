#include "git_repository.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "places.h"

namespace {

// Run from a hook of git, the tests would find the repository of that hook.
QProcessEnvironment environmentWithoutGit()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : environment.keys()) {
        if (name.startsWith("GIT_"_s))
            environment.remove(name);
    }
    return environment;
}

}  // namespace

bool GitRepository::isGitInstalled()
{
    return !QStandardPaths::findExecutable("git"_s).isEmpty();
}

GitRepository::GitRepository() : m_environment(environmentWithoutGit())
{
    m_environment.insert("HOME"_s, m_folder.path());
    m_environment.insert("TMPDIR"_s, m_temporaryFiles.path());
    m_environment.insert("GIT_CONFIG_NOSYSTEM"_s, "1"_s);
    m_environment.insert("GIT_CONFIG_GLOBAL"_s, "/dev/null"_s);
    m_environment.insert("PATH"_s,
                         QFileInfo(specProgram()).path() + ":"_s + m_environment.value("PATH"_s));
    git({"init"_s, "--quiet"_s});
    git({"config"_s, "user.name"_s, "tester"_s});
    git({"config"_s, "user.email"_s, "tester@example.org"_s});
}

bool GitRepository::write(const QString& name, const QByteArray& text) const
{
    return writeFile(filePath(name), text);
}

SpecRun GitRepository::run(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(path());
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString().toUtf8()};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QByteArray GitRepository::git(const QStringList& arguments) const
{
    const SpecRun result = run("git"_s, arguments);
    if (result.status != 0)
        qFatal("git: %s", result.complaints.constData());
    return result.output;
}

QStringList GitRepository::temporaryFiles() const
{
    return QDir(m_temporaryFiles.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}
