// Creates a new file, replaces each placeholder by a real value, and saves it under another name.

#include "endtoend_test.h"

namespace {

const auto PLACEHOLDERS = QStringLiteral("/specs/scrib_new");
const auto FINISHED = QStringLiteral("/specs/scrib_cell_7");

}  // namespace

class tst_NewFile : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void placeholdersBecomeAFile();

private:
    void makeNewFile();
    void enterKeywords();
    void enterLists();
    bool enterVariable(int row, const QString& variable);
    void saveAs();
};

void tst_NewFile::makeNewFile()
{
    User& user = *m_user;
    QVERIFY(start());
    QCOMPARE(user.title(), QStringLiteral("Scribon Specification Editor:Empty File"));
    user.press(QStringLiteral("ctrl+n"));
    QVERIFY(user.answerFileDialog(PLACEHOLDERS));
    QVERIFY(user.waitUntil([&] { return user.news() == QLatin1String("File loaded"); }));
    QCOMPARE(user.title(), QStringLiteral("Scribon Specification Editor:") + PLACEHOLDERS);
    // Only the placeholder for the name of the task is invalid.
    QVERIFY(user.seesErrors(1, 1));
    QCOMPARE(user.counter(), QStringLiteral("Keyword Errors:"));
}

bool tst_NewFile::enterVariable(int row, const QString& variable)
{
    return m_user->open(0, row, 1) && m_user->typeVariable(variable) &&
           m_user->endDialog(QStringLiteral("Ok")) && m_user->table(0).text(row, 1) == variable;
}

void tst_NewFile::enterKeywords()
{
    User& user = *m_user;
    QVERIFY(user.open({0, QStringLiteral("@SCRIBON"), 0, 1}));
    QCOMPARE(user.editorSelection(), QStringLiteral("<new_scribon>"));
    QVERIFY(user.enter(QStringLiteral("cell_7_log")));
    QVERIFY(user.seesErrors(0, 0));
    QVERIFY(user.open({0, QStringLiteral("@DESCRIPTION"), 0, 1}));
    QVERIFY(user.enter(QStringLiteral("'Night run, cell 7'")));

    const SeenTable table = user.table(0);
    QVERIFY(enterVariable(table.rowOf(QStringLiteral("@GROUP"), 0), QStringLiteral("test_group")));
    QVERIFY(
        enterVariable(table.rowOf(QStringLiteral("@MODE"), 0), QStringLiteral("test_mode_name")));
    QVERIFY(
        enterVariable(table.rowOf(QStringLiteral("@PROGRAM"), 0), QStringLiteral("test_program")));
    QVERIFY(enterVariable(table.rowOf(QStringLiteral("@TEST_ID"), 0), QStringLiteral("test_id")));
    QVERIFY(
        enterVariable(table.rowOf(QStringLiteral("@TEST_TYPE"), 0), QStringLiteral("test_type")));
    // The optional line edit has the focus if the cell holds an interval.
    QVERIFY(enterVariable(table.rowOf(QStringLiteral("@SCAN_INTERVAL"), 0),
                          QStringLiteral("500[msec]")));
}

void tst_NewFile::enterLists()
{
    User& user = *m_user;
    QVERIFY(user.open(1, 1, 1));
    QVERIFY(user.typeVariable(QStringLiteral("oil_temp")));
    QVERIFY(user.endDialog(QStringLiteral("Ok")));
    QVERIFY(user.open(1, 1, 2));
    QVERIFY(user.pick(QStringLiteral(".AV")));
    QVERIFY(user.open(1, 1, 3));
    QVERIFY(user.pick(QStringLiteral("T_OIL_SUMP")));

    QVERIFY(user.open(2, 1, 1));
    QVERIFY(user.pick(QStringLiteral("OPERATOR")));
    QVERIFY(user.open(2, 1, 2));
    QVERIFY(user.typeVariable(QStringLiteral("operator_name")));
    QVERIFY(user.endDialog(QStringLiteral("Ok")));
    QVERIFY(user.seesErrors(0, 0));
}

void tst_NewFile::saveAs()
{
    User& user = *m_user;
    QVERIFY(user.chooseFromMenu(QStringLiteral("File"), QStringLiteral("Save As")));
    QVERIFY(user.answerFileDialog(FINISHED));
    QVERIFY(user.waitUntil([&] { return user.news() == QLatin1String("File saved"); }));
    QCOMPARE(user.title(), QStringLiteral("Scribon Specification Editor:") + FINISHED);
}

void tst_NewFile::placeholdersBecomeAFile()
{
    for (const auto step : {&tst_NewFile::makeNewFile, &tst_NewFile::enterKeywords,
                            &tst_NewFile::enterLists, &tst_NewFile::saveAs}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
    const QByteArray expected =
        "@SCRIBON\ncell_7_log\n\n"
        "@DESCRIPTION\n'Night run, cell 7'\n\n"
        "@GROUP\ntest_group\n\n"
        "@MODE\ntest_mode_name\n\n"
        "@PROGRAM\ntest_program\n\n"
        "@TEST_ID\ntest_id\n\n"
        "@TEST_TYPE\ntest_type\n\n"
        "@SCAN_INTERVAL\n500[msec]\n\n"
        "@SCAN_LIST\noil_temp\t\t.AV\t\tT_OIL_SUMP\n\n"
        "@META_DATA\nOPERATOR\t\toperator_name\n\n"
        "@SCAN_LIST_AUX_USER\n\n"
        "@ECM_LIST\n";
    QCOMPARE(linesOf(readFile(FINISHED)), linesOf(expected));
    QVERIFY(readFile(PLACEHOLDERS).startsWith("@SCRIBON\n<new_scribon>\n\n"));
    m_user->askToClose();
    QVERIFY(m_user->waitForEnd());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_NewFile)

#include "tst_new_file.moc"
