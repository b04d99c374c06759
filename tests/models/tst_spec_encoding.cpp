// How the bytes of a spec file are decoded, and that saving writes the same bytes.

#include <QTest>
#include <QTextCodec>

#include "loaded_text.h"
#include "model_text.h"
#include "specencoding.h"

namespace {

const QByteArray UMLAUTS_IN_LATIN1 =
    "\xd6ltemperatur \xb0"
    "C";
const QByteArray UMLAUTS_IN_UTF8 =
    "\xc3\x96ltemperatur \xc2\xb0"
    "C";
const auto UMLAUTS = QStringLiteral("\u00d6ltemperatur \u00b0C");
const auto EURO = QStringLiteral("\u20ac");

void useLocalEncoding(const char* name)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
}

int loadAfresh(const QByteArray& text)
{
    resetParseState();
    return loadText(text);
}

// A file with the text in a quoted value, a comment and a word, and a byte that makes the file
// Latin-1.
QByteArray fileWith(const QByteArray& text)
{
    return "@SCRIBON\nx\n\n@DESCRIPTION\n'" + text + "'\n\n#" + text + "\n\n@GROUP\n" + text +
           "\n\n#\xff\n";
}

QStringList cells()
{
    return rowLines(*loadedModel(EDIT_TAB1));
}

}  // namespace

class tst_SpecEncoding : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { useLocalEncoding("UTF-8"); }

    void encodingOfBytes_data();
    void encodingOfBytes();
    void encodingOfWhatIsWritten_data();
    void encodingOfWhatIsWritten();
    void everyByteOfACellIsKept_data();
    void everyByteOfACellIsKept();
    void latin1FileKeepsItsBytes();
    void utf8FileKeepsItsBytes();
    void allBytesAreValidInAnEightBitLocale();
    void textBeyondLatin1IsWrittenInTheLocalEncoding();
};

void tst_SpecEncoding::encodingOfBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("latin1");

    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("ASCII") << QByteArray("@SCRIBON\nx\n") << false;
    QTest::newRow("a zero byte") << QByteArray("a\0b", 3) << false;
    QTest::newRow("UTF-8") << UMLAUTS_IN_UTF8 << false;
    QTest::newRow("a byte order mark") << QByteArray("\xef\xbb\xbf@SCRIBON") << false;
    QTest::newRow("a character of four bytes") << QByteArray("\xf0\x9f\x94\xa7") << false;
    QTest::newRow("Latin-1") << UMLAUTS_IN_LATIN1 << true;
    QTest::newRow("Latin-1 in one letter of much UTF-8")
        << UMLAUTS_IN_UTF8.repeated(1000) + "\xd6" + UMLAUTS_IN_UTF8 << true;
    QTest::newRow("a character that the end cuts off") << QByteArray("abc\xc3") << true;
    QTest::newRow("a character that a line end cuts off") << QByteArray("\xe2\x82\n") << true;
    QTest::newRow("an overlong form") << QByteArray("\xc0\x80") << true;
    QTest::newRow("a surrogate") << QByteArray("\xed\xa0\x80") << true;
}

void tst_SpecEncoding::encodingOfBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, latin1);
    const SpecEncoding encoding = encodingOf(bytes.constData(), static_cast<size_t>(bytes.size()));
    QCOMPARE(encoding == SpecEncoding::Latin1, latin1);
    if (latin1)
        QCOMPARE(encoded(encoding, decoded(encoding, bytes.constData(), bytes.size())), bytes);
}

void tst_SpecEncoding::encodingOfWhatIsWritten_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("fits");
    QTest::newRow("nothing") << QString() << true;
    QTest::newRow("ASCII") << QStringLiteral("abc") << true;
    QTest::newRow("the last character of Latin-1") << QStringLiteral("\u00ff") << true;
    QTest::newRow("the first one behind it") << QStringLiteral("abc\u0100") << false;
    QTest::newRow("a euro sign") << EURO << false;
    QTest::newRow("a character of two code units")
        << QString::fromUtf8("\xf0\x9f\x94\xa7") << false;
}

