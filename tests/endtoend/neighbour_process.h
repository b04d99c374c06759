// The other program on the display, as a process. Ends with the object.
#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

#include "screen.h"

class NeighbourProcess {
public:
    explicit NeighbourProcess(const Screen& screen);
    ~NeighbourProcess();

    // Puts a text on the clipboard, for as long as the object lives. False if that fails.
    bool copy(const QString& text);

    // The text on the clipboard.
    QString paste();

    // Drags the addresses, or a text, to this place and holds them there. False if that fails.
    bool drag(const QStringList& urls, const QPoint& place);
    bool dragText(const QString& text, const QPoint& place);

    // Waits until the program below the pointer takes the drag.
    bool isTaken();

    // Drops what is dragged and waits until the drag has ended.
    bool drop();

private:
    Q_DISABLE_COPY(NeighbourProcess)

    bool start(const QStringList& arguments);
    bool says(const QByteArray& word);
    bool dragFromField(const QStringList& arguments, const QPoint& place);

    const Screen& m_screen;
    QProcess m_process;
};
