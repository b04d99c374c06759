// Protects the document: writes a recovery copy while there are unsaved changes, watches the file
// on disk, and shows notices of both in the status bar. Loading and saving only report to it.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

#include "recoverycopy.h"
#include "statusnotices.h"
#include "watchedfile.h"

class QStatusBar;

class DocumentGuard : public QObject {
    Q_OBJECT

public:
    // Callbacks to the owner of the document.
    struct Document {
        std::function<bool()> hasUnsavedWork;
        std::function<QByteArray()> text;  // as Save would write it now
    };

    // Checks the file whenever the window is activated. Window and status bar must outlive it.
    DocumentGuard(QWidget* window, QStatusBar* statusBar, Document document);

    // A document has been loaded from these bytes. Removes the copy of the previous document,
    // unless its last save failed and the copy is all there is.
    void loaded(const QString& fileName, const QByteArray& bytes);

    // No document is open any more.
    void unloaded();

    // The document has changed. Only starts a timer: the copy is written within five seconds.
    void edited();

    // Before Save truncates the file, and if the file could not be opened for writing.
    void aboutToSave();
    void saveRefused();

    // After Save. Removes the copy if the file, read back, has this text.
    void saved(const QString& fileName, const QByteArray& text);

    // The window has been closed: no copy is written from now on.
    void closed();

    // Writes the copy at once if there is unsaved work, for a process that is about to end.
    void copyUnsavedWork();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dropCopy();
    void writeCopy();
    void tellAbandonedCopies();
    static QString abandonedText(const QVector<AbandonedCopy>& copies);
    void tellFileState();
    QString fileStateText() const;

    Document m_document;
    StatusNotices m_notices;
    RecoveryCopy m_copy;
    WatchedFile m_file;
    QTimer m_copySoon;
    QString m_copiedFile;       // the file that the copy is made for
    bool m_saveFailed = false;  // the file does not hold what the last save wrote
    bool m_closed = false;
};
