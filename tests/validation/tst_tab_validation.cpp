// What a pass says of a tab's rows: the codes of each row, a letter a cell, and the count of
// faults.
//   .  never judged    ok  good    X  wrong    D  repeated    -  no such field

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include "editorundocommand.h"
#include "golden_keywords.h"
#include "model_text.h"
#include "treeitem.h"
#include "treemodel.h"
#include "windowless_editing.h"

namespace {

QString codeName(const QVariant& code)
{
    if (!code.isValid())
        return QStringLiteral(".");
    switch (code.toInt()) {
        case DE_NOERROR:
            return QStringLiteral("ok");
        case DE_SYNTAX_ERR:
            return QStringLiteral("X");
        case DE_DUPLICATE_ERR:
            return QStringLiteral("D");
        default:
            return QStringLiteral("-");
    }
}

QStringList codesOf(const TreeModel& model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList codes;
        for (int column = 0; column < model.columnCount(); ++column)
            codes.append(codeName(model.errorCode(model.index(row, column))));
        rows.append(codes.join(QLatin1Char(' ')));
    }
    return rows;
}

void judge(TreeModel* model)
{
    model->setDirty();
    model->validate_model();
}

constexpr auto SCAN = "@SCAN_LIST | FILLER_TXT | FILLER_TXT | FILLER_TXT";
constexpr auto META = "@META_DATA | FILLER_TXT | FILLER_TXT";
constexpr auto AUX = "@SCAN_LIST_AUX_USER | FILLER_TXT | FILLER_TXT";
constexpr auto ECM = "@ECM_LIST | FILLER_TXT | FILLER_TXT";
constexpr auto UNTOUCHED = ". . .";
constexpr auto UNTOUCHED_SCAN = ". . . .";

void addRow(const char* name, int tab, std::initializer_list<const char*> rows,
            std::initializer_list<const char*> codes, int errors)
{
    QTest::newRow(name) << tab << lines(rows) << lines(codes) << errors;
}

// Adds a test row: a keyword with a value, which is valid or not.
void addValue(const char* keyword, const char* value, bool good)
{
    const QString row = QStringLiteral("%1 | %2 | FILLER_TXT")
                            .arg(QString::fromLatin1(keyword), QString::fromLatin1(value));
    const QString codes = good ? QStringLiteral("ok ok -") : QStringLiteral(". X -");
    QTest::addRow("%s %s", keyword, value)
        << int(EDIT_TAB1) << QStringList{row} << QStringList{codes} << (good ? 0 : 1);
}

// The row of META_HEADER_FILENAME counts as a duplicate, whatever its value is: see below.
void addKeywordValues()
{
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (!isOffered(keyword))
            continue;
        addValue(keyword.spelling, keyword.values.good, true);
        if (keyword.values.bad != nullptr)
            addValue(keyword.spelling, keyword.values.bad, false);
    }
    addValue("@SCAN_INTERVAL", "an_int_var", true);
    addValue("@SCAN_INTERVAL", "10", false);
    addValue("@OUTPUT_PATH", "a_string_var", true);
    addValue("@OUTPUT_PATH", "1/data", false);
}

// Makes a random change: sets a text or an error code, or inserts or removes a row.
void changeAtRandom(QRandomGenerator* random, TreeModel* model, const QStringList& texts)
{
    const int row = random->bounded(model->rowCount());
    const QModelIndex cell = model->index(row, random->bounded(model->columnCount()));
    switch (random->bounded(8)) {
        case 0:
            model->insertRows(row, 1);
            break;
        case 1:
            if (model->rowCount() > 2)
                model->removeRows(row, 1);
            break;
        case 2:
            model->setErrorCode(cell, random->bounded(3));
            break;
        default:
            model->setData(cell, texts.at(random->bounded(texts.size())));
    }
}

