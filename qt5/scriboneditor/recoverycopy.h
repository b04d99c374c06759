// Copies of unsaved documents in the user's state directory. Each has a numbered folder in
// $XDG_STATE_HOME/scriboneditor/recovery, with three files:
//   scrib_x            the document as Save would write it, under the name of its file
//   .belongs_to.json   its file, time, process and host
//   .lock              locked (flock) while that process runs
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>
#include <memory>

class FolderLock;

// The copy of this process's document.
class RecoveryCopy {
public:
    RecoveryCopy();
    // Does not remove the copy.
    ~RecoveryCopy();

    // Replaces the copy atomically; only the user may read it. Returns false, with the system's
    // message in *error, if it cannot be written; the earlier copy is kept then.
    bool write(const QString& document, const QByteArray& text, QString* error);

    // The file of the copy; empty when there is none.
    QString path() const;

    void remove();

    // Keeps the copy on disk for a later start; the next write makes another one.
    void leave();

private:
    Q_DISABLE_COPY(RecoveryCopy)

    bool claimFolder(const QString& document, QString* error);

    QString m_path;
    std::unique_ptr<FolderLock> m_lock;
};

// A copy whose process has ended.
struct AbandonedCopy {
    QString path;
    QString document;  // the file that it was made of
    QDateTime time;
};

// Newest first. Leaves out copies whose process may still run, on this machine or on another one
// with the same home.
QVector<AbandonedCopy> abandonedCopies();

// Removes the copy, if the path is that of an abandoned one.
void removeAbandonedCopy(const QString& path);

// The folder of all copies; empty without a home.
QString recoveryFolder();
