// Rows that are called regular come through a save and a load.

#include <QTest>
#include <QTextCodec>
#include <random>

#include "checked_texts.h"
#include "document_generator.h"
#include "places.h"
#include "regularrows.h"
#include "savefindings.h"
#include "scribon_keywords.h"
#include "spec_generator.h"
#include "spec_program.h"
#include "treeitem.h"

namespace {

const QByteArrayList WORDS{"w",   "no_1",     "LOG_X",   "/a:b", "5",       "YES",
                           ".AV", ".AVX",     "5x",      "1e+",  "2.5[hr]", "[sec]",
                           "'q'", "\"a\nb\"", "'",       "#c",   "@FOO",    "LOG_DIGITAL_DESCP",
                           "a@b", "a,b",      "\xc3\xa4"};
const QByteArrayList FOLLOWERS{"",
                               "\n#c",
                               "\n#@MODE x",
                               "\n@MODE m",
                               "\n@LOG_STATISTICS yes",
                               "\n@FIFO_LOG_BUFFER",
                               "\n@SCAN_INTERVAL 5[sec]",
                               "\nstray"};
const QByteArray SCAN_LIST = "\n@SCAN_LIST\na b\n";

// The texts of all cells that are not empty, tab by tab.
QStringList textsOf(const SpecFile& file)
{
    QStringList texts;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel& table = file.table(tab);
        for (int row = 0; row < table.rowCount(); ++row) {
            for (int column = 0; column < table.columnCount(); ++column) {
                const QString text = table.index(row, column).data(Qt::EditRole).toString();
                if (!text.trimmed().isEmpty() && text != FILLER_TEXT)
                    texts.append("%1 %2 %3"_s.arg(tab).arg(column).arg(text.trimmed()));
            }
        }
    }
    return texts;
}

// What a save and a load change in the file; nothing if its rows are not regular.
QString changeOf(const QByteArray& text, int* regular)
{
    const SpecFile file = SpecFile::fromBytes(text, "spec"_s);
    if (file.state() != SpecFile::State::Loaded || !hasRegularRows(file))
        return {};
    ++*regular;
    const QByteArray saved = file.savedBytes();
    const SpecFile again = SpecFile::fromBytes(saved, "again"_s);
    if (again.state() != SpecFile::State::Loaded)
        return "refused after a save"_s;
    if (textsOf(again) != textsOf(file))
        return "other cells"_s;
    return again.savedBytes() == saved ? QString() : "another second save"_s;
}

#define COMES_THROUGH(text, regular)                                 \
    do {                                                             \
        const QString change = changeOf(text, regular);              \
        QVERIFY2(change.isEmpty(), change.toUtf8() + ": " + (text)); \
    } while (false)

}  // namespace

class tst_SpecRegularRows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }

    void usualFilesAreRegular_data();
    void usualFilesAreRegular();
    void othersAreNot_data();
    void othersAreNot();
    void anyValueOfAnyKeyword();
    void anyEntryOfAnyList();
    void anyDocument();
};

void tst_SpecRegularRows::usualFilesAreRegular_data()
{
    QTest::addColumn<QByteArray>("text");
    SpecShape shape;
    shape.keywords = KeywordSet::All;
    shape.metaRows = shape.auxRows = shape.ecmRows = 20;
    shape.distinct = shape.withUnits = true;
    QTest::newRow("generated") << QByteArray::fromStdString(generateSpec(shape));
    QTest::newRow("small") << smallSpec();
    QTest::newRow("on one line") << QByteArray(
        "@SCRIBON x @MODE 'm' # c\n@SCAN_LIST a .AV b c d\n");
    QTest::newRow("lists first") << QByteArray(
        "@ECM_LIST 1 /p:a:1\n@SCAN_LIST\n#c\na b\n@SCRIBON x\n@FIFO_LOG_BUFFER\n");
}

void tst_SpecRegularRows::usualFilesAreRegular()
{
    QFETCH(QByteArray, text);
    int regular = 0;
    COMES_THROUGH(text, &regular);
    QCOMPARE(regular, 1);
}

void tst_SpecRegularRows::othersAreNot_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("an unknown keyword") << QByteArray("@SCRIBON x\n@FOO bar\n") + SCAN_LIST;
    QTest::newRow("a value of another kind") << QByteArray("@SCRIBON x\n@ENABLE 5\n") + SCAN_LIST;
    QTest::newRow("a missing value") << QByteArray("@SCRIBON x\n@ENABLE\n") + SCAN_LIST;
    QTest::newRow("half an average")
        << QByteArray("@SCRIBON x\n@RUNNING_AVERAGE 5[sec]\n") + SCAN_LIST;
    QTest::newRow("a channel alone") << QByteArray("@SCRIBON x\n@SCAN_LIST\na\n");
    QTest::newRow("a second list") << QByteArray("@SCRIBON x\n") + SCAN_LIST + SCAN_LIST;
    QTest::newRow("no scan list") << QByteArray("@SCRIBON x\n");
    QTest::newRow("Latin-1") << QByteArray("@SCRIBON x\n#\xe4\n") + SCAN_LIST;
}

void tst_SpecRegularRows::othersAreNot()
{
    QFETCH(QByteArray, text);
    QVERIFY(!hasRegularRows(loadedSpec(text)));
}

// Each pair with one of the texts that may follow, in turn.
void tst_SpecRegularRows::anyValueOfAnyKeyword()
{
    int regular = 0;
    int turn = 0;
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        for (const QByteArray& word : WORDS) {
            const QByteArray& follower = FOLLOWERS[turn++ % FOLLOWERS.size()];
            COMES_THROUGH(
                "@SCRIBON x\n" + QByteArray(keyword.spelling) + ' ' + word + follower + SCAN_LIST,
                &regular);
        }
    }
    QVERIFY2(regular > 100, QByteArray::number(regular));
}

void tst_SpecRegularRows::anyEntryOfAnyList()
{
    const QByteArrayList lists{"\n@SCAN_LIST\n", SCAN_LIST + "@META_DATA\n",
                               SCAN_LIST + "@SCAN_LIST_AUX_USER\n", SCAN_LIST + "@ECM_LIST\n"};
    const QByteArrayList followers{"\n", " e\n", "\n1 /p\n#c\n", "                 #far\n"};
    int regular = 0;
    int turn = 0;
    for (const QByteArray& list : lists) {
        for (const QByteArray& first : WORDS) {
            for (const QByteArray& second : WORDS) {
                const QByteArray& follower = followers[turn++ % followers.size()];
                COMES_THROUGH("@SCRIBON x" + list + first + ' ' + second + follower, &regular);
            }
        }
    }
    QVERIFY2(regular > 100, QByteArray::number(regular));
}

void tst_SpecRegularRows::anyDocument()
{
    int regular = 0;
    DocumentGenerator generator(7);
    for (int i = 0; i < 100; ++i)
        COMES_THROUGH("@SCRIBON x\n" + generator.document(), &regular);
    for (const NamedText& text : manyTexts())
        COMES_THROUGH(text.bytes, &regular);
    QVERIFY2(regular > 2, QByteArray::number(regular));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecRegularRows)
#include "tst_spec_regular_rows.moc"
