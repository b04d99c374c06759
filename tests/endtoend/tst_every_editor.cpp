// Edits each kind of cell in the full example, with some undo and redo, and checks the saved file.

#include <array>
#include <initializer_list>

#include "endtoend_test.h"
#include "golden_keywords.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_full");
const auto OK = QStringLiteral("Ok");

CellName keywordCell(const char* keyword, int column = 1)
{
    return {0, QLatin1String(keyword), 0, column};
}

}  // namespace

class tst_EveryEditor : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void everyKindOfEditor();
    void editorsOpenOnTheValue_data();
    void editorsOpenOnTheValue();
    void leavingAnEditorStoresTheText();
    void validationKeepsTheTextOfAnOpenEditor();
    void ecmDialogCanBeUsedByKeyboard();
    void cancelledDialogsChangeNothing_data();
    void cancelledDialogsChangeNothing();
    void everyKeywordIsOfferedOnce();

private:
    bool openFull();
    void editLinesOfKeywords();
    void editChoicesOfKeywords();
    void editVariablesOfKeywords();
    void editScanList();
    void editMetaData();
    void editAuxUser();
    void editEcmList();
    void undoAndRedo();
    QByteArray expectedFile() const;
    bool line(const CellName& cell, const char* text);
    bool choice(const CellName& cell, const char* item);
    bool variable(const CellName& cell, const char* name);
    bool has(int tab, const char* text, int column);
};

bool tst_EveryEditor::openFull()
{
    for (const char* const name : {"scrib_full", "asam3_specs.engine", "asam3_specs.aftertreatment",
                                   "hybrid/asam3_specs.drive"}) {
        if (!provide(QLatin1String(name)))
            return false;
    }
    return start({FILE_NAME}) && m_user->seesErrors(1, 1);
}

bool tst_EveryEditor::line(const CellName& cell, const char* text)
{
    return m_user->open(cell) && m_user->enter(QLatin1String(text));
}

bool tst_EveryEditor::choice(const CellName& cell, const char* item)
{
    return m_user->open(cell) && m_user->pick(QLatin1String(item));
}

bool tst_EveryEditor::variable(const CellName& cell, const char* name)
{
    return m_user->open(cell) && m_user->typeVariable(QLatin1String(name)) && m_user->endDialog(OK);
}

bool tst_EveryEditor::has(int tab, const char* text, int column)
{
    return m_user->waitUntil(
        [=] { return m_user->table(tab).rowOf(QLatin1String(text), column) != -1; });
}

void tst_EveryEditor::editLinesOfKeywords()
{
    QVERIFY(line(keywordCell("@SCRIBON"), "cell_5_full_log"));
    QVERIFY(line(keywordCell("@DESCRIPTION"), "'Part load, cell 5'"));
    QVERIFY(line(keywordCell("@REG_NAME"), "scribon_cell_5"));
    QVERIFY(line(keywordCell("@MAX_SCANS"), "36000"));
    QVERIFY(line(keywordCell("@RUNNING_AVERAGE"), "15[sec]"));
    QVERIFY(line(keywordCell("@RUNNING_AVERAGE", 2), "trend_request"));
    QVERIFY(line(keywordCell("@START_EVENT"), "start_part_load"));
    QVERIFY(line(keywordCell("@FIFO_POST_TRIGGER_INTERVAL"), "90[sec]"));
    QVERIFY(line(keywordCell("@FILENAME"), "\"output_file + '.csv'\""));
    QVERIFY(line({0, QStringLiteral("# The output file"), 0, 0}, "# The file on the server"));
}

// A keyword is offered again when its row was removed.
void tst_EveryEditor::editChoicesOfKeywords()
{
    User& user = *m_user;
    const int row = user.table(0).rowOf(QStringLiteral("@FIFO_POST_TRIGGER_SCANS"), 0);
    QVERIFY(user.select(0, row, 0));
    user.press(QStringLiteral("ctrl+r"));
    QVERIFY(user.waitUntil(
        [&] { return user.table(0).rowOf(QStringLiteral("@FIFO_POST_TRIGGER_SCANS"), 0) == -1; }));
    QVERIFY(choice(keywordCell("@MAX_STATISTICAL_SCANS", 0), "fifo_post_trigger_scans"));
    QVERIFY(choice(keywordCell("@LOG_STATISTICS"), "no"));
    QVERIFY(choice(keywordCell("@SEND_ON_PATH_CHANGE"), "no"));
}

