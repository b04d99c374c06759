// The statements of the Keywords tab, by kind, and the state of the parse.

#include <QTest>
#include <algorithm>

#include "editor_antlr3.h"
#include "golden_keywords.h"
#include "loaded_text.h"
#include "samples.h"
#include "scribonspecs_state.h"

namespace {

// A statement of each rule, without its keyword, and its tree.
struct StatementTree {
    Statement rule;
    const char* value;
    const char* tree;  // %1 is the keyword's token
};

// clang-format off
constexpr StatementTree STATEMENT_TREES[] = {
    {Statement::String, " my_text", "STRING_DECL [ EDITOR_TAB1, %1 [ TEXT_BLK(my_text) [ FILLER_TXT ] ], FILLER_TXT ]"},
    {Statement::Scans, " 100", "SCANS_DECL [ EDITOR_TAB1, %1 [ DIGITS(100) ], FILLER_TXT ]"},
    {Statement::Label, " my_var", "LABEL_DECL [ EDITOR_TAB1, %1, TEXT_BLK(my_var), FILLER_TXT ]"},
    {Statement::YesNo, " no", "YESNO_DECL [ EDITOR_TAB1, %1 [ RESPNS(no) ], FILLER_TXT ]"},
    {Statement::Event, " my_event", "EVENT_DECL [ EDITOR_TAB1, %1, TEXT_BLK(my_event), FILLER_TXT ]"},
    {Statement::Interval, " 2.5[min]", "INTERVAL_DECL [ EDITOR_TAB1, %1, TIME_INTERVAL(2.5[min]), FILLER_TXT ]"},
    {Statement::Description, " \"some text\"", "DESCRIP_DECL [ EDITOR_TAB1, %1, DESCRIP(\"some text\"), FILLER_TXT ]"},
    {Statement::OutputPath, " /tmp/x", "OUTPUT_PATH_DECL [ EDITOR_TAB1, %1, TEXT_BLK(/tmp/x), FILLER_TXT ]"},
    {Statement::MetaHeaderFilename, " my_header", "META_FILENAME_DECL [ EDITOR_TAB1, %1, TEXT_BLK(my_header) ]"},
    {Statement::RunningAverage, " 30[sec] my_event", "RA_DECL [ EDITOR_TAB1, %1 [ TIME_INTERVAL(30[sec]) [ TEXT_BLK(my_event) ] ] ]"},
    {Statement::OmbraSteadyState, "", "OMBRA_SS_DECL [ EDITOR_TAB1, %1, FILLER_TXT, FILLER_TXT ]"},
    {Statement::ScanList, "", "SCAN_LIST_DECL [ EDITOR_TAB2, %1 [ EOL(\\n), FILLER_TXT, FILLER_TXT, FILLER_TXT ] ]"},
    {Statement::MetaData, "", "META_DATA_LIST_DECL [ EDITOR_TAB3, %1 [ EOL(\\n), FILLER_TXT, FILLER_TXT ] ]"},
    {Statement::AuxUser, "", "SCAN_LIST_AUX_USER_DECL [ EDITOR_TAB4, %1 [ EOL(\\n), FILLER_TXT, FILLER_TXT ] ]"},
    {Statement::EcmList, "", "ECM_LIST_DECL [ EDITOR_TAB5, %1 [ EOL(\\n), FILLER_TXT, FILLER_TXT ] ]"},
};
// clang-format on

const StatementTree& treeOf(Statement rule)
{
    return *std::find_if(std::begin(STATEMENT_TREES), std::end(STATEMENT_TREES),
                         [rule](const StatementTree& row) { return row.rule == rule; });
}

}  // namespace

class tst_Statements : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { free_resources(); }

    void string_data() { addSampleRows(QStringLiteral("statements_string.txt")); }
    void string() { checkSampleRow(); }
    void scans_data() { addSampleRows(QStringLiteral("statements_scans.txt")); }
    void scans() { checkSampleRow(); }
    void metaHeaderFilename_data()
    {
        addSampleRows(QStringLiteral("statements_meta_header_filename.txt"));
    }
    void metaHeaderFilename() { checkSampleRow(); }
    void outputPath_data() { addSampleRows(QStringLiteral("statements_output_path.txt")); }
    void outputPath() { checkSampleRow(); }
    void label_data() { addSampleRows(QStringLiteral("statements_label.txt")); }
    void label() { checkSampleRow(); }
    void event_data() { addSampleRows(QStringLiteral("statements_event.txt")); }
    void event() { checkSampleRow(); }
    void yesno_data() { addSampleRows(QStringLiteral("statements_yesno.txt")); }
    void yesno() { checkSampleRow(); }
    void interval_data() { addSampleRows(QStringLiteral("statements_interval.txt")); }
    void interval() { checkSampleRow(); }
    void runningAverage_data() { addSampleRows(QStringLiteral("statements_running_average.txt")); }
    void runningAverage() { checkSampleRow(); }
    void ombraSteadyState_data()
    {
        addSampleRows(QStringLiteral("statements_ombra_steady_state.txt"));
    }
    void ombraSteadyState() { checkSampleRow(); }
    void description_data() { addSampleRows(QStringLiteral("statements_description.txt")); }
    void description() { checkSampleRow(); }
    void unknown_data() { addSampleRows(QStringLiteral("statements_unknown.txt")); }
    void unknown() { checkSampleRow(); }

    void everyKeyword_data();
    void everyKeyword();
    void stateAfterAStatement_data();
    void stateAfterAStatement();
    void metaHeaderFilenameUsesTheMaskOfTheLastFile();
};

