// Checks the example files: they load or are refused, have the expected rows and errors, and saving
// does not change them.

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <array>

#include "documents.h"
#include "golden_keywords.h"
#include "spec_generator.h"

namespace {

constexpr int NO_SPEC_FILE = -2;

struct Example {
    const char* name;
    QList<int> rows;    // for each tab; empty for a file that is refused
    QList<int> errors;  // of each tab
};

const QList<int> NO_ERRORS{0, 0, 0, 0, 0};

const QList<Example>& examples()
{
    constexpr int COMMENTS_OF_FULL = 8;
    constexpr int FULL = countKeywords(isStatement) + COMMENTS_OF_FULL;
    constexpr int OFFERED = countKeywords(isOffered);
    constexpr int REQUIRED = countKeywords(isRequiredStatement);
    // clang-format off
    static const QList<Example> EXAMPLES{
        {"scrib_small",           {REQUIRED, 4, 1, 1, 1}, NO_ERRORS},
        {"scrib_full",            {FULL, 36, 14,  6,  4}, {1, 0, 0, 0, 0}},
        {"scrib_commented",       {36,   22,  9,  5,  4}, NO_ERRORS},
        {"scrib_crlf",            {13,   10,  4,  2,  2}, NO_ERRORS},
        {"scrib_broken",          {36,   17, 12,  9, 16}, {19, 7, 5, 4, 7}},
        {"scrib_large",           {OFFERED, 3201, 61, 97, 41}, NO_ERRORS},
        {"scrib_engine_mapping",  {20,   39, 16,  3,  1}, NO_ERRORS},
        {"scrib_transient_fifo",  {23,   32,  6,  1,  1}, NO_ERRORS},
        {"scrib_event_triggered", {20,   20,  8,  1,  1}, NO_ERRORS},
        {"scrib_ecm",             {12,   10,  4,  5, 17}, NO_ERRORS},
        {"scrib_handwritten",     {12,    8,  4,  2,  1}, NO_ERRORS},
        {"scrib_refused_order",   {}, {}},
        {"scrib_refused_notes",   {}, {}},
        {"scrib_refused_number",  {}, {}},
    };
    // clang-format on
    return EXAMPLES;
}

void addExampleRows(bool (*wanted)(const Example&))
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<QList<int>>("errors");
    for (const Example& example : examples()) {
        if (wanted(example))
            QTest::newRow(example.name)
                << QString::fromLatin1(example.name) << example.rows << example.errors;
    }
}

bool loads(const Example& example)
{
    return !example.rows.isEmpty();
}

// Whether saving and loading again does not change the file. A file with wrong values may grow with
// each load.
bool staysTheSame(const Example& example)
{
    return loads(example) && qstrcmp(example.name, "scrib_broken") != 0;
}

bool isHandmade(const Example& example)
{
    return staysTheSame(example) && qstrcmp(example.name, "scrib_large") != 0;
}

// ---- Mending ------------------------------------------------------------------------------------

// The correction for a marked cell; without a new text the row is removed.
struct Correction {
    int tab;
    const char* row;
    int column;
    const char* newText;
};

