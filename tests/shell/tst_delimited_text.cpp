// Tables on the clipboard: the fields of a text, and the text of fields.

#include <QElapsedTimer>
#include <QTest>

#include "delimitedtext.h"

namespace {

constexpr int MANY = 1000000;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The lines are separated by "/", their fields by "|".
QVector<QStringList> table(const char* content)
{
    QVector<QStringList> lines;
    for (const QString& line : text(content).split(QLatin1Char('/')))
        lines.append(line.split(QLatin1Char('|')));
    return lines;
}

}  // namespace

class tst_DelimitedText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textIsRead_data();
    void textIsRead();
    void controlCharactersAreDropped();
    void emptyTextHasNoLines();
    void fieldsAreWritten_data();
    void fieldsAreWritten();
    void whatIsWrittenIsReadAgain_data();
    void whatIsWrittenIsReadAgain();
    void largeTextIsReadInTime_data();
    void largeTextIsReadInTime();
};

void tst_DelimitedText::textIsRead_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QVector<QStringList>>("expected");
    const auto row = [](const char* name, const char* content, const char* expected) {
        QTest::newRow(name) << text(content) << table(expected);
    };
    row("one field", "a", "a");
    row("line end", "a\n", "a");
    row("fields", "a\tb\tc", "a|b|c");
    row("lines", "a\tb\nc\td\n", "a|b/c|d");
    row("lines of another system", "a\tb\r\nc\td\r\n", "a|b/c|d");
    row("lines of an old system", "a\rb\r", "a/b");
    row("empty fields", "\ta\t\n\t\t", "|a|/||");
    row("empty line", "a\n\nb\n", "a//b");
    row("byte order mark",
        "\xEF\xBB\xBF"
        "a\tb",
        "a|b");
    row("blanks", " a \t b ", " a | b ");
    row("tab in quotes", "\"a\tb\"\tc", "a\tb|c");
    row("line break in quotes", "\"a\nb\"\tc\nd", "a\nb|c/d");
    row("line break of another system in quotes", "\"a\r\nb\"\tc", "a\nb|c");
    row("doubled quotes", "\"\"\"a\"\"\"\tb", "\"a\"|b");
    row("doubled quotes inside", "\"a\"\"b\"\tc", "a\"b|c");
    row("empty text of a spec file", "\"\"\"\"\"\"", "\"\"");
    row("quotes that nothing needs", "\"a b\"\t\"\"", "\"a b\"|\"\"");
    row("quote inside", "a\"b\tc\"d", "a\"b|c\"d");
    row("text behind quotes", "\"a\tb\"c\td", "\"a|b\"c|d");
    row("quote that is not closed", "\"a\tb\nc", "\"a|b/c");
    row("doubled quote that is not closed", "\"a\"\"\tb", "\"a\"\"|b");
    row("quote alone", "\"", "\"");
    row("single quotes", "'a'\t'b'", "'a'|'b'");
    row("single quotes over two lines", "'a\nb'", "'a\nb'");
    row("two texts in single quotes", "'a'\n'b'", "'a'/'b'");
}

void tst_DelimitedText::textIsRead()
{
    QFETCH(QString, content);
    QTEST(fieldsOf(content), "expected");
}

void tst_DelimitedText::controlCharactersAreDropped()
{
    QString content = QStringLiteral("a?b\tc?");
    content.replace(QLatin1Char('?'), QChar(0));
    content.append(QChar(0x1B)).append(QChar(0x7F)).append(QChar(0x85));
    QCOMPARE(fieldsOf(content), table("ab|c"));
}

void tst_DelimitedText::emptyTextHasNoLines()
{
    QVERIFY(fieldsOf(QString()).isEmpty());
    QVERIFY(fieldsOf(QString(MANY, QChar(0))).isEmpty());
}

void tst_DelimitedText::fieldsAreWritten_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QStringList& fields, const char* expected) {
        QTest::newRow(name) << fields << text(expected);
    };
    row("fields", {text("a"), text("b c"), QString()}, "a\tb c\t");
    row("quotes", {text("\"a\""), text("b\"c")}, "\"\"\"a\"\"\"\t\"b\"\"c\"");
    row("tab", {text("a\tb")}, "\"a\tb\"");
    row("line break", {text("a\nb"), text("c")}, "\"a\nb\"\tc");
    row("single quotes", {text("'a'")}, "'a'");
}

void tst_DelimitedText::fieldsAreWritten()
{
    QFETCH(QStringList, fields);
    QTEST(lineOf(fields), "expected");
}

void tst_DelimitedText::whatIsWrittenIsReadAgain_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("plain") << QStringList{text("a"), text("b")};
    QTest::newRow("empty") << QStringList{QString(), text("b"), QString()};
    QTest::newRow("quotes") << QStringList{text("\""), text("\"\""), text("\"a"), text("a\"")};
    QTest::newRow("all of it") << QStringList{text("\"a\tb\"\n"), text("\t\n\"\""), text("'c\n'")};
}

void tst_DelimitedText::whatIsWrittenIsReadAgain()
{
    QFETCH(QStringList, fields);
    QCOMPARE(fieldsOf(lineOf(fields)), QVector<QStringList>{fields});
}

void tst_DelimitedText::largeTextIsReadInTime_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("end");
    const auto row = [](const char* name, const char* part, const char* end = "") {
        QTest::newRow(name) << text(part) << text(end);
    };
    row("tabs", "\t");
    row("line ends", "\n");
    row("quotes", "\"");
    row("quotes, then a letter", "\"", "a");
    row("doubled quotes that are not closed", "\"\"\t", "a");
    row("quotes that are not closed", "\"a\t");
    row("three quotes and a letter", "\"\"\"a\t");
    row("four quotes and a letter", "\"\"\"\"a\t", "\"");
    row("lines with a quote", "\"a\"\"\n");
    row("an unclosed quote in each second field", "\"\"\"\t\"\"a\t", "b");
}

// Reading in the square of the length would take minutes.
void tst_DelimitedText::largeTextIsReadInTime()
{
    QFETCH(QString, part);
    QFETCH(QString, end);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!fieldsOf(part.repeated(MANY) + end).isEmpty());
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_DelimitedText)

#include "tst_delimited_text.moc"
