// Work in child processes: each task gives its answer, also where children die.

#include <unistd.h>

#include <QMap>
#include <QSet>
#include <QTest>
#include <csignal>

#include "places.h"
#include "spec_program.h"
#include "workerpool.h"

namespace {

constexpr int TASKS = 40;
constexpr int PATIENCE = 10000;  // ms

QByteArray square(int task)
{
    return QByteArray::number(task * task);
}

// Dies in the midst of some tasks.
QByteArray squareOrDeath(int task)
{
    if (task == 3)
        raise(SIGKILL);
    if (task == 20)
        _exit(7);
    return square(task);
}

QMap<int, WorkerPool::Result> doAll(WorkerPool* pool)
{
    QMap<int, WorkerPool::Result> results;
    for (int next = 0; results.size() < TASKS;) {
        while (next < TASKS && pool->start(next))
            ++next;
        const auto ended = pool->wait(PATIENCE);
        if (ended.empty())
            break;
        for (const WorkerPool::Result& result : ended)
            results[result.task] = result;
    }
    return results;
}

}  // namespace

class tst_SpecWorkerPool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void allTasksAreDone_data();
    void allTasksAreDone();
    void largeAnswers();
    void childrenWorkAtTheSameTime();
    void deathsAreTold();
    void killedIdleChildrenAreReplaced();
    void childrenEndWithThePool();
};

void tst_SpecWorkerPool::allTasksAreDone_data()
{
    QTest::addColumn<int>("workers");
    for (const int workers : {1, 2, 7, 2 * TASKS})
        QTest::addRow("%d", workers) << workers;
}

void tst_SpecWorkerPool::allTasksAreDone()
{
    QFETCH(int, workers);
    WorkerPool pool(workers, square);
    const auto results = doAll(&pool);
    QCOMPARE(results.size(), TASKS);
    for (int task = 0; task < TASKS; ++task) {
        QCOMPARE(results[task].answer, square(task));
        QCOMPARE(results[task].death, QString());
    }
}

void tst_SpecWorkerPool::largeAnswers()
{
    constexpr int SIZE = 5000000;
    WorkerPool pool(2,
                    [](int task) { return QByteArray(SIZE, static_cast<char>('a' + task % 20)); });
    const auto results = doAll(&pool);
    QCOMPARE(results.size(), TASKS);
    for (int task = 0; task < TASKS; ++task)
        QVERIFY(results[task].answer == QByteArray(SIZE, static_cast<char>('a' + task % 20)));
}

void tst_SpecWorkerPool::childrenWorkAtTheSameTime()
{
    WorkerPool pool(2, [](int) { return QByteArray::number(getpid()); });
    QVERIFY(pool.start(0));
    QVERIFY(pool.start(1));
    QVERIFY(!pool.start(2));
    QSet<QByteArray> processes{QByteArray::number(getpid())};
    for (size_t ended = 0; ended < 2;) {
        for (const WorkerPool::Result& result : pool.wait(PATIENCE)) {
            processes.insert(result.answer);
            ++ended;
        }
    }
    QCOMPARE(processes.size(), 3);
}

void tst_SpecWorkerPool::deathsAreTold()
{
    WorkerPool pool(2, squareOrDeath);
    const auto results = doAll(&pool);
    QCOMPARE(results.size(), TASKS);
    QCOMPARE(results[3].death, "ended by signal 9 (Killed)"_s);
    QCOMPARE(results[20].death, "ended with status 7"_s);
    for (const int task : {0, 2, 4, 19, 21, TASKS - 1})
        QCOMPARE(results[task].answer, square(task));
}

void tst_SpecWorkerPool::killedIdleChildrenAreReplaced()
{
    WorkerPool pool(1, [](int) { return QByteArray::number(getpid()); });
    QVERIFY(pool.start(0));
    const pid_t first = pool.wait(PATIENCE).at(0).answer.toInt();
    QCOMPARE(kill(first, SIGKILL), 0);
    // Dead, but not waited for: its socket is closed.
    QTRY_VERIFY(readFile("/proc/%1/stat"_s.arg(first)).contains(") Z"));
    QVERIFY(pool.start(1));
    const WorkerPool::Result second = pool.wait(PATIENCE).at(0);
    QCOMPARE(second.death, QString());
    QVERIFY(second.answer.toInt() != first);
}

void tst_SpecWorkerPool::childrenEndWithThePool()
{
    pid_t child = 0;
    {
        WorkerPool pool(1, [](int) { return QByteArray::number(getpid()); });
        QVERIFY(pool.start(0));
        child = pool.wait(PATIENCE).at(0).answer.toInt();
        QCOMPARE(kill(child, 0), 0);
    }
    QCOMPARE(kill(child, 0), -1);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecWorkerPool)
#include "tst_spec_worker_pool.moc"
