// Tells when the bytes of the document's file are no longer those that were last loaded or saved.
#pragma once

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

class WatchedFile : public QObject {
    Q_OBJECT

public:
    enum class State { AsKnown, Changed, Gone };

    WatchedFile();

    // Watches this file alone from now on; these are the bytes that it should hold. Does not look.
    void watch(const QString& fileName, const QByteArray& bytes);
    void stop();

    // What the last look has found. AsKnown without a file.
    State state() const { return m_state; }
    QString fileName() const { return m_fileName; }

    // Reads the file. For file systems that send no events, and for right after a save.
    void look();

Q_SIGNALS:
    void stateChanged();

private:
    State findState() const;
    void watchPaths();

    QString m_fileName;
    QByteArray m_digest;
    State m_state = State::AsKnown;
    QFileSystemWatcher m_watcher;
    QTimer m_lookSoon;
};
