#include "memoryfile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <QFile>

MemoryFile::MemoryFile(Reader reader)
    : m_descriptor(memfd_create("spec", reader == ForThisProcess ? MFD_CLOEXEC : 0))
{
}

MemoryFile::~MemoryFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool MemoryFile::write(const QByteArray& bytes)
{
    QFile file;
    return m_descriptor >= 0 && file.open(m_descriptor, QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush();
}

QString MemoryFile::path() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
}
