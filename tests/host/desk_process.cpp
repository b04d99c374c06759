#include "desk_process.h"

#include <signal.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace {

constexpr int TIMEOUT_MS = 30000;

QString program()
{
    return QStringLiteral(MARVANE_DESK_PROGRAM);
}

QString objectPrefix(const QString& deskName)
{
    return QStringLiteral("marvane.%1.").arg(deskName);
}

}  // namespace

QString uniqueDeskName()
{
    static int number = 0;
    return QStringLiteral("test-%1-%2").arg(QCoreApplication::applicationPid()).arg(++number);
}

QStringList sharedMemoryOf(const QString& deskName)
{
    const QString prefix = objectPrefix(deskName);
    QStringList objects =
        QDir(QStringLiteral("/dev/shm")).entryList({prefix + QLatin1Char('*')}, QDir::Files);
    for (QString& object : objects)
        object.remove(0, prefix.size());
    objects.sort();
    return objects;
}

QString sharedMemoryPath(const QString& deskName, const QString& object)
{
    return QStringLiteral("/dev/shm/") + objectPrefix(deskName) + object;
}

DeskProcess::Result DeskProcess::run(const QStringList& arguments)
{
    QProcess process;
    process.start(program(), arguments);
    if (!process.waitForFinished(TIMEOUT_MS)) {
        process.terminate();
        process.waitForFinished(TIMEOUT_MS);
        return {-1, {}, {}};
    }
    if (process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

DeskProcess::DeskProcess() : name_(uniqueDeskName())
{
    qputenv("MARVANE_DESK_NAME", name_.toLatin1());
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

DeskProcess::~DeskProcess()
{
    if (process_.state() != QProcess::NotRunning)
        terminate();
    for (const QString& object : sharedMemoryOf(name_))
        QFile::remove(sharedMemoryPath(name_, object));
}

bool DeskProcess::start(const QString& catalogueFile)
{
    process_.start(program(), {QStringLiteral("--name"), name_, catalogueFile});
    while (!process_.canReadLine() && process_.waitForReadyRead(TIMEOUT_MS)) {
    }
    return process_.readLine() == "ready\n";
}

bool DeskProcess::startWith(const QByteArray& catalogue)
{
    return catalogue_.open() && catalogue_.resize(0) && catalogue_.seek(0) &&
           catalogue_.write(catalogue) == catalogue.size() && catalogue_.flush() &&
           start(catalogue_.fileName());
}

void DeskProcess::startUnread(const QString& fifo, const QString& catalogueFile)
{
    // The shell is the FIFO's reader until it has opened it for writing.
    const auto script =
        QStringLiteral("mkfifo \"$1\" && exec 3<>\"$1\" >\"$1\" 3<&- && shift && exec \"$@\"");
    process_.start(QStringLiteral("/bin/sh"),
                   {QStringLiteral("-c"), script, QStringLiteral("sh"), fifo, program(),
                    QStringLiteral("--name"), name_, catalogueFile});
}

bool DeskProcess::end(int signal)
{
    ::kill(static_cast<pid_t>(process_.processId()), signal);
    if (!process_.waitForFinished(TIMEOUT_MS))
        return false;
    const bool hasCrashed = process_.exitStatus() == QProcess::CrashExit;
    return signal == SIGKILL ? hasCrashed : !hasCrashed && process_.exitCode() == 0;
}

bool DeskProcess::terminate()
{
    return end(SIGTERM);
}

bool DeskProcess::kill()
{
    return end(SIGKILL);
}
