// Compares what the help says about texts that a load and a save lose with the program: loads and
// saves the examples of the page.

#include <QRegularExpression>
#include <QTest>

#include "help_collection.h"
#include "loaded_text.h"
#include "model_text.h"

namespace {

const auto KEYWORDS = QStringLiteral("keywords_tab.htm");
const auto SCAN_LIST = QStringLiteral("scan_list_tab.htm");
const auto META_DATA = QStringLiteral("meta_data_list_tab.htm");

constexpr int FIRST_COLUMN = 1;

// Replaces each run of blanks and tabs, which only align columns, by one blank.
QByteArray unaligned(const QString& text)
{
    QString result = text;
    return result.replace(QRegularExpression(QStringLiteral("[ \t]+")), QStringLiteral(" "))
        .toUtf8();
}

int load(const QByteArray& statements)
{
    resetParseState();
    return loadText("@SCRIBON x\n" + statements);
}

// The saved text of the last load, without the first keyword and without empty sections.
QByteArray saved()
{
    QString text = QString::fromUtf8(savedDocument());
    for (const char* const part : {"@ECM_LIST", "@SCAN_LIST_AUX_USER", "@META_DATA", "@SCAN_LIST"})
        text.remove(QRegularExpression(QStringLiteral("\n%1\n(?=\n|$)").arg(QLatin1String(part))));
    return unaligned(text.remove(QStringLiteral("@SCRIBON\nx\n"))).trimmed() + '\n';
}

// The saved texts of this many loads and saves; "refused" for a load that fails.
QVector<QByteArray> savesOf(QByteArray text, int count)
{
    QVector<QByteArray> saves;
    while (saves.size() < count) {
        text = load(text) == 0 ? saved() : QByteArray("refused");
        saves.append(text);
    }
    return saves;
}

}  // namespace

class tst_HelpLosses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { free_resources(); }

    void examplesAreLostAsTheHelpSays_data();
    void examplesAreLostAsTheHelpSays();
    void examplesAreKeptAsTheHelpSays_data();
    void examplesAreKeptAsTheHelpSays();
    void copiesAreRemovedAsTheHelpSays();
    void unknownKeywordEndsAList();
    void editorWritesTheSameRows_data();
    void editorWritesTheSameRows();
    void errorMarksAreAsTheHelpSays();

private:
    bool hasExample(const QString& page, const QByteArray& example)
    {
        return unaligned(m_help.page(page).examples).contains(example.trimmed());
    }

    HelpCollection m_help;
};

void tst_HelpLosses::initTestCase()
{
    QVERIFY2(m_help.open(), "run this through scripts/in-namespace --help-from");
}

void tst_HelpLosses::examplesAreLostAsTheHelpSays_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    const auto add = [](const char* name, const QString& page, const char* text, const char* first,
                        const char* second) {
        QTest::newRow(name) << page << QByteArray(text) << QByteArray(first) << QByteArray(second);
    };
    const char* const cutList = "@SCAN_LIST\noil_temp T_OIL\neng_speed\n";
    add("a row without a channel keyword", SCAN_LIST,
        "@SCAN_LIST\noil_temp T_OIL\neng_speed .AV\neng_torque TORQUE\n", cutList, cutList);
    const char* const emptyList = "@SCAN_LIST\noil_temp T_OIL\n";
    add("a number at the start of a row", SCAN_LIST,
        "@SCAN_LIST\noil_temp T_OIL\n2 T_OIL_2\neng_torque TORQUE\n", emptyList, emptyList);
    const char* const shifted =
        "@META_DATA\nENGINE engine_name\nTEST_CELL FUEL\nfuel_name LOT\nlot_number\n";
    add("a PAM keyword alone", META_DATA,
        "@META_DATA\nENGINE engine_name\nTEST_CELL\nFUEL fuel_name\nLOT lot_number\n", shifted,
        shifted);
    add("a PAM keyword alone before a text in quotes", META_DATA,
        "@META_DATA\nENGINE engine_name\nTEST_CELL\nFUEL 'diesel'\n",
        "@META_DATA\nENGINE engine_name\nTEST_CELL FUEL\n'diesel'\n", "refused");
    add("a value that is no word", KEYWORDS, "@START_EVENT 'start log'\n",
        "@START_EVENT\n'start log'\n'start log'\n",
        "@START_EVENT\n'start log'\n'start log'\n'start log'\n");
    add("a path without a line end", KEYWORDS, "@OUTPUT_PATH /data/run_7", "@OUTPUT_PATH\n",
        "@OUTPUT_PATH\n");
    add("a path with a number behind it", KEYWORDS, "@OUTPUT_PATH /data/run_7 5\n",
        "@OUTPUT_PATH\n5\n", "@OUTPUT_PATH\n5\n5\n");
    add("an unknown keyword", KEYWORDS, "@OPERATOR smith\n@MODE mode_name\n",
        "UNKNOWN_KEYWORD\n\n@MODE\nmode_name\n", "UNKNOWN_KEYWORD\n\n@MODE\nmode_name\n");
}

void tst_HelpLosses::examplesAreLostAsTheHelpSays()
{
    QFETCH(QString, page);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QVERIFY(hasExample(page, text));
    // Only the remains of a path are described in words.
    QVERIFY(hasExample(page, first) || text.startsWith("@OUTPUT_PATH"));
    QCOMPARE(savesOf(text, 2), QVector<QByteArray>({first, second}));
}

