#include "program_on_terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "spec_program.h"

namespace {

void redirect(int stream, int descriptor)
{
    if (descriptor == CLOSED)
        close(stream);
    else if (descriptor != UNCHANGED)
        dup2(descriptor, stream);
}

}  // namespace

Terminal::Terminal() : m_end(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    if (m_end < 0 || grantpt(m_end) != 0 || unlockpt(m_end) != 0)
        qFatal("no pseudo-terminal");
    m_programsEnd = open(ptsname(m_end), O_RDWR | O_NOCTTY | O_CLOEXEC);
}

Terminal::~Terminal()
{
    close(m_programsEnd);
    close(m_end);
}

QByteArray Terminal::text()
{
    std::array<char, 4096> buffer{};
    ssize_t size = 0;
    while ((size = read(m_end, buffer.data(), buffer.size())) > 0)
        m_text.append(buffer.data(), static_cast<int>(size));
    return QByteArray(m_text).replace("\r\n", "\n");
}

void SpecProcess::start(const QStringList& arguments)
{
    QProcess::start(specProgram(), arguments);
}

int SpecProcess::status()
{
    if (!waitForFinished() || exitStatus() != QProcess::NormalExit)
        return -1;
    return exitCode();
}

void SpecProcess::setupChildProcess()
{
    redirect(STDOUT_FILENO, m_output);
    redirect(STDERR_FILENO, m_complaints);
}
