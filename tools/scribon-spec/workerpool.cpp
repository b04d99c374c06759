#include "workerpool.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

namespace {

constexpr int NO_TASK = -1;

// All of the bytes, or false at the end of the other process.
bool writeAll(int descriptor, const void* data, size_t size)
{
    const char* at = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::send(descriptor, at, size, MSG_NOSIGNAL);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        at += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

bool readAll(int descriptor, void* data, size_t size)
{
    char* at = static_cast<char*>(data);
    while (size > 0) {
        const ssize_t count = ::read(descriptor, at, size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        at += count;
        size -= static_cast<size_t>(count);
    }
    return true;
}

bool writeAnswer(int socket, const QByteArray& answer)
{
    const int size = answer.size();
    return writeAll(socket, &size, sizeof size) &&
           writeAll(socket, answer.constData(), static_cast<size_t>(size));
}

bool readAnswer(int socket, QByteArray* answer)
{
    int size = 0;
    if (!readAll(socket, &size, sizeof size))
        return false;
    answer->resize(size);
    return readAll(socket, answer->data(), static_cast<size_t>(size));
}

int waitFor(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

QString describeDeath(int status)
{
    if (WIFSIGNALED(status)) {
        return QStringLiteral("ended by signal %1 (%2)")
            .arg(WTERMSIG(status))
            .arg(QString::fromLocal8Bit(strsignal(WTERMSIG(status))));
    }
    return QStringLiteral("ended with status %1").arg(WEXITSTATUS(status));
}

}  // namespace

WorkerPool::WorkerPool(int workers, Work work)
    : m_limit(static_cast<size_t>(workers)), m_work(std::move(work))
{
}

WorkerPool::~WorkerPool()
{
    for (const Worker& worker : m_workers)
        end(worker);
}

// A child in the midst of a task would not see that the socket is closed.
void WorkerPool::end(const Worker& worker) const
{
    close(worker.socket);
    kill(worker.process, SIGKILL);
    waitFor(worker.process);
}

bool WorkerPool::start(int task)
{
    if (Worker* const worker = workerFor(task)) {
        worker->task = task;
        return true;
    }
    if (!m_workers.empty())
        return false;
    m_doneHere.push_back({task, m_work(task), {}});
    return true;
}

// The child that has got the task; null if there is none for it. Idle ones that have been killed
// are replaced.
WorkerPool::Worker* WorkerPool::workerFor(int task)
{
    for (Worker* worker = idleWorker(); worker != nullptr; worker = idleWorker()) {
        if (writeAll(worker->socket, &task, sizeof task))
            return worker;
        end(*worker);
        m_workers.erase(m_workers.begin() + (worker - m_workers.data()));
    }
    return nullptr;
}

// A new one if all have a task and there may be more; null if there is none.
WorkerPool::Worker* WorkerPool::idleWorker()
{
    const auto idle = std::find_if(m_workers.begin(), m_workers.end(),
                                   [](const Worker& worker) { return worker.task == NO_TASK; });
    if (idle != m_workers.end())
        return &*idle;
    return m_workers.size() < m_limit ? fork() : nullptr;
}

WorkerPool::Worker* WorkerPool::fork()
{
    std::array<int, 2> sockets{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0)
        return nullptr;
    const pid_t process = ::fork();
    if (process == 0) {
        close(sockets[0]);
        serve(sockets[1]);
    }
    close(sockets[1]);
    if (process < 0) {
        close(sockets[0]);
        return nullptr;
    }
    m_workers.push_back({process, sockets[0], NO_TASK});
    return &m_workers.back();
}

// The child must not hold the sockets of its elder siblings open: they end when their socket is
// closed, also when the parent is killed.
void WorkerPool::serve(int socket) const
{
    for (const Worker& sibling : m_workers)
        close(sibling.socket);
    int task = 0;
    while (readAll(socket, &task, sizeof task) && writeAnswer(socket, m_work(task))) {
    }
    _exit(0);
}

WorkerPool::Result WorkerPool::resultOf(const Worker& worker, bool* died) const
{
    Result result{worker.task, {}, {}};
    *died = !readAnswer(worker.socket, &result.answer);
    if (*died) {
        close(worker.socket);
        result.death = describeDeath(waitFor(worker.process));
    }
    return result;
}

std::vector<WorkerPool::Result> WorkerPool::wait(int milliseconds)
{
    std::vector<Result> results = std::exchange(m_doneHere, {});
    std::vector<pollfd> sockets;
    for (const Worker& worker : m_workers)
        sockets.push_back({worker.task == NO_TASK ? -1 : worker.socket, POLLIN, 0});
    if (!results.empty() || poll(sockets.data(), sockets.size(), milliseconds) <= 0)
        return results;
    for (size_t i = m_workers.size(); i-- > 0;) {
        if (sockets[i].revents == 0)
            continue;
        bool died = false;
        results.push_back(resultOf(m_workers[i], &died));
        m_workers[i].task = NO_TASK;
        if (died)
            m_workers.erase(m_workers.begin() + static_cast<std::ptrdiff_t>(i));
    }
    return results;
}
