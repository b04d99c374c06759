// Takes rows from another program and gives it some, by the keyboard.

#include "endtoend_test.h"
#include "neighbour_process.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_full");
constexpr int CHANNELS = 500;

// As a spreadsheet puts a range of cells on the clipboard.
QString channels()
{
    QString text;
    for (int i = 0; i < CHANNELS; ++i)
        text += QStringLiteral("pasted_%1\t.AV\tPASTED_%1\n").arg(i);
    return text;
}

}  // namespace

class tst_Spreadsheet : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void channelsComeByOnePasteAndGoByOneUndo();
    void rowsArePasted_data();
    void rowsArePasted();
    void rowIsCopied();
    void fieldIsPasted();
    void tooManyFieldsAreRefused();
    void keysOfAnOpenEditor();

private:
    bool openFull();
    bool hasRows(int tab, int rows);
    bool showsNews(const QString& news);
    bool saves(const QByteArray& expected);
};

bool tst_Spreadsheet::openFull()
{
    return provide(QStringLiteral("scrib_full")) && start({FILE_NAME}) && m_user->seesErrors(1, 1);
}

bool tst_Spreadsheet::hasRows(int tab, int rows)
{
    return m_user->waitUntil([=] { return m_user->table(tab).rows.size() == rows; });
}

bool tst_Spreadsheet::showsNews(const QString& news)
{
    return m_user->waitUntil([&] { return m_user->news() == news; });
}

bool tst_Spreadsheet::saves(const QByteArray& expected)
{
    m_user->press(QStringLiteral("ctrl+s"));
    return showsNews(QStringLiteral("File saved")) &&
           linesOf(readFile(FILE_NAME)) == linesOf(expected);
}

void tst_Spreadsheet::channelsComeByOnePasteAndGoByOneUndo()
{
    QVERIFY(openFull());
    User& user = *m_user;
    const int rows = user.table(1).rows.size();
    const int row = user.table(1).rowOf(QStringLiteral("oil_temp"), 1);
    QVERIFY(user.select(1, row, 1));
    NeighbourProcess spreadsheet(m_screen);
    QVERIFY(spreadsheet.copy(channels()));
    user.press(QStringLiteral("ctrl+v"));
    QVERIFY(showsNews(QStringLiteral("500 rows pasted")));
    QVERIFY(hasRows(1, rows + CHANNELS));
    const SeenTable table = user.table(1);
    QCOMPARE(table.text(row + 1, 1), QStringLiteral("pasted_0"));
    QCOMPARE(table.text(row + CHANNELS, 3), QStringLiteral("PASTED_499"));
    QVERIFY(table.rows[row + CHANNELS][1].isCurrent);
    QVERIFY(user.seesCell(1, row + CHANNELS, 1));
    QVERIFY(user.seesErrors(0, 1));
    QByteArray expected = savedExample(QStringLiteral("scrib_full"));
    expected.replace("oil_temp\t\tT_OIL\n",
                     "oil_temp\t\tT_OIL\n" +
                         channels().replace(QLatin1Char('\t'), QStringLiteral("\t\t")).toUtf8());
    QVERIFY(saves(expected));
    user.undo();
    QVERIFY(hasRows(1, rows));
    QVERIFY(user.seesErrors(0, 1));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
    user.redo();
    QVERIFY(hasRows(1, rows + CHANNELS));
    QVERIFY(saves(expected));
    user.undo();
    QVERIFY(hasRows(1, rows));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

void tst_Spreadsheet::rowsArePasted_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("keywords") << 0
                              << QStringLiteral("# pasted\t\t\n@SOME_TEXT\t\"\"\"a\nb\"\"\"\t\n")
                              << QByteArray("# pasted\n\n@SOME_TEXT\n\"a\nb\"\n");
    QTest::newRow("scan list") << 1 << QStringLiteral("# pasted\t\t\na\t\tA\n")
                               << QByteArray("# pasted\na\t\tA\n");
    QTest::newRow("meta data list") << 2 << QStringLiteral("# pasted\t\r\nA\t'b c'\r\n")
                                    << QByteArray("# pasted\nA\t\t'b c'\n");
    QTest::newRow("scan list aux user") << 3 << QStringLiteral("a\tb\n") << QByteArray("a\t\tb\n");
    QTest::newRow("ecm list") << 4 << QStringLiteral("9\t/a:b:1\n") << QByteArray("9\t\t/a:b:1\n");
}