void tst_SpecEncoding::encodingOfWhatIsWritten()
{
    QFETCH(QString, text);
    QFETCH(bool, fits);
    QCOMPARE(encodingFor(text, SpecEncoding::Latin1) == SpecEncoding::Latin1, fits);
    QVERIFY(encodingFor(text, SpecEncoding::Local) == SpecEncoding::Local);
}

void tst_SpecEncoding::everyByteOfACellIsKept_data()
{
    QTest::addColumn<QByteArray>("byte");
    for (int value = 0; value < 256; ++value)
        QTest::addRow("byte 0x%02x", static_cast<unsigned>(value))
            << QByteArray(1, static_cast<char>(value));
}

// A byte that ends the quotes, the comment or the word is not part of the cell. What the cells have
// after the first load, they also have after the second one.
void tst_SpecEncoding::everyByteOfACellIsKept()
{
    QFETCH(QByteArray, byte);
    const QByteArray text = "a" + byte + "b";
    QCOMPARE(loadAfresh(fileWith(text)), 0);
    const QStringList loaded = cells();
    const QByteArray saved = savedDocument();
    QCOMPARE(loadAfresh(saved), 0);
    QCOMPARE(cells(), loaded);
    QCOMPARE(savedDocument(), saved);
    if (static_cast<unsigned char>(byte.at(0)) >= 0x80) {
        QVERIFY2(saved.contains("'" + text + "'"), saved.constData());
        QVERIFY2(saved.contains("#" + text + "\n"), saved.constData());
    }
}

void tst_SpecEncoding::latin1FileKeepsItsBytes()
{
    const QByteArray text = "@SCRIBON\nx\n#" + UMLAUTS_IN_LATIN1 + "\n";
    QCOMPARE(loadAfresh(text), 0);
    const auto model = loadedModel(EDIT_TAB1);
    QCOMPARE(model->index(1, 0).data().toString(), QLatin1Char('#') + UMLAUTS);
    QVERIFY(model->encoding() == SpecEncoding::Latin1);
    QCOMPARE(dumpOf(model.get()), text);
}

void tst_SpecEncoding::utf8FileKeepsItsBytes()
{
    const QByteArray text = "@SCRIBON\nx\n#" + UMLAUTS_IN_UTF8 + "\n";
    QCOMPARE(loadAfresh(text), 0);
    const auto model = loadedModel(EDIT_TAB1);
    QCOMPARE(model->index(1, 0).data().toString(), QLatin1Char('#') + UMLAUTS);
    QVERIFY(model->encoding() == SpecEncoding::Local);
    QCOMPARE(dumpOf(model.get()), text);
}

void tst_SpecEncoding::allBytesAreValidInAnEightBitLocale()
{
    useLocalEncoding("ISO-8859-15");
    const QByteArray text = "@SCRIBON\nx\n#\xa4\n";
    QCOMPARE(loadAfresh(text), 0);
    const auto model = loadedModel(EDIT_TAB1);
    QCOMPARE(model->index(1, 0).data().toString(), QLatin1Char('#') + EURO);
    QVERIFY(model->encoding() == SpecEncoding::Local);
    QCOMPARE(dumpOf(model.get()), text);
}

void tst_SpecEncoding::textBeyondLatin1IsWrittenInTheLocalEncoding()
{
    QCOMPARE(loadAfresh("@SCRIBON\nx\n#" + UMLAUTS_IN_LATIN1 + "\n"), 0);
    const auto model = loadedModel(EDIT_TAB1);
    QVERIFY(model->setData(model->index(0, 1), EURO));
    QCOMPARE(dumpOf(model.get()), "@SCRIBON\n" + EURO.toUtf8() + "\n#" + UMLAUTS_IN_UTF8 + "\n");
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecEncoding)
#include "tst_spec_encoding.moc"
