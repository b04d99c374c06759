// A desk platform of a test's own, as a process.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryFile>

// A name that no other test's platform has.
QString uniqueDeskName();

// The shared memory objects that there are of a platform, by their sorted names behind the
// platform's.
QStringList sharedMemoryOf(const QString& deskName);

// The path of one of them in the file system.
QString sharedMemoryPath(const QString& deskName, const QString& object);

class DeskProcess {
public:
    struct Result {
        int status;  // -1 when it crashed, or had to be told to end
        QByteArray output;
        QByteArray complaints;
    };

    // Runs marvane-desk with these arguments to its end.
    static Result run(const QStringList& arguments);

    // Sets MARVANE_DESK_NAME for this process, so that the host library finds this platform.
    DeskProcess();
    // Ends the platform, and removes what a killed one left.
    ~DeskProcess();

    const QString& name() const { return name_; }

    // Starts with a catalogue file, or with the text of one, and waits until clients can join.
    bool start(const QString& catalogueFile);
    bool startWith(const QByteArray& catalogue);

    // Each waits for the end of the process. True when it ended as told, for a kill by the signal,
    // for any other by itself with status 0.
    bool end(int signal);
    bool terminate();
    bool kill();

private:
    Q_DISABLE_COPY(DeskProcess)

    QString name_;
    QProcess process_;
    QTemporaryFile catalogue_;
};
