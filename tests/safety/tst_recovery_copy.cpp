// RecoveryCopy: where copies are, their permissions, and which of them are reported at a later
// start.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <QTest>

#include "places.h"
#include "recoverycopy.h"

namespace {

const auto STATE = QStringLiteral("/tmp/state");
const auto FOLDER = STATE + QStringLiteral("/scriboneditor/recovery");
const auto DOCUMENT = QStringLiteral("/specs/scrib_engine");
const QByteArray TEXT = "@SCRIBON\nengine\n";

unsigned modeOf(const QString& path)
{
    struct stat status {};
    stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 0777U;
}

QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

QStringList abandonedPaths()
{
    QStringList paths;
    for (const AbandonedCopy& copy : abandonedCopies())
        paths.append(copy.path);
    return paths;
}

// Makes a copy of a process that ended without removing it.
QString abandon(const QString& document)
{
    RecoveryCopy copy;
    QString error;
    copy.write(document, TEXT, &error);
    return copy.path();
}

pid_t endedProcess()
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    return child;
}

}  // namespace

class tst_RecoveryCopy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(inPrivateNamespace()); }
    void init();

    void place_data();
    void place();
    void withoutAHomeDirectoryNothingIsWritten();
    void copyHasTheGivenText();
    void onlyItsUserMayRead();
    void metadataNamesTheDocument();
    void newTextReplacesTheOld();
    void failedWriteKeepsTheOldText();
    void folderThatCannotBeCreated();
    void nameOfTheCopy_data();
    void nameOfTheCopy();
    void removalLeavesNoFiles();
    void abandonedCopyIsKeptNextToANewOne();

    void eachRunningEditorHasItsOwnCopy();
    void copyOfARunningEditorIsNotAbandoned();
    void abandonedCopiesAreNewestFirst();
    void withoutLocksTheProcessIdDecides_data();
    void withoutLocksTheProcessIdDecides();
    void damagedFoldersAreIgnored_data();
    void damagedFoldersAreIgnored();
    void onlyAbandonedCopiesAreRemoved();
};

void tst_RecoveryCopy::init()
{
    emptyPlaces();
    qputenv("XDG_STATE_HOME", STATE.toLatin1());
    qputenv("HOME", "/tmp/home");
}

void tst_RecoveryCopy::place_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QString>("folder");
    const auto inHome = QStringLiteral("/tmp/home/.local/state/scriboneditor/recovery");
    QTest::newRow("XDG_STATE_HOME") << QByteArray("/tmp/state") << FOLDER;
    QTest::newRow("none: the home") << QByteArray() << inHome;
    QTest::newRow("a relative one counts as none") << QByteArray("state") << inHome;
}

void tst_RecoveryCopy::place()
{
    QFETCH(QByteArray, state);
    QVERIFY(QDir().mkpath(QStringLiteral("/tmp/home")));
    qputenv("XDG_STATE_HOME", state);
    QTEST(recoveryFolder(), "folder");
    QTEST(QFileInfo(QFileInfo(abandon(DOCUMENT)).path()).path(), "folder");
}

void tst_RecoveryCopy::withoutAHomeDirectoryNothingIsWritten()
{
    qunsetenv("XDG_STATE_HOME");
    for (const char* const home : {"", "/tmp/no such home"}) {
        qputenv("HOME", home);
        RecoveryCopy copy;
        QString error;
        QVERIFY(!copy.write(DOCUMENT, TEXT, &error));
        QCOMPARE(error, QStringLiteral("No such file or directory"));
        QVERIFY(copy.path().isEmpty());
        QVERIFY(recoveryFolder().isEmpty());
        QVERIFY(abandonedCopies().isEmpty());
    }
}

void tst_RecoveryCopy::copyHasTheGivenText()
{
    RecoveryCopy copy;
    QVERIFY(copy.path().isEmpty());
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    QCOMPARE(copy.path(), FOLDER + QStringLiteral("/1/scrib_engine"));
    QCOMPARE(readFile(copy.path()), TEXT);
    QVERIFY(error.isEmpty());
}

void tst_RecoveryCopy::onlyItsUserMayRead()
{
    const mode_t before = umask(0);
    RecoveryCopy copy;
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    umask(before);
    QCOMPARE(modeOf(copy.path()), 0600U);
    QCOMPARE(modeOf(FOLDER + QStringLiteral("/1")), 0700U);
}

