// Files that are not spec files, and repeated loads: the result of the load; no crash, hang or
// memory leak.

#include <malloc.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <random>

#include "editor_antlr3.h"
#include "loaded_text.h"

namespace {

// A spec text with all kinds of statements, and with errors.
constexpr char MESSY_SPEC[] =
    "@SCRIBON s\n# note\n@MODE 1e+5\n@GROUP g\n@FOO bar\n@ENABLE 5\n@DESCRIPTION\n=;,\n"
    "@RUNNING_AVERAGE 5[sec]\n@RUNNING_AVERAGE # c\n@MAX_SCANS\n@SCAN_LIST\na .AV b\n5 6 7\n"
    "@ECM_LIST\n1 /p\n@SCAN_LIST_AUX_USER\na \"b\"\n5 # c\n@META_DATA\nk v\n@MODE \"unclosed\n";

QByteArray encoded(const QString& fileName)
{
    return QFile::encodeName(fileName);
}

int load(const QString& fileName)
{
    return read_file(encoded(fileName).constData());
}

QByteArray randomBytes(unsigned seed, int size)
{
    std::mt19937 generator(seed);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator() & 0xff);
    return bytes;
}

void loadEditAndClassifyOnce()
{
    QCOMPARE(loadText(MESSY_SPEC), 0);
    const pANTLR3_BASE_TREE statement = treeChild(0);
    const QByteArray longText(1000, 'w');
    update_token(statement->getToken(statement), longText.constData(), 1000);
    for (const char* const text : {"@MODE", "word", "\"unclosed", "1e+x", "", " "}) {
        int type = 0;
        appGrammerTypeToEditorType(text, static_cast<int>(qstrlen(text)), &type);
        appGrammerRequired(text, qstrlen(text));
    }
}

}  // namespace

class tst_BadInput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanupTestCase() { free_resources(); }

    void unreadableNames_data();
    void unreadableNames();
    void directory();
    void pipe();
    void socket();
    void fileWithoutReadPermission();
    void symbolicLinks();
    void failedReadFreesThePreviousTree();
    void fileThatChangesAfterTheLoad();

    void texts_data();
    void texts();
    void zeroByteTruncatesAQuotedText();
    void binaryGarbage_data();
    void binaryGarbage();
    void specTruncatedAtAnyByte();
    void specWithAnyByteRemoved();
    void longWordAsAValue();
    void manyDroppedCharacters();
    void deepRowsAndLongLines();
    void repeatedLoadsDoNotGrowMemory();

private:
    QTemporaryDir m_dir;
};

void tst_BadInput::init()
{
    resetParseState();
    QVERIFY(m_dir.isValid());
}

void tst_BadInput::unreadableNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("no name") << QByteArray("");
    QTest::newRow("a missing file") << QByteArray("/nowhere/at/all");
    QTest::newRow("a name below a file") << QByteArray("/etc/passwd/file");
    QTest::newRow("a name that is too long") << QByteArray(100000, 'x');
    QTest::newRow("the root directory") << QByteArray("/");
    QTest::newRow("an empty device") << QByteArray("/dev/null");
    QTest::newRow("an endless device") << QByteArray("/dev/zero");
    QTest::newRow("a random device") << QByteArray("/dev/urandom");
}

void tst_BadInput::unreadableNames()
{
    QFETCH(QByteArray, name);
    QCOMPARE(read_file(name.constData()), -1);
    QVERIFY(getTree() == nullptr);
}

void tst_BadInput::directory()
{
    QCOMPARE(load(m_dir.path()), -1);
}

// No process writes to the FIFO: opening it must not block.
void tst_BadInput::pipe()
{
    const QString name = m_dir.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(encoded(name).constData(), 0600), 0);
    QCOMPARE(load(name), -1);
}

