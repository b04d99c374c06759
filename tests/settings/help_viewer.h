// The help collection and a stand-in for the viewer that shows it: a script that records how it was
// started and what it was told.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

QString helpCollection();
bool installHelpCollection();
void removeHelpCollection();

// What the viewer is to be told for one request, to the letter.
QByteArray helpCommands();

enum class Obedience { EndsWhenTold, EndsOnlyWhenKilled };

class HelpViewer {
public:
    // A viewer is bin/assistant in the directory. It writes to its output when its input ends, and
    // stays.
    static bool install(const QString& directory, Obedience obedience = Obedience::EndsWhenTold);

    // Kills those that are still there.
    ~HelpViewer();

    // Of all viewers since the places were emptied, in the order of their starts.
    static QVector<qint64> processes();
    static QByteArray arguments();  // one a line
    static QByteArray input();
    static QString directory();  // of the last one that was started
    static bool wasTerminated();
    static bool outlivedItsInput();

    // Whether there is a process of this number, also as one that has ended and is not yet waited
    // for.
    static bool isThere(qint64 process);
    static void close(qint64 process);
};

// Sets the environment's variables that name QT5DIR, and no others of that kind. An entry is
// "NAME=value"; their order becomes the environment's.
void setViewerVariables(const QVector<QByteArray>& entries);
