#include "help_viewer.h"

#include <signal.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include "places.h"

namespace {

const auto RECORDS = QStringLiteral("/tmp/viewer/");

// The shell redirects standard input of a background command from /dev/null unless it is given
// explicitly.
constexpr auto SCRIPT = R"(#!/bin/bash
mkdir -p /tmp/viewer
printf '%s\n' "$@" >>/tmp/viewer/arguments
printf '%s' "${0%/bin/assistant}" >/tmp/viewer/directory
trap TERMINATION TERM
echo $$ >>/tmp/viewer/processes
exec 3<&0
cat <&3 >>/tmp/viewer/input &
wait $!
echo 'the input has ended'
echo 'the input has ended' >&2
echo yes >/tmp/viewer/outlived
while true; do
    tail -f /dev/null &
    wait $!
done
)";

// Empty if there is no record of the name.
QByteArray record(const QString& name)
{
    const QString path = RECORDS + name;
    return QFileInfo::exists(path) ? readFile(path) : QByteArray();
}

QByteArray termination(Obedience obedience)
{
    return obedience == Obedience::EndsOnlyWhenKilled
               ? QByteArrayLiteral("''")
               : QByteArrayLiteral("'echo yes >/tmp/viewer/terminated; kill %1; exit 0'");
}

}  // namespace

QString helpCollection()
{
    return QStringLiteral("/usr/local/share/doc/marvane/qt/scriboneditor/scriboneditor.qhc");
}

bool installHelpCollection()
{
    return writeFile(helpCollection(), "not read by anyone here");
}

void removeHelpCollection()
{
    QFile::remove(helpCollection());
}

QByteArray helpCommands()
{
    return "hide bookmarks;hide index;hide search;expandToc -1;"
           "setSource qthelp://marvane.scriboneditor.1.0/doc/scriboneditorHelp.htm\n";
}

bool HelpViewer::install(const QString& directory, Obedience obedience)
{
    const QString path = directory + QStringLiteral("/bin/assistant");
    return writeFile(path, QByteArray(SCRIPT).replace("TERMINATION", termination(obedience))) &&
           QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
}

HelpViewer::~HelpViewer()
{
    for (const qint64 process : processes())
        ::kill(static_cast<pid_t>(process), SIGKILL);
}

QVector<qint64> HelpViewer::processes()
{
    QVector<qint64> numbers;
    for (const QByteArray& line : record(QStringLiteral("processes")).split('\n')) {
        if (!line.isEmpty())
            numbers.append(line.toLongLong());
    }
    return numbers;
}

QByteArray HelpViewer::arguments()
{
    return record(QStringLiteral("arguments"));
}

QByteArray HelpViewer::input()
{
    return record(QStringLiteral("input"));
}

QString HelpViewer::directory()
{
    return QString::fromLocal8Bit(record(QStringLiteral("directory")));
}

bool HelpViewer::wasTerminated()
{
    return QFileInfo::exists(RECORDS + QStringLiteral("terminated"));
}

bool HelpViewer::outlivedItsInput()
{
    return QFileInfo::exists(RECORDS + QStringLiteral("outlived"));
}

bool HelpViewer::isThere(qint64 process)
{
    return ::kill(static_cast<pid_t>(process), 0) == 0;
}

void HelpViewer::close(qint64 process)
{
    ::kill(static_cast<pid_t>(process), SIGTERM);
}

void setViewerVariables(const QVector<QByteArray>& entries)
{
    for (const QString& entry : QProcess::systemEnvironment()) {
        if (entry.contains(QLatin1String("QT5DIR"), Qt::CaseInsensitive))
            qunsetenv(entry.section(QLatin1Char('='), 0, 0).toLocal8Bit().constData());
    }
    for (const QByteArray& entry : entries) {
        const int sign = entry.indexOf('=');
        qputenv(entry.left(sign).constData(), entry.mid(sign + 1));
    }
}
