// Checks against the demo cell: what each rule finds in which place, and what it leaves alone.

#include <QtTest>
#include <array>
#include <optional>

#include "cell_check.h"
#include "desk_process.h"
#include "ecmoffers.h"
#include "scribon_keywords.h"
#include "spec_program.h"
#include "value_kinds.h"

namespace {

QString examples()
{
    return qEnvironmentVariable("SCRIBON_EXAMPLES");
}

}  // namespace

class tst_SpecCell : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void findings_data();
    void findings();
    void goodRows_data();
    void goodRows();
    void kindsOfKeywords_data();
    void kindsOfKeywords();
    void lists_data();
    void lists();
    void fileByItsOwnPath();
    void everyKeywordWithAVariableIsTested();
    void cellOfTheFinding();
    void ruleSwitchedOff();
    void withoutACell();

private:
    DeskProcess m_desk;
    std::optional<LiveCell> m_cell;
};

void tst_SpecCell::initTestCase()
{
    QVERIFY(m_desk.start(demoCatalogue()));
    QVERIFY(LiveCell::join());
    m_cell.emplace();
}

// The statements begin at line 9.
void tst_SpecCell::findings_data()
{
    QTest::addColumn<QByteArray>("statements");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const char* statements,
                        std::initializer_list<const char*> findings) {
        QStringList expected;
        for (const char* finding : findings)
            expected.append(QString::fromUtf8(finding));
        QTest::newRow(name) << QByteArray(statements) << expected;
    };
    // clang-format off
    row("unknown variable", "@SCAN_LIST\nengine_revs N_ENG",
        {"10:1 unknown-variable: the test cell has no variable engine_revs"});
    row("misspelt variable", "@SCAN_LIST\neng_sped N_ENG",
        {"10:1 unknown-variable: the test cell has no variable eng_sped Did you mean eng_speed?"});
    row("misspelt alias", "@SCAN_LIST\nengin_speed N_ENG",
        {"10:1 unknown-variable: the test cell has no variable engin_speed Did you mean engine_speed?"});
    row("other case", "@SCAN_LIST\nENG_SPEED N_ENG",
        {"10:1 unknown-variable: the test cell has no variable ENG_SPEED Did you mean eng_speed?"});
    row("variable that is not in use", "@SCAN_LIST\nspare_freq_1 N_ENG",
        {"10:1 unknown-variable: the test cell has no variable spare_freq_1"});
    row("misspelt variable with units", "@SCAN_LIST\neng_sped[NONE] N_ENG",
        {"10:1 unknown-variable: the test cell has no variable eng_sped Did you mean eng_speed?"});
    row("misspelt array", "@SCAN_LIST\ntorque_curv(12) TRQ",
        {"10:1 unknown-variable: the test cell has no variable torque_curv(12) Did you mean torque_curve(12)?"});
    row("misspelt variable with a suffix", "@SCAN_LIST\neng_sped:1:2 N_ENG",
        {"10:1 unknown-variable: the test cell has no variable eng_sped:1:2 Did you mean eng_speed:1:2?"});
    row("misspelt structured variable", "@SCAN_LIST\nintake_air_cmp.H2 T_OIL",
        {"10:1 unknown-variable: the test cell has no variable intake_air_cmp.H2 Did you mean intake_air_comp.H2?"});
    row("variable of meta data", "@META_DATA\nTEST_CELL cel_name",
        {"10:11 unknown-variable: the test cell has no variable cel_name Did you mean cell_name?"});
    row("variable of the aux user list", "@SCAN_LIST_AUX_USER\neng_sped fast",
        {"10:1 unknown-variable: the test cell has no variable eng_sped Did you mean eng_speed?"});
    row("variable of a keyword", "@ENABLE eng_runing",
        {"9:9 unknown-variable: the test cell has no variable eng_runing Did you mean eng_running?"});
    row("nearest of the kind needed", "@ENABLE eng_sped",
        {"9:9 unknown-variable: the test cell has no variable eng_sped"});
    row("name as long as no label", "@SCAN_LIST\n"
        "oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_x T_OIL",
        {"10:1 unknown-variable: the test cell has no variable "
         "oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_oil_temp_x"});

    row("member of a composition", "@SCAN_LIST\nintake_air_comp.XY T_OIL",
        {"10:1 unknown-member: intake_air_comp has no member XY"});
    row("misspelt member", "@SCAN_LIST\nintake_air_comp.H3 T_OIL",
        {"10:1 unknown-member: intake_air_comp has no member H3 Did you mean H2?"});
    row("member of another kind", "@SCAN_LIST\nintake_air_prop.H2 T_OIL",
        {"10:1 unknown-member: intake_air_prop has no member H2 Did you mean HC?"});
    row("member of an emission", "@META_DATA\nREMARK_1 engine_out_emis.CBE_CO3",
        {"10:10 unknown-member: engine_out_emis has no member CBE_CO3 Did you mean CBE_CO2?"});
    row("member of a statistic", "@SCAN_LIST_AUX_USER\neng_speed_stat.QQ fast",
        {"10:1 unknown-member: eng_speed_stat has no member QQ Did you mean QF?"});
    row("member and suffix", "@SCAN_LIST\nintake_air_comp.H3:1 T_OIL",
        {"10:1 unknown-member: intake_air_comp has no member H3 Did you mean H2?"});
    row("member of a plain variable", "@META_DATA\nREMARK_1 eng_speed.AV",
        {"10:10 unknown-member: eng_speed has no members"});
    row("statistical member in the variable's column", "@SCAN_LIST\neng_speed.AV N_ENG",
        {"10:1 unknown-member: eng_speed has no members A statistical member has a column of its own."});
    row("full stop and no member", "@SCAN_LIST\neng_speed. N_ENG",
        {"10:1 unknown-member: eng_speed has no members"});

    row("unknown units", "@SCAN_LIST\neng_speed[NONE] N_ENG",
        {"10:1 unknown-units: the test cell has no units NONE Units that fit: RPM, HZ, RAD/S."});
    row("misspelt units", "@SCAN_LIST\noil_press[KP] P_OIL",
        {"10:1 unknown-units: the test cell has no units KP Did you mean KPA?"});
    row("unknown units of a member", "@SCAN_LIST\nintake_air_comp.H2[NONE] T_OIL",
        {"10:1 unknown-units: the test cell has no units NONE"});
    row("no units in the brackets", "@SCAN_LIST\neng_speed[] N_ENG",
        {"10:1 unknown-units: no units between the brackets"});
    row("open bracket", "@SCAN_LIST\neng_speed[RPM N_ENG",
        {"10:1 unknown-units: no ] behind the units"});
    row("units longer than names of units", "@SCAN_LIST\neng_speed[RPM4567890123456X] N_ENG",
        {"10:1 unknown-units: the test cell has no units RPM4567890123456X Units that fit: RPM, HZ, RAD/S."});
    row("units of another dimension", "@SCAN_LIST\neng_speed[KPA] N_ENG",
        {"10:1 wrong-units: KPA are no units for eng_speed, which is in RPM Units that fit: RPM, HZ, RAD/S."});
    row("units of another dimension, meta data", "@META_DATA\nBORE bore[KPA]",
        {"10:6 wrong-units: KPA are no units for bore, which is in MM Units that fit: MM, UM, CM, M, IN."});
    row("units of another dimension, array", "@SCAN_LIST\ntorque_curve(3)[KPA] TRQ",
        {"10:1 wrong-units: KPA are no units for torque_curve, which is in N-M Units that fit: N-M, FT-LB, IN-LB."});
    row("units of a variable without", "@SCAN_LIST_AUX_USER\neng_running[RPM] runs",
        {"10:1 wrong-units: eng_running has no units"});

    row("unknown channel", "@SCAN_LIST\neng_speed REVS",
        {"10:11 unknown-channel: the test cell has no channel keyword REVS"});
    row("misspelt channel", "@SCAN_LIST\neng_speed .AV NENG",
        {"10:15 unknown-channel: the test cell has no channel keyword NENG Did you mean N_ENG?"});
    row("parameter for a channel", "@SCAN_LIST\neng_speed RATED_SPEED",
        {"10:11 unknown-channel: the test cell has no channel keyword RATED_SPEED"});
    row("channel for other units", "@SCAN_LIST\neng_speed P_OIL",
        {"10:11 wrong-units: P_OIL is not for values in RPM"});
    row("channel for other units of the dimension", "@SCAN_LIST\noil_press P_RAIL",
        {"10:11 wrong-units: P_RAIL is not for values in KPA"});
    row("channel for neither units", "@SCAN_LIST\noil_press[BAR] P_RAIL",
        {"10:16 wrong-units: P_RAIL is not for values in KPA"});
    row("channel for other units, member", "@SCAN_LIST\neng_speed .MX P_OIL",
        {"10:15 wrong-units: P_OIL is not for values in RPM"});

    row("unknown parameter", "@META_DATA\nTEST_PLACE cell_name",
        {"10:1 unknown-parameter: the test cell has no PAM keyword TEST_PLACE"});
    row("misspelt parameter", "@META_DATA\nTEST_CEL cell_name",
        {"10:1 unknown-parameter: the test cell has no PAM keyword TEST_CEL Did you mean TEST_CELL?"});
    row("channel for a parameter", "@META_DATA\nN_ENG cell_name",
        {"10:1 unknown-parameter: the test cell has no PAM keyword N_ENG"});
    row("parameter for other units", "@META_DATA\nBORE@2 eng_speed",
        {"10:1 wrong-units: BORE@2 is not for values in RPM"});
    row("parameter of a text", "@META_DATA\nTEST_CEL 'cell 4'",
        {"10:1 unknown-parameter: the test cell has no PAM keyword TEST_CEL Did you mean TEST_CELL?"});

    row("both cells of a row", "@SCAN_LIST\neng_sped NENG",
        {"10:1 unknown-variable: the test cell has no variable eng_sped Did you mean eng_speed?",
         "10:10 unknown-channel: the test cell has no channel keyword NENG Did you mean N_ENG?"});
    row("variable beside a wrong channel", "@SCAN_LIST\neng_sped N-ENG",
        {"10:1 unknown-variable: the test cell has no variable eng_sped Did you mean eng_speed?"});
    row("channel twice", "@SCAN_LIST\neng_speed REVS\ndyno_speed REVS",
        {"10:11 unknown-channel: the test cell has no channel keyword REVS",
         "11:12 unknown-channel: the test cell has no channel keyword REVS"});
    // clang-format on
}

