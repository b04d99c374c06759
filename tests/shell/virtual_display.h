// A virtual X display without a window manager.
#pragma once

#include <QProcess>
#include <QString>

class VirtualDisplay {
public:
    VirtualDisplay() = default;
    ~VirtualDisplay();

    bool start();

    // The value for DISPLAY.
    QString name() const { return m_name; }

    // The titles of its visible windows.
    QStringList windows() const;

    // Sends a key, given by its X name, to the window with this title.
    bool strike(const QString& window, const QString& key) const;

private:
    Q_DISABLE_COPY(VirtualDisplay)

    QByteArray run(const QStringList& arguments) const;

    QProcess m_server;
    QString m_name;
};
