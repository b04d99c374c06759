// Has the files of another program fail, by a library that is preloaded into it.
#pragma once

#include <QString>
#include <QTemporaryFile>

#include "fault_plan.h"

struct FileFault {
    FileCall call;
    int error;  // an errno, or 0 for a transfer of half of the bytes
    bool persists;
};

class FileFaults {
public:
    FileFaults();

    bool isUsable() const { return m_plan != nullptr; }

    // A program obeys that has the library preloaded, and the file's name in PLAN_VARIABLE.
    static QString library();
    QString planFile() const { return m_file.fileName(); }

    // From now on the nth call on files whose paths begin so fails. Counts anew.
    void failAt(uint nth, const FileFault& fault, const QString& prefix);
    // The nth call on files whose paths begin so ends the program by the signal. Counts anew.
    void endAt(uint nth, FileCall call, int signal, const QString& prefix);
    // From now on files whose paths begin so take no more bytes than these in all.
    void limitSpace(qint64 bytes, const QString& prefix);
    void heal();

    // Calls since failAt.
    uint calls(FileCall call) const;

private:
    Q_DISABLE_COPY(FileFaults)

    void setPrefix(const QString& prefix);

    QTemporaryFile m_file;
    FaultPlan* m_plan = nullptr;
};
