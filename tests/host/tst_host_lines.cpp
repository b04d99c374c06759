// The host functions that read lines of text; they need no platform.

#include <marvane_headers.h>

#include <QTemporaryFile>
#include <QtTest>
#include <array>
#include <cstring>
#include <memory>

namespace {

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

File fileOf(const QByteArray& content)
{
    File file(std::tmpfile(), fclose);
    fwrite(content.constData(), 1, static_cast<size_t>(content.size()), file.get());
    rewind(file.get());
    return file;
}

constexpr size_t ROWS = 6;
using Rows = std::array<std::array<char, MARVANE_LINE_SIZE>, ROWS>;

}  // namespace

class TestHostLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesOfAFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("lines");
        const auto list = [](const char* text) {
            return QString::fromLatin1(text).split(QLatin1Char('|'));
        };
        QTest::newRow("an empty file") << QByteArray() << QStringList();
        QTest::newRow("one line") << QByteArray("abc\n") << list("abc");
        QTest::newRow("a last line without a line end") << QByteArray("abc\nde") << list("abc|de");
        QTest::newRow("blank lines and comments are lines")
            << QByteArray("\n# c\n\n$\n") << list("|# c||$");
        QTest::newRow("line ends with carriage returns")
            << QByteArray("a\r\n\r\nb\r\n") << list("a||b");
        QTest::newRow("a carriage return within a line") << QByteArray("a\rb\n") << list("a\rb");
        QTest::newRow("blanks around the text stay") << QByteArray("  a\t \n") << list("  a\t ");
    }
    void linesOfAFile()
    {
        QFETCH(QByteArray, content);
        const File file = fileOf(content);
        std::array<char, MARVANE_LINE_SIZE> line{};
        QStringList lines;
        while (get_next_line(file.get(), line.data()) != -1)
            lines << QString::fromLatin1(line.data());
        QTEST(lines, "lines");
        QCOMPARE(get_next_line(file.get(), line.data()), int16_t{-1});
    }

    void longLineIsCutAndStaysOneLine_data()
    {
        QTest::addColumn<int>("length");
        for (const int length : {1022, 1023, 1024, 1025, 1 << 20})
            QTest::addRow("a line of %d characters", length) << length;
    }
    void longLineIsCutAndStaysOneLine()
    {
        QFETCH(int, length);
        const File file = fileOf(QByteArray(length, 'x') + "\nnext\n");
        struct {
            char line[MARVANE_LINE_SIZE];
            char behind;
        } buffer{{}, '!'};
        QCOMPARE(get_next_line(file.get(), buffer.line), int16_t{0});
        QCOMPARE(qstrlen(buffer.line), static_cast<uint>(qMin(length, MARVANE_LINE_SIZE - 1)));
        QCOMPARE(buffer.behind, '!');
        QCOMPARE(get_next_line(file.get(), buffer.line), int16_t{0});
        QCOMPARE(buffer.line, "next");
        QCOMPARE(get_next_line(file.get(), buffer.line), int16_t{-1});
    }

    void tokensOfALine_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("tokens");
        QTest::addColumn<QString>("types");
        QTest::newRow("an empty line") << QByteArray("") << ""
                                       << "";
        QTest::newRow("blanks alone") << QByteArray(" \t ") << ""
                                      << "";
        QTest::newRow("three words") << QByteArray("ECM0 a b") << "ECM0|a|b"
                                     << "www";
        QTest::newRow("tabs and runs of blanks") << QByteArray("\t a  \tb ") << "a|b"
                                                 << "ww";
        QTest::newRow("integers") << QByteArray("1 -2 007") << "1|-2|007"
                                  << "iii";
        QTest::newRow("an integer that is too large")
            << QByteArray("99999999999999999999") << "99999999999999999999"
            << "i";
        QTest::newRow("reals") << QByteArray("1.5 .5 -1e3") << "1.5|.5|-1e3"
                               << "rrr";
        QTest::newRow("words that resemble numbers")
            << QByteArray("1-2 e5 1.2.3 - nan") << "1-2|e5|1.2.3|-|nan"
            << "wwwww";
        QTest::newRow("names of no finite number")
            << QByteArray("inf -inf -nan -infinity -nan(1) -.")
            << "inf|-inf|-nan|-infinity|-nan(1)|-."
            << "wwwwww";
        QTest::newRow("a text in double quotes") << QByteArray("a \"b c\" d") << "a|b c|d"
                                                 << "wqw";
        QTest::newRow("a text in single quotes") << QByteArray("'b \"c'") << "b \"c"
                                                 << "q";
        QTest::newRow("an empty quoted text") << QByteArray("\"\" x") << "|x"
                                              << "qw";
        QTest::newRow("an unclosed quote") << QByteArray("a \"b c") << "a|b c"
                                           << "wq";
        QTest::newRow("a quote at the very end") << QByteArray("a \"") << "a|"
                                                 << "wq";
        QTest::newRow("a quote within a word") << QByteArray("a\"b c\"") << "a\"b|c\""
                                               << "ww";
        QTest::newRow("texts that touch") << QByteArray("\"a\"\"b\"c") << "a|b|c"
                                          << "qqw";
        QTest::newRow("more tokens than rows") << QByteArray("1 2 3 4 5 6 7 8") << "1|2|3|4|5|6"
                                               << "iiiiii";
    }
    void tokensOfALine()
    {
        QFETCH(QByteArray, line);
        auto rows = std::make_unique<Rows>();
        std::array<TOKEN_TYPE, ROWS> types{};
        const int16_t count = parse_line(line.constData(), ROWS, MARVANE_LINE_SIZE, 1,
                                         rows->front().data(), types.data());
        QStringList tokens;
        QString kinds;
        for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
            tokens << QString::fromLatin1((*rows)[i].data());
            kinds += QStringLiteral("wirq")[types[i]];
        }
        QTEST(tokens.join(QLatin1Char('|')), "tokens");
        QTEST(kinds, "types");
    }

    void quotesCanBeOrdinaryCharacters()
    {
        auto rows = std::make_unique<Rows>();
        std::array<TOKEN_TYPE, ROWS> types{};
        QCOMPARE(
            parse_line("\"a b\"", ROWS, MARVANE_LINE_SIZE, 0, rows->front().data(), types.data()),
            int16_t{2});
        QCOMPARE((*rows)[0].data(), "\"a");
    }

    void longTokenIsCut()
    {
        const QByteArray line = QByteArray(5000, 'x') + " y";
        auto rows = std::make_unique<Rows>();
        std::array<TOKEN_TYPE, ROWS> types{};
        (*rows)[2].fill('!');
        QCOMPARE(parse_line(line.constData(), ROWS, MARVANE_LINE_SIZE, 1, rows->front().data(),
                            types.data()),
                 int16_t{2});
        QCOMPARE(qstrlen((*rows)[0].data()), uint{MARVANE_LINE_SIZE - 1});
        QCOMPARE((*rows)[1].data(), "y");
        QCOMPARE((*rows)[2].front(), '!');
    }

    void noRoomForTokens()
    {
        char row[4] = "abc";
        TOKEN_TYPE type = 77;
        QCOMPARE(parse_line("x y", 0, 4, 1, row, &type), int16_t{0});
        QCOMPARE(parse_line("x y", 1, 0, 1, row, &type), int16_t{0});
        QCOMPARE(row, "abc");
        QCOMPARE(type, 77);
        QCOMPARE(parse_line("xyz y", 1, 1, 1, row, &type), int16_t{1});
        QCOMPARE(row, "");
    }
};

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestHostLines)
#include "tst_host_lines.moc"
