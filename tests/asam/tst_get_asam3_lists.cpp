// get_asam3_lists() on valid, invalid and malicious files.

#include <limits.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QtTest>

#include "asam_files.h"
#include "get_asam3_lists.h"
#include "places.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/asam3_specs.test");

constexpr int READ = 0;
constexpr int NO_FILE = -54;
constexpr int WRONG_FORM = 76;

constexpr int MAX_NAME_LENGTH = 253;  // an entry also has ":0" and a terminating zero

AsamLists readText(const QByteArray& text)
{
    writeFile(FILE_NAME, text);
    return readLists(FILE_NAME);
}

QByteArray lines(int count)
{
    return QByteArray("a line\n").repeated(count);
}

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

bool makeSocket(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    const int result = bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof(address));
    close(descriptor);
    return result == 0;
}

}  // namespace

class tst_GetAsam3Lists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void entriesOfSections_data();
    void entriesOfSections();
    void validAndInvalidFiles_data();
    void validAndInvalidFiles();
    void oddBytes_data();
    void oddBytes();

    void longNameIsTruncatedToTheRow_data();
    void longNameIsTruncatedToTheRow();
    void namesWithTheSameTruncatedTextAreNumberedTogether();
    void lineOfAMegabyte_data();
    void lineOfAMegabyte();
    void fileTruncatedAtEveryByte();

    void pathsThatAreNotRegularFiles_data();
    void pathsThatAreNotRegularFiles();
    void unreadableFile();
    void linkToAFileIsFollowed();
    void countIsResetToZero();
    void leavesNoFileOpen_data();
    void leavesNoFileOpen();
};

void tst_GetAsam3Lists::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_GetAsam3Lists::init()
{
    emptyPlaces();
}

// ---- Entries -----------------------------------------------------------------------------------

void tst_GetAsam3Lists::entriesOfSections_data()
{
    QTest::addColumn<QByteArray>("names");
    QTest::addColumn<QString>("entries");
    const auto row = [](const char* name, const char* names, const char* entries) {
        QTest::newRow(name) << QByteArray(names) << QString::fromLatin1(entries);
    };
    row("one section", "ECM0", "ECM0:0");
    row("the same name again and again", "A B A A", "A:0 B:0 A:1 A:2");
    row("four of a name", "A A A A", "A:0 A:1 A:2 A:3");
    row("a name that begins an earlier entry counts it", "ECM10 ECM1", "ECM10:0 ECM1:1");
    row("a name that an earlier one begins does not", "ECM1 ECM10", "ECM1:0 ECM10:0");
    row("case matters", "ecm ECM", "ecm:0 ECM:0");
    row("a name that is an earlier entry", "A A:0", "A:0 A:0:1");
    row("names with printf conversions", "%s%n %d %s%n", "%s%n:0 %d:0 %s%n:1");
    row("a number as name", "12 1", "12:0 1:1");
    row("an empty name in quotes begins every entry", "A \"\"", "A:0 :1");
    row("the fifth section is left out", "A B C D E", "A:0 B:0 C:0 D:0");
    row("sections behind the fifth are left out", "A B C D E F G", "A:0 B:0 C:0 D:0");
}

void tst_GetAsam3Lists::entriesOfSections()
{
    QFETCH(QByteArray, names);
    QFETCH(QString, entries);
    const AsamLists lists = readText(asamFile(names.constData()));
    QCOMPARE(lists.entries.join(QLatin1Char(' ')), entries);
    QCOMPARE(lists.result, READ);
    QCOMPARE(lists.count, lists.entries.size());
    QVERIFY(lists.insideItsRows);
}

// ---- Forms -------------------------------------------------------------------------------------

