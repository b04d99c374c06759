// "12 of 2000 files" on a terminal's standard error, for what takes its time.
#pragma once

#include <QElapsedTimer>

class ProgressLine {
public:
    // Shows nothing for a few files, nor if standard error is not a terminal.
    explicit ProgressLine(int files);

    // Erases the line.
    ~ProgressLine();
    Q_DISABLE_COPY(ProgressLine)

    // Shows the number, if it is time for it: half a second after the start, then ten times a
    // second.
    void update(int done);

    // Before something else is printed.
    void erase();

private:
    int m_files;
    bool m_isUsed;
    bool m_isShown = false;
    qint64 m_nextTime;
    QElapsedTimer m_timer;
};