void tst_SpecCell::findings()
{
    QFETCH(QByteArray, statements);
    QTEST(cellFindings(cellSpec(statements), &*m_cell), "expected");
}

void tst_SpecCell::goodRows_data()
{
    QTest::addColumn<QByteArray>("statements");
    const auto row = [](const char* name, const char* statements) {
        QTest::newRow(name) << QByteArray(statements);
    };
    row("no more than the keywords", "");
    row("variable", "@SCAN_LIST\neng_speed N_ENG");
    row("alias", "@SCAN_LIST\nengine_speed N_ENG");
    row("statistical member", "@SCAN_LIST\neng_speed .AV N_ENG");
    row("array", "@SCAN_LIST\ntorque_curve TRQ");
    row("element of an array", "@SCAN_LIST\ntorque_curve(12) TRQ");
    row("suffix", "@SCAN_LIST\neng_speed:1:2 N_ENG");
    row("structured variable", "@SCAN_LIST\neng_speed_stat. .AV N_ENG");
    row("structured variable without its full stop", "@SCAN_LIST\neng_speed_stat .AV N_ENG");
    row("composition", "@SCAN_LIST\nintake_air_comp.H2 T_OIL");
    row("property", "@SCAN_LIST\nintake_air_prop.AT T_OIL");
    row("emission", "@SCAN_LIST\nengine_out_emis.CBE_CO2 T_OIL");
    row("statistic", "@META_DATA\nREMARK_1 eng_speed_stat.AV");
    row("member in units", "@SCAN_LIST\nintake_air_comp.H2[PPM] T_OIL");
    row("own units", "@SCAN_LIST\neng_speed[RPM] N_ENG");
    row("units of the dimension", "@SCAN_LIST\neng_speed[HZ] N_ENG");
    row("units in lower case", "@SCAN_LIST\neng_speed[hz] N_ENG");
    row("channel for the units asked for", "@SCAN_LIST\noil_press[MPA] P_RAIL");
    row("channel without units", "@SCAN_LIST\neng_speed STATE");
    row("channel without units, others asked for", "@SCAN_LIST\neng_speed[HZ] STATE");
    row("variable without units", "@SCAN_LIST\neng_running P_OIL");
    row("member in other units", "@SCAN_LIST\neng_speed .NM P_OIL");
    row("channel or parameter",
        "@SCAN_LIST\ncell_air_temp T_AMBIENT\n@META_DATA\nP_AMBIENT baro_press");
    row("parameter with a number", "@META_DATA\nBORE@1 bore");
    row("text in quotes", "@META_DATA\nTEST_CELL 'eng_sped'\nREMARK_1 \"eng_sped\"");
    row("alternate name", "@SCAN_LIST_AUX_USER\neng_speed eng_sped");
    row("events", "@START_EVENT eng_sped\n@STOP_EVENT nothing");
    row("registered name", "@REG_NAME eng_sped");
    row("expression", "@FILENAME 'eng_sped + 1'");
    row("path", "@OUTPUT_PATH /data/eng_sped\n@META_HEADER_FILENAME /data/x");
    row("interval", "@RUNNING_AVERAGE 10[sec] eng_sped");
    row("comments",
        "@SCAN_LIST\n# eng_sped NENG\neng_speed N_ENG\n"
        "                                     # eng_sped NENG\n"
        "@META_DATA\n# TEST_CEL eng_sped\n                                     # far "
        "right\n@SCAN_LIST_AUX_USER\n# eng_sped x\n#@ENABLE\n#x");
    row("no value", "@ENABLE\n@SCAN_INTERVAL\n@OUTPUT_PATH\n");
    row("wrong by itself",
        "@ENABLE 5\n@SCAN_LIST\n2nd N-ENG\neng_speed\n"
        "@META_DATA\nTEST-CELL .AV\n@SCAN_LIST_AUX_USER\n'eng_sped' x");
}