void tst_RecoveryCopy::metadataNamesTheDocument()
{
    RecoveryCopy copy;
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    const QJsonObject facts =
        QJsonDocument::fromJson(readFile(FOLDER + QStringLiteral("/1/.belongs_to.json"))).object();
    QCOMPARE(facts[QLatin1String("file")].toString(), DOCUMENT);
    QCOMPARE(facts[QLatin1String("process")].toInt(), int(QCoreApplication::applicationPid()));
    QCOMPARE(facts[QLatin1String("host")].toString(), QSysInfo::machineHostName());
    const auto time = QDateTime::fromString(facts[QLatin1String("time")].toString(), Qt::ISODate);
    QVERIFY(time.isValid());
    QVERIFY(qAbs(time.secsTo(QDateTime::currentDateTime())) < 60);
}

// A process that reads the old copy can read all of it, and no other file is left in the folder.
void tst_RecoveryCopy::newTextReplacesTheOld()
{
    RecoveryCopy copy;
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    QFile old(copy.path());
    QVERIFY(old.open(QIODevice::ReadOnly));
    QVERIFY(copy.write(DOCUMENT, "new", &error));
    QCOMPARE(readFile(copy.path()), QByteArray("new"));
    QCOMPARE(old.readAll(), TEXT);
    QCOMPARE(namesIn(FOLDER + QStringLiteral("/1")),
             (QStringList{QStringLiteral(".belongs_to.json"), QStringLiteral(".lock"),
                          QStringLiteral("scrib_engine")}));
}

void tst_RecoveryCopy::failedWriteKeepsTheOldText()
{
    qputenv("XDG_STATE_HOME", "/small-disk");
    RecoveryCopy copy;
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    QVERIFY(!copy.write(DOCUMENT, QByteArray(100000, 'x'), &error));
    QCOMPARE(error, QStringLiteral("No space left on device"));
    QCOMPARE(readFile(copy.path()), TEXT);
    QVERIFY(copy.write(DOCUMENT, "shorter", &error));
    QCOMPARE(readFile(copy.path()), QByteArray("shorter"));
}

void tst_RecoveryCopy::folderThatCannotBeCreated()
{
    QVERIFY(writeFile(STATE, "no directory"));
    RecoveryCopy copy;
    QString error;
    QVERIFY(!copy.write(DOCUMENT, TEXT, &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(QFile::remove(STATE));
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
}

void tst_RecoveryCopy::nameOfTheCopy_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("name");
    QTest::newRow("that of the document") << DOCUMENT << QStringLiteral("scrib_engine");
    QTest::newRow("with a blank") << QStringLiteral("/specs/scrib engine")
                                  << QStringLiteral("scrib engine");
    QTest::newRow("hidden, like the files beside it")
        << QStringLiteral("/specs/.lock") << QStringLiteral("scrib.lock");
    QTest::newRow("as long as a name can be")
        << QStringLiteral("/specs/") + QString(255, QLatin1Char('n'))
        << QString(100, QLatin1Char('n'));
}

void tst_RecoveryCopy::nameOfTheCopy()
{
    QFETCH(QString, document);
    const QString path = abandon(document);
    QTEST(QFileInfo(path).fileName(), "name");
    QCOMPARE(readFile(path), TEXT);
    QCOMPARE(abandonedPaths(), QStringList{path});
}

void tst_RecoveryCopy::removalLeavesNoFiles()
{
    RecoveryCopy copy;
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    copy.remove();
    QVERIFY(copy.path().isEmpty());
    QVERIFY(namesIn(FOLDER).isEmpty());
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    QCOMPARE(copy.path(), FOLDER + QStringLiteral("/1/scrib_engine"));
}

void tst_RecoveryCopy::abandonedCopyIsKeptNextToANewOne()
{
    RecoveryCopy copy;
    QString error;
    QVERIFY(copy.write(DOCUMENT, TEXT, &error));
    const QString left = copy.path();
    copy.leave();
    QVERIFY(copy.path().isEmpty());
    QCOMPARE(abandonedPaths(), QStringList{left});
    QVERIFY(copy.write(DOCUMENT, "next", &error));
    QCOMPARE(copy.path(), FOLDER + QStringLiteral("/2/scrib_engine"));
    QCOMPARE(readFile(left), TEXT);
}

void tst_RecoveryCopy::eachRunningEditorHasItsOwnCopy()
{
    RecoveryCopy one;
    RecoveryCopy other;
    QString error;
    QVERIFY(one.write(DOCUMENT, "one", &error));
    QVERIFY(other.write(DOCUMENT, "other", &error));
    QCOMPARE(readFile(one.path()), QByteArray("one"));
    QCOMPARE(readFile(other.path()), QByteArray("other"));
    one.remove();
    QCOMPARE(readFile(other.path()), QByteArray("other"));
}

void tst_RecoveryCopy::copyOfARunningEditorIsNotAbandoned()
{
    RecoveryCopy living;
    QString error;
    QVERIFY(living.write(DOCUMENT, TEXT, &error));
    QVERIFY(abandonedCopies().isEmpty());
    const QString path = abandon(QStringLiteral("/specs/scrib_other"));
    QCOMPARE(abandonedPaths(), QStringList{path});
    QCOMPARE(abandonedCopies().first().document, QStringLiteral("/specs/scrib_other"));
}

void tst_RecoveryCopy::abandonedCopiesAreNewestFirst()
{
    QStringList paths;
    for (const char* const name : {"/specs/a", "/specs/b", "/specs/c"})
        paths.append(abandon(QString::fromLatin1(name)));
    const QDateTime now = QDateTime::currentDateTime();
    const QVector<int> ages{20, 10, 30};
    for (int i = 0; i < ages.size(); ++i) {
        QFile file(paths.at(i));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(now.addSecs(-ages.at(i)), QFileDevice::FileModificationTime));
    }
    QCOMPARE(abandonedPaths(), (QStringList{paths.at(1), paths.at(0), paths.at(2)}));
}

