// Pasted line breaks do not get into cells where they would split a line of the file.

#include <QClipboard>
#include <QtTest>
#include <array>

#include "editing_test.h"

namespace {

// The widget that the text is pasted into: the editor in the cell, or a field of
// VariableSelectionDialog.
enum class Field { InCell, Optional, Variable, Member, Units };

struct Paste {
    const char* name;
    Place place;
    const char* before;  // the cell's text when the editor opens; null keeps that of the file
    Field field;
    const char* pasted;
    const char* stored;
};

constexpr Place afterKeyword(const char* keyword, int column = 1)
{
    return {DE_TAB1, 0, keyword, column};
}

constexpr Place PATH = afterKeyword("@OUTPUT_PATH");
constexpr Place INTERVAL = afterKeyword("@SCAN_INTERVAL");
constexpr Place LITERAL{DE_TAB3, 1, "BORE", 2};
constexpr Place SCANNED{DE_TAB2, 1, "speed_setpoint[HZ]", 1};
constexpr Place DESCRIPTION = afterKeyword("@DESCRIPTION");
constexpr Place EVENT = afterKeyword("@START_EVENT");
constexpr Place AVERAGED{DE_TAB2, 3, "N_ENG_AVG", 2};
constexpr Place CHANNEL{DE_TAB2, 1, "eng_running", 3};
constexpr Place ECM_COMMENT{DE_TAB5, 1, "# The engine itself", 1};

// clang-format off
constexpr std::array<Paste, 34> PASTES{{
    {"path", PATH, nullptr, Field::Optional, "/data/run\n/other", "/data/run/other"},
    {"path and a statement", PATH, nullptr, Field::Optional, "/data\n@MAX_SCANS", "/data@MAX_SCANS"},
    {"path and a line end", PATH, nullptr, Field::Optional, "/data/run\n", "/data/run"},
    {"line end and a path", PATH, nullptr, Field::Optional, "\n/data/run", "/data/run"},
    {"path from another system", PATH, nullptr, Field::Optional, "/data/run\r\n/other\r\n", "/data/run/other"},
    {"interval", INTERVAL, nullptr, Field::Optional, "1\n5[sec]", "15[sec]"},
    {"interval and a line end", INTERVAL, nullptr, Field::Optional, "5[sec]\n", "5[sec]"},
    {"interval and a statement", INTERVAL, nullptr, Field::Optional, "5[sec]\n@MODE", "5[sec]@MODE"},
    {"literal and a line end", LITERAL, nullptr, Field::Optional, "\"a\"\n", "\"a\""},
    {"literal over two lines", LITERAL, nullptr, Field::Optional, "\"a\nb\"", "\"a\nb\""},
    {"no literal", LITERAL, nullptr, Field::Optional, "a\nb", "ab"},
    {"no literal and a statement", LITERAL, nullptr, Field::Optional, "a\n@MODE", "a@MODE"},
    {"variable of a list", SCANNED, "1_wrong", Field::Variable, "a\nb", "ab"},
    {"variable and an entry", SCANNED, "1_wrong", Field::Variable, "a\nb\nc", "abc"},
    {"variable of a keyword", afterKeyword("@ENABLE"), "1_wrong", Field::Variable, "a\r\nb", "ab"},
    {"member", LITERAL, "bore", Field::Member, "S\nD", "eng_speed_stat.SD"},
    {"units", SCANNED, nullptr, Field::Units, "k\nrpm", "speed_setpoint[krpm]"},
    {"keyword", afterKeyword("@REG_NAME", 0), nullptr, Field::InCell, "sync_\nevent", "@SYNC_EVENT"},
    {"statistical member", AVERAGED, nullptr, Field::InCell, ".S\nD", "  .SD"},
    {"channel", CHANNEL, nullptr, Field::InCell, "CHAN\n_2", "CHAN_2"},
    {"channel and a section", CHANNEL, nullptr, Field::InCell, "C\n@META_DATA", "C@META_DATA"},
    {"parameter", {DE_TAB3, 1, "BORE", 1}, nullptr, Field::InCell, "ST\rRO\nKE", "STROKE"},
    {"event", EVENT, nullptr, Field::InCell, "ev\nent", "event"},
    {"line end and an event", EVENT, nullptr, Field::InCell, "\nevent", "event"},
    {"event and a statement", EVENT, nullptr, Field::InCell, "event\n@MODE", "event@MODE"},
    {"event of an average", afterKeyword("@RUNNING_AVERAGE", 2), nullptr, Field::InCell, "ev\nent", "event"},
    {"description and a line end", DESCRIPTION, nullptr, Field::InCell, "'a'\n", "'a'"},
    {"description over two lines", DESCRIPTION, nullptr, Field::InCell, "'a\nb'", "'a\nb'"},
    {"description without quotes", DESCRIPTION, nullptr, Field::InCell, "a\nb", "ab"},
    {"value of a text", afterKeyword("@REG_NAME"), "a_text", Field::InCell, "a\nb", "ab"},
    {"alternate name", {DE_TAB4, 1, "eng_speed", 2}, nullptr, Field::InCell, "a\nb", "ab"},
    {"alternate name and an entry", {DE_TAB4, 1, "eng_speed", 2}, nullptr, Field::InCell, "a\nb\r\nc", "abc"},
    {"comment of the ECM list", ECM_COMMENT, nullptr, Field::InCell, "# a\n2 /b:c:0", "# a2 /b:c:0"},
    {"comment over two lines", ECM_COMMENT, nullptr, Field::InCell, "# a\r\n# b", "# a# b"},
}};
// clang-format on

// Without the blanks in front of a member.
QStringList trimmed(QStringList rows)
{
    return rows.replaceInStrings(QStringLiteral("  "), QString());
}

}  // namespace

