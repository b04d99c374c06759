// Inserts and removes rows on each tab, by the context menu, the menu bar and shortcuts, and undoes
// both.

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_full");
const auto INSERT = QStringLiteral("Insert Row");
const auto REMOVE = QStringLiteral("Remove Row");

// The column whose text identifies a row of the tab.
int textColumn(int tab)
{
    return tab == 0 ? 0 : 1;
}

}  // namespace

class tst_Rows : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void rowsAreInserted_data();
    void rowsAreInserted();
    void rowsAreRemoved_data();
    void rowsAreRemoved();
    void newKeywordRowIsFilledIn();
    void newScanListRowIsFilledIn();
    void newMetaDataRowIsFilledIn();
    void newAuxUserRowGetsTheVariablesName();
    void newEcmRowIsFilledIn();
    void requiredKeywordsStay_data();
    void requiredKeywordsStay();
    void undoActsOnTheCurrentTab();

private:
    bool openFull();
    bool hasRows(int tab, int rows);
    bool saves(const QByteArray& expected);
};

bool tst_Rows::openFull()
{
    return provide(QStringLiteral("scrib_full")) && start({FILE_NAME}) && m_user->seesErrors(1, 1);
}

bool tst_Rows::hasRows(int tab, int rows)
{
    return m_user->waitUntil([=] { return m_user->table(tab).rows.size() == rows; });
}

bool tst_Rows::saves(const QByteArray& expected)
{
    m_user->press(QStringLiteral("ctrl+s"));
    if (!m_user->waitUntil([&] { return m_user->news() == QLatin1String("File saved"); }))
        return false;
    return linesOf(readFile(FILE_NAME)) == linesOf(expected);
}

void tst_Rows::rowsAreInserted_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("marks");  // of an empty row
    QTest::addColumn<int>("steps");  // to undo it: leaving the editor that it opens is one, too

    QTest::newRow("keywords") << 0 << QStringLiteral("@MAX_SCANS") << 3 << 1 << 2;
    QTest::newRow("scan list") << 1 << QStringLiteral("charge_air_temp") << 4 << 2 << 1;
    QTest::newRow("meta data list") << 2 << QStringLiteral("OPERATOR") << 3 << 2 << 1;
    QTest::newRow("scan list aux user") << 3 << QStringLiteral("fuel_flow") << 3 << 2 << 1;
    QTest::newRow("ECM list") << 4 << QStringLiteral("2") << 3 << 2 << 1;
}

void tst_Rows::rowsAreInserted()
{
    QFETCH(int, tab);
    QFETCH(QString, text);
    QFETCH(int, columns);
    QFETCH(int, marks);
    QFETCH(int, steps);
    User& user = *m_user;
    QVERIFY(openFull());
    const SeenTable before = user.table(tab);
    const int marksBefore = tab == 0 ? 1 : 0;
    const int row = before.rowOf(text, textColumn(tab));
    const auto hasNewRow = [&] {
        const QVector<QString> blanks(columns, QStringLiteral(" "));
        return hasRows(tab, before.rows.size() + 1) &&
               user.seesErrors(marksBefore + marks, 1 + marks) &&
               user.table(tab).rowTexts(row + 1) == blanks.toList();
    };

    QVERIFY(user.chooseFromContextMenu(tab, row, textColumn(tab), INSERT));
    QVERIFY(hasNewRow());
    QVERIFY(user.select(tab, row, textColumn(tab)));
    user.undo(steps);
    QVERIFY(hasRows(tab, before.rows.size()));
    user.redo(steps);
    QVERIFY(hasNewRow());
    user.undo(steps);
    QVERIFY(hasRows(tab, before.rows.size()) && user.seesErrors(marksBefore, 1));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

void tst_Rows::rowsAreRemoved_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");

    QTest::newRow("keywords") << 0 << QStringLiteral("@MAX_SCANS");
    QTest::newRow("comment") << 0 << QStringLiteral("# When");
    QTest::newRow("scan list") << 1 << QStringLiteral("turbine_in_temp");
    QTest::newRow("meta data list") << 2 << QStringLiteral("OPERATOR");
    QTest::newRow("scan list aux user") << 3 << QStringLiteral("fuel_flow");
    QTest::newRow("ECM list") << 4 << QStringLiteral("2");
}

