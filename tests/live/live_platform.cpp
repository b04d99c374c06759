#include "live_platform.h"

#include <marvane_headers.h>
#include <sys/stat.h>

#include <QFile>

bool LivePlatform::start(const QByteArray& catalogue)
{
    return m_desk.startWith(catalogue) && marvane_init_fn(1) == 0;
}

bool LivePlatform::overwrite(const char* area, qint64 at, const QByteArray& bytes)
{
    QFile file(pathOf(area));
    return file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(bytes) == bytes.size() &&
           file.flush();
}

bool LivePlatform::resize(const char* area, qint64 size)
{
    return QFile::resize(pathOf(area), size);
}

qint64 LivePlatform::memoryOf(const char* area) const
{
    constexpr qint64 BLOCK_SIZE = 512;
    struct stat status {};
    return stat(QFile::encodeName(pathOf(area)).constData(), &status) == 0
               ? status.st_blocks * BLOCK_SIZE
               : -1;
}

QString LivePlatform::pathOf(const char* area) const
{
    return sharedMemoryPath(m_desk.name(), QString::fromLatin1(area));
}