void tst_Statements::everyKeyword_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("tree");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        const StatementTree& statement = treeOf(keyword.statement);
        const QString token = QStringLiteral("%1(%2)").arg(QLatin1String(keyword.tokenName),
                                                           QLatin1String(keyword.spelling));
        QTest::newRow(keyword.spelling) << QByteArray(keyword.spelling) + statement.value + "\n"
                                        << QString::fromLatin1(statement.tree).arg(token);
    }
}

void tst_Statements::everyKeyword()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, tree);
    resetParseState();
    loadText(text);
    QCOMPARE(loadedTree().section(QLatin1Char('\n'), 0, 0), tree);
}

void tst_Statements::stateAfterAStatement_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("statement");
    QTest::addColumn<unsigned>("mask");
    const auto row = [](const char* title, const char* text, int tab, int statement,
                        unsigned mask) {
        QTest::newRow(title) << QByteArray(text) << tab << statement << mask;
    };
    row("a string", "@MODE x\n", 1, 0, 0x40);
    row("a string with an error in it", "@MODE 1e+5\n", 1, 0, 0x40);
    row("a scan count", "@MAX_SCANS 5\n", 1, 0, 0x10);
    row("a scan count with an error in it", "@MAX_SCANS", 1, 0, 0x10);
    row("a header's file name leaves the mask", "@META_HEADER_FILENAME x\n", 1, 0, 0x02);
    row("a header's file name behind another mask", "@MAX_SCANS 5\n@META_HEADER_FILENAME x\n", 1, 0,
        0x10);
    row("an output path", "@OUTPUT_PATH x\n", 1, 0, 0x01);
    row("an output path with an error in it", "@OUTPUT_PATH .AV\n@MODE", 1, 0, 0x40);
    row("a label", "@ENABLE x\n", 1, 0, 0x40);
    row("a label with an error in it", "@ENABLE 1e+5\n", 1, 0, 0x40);
    row("an answer", "@LOG_STATISTICS yes\n", 1, 0, 0x08);
    row("an answer with an error in it", "@LOG_STATISTICS 1e+5\n", 1, 0, 0x08);
    row("an event", "@STOP_EVENT x\n", 1, 0, 0x40);
    row("an event with an error in it", "@STOP_EVENT 1e+5\n", 1, 0, 0x40);
    row("an interval", "@SCAN_INTERVAL 5[sec]\n", 1, 0, 0x20);
    row("an interval with an error in it", "@SCAN_INTERVAL 1e+5\n", 1, 0, 0x20);
    row("a running average", "@RUNNING_AVERAGE 5[sec] x\n", 1, 0, 0);
    row("a running average with an error in it", "@RUNNING_AVERAGE\n@OMBRA_STEADY_STATE\n", 1, 0,
        0);
    row("the steady-state flag", "@OMBRA_STEADY_STATE\n", 1, 0, 0);
    row("a description", "@DESCRIPTION \"x\"\n", 1, 0, 0x04);
    row("a description with an error in it", "@DESCRIPTION\n", 1, 0, 0x04);
    row("an unknown at-word", "@FOO x\n", 1, 0, 0);
    row("stray text", "@MODE x\nword\n", 1, 0, 0);
    row("a comment leaves the mask", "@MODE x\n# c\n", 1, 0, 0x40);
    row("a comment alone", "# c\n", 1, 0, 0x02);
    row("an empty file", "", 1, 0, 0x02);
    row("a scan list without rows", "@SCAN_LIST\n", 2, 0, 0);
    row("a scan list with rows", "@SCAN_LIST\na\n", 2, 0, 0x40);
    row("a stray word behind a scan list", "@SCAN_LIST\na\n5\n", 2, 0, 0);
    row("a comment behind a stray word behind a scan list", "@SCAN_LIST\na\n5 # c\n", 1, 0, 0);
    row("a meta data list stays in progress", "@META_DATA\na b\n", 3, 48, 0x45);
    row("a statement ends a meta data list", "@META_DATA\na b\n@MODE x\n", 1, 0, 0x40);
    row("the steady-state flag ends a meta data list", "@META_DATA\n@OMBRA_STEADY_STATE\n", 1, 0,
        0);
    row("an aux user list stays in progress", "@SCAN_LIST_AUX_USER\na b\n", 4, 59, 0x40);
    row("another list ends an aux user list", "@SCAN_LIST_AUX_USER\n@ECM_LIST\n", 5, 0, 0x50);
    row("an ECM list", "@ECM_LIST\n1 a\n", 5, 0, 0x50);
}

void tst_Statements::stateAfterAStatement()
{
    QFETCH(QByteArray, text);
    QFETCH(int, tab);
    QFETCH(int, statement);
    QFETCH(unsigned, mask);
    resetParseState();
    und_mask = 0x02;
    ecm_init = 7;
    ecml_rules = 7;
    loadText(text);
    QCOMPARE(ctab, tab);
    QCOMPARE(ecm_init, statement);
    QCOMPARE(und_mask, mask);
    QCOMPARE(ecml_rules, 0);
}

void tst_Statements::metaHeaderFilenameUsesTheMaskOfTheLastFile()
{
    const QByteArray text("@META_HEADER_FILENAME my_header");
    resetParseState();
    loadText("@MODE x\n");
    loadText(text);
    QVERIFY(loadedTree().contains(QStringLiteral("TEXT_BLK(my_header)")));
    loadText("@OUTPUT_PATH x\n");
    loadText(text);
    QVERIFY(!loadedTree().contains(QStringLiteral("TEXT_BLK(my_header)")));
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_Statements)
#include "tst_statements.moc"