// Edits a cell, inserts or removes a row, or undoes or redoes up to three of these, at random.
void changeByCommand(QRandomGenerator* random, TreeModel* model, QUndoStack* stack)
{
    const QStringList texts =
        QStringLiteral("a b c #c 1 2 /a:b:1 /a:c:1 /a:b:123 1x FILLER_TXT @MAX_SCANS @MODE")
            .split(QLatin1Char(' '));
    const QModelIndex cell = model->index(1 + random->bounded(model->rowCount() - 1),
                                          random->bounded(model->columnCount()));
    const int lastColumn = model->columnCount() - 1;
    const int kind = random->bounded(10);
    if (kind == 0)
        stack->push(new EditorUndoCommand(model, cell, cell.row() + 1, 0, lastColumn, uaddRow));
    else if (kind == 1 && model->rowCount() > 10)
        stack->push(new EditorUndoCommand(model, cell, cell.row(), 0, lastColumn, uremoveRow));
    else if (kind < 5)
        stack->setIndex(qBound(0, stack->index() + random->bounded(-3, 4), stack->count()));
    else
        model->undoredo_setData(cell, texts.at(random->bounded(texts.size())));
}

}  // namespace

class TestTabValidation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesCodes_data();
    void givesCodes();
    void marksCommentsThatAreTooLong();
    void wrongValueKeepsTheKeywordsErrorCode();
    void validatesOnlyIfDirty();
    void validationWithoutChangesClearsDirtyToo();
    void overwritesCodesSetInBetween();
    void duplicateIsValidAfterTheFirstIsRemoved();
    void emitsDataChangedForChangedCodes();
    void validatesAgainTextsOfOtherColumns_data();
    void validatesAgainTextsOfOtherColumns();
    void validatesNothingOnAnUnknownTab();
    void changedModelIsValidatedLikeANewOne_data();
    void changedModelIsValidatedLikeANewOne();
    void undoneEditsAreValidatedLikeANewModel_data();
    void undoneEditsAreValidatedLikeANewModel();

private:
    void compareWithANewModel(TreeModel* model, int tab);
};

