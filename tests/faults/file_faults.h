// Makes file calls of another program fail, by a preloaded library.
#pragma once

#include <QString>
#include <QTemporaryFile>

#include "fault_plan.h"

struct FileFault {
    FileCall call;
    int error;  // errno, or 0 to transfer half of the bytes
    bool persists;
};

class FileFaults {
public:
    FileFaults();

    bool isUsable() const { return m_plan != nullptr; }

    // The library to preload. The program also needs the file's name in PLAN_VARIABLE.
    static QString library();
    QString planFile() const { return m_file.fileName(); }

    // The nth call on files whose paths begin with prefix fails. Resets the counts.
    void failAt(uint nth, const FileFault& fault, const QString& prefix);
    // The nth call on files whose paths begin with prefix ends the program by the signal. Resets
    // the counts.
    void endAt(uint nth, FileCall call, int signal, const QString& prefix);
    // Files whose paths begin with prefix cannot use more space than this.
    void limitSpace(qint64 bytes, const QString& prefix);
    void heal();

    // Number of calls since failAt().
    uint calls(FileCall call) const;

private:
    Q_DISABLE_COPY(FileFaults)

    void setPrefix(const QString& prefix);

    QTemporaryFile m_file;
    FaultPlan* m_plan = nullptr;
};