// clang-format off
constexpr std::array<Correction, 42> CORRECTIONS{{
    {EDIT_TAB1, "# This comment is too long: a comment has at most eighty characters, its number sign included", 0, "# This comment is short enough"},
    {EDIT_TAB1, "@SCRIBON | cell-4-broken", 1, "cell_4_mended"},
    {EDIT_TAB1, "@DESCRIPTION | Unquoted", 1, "'Quoted'"},
    {EDIT_TAB1, "@GROUP | 7th_group", 1, "test_group"},
    {EDIT_TAB1, "@PROGRAM | 'not a text but a variable'", 1, "test_program"},
    {EDIT_TAB1, "@SCAN_INTERVAL | 10[day]", 1, "10[sec]"},
    {EDIT_TAB1, "@MAX_SCANS | plenty", 1, "1000"},
    {EDIT_TAB1, "@MAX_STATISTICAL_SCANS | 300", 0, nullptr},
    {EDIT_TAB1, "@LOG_STATISTICS | maybe", 1, "yes"},
    {EDIT_TAB1, "@START_EVENT | start-log", 1, "start_log"},
    {EDIT_TAB1, "@RUNNING_AVERAGE | 30[sec] | take-it", 2, "snapshot_request"},
    {EDIT_TAB1, "@ENABLE | 5", 1, "logging_enable"},
    {EDIT_TAB1, "5", 0, nullptr},
    {EDIT_TAB1, "@FIFO_POST_TRIGGER_INTERVAL | 2", 1, "2[min]"},
    {EDIT_TAB1, "@OUTPUT_PATH | /data/cell-4/broken", 1, "/data/cell_4/mended"},
    {EDIT_TAB1, "@FILENAME | output_file", 1, "'output_file'"},
    {EDIT_TAB1, "UNKNOWN_KEYWORD", 0, nullptr},
    {EDIT_TAB1, "forgotten", 0, "@REG_NAME"},
    {EDIT_TAB1, "@META_HEADER_FILENAME | /data/cell_4/meta_header.txt", 0, nullptr},
    {EDIT_TAB2, "oil_temp", 3, "T_OIL_SUMP"},
    {EDIT_TAB2, "boost_press | P_OIL", 3, "P_BOOST"},
    {EDIT_TAB2, "2nd_oil_press | P_OIL_2", 1, "second_oil_press"},
    {EDIT_TAB2, "brake_torque | .av", 3, "TRQ_AVG"},
    {EDIT_TAB2, "TRQ", 0, nullptr},
    {EDIT_TAB2, "brake_power | PWR-CORR", 3, "PWR_CORR"},
    {EDIT_TAB2, "T_OIL", 1, "oil_temp"},
    {EDIT_TAB3, "OPERATOR | engineer_name", 1, "ENGINEER"},
    {EDIT_TAB3, "ENGINE-SERIAL | eng_serial_no", 1, "ENGINE_SERIAL"},
    {EDIT_TAB3, "ENGINE_BUILD | .AV", 2, "eng_build"},
    {EDIT_TAB3, "FUEL_NAME | 'Lot #7'", 2, "'Lot 7'"},
    {EDIT_TAB3, "BORE | 4.5", 2, "bore[MM]"},
    {EDIT_TAB4, "brake_torque", 2, "shaft_torque"},
    {EDIT_TAB4, "fuel_flow | crank_speed", 2, "fuel_rate"},
    {EDIT_TAB4, "'boost press' | manifold_boost", 1, "boost_press"},
    {EDIT_TAB4, "nox_out | 2nd_nox", 2, "second_nox"},
    {EDIT_TAB5, "1 | /specs/asam3_specs.engine:ECM0:1", 1, "8"},
    {EDIT_TAB5, "2 | /specs/asam3_specs.engine:ECM0:0", 2, "/specs/asam3_specs.engine:ECM2:0"},
    {EDIT_TAB5, "/specs/asam3_specs.engine:ECM1:0", 1, "3"},
    {EDIT_TAB5, "4", 0, nullptr},
    {EDIT_TAB5, "five | /specs/asam3_specs.engine:ECM1:1", 1, "5"},
    {EDIT_TAB5, "6 | /specs/asam3_specs.aftertreatment:ACM0", 2, "/specs/asam3_specs.aftertreatment:ACM0:0"},
    {EDIT_TAB5, "7 | /specs/asam3_specs.aftertreatment", 2, "/specs/asam3_specs.aftertreatment:ACM0:1"},
}};
// clang-format on

// The first marked cell.
QModelIndex firstMark(const TreeModel& tab)
{
    for (int row = 0; row < tab.rowCount(); ++row) {
        for (int column = 0; column < tab.columnCount(); ++column) {
            const QModelIndex index = tab.index(row, column);
            if (tab.errorCode(index).toInt() > 0)
                return index;
        }
    }
    return {};
}

const Correction* correctionOf(int tab, const QString& row)
{
    for (const Correction& correction : CORRECTIONS) {
        if (correction.tab == tab && row == QLatin1String(correction.row))
            return &correction;
    }
    return nullptr;
}

bool apply(const Correction& correction, TreeModel* tab, const QModelIndex& mark)
{
    if (correction.newText == nullptr)
        return tab->removeRows(mark.row(), 1);
    // A cell that was never assigned a text cannot be edited.
    return mark.column() == correction.column && mark.data(Qt::EditRole).isValid() &&
           tab->setData(mark, QString::fromLatin1(correction.newText));
}

// ---- The catalogue ------------------------------------------------------------------------------

void collectNames(const QJsonValue& value, QSet<QString>* names)
{
    const QJsonArray items = value.toArray();
    for (const QJsonValue& item : items)
        collectNames(item, names);
    const QJsonObject members = value.toObject();
    for (const QJsonValue& member : members)
        collectNames(member, names);
    for (const char* key : {"label", "alias", "name"})
        names->insert(members.value(QLatin1String(key)).toString());
}