void tst_EveryEditor::editVariablesOfKeywords()
{
    User& user = *m_user;
    QVERIFY(variable(keywordCell("@GROUP"), "test_purpose"));
    QVERIFY(variable(keywordCell("@ENABLE"), "eng_running"));
    QVERIFY(variable(keywordCell("@SCAN_INTERVAL"), "250[msec]"));
    QVERIFY(variable(keywordCell("@OUTPUT_PATH"), "/data/cell_5/part_load"));
    QVERIFY(user.open(keywordCell("@PROGRAM")));
    QVERIFY(user.pickIn(QStringLiteral("variableComboBox"), QStringLiteral("schedule_name")));
    QVERIFY(user.endDialog(OK));
    QVERIFY(user.seesErrors(1, 1));
}

void tst_EveryEditor::editScanList()
{
    User& user = *m_user;
    QVERIFY(user.open({1, QStringLiteral("T_OIL"), 3, 1}));
    QVERIFY(user.pickIn(QStringLiteral("unitsComboBox"), QStringLiteral("K")));
    QVERIFY(user.endDialog(OK));
    QVERIFY(has(1, "oil_temp[K]", 1));
    QVERIFY(user.open({1, QStringLiteral("PWR_CORR"), 3, 1}));
    QVERIFY(user.typeVariable(QStringLiteral("brake_power_stat.")));
    QVERIFY(user.pickIn(QStringLiteral("subComboBox"), QStringLiteral("MX")));
    QVERIFY(user.endDialog(OK));
    QVERIFY(choice({1, QStringLiteral("P_OIL"), 3, 2}, ".AV"));
    QVERIFY(choice({1, QStringLiteral("T_COOL_IN"), 3, 3}, "T_OIL_SUMP"));
    QVERIFY(line({1, QStringLiteral("P_BOOST"), 3, 3}, "P_OF_MY_OWN"));
    QVERIFY(user.seesErrors(0, 1));
}

void tst_EveryEditor::editMetaData()
{
    User& user = *m_user;
    QVERIFY(choice({2, QStringLiteral("operator_name"), 2, 1}, "ENGINEER"));
    QVERIFY(variable({2, QStringLiteral("TEST_TITLE"), 1, 2}, "\"Part load\""));
    QVERIFY(variable({2, QStringLiteral("RATED_SPEED"), 1, 2}, "high_idle_speed"));
    QVERIFY(user.open({2, QStringLiteral("STROKE"), 1, 2}));
    QVERIFY(user.pickIn(QStringLiteral("unitsComboBox"), QStringLiteral("CM")));
    QVERIFY(user.endDialog(OK));
    QVERIFY(has(2, "stroke[CM]", 2));
    QVERIFY(user.seesErrors(0, 1));
}

void tst_EveryEditor::editAuxUser()
{
    QVERIFY(line({3, QStringLiteral("boost_press"), 1, 2}, "manifold_pressure"));
    QVERIFY(variable({3, QStringLiteral("nox_stack"), 2, 1}, "nox_in"));
    QVERIFY(m_user->seesErrors(0, 1));
}

void tst_EveryEditor::editEcmList()
{
    User& user = *m_user;
    QVERIFY(user.open({4, QStringLiteral("2"), 1, 2}));
    QVERIFY(user.pickIn(QStringLiteral("specfiles"),
                        QStringLiteral("/specs/hybrid/asam3_specs.drive")));
    QVERIFY(user.pickIn(QStringLiteral("ecmInstance"), QStringLiteral("BMS0:1")));
    QVERIFY(user.typeNumber(QStringLiteral("extensionNumber"), QStringLiteral("17")));
    QVERIFY(user.endDialog(QStringLiteral("OK")));
    QVERIFY(has(4, "17", 1));
    QVERIFY(line({4, QStringLiteral("1"), 1, 1}, "# The engine's own list is not needed"));
    QVERIFY(user.seesErrors(0, 1));
}

