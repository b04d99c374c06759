// A platform of the test's own that this process has just joined, and whose shared memory the test
// can spoil.
#pragma once

#include "desk_process.h"

class LivePlatform {
public:
    bool start(const QByteArray& catalogue);

    // Each waits for the end of the platform.
    bool terminate() { return m_desk.terminate(); }
    bool kill() { return m_desk.kill(); }

    bool overwrite(const char* area, qint64 at, const QByteArray& bytes);
    bool resize(const char* area, qint64 size);
    // The bytes that the area takes, which are fewer than it has.
    qint64 memoryOf(const char* area) const;

private:
    QString pathOf(const char* area) const;

    DeskProcess m_desk;
};

// A number as it lies in shared memory.
template <typename Number>
QByteArray bytesOf(Number number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}
