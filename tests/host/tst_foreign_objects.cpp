// The host library and marvane-desk with a FIFO, a symbolic link or another user's object in place
// of a shared memory object.

#include <marvane_headers.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>
#include <algorithm>
#include <memory>

#include "desk_process.h"
#include "preload.h"

namespace {

constexpr char CATALOGUE[] = R"({
  "units": { "speed": ["RPM"] },
  "areas": { "GU_REAL_MEM": { "real": [ { "label": "eng_speed" } ] } },
  "keywords": [ { "name": "N", "kind": "channel" } ]
})";

constexpr char USER[] = "1000";
constexpr char OTHER_USER[] = "1001";
constexpr char ROOT[] = "0";

bool isFound(const char* label)
{
    SHARED_MEMORY handle;
    return find_variable(label, &handle) == 0;
}

bool makeSocket(const QByteArray& path)
{
    struct sockaddr_un address {};
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool isMade =
        bind(socket, reinterpret_cast<const struct sockaddr*>(&address), sizeof address) == 0;
    close(socket);
    return isMade;
}

// Replaces the object at the path by something of this kind. False if that fails.
bool putInPlace(const QByteArray& kind, const QString& object)
{
    const QByteArray path = object.toLocal8Bit();
    const QByteArray before = path + ".before";
    if (QFile::exists(object) && !QFile::rename(object, QString::fromLocal8Bit(before)))
        return false;
    if (kind == "a pipe")
        return mkfifo(path.constData(), 0600) == 0;
    if (kind == "a folder")
        return mkdir(path.constData(), 0700) == 0;
    if (kind == "a link to the object")
        return symlink(before.constData(), path.constData()) == 0;
    return makeSocket(path);
}

// Sets these environment variables, which a platform that is started next inherits.
void takeOver(const QProcessEnvironment& environment)
{
    for (const char* const variable : {"LD_PRELOAD", "LD_LIBRARY_PATH", "ASAN_OPTIONS"}) {
        const QString value = environment.value(QLatin1String(variable));
        if (value.isEmpty())
            qunsetenv(variable);
        else
            qputenv(variable, value.toLocal8Bit());
    }
}

void addKinds()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QByteArray>("kind");
    for (const char* const object : {"directory", "SYS_ATTR_MEM", "GU_REAL_MEM", "KEYWORD_MEM"}) {
        for (const char* const kind : {"a pipe", "a folder", "a link to the object", "a socket"})
            QTest::addRow("%s as %s", kind, object) << QByteArray(object) << QByteArray(kind);
    }
}

void addOwners()
{
    QTest::addColumn<QByteArray>("user");
    QTest::addColumn<QByteArray>("owner");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("the user's own") << QByteArray(USER) << QByteArray(USER) << true;
    QTest::newRow("root's, for a user") << QByteArray(USER) << QByteArray(ROOT) << true;
    QTest::newRow("root's own") << QByteArray(ROOT) << QByteArray(ROOT) << true;
    QTest::newRow("another user's") << QByteArray(USER) << QByteArray(OTHER_USER) << false;
    QTest::newRow("a user's, for root") << QByteArray(ROOT) << QByteArray(OTHER_USER) << false;
}

}  // namespace

class TestForeignObjects : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void libraryOpensOnlyRegularSharedMemoryObjects_data() { addKinds(); }
    void libraryOpensOnlyRegularSharedMemoryObjects();
    void libraryTakesDirectoriesOf_data() { addOwners(); }
    void libraryTakesDirectoriesOf();
    void libraryTakesAreasOf_data() { addOwners(); }
    void libraryTakesAreasOf();

    void deskStartsInPlaceOf_data();
    void deskStartsInPlaceOf();
    void deskRefuses_data();
    void deskRefuses();
    void deskTakesDirectoriesOf_data() { addOwners(); }
    void deskTakesDirectoriesOf();

private:
    QString pathOf(const QByteArray& object) const
    {
        return sharedMemoryPath(m_desk->name(), QString::fromLatin1(object));
    }
    void setOwnerOf(const QByteArray& object);
    bool startDesk();
    DeskProcess::Result runDesk() const;

    const QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    std::unique_ptr<DeskProcess> m_desk;
};

void TestForeignObjects::init()
{
    m_desk = std::make_unique<DeskProcess>();
}

void TestForeignObjects::cleanup()
{
    for (const char* const variable : {"TEST_OBJECT", "TEST_OWNER", "TEST_USER"})
        qunsetenv(variable);
    takeOver(m_environment);
    const QDir memory(QStringLiteral("/dev/shm"));
    const QStringList ours{QStringLiteral("marvane.%1.*").arg(m_desk->name())};
    for (const QString& folder : memory.entryList(ours, QDir::Dirs))
        memory.rmdir(folder);
    for (const QString& object : memory.entryList(ours, QDir::Files | QDir::System))
        QFile::remove(memory.filePath(object));
    m_desk.reset();
}

// ---- The host library --------------------------------------------------------------------------

