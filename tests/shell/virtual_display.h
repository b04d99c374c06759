// An X display of a test's own, without a window manager.
#pragma once

#include <QProcess>
#include <QString>

class VirtualDisplay {
public:
    VirtualDisplay() = default;
    ~VirtualDisplay();

    bool start();

    // Its name for DISPLAY.
    QString name() const { return m_name; }

    // The names of the visible windows that are on it.
    QStringList windows() const;

    // Strikes a key in the window of the name, by the key's X name.
    bool strike(const QString& window, const QString& key) const;

private:
    Q_DISABLE_COPY(VirtualDisplay)

    QByteArray run(const QStringList& arguments) const;

    QProcess m_server;
    QString m_name;
};