// Undoes the last two edits on each of two tabs, and redoes the first.
void tst_EveryEditor::undoAndRedo()
{
    User& user = *m_user;
    QVERIFY(user.goToTab(2));
    user.undo(2);
    QVERIFY(has(2, "rated_speed", 2) && has(2, "stroke[MM]", 2));
    user.redo();
    QVERIFY(has(2, "high_idle_speed", 2));
    QVERIFY(user.goToTab(3));
    user.undo(2);
    QVERIFY(has(3, "nox_out", 1) && has(3, "manifold_boost", 2));
    user.redo();
    QVERIFY(has(3, "manifold_pressure", 2));
}

QByteArray tst_EveryEditor::expectedFile() const
{
    QByteArray text = savedExample(QStringLiteral("scrib_full"));
    const std::initializer_list<std::array<const char*, 2>> edits{
        {"cell_4_full_log", "cell_5_full_log"},
        {"'Full load curve, cell 4: every channel that the report needs'", "'Part load, cell 5'"},
        {"scribon_cell_4", "scribon_cell_5"},
        {"@GROUP\ntest_group", "@GROUP\ntest_purpose"},
        {"@PROGRAM\ntest_program", "@PROGRAM\nschedule_name"},
        {"0.5[sec]", "250[msec]"},
        {"72000", "36000"},
        {"30[sec]\t\tsnapshot_request", "15[sec]\t\ttrend_request"},
        {"logging_enable", "eng_running"},
        {"start_log", "start_part_load"},
        {"@LOG_STATISTICS\nyes", "@LOG_STATISTICS\nno"},
        {"\n@FIFO_POST_TRIGGER_SCANS\n300\n", ""},
        {"@MAX_STATISTICAL_SCANS", "@FIFO_POST_TRIGGER_SCANS"},
        {"2.5[min]", "90[sec]"},
        {"# The output file", "# The file on the server"},
        {"/data/cell_4/full_load", "/data/cell_5/part_load"},
        {"\"output_file + log_file_number\"", "\"output_file + '.csv'\""},
        {"@SEND_ON_PATH_CHANGE\nYES", "@SEND_ON_PATH_CHANGE\nno"},
        {"oil_temp\t", "oil_temp[K]\t"},
        {"corrected_power\t\t", "brake_power_stat.\t\t.MX\t\t"},
        {"oil_press\t\t.MN", "oil_press\t\t.AV"},
        {"T_COOL_IN", "T_OIL_SUMP"},
        {"P_BOOST", "P_OF_MY_OWN"},
        {"OPERATOR\t", "ENGINEER\t"},
        {"'Full load curve'", "\"Part load\""},
        {"\trated_speed", "\thigh_idle_speed"},
        {"manifold_boost", "manifold_pressure"},
        {"1\t\t/specs/asam3_specs.engine:ECM0:0", "# The engine's own list is not needed"},
        {"2\t\t/specs/asam3_specs.engine:ECM0:1", "17\t\t/specs/hybrid/asam3_specs.drive:BMS0:1"}};
    for (const auto& edit : edits)
        text.replace(edit[0], edit[1]);
    return text;
}

