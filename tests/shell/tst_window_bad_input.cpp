// Files that are not spec files, and paths that are not regular files: each gives a message box or
// a title, and none hangs or crashes the window.

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>

#include "window_test.h"

namespace {

const auto NAME = QStringLiteral("/specs/input");
const auto GOOD = QStringLiteral("/specs/good");
const auto INVALID = QStringLiteral("Invalid scribon_specs file: /specs/input");
const auto NO_FILE = QStringLiteral("Not a regular file");

bool makeSocket(const QString& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    std::copy(name.begin(), name.end(), std::begin(address.sun_path));
    const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound =
        bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(handle);
    return bound;
}

bool link(const char* target)
{
    return QFile::link(QLatin1String(target), NAME);
}

QByteArray binary()
{
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i * 7919 / 256);
    return bytes;
}

}  // namespace

class tst_WindowBadInput : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void unreadable_data();
    void unreadable();
    void openOfAnUnreadableFile_data() { unreadable_data(); }
    void openOfAnUnreadableFile();
    void validAndInvalidFiles_data();
    void validAndInvalidFiles();
    void longWordAsAValue();
    void invalidNames_data();
    void invalidNames();

private:
    void make(const QString& kind);
};

void tst_WindowBadInput::make(const QString& kind)
{
    const QHash<QString, std::function<bool()>> makers{
        {QStringLiteral("missing"), [] { return true; }},
        {QStringLiteral("directory"), [] { return QDir().mkpath(NAME); }},
        {QStringLiteral("pipe"), [] { return makePipe(NAME); }},
        {QStringLiteral("socket"), [] { return makeSocket(NAME); }},
        {QStringLiteral("null device"), [] { return link("/dev/null"); }},
        {QStringLiteral("endless device"), [] { return link("/dev/zero"); }},
        {QStringLiteral("terminal"), [] { return link("/dev/tty"); }},
        {QStringLiteral("dangling link"), [] { return link("/specs/nowhere"); }},
        {QStringLiteral("link to itself"), [] { return link("/specs/input"); }},
        {QStringLiteral("locked"),
         [] {
             return writeFile(NAME, goodSpec()) &&
                    QFile::setPermissions(NAME, QFileDevice::Permissions());
         }},
    };
    QVERIFY(makers.value(kind)());
}

void tst_WindowBadInput::unreadable_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* kind, const QString& reason) {
        QTest::newRow(kind) << QString::fromLatin1(kind) << reason;
    };
    row("missing", QStringLiteral("No such file or directory"));
    row("directory", NO_FILE);
    row("pipe", NO_FILE);
    row("socket", NO_FILE);
    row("null device", NO_FILE);
    row("endless device", NO_FILE);
    row("terminal", NO_FILE);
    row("dangling link", QStringLiteral("No such file or directory"));
    row("link to itself", QStringLiteral("Too many levels of symbolic links"));
    row("locked", QStringLiteral("Permission denied"));
}

void tst_WindowBadInput::unreadable()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    loadGoodFile();
    make(kind);
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(NAME, false);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes.first().text,
             QStringLiteral("Cannot read file %1:\n%2.").arg(NAME, reason));
    QCOMPARE(titleOf(*m_window), GOOD);
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 9);
    QVERIFY(m_window->save());
}

// The file dialog may refuse some of these; the document is kept then, too.
void tst_WindowBadInput::openOfAnUnreadableFile()
{
    QFETCH(QString, kind);
    loadGoodFile();
    make(kind);
    m_dialogs->chooseFile(NAME);
    m_window->open();
    QCOMPARE(titleOf(*m_window), GOOD);
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 9);
    QCOMPARE(LoadingFile, 0);
    QVERIFY(m_window->save());
}

void tst_WindowBadInput::validAndInvalidFiles_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("empty") << QByteArray() << INVALID;
    QTest::newRow("one line end") << QByteArray("\n") << INVALID;
    QTest::newRow("no statement") << QByteArray("# only a comment\n") << INVALID;
    QTest::newRow("no statement that names it") << badSpec() << INVALID;
    QTest::newRow("binary") << binary() << INVALID;
    QTest::newRow("NUL bytes alone") << QByteArray(1000, '\0') << INVALID;
    QTest::newRow("NUL bytes among statements")
        << QByteArray("@SCRIBON\nna\0me\n@GROUP\n\0g\n", 25) << NAME;
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + goodSpec() << NAME;
    QTest::newRow("DOS line ends") << goodSpec().replace("\n", "\r\n") << NAME;
    QTest::newRow("no line end at the end") << QByteArray("@SCRIBON\nname") << NAME;
    QTest::newRow("unclosed quote")
        << QByteArray("@SCRIBON\nname\n@DESCRIPTION\n'begins here\n") << NAME;
}

void tst_WindowBadInput::validAndInvalidFiles()
{
    QFETCH(QByteArray, text);
    m_window->show();
    loadGoodFile();
    QVERIFY(writeFile(NAME, text));
    m_window->loadFile(NAME, false);
    QTEST(titleOf(*m_window), "title");
    QVERIFY(m_dialogs->boxes.isEmpty());
    for (int tab = 0; tab < 5; ++tab) {
        tabsOf(*m_window)->setCurrentIndex(tab);
        QVERIFY(!viewOf(*m_window, tab)->grab().isNull());
    }
}

void tst_WindowBadInput::longWordAsAValue()
{
    const QByteArray word(1 << 20, 'w');
    m_window->show();
    loadGoodFile(goodSpec().replace("group_var", word));
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 2).at(1).size(), word.size());
    QVERIFY(!viewOf(*m_window, 0)->grab().isNull());
    QVERIFY(m_window->save());
    QVERIFY(readFile(GOOD).contains("@GROUP\n" + word + "\n"));
}

void tst_WindowBadInput::invalidNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no name") << QString();
    QTest::newRow("the root") << QStringLiteral("/");
    QTest::newRow("a blank") << QStringLiteral(" ");
    QTest::newRow("a very long name") << QString(5000, QLatin1Char('n'));
    QTest::newRow("a name with place holders") << QStringLiteral("%1 %2 %99");
    QTest::newRow("a name with a NUL") << QStringLiteral("na") + QChar(0) + QStringLiteral("me");
    QTest::newRow("a name with a line end") << QStringLiteral("na\nme");
}

void tst_WindowBadInput::invalidNames()
{
    QFETCH(QString, name);
    loadGoodFile();
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(name, false);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(m_dialogs->boxes.first().text.startsWith(QStringLiteral("Cannot read file ") + name));
    QCOMPARE(titleOf(*m_window), GOOD);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowBadInput)
#include "tst_window_bad_input.moc"
