// emptyPlaces(), which the tests call before they begin.

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QTest>

#include "places.h"

namespace {

QStringList entriesOf(const char* place)
{
    return QDir(QLatin1String(place))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

}  // namespace

class tst_Places : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void filesOfTheTestAreRemoved_data();
    void filesOfTheTestAreRemoved();
    void linksAreRemovedNotFollowed();
    void sessionDirectoriesAreKept();
};

void tst_Places::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_Places::filesOfTheTestAreRemoved_data()
{
    QTest::addColumn<QString>("place");
    QTest::newRow("the spec files") << QStringLiteral("/specs");
    QTest::newRow("the temporary files") << QStringLiteral("/tmp");
    QTest::newRow("the home") << qEnvironmentVariable("HOME");
    QTest::newRow("the small disk") << QStringLiteral("/small-disk");
}

void tst_Places::filesOfTheTestAreRemoved()
{
    QFETCH(QString, place);
    const QString made = place + QStringLiteral("/made here");
    QVERIFY(writeFile(made + QStringLiteral("/a/.hidden/file"), "text"));
    QVERIFY(writeFile(made + QStringLiteral("/runtime/file"), "text"));
    QVERIFY(makePipe(made + QStringLiteral("/pipe")));
    QVERIFY(QFile::link(QStringLiteral("/nowhere"), made + QStringLiteral("/link")));
    emptyPlaces();
    QVERIFY(!QFileInfo::exists(made));
}

void tst_Places::linksAreRemovedNotFollowed()
{
    QVERIFY(writeFile(QStringLiteral("/dev/shm/scribon-places/file"), "text"));
    QVERIFY(QFile::link(QStringLiteral("/dev/shm/scribon-places"), QStringLiteral("/specs/link")));
    emptyPlaces();
    QCOMPARE(entriesOf("/specs").filter(QStringLiteral("link")), QStringList());
    QCOMPARE(readFile(QStringLiteral("/dev/shm/scribon-places/file")), QByteArray("text"));
    QVERIFY(QDir(QStringLiteral("/dev/shm/scribon-places")).removeRecursively());
}

void tst_Places::sessionDirectoriesAreKept()
{
    emptyPlaces();
    QVERIFY(QFileInfo(qEnvironmentVariable("XDG_RUNTIME_DIR")).isDir());
    QVERIFY(QFileInfo(qEnvironmentVariable("HOME")).isDir());
    QVERIFY(QFileInfo(QStringLiteral("/tmp/.X11-unix")).isDir());
}

QTEST_GUILESS_MAIN(tst_Places)
#include "tst_places.moc"
