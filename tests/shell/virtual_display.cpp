#include "virtual_display.h"

#include <QStringList>

namespace {

constexpr int TIMEOUT_MS = 30000;

}  // namespace

VirtualDisplay::~VirtualDisplay()
{
    m_server.terminate();
    m_server.waitForFinished(TIMEOUT_MS);
}

// The server chooses a free number and prints it when it is ready. -noreset: otherwise it resets
// when its last client disconnects, as the tools do again and again, and a program that connects
// meanwhile would hang.
bool VirtualDisplay::start()
{
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1024x768x24"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp"), QStringLiteral("-noreset")});
    while (!m_server.canReadLine() && m_server.waitForReadyRead(TIMEOUT_MS)) {
    }
    m_name = QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed());
    return m_name.size() > 1;
}

QByteArray VirtualDisplay::run(const QStringList& arguments) const
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_name);
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    tool.waitForFinished(TIMEOUT_MS);
    return tool.readAllStandardOutput();
}

QStringList VirtualDisplay::windows() const
{
    QStringList names;
    const QByteArray ids = run({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                QStringLiteral("--name"), QStringLiteral(".")});
    for (const QByteArray& id : ids.split('\n')) {
        if (!id.isEmpty())
            names.append(QString::fromUtf8(
                run({QStringLiteral("getwindowname"), QString::fromLatin1(id)}).trimmed()));
    }
    return names;
}

bool VirtualDisplay::strike(const QString& window, const QString& key) const
{
    const QByteArray id = run({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                               QStringLiteral("--name"), window})
                              .trimmed();
    if (id.isEmpty())
        return false;
    run({QStringLiteral("windowfocus"), QStringLiteral("--sync"), QString::fromLatin1(id),
         QStringLiteral("key"), key});
    return true;
}
