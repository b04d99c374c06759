#include "checkrun.h"

#include <QDataStream>
#include <QThread>
#include <map>

#include "commands.h"
#include "progressline.h"
#include "workerpool.h"

namespace {

// So many files for each process pay for its start.
constexpr int FILES_PER_JOB = 16;

// How far a process may be ahead of one that has a large file: their parts are kept in memory.
constexpr int MOST_WAITING = 256;

constexpr int PROGRESS_INTERVAL = 100;  // ms

}  // namespace

CheckRun::CheckRun(const QStringList& files, const CheckOptions& options, const Report& report)
    : m_files(files), m_options(options), m_report(report)
{
}

int CheckRun::usualJobs(int files)
{
    return qBound(1, files / FILES_PER_JOB, QThread::idealThreadCount());
}

// ---- One file -----------------------------------------------------------------------------------

CheckRun::Part CheckRun::check(int number) const
{
    return partOf(number, SpecFile::read(m_files.at(number)));
}

CheckRun::Part CheckRun::partOf(int number, const SpecFile& file) const
{
    FileReport findings = checkFile(file, m_options);
    findings.number = number + 1;
    return {m_report.file(file, findings), countsOf(findings)};
}

CheckRun::Part CheckRun::brokenOff(int number, const QString& death) const
{
    const QString name = m_files.at(number);
    const QString problem = QStringLiteral("the check broke off: its process %1").arg(death);
    complain(name + QStringLiteral(": ") + problem);
    return partOf(number, SpecFile::unreadable(name, problem));
}

// ---- Between processes --------------------------------------------------------------------------

QByteArray CheckRun::packedPart(int number) const
{
    const Part part = check(number);
    QByteArray packed;
    QDataStream stream(&packed, QIODevice::WriteOnly);
    stream << part.bytes << part.counts.name << part.counts.number << part.counts.loads
           << part.counts.isUnreadable << part.counts.errors << part.counts.warnings;
    return packed;
}

CheckRun::Part CheckRun::unpackedPart(const QByteArray& packed) const
{
    Part part;
    QDataStream stream(packed);
    stream >> part.bytes >> part.counts.name >> part.counts.number >> part.counts.loads >>
        part.counts.isUnreadable >> part.counts.errors >> part.counts.warnings;
    return part;
}

// ---- All files ----------------------------------------------------------------------------------

Totals CheckRun::run(int jobs)
{
    ProgressLine progress(m_files.size());
    m_progress = &progress;
    if (!m_report.headHasTotals())
        print(m_report.head({}));
    if (jobs > 1)
        checkInChildren(jobs);
    else
        checkHere();
    progress.erase();
    if (m_report.headHasTotals())
        print(m_report.head(m_totals));
    for (const QByteArray& bytes : m_held)
        print(bytes);
    print(m_report.foot(m_totals));
    m_progress = nullptr;
    return m_totals;
}

void CheckRun::checkHere()
{
    for (int number = 0; number < m_files.size() && hasPrintedAll(); ++number) {
        add(check(number));
        m_progress->update(number + 1);
    }
}

void CheckRun::checkInChildren(int jobs)
{
    WorkerPool workers(qMin(jobs, m_files.size()),
                       [this](int number) { return packedPart(number); });
    std::map<int, Part> waiting;
    int next = 0;
    for (int printed = 0; printed < m_files.size() && hasPrintedAll();) {
        while (next < qMin(m_files.size(), printed + MOST_WAITING) && workers.start(next))
            ++next;
        for (const WorkerPool::Result& result : workers.wait(PROGRESS_INTERVAL))
            waiting[result.task] = result.death.isEmpty() ? unpackedPart(result.answer)
                                                          : brokenOff(result.task, result.death);
        for (auto part = waiting.begin(); part != waiting.end() && part->first == printed;
             part = waiting.erase(part), ++printed)
            add(part->second);
        m_progress->update(printed);
    }
}

void CheckRun::add(const Part& part)
{
    m_totals.add(part.counts);
    if (part.bytes.isEmpty())
        return;
    if (!m_isFirst)
        printPart(m_report.separator());
    m_isFirst = false;
    printPart(part.bytes);
}

void CheckRun::printPart(const QByteArray& bytes)
{
    if (m_report.headHasTotals()) {
        m_held.append(bytes);
        return;
    }
    m_progress->erase();
    print(bytes);
}
