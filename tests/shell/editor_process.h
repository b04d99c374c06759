// The real program as a process, with the probe in it.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>
#include <QString>
#include <QStringList>

class EditorProcess {
public:
    EditorProcess();
    // Kills the program if it still runs.
    ~EditorProcess();

    // Sets a variable of the environment that the program is started in.
    void setVariable(const QString& name, const QString& value);
    // Has a library loaded before the program's own.
    void preload(const QString& library);
    // Has the calls told that the witness sees.
    void watchCalls();

    bool start(const QStringList& arguments = {});

    // What the probe answers; undefined when the program ends instead.
    QJsonValue ask(const QString& request);

    // Asks until there is a window that is visible and has the title, and gives its facts; an empty
    // object when that takes too long.
    QJsonObject window(const QString& title);
    // The titles of all windows, sorted.
    QStringList titles();

    // Sends the signal and waits for the end.
    bool endBy(int signal);
    // Waits for the end by itself.
    bool waitForEnd();
    QProcess::ExitStatus endedHow() const;
    int status() const;

    // What the program has written, up to now.
    QStringList complaints();

private:
    Q_DISABLE_COPY(EditorProcess)

    QProcess m_process;
    QByteArray m_complaints;
};