void tst_Rows::rowsAreRemoved()
{
    QFETCH(int, tab);
    QFETCH(QString, text);
    User& user = *m_user;
    QVERIFY(openFull());
    const SeenTable before = user.table(tab);
    const int rows = before.rows.size();
    const int row = before.rowOf(text, textColumn(tab));

    QVERIFY(user.select(tab, row, textColumn(tab)));
    QVERIFY(user.chooseFromMenu(QStringLiteral("Edit"), REMOVE));
    QVERIFY(hasRows(tab, rows - 1));
    QCOMPARE(user.table(tab).rowOf(text, textColumn(tab)), -1);
    user.undo();
    QVERIFY(hasRows(tab, rows));
    QCOMPARE(user.table(tab).rowTexts(row), before.rowTexts(row));
    user.redo();
    QVERIFY(hasRows(tab, rows - 1));
    user.undo();
    QVERIFY(hasRows(tab, rows) && user.seesErrors(tab == 0 ? 1 : 0, 1));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full"))));
}

// The editor for the keyword of a new row opens at once.
void tst_Rows::newKeywordRowIsFilledIn()
{
    User& user = *m_user;
    QVERIFY(provide(QStringLiteral("scrib_small")));
    QVERIFY(start({QStringLiteral("/specs/scrib_small")}));
    QVERIFY(user.select(0, 0, 0));
    user.press(QStringLiteral("ctrl+i"));
    QVERIFY(user.waitUntil([&] { return user.isEditing(); }));
    QVERIFY(user.enter(QStringLiteral("max_scans")));
    QCOMPARE(user.table(0).text(1, 0), QStringLiteral("@MAX_SCANS"));
    QVERIFY(user.seesErrors(1, 1));
    QVERIFY(user.open(0, 1, 1));
    QCOMPARE(user.editorText(), QStringLiteral("0"));
    QVERIFY(user.enter(QStringLiteral("500")));
    QVERIFY(user.seesErrors(0, 0));
    user.undo(3);
    QVERIFY(hasRows(0, 8));
    user.redo(3);
    QVERIFY(user.waitUntil([&] { return user.table(0).text(1, 1) == QLatin1String("500"); }));
    user.press(QStringLiteral("ctrl+s"));
    QVERIFY(user.waitUntil([&] { return user.news() == QLatin1String("File saved"); }));
    QByteArray expected = savedExample(QStringLiteral("scrib_small"));
    expected.replace("idle_watch\n", "idle_watch\n\n@MAX_SCANS\n500\n");
    QCOMPARE(linesOf(readFile(QStringLiteral("/specs/scrib_small"))), linesOf(expected));
}

void tst_Rows::newScanListRowIsFilledIn()
{
    User& user = *m_user;
    QVERIFY(openFull());
    const int row = user.table(1).rowOf(QStringLiteral("oil_temp"), 1);
    QVERIFY(user.select(1, row, 1));
    QVERIFY(user.chooseFromMenu(QStringLiteral("Edit"), INSERT));
    QVERIFY(user.open(1, row + 1, 1));
    QVERIFY(user.typeVariable(QStringLiteral("oil_temp_sump")));
    QVERIFY(user.endDialog(QStringLiteral("Ok")));
    QVERIFY(user.open(1, row + 1, 3));
    QVERIFY(user.enter(QStringLiteral("T_OIL_SUMP")));
    QVERIFY(user.seesErrors(0, 1));
    QByteArray expected = savedExample(QStringLiteral("scrib_full"));
    expected.replace("oil_temp\t\tT_OIL\n", "oil_temp\t\tT_OIL\noil_temp_sump\t\tT_OIL_SUMP\n");
    QVERIFY(saves(expected));
}