void TestForeignObjects::libraryOpensOnlyRegularSharedMemoryObjects()
{
    QFETCH(QByteArray, object);
    QFETCH(QByteArray, kind);
    QVERIFY(m_desk->startWith(CATALOGUE));
    QVERIFY(putInPlace(kind, pathOf(object)));
    marvane_init_fn(1);
    const bool isDirectory = object == "directory";
    QCOMPARE(isFound("eng_speed"), !isDirectory);
    QCOMPARE(get_shrd_mem(SYS_ATTR_MEM, 0) == nullptr, isDirectory || object == "SYS_ATTR_MEM");
    QCOMPARE(get_shrd_mem(GU_REAL_MEM, 0) == nullptr, isDirectory || object == "GU_REAL_MEM");
    QCOMPARE(get_shrd_mem(KEYWORD_MEM, 0) == nullptr, isDirectory || object == "KEYWORD_MEM");
}

void TestForeignObjects::setOwnerOf(const QByteArray& object)
{
    QFETCH(QByteArray, user);
    QFETCH(QByteArray, owner);
    qputenv("TEST_OBJECT", object);
    qputenv("TEST_OWNER", owner);
    qputenv("TEST_USER", user);
}

void TestForeignObjects::libraryTakesDirectoriesOf()
{
    QFETCH(bool, isTaken);
    QVERIFY(m_desk->startWith(CATALOGUE));
    setOwnerOf(".directory");
    marvane_init_fn(1);
    QCOMPARE(isFound("eng_speed"), isTaken);
}

void TestForeignObjects::libraryTakesAreasOf()
{
    QFETCH(QByteArray, user);
    QFETCH(bool, isTaken);
    QVERIFY(m_desk->startWith(CATALOGUE));
    setOwnerOf("_MEM");
    marvane_init_fn(1);
    for (const SM_AREA_ID area : {SYS_ATTR_MEM, GU_REAL_MEM, KEYWORD_MEM})
        QCOMPARE(get_shrd_mem(area, 0) != nullptr, isTaken);
}

// ---- The desk platform -------------------------------------------------------------------------

bool TestForeignObjects::startDesk()
{
    return m_desk->start(qEnvironmentVariable("SCRIBON_EXAMPLES") +
                         QStringLiteral("/catalogue.json"));
}

DeskProcess::Result TestForeignObjects::runDesk() const
{
    return DeskProcess::run(
        {QStringLiteral("--name"), m_desk->name(),
         qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json")});
}

void TestForeignObjects::deskStartsInPlaceOf_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QByteArray>("kind");
    for (const char* const kind : {"a pipe", "a link to the object", "a socket"})
        QTest::addRow("%s as an area", kind) << QByteArray("SYS_ATTR_MEM") << QByteArray(kind);
}

// Areas that a killed platform has left are removed, whatever they are.
void TestForeignObjects::deskStartsInPlaceOf()
{
    QFETCH(QByteArray, object);
    QFETCH(QByteArray, kind);
    QVERIFY(putInPlace(kind, pathOf(object)));
    QVERIFY(startDesk());
    QVERIFY(QFileInfo(pathOf(object)).isFile());
    QVERIFY(!QFileInfo(pathOf(object)).isSymLink());
}

void TestForeignObjects::deskRefuses_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("complaint");
    const QByteArray directory("directory");
    QTest::newRow("a pipe as the directory")
        << directory << QByteArray("a pipe") << QByteArray("not an object of this user");
    QTest::newRow("a folder as the directory")
        << directory << QByteArray("a folder") << QByteArray("Invalid argument");
    QTest::newRow("a link as the directory") << directory << QByteArray("a link to the object")
                                             << QByteArray("Too many levels of symbolic links");
    QTest::newRow("a socket as the directory")
        << directory << QByteArray("a socket") << QByteArray("No such device or address");
    QTest::newRow("a folder as an area")
        << QByteArray("SYS_ATTR_MEM") << QByteArray("a folder") << QByteArray("File exists");
}

void TestForeignObjects::deskRefuses()
{
    QFETCH(QByteArray, object);
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, complaint);
    QVERIFY(putInPlace(kind, pathOf(object)));
    const auto result = runDesk();
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.complaints, "marvane-desk: shared memory /marvane." +
                                    m_desk->name().toLatin1() + "." + object + ": " + complaint +
                                    "\n");
    const QFileInfo found(pathOf(object));
    QVERIFY(found.exists() || found.isSymLink());
    QVERIFY(!found.isFile());
    QCOMPARE(sharedMemoryOf(m_desk->name()), QStringList());
}

void TestForeignObjects::deskTakesDirectoriesOf()
{
    QFETCH(bool, isTaken);
    QProcessEnvironment environment = m_environment;
    addPreloaded(&environment, QStringLiteral(OBJECT_OWNER));
    takeOver(environment);
    for (const char* const content : {"", "left by a platform that was killed"}) {
        QFile directory(pathOf("directory"));
        QVERIFY(directory.open(QIODevice::WriteOnly) && directory.write(content) >= 0);
        directory.close();
        setOwnerOf(".directory");
        if (isTaken) {
            QVERIFY(startDesk());
            QVERIFY(m_desk->terminate());
            continue;
        }
        const auto result = runDesk();
        QCOMPARE(result.status, 1);
        QVERIFY(result.complaints.endsWith(".directory: not an object of this user\n"));
        QVERIFY(directory.open(QIODevice::ReadOnly));
        QCOMPARE(directory.readAll(), QByteArray(content));
        QCOMPARE(sharedMemoryOf(m_desk->name()), QStringList({QStringLiteral("directory")}));
    }
}

QTEST_GUILESS_MAIN(TestForeignObjects)
#include "tst_foreign_objects.moc"
