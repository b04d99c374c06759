#include "editor_process.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>
#include <csignal>

#include "preload.h"

namespace {

constexpr int TIMEOUT_MS = 30000;

}  // namespace

EditorProcess::EditorProcess()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(SCRIBON_PROBE_PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("probe"));
    m_process.setProcessEnvironment(environment);
}

EditorProcess::~EditorProcess()
{
    m_process.kill();
    m_process.waitForFinished(TIMEOUT_MS);
}

void EditorProcess::setVariable(const QString& name, const QString& value)
{
    QProcessEnvironment environment = m_process.processEnvironment();
    environment.insert(name, value);
    m_process.setProcessEnvironment(environment);
}

void EditorProcess::preload(const QString& library)
{
    QProcessEnvironment environment = m_process.processEnvironment();
    addPreloaded(&environment, library);
    m_process.setProcessEnvironment(environment);
}

void EditorProcess::watchCalls()
{
    preload(QStringLiteral(SCRIBON_START_WITNESS));
}

bool EditorProcess::start(const QStringList& arguments)
{
    m_process.start(QStringLiteral(SCRIBON_EDITOR_PROGRAM), arguments);
    return m_process.waitForStarted(TIMEOUT_MS);
}

QJsonValue EditorProcess::ask(const QString& request)
{
    m_process.write(request.toUtf8() + '\n');
    while (!m_process.canReadLine() && m_process.waitForReadyRead(TIMEOUT_MS)) {
    }
    const QByteArray line = m_process.readLine();
    const QJsonObject reply = QJsonDocument::fromJson(line).object();
    return reply.value(QLatin1String("answer"));
}

QJsonObject EditorProcess::window(const QString& title)
{
    const QDeadlineTimer deadline(TIMEOUT_MS);
    while (!deadline.hasExpired()) {
        const QJsonValue state = ask(QStringLiteral("state"));
        if (state.isUndefined())
            break;
        for (const QJsonValue window : state[QLatin1String("windows")].toArray()) {
            if (window[QLatin1String("title")] == title &&
                window[QLatin1String("visible")].toBool())
                return window.toObject();
        }
    }
    return {};
}

QStringList EditorProcess::titles()
{
    QStringList titles;
    const QJsonValue state = ask(QStringLiteral("state"));
    for (const QJsonValue window : state[QLatin1String("windows")].toArray())
        titles.append(window[QLatin1String("title")].toString());
    titles.sort();
    return titles;
}

bool EditorProcess::endBy(int signal)
{
    return ::kill(static_cast<pid_t>(m_process.processId()), signal) == 0 && waitForEnd();
}

bool EditorProcess::waitForEnd()
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(TIMEOUT_MS);
}

QProcess::ExitStatus EditorProcess::endedHow() const
{
    return m_process.exitStatus();
}

int EditorProcess::status() const
{
    return m_process.exitCode();
}

QStringList EditorProcess::complaints()
{
    m_complaints += m_process.readAllStandardError();
    return QString::fromLocal8Bit(m_complaints).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
