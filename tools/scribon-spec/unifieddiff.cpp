#include "unifieddiff.h"

#include <QFile>
#include <QProcess>
#include <cerrno>
#include <cstring>

#include "memoryfile.h"

namespace {

constexpr int DIFF_TROUBLE = 2;

UnifiedDiff failure(const QString& problem)
{
    return {{}, QStringLiteral("no difference can be shown: ") + problem};
}

// What diff prints must not depend on the user's language.
QProcessEnvironment environment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    return environment;
}

UnifiedDiff runDiff(const QStringList& arguments)
{
    QProcess diff;
    diff.setProcessEnvironment(environment());
    diff.start(QStringLiteral("diff"), arguments);
    if (!diff.waitForStarted(-1))
        return failure(QStringLiteral("the program diff cannot be run"));
    diff.waitForFinished(-1);
    if (diff.exitStatus() != QProcess::NormalExit || diff.exitCode() >= DIFF_TROUBLE)
        return failure(QString::fromLocal8Bit(diff.readAllStandardError()).trimmed());
    return {diff.readAllStandardOutput(), {}};
}

}  // namespace

UnifiedDiff unifiedDiff(const QString& name, const QByteArray& before, const QByteArray& after)
{
    MemoryFile beforeFile(MemoryFile::ForChildrenToo);
    MemoryFile afterFile(MemoryFile::ForChildrenToo);
    if (!beforeFile.write(before) || !afterFile.write(after))
        return failure(QString::fromLocal8Bit(std::strerror(errno)));
    const QString label = QStringLiteral("--label=") + name;
    return runDiff({QStringLiteral("--unified"), QStringLiteral("--text"), label,
                    label + QStringLiteral("\tformatted"), beforeFile.path(), afterFile.path()});
}
