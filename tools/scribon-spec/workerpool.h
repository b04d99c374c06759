// Child processes for work that keeps its state in globals: each child does one task at a time.
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

class WorkerPool {
public:
    // What a task gives. It runs in a child; nothing else of the child's memory comes back.
    using Work = std::function<QByteArray(int task)>;

    struct Result {
        int task;
        QByteArray answer;
        QString death;  // how the child ended in the midst of the task; empty if it did not
    };

    // Children are forked when there are tasks for them, at most this many at a time.
    WorkerPool(int workers, Work work);

    // Ends the children.
    ~WorkerPool();
    Q_DISABLE_COPY(WorkerPool)

    // Starts a task. False if all children have one. Where no child can be forked, the task is done
    // here and now.
    bool start(int task);

    // Waits until a task has ended, at most this long, and returns all that have.
    std::vector<Result> wait(int milliseconds);

private:
    struct Worker {
        pid_t process;
        int socket;
        int task;  // NO_TASK: idle
    };

    Worker* workerFor(int task);
    Worker* idleWorker();
    Worker* fork();
    [[noreturn]] void serve(int socket) const;
    Result resultOf(const Worker& worker, bool* died) const;
    void end(const Worker& worker) const;

    size_t m_limit;
    Work m_work;
    std::vector<Worker> m_workers;
    std::vector<Result> m_doneHere;
};
