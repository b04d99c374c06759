#include "deskrun.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <csignal>

#include "livecell.h"

namespace {

constexpr int TIMEOUT_MS = 60000;
const auto PROGRAM = QStringLiteral("marvane-desk");

// A process that gets SIGTERM when this one ends in whatever way.
class BoundProcess final : public QProcess {
public:
    BoundProcess() : m_parent(getpid()) {}

protected:
    // In the new process, where only system calls are safe.
    void setupChildProcess() override
    {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != m_parent)
            _exit(1);
    }

private:
    pid_t m_parent;
};

// Beside this program or in PATH; empty if there is none.
QString deskProgram()
{
    const QString beside =
        QStandardPaths::findExecutable(PROGRAM, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? QStandardPaths::findExecutable(PROGRAM) : beside;
}

// No other platform has it, also where containers with the same process ids share their memory.
QString privateName()
{
    return QStringLiteral("spec-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(QRandomGenerator::system()->generate64(), 0, 16);
}

bool waitUntilReady(QProcess* process)
{
    while (!process->canReadLine() && process->waitForReadyRead(TIMEOUT_MS)) {
    }
    return process->readLine() == "ready\n";
}

QString complaintOf(QProcess* process)
{
    if (process->error() == QProcess::FailedToStart)
        return process->errorString();
    process->waitForFinished(TIMEOUT_MS);
    QString complaint = QString::fromLocal8Bit(process->readAllStandardError()).trimmed();
    complaint.remove(PROGRAM + QStringLiteral(": "));
    return complaint.isEmpty() ? QStringLiteral("the desk platform does not start") : complaint;
}

}  // namespace

std::unique_ptr<DeskRun> DeskRun::start(const QString& catalogue, QString* problem)
{
    const QString program = deskProgram();
    if (program.isEmpty()) {
        *problem = QStringLiteral("no program %1 beside this one or in PATH").arg(PROGRAM);
        return nullptr;
    }
    const QString name = privateName();
    qputenv("MARVANE_DESK_NAME", name.toLatin1());
    if (LiveCell::join()) {
        *problem = QStringLiteral("the platform that runs here takes no catalogue; use --live");
        return nullptr;
    }
    auto process = std::make_unique<BoundProcess>();
    process->start(program, {QStringLiteral("--name"), name, QStringLiteral("--"), catalogue});
    if (!waitUntilReady(process.get())) {
        *problem = complaintOf(process.get());
        return nullptr;
    }
    return std::unique_ptr<DeskRun>(new DeskRun(std::move(process)));
}

DeskRun::DeskRun(std::unique_ptr<QProcess> process) : m_process(std::move(process)) {}

DeskRun::~DeskRun()
{
    m_process->terminate();
    m_process->waitForFinished(TIMEOUT_MS);
}