namespace {

void addForm(const char* name, const QByteArray& text, int result, const char* entries)
{
    QTest::newRow(name) << text << result << QString::fromLatin1(entries);
}

void addOpeningForms()
{
    const QByteArray rest = "2\n3\n$\n" + section("A b c");
    addForm("an empty file", "", WRONG_FORM, "");
    addForm("the register's mark alone", "@REG_NAME\n", WRONG_FORM, "");
    addForm("two lines", "@REG_NAME\n2\n", WRONG_FORM, "");
    addForm("three lines", "@REG_NAME\n2\n3\n", WRONG_FORM, "");
    addForm("the mark within line 1", "see @REG_NAMES here\n" + rest, READ, "A:0");
    addForm("no mark in line 1", "REG_NAME\n" + rest, WRONG_FORM, "");
    addForm("the mark in small letters", "@reg_name\n" + rest, WRONG_FORM, "");
    addForm("the mark in line 2", "\n@REG_NAME\n" + rest, WRONG_FORM, "");
    addForm("dollars in lines 2 and 3 end nothing", "@REG_NAME\n$\n$\nx\n$\n" + section("A b c"),
            READ, "A:0");
    addForm("lines 2 and 3 are blank", "@REG_NAME\n\n\n$\n" + section("A b c"), READ, "A:0");
}

void addPreambleForms()
{
    const QByteArray three = "@REG_NAME\n2\n3\n";
    const QByteArray end = "$\n" + section("A b c");
    addForm("a preamble of four lines and its end", three + lines(4) + end, READ, "A:0");
    addForm("a preamble of five lines before its end", three + lines(5) + end, WRONG_FORM, "");
    addForm("a preamble of six lines before its end", three + lines(6) + end, WRONG_FORM, "");
    addForm("a preamble without end", three + lines(2), WRONG_FORM, "");
    addForm("a dollar with text behind it", three + "$ end\n" + section("A b c"), READ, "A:0");
    addForm("a dollar behind a blank ends nothing", three + " $\n" + lines(4) + end, WRONG_FORM,
            "");
}

void addSectionForms()
{
    const QByteArray good = asamFile("A B C D");
    addForm("no section", opening(), WRONG_FORM, "");
    addForm("a dollar for the first section", opening() + "$\n" + section("A b c"), WRONG_FORM, "");
    addForm("a dollar for a later section ends the file",
            asamFile("A") + "$\n" + section("B b c") + section("B b"), READ, "A:0");
    addForm("a dollar for the fifth section", good + "$\n", READ, "A:0 B:0 C:0 D:0");
    addForm("a head of two tokens", opening() + section("A b"), WRONG_FORM, "");
    addForm("a head of four tokens", opening() + section("A b c d"), WRONG_FORM, "");
    addForm("a head of seven tokens", opening() + section("A b c d e f g"), WRONG_FORM, "");
    addForm("a blank line for a head", opening() + "\n" + section("A b c"), WRONG_FORM, "");
    addForm("a bad head behind a good section", asamFile("A") + section("B b"), WRONG_FORM, "A:0");
    addForm("a fifth head of two tokens", good + section("E e"), WRONG_FORM, "A:0 B:0 C:0 D:0");
    addForm("a fifth head of four tokens", good + section("E e e e"), WRONG_FORM,
            "A:0 B:0 C:0 D:0");
    addForm("a sixth head of two tokens is not looked at", good + section("E e e") + section("F f"),
            READ, "A:0 B:0 C:0 D:0");
    addForm("a head and nothing else", opening() + "A b c", READ, "A:0");
    addForm("a section without its end", opening() + "A b c\nB b c\n", READ, "A:0");
    addForm("an empty section", opening() + "A b c\n$\nB b c\n$\n", READ, "A:0 B:0");
    addForm("a dollar within a section's line", opening() + "A b c\n x $\nB b c\n", READ, "A:0");
    addForm("blanks and tabs around the tokens", opening() + section(" \tA\t\tb  c \t"), READ,
            "A:0");
    addForm("names in quotes", opening() + section("'ECM 0' b c") + section("\"ECM 0\" 'b b' c"),
            READ, "ECM 0:0 ECM 0:1");
}

}  // namespace

void tst_GetAsam3Lists::validAndInvalidFiles_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("entries");
    addOpeningForms();
    addPreambleForms();
    addSectionForms();
    addForm("line ends with carriage returns",
            asamFile("A B").replace(QByteArray("\n"), QByteArray("\r\n")), READ, "A:0 B:0");
    addForm("no line end at the end", asamFile("A B").chopped(1), READ, "A:0 B:0");
}

void tst_GetAsam3Lists::validAndInvalidFiles()
{
    QFETCH(QByteArray, text);
    const AsamLists lists = readText(text);
    QTEST(lists.result, "result");
    QTEST(lists.entries.join(QLatin1Char(' ')), "entries");
    QCOMPARE(lists.count, lists.entries.size());
}

