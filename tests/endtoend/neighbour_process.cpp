#include "neighbour_process.h"

#include <QProcessEnvironment>

#include "places.h"

namespace {

constexpr int TIMEOUT_MS = 20000;
constexpr QPoint IN_THE_FIELD(20, 20);
const auto COPIED = QStringLiteral("/tmp/copied");

}  // namespace

NeighbourProcess::NeighbourProcess(const Screen& screen) : m_screen(screen)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), screen.name());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
    m_process.setProcessEnvironment(environment);
}

NeighbourProcess::~NeighbourProcess()
{
    m_process.kill();
    m_process.waitForFinished(TIMEOUT_MS);
}

bool NeighbourProcess::start(const QStringList& arguments)
{
    m_process.start(QStringLiteral(SCRIBON_NEIGHBOUR), arguments);
    return m_process.waitForStarted(TIMEOUT_MS);
}

// Skips the words before it.
bool NeighbourProcess::says(const QByteArray& word)
{
    while (m_process.canReadLine() || m_process.waitForReadyRead(TIMEOUT_MS)) {
        if (m_process.canReadLine() && m_process.readLine().trimmed() == word)
            return true;
    }
    return false;
}

bool NeighbourProcess::copy(const QString& text)
{
    return writeFile(COPIED, text.toUtf8()) && start({QStringLiteral("copy"), COPIED}) &&
           says("ready");
}

QString NeighbourProcess::paste()
{
    if (!start({QStringLiteral("paste")}) || !m_process.waitForFinished(TIMEOUT_MS))
        return {};
    return QString::fromUtf8(m_process.readAllStandardOutput());
}

// A drag begins when the pointer moves.
bool NeighbourProcess::dragFromField(const QStringList& arguments, const QPoint& place)
{
    if (!start(arguments) || !says("ready"))
        return false;
    m_screen.moveTo(IN_THE_FIELD);
    m_screen.hold();
    m_screen.moveTo(place - QPoint(10, 10));
    m_screen.moveTo(place);
    return true;
}

bool NeighbourProcess::drag(const QStringList& urls, const QPoint& place)
{
    return dragFromField(QStringList{QStringLiteral("drag")} + urls, place);
}

bool NeighbourProcess::dragText(const QString& text, const QPoint& place)
{
    return dragFromField({QStringLiteral("drag-text"), text}, place);
}

bool NeighbourProcess::isTaken()
{
    return says("copy");
}

bool NeighbourProcess::drop()
{
    m_screen.release();
    return says("ended");
}
