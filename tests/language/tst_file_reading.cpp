// A spec file is read completely or not at all, and the parsed bytes are those that were read.

#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <limits>
#include <memory>

#include "editor_antlr3.h"
#include "loaded_text.h"
#include "wholefile.h"

namespace {

const QByteArray GOOD = "@SCRIBON\ngood\n";
const QByteArray OTHER = "@SCRIBON\nother\n@MODE\nm\n";
constexpr size_t NO_LIMIT = std::numeric_limits<size_t>::max();

QByteArray parsedBytes()
{
    const FileBytes bytes = getFileBytes();
    return {bytes.data, static_cast<int>(bytes.size)};
}

}  // namespace

class tst_FileReading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { free_resources(); }

    void content_data();
    void content();
    void notARegularFile_data();
    void notARegularFile();
    void fifoDoesNotBlock();
    void limitOfTheSize_data();
    void limitOfTheSize();
    void growingFileIsLimited();
    void tooLargeFileIsNotLoaded_data();
    void tooLargeFileIsNotLoaded();

    void preloadedBytesAreParsed();
    void removedFileIsNotParsed();
    void preloadedBytesAreParsedOnce();
    void preloadedBytesAreUsedForTheSameNameOnly();
    void failedPreloadKeepsThePreviousTree();
    void bytesAreKeptAsLongAsTheTree();

private:
    QByteArray path(const char* name) const;
    void write(const char* name, const QByteArray& bytes);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_FileReading::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    resetParseState();
}

QByteArray tst_FileReading::path(const char* name) const
{
    return QFile::encodeName(m_dir->filePath(QString::fromLatin1(name)));
}

void tst_FileReading::write(const char* name, const QByteArray& bytes)
{
    QFile file(QFile::decodeName(path(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void tst_FileReading::content_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << GOOD;
    QTest::newRow("zero bytes") << QByteArray("a\0b\0", 4);
    for (const int size : {65535, 65536, 65537, 1000000})
        QTest::addRow("%d bytes", size) << QByteArray(size, 'x');
}

void tst_FileReading::content()
{
    QFETCH(QByteArray, bytes);
    write("file", bytes);
    std::string read = "what was there before";
    QCOMPARE(readWholeFile(path("file").constData(), NO_LIMIT, &read), 0);
    QCOMPARE(QByteArray::fromStdString(read), bytes);
}

void tst_FileReading::notARegularFile_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("error");
    QTest::newRow("nothing") << QByteArray("/no such file") << ENOENT;
    QTest::newRow("no name") << QByteArray("") << ENOENT;
    QTest::newRow("below a file") << QByteArray("/dev/null/x") << ENOTDIR;
    QTest::newRow("a directory") << QByteArray("/tmp") << EINVAL;
    QTest::newRow("a device without an end") << QByteArray("/dev/zero") << EINVAL;
}

void tst_FileReading::notARegularFile()
{
    QFETCH(QByteArray, name);
    QFETCH(int, error);
    std::string bytes;
    QCOMPARE(readWholeFile(name.constData(), NO_LIMIT, &bytes), error);
    QCOMPARE(preload_file(name.constData()), error);
    QCOMPARE(read_file(name.constData()), -1);
}

// No process writes to the FIFO: reading it must not block.
void tst_FileReading::fifoDoesNotBlock()
{
    QCOMPARE(mkfifo(path("pipe").constData(), 0600), 0);
    std::string bytes;
    QCOMPARE(readWholeFile(path("pipe").constData(), NO_LIMIT, &bytes), EINVAL);
}

void tst_FileReading::limitOfTheSize_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("error");
    QTest::newRow("longer") << 100001 << 0;
    QTest::newRow("equal") << 100000 << 0;
    QTest::newRow("shorter") << 99999 << EFBIG;
}

void tst_FileReading::limitOfTheSize()
{
    QFETCH(int, limit);
    QFETCH(int, error);
    write("file", QByteArray(100000, 'x'));
    std::string bytes = "what was there before";
    QCOMPARE(readWholeFile(path("file").constData(), static_cast<size_t>(limit), &bytes), error);
    QCOMPARE(bytes.size(), error == 0 ? size_t(100000) : size_t(0));
}

// The kernel tells the length 0 for a file whose content it makes while it is read.
void tst_FileReading::growingFileIsLimited()
{
    std::string bytes;
    QCOMPARE(readWholeFile("/proc/self/status", NO_LIMIT, &bytes), 0);
    QVERIFY(!bytes.empty());
    QCOMPARE(readWholeFile("/proc/self/status", 1, &bytes), EFBIG);
}

void tst_FileReading::tooLargeFileIsNotLoaded_data()
{
    QTest::addColumn<qint64>("size");
    QTest::newRow("2 GiB") << (qint64(1) << 31);
    QTest::newRow("4 GiB") << (qint64(1) << 32);
    QTest::newRow("more than there is memory") << (qint64(1) << 43);
}

// The files have no content, so they need no room on the disk.
void tst_FileReading::tooLargeFileIsNotLoaded()
{
    QFETCH(qint64, size);
    write("file", GOOD);
    QVERIFY(QFile::resize(QFile::decodeName(path("file")), size));
    QCOMPARE(preload_file(path("file").constData()), EFBIG);
    QCOMPARE(read_file(path("file").constData()), -1);
}

void tst_FileReading::preloadedBytesAreParsed()
{
    write("file", GOOD);
    QCOMPARE(preload_file(path("file").constData()), 0);
    write("file", OTHER);
    QCOMPARE(read_file(path("file").constData()), 0);
    QCOMPARE(parsedBytes(), GOOD);
    QVERIFY(!loadedTree().contains(QStringLiteral("KYWD_MODE")));
}

void tst_FileReading::removedFileIsNotParsed()
{
    write("file", GOOD);
    QCOMPARE(preload_file(path("file").constData()), 0);
    QVERIFY(QFile::remove(QFile::decodeName(path("file"))));
    QCOMPARE(read_file(path("file").constData()), -1);
    QVERIFY(getTree() == nullptr);
}

void tst_FileReading::preloadedBytesAreParsedOnce()
{
    write("file", GOOD);
    QCOMPARE(preload_file(path("file").constData()), 0);
    QCOMPARE(read_file(path("file").constData()), 0);
    write("file", OTHER);
    QCOMPARE(read_file(path("file").constData()), 0);
    QCOMPARE(parsedBytes(), OTHER);
}

void tst_FileReading::preloadedBytesAreUsedForTheSameNameOnly()
{
    write("file", GOOD);
    write("other", OTHER);
    QCOMPARE(preload_file(path("file").constData()), 0);
    QCOMPARE(read_file(path("other").constData()), 0);
    QCOMPARE(parsedBytes(), OTHER);
    write("file", OTHER + OTHER);
    QCOMPARE(read_file(path("file").constData()), 0);
    QCOMPARE(parsedBytes(), OTHER + OTHER);
}

void tst_FileReading::failedPreloadKeepsThePreviousTree()
{
    write("file", GOOD);
    QCOMPARE(read_file(path("file").constData()), 0);
    const QString tree = loadedTree();
    QCOMPARE(preload_file(path("no such file").constData()), ENOENT);
    QCOMPARE(loadedTree(), tree);
    QCOMPARE(parsedBytes(), GOOD);
}

void tst_FileReading::bytesAreKeptAsLongAsTheTree()
{
    write("file", GOOD);
    QCOMPARE(read_file(path("file").constData()), 0);
    QCOMPARE(parsedBytes(), GOOD);
    free_resources();
    QVERIFY(parsedBytes().isEmpty());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_FileReading)
#include "tst_file_reading.moc"
