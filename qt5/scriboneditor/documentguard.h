// Keeps the user's work from being lost without a word: a recovery copy while there are unsaved
// changes, a look at the file on disk, and notices of both in the status bar. Saving and loading
// report to it; it decides nothing about them.
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
    // What the guard asks about the document, whenever it wants to know.
    struct Document {
        std::function<bool()> hasUnsavedWork;
        std::function<QByteArray()> text;  // as Save would write it now
    };

    // The window's activation is an occasion to look at the file. Both must outlive the guard.
    DocumentGuard(QWidget* window, QStatusBar* statusBar, Document document);

    // Another document is open, read from these bytes of its file. The copy of the one before goes,
    // unless that is the only place that holds it.
    void loaded(const QString& fileName, const QByteArray& bytes);

    // No document is open any more.
    void unloaded();

    // Something changed. Cheap: the copy is written within five seconds, when the program is idle.
    void edited();

    // Save is about to empty the file; and the file could not be opened for it.
    void aboutToSave();
    void saveRefused();

    // Save has written this text, as far as it knows. The copy goes if the file really holds it.
    void saved(const QString& fileName, const QByteArray& text);

    // The window closes and the user keeps nothing: no copy is written from now on.
    void closed();

    // Writes the copy at once if there is unsaved work. For a process that is about to end.
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