QSet<QString> catalogueNames()
{
    QJsonParseError error{};
    const auto document =
        QJsonDocument::fromJson(example(QStringLiteral("catalogue.json")), &error);
    if (error.error != QJsonParseError::NoError)
        qFatal("catalogue.json: %s", qPrintable(error.errorString()));
    QSet<QString> names;
    collectNames(document.object(), &names);
    return names;
}

bool isName(const QString& text)
{
    return !text.isEmpty() && !text.startsWith(QLatin1Char('#')) &&
           !text.startsWith(QLatin1Char('\'')) && !text.startsWith(QLatin1Char('"'));
}

// The name without units and index.
QString bareName(const QString& text)
{
    return text.section(QRegularExpression(QStringLiteral("[\\[(]")), 0, 0);
}

QSet<QString> namesInColumn(const TreeModel& tab, int column)
{
    QSet<QString> names;
    for (int row = 1; row < tab.rowCount(); ++row) {
        const QString text = cell(tab, row, column);
        if (isName(cell(tab, row, 1)) && isName(text))
            names.insert(bareName(text));
    }
    return names;
}

QStringList namesNotIn(const QSet<QString>& known, const QSet<QString>& names)
{
    QStringList unknown;
    for (const QString& name : names) {
        if (!known.contains(name))
            unknown.append(name);
    }
    return unknown;
}

}  // namespace

class TestExamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFileIsTested();
    void readmeNamesEveryFile();
    void loadsOrIsRefused_data();
    void loadsOrIsRefused();
    void rowsAndErrors_data();
    void rowsAndErrors();
    void keepsEveryStatementWhenSaved_data();
    void keepsEveryStatementWhenSaved();
    void savesTheSameTextEachTime_data();
    void savesTheSameTextEachTime();
    void namesAreInTheCatalogue_data();
    void namesAreInTheCatalogue();
    void fullHasEveryKeyword();
    void everyLineOfCrlfEndsWithCrlf();
    void crlfHasTheRowsOfPlainLineEnds();
    void largeComesFromTheGenerator();
    void brokenHasEveryErrorCodeInEveryTab();
    void brokenGrowsWithEachLoad();
    void brokenIsValidAfterItsCorrections();
};

void TestExamples::everyFileIsTested()
{
    const QDir folder(qEnvironmentVariable("SCRIBON_EXAMPLES"));
    QStringList tested;
    for (const Example& example : examples())
        tested.append(QString::fromLatin1(example.name));
    tested.sort();
    QCOMPARE(folder.entryList({QStringLiteral("scrib*")}, QDir::Files, QDir::Name), tested);
}

void TestExamples::readmeNamesEveryFile()
{
    const QByteArray readme = example(QStringLiteral("README.md"));
    for (const Example& example : examples())
        QVERIFY2(readme.contains(QByteArray("| `") + example.name + "` |"), example.name);
}

void TestExamples::loadsOrIsRefused_data()
{
    addExampleRows([](const Example&) { return true; });
}

void TestExamples::loadsOrIsRefused()
{
    QFETCH(QString, name);
    QFETCH(QList<int>, rows);
    QCOMPARE(Document(example(name)).verdict, rows.isEmpty() ? NO_SPEC_FILE : 0);
}

void TestExamples::rowsAndErrors_data()
{
    addExampleRows(loads);
}

void TestExamples::rowsAndErrors()
{
    QFETCH(QString, name);
    const Document document(example(name));
    QTEST(document.rowCounts(), "rows");
    QTEST(document.errorCounts(), "errors");
}

void TestExamples::keepsEveryStatementWhenSaved_data()
{
    addExampleRows(staysTheSame);
}

void TestExamples::keepsEveryStatementWhenSaved()
{
    QFETCH(QString, name);
    const Document document(example(name));
    const Document again(document.saved());
    QCOMPARE(again.visibleRows(), document.visibleRows());
    QCOMPARE(again.errorCounts(), document.errorCounts());
}

void TestExamples::savesTheSameTextEachTime_data()
{
    addExampleRows(staysTheSame);
}

void TestExamples::savesTheSameTextEachTime()
{
    QFETCH(QString, name);
    const QByteArray saved = Document(example(name)).saved();
    QCOMPARE(Document(saved).saved(), saved);
}

void TestExamples::namesAreInTheCatalogue_data()
{
    addExampleRows(isHandmade);
}

void TestExamples::namesAreInTheCatalogue()
{
    QFETCH(QString, name);
    static const QSet<QString> known = catalogueNames();
    const Document document(example(name));
    const QStringList none;
    QCOMPARE(namesNotIn(known, namesInColumn(document.tab(EDIT_TAB2), 1)), none);
    QCOMPARE(namesNotIn(known, namesInColumn(document.tab(EDIT_TAB3), 1)), none);
    QCOMPARE(namesNotIn(known, namesInColumn(document.tab(EDIT_TAB3), 2)), none);
    QCOMPARE(namesNotIn(known, namesInColumn(document.tab(EDIT_TAB4), 1)), none);
}

