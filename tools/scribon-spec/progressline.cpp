#include "progressline.h"

#include <unistd.h>

#include <cstdio>

namespace {

constexpr int FEW_FILES = 3;
constexpr qint64 FIRST_TIME = 500;  // ms
constexpr qint64 INTERVAL = 100;
constexpr char ERASE_LINE[] = "\r\x1b[K";

}  // namespace

ProgressLine::ProgressLine(int files)
    : m_files(files),
      m_isUsed(files > FEW_FILES && isatty(STDERR_FILENO) != 0),
      m_nextTime(FIRST_TIME)
{
    m_timer.start();
}

ProgressLine::~ProgressLine()
{
    erase();
}

void ProgressLine::update(int done)
{
    if (!m_isUsed || m_timer.elapsed() < m_nextTime)
        return;
    std::fprintf(stderr, "%s%d of %d files", ERASE_LINE, done, m_files);
    std::fflush(stderr);
    m_isShown = true;
    m_nextTime = m_timer.elapsed() + INTERVAL;
}

void ProgressLine::erase()
{
    if (!m_isShown)
        return;
    std::fputs(ERASE_LINE, stderr);
    std::fflush(stderr);
    m_isShown = false;
}
