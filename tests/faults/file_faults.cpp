#include "file_faults.h"

#include <QFile>
#include <algorithm>

FileFaults::FileFaults()
{
    if (m_file.open() && m_file.resize(sizeof(FaultPlan)))
        m_plan = reinterpret_cast<FaultPlan*>(m_file.map(0, sizeof(FaultPlan)));
    if (m_plan != nullptr)
        heal();
}

QString FileFaults::library()
{
    return QStringLiteral(FAULT_LIBRARY);
}

void FileFaults::failAt(uint nth, const FileFault& fault, const QString& prefix)
{
    heal();
    m_plan->call = fault.call;
    m_plan->nth = nth;
    m_plan->error = fault.error;
    m_plan->persists = fault.persists ? 1 : 0;
    setPrefix(prefix);
}

void FileFaults::endAt(uint nth, FileCall call, int signal, const QString& prefix)
{
    failAt(nth, {call, 0, false}, prefix);
    m_plan->signal = signal;
}

void FileFaults::limitSpace(qint64 bytes, const QString& prefix)
{
    heal();
    m_plan->space = bytes;
    setPrefix(prefix);
}

void FileFaults::heal()
{
    *m_plan = FaultPlan{};
    m_plan->space = -1;
}

uint FileFaults::calls(FileCall call) const
{
    return __atomic_load_n(&m_plan->counts[static_cast<size_t>(call)], __ATOMIC_RELAXED);
}

void FileFaults::setPrefix(const QString& prefix)
{
    const QByteArray bytes = QFile::encodeName(prefix).left(MAX_PREFIX);
    std::copy(bytes.begin(), bytes.end(), std::begin(m_plan->prefix));
}