void tst_EveryEditor::everyKindOfEditor()
{
    QVERIFY(openFull());
    for (const auto step :
         {&tst_EveryEditor::editLinesOfKeywords, &tst_EveryEditor::editChoicesOfKeywords,
          &tst_EveryEditor::editVariablesOfKeywords, &tst_EveryEditor::editScanList,
          &tst_EveryEditor::editMetaData, &tst_EveryEditor::editAuxUser,
          &tst_EveryEditor::editEcmList, &tst_EveryEditor::undoAndRedo}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
    m_user->press(QStringLiteral("ctrl+s"));
    QVERIFY(m_user->waitUntil([&] { return m_user->news() == QLatin1String("File saved"); }));
    QCOMPARE(linesOf(readFile(FILE_NAME)), linesOf(expectedFile()));
}

void tst_EveryEditor::editorsOpenOnTheValue_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("rowText");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char* name, int tab, const char* rowText, int column,
                        const char* shown) {
        QTest::newRow(name) << tab << QString(QLatin1String(rowText)) << column
                            << QString(QLatin1String(shown));
    };
    row("keyword", 0, "@START_EVENT", 0, "start_event");
    row("comment", 0, "# When", 0, "# When");
    row("line", 0, "@START_EVENT", 1, "start_log");
    row("number", 0, "@MAX_SCANS", 1, "72000");
    row("second value", 0, "@RUNNING_AVERAGE", 2, "snapshot_request");
    row("string variable", 0, "@GROUP", 1, "test_group");
    row("logical variable", 0, "@ENABLE", 1, "logging_enable");
    row("interval", 0, "@SCAN_INTERVAL", 1, "0.5[sec]");
    row("path", 0, "@OUTPUT_PATH", 1, "/data/cell_4/full_load");
    row("any variable", 1, "boost_press", 1, "boost_press");
    row("member", 1, "oil_press", 2, ".MN");
    row("channel keyword", 1, "boost_press", 3, "P_BOOST");
    row("parameter keyword", 2, "OPERATOR", 1, "OPERATOR");
    row("variable of the meta data", 2, "OPERATOR", 2, "operator_name");
    row("literal", 2, "TEST_TITLE", 2, "'Full load curve'");
    row("variable of the aux user", 3, "nox_out", 1, "nox_out");
    row("alternate name", 3, "nox_out", 2, "nox_stack");
    row("number of an ECM list", 4, "3", 1, "3");
}

// The whole text is selected, so that typing replaces it.
void tst_EveryEditor::editorsOpenOnTheValue()
{
    QFETCH(int, tab);
    QFETCH(QString, rowText);
    QFETCH(int, column);
    QFETCH(QString, shown);
    User& user = *m_user;
    QVERIFY(openFull());
    const SeenTable before = user.table(tab);
    const int row = before.rowOf(rowText, tab == 0 ? 0 : 1);
    QVERIFY(user.open(tab, row, column));
    QCOMPARE(user.editorText(), shown);
    QCOMPARE(user.editorSelection(), shown);
    const QString typed = QLatin1String(shown.toInt() > 0 ? "7" : "x");
    user.type(typed);
    QVERIFY(user.waitUntil([&] { return user.editorText() == typed; }));
    QCOMPARE(user.table(tab).rowTexts(row), before.rowTexts(row));
}

void tst_EveryEditor::leavingAnEditorStoresTheText()
{
    User& user = *m_user;
    QVERIFY(openFull());
    QVERIFY(user.open(keywordCell("@STOP_EVENT")));
    user.type(QStringLiteral("stop_by_hand"));
    QVERIFY(user.waitUntil([&] { return user.editorText() == QLatin1String("stop_by_hand"); }));
    QVERIFY(user.open(keywordCell("@MAX_SCANS")));
    QVERIFY(has(0, "stop_by_hand", 1));
    user.type(QStringLiteral("123"));
    QVERIFY(user.waitUntil([&] { return user.editorText() == QLatin1String("123"); }));
    QVERIFY(user.open({0, QStringLiteral("# When"), 0, 0}));
    QVERIFY(has(0, "123", 1));
    user.type(QStringLiteral("# Then"));
    QVERIFY(user.waitUntil([&] { return user.editorText() == QLatin1String("# Then"); }));
    QVERIFY(user.goToTab(1));
    QVERIFY(has(0, "# Then", 0));
}

// Typing marks the cell. The next validation of the tab clears the mark, since the cell still has
// its old text.
void tst_EveryEditor::validationKeepsTheTextOfAnOpenEditor()
{
    User& user = *m_user;
    QVERIFY(openFull());
    const int row = user.table(0).rowOf(QStringLiteral("@STOP_EVENT"), 0);
    QVERIFY(user.open(0, row, 1));
    for (const char* const text : {"no-event", "no event"}) {
        user.press(QStringLiteral("ctrl+a"));
        user.type(QLatin1String(text));
        QVERIFY(user.waitUntil([&] { return user.editorText() == QLatin1String(text); }));
        QVERIFY(user.waitUntil([&] { return user.table(0).rows[row][1].code == 0; }));
        QCOMPARE(user.editorText(), QLatin1String(text));
    }
    user.press(QStringLiteral("Return"));
    QVERIFY(has(0, "no event", 1));
    QVERIFY(user.seesErrors(2, 2));
}

