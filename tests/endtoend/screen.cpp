#include "screen.h"

#include <QProcessEnvironment>

namespace {

constexpr int TIMEOUT_MS = 30000;

void end(QProcess* process)
{
    process->terminate();
    process->waitForFinished(TIMEOUT_MS);
}

}  // namespace

Screen::~Screen()
{
    end(&m_windowManager);
    end(&m_server);
}

bool Screen::start()
{
    return startServer() && startWindowManager();
}

// -noreset: xdotool connects and disconnects all the time, and the server must not reset when its
// last client disconnects.
bool Screen::startServer()
{
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1280x900x24"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp"), QStringLiteral("-noreset")});
    while (!m_server.canReadLine() && m_server.waitForReadyRead(TIMEOUT_MS)) {
    }
    m_name = QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed());
    return m_name.size() > 1;
}

// Waits until the window manager is ready. Windows shown before get no frame or no focus.
bool Screen::startWindowManager()
{
    m_windowManager.setProcessEnvironment(environment());
    m_windowManager.start(QStringLiteral("openbox"),
                          {QStringLiteral("--startup"), QStringLiteral("echo ready")});
    QByteArray said;
    while (!said.contains("ready") && m_windowManager.waitForReadyRead(TIMEOUT_MS))
        said += m_windowManager.readAllStandardOutput();
    return said.contains("ready");
}

QProcessEnvironment Screen::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_name);
    return environment;
}

void Screen::hand(const QStringList& arguments) const
{
    QProcess tool;
    tool.setProcessEnvironment(environment());
    tool.start(QStringLiteral("xdotool"), arguments);
    tool.waitForFinished(TIMEOUT_MS);
}

void Screen::click(const QPoint& place, int button, int times) const
{
    hand({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
          QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(times),
          QStringLiteral("--delay"), QStringLiteral("20"), QString::number(button)});
}

void Screen::moveTo(const QPoint& place) const
{
    hand({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

void Screen::hold() const
{
    hand({QStringLiteral("mousedown"), QStringLiteral("1")});
}

void Screen::release() const
{
    hand({QStringLiteral("mouseup"), QStringLiteral("1")});
}

void Screen::press(const QString& keys) const
{
    hand({QStringLiteral("key"), keys});
}

void Screen::type(const QString& text) const
{
    hand({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"), text});
}
