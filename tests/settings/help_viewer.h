// Installs a help collection and, in place of the viewer, a script that records its arguments and
// its input.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

QString helpCollection();
bool installHelpCollection();
void removeHelpCollection();

// The exact commands that the viewer must get for one request.
QByteArray helpCommands();

enum class Obedience { EndsWhenTold, EndsOnlyWhenKilled };

class HelpViewer {
public:
    // Installs bin/assistant in the directory. It writes to its output when its input ends, and
    // keeps running.
    static bool install(const QString& directory, Obedience obedience = Obedience::EndsWhenTold);

    // Kills the viewers that still run.
    ~HelpViewer();

    // The process IDs of all viewers since the directories were emptied, in the order of their
    // starts.
    static QVector<qint64> processes();
    static QByteArray arguments();  // one per line
    static QByteArray input();
    static QString directory();  // directory of the last viewer that was started
    static bool wasTerminated();
    static bool outlivedItsInput();

    // Whether the process exists, also as a zombie.
    static bool isThere(qint64 process);
    static void close(qint64 process);
};

// Sets the environment variables that contain QT5DIR, and removes all others that do. An entry is
// "NAME=value"; the environment has them in this order.
void setViewerVariables(const QVector<QByteArray>& entries);