void tst_Spreadsheet::rowsArePasted()
{
    QFETCH(int, tab);
    QFETCH(QString, content);
    QFETCH(QByteArray, saved);
    QVERIFY(openFull());
    User& user = *m_user;
    const int rows = user.table(tab).rows.size();
    QVERIFY(user.select(tab, 2, 1));
    NeighbourProcess spreadsheet(m_screen);
    QVERIFY(spreadsheet.copy(content));
    user.press(QStringLiteral("ctrl+v"));
    QVERIFY(user.waitUntil([&] { return user.table(tab).rows.size() > rows; }));
    user.press(QStringLiteral("ctrl+s"));
    QVERIFY(showsNews(QStringLiteral("File saved")));
    QVERIFY2(readFile(FILE_NAME).contains(saved), readFile(FILE_NAME).constData());
    user.undo();
    QVERIFY(hasRows(tab, rows));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

void tst_Spreadsheet::rowIsCopied()
{
    QVERIFY(openFull());
    User& user = *m_user;
    const int rows = user.table(1).rows.size();
    const int row = user.table(1).rowOf(QStringLiteral("oil_temp"), 1);
    QVERIFY(user.select(1, row, 3));
    user.press(QStringLiteral("ctrl+c"));
    QTRY_COMPARE(NeighbourProcess(m_screen).paste(), QStringLiteral("T_OIL"));
    user.press(QStringLiteral("ctrl+shift+c"));
    QVERIFY(showsNews(QStringLiteral("Row copied")));
    QCOMPARE(NeighbourProcess(m_screen).paste(), QStringLiteral("oil_temp\t\tT_OIL"));
    user.press(QStringLiteral("ctrl+v"));
    QVERIFY(hasRows(1, rows + 1));
    QCOMPARE(user.table(1).text(row + 1, 1), QStringLiteral("oil_temp"));
    QCOMPARE(user.table(1).text(row + 1, 3), QStringLiteral("T_OIL"));
    QVERIFY(user.seesErrors(1, 2));  // the same channel twice
    user.undo();
    QVERIFY(user.seesErrors(0, 1));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

void tst_Spreadsheet::fieldIsPasted()
{
    QVERIFY(openFull());
    User& user = *m_user;
    const int row = user.table(1).rowOf(QStringLiteral("oil_temp"), 1);
    QVERIFY(user.select(1, row, 3));
    NeighbourProcess spreadsheet(m_screen);
    QVERIFY(spreadsheet.copy(QStringLiteral("T_SUMP\n")));
    user.press(QStringLiteral("ctrl+v"));
    const auto shows = [&](const char* text) {
        return user.waitUntil([&] { return user.table(1).text(row, 3) == QLatin1String(text); });
    };
    QVERIFY(shows("T_SUMP"));
    user.undo();
    QVERIFY(shows("T_OIL"));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

void tst_Spreadsheet::tooManyFieldsAreRefused()
{
    QVERIFY(openFull());
    User& user = *m_user;
    QVERIFY(user.select(2, 1, 1));
    const int rows = user.table(2).rows.size();
    NeighbourProcess spreadsheet(m_screen);
    QVERIFY(spreadsheet.copy(QStringLiteral("A\ta\nB\tb\tc\n")));
    user.press(QStringLiteral("ctrl+v"));
    QVERIFY(showsNews(QStringLiteral("Row 2 has 3 fields, not 2: not pasted")));
    QVERIFY(hasRows(2, rows));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

void tst_Spreadsheet::keysOfAnOpenEditor()
{
    QVERIFY(openFull());
    User& user = *m_user;
    const int rows = user.table(1).rows.size();
    const int row = user.table(1).rowOf(QStringLiteral("oil_temp"), 1);
    NeighbourProcess spreadsheet(m_screen);
    QVERIFY(spreadsheet.copy(QStringLiteral("a\tb\n")));
    QVERIFY(user.open(1, row, 3));
    user.press(QStringLiteral("ctrl+a"));
    user.press(QStringLiteral("ctrl+v"));
    QVERIFY(user.waitUntil([&] { return user.editorText().startsWith(QStringLiteral("a\tb")); }));
    user.press(QStringLiteral("Escape"));
    QCOMPARE(user.table(1).rows.size(), rows);
    QVERIFY(user.seesErrors(0, 1));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_Spreadsheet)

#include "tst_spreadsheet.moc"