void tst_BadInput::socket()
{
    const QByteArray name = encoded(m_dir.filePath(QStringLiteral("socket")));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    QVERIFY(static_cast<size_t>(name.size()) < sizeof(address.sun_path));
    qstrcpy(address.sun_path, name.constData());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QVERIFY(descriptor >= 0);
    QCOMPARE(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    QCOMPARE(read_file(name.constData()), -1);
    close(descriptor);
}

void tst_BadInput::fileWithoutReadPermission()
{
    QFile file(m_dir.filePath(QStringLiteral("secret")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("@SCRIBON s\n");
    file.close();
    QVERIFY(file.setPermissions(QFileDevice::WriteOwner));
    if (access(encoded(file.fileName()).constData(), R_OK) == 0)
        QSKIP("this user may read everything");
    QCOMPARE(load(file.fileName()), -1);
}

void tst_BadInput::symbolicLinks()
{
    QFile file(m_dir.filePath(QStringLiteral("linked")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("@SCRIBON s\n");
    file.close();
    const QString good = m_dir.filePath(QStringLiteral("good link"));
    QVERIFY(QFile::link(file.fileName(), good));
    QCOMPARE(load(good), 0);
    const QString dangling = m_dir.filePath(QStringLiteral("dangling link"));
    QVERIFY(QFile::link(m_dir.filePath(QStringLiteral("nothing")), dangling));
    QCOMPARE(load(dangling), -1);
    const QString loop = m_dir.filePath(QStringLiteral("loop"));
    QVERIFY(QFile::link(loop, loop));
    QCOMPARE(load(loop), -1);
}

void tst_BadInput::failedReadFreesThePreviousTree()
{
    QCOMPARE(loadText("@SCRIBON s\n"), 0);
    QCOMPARE(load(m_dir.path()), -1);
    QVERIFY(getTree() == nullptr);
    QCOMPARE(loadText("@SCRIBON s\n"), 0);
}

void tst_BadInput::fileThatChangesAfterTheLoad()
{
    QFile file(m_dir.filePath(QStringLiteral("changing")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("@SCRIBON s\n@MODE x\n");
    file.close();
    QCOMPARE(load(file.fileName()), 0);
    const QString tree = loadedTree();
    QVERIFY(file.resize(0));
    QCOMPARE(loadedTree(), tree);
    QVERIFY(file.remove());
    QCOMPARE(loadedTree(), tree);
}

void tst_BadInput::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("contained");
    const auto row = [](const char* title, const QByteArray& text, int verdict,
                        const char* contained) {
        QTest::newRow(title) << text << verdict << QString::fromLatin1(contained);
    };
    const QByteArray spec("@SCRIBON s\n@MODE x\n");
    QByteArray utf16;
    for (const char byte : spec)
        utf16 += QByteArray(1, byte) + '\0';
    QByteArray bigUtf16;
    for (const char byte : spec)
        bigUtf16 += '\0' + QByteArray(1, byte);
    row("an empty file", "", -2, "EOF");
    row("one zero byte", QByteArray(1, '\0'), -2, "EOF");
    row("zero bytes alone", QByteArray(5000, '\0'), -2, "EOF");
    row("a spec file behind an UTF-8 byte order mark", "\xef\xbb\xbf" + spec, 0,
        "KYWD_MODE(@MODE) [ TEXT_BLK(x)");
    row("a spec file behind an UTF-16 byte order mark", "\xff\xfe" + spec, 0,
        "KYWD_MODE(@MODE) [ TEXT_BLK(x)");
    row("a spec file behind a big-endian UTF-16 byte order mark", "\xfe\xff" + spec, 0,
        "KYWD_MODE(@MODE) [ TEXT_BLK(x)");
    row("a spec file in UTF-16 falls apart", "\xff\xfe" + utf16, -2, "TEXT_BLK(S)");
    row("a spec file in big-endian UTF-16 falls apart", "\xfe\xff" + bigUtf16, -2, "TEXT_BLK(S)");
    row("a zero byte parts a word", QByteArray("@SCRIBON a\0b\n", 13), 0,
        "KYWD_SCRIBON(@SCRIBON) [ TEXT_BLK(a) [ FILLER_TXT ] ]");
    row("a zero byte ends a keyword", QByteArray("@SCRIBON\0s\n", 11), 0,
        "KYWD_SCRIBON(@SCRIBON) [ TEXT_BLK(s) [ FILLER_TXT ] ]");
    row("a zero byte between lines", QByteArray("@SCRIBON s\n\0\n@MODE x\n", 21), 0,
        "KYWD_MODE(@MODE) [ TEXT_BLK(x)");
    row("zero bytes behind the text", spec + QByteArray(100, '\0'), 0, "TEXT_BLK(x)");
    row("a control-Z behind the text", spec + '\x1a', 0, "TEXT_BLK(x)");
    row("a carriage return alone ends no line", "@SCRIBON s\r@MODE x\r", 0,
        "KYWD_MODE(@MODE) [ TEXT_BLK(x)");
    row("an unclosed quote loses the rest", "@SCRIBON s\n\"@MODE x\n", 0, "SCRIBON(@SCRIBON)");
    row("an unclosed quote at the start", "'@SCRIBON s\n", -2, "EOF");
    row("a byte beyond ASCII ends a word", "@SCRIBON gr\xfc\xdf\n", 0, "[ TEXT_BLK(gr)");
    row("bytes beyond ASCII stay in quotes", "@SCRIBON \"gr\xfc\xdf\"\n", 0,
        "[ DESCRIP(\"gr\xfc\xdf\")");
    row("an HTML page", "<html><body class=\"x\">It's</body></html>\n", -2, "TEXT_BLK(<html>");
    row("a script", "#!/bin/sh\necho '@SCRIBON x'\n", -2, "COMMENT(#!/bin/sh)");
}

void tst_BadInput::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(int, verdict);
    QFETCH(QString, contained);
    QCOMPARE(loadText(text), verdict);
    const QString tree = loadedTree();
    QVERIFY2(tree.contains(contained), qPrintable(tree));
}

// The token continues behind the zero byte, but a C string ends there.
void tst_BadInput::zeroByteTruncatesAQuotedText()
{
    QCOMPARE(loadText(QByteArray("@SCRIBON \"a\0b\" # c\0d\n@MODE x\n", 30)), 0);
    const QString tree = loadedTree();
    QVERIFY(tree.contains(QStringLiteral("[ DESCRIP(\"a) [ FILLER_TXT ] ]")));
    QVERIFY(tree.contains(QStringLiteral("COMMENT(# c)")));
    QVERIFY(tree.contains(QStringLiteral("KYWD_MODE(@MODE) [ TEXT_BLK(x)")));
}

void tst_BadInput::binaryGarbage_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 50; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("garbage %1").arg(seed))) << seed;
}

void tst_BadInput::binaryGarbage()
{
    QFETCH(unsigned, seed);
    const QByteArray garbage = randomBytes(seed, 20000);
    QCOMPARE(loadText(garbage), -2);
    resetParseState();
    const int verdict = loadText("@SCRIBON s\n" + garbage);
    QVERIFY(verdict == 0 || verdict == -2);
    loadedTree();
}

void tst_BadInput::specTruncatedAtAnyByte()
{
    const QByteArray spec(MESSY_SPEC);
    for (int size = 0; size <= spec.size(); ++size) {
        const int verdict = loadText(spec.left(size));
        QVERIFY(verdict == 0 || verdict == -2);
        QVERIFY(!loadedTree().isEmpty());
    }
}

void tst_BadInput::specWithAnyByteRemoved()
{
    const QByteArray spec(MESSY_SPEC);
    for (int place = 0; place < spec.size(); ++place) {
        const int verdict = loadText(QByteArray(spec).remove(place, 1));
        QVERIFY(verdict == 0 || verdict == -2);
        QVERIFY(!loadedTree().isEmpty());
    }
}

void tst_BadInput::longWordAsAValue()
{
    const QByteArray word(1024 * 1024, 'w');
    QCOMPARE(loadText("@SCRIBON s\n@GROUP " + word + '\n'), 0);
    QVERIFY(loadedTree().contains(
        QStringLiteral("[ TEXT_BLK(%1) [ FILLER_TXT ] ]").arg(QString::fromLatin1(word))));
    int type = 0;
    QCOMPARE(appGrammerTypeToEditorType(word.constData(), word.size(), &type), int(TEXT_BLOCK));
    QCOMPARE(type, 80);
}

// The runtime keeps about 170 bytes for each dropped character until the load is freed, so the test
// does not use a hundred megabytes of them.
void tst_BadInput::manyDroppedCharacters()
{
    const QByteArray dropped(1024 * 1024, '=');
    QCOMPARE(loadText(dropped), -2);
    QCOMPARE(loadText("@SCRIBON " + dropped + "s\n"), 0);
}

void tst_BadInput::deepRowsAndLongLines()
{
    QByteArray words;
    QByteArray lines;
    QByteArray atWords;
    for (int i = 0; i < 50000; ++i) {
        words += "w ";
        lines += "\r\n";
        atWords += "@FOO ";
    }
    QCOMPARE(loadText("@SCRIBON s\n@SCAN_LIST " + words), 0);
    QCOMPARE(loadText("@SCRIBON s\n" + words), 0);
    QCOMPARE(loadText("@SCRIBON " + lines + "s\n@DESCRIPTION " + lines + "\"d\"" + lines), 0);
    QCOMPARE(loadText("@SCRIBON s\n@SCAN_LIST_AUX_USER\n# c" + lines), 0);
    QCOMPARE(loadText("@SCRIBON s\n" + atWords), 0);
}

void tst_BadInput::repeatedLoadsDoNotGrowMemory()
{
    constexpr int WARM_UP = 20;
    constexpr int LOADS = 200;
    constexpr size_t TOLERANCE = 16384;
    for (int i = 0; i < WARM_UP; ++i)
        loadEditAndClassifyOnce();
    const size_t before = mallinfo2().uordblks;
    for (int i = 0; i < LOADS; ++i)
        loadEditAndClassifyOnce();
    const size_t after = mallinfo2().uordblks;
    QVERIFY2(after <= before + TOLERANCE,
             qPrintable(QStringLiteral("%1 bytes more").arg(after - before)));
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_BadInput)
#include "tst_bad_input.moc"
