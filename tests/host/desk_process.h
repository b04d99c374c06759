// Runs marvane-desk for a test.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryFile>

// A desk name that no other test uses.
QString uniqueDeskName();

// The existing shared memory objects of a platform, sorted, without the prefix of its name.
QStringList sharedMemoryOf(const QString& deskName);

// The path of a shared memory object in the file system.
QString sharedMemoryPath(const QString& deskName, const QString& object);

class DeskProcess {
public:
    struct Result {
        int status;  // -1 if it crashed or had to be terminated
        QByteArray output;
        QByteArray complaints;
    };

    // Runs marvane-desk with these arguments and waits for its end.
    static Result run(const QStringList& arguments);

    // Sets MARVANE_DESK_NAME for this process, so that the host library finds this platform.
    DeskProcess();
    // Ends the platform, and removes the objects of a killed one.
    ~DeskProcess();

    const QString& name() const { return name_; }
    qint64 processId() const { return process_.processId(); }

    // Starts with a catalogue file, or with the text of one, and waits until clients can join.
    // False if it does not start.
    bool start(const QString& catalogueFile);
    bool startWith(const QByteArray& catalogue);

    // Starts with an output that nobody can read any more, so that there is nothing to wait for.
    // Makes a FIFO of this name.
    void startUnread(const QString& fifo, const QString& catalogueFile);

    // Each waits for the end of the process. True if it ended by this signal for a kill, otherwise
    // by itself with status 0.
    bool end(int signal);
    bool terminate();
    bool kill();

private:
    Q_DISABLE_COPY(DeskProcess)

    QString name_;
    QProcess process_;
    QTemporaryFile catalogue_;
};
