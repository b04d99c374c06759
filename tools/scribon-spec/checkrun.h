// Checks many files and prints the report, in the order of the files.
#pragma once

#include <QStringList>

#include "check.h"
#include "report.h"

class CheckRun {
public:
    // All must outlive this.
    CheckRun(const QStringList& files, const CheckOptions& options, const Report& report);

    // With this many processes; 1 is this process alone. Stops when standard output cannot be
    // written.
    Totals run(int jobs);

    // The number of processes for this many files, if the user gives none.
    static int usualJobs(int files);

private:
    struct Part {
        QByteArray bytes;
        FileCounts counts;
    };

    Part check(int number) const;
    Part partOf(int number, const SpecFile& file) const;
    Part brokenOff(int number, const QString& death) const;
    QByteArray packedPart(int number) const;
    Part unpackedPart(const QByteArray& packed) const;

    void checkHere();
    void checkInChildren(int jobs);
    void add(const Part& part);
    void printPart(const QByteArray& bytes);

    const QStringList& m_files;
    const CheckOptions& m_options;
    const Report& m_report;
    class ProgressLine* m_progress = nullptr;
    Totals m_totals;
    QByteArrayList m_held;  // parts that stand behind the head, which needs the totals
    bool m_isFirst = true;
};
