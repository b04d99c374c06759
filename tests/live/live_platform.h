// A desk platform that this process has joined, with functions that change its shared memory.
#pragma once

#include "desk_process.h"

class LivePlatform {
public:
    bool start(const QByteArray& catalogue);

    // Both wait until the platform has ended.
    bool terminate() { return m_desk.terminate(); }
    bool kill() { return m_desk.kill(); }

    bool overwrite(const char* area, qint64 at, const QByteArray& bytes);
    bool resize(const char* area, qint64 size);
    // The memory that the area uses, which is less than its size.
    qint64 memoryOf(const char* area) const;

private:
    QString pathOf(const char* area) const;

    DeskProcess m_desk;
};

// The bytes of a number in shared memory.
template <typename Number>
QByteArray bytesOf(Number number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}