void tst_GetAsam3Lists::oddBytes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("entries");
    const QByteArray nul(1, '\0');
    const QByteArray rest = "\n2\n3\n$\n" + section("A b c");
    addForm("a NUL behind the register's mark", "@REG_NAME" + nul + rest, READ, "A:0");
    addForm("a NUL before the register's mark", nul + "@REG_NAME" + rest, WRONG_FORM, "");
    addForm("a NUL in a head hides what follows", opening() + section("A b" + nul + " c"),
            WRONG_FORM, "");
    addForm("a NUL before the dollar of a section",
            opening() + "A b c\n" + nul + "$\nB b c\n$\nC c c\n", READ, "A:0 C:0");
    addForm("nothing but NULs", QByteArray(5000, '\0'), WRONG_FORM, "");
    addForm("bytes above ASCII in a name", opening() + section("\xff\xc3\xa4\x80 b c"), READ,
            "\xff\xc3\xa4\x80:0");
    addForm("control characters in a name", opening() + section("\x01\x1b\x7f b c"), READ,
            "\x01\x1b\x7f:0");
}

void tst_GetAsam3Lists::oddBytes()
{
    validAndInvalidFiles();
}

// ---- Sizes -------------------------------------------------------------------------------------

void tst_GetAsam3Lists::longNameIsTruncatedToTheRow_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {252, 253, 254, 255, 256, 1000, 1013})
        QTest::addRow("a name of %d characters", length) << length;
}

void tst_GetAsam3Lists::longNameIsTruncatedToTheRow()
{
    QFETCH(int, length);
    const QByteArray name(length, 'n');
    const AsamLists lists = readText(asamFile((name + ' ' + name + " B " + name).constData()));
    const QString shown(qMin(length, MAX_NAME_LENGTH), QLatin1Char('n'));
    const QStringList expected{shown + QStringLiteral(":0"), shown + QStringLiteral(":1"),
                               QStringLiteral("B:0"), shown + QStringLiteral(":2")};
    QCOMPARE(lists.entries, expected);
    QCOMPARE(lists.result, READ);
    QVERIFY(lists.insideItsRows);
}

void tst_GetAsam3Lists::namesWithTheSameTruncatedTextAreNumberedTogether()
{
    const QByteArray stem(MAX_NAME_LENGTH, 'n');
    const AsamLists lists = readText(asamFile((stem + "one " + stem + "two").constData()));
    const QString shown = QString::fromLatin1(stem);
    QCOMPARE(lists.entries,
             QStringList({shown + QStringLiteral(":0"), shown + QStringLiteral(":1")}));
}

void tst_GetAsam3Lists::lineOfAMegabyte_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("entries");
    const QByteArray megabyte(1 << 20, 'x');
    const QByteArray rest = "\n2\n3\n$\n" + section("A b c");
    addForm("line 1 with the mark at its start", "@REG_NAME" + megabyte + rest, READ, "A:0");
    addForm("line 1 with the mark at its end", megabyte + "@REG_NAME" + rest, WRONG_FORM, "");
    addForm("line 2", "@REG_NAME\n" + megabyte + "\n3\n$\n" + section("A b c"), READ, "A:0");
    addForm("the preamble", "@REG_NAME\n2\n3\n" + megabyte + "\n$\n" + section("A b c"), READ,
            "A:0");
    addForm("a head", opening() + section(megabyte + " b c"), WRONG_FORM, "");
    addForm("a head's third token", opening() + section("A b " + megabyte), READ, "A:0");
    addForm("a section's body", opening() + "A b c\n" + megabyte + "\n$\nB b c\n", READ, "A:0 B:0");
    addForm("a section's end", opening() + "A b c\n$" + megabyte + "\nB b c\n", READ, "A:0 B:0");
    addForm("nothing else", megabyte, WRONG_FORM, "");
}

void tst_GetAsam3Lists::lineOfAMegabyte()
{
    validAndInvalidFiles();
}