void TestExamples::fullHasEveryKeyword()
{
    const Document document(example(QStringLiteral("scrib_full")));
    const QStringList rows = document.visibleRows();
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        const QString spelling = QString::fromLatin1(keyword.spelling);
        const QRegularExpression row(QStringLiteral("^%1( \\||$)").arg(spelling));
        QCOMPARE(rows.filter(row).size(), 1);
    }
}

void TestExamples::everyLineOfCrlfEndsWithCrlf()
{
    const QByteArray text = example(QStringLiteral("scrib_crlf"));
    QVERIFY(text.count('\n') > 10);
    QCOMPARE(text.count("\r\n"), text.count('\n'));
    QCOMPARE(text.count('\r'), text.count('\n'));
}

void TestExamples::crlfHasTheRowsOfPlainLineEnds()
{
    const QByteArray text = example(QStringLiteral("scrib_crlf"));
    QByteArray plain = text;
    plain.replace("\r\n", "\n");
    const Document document(text);
    QCOMPARE(document.visibleRows(), Document(plain).visibleRows());
    QVERIFY(!document.saved().contains('\r'));
}

void TestExamples::largeComesFromTheGenerator()
{
    SpecShape shape;
    shape.scanRows = 3200;
    shape.metaRows = 60;
    shape.auxRows = 96;
    shape.ecmRows = 40;
    shape.keywords = KeywordSet::Offered;
    shape.withUnits = true;
    const QByteArray text = QByteArray::fromStdString(generateSpec(shape));
    QVERIFY2(text == example(QStringLiteral("scrib_large")), "make it anew as README.md tells");

    static const QSet<QString> known = catalogueNames();
    const Document document(text);
    QCOMPARE(namesNotIn(known, namesInColumn(document.tab(EDIT_TAB2), 1)), QStringList());
    QCOMPARE(namesNotIn(known, namesInColumn(document.tab(EDIT_TAB3), 2)), QStringList());
}

void TestExamples::brokenHasEveryErrorCodeInEveryTab()
{
    const Document document(example(QStringLiteral("scrib_broken")));
    document.errorCounts();
    for (const auto& tab : document.tabs) {
        QSet<int> codes;
        for (int row = 0; row < tab->rowCount(); ++row) {
            for (int column = 0; column < tab->columnCount(); ++column)
                codes.insert(tab->errorCode(tab->index(row, column)).toInt());
        }
        QVERIFY(codes.contains(DE_SYNTAX_ERR));
        QVERIFY(codes.contains(DE_DUPLICATE_ERR));
    }
}

// The number behind @ENABLE becomes both its value and a row of free text, and the text of an
// unknown keyword is saved as free text; nothing else changes.
void TestExamples::brokenGrowsWithEachLoad()
{
    QByteArray text = example(QStringLiteral("scrib_broken"));
    const Document first(text);
    for (int load = 1; load < 4; ++load) {
        const Document document(text);
        QStringList rows = document.visibleRows();
        QCOMPARE(rows.count(QStringLiteral("5")), load);
        for (int more = 1; more < load; ++more)
            rows.removeOne(QStringLiteral("5"));
        QCOMPARE(rows, first.visibleRows());
        text = document.saved();
    }
}

void TestExamples::brokenIsValidAfterItsCorrections()
{
    const Document document(example(QStringLiteral("scrib_broken")));
    QSet<const Correction*> done;
    for (int number = EDIT_TAB1; number <= EDIT_TAB5; ++number) {
        TreeModel* tab = &document.tab(number);
        while (judge(*tab) > 0) {
            const QModelIndex mark = firstMark(*tab);
            QVERIFY(mark.isValid());
            const QString row = visibleRow(*tab, mark.row());
            const Correction* correction = correctionOf(number, row);
            QVERIFY2(correction != nullptr, qPrintable(row));
            QVERIFY2(apply(*correction, tab, mark), qPrintable(row));
            done.insert(correction);
        }
    }
    QCOMPARE(static_cast<size_t>(done.size()), CORRECTIONS.size());

    const QByteArray saved = document.saved();
    const Document again(saved);
    QCOMPARE(again.errorCounts(), NO_ERRORS);
    QCOMPARE(again.visibleRows(), document.visibleRows());
    QCOMPARE(again.saved(), saved);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestExamples)
#include "tst_examples.moc"
