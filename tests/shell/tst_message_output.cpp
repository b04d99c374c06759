// The output of the Qt message handler on standard error.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryFile>
#include <QTest>
#include <csignal>

#include "messageoutput.h"

namespace {

struct Outcome {
    QByteArray output;
    int status;
};

// Sends the message in a separate process, since that may end.
Outcome send(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    QTemporaryFile output;
    if (!output.open())
        return {"no file to write to", -1};
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noDump{0, 0};
        setrlimit(RLIMIT_CORE, &noDump);
        signal(SIGABRT, SIG_DFL);
        dup2(output.handle(), STDERR_FILENO);
        myMessageOutput(type, context, text);
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    output.seek(0);
    return {output.readAll(), status};
}

const QMessageLogContext PLACE("cell.cpp", 42, "void f()", "default");
const QMessageLogContext NO_PLACE;

}  // namespace

class tst_MessageOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formats_data();
    void formats();
    void fatalMessageAborts();
    void textIsInTheLocalEncoding();
    void messageHandlerWritesQDebugToStandardError();
};

void tst_MessageOutput::formats_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("withPlace");
    QTest::addColumn<QByteArray>("expected");

    const auto row = [](const char* name, int type, bool withPlace, const char* expected) {
        QTest::newRow(name) << type << withPlace << QByteArray(expected);
    };
    row("debug is the text alone, with a blank behind it", QtDebugMsg, true, "Debug: a %s text \n");
    row("a warning is dropped", QtWarningMsg, true, "");
    row("critical has file, line and function", QtCriticalMsg, true,
        "Critical: a %s text (cell.cpp:42, void f())\n");
    row("info has file, line and function", QtInfoMsg, true,
        "Info: a %s text (cell.cpp:42, void f())\n");
    row("critical without a place", QtCriticalMsg, false, "Critical: a %s text (:0, )\n");
    row("info without a place", QtInfoMsg, false, "Info: a %s text (:0, )\n");
    row("debug without a place", QtDebugMsg, false, "Debug: a %s text \n");
    row("a type that does not exist does nothing", 17, true, "");
}

void tst_MessageOutput::formats()
{
    QFETCH(int, type);
    QFETCH(bool, withPlace);
    const Outcome outcome = send(static_cast<QtMsgType>(type), withPlace ? PLACE : NO_PLACE,
                                 QStringLiteral("a %s text"));
    QTEST(outcome.output, "expected");
    QCOMPARE(outcome.status, 0);
}

void tst_MessageOutput::fatalMessageAborts()
{
    const Outcome outcome = send(QtFatalMsg, PLACE, QStringLiteral("the end"));
    QCOMPARE(outcome.output, QByteArray("Fatal: the end (cell.cpp:42, void f())\n"));
    QVERIFY(WIFSIGNALED(outcome.status));
    QCOMPARE(WTERMSIG(outcome.status), SIGABRT);
}

void tst_MessageOutput::textIsInTheLocalEncoding()
{
    const QString degrees = QStringLiteral("20 \u00b0C");
    const Outcome outcome = send(QtDebugMsg, NO_PLACE, degrees);
    QCOMPARE(outcome.output, "Debug: " + degrees.toLocal8Bit() + " \n");
}

void tst_MessageOutput::messageHandlerWritesQDebugToStandardError()
{
    QTemporaryFile output;
    QVERIFY(output.open());
    const pid_t child = fork();
    if (child == 0) {
        dup2(output.handle(), STDERR_FILENO);
        qInstallMessageHandler(myMessageOutput);
        qDebug("one %d", 1);
        qWarning("two");
        qCritical("three");
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    output.seek(0);
    QCOMPARE(output.readLine(), QByteArray("Debug: one 1 \n"));
    QVERIFY(output.readLine().startsWith("Critical: three ("));
    QVERIFY(output.atEnd());
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_MessageOutput)
#include "tst_message_output.moc"
