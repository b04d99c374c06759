// scribon-spec with streams that a pipe is no stand-in for: a terminal, a full disk, nothing at
// all.
#pragma once

#include <QProcess>

// The program's end of a pseudo-terminal is given to the processes that the test starts.
class Terminal {
public:
    Terminal();
    ~Terminal();
    Q_DISABLE_COPY(Terminal)

    int programsEnd() const { return m_programsEnd; }

    // All that has been written to it so far, with plain line ends.
    QByteArray text();

private:
    int m_end;
    int m_programsEnd;
    QByteArray m_text;
};

// A descriptor for a stream of the program; it stays the caller's. CLOSED closes the stream.
constexpr int UNCHANGED = -1;
constexpr int CLOSED = -2;

class SpecProcess : public QProcess {
    Q_OBJECT

public:
    void setOutput(int descriptor) { m_output = descriptor; }
    void setComplaints(int descriptor) { m_complaints = descriptor; }

    void start(const QStringList& arguments);

    // The exit status; -1 if the program has crashed or not ended in time.
    int status();

protected:
    void setupChildProcess() override;

private:
    int m_output = UNCHANGED;
    int m_complaints = UNCHANGED;
};
