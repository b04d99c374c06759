// Copies of unsaved documents, kept below the user's state directory until the work is on disk or
// given up:
//
//   $XDG_STATE_HOME/scriboneditor/recovery/1/scrib_x            the document, as Save would write
//   it
//                                           /.belongs_to.json   its file, its process and its host
//                                           /.lock              locked as long as that process
//                                           lives
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
    // Leaves a copy that is there where it is.
    ~RecoveryCopy();

    // Replaces the copy, atomically; readable by its user alone. False with the system's text in
    // *error when it could not be written; an earlier copy is then still there.
    bool write(const QString& document, const QByteArray& text, QString* error);

    // The file of the copy; empty when there is none.
    QString path() const;

    void remove();

    // The copy stays for a later start, and the next write makes another.
    void leave();

private:
    Q_DISABLE_COPY(RecoveryCopy)

    bool claimFolder(const QString& document, QString* error);

    QString m_path;
    std::unique_ptr<FolderLock> m_lock;
};

// A copy whose process lives no more.
struct AbandonedCopy {
    QString path;
    QString document;  // the file that it was made of
    QDateTime time;
};

// Newest first. Copies that may still have a living process, on this machine or another one that
// shares the home, are left out.
QVector<AbandonedCopy> abandonedCopies();

// Removes the copy, if the path is that of an abandoned one.
void removeAbandonedCopy(const QString& path);

// The folder of all copies; empty without a home.
QString recoveryFolder();