Q_DECLARE_METATYPE(Paste)

class TestPastedLineBreaks : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void storedOnOneLine_data();
    void storedOnOneLine();
    void quotedTextEndsAtItsQuote_data();
    void quotedTextEndsAtItsQuote();
    void statementStaysText();
    void cursorStaysInPlace();
    void lineBreaksOfTheCellsTextAreKept();

private:
    static QWidget* fieldOf(QWidget* editor, Field field);

    // Replaces the contents of the field by pasting, and closes the editor.
    void enter(const QModelIndex& cell, Field field, const QString& pasted);
};

QWidget* TestPastedLineBreaks::fieldOf(QWidget* editor, Field field)
{
    auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor);
    switch (field) {
        case Field::Optional:
            return dialog->lineEdit();
        case Field::Variable:
            return dialog->variableComboBox();
        case Field::Member:
            typeVariable(dialog, text("eng_speed_stat."));
            return dialog->subComboBox();
        case Field::Units:
            return dialog->unitsComboBox();
        default:
            return editor;
    }
}

void TestPastedLineBreaks::enter(const QModelIndex& cell, Field field, const QString& pasted)
{
    QWidget* const editor = open(cell);
    QVERIFY(editor != nullptr);
    QGuiApplication::clipboard()->setText(pasted);
    fieldOf(editor, field)->setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    if (auto* const dialog = qobject_cast<QDialog*>(editor))
        acceptDialog(dialog);
    else
        press(Qt::Key_Return);
}

void TestPastedLineBreaks::storedOnOneLine_data()
{
    QTest::addColumn<Paste>("row");
    for (const Paste& row : PASTES)
        QTest::newRow(row.name) << row;
}

// Checks the cell, and the file after it was saved and loaded again.
void TestPastedLineBreaks::storedOnOneLine()
{
    QFETCH(Paste, row);
    show();
    const QModelIndex index = cellAt(row.place);
    if (row.before != nullptr)
        edit(row.place.tab, index.row(), index.column(), text(row.before));
    enter(index, row.field, text(row.pasted));
    QCOMPARE(index.data().toString(), text(row.stored));
    saved();
    const QStringList before = trimmed(document());
    m_window->loadFile(QStringLiteral("/specs/good"), false);
    QCOMPARE(trimmed(document()), before);
}

// A text with several quoted parts is not one value, so the line breaks are removed.
void TestPastedLineBreaks::quotedTextEndsAtItsQuote_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("stored");
    QTest::newRow("literals") << LITERAL << text("\"a\"\nSTROKE \"b\"")
                              << text("\"a\"STROKE \"b\"");
    QTest::newRow("literals in line ends") << LITERAL << text("\"a\"\n\"b\"") << text("\"a\"\"b\"");
    QTest::newRow("descriptions") << DESCRIPTION << text("'a'\n@MODE 'b'") << text("'a'@MODE 'b'");
    QTest::newRow("a quote alone") << DESCRIPTION << text("'\n") << text("'");
}

void TestPastedLineBreaks::quotedTextEndsAtItsQuote()
{
    QFETCH(Place, place);
    QFETCH(QString, pasted);
    show();
    const int lineCount = saved().count('\n');
    const QModelIndex index = cellAt(place);
    enter(index, place.tab == DE_TAB3 ? Field::Optional : Field::InCell, pasted);
    QTEST(index.data().toString(), "stored");
    QCOMPARE(saved().count('\n'), lineCount);
}

void TestPastedLineBreaks::statementStaysText()
{
    show();
    const QModelIndex index = cellAt(PATH);
    enter(index, Field::Optional, text("/data\n@MAX_SCANS 5"));
    QCOMPARE(index.data().toString(), text("/data@MAX_SCANS 5"));
    QVERIFY(saved().contains("\n@OUTPUT_PATH\n/data@MAX_SCANS 5\n\n@"));
    m_window->loadFile(QStringLiteral("/specs/good"), false);
    QCOMPARE(columnTexts(*modelOf(*m_window, DE_TAB1), 0).count(text("@MAX_SCANS")), 1);
    QCOMPARE(valueOf("@MAX_SCANS").data().toString(), text("72000"));
}

void TestPastedLineBreaks::cursorStaysInPlace()
{
    show();
    auto* const comboBox = openAs<QComboBox>(cellAt(CHANNEL));
    QVERIFY(comboBox != nullptr);
    comboBox->setEditText(text("begin_end"));
    comboBox->lineEdit()->setCursorPosition(6);
    QGuiApplication::clipboard()->setText(text("a\nb\n"));
    press(Qt::Key_V, Qt::ControlModifier);
    QTest::keyClicks(comboBox->lineEdit(), text("c_"));
    QCOMPARE(comboBox->currentText(), text("begin_abc_end"));
}

// Line breaks from the file are kept, even where none can be pasted.
void TestPastedLineBreaks::lineBreaksOfTheCellsTextAreKept()
{
    show();
    const QModelIndex index = cellAt({DE_TAB2, 1, "eng_running", 3});
    edit(DE_TAB2, index.row(), 3, text("a\nb"));
    auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    comboBox->setEditText(text("c\nd"));
    press(Qt::Key_Return);
    QCOMPARE(index.data().toString(), text("c\nd"));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestPastedLineBreaks)
#include "tst_pasted_line_breaks.moc"
