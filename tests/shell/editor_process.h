// The real program as a process, with the probe plugin.
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

    // Sets an environment variable of the program; call it before start().
    void setVariable(const QString& name, const QString& value);
    // Preloads a library into the program; call it before start().
    void preload(const QString& library);
    // Preloads the witness library, which prints calls on standard error.
    void watchCalls();

    bool start(const QStringList& arguments = {});

    // The probe's answer; undefined if the program ends instead.
    QJsonValue ask(const QString& request);

    // Waits for a visible window with this title and returns its properties; an empty object on
    // timeout.
    QJsonObject window(const QString& title);
    // The titles of all windows, sorted.
    QStringList titles();

    // Sends the signal and waits for the end of the program.
    bool endBy(int signal);
    // Waits for the end of the program.
    bool waitForEnd();
    QProcess::ExitStatus endedHow() const;
    int status() const;

    // The lines that the program has written to standard error so far.
    QStringList complaints();

private:
    Q_DISABLE_COPY(EditorProcess)

    QProcess m_process;
    QByteArray m_complaints;
};