void tst_SpecCell::goodRows()
{
    QFETCH(QByteArray, statements);
    QCOMPARE(cellFindings(cellSpec(statements), &*m_cell), QStringList());
}

namespace {

struct KeywordNeed {
    const char* keyword;
    char kind;
    const char* needs;
};

constexpr std::array<KeywordNeed, 10> KEYWORD_NEEDS{{
    {"@ENABLE", 'L', "a logical"},
    {"@LOGGING_ACTIVE_LABEL", 'L', "a logical"},
    {"@GROUP", 'S', "a string"},
    {"@MODE", 'S', "a string"},
    {"@PROGRAM", 'S', "a string"},
    {"@TEST_ID", 'S', "a string"},
    {"@TEST_TYPE", 'S', "a string"},
    {"@OUTPUT_PATH", 'S', "a string"},
    {"@META_HEADER_FILENAME", 'S', "a string"},
    {"@SCAN_INTERVAL", 'I', "an integer"},
}};

struct KindOfVariable {
    const char* text;
    const char* name;
    char kind;
};

// Integers are listed among the integers, but arrays of integers are not.
constexpr std::array<KindOfVariable, 12> KINDS_OF_VARIABLES{{
    {"eng_running", "eng_running", 'L'},
    {"engine_running", "engine_running", 'L'},
    {"mode_enabled(2)", "mode_enabled", 'L'},
    {"cell_name", "cell_name", 'S'},
    {"mode_names(2)", "mode_names", 'S'},
    {"scan_number", "scan_number", 'I'},
    {"mode_order(2)", "mode_order", 'I'},
    {"mode_sequence(2)", "mode_sequence", 'I'},
    {"mode_order", "mode_order", 'A'},
    {"eng_speed", "eng_speed", 'R'},
    {"torque_curve(2)", "torque_curve", 'R'},
    {"eng_speed_stat.AV", "eng_speed_stat", 'T'},
}};

}  // namespace