void tst_HelpLosses::examplesAreKeptAsTheHelpSays_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("kept");
    const auto add = [](const char* name, const QString& page, const QByteArray& text) {
        QTest::newRow(name) << page << text << text;
    };
    add("a row with a channel keyword", SCAN_LIST,
        "@SCAN_LIST\noil_temp T_OIL\neng_speed .AV N_ENGINE\neng_torque TORQUE\n");
    add("a number in the name", SCAN_LIST,
        "@SCAN_LIST\noil_temp T_OIL\noil_temp_2 T_OIL_2\neng_torque TORQUE\n");
    add("an empty text", META_DATA,
        "@META_DATA\nENGINE engine_name\nTEST_CELL \"\"\nFUEL 'diesel'\n");
    add("a word", KEYWORDS, "@START_EVENT\nstart_log\n");
    QTest::newRow("a keyword in a comment")
        << KEYWORDS << QByteArray("# @OPERATOR smith\n@MODE mode_name\n")
        << QByteArray("# @OPERATOR smith\n\n@MODE\nmode_name\n");
}

void tst_HelpLosses::examplesAreKeptAsTheHelpSays()
{
    QFETCH(QString, page);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, kept);
    QVERIFY(hasExample(page, text));
    QCOMPARE(savesOf(text, 2), QVector<QByteArray>({kept, kept}));
}

// Removes the copies of the value first, then the rows without a keyword.
void tst_HelpLosses::copiesAreRemovedAsTheHelpSays()
{
    const QByteArray copied = "@SCRIBON x\n" + savesOf("@START_EVENT 'start log'\n", 2).last();
    auto model = modelOfText(copied, EDIT_TAB1);
    QVERIFY(model->rowCount() > 3);
    model->setData(model->index(1, FIRST_COLUMN), QStringLiteral("start_log"));
    for (int row = model->rowCount() - 1; row > 1; --row) {
        QCOMPARE(model->index(row, 0).data(Qt::EditRole).toString(), QStringLiteral("FILLER_TXT"));
        model->removeRows(row, 1);
    }
    QCOMPARE(dumpOf(model.get()), QByteArray("@SCRIBON\nx\n\n@START_EVENT\nstart_log\n"));
}

void tst_HelpLosses::unknownKeywordEndsAList()
{
    QVERIFY(m_help.page(KEYWORDS).text.contains(
        QStringLiteral("In a list, it ends the list as well: the rows after it are gone")));
    QCOMPARE(load("@SCAN_LIST\noil_temp T_OIL\n@OPERATOR smith\neng_torque TORQUE\n"), 0);
    const QByteArray text = saved();
    QVERIFY(text.endsWith("@SCAN_LIST\noil_temp T_OIL\n"));
    QVERIFY(!text.contains("eng_torque"));
}

void tst_HelpLosses::editorWritesTheSameRows_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("a row without a channel keyword")
        << SCAN_LIST << int{EDIT_TAB2}
        << QByteArray("@SCAN_LIST\noil_temp T_OIL\neng_torque TORQUE\n")
        << lines({"eng_speed", ".AV"})
        << QByteArray("@SCAN_LIST\noil_temp T_OIL\neng_speed .AV\neng_torque TORQUE\n");
    QTest::newRow("a PAM keyword alone")
        << META_DATA << int{EDIT_TAB3}
        << QByteArray("@META_DATA\nENGINE engine_name\nFUEL fuel_name\nLOT lot_number\n")
        << lines({"TEST_CELL"})
        << QByteArray(
               "@META_DATA\nENGINE engine_name\nTEST_CELL\nFUEL fuel_name\nLOT lot_number\n");
}

// Inserts a row by Insert Row and leaves its last cell empty: the saved text is one that the help
// gives as an example.
void tst_HelpLosses::editorWritesTheSameRows()
{
    QFETCH(QString, page);
    QFETCH(int, tab);
    QFETCH(QByteArray, list);
    QFETCH(QStringList, cells);
    QFETCH(QByteArray, written);
    auto model = modelOfText("@SCRIBON x\n" + list, tab);
    model->insertRows(2, 1);
    for (int i = 0; i < cells.size(); ++i)
        model->setData(model->index(2, FIRST_COLUMN + i), cells.at(i));
    const QByteArray text = unaligned(QString::fromUtf8(dumpOf(model.get()))).trimmed() + '\n';
    QCOMPARE(text, written);
    QVERIFY(hasExample(page, written));
    model->setDirty();
    model->validate_model();
    const QModelIndex empty = model->index(2, FIRST_COLUMN + cells.size());
    QCOMPARE(empty.data(Qt::UserRole).toInt(), int{DE_SYNTAX_ERR});
    QVERIFY(m_help.page(page).text.contains(
        QStringLiteral("writes a row without one as it stands, and the cell is only marked")));
}

void tst_HelpLosses::errorMarksAreAsTheHelpSays()
{
    const QString text = m_help.page(KEYWORDS).text;
    QVERIFY(text.contains(QStringLiteral("The cell is empty then, without a mark")));
    QVERIFY(text.contains(QStringLiteral("stays in its place, marked, and once more in a row")));
    auto model =
        modelOfText("@SCRIBON x\n@START_EVENT 'start log'\n@OUTPUT_PATH /data/run_7", EDIT_TAB1);
    model->setDirty();
    model->validate_model();
    const auto codeOf = [&model](int row) {
        return model->index(row, FIRST_COLUMN).data(Qt::UserRole).toInt();
    };
    QCOMPARE(rowLines(*model).at(1), QStringLiteral("@START_EVENT | 'start log' | FILLER_TXT"));
    QCOMPARE(codeOf(1), int{DE_SYNTAX_ERR});
    QVERIFY(rowLines(*model).at(3).startsWith(QStringLiteral("@OUTPUT_PATH | FILLER_TXT")));
    QCOMPARE(codeOf(3), int{DE_NOERROR});
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_HelpLosses)
#include "tst_help_losses.moc"