void TestTabValidation::givesCodes_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QStringList>("codes");
    QTest::addColumn<int>("errors");

    addKeywordValues();
    addRow("no rows", EDIT_TAB1, {}, {}, 0);
    addRow("a keyword twice", EDIT_TAB1,
           {"@MAX_SCANS | 1 | FILLER_TXT", "@MAX_SCANS | 2 | FILLER_TXT"}, {"ok ok -", "D ok -"},
           1);
    addRow("the second of two is good when the first one's value fails", EDIT_TAB1,
           {"@MAX_SCANS | x | FILLER_TXT", "@MAX_SCANS | 2 | FILLER_TXT"}, {". X -", "ok ok -"}, 1);
    addRow("a comment", EDIT_TAB1, {"# a comment | FILLER_TXT | FILLER_TXT"}, {"ok . -"}, 0);
    addRow("an average without its event", EDIT_TAB1, {"@RUNNING_AVERAGE | 30[sec] | FILLER_TXT"},
           {"ok ok -"}, 0);
    addRow("an average with its event", EDIT_TAB1, {"@RUNNING_AVERAGE | 30[sec] | ev"},
           {"ok ok ok"}, 0);
    addRow("an average with a blank in its event", EDIT_TAB1, {"@RUNNING_AVERAGE | 30[sec] | a b"},
           {"ok ok X"}, 1);
    addRow("an average with both wrong", EDIT_TAB1, {"@RUNNING_AVERAGE | 30 | a b"}, {". X X"}, 2);
    addRow("an inserted row", EDIT_TAB1, {"\\s | \\s | \\s"}, {"X ok -"}, 1);
    addRow("unknown text", EDIT_TAB1, {"FILLER_TXT | stray | FILLER_TXT"}, {"X ok -"}, 1);
    addRow("unknown text of 33 characters", EDIT_TAB1,
           {"FILLER_TXT | abcdefghijklmnopqrstuvwxyz1234567 | FILLER_TXT"}, {". X -"}, 1);
    addRow("an empty keyword is passed over", EDIT_TAB1, {"<empty> | x y | z"}, {UNTOUCHED}, 0);
    addRow("a file name that no word list has", EDIT_TAB1,
           {"@META_HEADER_FILENAME | /a/b | FILLER_TXT"}, {"D ok -"}, 1);
    addRow("a section keyword among the statements", EDIT_TAB1, {"@SCAN_LIST | var | FILLER_TXT"},
           {"D ok -"}, 1);
    addRow("an unknown at-word", EDIT_TAB1, {"@FOO | 'text' | FILLER_TXT"}, {"D ok -"}, 1);

    addRow("a scan list without entries", EDIT_TAB2, {SCAN}, {UNTOUCHED_SCAN}, 0);
    addRow("rows below no section keyword", EDIT_TAB2,
           {"@MODE | x | <unset> | <unset>", "<unset> | 1bad | <unset> | <unset>"},
           {UNTOUCHED_SCAN, UNTOUCHED_SCAN}, 0);
    addRow("rows below an empty keyword", EDIT_TAB2,
           {"<unset> | x | <unset> | <unset>", "<unset> | 1bad | <unset> | <unset>"},
           {UNTOUCHED_SCAN, UNTOUCHED_SCAN}, 0);
    addRow("an entry with all fields", EDIT_TAB2, {SCAN, "<unset> | eng_speed | .AV | N_AVG"},
           {UNTOUCHED_SCAN, ". ok ok ok"}, 0);
    addRow("an entry without a member", EDIT_TAB2, {SCAN, "<unset> | eng_speed | <unset> | N"},
           {UNTOUCHED_SCAN, ". ok ok ok"}, 0);
    addRow("a filler as the member", EDIT_TAB2, {SCAN, "<unset> | eng_speed | FILLER_TXT | N"},
           {UNTOUCHED_SCAN, ". ok ok ok"}, 0);
    addRow("a wrong member", EDIT_TAB2, {SCAN, "<unset> | eng_speed | .AVE | N"},
           {UNTOUCHED_SCAN, ". ok X ok"}, 1);
    addRow("no channel", EDIT_TAB2, {SCAN, "<unset> | eng_speed | .AV | FILLER_TXT"},
           {UNTOUCHED_SCAN, ". ok ok X"}, 1);
    addRow("a comment for a channel", EDIT_TAB2, {SCAN, "<unset> | eng_speed | .AV | # later"},
           {UNTOUCHED_SCAN, ". ok ok ok"}, 0);
    addRow("a member for a channel is not judged", EDIT_TAB2,
           {SCAN, "<unset> | eng_speed | .AV | .MX"}, {UNTOUCHED_SCAN, ". ok ok ."}, 0);
    addRow("a filler for a variable", EDIT_TAB2, {SCAN, "<unset> | FILLER_TXT | <unset> | N"},
           {UNTOUCHED_SCAN, ". X ok ok"}, 1);
    addRow("an empty variable is passed over", EDIT_TAB2, {SCAN, "<unset> | <empty> | x | -"},
           {UNTOUCHED_SCAN, UNTOUCHED_SCAN}, 0);
    addRow("a keyword for a variable is passed over", EDIT_TAB2, {SCAN, "<unset> | @MODE | x | -"},
           {UNTOUCHED_SCAN, UNTOUCHED_SCAN}, 0);
    addRow("an inserted scan list row", EDIT_TAB2, {SCAN, "\\s | \\s | \\s | \\s"},
           {UNTOUCHED_SCAN, ". X ok X"}, 2);
    addRow("a comment row", EDIT_TAB2, {SCAN, "<unset> | # note | FILLER_TXT | FILLER_TXT"},
           {UNTOUCHED_SCAN, ". ok . ."}, 0);
    addRow("a variable twice", EDIT_TAB2,
           {SCAN, "<unset> | v | <unset> | A", "<unset> | v | <unset> | B"},
           {UNTOUCHED_SCAN, ". ok ok ok", ". ok ok ok"}, 0);
    addRow("a channel twice", EDIT_TAB2,
           {SCAN, "<unset> | v | <unset> | A", "<unset> | w | <unset> | A"},
           {UNTOUCHED_SCAN, ". ok ok ok", ". ok ok D"}, 1);
    addRow("channels that differ in case", EDIT_TAB2,
           {SCAN, "<unset> | v | <unset> | A", "<unset> | w | <unset> | a"},
           {UNTOUCHED_SCAN, ". ok ok ok", ". ok ok ok"}, 0);

    addRow("a keyword and a variable", EDIT_TAB3, {META, "<unset> | BORE | bore"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("two words in single quotes", EDIT_TAB3, {META, "<unset> | TITLE | 'two words'"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("two words in double quotes", EDIT_TAB3, {META, "<unset> | TITLE | \"two words\""},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("two words without quotes", EDIT_TAB3, {META, "<unset> | TITLE | two words"},
           {UNTOUCHED, ". ok X"}, 1);
    addRow("a comment on the meta data list", EDIT_TAB3, {META, "<unset> | # note | FILLER_TXT"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("a parameter twice", EDIT_TAB3, {META, "<unset> | A | x", "<unset> | A | y"},
           {UNTOUCHED, ". ok ok", ". D ok"}, 1);
    addRow("a filler for a parameter", EDIT_TAB3, {META, "<unset> | FILLER_TXT | x"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("a wrong parameter and no value", EDIT_TAB3, {META, "<unset> | A-B | <unset>"},
           {UNTOUCHED, ". X X"}, 2);

    addRow("a variable and its alternate name", EDIT_TAB4, {AUX, "<unset> | v | name"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("an alternate name twice", EDIT_TAB4, {AUX, "<unset> | v | n", "<unset> | v | n"},
           {UNTOUCHED, ". ok ok", ". ok D"}, 1);
    addRow("a filler for the alternate name", EDIT_TAB4, {AUX, "<unset> | v | FILLER_TXT"},
           {UNTOUCHED, ". ok X"}, 1);
    addRow("a filler for the variable", EDIT_TAB4, {AUX, "<unset> | FILLER_TXT | n"},
           {UNTOUCHED, ". X ok"}, 1);
    addRow("a comment among alternate names", EDIT_TAB4, {AUX, "<unset> | # note | FILLER_TXT"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("both wrong", EDIT_TAB4, {AUX, "<unset> | 'v' | 1n"}, {UNTOUCHED, ". X X"}, 2);

    addRow("an instance and a path", EDIT_TAB5, {ECM, "<unset> | 1 | /specs/a.spec:name:12"},
           {UNTOUCHED, ". ok ok"}, 0);
    addRow("an instance twice", EDIT_TAB5,
           {ECM, "<unset> | 1 | /specs/a.spec:name:12", "<unset> | 1 | /specs/a.spec:name:1"},
           {UNTOUCHED, ". ok ok", ". D ok"}, 1);
    addRow("a path twice", EDIT_TAB5, {ECM, "<unset> | 1 | /a:b:1", "<unset> | 2 | /a:b:1"},
           {UNTOUCHED, ". ok ok", ". ok D"}, 1);
    addRow("letters for an instance", EDIT_TAB5, {ECM, "<unset> | one | /a:b"},
           {UNTOUCHED, ". X X"}, 2);
    addRow("an empty instance is no row to pass over", EDIT_TAB5,
           {ECM, "<unset> | <empty> | /a:b:1"}, {UNTOUCHED, ". X ok"}, 1);
    addRow("a comment on the ECM list", EDIT_TAB5, {ECM, "<unset> | # note | FILLER_TXT"},
           {UNTOUCHED, ". ok ."}, 0);
    addRow("a path behind a comment takes its place", EDIT_TAB5,
           {ECM, "<unset> | # note | /a:b:1", "<unset> | 1 | /a:b:1"},
           {UNTOUCHED, ". ok ok", ". ok D"}, 1);
    addRow("an ECM list below another section's keyword", EDIT_TAB5, {SCAN, "<unset> | x | y"},
           {UNTOUCHED, UNTOUCHED}, 0);
}

void TestTabValidation::givesCodes()
{
    QFETCH(int, tab);
    QFETCH(QStringList, rows);
    QFETCH(QStringList, codes);
    QFETCH(int, errors);
    const auto model = modelOfRows(tab, rows);
    judge(model.get());
    QCOMPARE(codesOf(*model), codes);
    QCOMPARE(model->getErrorCount(), errors);
    // Another validation of the same rows gives the same result.
    judge(model.get());
    QCOMPARE(codesOf(*model), codes);
    QCOMPARE(model->getErrorCount(), errors);
}

void TestTabValidation::marksCommentsThatAreTooLong()
{
    const QString longest = QLatin1Char('#') + QString(79, QLatin1Char('c'));
    const auto model =
        modelOfRows(EDIT_TAB1, {longest + QStringLiteral(" | FILLER_TXT | FILLER_TXT"),
                                longest + QStringLiteral("c | FILLER_TXT | FILLER_TXT")});
    judge(model.get());
    QCOMPARE(codesOf(*model), lines({"ok . -", "X . -"}));
}

void TestTabValidation::wrongValueKeepsTheKeywordsErrorCode()
{
    const auto model = modelOfRows(
        EDIT_TAB1, lines({"@MAX_SCANS | 1 | FILLER_TXT", "@MAX_SCANS | 2 | FILLER_TXT"}));
    judge(model.get());
    QCOMPARE(codesOf(*model), lines({"ok ok -", "D ok -"}));
    model->setData(model->index(1, 1), QStringLiteral("many"));
    model->validate_model();
    QCOMPARE(codesOf(*model), lines({"ok ok -", "D X -"}));
    QCOMPARE(model->getErrorCount(), 1);
}

void TestTabValidation::validatesOnlyIfDirty()
{
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MAX_SCANS | many | FILLER_TXT"}));
    model->validate_model();
    QCOMPARE(codesOf(*model), lines({UNTOUCHED}));
    judge(model.get());
    QVERIFY(!model->isDirty());
    QCOMPARE(model->getErrorCount(), 1);
}

// No row or code has changed since the first validation, so the second has nothing to do.
void TestTabValidation::validationWithoutChangesClearsDirtyToo()
{
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MAX_SCANS | many | FILLER_TXT"}));
    judge(model.get());
    judge(model.get());
    QVERIFY(!model->isDirty());
    QCOMPARE(model->getErrorCount(), 1);
}

// The delegate sets codes while the user types; the next validation overwrites them.
void TestTabValidation::overwritesCodesSetInBetween()
{
    const auto model = modelOfRows(EDIT_TAB4, lines({AUX, "<unset> | v | name"}));
    judge(model.get());
    model->setErrorCode(model->index(1, 2), DE_SYNTAX_ERR);
    QCOMPARE(model->getErrorCount(), 0);
    QCOMPARE(codesOf(*model).last(), QStringLiteral(". ok X"));
    model->validate_model();
    QCOMPARE(codesOf(*model).last(), QStringLiteral(". ok X"));
    judge(model.get());
    QCOMPARE(codesOf(*model).last(), QStringLiteral(". ok ok"));
}

void TestTabValidation::duplicateIsValidAfterTheFirstIsRemoved()
{
    const auto model = modelOfRows(EDIT_TAB3, lines({META, "<unset> | A | x", "<unset> | A | y"}));
    judge(model.get());
    QCOMPARE(model->getErrorCount(), 1);
    model->removeRows(1, 1);
    model->validate_model();
    QCOMPARE(codesOf(*model), lines({UNTOUCHED, ". ok ok"}));
    QCOMPARE(model->getErrorCount(), 0);
}

void TestTabValidation::emitsDataChangedForChangedCodes()
{
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MAX_SCANS | 1 | FILLER_TXT"}));
    const QSignalSpy spy(model.get(), &TreeModel::codesChanged);
    judge(model.get());
    QCOMPARE(spy.count(), 1);
    model->setData(model->index(0, 1), QStringLiteral("2"));
    model->validate_model();
    QCOMPARE(spy.count(), 1);
    model->setData(model->index(0, 1), QStringLiteral("two"));
    model->validate_model();
    QCOMPARE(spy.count(), 2);
}

void TestTabValidation::validatesAgainTextsOfOtherColumns_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<bool>("insertion");
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");
    QTest::addColumn<int>("errors");
    const auto keyword = lines({"@MAX_SCANS | abc | 12"});
    const auto goodKeyword = lines({"@MAX_SCANS | 12 | FILLER_TXT"});
    const auto entry = lines({SCAN, "<unset> | v | .AV | N"});
    QTest::newRow("a wrong value goes")
        << int(EDIT_TAB1) << keyword << false << 1 << lines({". X -"}) << lines({"ok ok"}) << 0;
    QTest::newRow("a good value moves away") << int(EDIT_TAB1) << goodKeyword << true << 1
                                             << lines({"ok ok -"}) << lines({"ok X - ."}) << 1;
    QTest::newRow("a member goes")
        << int(EDIT_TAB2) << entry << false << 2 << lines({UNTOUCHED_SCAN, ". ok ok ok"})
        << lines({UNTOUCHED, ". ok X"}) << 2;
    QTest::newRow("a channel moves away")
        << int(EDIT_TAB2) << entry << true << 3 << lines({UNTOUCHED_SCAN, ". ok ok ok"})
        << lines({". . . . .", ". ok ok X ."}) << 1;
}

void TestTabValidation::validatesAgainTextsOfOtherColumns()
{
    QFETCH(int, tab);
    QFETCH(QStringList, rows);
    QFETCH(bool, insertion);
    QFETCH(int, column);
    const auto model = modelOfRows(tab, rows);
    judge(model.get());
    QTEST(codesOf(*model), "before");
    QVERIFY(insertion ? model->insertColumns(column, 1) : model->removeColumns(column, 1));
    QCOMPARE(model->isDirty(), insertion);
    judge(model.get());
    QTEST(codesOf(*model), "after");
    QTEST(model->getErrorCount(), "errors");
}

void TestTabValidation::validatesNothingOnAnUnknownTab()
{
    TreeModel model({QStringLiteral("one")}, nullptr, 99);
    model.setDirty();
    model.validate_model();
    QVERIFY(model.isDirty());
}

void TestTabValidation::changedModelIsValidatedLikeANewOne_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = EDIT_TAB1; tab <= EDIT_TAB5; ++tab)
        QTest::addRow("tab %d", tab - EDIT_TAB1 + 1) << tab;
}

void TestTabValidation::compareWithANewModel(TreeModel* model, int tab)
{
    judge(model);
    const auto fresh = modelOfRows(tab, rowLines(*model));
    judge(fresh.get());
    QCOMPARE(model->getErrorCount(), fresh->getErrorCount());
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QVariant expected = fresh->errorCode(fresh->index(row, column));
            if (expected.isValid())
                QCOMPARE(model->errorCode(model->index(row, column)), expected);
        }
    }
}

// A validation uses the results of the one before. A new model of the same rows must have the same
// codes and the same error count.
void TestTabValidation::changedModelIsValidatedLikeANewOne()
{
    QFETCH(int, tab);
    constexpr int STEPS = 1500;
    const QStringList texts =
        QStringLiteral(
            "@SCAN_LIST @ECM_LIST @MAX_SCANS @MAX_SCANS @RUNNING_AVERAGE @FOO #c #@MODE v v w w[1] "
            "1x 12 "
            "7 .AV .MX .xx 'q' \"q\" 5[sec] FILLER_TXT /a:b:1 /a:b:2 A A B a@1 a@b yes no")
            .split(QLatin1Char(' '));
    const bool scanList = tab == EDIT_TAB2;
    const QString keyword = QLatin1String(tab == EDIT_TAB5 ? "@ECM_LIST" : "@SCAN_LIST");
    const QString cells = scanList ? QStringLiteral(" | x | y | z") : QStringLiteral(" | x | y");
    const auto model = modelOfRows(tab, QVector<QString>(6, keyword + cells).toList());
    QRandomGenerator random(static_cast<quint32>(tab));
    for (int step = 0; step < STEPS; ++step) {
        changeAtRandom(&random, model.get(), texts);
        if (random.bounded(3) == 0)
            continue;
        compareWithANewModel(model.get(), tab);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestTabValidation::undoneEditsAreValidatedLikeANewModel_data()
{
    changedModelIsValidatedLikeANewOne_data();
}

// A long list in which many texts are equal, changed as the user does: by undo commands, each
// undone and redone at random.
void TestTabValidation::undoneEditsAreValidatedLikeANewModel()
{
    QFETCH(int, tab);
    constexpr int STEPS = 1000;
    constexpr int ROWS = 40;
    WindowlessEditing editing;
    const QString keyword = QLatin1String(tab == EDIT_TAB5 ? "@ECM_LIST" : "@SCAN_LIST");
    const QString cells = QLatin1String(tab == EDIT_TAB2 ? " | a | a | a" : " | a | a");
    const auto model = modelOfRows(tab, QVector<QString>(ROWS, keyword + cells).toList());
    QRandomGenerator random(static_cast<quint32>(tab));
    for (int step = 0; step < STEPS; ++step) {
        changeByCommand(&random, model.get(), editing.stack());
        compareWithANewModel(model.get(), tab);
        if (QTest::currentTestFailed())
            return;
    }
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestTabValidation)
#include "tst_tab_validation.moc"