void tst_SpecCell::kindsOfKeywords_data()
{
    QTest::addColumn<QByteArray>("spec");
    QTest::addColumn<QStringList>("messages");
    for (const KeywordNeed& need : KEYWORD_NEEDS) {
        for (const KindOfVariable& variable : KINDS_OF_VARIABLES) {
            const QByteArray statement = QByteArray(need.keyword) + ' ' + variable.text;
            QStringList messages;
            if (need.kind != variable.kind) {
                messages.append(QStringLiteral("wrong-kind: %1 is not %2 variable, which %3 needs")
                                    .arg(QLatin1String(variable.name), QLatin1String(need.needs),
                                         QLatin1String(need.keyword)));
            }
            QTest::newRow(statement.constData()) << "@SCRIBON kinds\n" + statement + '\n'
                                                 << messages;
        }
    }
}

void tst_SpecCell::kindsOfKeywords()
{
    QFETCH(QByteArray, spec);
    QStringList messages = cellFindings(spec, &*m_cell);
    for (QString& message : messages)
        message = message.section(QLatin1Char(' '), 1);
    QTEST(messages, "messages");
}

void tst_SpecCell::everyKeywordWithAVariableIsTested()
{
    QStringList withVariable;
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        const VariableChoice& choice = valueKind(keyword.editor).choice;
        if (choice.variables != 0 && choice.variables != QT_MARVANE_ANY)
            withVariable.append(QString::fromLatin1(keyword.spelling));
    }
    QStringList tested;
    for (const KeywordNeed& need : KEYWORD_NEEDS)
        tested.append(QString::fromLatin1(need.keyword));
    withVariable.sort();
    tested.sort();
    QCOMPARE(tested, withVariable);
}

