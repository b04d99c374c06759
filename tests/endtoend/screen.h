// A virtual X display with a window manager, and functions for mouse and keyboard input.
#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

class Screen {
public:
    Screen() = default;
    ~Screen();

    // False if the display or its window manager does not start.
    bool start();

    // The value for DISPLAY.
    QString name() const { return m_name; }

    // X button numbers: 1 left, 3 right, 4 and 5 the wheel up and down.
    void click(const QPoint& place, int button = 1, int times = 1) const;
    void moveTo(const QPoint& place) const;
    // Presses or releases the left button where the pointer is.
    void hold() const;
    void release() const;
    // X key names, with modifiers as in "ctrl+z".
    void press(const QString& keys) const;
    void type(const QString& text) const;

private:
    Q_DISABLE_COPY(Screen)

    bool startServer();
    bool startWindowManager();
    QProcessEnvironment environment() const;
    void hand(const QStringList& arguments) const;

    QProcess m_server;
    QProcess m_windowManager;
    QString m_name;
};