void tst_EveryEditor::ecmDialogCanBeUsedByKeyboard()
{
    User& user = *m_user;
    QVERIFY(openFull());
    QVERIFY(user.open({4, QStringLiteral("3"), 1, 2}));
    const auto file = QStringLiteral("/specs/asam3_specs.aftertreatment");
    QVERIFY(user.waitUntil([&] { return user.editorText() == file; }));
    user.press(QStringLiteral("Down"));
    QVERIFY(user.waitUntil(
        [&] { return user.editorText() == QLatin1String("/specs/asam3_specs.engine"); }));
    // Tabs over the spin box and the combo box to the button.
    for (const char* const key : {"Tab", "Tab", "Tab", "space"})
        user.press(QLatin1String(key));
    QVERIFY(has(4, "/specs/asam3_specs.engine:ECM0:0", 2));
    QVERIFY(user.waitUntil([&] {
        return user.table(4).text(3, 2) == QLatin1String("/specs/asam3_specs.engine:ECM0:0");
    }));
    QVERIFY(user.seesErrors(1, 2));
}

void tst_EveryEditor::cancelledDialogsChangeNothing_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("rowText");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("byKey");

    QTest::newRow("variable, Cancel") << 1 << QStringLiteral("boost_press") << 1 << false;
    QTest::newRow("variable, Escape") << 1 << QStringLiteral("boost_press") << 1 << true;
    QTest::newRow("ECM list, Cancel") << 4 << QStringLiteral("2") << 2 << false;
    QTest::newRow("ECM list, Escape") << 4 << QStringLiteral("2") << 2 << true;
}

void tst_EveryEditor::cancelledDialogsChangeNothing()
{
    QFETCH(int, tab);
    QFETCH(QString, rowText);
    QFETCH(int, column);
    QFETCH(bool, byKey);
    User& user = *m_user;
    QVERIFY(openFull());
    const SeenTable before = user.table(tab);
    const int row = before.rowOf(rowText, 1);
    QVERIFY(user.open(tab, row, column));
    if (tab == 1)
        QVERIFY(user.typeVariable(QStringLiteral("oil_flow")));
    else
        QVERIFY(user.pickIn(QStringLiteral("ecmInstance"), QStringLiteral("ECM1:1")));
    // Return does not close a dialog.
    user.press(QStringLiteral("Return"));
    if (byKey) {
        user.press(QStringLiteral("Escape"));
        QVERIFY(user.waitUntil([&] { return !user.isEditing(); }));
    } else {
        QVERIFY(user.endDialog(QStringLiteral("Cancel")));
    }
    QCOMPARE(user.table(tab).rowTexts(row), before.rowTexts(row));
    user.askToClose();
    QVERIFY(user.waitForEnd());
}

// Keywords of other rows are not offered; the row's own is the current item. The example has the
// required keywords.
void tst_EveryEditor::everyKeywordIsOfferedOnce()
{
    User& user = *m_user;
    QVERIFY(provide(QStringLiteral("scrib_small")));
    QVERIFY(start({QStringLiteral("/specs/scrib_small")}));
    QVERIFY(user.open(keywordCell("@SCAN_INTERVAL", 0)));
    user.press(QStringLiteral("alt+Down"));
    QVERIFY(user.waitUntil([&] { return !user.offered().isEmpty(); }));
    const QStringList offered = user.offered();
    QCOMPARE(offered.size(), countKeywords(isOffered) - countKeywords(isRequiredStatement) + 1);
    QVERIFY(offered.contains(QStringLiteral("scan_interval")));
    QVERIFY(!offered.contains(QStringLiteral("test_id")));
    user.press(QStringLiteral("Home"));
    user.press(QStringLiteral("Return"));
    QVERIFY(user.waitUntil(
        [&] { return user.table(0).rowOf(QStringLiteral("@CLEAR_STATISTICS_EVENT"), 0) != -1; }));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_EveryEditor)

#include "tst_every_editor.moc"