void tst_Rows::newMetaDataRowIsFilledIn()
{
    User& user = *m_user;
    QVERIFY(openFull());
    const int row = user.table(2).rowOf(QStringLiteral("BORE"), 1);
    QVERIFY(user.chooseFromContextMenu(2, row, 1, INSERT));
    QVERIFY(user.open(2, row + 1, 1));
    QVERIFY(user.pick(QStringLiteral("TEST_PURPOSE")));
    QVERIFY(user.open(2, row + 1, 2));
    QVERIFY(user.typeVariable(QStringLiteral("test_purpose")));
    QVERIFY(user.endDialog(QStringLiteral("Ok")));
    QVERIFY(user.seesErrors(0, 1));
    QByteArray expected = savedExample(QStringLiteral("scrib_full"));
    expected.replace("bore[MM]\n", "bore[MM]\nTEST_PURPOSE\t\ttest_purpose\n");
    QVERIFY(saves(expected));
}

void tst_Rows::newAuxUserRowGetsTheVariablesName()
{
    User& user = *m_user;
    QVERIFY(openFull());
    QVERIFY(user.chooseFromContextMenu(3, 1, 1, INSERT));
    QVERIFY(user.open(3, 2, 1));
    QVERIFY(user.typeVariable(QStringLiteral("oil_flow")));
    QVERIFY(user.endDialog(QStringLiteral("Ok")));
    QVERIFY(user.seesErrors(0, 1));
    QByteArray expected = savedExample(QStringLiteral("scrib_full"));
    expected.replace("\tcrank_speed\n", "\tcrank_speed\noil_flow\t\toil_flow\n");
    QVERIFY(saves(expected));
}

void tst_Rows::newEcmRowIsFilledIn()
{
    User& user = *m_user;
    QVERIFY(provide(QStringLiteral("asam3_specs.engine")));
    QVERIFY(provide(QStringLiteral("asam3_specs.aftertreatment")));
    QVERIFY(openFull());
    QVERIFY(user.chooseFromContextMenu(4, 3, 1, INSERT));
    QVERIFY(user.open(4, 4, 2));
    QVERIFY(user.pickIn(QStringLiteral("specfiles"), QStringLiteral("/specs/asam3_specs.engine")));
    QVERIFY(user.pickIn(QStringLiteral("ecmInstance"), QStringLiteral("ECM1:1")));
    QVERIFY(user.typeNumber(QStringLiteral("extensionNumber"), QStringLiteral("4")));
    QVERIFY(user.endDialog(QStringLiteral("OK")));
    QVERIFY(user.seesErrors(0, 1));
    QVERIFY(saves(savedExample(QStringLiteral("scrib_full")) +
                  "4\t\t/specs/asam3_specs.engine:ECM1:1\n"));
}

void tst_Rows::requiredKeywordsStay_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("news");

    for (const char* const name : {"scribon", "description", "group", "mode", "program", "test_id",
                                   "test_type", "scan_interval"}) {
        const QString keyword = QLatin1String(name);
        QTest::newRow(name)
            << QString(QLatin1Char('@') + keyword.toUpper())
            << QStringLiteral("Unable to remove a required keyword  (%1)").arg(keyword);
    }
}

void tst_Rows::requiredKeywordsStay()
{
    QFETCH(QString, keyword);
    QFETCH(QString, news);
    User& user = *m_user;
    QVERIFY(openFull());
    const SeenTable table = user.table(0);
    QVERIFY(user.select(0, table.rowOf(keyword, 0), 1));
    user.press(QStringLiteral("ctrl+r"));
    QVERIFY(user.waitUntil([&] { return user.news() == news; }));
    QCOMPARE(user.table(0).rows.size(), table.rows.size());
}

void tst_Rows::undoActsOnTheCurrentTab()
{
    User& user = *m_user;
    QVERIFY(openFull());
    const int keywords = user.table(0).rows.size();
    const int entries = user.table(3).rows.size();
    QVERIFY(user.select(0, user.table(0).rowOf(QStringLiteral("@FTP_EVENT"), 0), 1));
    user.press(QStringLiteral("ctrl+r"));
    QVERIFY(hasRows(0, keywords - 1));
    QVERIFY(user.select(3, 1, 1));
    user.press(QStringLiteral("ctrl+r"));
    QVERIFY(hasRows(3, entries - 1));
    user.undo(2);
    QVERIFY(hasRows(3, entries));
    QCOMPARE(user.table(0).rows.size(), keywords - 1);
    QVERIFY(user.goToTab(0));
    user.undo();
    QVERIFY(hasRows(0, keywords));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_Rows)

#include "tst_rows.moc"