// A file may be truncated anywhere.
void tst_GetAsam3Lists::fileTruncatedAtEveryByte()
{
    const QByteArray whole = asamFile("A B A A B");
    const QStringList all = readText(whole).entries;
    for (int size = 0; size < whole.size(); ++size) {
        const AsamLists lists = readText(whole.left(size));
        QVERIFY2(lists.result == READ || lists.result == WRONG_FORM, whole.left(size).constData());
        QCOMPARE(lists.entries, all.mid(0, lists.count));
    }
}

// ---- Files -------------------------------------------------------------------------------------

void tst_GetAsam3Lists::pathsThatAreNotRegularFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("result");
    const auto row = [](const char* name, const char* path, int result) {
        QTest::newRow(name) << QString::fromLatin1(path) << result;
    };
    row("nothing there", "/specs/nothing", NO_FILE);
    row("an empty name", "", NO_FILE);
    row("a relative name that is nowhere", "Other", NO_FILE);
    row("a path through a file", "/specs/asam3_specs.test/x", NO_FILE);
    row("a link to nothing", "/specs/dangling", NO_FILE);
    row("a socket", "/specs/socket", NO_FILE);
    row("a directory", "/specs", WRONG_FORM);
    row("an endless device", "/dev/zero", WRONG_FORM);
    row("an empty device", "/dev/null", WRONG_FORM);
    row("a FIFO without a writer", "/specs/pipe", WRONG_FORM);
    row("a link to a FIFO", "/specs/link", WRONG_FORM);
    QTest::newRow("a path longer than any") << QString(1 << 16, QLatin1Char('/')) << NO_FILE;
}

void tst_GetAsam3Lists::pathsThatAreNotRegularFiles()
{
    QFETCH(QString, path);
    QFETCH(int, result);
    if (path.size() > PATH_MAX && inFakeRoot())
        QSKIP("fakechroot shortens a path of this length; it takes namespaces to try it");
    QVERIFY(writeFile(FILE_NAME, asamFile("A")));
    QVERIFY(makePipe(QStringLiteral("/specs/pipe")));
    QVERIFY(makeSocket("/specs/socket"));
    QCOMPARE(symlink("/specs/pipe", "/specs/link"), 0);
    QCOMPARE(symlink("/specs/nothing", "/specs/dangling"), 0);
    const AsamLists lists = readLists(path);
    QCOMPARE(lists.result, result);
    QCOMPARE(lists.count, 0);
}

void tst_GetAsam3Lists::unreadableFile()
{
    QVERIFY(writeFile(FILE_NAME, asamFile("A")));
    QCOMPARE(chmod(QFile::encodeName(FILE_NAME).constData(), 0200), 0);
    QCOMPARE(readLists(FILE_NAME).result, NO_FILE);
}

void tst_GetAsam3Lists::linkToAFileIsFollowed()
{
    QVERIFY(writeFile(FILE_NAME, asamFile("A")));
    const auto link = QStringLiteral("/specs/link");
    QVERIFY(QFile::link(FILE_NAME, link));
    QCOMPARE(readLists(link).entries, QStringList(QStringLiteral("A:0")));
}

void tst_GetAsam3Lists::countIsResetToZero()
{
    char rows[MAX_ASAM3_LISTS][ASAM3_LIST_SIZE]{};
    int count = 1000;
    QCOMPARE(int(get_asam3_lists("/nowhere", rows, &count)), NO_FILE);
    QCOMPARE(count, 0);
}

void tst_GetAsam3Lists::leavesNoFileOpen_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a good file") << asamFile("A B");
    QTest::newRow("no @REG_NAME") << QByteArray("x\n");
    QTest::newRow("no preamble") << QByteArray("@REG_NAME\n2\n3\n");
    QTest::newRow("no sections") << opening();
    QTest::newRow("a bad head") << opening() + section("A");
    QTest::newRow("a bad fifth head") << asamFile("A B C D") + section("E");
}

void tst_GetAsam3Lists::leavesNoFileOpen()
{
    QFETCH(QByteArray, text);
    QVERIFY(writeFile(FILE_NAME, text));
    const int before = openDescriptors();
    readLists(FILE_NAME);
    readLists(QStringLiteral("/specs"));
    QCOMPARE(openDescriptors(), before);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_GetAsam3Lists)

#include "tst_get_asam3_lists.moc"