void tst_RecoveryCopy::withoutLocksTheProcessIdDecides_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("process");
    QTest::addColumn<bool>("abandoned");
    const QString here = QSysInfo::machineHostName();
    QTest::newRow("a process of this machine that lives") << here << int(getpid()) << false;
    QTest::newRow("one that has ended") << here << int(endedProcess()) << true;
    QTest::newRow("one of another machine")
        << QStringLiteral("another-cell") << int(endedProcess()) << false;
    QTest::newRow("no number") << here << 0 << false;
}

// The file system has no locks, or the lock file was removed.
void tst_RecoveryCopy::withoutLocksTheProcessIdDecides()
{
    QFETCH(QString, host);
    QFETCH(int, process);
    QFETCH(bool, abandoned);
    const QString path = abandon(DOCUMENT);
    const QString folder = QFileInfo(path).path();
    QVERIFY(QFile::remove(folder + QStringLiteral("/.lock")));
    const QJsonObject facts{{QStringLiteral("copy"), QStringLiteral("scrib_engine")},
                            {QStringLiteral("host"), host},
                            {QStringLiteral("process"), process}};
    QVERIFY(writeFile(folder + QStringLiteral("/.belongs_to.json"), QJsonDocument(facts).toJson()));
    QCOMPARE(!abandonedCopies().isEmpty(), abandoned);
}

void tst_RecoveryCopy::damagedFoldersAreIgnored_data()
{
    QTest::addColumn<QByteArray>("facts");
    QTest::newRow("no JSON") << QByteArray("\xff{[");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no object") << QByteArray("[1,2]");
    QTest::newRow("a name that leads elsewhere") << QByteArray(R"({"copy":"../../../../specs/x"})");
    QTest::newRow("no copy of that name") << QByteArray(R"({"copy":"scrib_other"})");
    QTest::newRow("a name of another kind") << QByteArray(R"({"copy":{"a":1}})");
}

void tst_RecoveryCopy::damagedFoldersAreIgnored()
{
    QFETCH(QByteArray, facts);
    QVERIFY(writeFile(QStringLiteral("/specs/x"), TEXT));
    const QString path = abandon(DOCUMENT);
    QVERIFY(writeFile(QFileInfo(path).path() + QStringLiteral("/.belongs_to.json"), facts));
    QVERIFY(abandonedCopies().isEmpty());
    removeAbandonedCopy(path);
    QCOMPARE(readFile(path), TEXT);
    QCOMPARE(readFile(QStringLiteral("/specs/x")), TEXT);
}

void tst_RecoveryCopy::onlyAbandonedCopiesAreRemoved()
{
    RecoveryCopy living;
    QString error;
    QVERIFY(living.write(DOCUMENT, TEXT, &error));
    const QString abandoned = abandon(DOCUMENT);
    QVERIFY(writeFile(QStringLiteral("/specs/x"), TEXT));
    for (const QString& path : {living.path(), QStringLiteral("/specs/x"), QString()})
        removeAbandonedCopy(path);
    QCOMPARE(readFile(living.path()), TEXT);
    QCOMPARE(readFile(QStringLiteral("/specs/x")), TEXT);
    QCOMPARE(abandonedPaths(), QStringList{abandoned});
    removeAbandonedCopy(abandoned);
    QVERIFY(abandonedCopies().isEmpty());
    QCOMPARE(namesIn(FOLDER), QStringList{QStringLiteral("1")});
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_RecoveryCopy)
#include "tst_recovery_copy.moc"
