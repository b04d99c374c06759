// WatchedFile: compares the file on disk with the bytes that the program knows.

#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include "places.h"
#include "watchedfile.h"

namespace {

using State = WatchedFile::State;

const auto NAME = QStringLiteral("/specs/scrib_engine");
const auto ASIDE = QStringLiteral("/specs/aside");
const QByteArray KNOWN = "@SCRIBON\nengine\n";
const QByteArray OTHER = "@SCRIBON\nother\n";

}  // namespace

Q_DECLARE_METATYPE(WatchedFile::State)

class tst_WatchedFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(inPrivateNamespace()); }
    void init();

    void changesByOtherPrograms_data();
    void changesByOtherPrograms();
    void rewritingTheSameBytesIsNoChange();
    void restoringTheOldBytesEndsTheChange();
    void replacedFileIsStillWatched();
    void removedFileMayBeRestored();
    void checksTheFileOnRequest();
    void watchesOneFile();
    void emitsNothingAfterStop();

private:
    WatchedFile m_file;
};

void tst_WatchedFile::init()
{
    m_file.stop();
    emptyPlaces();
    QVERIFY(writeFile(NAME, KNOWN));
    m_file.watch(NAME, KNOWN);
    QCOMPARE(m_file.state(), State::AsKnown);
}

void tst_WatchedFile::changesByOtherPrograms_data()
{
    QTest::addColumn<QString>("deed");
    QTest::addColumn<State>("state");
    QTest::newRow("write") << QStringLiteral("write") << State::Changed;
    QTest::newRow("make shorter") << QStringLiteral("truncate") << State::Changed;
    QTest::newRow("append") << QStringLiteral("append") << State::Changed;
    QTest::newRow("make longer than there is memory") << QStringLiteral("extend") << State::Changed;
    QTest::newRow("put another in its place") << QStringLiteral("replace") << State::Changed;
    QTest::newRow("remove") << QStringLiteral("remove") << State::Gone;
    QTest::newRow("rename") << QStringLiteral("rename") << State::Gone;
    QTest::newRow("put a pipe in its place") << QStringLiteral("pipe") << State::Changed;
    QTest::newRow("put a directory in its place") << QStringLiteral("directory") << State::Changed;
}

void tst_WatchedFile::changesByOtherPrograms()
{
    QFETCH(QString, deed);
    QFETCH(State, state);
    const QSignalSpy spy(&m_file, &WatchedFile::stateChanged);
    if (deed == QLatin1String("write"))
        QVERIFY(writeFile(NAME, OTHER));
    if (deed == QLatin1String("truncate"))
        QVERIFY(QFile::resize(NAME, 3));
    if (deed == QLatin1String("extend"))
        QVERIFY(QFile::resize(NAME, qint64(1) << 43));
    if (deed == QLatin1String("append"))
        QVERIFY(writeFile(NAME, KNOWN + OTHER));
    if (deed == QLatin1String("rename"))
        QVERIFY(QFile::rename(NAME, ASIDE));
    if (deed == QLatin1String("replace"))
        QVERIFY(writeFile(ASIDE, OTHER) && ::rename("/specs/aside", "/specs/scrib_engine") == 0);
    if (deed == QLatin1String("remove"))
        QVERIFY(QFile::remove(NAME));
    if (deed == QLatin1String("pipe"))
        QVERIFY(QFile::remove(NAME) && makePipe(NAME));
    if (deed == QLatin1String("directory"))
        QVERIFY(QFile::remove(NAME) && QDir().mkdir(NAME));
    QTRY_COMPARE(m_file.state(), state);
    QCOMPARE(spy.count(), 1);
}

void tst_WatchedFile::rewritingTheSameBytesIsNoChange()
{
    const QSignalSpy spy(&m_file, &WatchedFile::stateChanged);
    QVERIFY(writeFile(NAME, KNOWN));
    m_file.look();
    QCOMPARE(m_file.state(), State::AsKnown);
    QCOMPARE(spy.count(), 0);
}

void tst_WatchedFile::restoringTheOldBytesEndsTheChange()
{
    QVERIFY(writeFile(NAME, OTHER));
    QTRY_COMPARE(m_file.state(), State::Changed);
    QVERIFY(writeFile(NAME, KNOWN));
    QTRY_COMPARE(m_file.state(), State::AsKnown);
}

void tst_WatchedFile::replacedFileIsStillWatched()
{
    QVERIFY(writeFile(ASIDE, KNOWN));
    QCOMPARE(::rename("/specs/aside", "/specs/scrib_engine"), 0);
    QVERIFY(writeFile(ASIDE, "an event to wait for"));
    m_file.look();
    QCOMPARE(m_file.state(), State::AsKnown);
    QVERIFY(writeFile(NAME, OTHER));
    QTRY_COMPARE(m_file.state(), State::Changed);
}

void tst_WatchedFile::removedFileMayBeRestored()
{
    QVERIFY(QFile::remove(NAME));
    QTRY_COMPARE(m_file.state(), State::Gone);
    QVERIFY(writeFile(NAME, KNOWN));
    QTRY_COMPARE(m_file.state(), State::AsKnown);
}

// For network file systems without change events: the result is there without the event loop.
void tst_WatchedFile::checksTheFileOnRequest()
{
    QVERIFY(writeFile(NAME, OTHER));
    QCOMPARE(m_file.state(), State::AsKnown);
    m_file.look();
    QCOMPARE(m_file.state(), State::Changed);
}

void tst_WatchedFile::watchesOneFile()
{
    QVERIFY(writeFile(NAME, OTHER));
    QTRY_COMPARE(m_file.state(), State::Changed);
    QVERIFY(writeFile(ASIDE, KNOWN));
    m_file.watch(ASIDE, KNOWN);
    QCOMPARE(m_file.state(), State::AsKnown);
    QCOMPARE(m_file.fileName(), ASIDE);
    m_file.look();
    QCOMPARE(m_file.state(), State::AsKnown);
}

void tst_WatchedFile::emitsNothingAfterStop()
{
    m_file.stop();
    const QSignalSpy spy(&m_file, &WatchedFile::stateChanged);
    QVERIFY(QFile::remove(NAME));
    m_file.look();
    QCOMPARE(m_file.state(), State::AsKnown);
    QVERIFY(m_file.fileName().isEmpty());
    QCOMPARE(spy.count(), 0);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_WatchedFile)
#include "tst_watched_file.moc"