// ---- ECM lists ---------------------------------------------------------------------------------

void tst_SpecCell::lists_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("hint");
    const auto row = [](const char* list, const char* hint) {
        QTest::newRow(list) << QByteArray(list) << QString::fromLatin1(hint);
    };
    const char* const offered = nullptr;
    row("/specs/asam3_specs.engine:ECM0:0", offered);
    row("/specs/asam3_specs.engine:ECM1:1", offered);
    row("/specs/hybrid/asam3_specs.drive:BMS0:1", offered);
    row("/specs/asam3_specs.engine:ECM0:2", " Did you mean /specs/asam3_specs.engine:ECM0:0?");
    row("/specs/asam3_specs.engin:ECM0:1", " Did you mean /specs/asam3_specs.engine:ECM0:1?");
    row("/specs/asam3_specs.drive:BMS0:1", "");
    row("/specs/asam3_specs.bad_end:ECM0:0", "");
    row("/data/asam3_specs.engine:ECM0:0", "");
}

void tst_SpecCell::lists()
{
    QFETCH(QByteArray, list);
    QFETCH(QString, hint);
    QStringList expected;
    if (!hint.isNull()) {
        expected.append(
            QStringLiteral("10:3 unknown-list: no asam3_specs file offers the list %1%2")
                .arg(QString::fromLatin1(list), hint));
    }
    const EcmOffers offers(examples());
    const QByteArray spec = cellSpec("@ECM_LIST\n1 " + list + "\n# 2 /x:y:1\n3\n4 /specs/x");
    QCOMPARE(cellFindings(spec, nullptr, &offers), expected);
}

void tst_SpecCell::fileByItsOwnPath()
{
    const EcmOffers offers(examples());
    QVERIFY(offers.has(examples() + QStringLiteral("/asam3_specs.engine:ECM0:0")));
    QVERIFY(EcmOffers(examples() + QStringLiteral("/hybrid/"))
                .has(QStringLiteral("/specs/asam3_specs.drive:INV0:0")));
}

// ---- The findings ------------------------------------------------------------------------------

void tst_SpecCell::cellOfTheFinding()
{
    CheckOptions options;
    options.cell = &*m_cell;
    const SpecFile file = loadedSpec(cellSpec("@SCAN_LIST\n# note\neng_speed .AV NENG"));
    const std::vector<Finding> findings = checkFile(file, options).findings;
    QCOMPARE(findings.size(), size_t{1});
    QCOMPARE(findings[0].cell.tab, int(DE_TAB2));
    QCOMPARE(visibleRow(findings[0].cell), 2);
    QCOMPARE(findings[0].cell.column, int(ScanListTab::CHANNEL));
    QCOMPARE(findings[0].text, QStringLiteral("NENG"));
    QCOMPARE(file.textOf(findings[0].range), QStringLiteral("NENG"));
    QCOMPARE(findings[0].severity, Severity::Error);
}

void tst_SpecCell::ruleSwitchedOff()
{
    CheckOptions options;
    options.cell = &*m_cell;
    options.severities[static_cast<size_t>(Rule::UnknownChannel)] = Severity::Off;
    options.severities[static_cast<size_t>(Rule::UnknownVariable)] = Severity::Warning;
    const SpecFile file = loadedSpec(cellSpec("@SCAN_LIST\neng_sped NENG"));
    const std::vector<Finding> findings = checkFile(file, options).findings;
    QCOMPARE(findings.size(), size_t{1});
    QCOMPARE(findings[0].severity, Severity::Warning);
}

void tst_SpecCell::withoutACell()
{
    const QByteArray spec = cellSpec("@SCAN_LIST\neng_sped NENG\n@ECM_LIST\n1 /specs/x:y:1");
    QCOMPARE(cellFindings(spec, nullptr), QStringList());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCell)
#include "tst_spec_cell.moc"
