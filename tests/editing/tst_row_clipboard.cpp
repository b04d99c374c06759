// Rows to and from a spreadsheet: Ctrl+Shift+C and Ctrl+V in the tables of each tab.

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QShortcut>
#include <QStatusBar>
#include <QUndoStack>
#include <QtTest>

#include "cell_edits.h"
#include "cell_text.h"
#include "editing_test.h"
#include "statusbarform.h"

namespace {

constexpr int ROWS_OF_A_PASTE = 500;

QByteArray example(const char* name)
{
    return readFile(qEnvironmentVariable("SCRIBON_EXAMPLES") + QLatin1Char('/') +
                    QLatin1String(name));
}

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

void setClipboard(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

// The columns that the user sees, without what is not shown.
QStringList shownTexts(const QAbstractItemModel& model, int row)
{
    QStringList texts = rowTexts(model, row);
    if (model.objectName() != QLatin1String("Model13"))
        texts.removeFirst();
    for (QString& text : texts) {
        text = text.trimmed();
        if (text == QLatin1String("FILLER_TXT"))
            text.clear();
    }
    return texts;
}

// What decides which editor opens in a cell.
QString kindOf(const QModelIndex& index)
{
    const int first = index.model()->objectName() == QLatin1String("Model13") ? 0 : 1;
    const QModelIndex key = index.siblingAtColumn(first);
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(index.model()->objectName())
        .arg(index.column())
        .arg(editorTypeOf(key))
        .arg(editorTypeOf(index))
        .arg(textOf(index).isNull());
}

}  // namespace

class TestRowClipboard : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase();

    void rowIsCopied_data();
    void rowIsCopied();
    void cellIsCopiedAsBefore();
    void rowComesBackBelow_data();
    void rowComesBackBelow();
    void editorOpensWhereItIsSaidTo_data();
    void editorOpensWhereItIsSaidTo();
    void fieldIsPastedIntoTheCell_data();
    void fieldIsPastedIntoTheCell();
    void quotedTextIsCopiedAndPasted_data();
    void quotedTextIsCopiedAndPasted();
    void fieldIsRefused_data();
    void fieldIsRefused();
    void unsetCellTakesNoField();
    void hiddenRowIsNoRow();
    void rowsArePasted_data();
    void rowsArePasted();
    void rowsAreRefused_data();
    void rowsAreRefused();
    void rowsArePastedBelowTheFirstWithoutACurrentOne();
    void nextPasteGoesOnBelow();
    void manyRowsAreOneStep();
    void pastedRowsAreValidated();
    void pastedDocumentIsLoadedAgain();
    void hostileText_data();
    void hostileText();
    void keysBelongToTheOpenEditor_data();
    void keysBelongToTheOpenEditor();
    void openEditorIsTakenOver();
    void tellsThatNothingIsOpen();
    void tellsThatNothingIsOpenAfterAFailedLoad();
    void keysAreNotThoseOfOthers();
    void messagesFitBesideTheCounters_data();
    void messagesFitBesideTheCounters();

private:
    void showOnce();
    void goToCell(const QModelIndex& index);
    void copyRow() { press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier); }
    void paste(const QString& content);
    bool isUntouched(const QStringList& before);

    QByteArray m_shownFor;  // the test function whose rows share the window; empty: none does
};

void TestRowClipboard::init()
{
    if (m_shownFor == QTest::currentTestFunction())
        return;
    cleanupTestCase();
    EditingTest::init();
}

void TestRowClipboard::cleanup()
{
    if (m_shownFor.isEmpty() || QTest::currentTestFailed())
        cleanupTestCase();
}

void TestRowClipboard::cleanupTestCase()
{
    m_shownFor.clear();
    EditingTest::cleanup();
}

// For tests that leave the document as it was: all rows of one share a window.
void TestRowClipboard::showOnce()
{
    if (m_shownFor.isEmpty())
        show();
    m_shownFor = QTest::currentTestFunction();
    m_window->statusBar()->clearMessage();
}

void TestRowClipboard::goToCell(const QModelIndex& index)
{
    QTreeView* const view = viewAt(index);
    tabsOf(*m_window)->setCurrentWidget(view->parentWidget());
    view->setCurrentIndex(index);
    view->setFocus();
}

void TestRowClipboard::paste(const QString& content)
{
    setClipboard(content);
    press(Qt::Key_V, Qt::ControlModifier);
}

bool TestRowClipboard::isUntouched(const QStringList& before)
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        if (modelOf(*m_window, tab)->isModified())
            return false;
    }
    return stack()->count() == 0 && document() == before;
}

void TestRowClipboard::rowIsCopied_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const Place& place, const char* expected) {
        QTest::newRow(name) << place << text(expected);
    };
    row("keyword", {DE_TAB1, 0, "@MAX_SCANS", 1}, "@MAX_SCANS\t72000\t");
    row("keyword without a value", {DE_TAB1, 0, "@FIFO_LOG_BUFFER", 0}, "@FIFO_LOG_BUFFER\t\t");
    row("comment", {DE_TAB1, 0, "# Everything that can be edited", 0},
        "# Everything that can be edited\t\t");
    row("entry", {DE_TAB2, 3, "N_ENG_AVG", 1}, "eng_speed\t.AV\tN_ENG_AVG");
    row("entry without a member", {DE_TAB2, 3, "N_ENG", 3}, "eng_speed\t\tN_ENG");
    row("comment of a list", {DE_TAB2, 1, "# Speed and torque", 1}, "# Speed and torque\t\t");
    row("literal", {DE_TAB3, 1, "TEST_TITLE", 2}, "TEST_TITLE\t'Full load'");
    row("alternate name", {DE_TAB4, 1, "eng_speed", 2}, "eng_speed\tcrank_speed");
    row("list of an engine", {DE_TAB5, 1, "1", 2}, "1\t/specs/asam3_specs.engine:ECM0:0");
}

void TestRowClipboard::rowIsCopied()
{
    QFETCH(Place, place);
    showOnce();
    const QStringList before = document();
    goToCell(cellAt(place));
    copyRow();
    QTEST(clipboardText(), "expected");
    QCOMPARE(newsOf(*m_window), text("Row copied"));
    QVERIFY(isUntouched(before));
}

void TestRowClipboard::cellIsCopiedAsBefore()
{
    show();
    goToCell(valueOf("@MAX_SCANS"));
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText(), text("72000"));
    goToCell(valueOf("@MAX_SCANS", 0));
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText(), text("@MAX_SCANS"));
}

void TestRowClipboard::rowComesBackBelow_data()
{
    QTest::addColumn<QByteArray>("spec");
    QTest::newRow("everything") << fullSpec();
    for (const char* const name : {"scrib_full", "scrib_small", "scrib_broken"})
        QTest::newRow(name) << example(name);
}

void TestRowClipboard::rowComesBackBelow()
{
    QFETCH(QByteArray, spec);
    show(spec);
    const QByteArray file = saved();
    const QStringList before = document();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(*m_window, tab);
        for (int row = tab == 0 ? 0 : 1; row < model->rowCount(); ++row) {
            goToCell(cell(tab, row, 1));
            copyRow();
            const QStringList expected = shownTexts(*model, row);
            press(Qt::Key_V, Qt::ControlModifier);
            // A row of no text at all is no row.
            if (!expected.join(QString()).isEmpty()) {
                QCOMPARE(newsOf(*m_window), text("1 row pasted"));
                QCOMPARE(shownTexts(*model, row + 1), expected);
                QCOMPARE(viewAt(cell(tab, 0, 0))->currentIndex().row(), row + 1);
            }
            press(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(document(), before);
        }
    }
    QCOMPARE(saved(), file);
}

void TestRowClipboard::editorOpensWhereItIsSaidTo_data()
{
    rowComesBackBelow_data();
}

// In one cell of each kind.
void TestRowClipboard::editorOpensWhereItIsSaidTo()
{
    QFETCH(QByteArray, spec);
    show(spec);
    QSet<QString> tried;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(*m_window, tab);
        for (int row = tab == 0 ? 0 : 1; row < model->rowCount(); ++row) {
            for (int column = tab == 0 ? 0 : 1; column < model->columnCount(); ++column) {
                const QModelIndex index = model->index(row, column);
                if (tried.contains(kindOf(index)))
                    continue;
                tried.insert(kindOf(index));
                QWidget* const editor = open(index, Way::EditKey);
                QCOMPARE(opensEditor(index), editor != nullptr);
                if (auto* const dialog = qobject_cast<QDialog*>(editor))
                    dialog->reject();
                else if (editor != nullptr)
                    Q_EMIT delegateAt(index)->closeEditor(editor);
            }
        }
    }
}

void TestRowClipboard::fieldIsPastedIntoTheCell_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const Place& place, const char* content,
                        const char* expected) {
        QTest::newRow(name) << place << QString::fromUtf8(content) << text(expected);
    };
    constexpr Place MAX_SCANS{DE_TAB1, 0, "@MAX_SCANS", 1};
    constexpr Place KEYWORD{DE_TAB1, 0, "@REG_NAME", 0};
    constexpr Place COMMENT{DE_TAB1, 0, "# Everything that can be edited", 0};
    constexpr Place VARIABLE{DE_TAB2, 3, "N_ENG", 1};
    row("number", MAX_SCANS, "500", "500");
    row("with a line end", MAX_SCANS, "500\r\n", "500");
    row("with blanks", MAX_SCANS, "  500 ", "500");
    row("with a byte order mark", MAX_SCANS,
        "\xEF\xBB\xBF"
        "500",
        "500");
    row("with an empty line", MAX_SCANS, "500\n\n", "500");
    row("no number", MAX_SCANS, "many", "many");
    row("choice", {DE_TAB1, 0, "@LOG_STATISTICS", 1}, "no", "no");
    row("second value", {DE_TAB1, 0, "@RUNNING_AVERAGE", 2}, "other_event", "other_event");
    row("keyword", KEYWORD, "@SYNC_EVENT", "@SYNC_EVENT");
    row("keyword in lower case", KEYWORD, "sync_event", "@SYNC_EVENT");
    row("comment in place of a keyword", KEYWORD, "# not now", "# not now");
    row("comment", COMMENT, "# Something else", "# Something else");
    row("keyword in place of a comment", COMMENT, "sync_event", "@SYNC_EVENT");
    row("other text in place of a comment", COMMENT, "some words", "some words");
    row("line break in a keyword", KEYWORD, "\"sync_\nevent\"", "@SYNC_EVENT");
    row("variable", VARIABLE, "oil_temp[C]", "oil_temp[C]");
    row("line break in a variable", VARIABLE, "\"oil_\ntemp\"", "oil_temp");
    row("comment in a list", {DE_TAB2, 1, "# Speed and torque", 1}, "# Other", "# Other");
    row("member", {DE_TAB2, 3, "N_ENG_AVG", 2}, ".SD", ".SD");
    row("channel", {DE_TAB2, 3, "N_ENG", 3}, "N_OTHER", "N_OTHER");
    row("parameter", {DE_TAB3, 1, "BORE", 1}, "STROKE", "STROKE");
    row("literal", {DE_TAB3, 1, "BORE", 2}, "'a b'", "'a b'");
    row("literal over two lines", {DE_TAB3, 1, "BORE", 2}, "\"\"\"a\nb\"\"\"", "\"a\nb\"");
    row("literal in a spreadsheet's quotes", {DE_TAB3, 1, "BORE", 2}, "\"a\nb\"", "\"a\nb\"");
    row("description", {DE_TAB1, 0, "@DESCRIPTION", 1}, "\"One line\"", "\"One line\"");
    row("path over two lines", {DE_TAB1, 0, "@OUTPUT_PATH", 1}, "\"/a\n/b\"", "\"/a\n/b\"");
    row("two lines with a quote", {DE_TAB1, 0, "@DESCRIPTION", 1}, "\"a\"\"\nb\"", "a\"b");
    row("variable over two lines", {DE_TAB1, 0, "@ENABLE", 1}, "\"a\nb\"", "ab");
    row("alternate name", {DE_TAB4, 1, "eng_speed", 2}, "shaft", "shaft");
    row("file of an engine", {DE_TAB5, 1, "1", 2}, "/a:b:1", "/a:b:1");
}

void TestRowClipboard::fieldIsPastedIntoTheCell()
{
    QFETCH(Place, place);
    QFETCH(QString, content);
    showOnce();
    const QByteArray file = saved();
    const QModelIndex index = cellAt(place);
    goToCell(index);
    paste(content);
    QTEST(index.data().toString(), "expected");
    QCOMPARE(stack()->count(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(index.row(), cellAt(place).row());
    QCOMPARE(saved(), file);
}

void TestRowClipboard::quotedTextIsCopiedAndPasted_data()
{
    QTest::addColumn<QString>("value");
    for (const char* const value : {"'one line'", "\"one line\"", "'two\nlines'", "\"two\nlines\"",
                                    "'a\tb'", "'it is \"a\"'"})
        QTest::newRow(value) << text(value);
}

// By Ctrl+C from one cell to another.
void TestRowClipboard::quotedTextIsCopiedAndPasted()
{
    QFETCH(QString, value);
    show();
    const QModelIndex from = valueOf("@DESCRIPTION");
    const QModelIndex to = valueOf("@FILENAME");
    edit(DE_TAB1, from.row(), from.column(), value);
    goToCell(from);
    press(Qt::Key_C, Qt::ControlModifier);
    goToCell(to);
    press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(to.data().toString(), value);
}

void TestRowClipboard::fieldIsRefused_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("news");
    const auto row = [](const char* name, const Place& place, const QString& content,
                        const char* news) {
        QTest::newRow(name) << place << content << text(news);
    };
    constexpr Place MAX_SCANS{DE_TAB1, 0, "@MAX_SCANS", 1};
    constexpr auto NO_EDITOR = "The cell has no editor: not pasted";
    constexpr auto NOTHING = "Nothing to paste";
    row("no second value", {DE_TAB1, 0, "@MAX_SCANS", 2}, text("a"), NO_EDITOR);
    row("no value", {DE_TAB1, 0, "@FIFO_LOG_BUFFER", 1}, text("a"), NO_EDITOR);
    row("value of a comment", {DE_TAB1, 0, "# Everything that can be edited", 1}, text("a"),
        NO_EDITOR);
    row("path of a comment", {DE_TAB5, 1, "# The engine itself", 2}, text("/a:b:1"), NO_EDITOR);
    row("empty clipboard", MAX_SCANS, QString(), NOTHING);
    row("blanks", MAX_SCANS, text("  \n \t\n"), NOTHING);
    row("placeholder", MAX_SCANS, text("FILLER_TXT"), NOTHING);
    row("zero bytes", MAX_SCANS, QString(1000000, QChar(0)), NOTHING);
    row("long text", MAX_SCANS, QString(32768, QLatin1Char('7')), "A text is too long: not pasted");
    row("longest text", MAX_SCANS, QString(9000000, QLatin1Char('7')),
        "A text is too long: not pasted");
}

void TestRowClipboard::fieldIsRefused()
{
    QFETCH(Place, place);
    QFETCH(QString, content);
    showOnce();
    const QStringList before = document();
    goToCell(cellAt(place));
    paste(content);
    QTEST(newsOf(*m_window), "news");
    QVERIFY(isUntouched(before));
}

// The file has no such field, so no edit is stored, either.
void TestRowClipboard::unsetCellTakesNoField()
{
    show("@SCRIBON\ncell\n@SCAN_LIST\nv N\n");
    TreeModel* const model = modelOf(*m_window, DE_TAB2);
    QVERIFY(model->insertRows(2, 1));
    const QStringList before = document();
    goToCell(model->index(2, 2));
    paste(text(".AV"));
    QCOMPARE(newsOf(*m_window), text("The cell has no editor: not pasted"));
    QVERIFY(isUntouched(before));
}

void TestRowClipboard::hiddenRowIsNoRow()
{
    show();
    const QStringList before = document();
    goToCell(cell(DE_TAB2, 0, 1));
    copyRow();
    QCOMPARE(newsOf(*m_window), text("No row is selected"));
    paste(text("oil_temp"));
    QCOMPARE(newsOf(*m_window), text("No cell is selected"));
    viewOf(*m_window, DE_TAB2)->setCurrentIndex({});
    copyRow();
    QCOMPARE(newsOf(*m_window), text("No row is selected"));
    paste(text("oil_temp"));
    QCOMPARE(newsOf(*m_window), text("No cell is selected"));
    QVERIFY(isUntouched(before));
}

void TestRowClipboard::rowsArePasted_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QStringList>("expected");  // all columns, joined by "|"
    const auto row = [](const char* name, int tab, const char* content, const QStringList& rows) {
        QTest::newRow(name) << tab << text(content) << rows;
    };
    row("keywords", DE_TAB1, "@SYNC_EVENT\tgo\nmax_scans\t5\n",
        {text("@SYNC_EVENT|go| "), text("@MAX_SCANS|5| ")});
    row("two values", DE_TAB1, "@RUNNING_AVERAGE\t5[sec]\tgo",
        {text("@RUNNING_AVERAGE|5[sec]|go")});
    row("keyword without a value", DE_TAB1, "@FIFO_LOG_BUFFER\t\t", {text("@FIFO_LOG_BUFFER| | ")});
    row("unknown keyword", DE_TAB1, "@something\ta", {text("@SOMETHING|a| ")});
    row("free text", DE_TAB1, "some words\ta\tb", {text("some words|a|b")});
    row("comments", DE_TAB1, "# one\n# two\t\t",
        {text("# one|FILLER_TXT|FILLER_TXT"), text("# two|FILLER_TXT|FILLER_TXT")});
    row("comment of several fields", DE_TAB1, "# one\ttwo\tthree",
        {text("# one two three|FILLER_TXT|FILLER_TXT")});
    row("description", DE_TAB1, "@DESCRIPTION\t\"\"\"a\nb\"\"\"\n",
        {text("@DESCRIPTION|\"a\nb\"| ")});
    row("description of another system", DE_TAB1, "@DESCRIPTION\t\"\"\"a\r\nb\"\"\"\r\n",
        {text("@DESCRIPTION|\"a\nb\"| ")});
    row("entries", DE_TAB2, "a\t.AV\tA\nb\t\tB\n", {text(" |a|.AV|A"), text(" |b| |B")});
    row("variables alone", DE_TAB2, "a\nb\n", {text(" |a| | "), text(" |b| | ")});
    row("channel alone", DE_TAB2, "\t\tA", {text(" | | |A")});
    row("comment of a list", DE_TAB2, "# one\t\t\na\t\tA",
        {text(" |# one|FILLER_TXT|FILLER_TXT"), text(" |a| |A")});
    row("empty lines", DE_TAB2, "\na\t\tA\n\t\t\n  \nb\t\tB\n\n",
        {text(" |a| |A"), text(" |b| |B")});
    row("placeholders", DE_TAB2, "a\tFILLER_TXT\tA", {text(" |a| |A")});
    row("line breaks in cells", DE_TAB2, "\"a\nb\"\t\t\"A\tB\"", {text(" |ab| |A\tB")});
    row("parameters", DE_TAB3, "A\tx[IN]\nB\t'y'\n# one\t",
        {text(" |A|x[IN]"), text(" |B|'y'"), text(" |# one|FILLER_TXT")});
    row("literal over two lines", DE_TAB3, "A\t\"a\nb\"", {text(" |A|\"a\nb\"")});
    row("alternate names", DE_TAB4, "a\tx\n# one\nb\t",
        {text(" |a|x"), text(" |# one|FILLER_TXT"), text(" |b| ")});
    row("lists of engines", DE_TAB5, "2\t/a:b:1\n# one\n",
        {text(" |2|/a:b:1"), text(" |# one|FILLER_TXT")});
}

void TestRowClipboard::rowsArePasted()
{
    QFETCH(int, tab);
    QFETCH(QString, content);
    QFETCH(QStringList, expected);
    showOnce();
    const QByteArray file = saved();
    const QStringList before = document();
    TreeModel* const model = modelOf(*m_window, tab);
    const QAbstractItemModelTester tester(model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    goToCell(model->index(1, 1));
    paste(content);
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(rowTexts(*model, 2 + i).join(QLatin1Char('|')), expected[i]);
    QCOMPARE(document().size(), before.size() + expected.size());
    QCOMPARE(stack()->count(), 1);
    const QStringList after = document();
    for (int round = 0; round < 2; ++round) {
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(document(), before);
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(QKeySequence::Redo));
        QCOMPARE(document(), after);
    }
    press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(stack()->isClean());
    QCOMPARE(saved(), file);
}

void TestRowClipboard::rowsAreRefused_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("news");
    const auto row = [](const char* name, int tab, const QString& content, const char* news) {
        QTest::newRow(name) << tab << content << text(news);
    };
    row("keywords", DE_TAB1, text("@MAX_SCANS\t5\t\t"), "Row 1 has 4 fields, not 3: not pasted");
    row("second entry", DE_TAB2, text("a\t\tA\nb\t\tB\tc\n"),
        "Row 2 has 4 fields, not 3: not pasted");
    row("row behind an empty line", DE_TAB3, text("A\ta\n\nB\tb\tc"),
        "Row 2 has 3 fields, not 2: not pasted");
    row("alternate names", DE_TAB4, text("a\tb\tc"), "Row 1 has 3 fields, not 2: not pasted");
    row("lists of engines", DE_TAB5, text("1\t/a:b:1\tc"), "Row 1 has 3 fields, not 2: not pasted");
    row("comment", DE_TAB5, text("# a\tb\tc"), "Row 1 has 3 fields, not 2: not pasted");
    row("tabs", DE_TAB2, text("a") + QString(1000000, QLatin1Char('\t')),
        "Row 1 has 1000001 fields, not 3: not pasted");
    row("second value of a keyword that has none", DE_TAB1,
        text("@SYNC_EVENT\tgo\n@MAX_SCANS\t5\t6"), "Row 2 has too many values: not pasted");
    row("long text", DE_TAB2, text("a\t\t") + QString(40000, QLatin1Char('A')),
        "A text is too long: not pasted");
    row("long comment", DE_TAB2, text("#a\t") + QString(40000, QLatin1Char('A')),
        "A text is too long: not pasted");
    row("many rows", DE_TAB2, text("a\t\tA\n").repeated(5001), "More than 5000 rows: not pasted");
    row("empty rows", DE_TAB2, text("\t\t\n").repeated(3), "Nothing to paste");
}

void TestRowClipboard::rowsAreRefused()
{
    QFETCH(int, tab);
    QFETCH(QString, content);
    showOnce();
    const QStringList before = document();
    goToCell(cell(tab, 1, 1));
    paste(content);
    QTEST(newsOf(*m_window), "news");
    QVERIFY(isUntouched(before));
}

// As Insert Row does.
void TestRowClipboard::rowsArePastedBelowTheFirstWithoutACurrentOne()
{
    show();
    goToCell(cell(DE_TAB2, 1, 1));
    viewOf(*m_window, DE_TAB2)->setCurrentIndex({});
    paste(text("a\t\tA"));
    QCOMPARE(rowTexts(*modelOf(*m_window, DE_TAB2), 1).join(QLatin1Char('|')), text(" |a| |A"));
}

void TestRowClipboard::nextPasteGoesOnBelow()
{
    show();
    goToCell(cell(DE_TAB2, 1, 3));
    paste(text("a\t\tA\nb\t\tB"));
    QCOMPARE(viewOf(*m_window, DE_TAB2)->currentIndex(), cell(DE_TAB2, 3, 1));
    paste(text("c\t\tC\nd\t\tD"));
    QCOMPARE(columnTexts(*modelOf(*m_window, DE_TAB2), 3).mid(2, 4),
             (QStringList{text("A"), text("B"), text("C"), text("D")}));
    QCOMPARE(stack()->count(), 2);
}

void TestRowClipboard::manyRowsAreOneStep()
{
    show();
    const QByteArray file = saved();
    const QStringList before = document();
    QString content;
    for (int i = 0; i < ROWS_OF_A_PASTE; ++i)
        content += QStringLiteral("var_%1\t.AV\tCHAN_%1\r\n").arg(i);
    goToCell(cell(DE_TAB2, 2, 1));
    paste(content);
    QCOMPARE(newsOf(*m_window), text("500 rows pasted"));
    const TreeModel* const model = modelOf(*m_window, DE_TAB2);
    for (int i = 0; i < ROWS_OF_A_PASTE; ++i)
        QCOMPARE(model->index(3 + i, 3).data().toString(), QStringLiteral("CHAN_%1").arg(i));
    QCOMPARE(model->getErrorCount(), 0);
    QCOMPARE(stack()->count(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(document(), before);
    QCOMPARE(saved(), file);
}

void TestRowClipboard::pastedRowsAreValidated()
{
    show();
    TreeModel* const model = modelOf(*m_window, DE_TAB2);
    QCOMPARE(model->getErrorCount(), 0);
    goToCell(model->index(2, 1));
    paste(text("1bad\t\tGOOD\ngood\t.XX\tN_ENG\n# fine\ngood\t\t\n"));
    const auto code = [&](int row, int column) {
        return model->errorCode(model->index(row, column)).toInt();
    };
    QCOMPARE(code(3, 1), int(DE_SYNTAX_ERR));
    QCOMPARE(code(3, 3), int(DE_NOERROR));
    QCOMPARE(code(4, 2), int(DE_SYNTAX_ERR));
    QCOMPARE(code(4, 3), int(DE_DUPLICATE_ERR));
    QCOMPARE(code(5, 1), int(DE_NOERROR));
    QCOMPARE(code(6, 3), int(DE_SYNTAX_ERR));
    QCOMPARE(model->getErrorCount(), 4);
    press(Qt::Key_Z, Qt::ControlModifier);
    m_window->checkErrorCount();
    QCOMPARE(model->getErrorCount(), 0);
}

// Comments, too, are valid on each tab.
void TestRowClipboard::pastedDocumentIsLoadedAgain()
{
    show();
    const QVector<QString> contents{text("# one\n# two"), text("# one\na\t.AV\tA\nb\t\tB"),
                                    text("# one\nA\t'x y'"), text("# one\na\tx"),
                                    text("# one\n2\t/a:b:1")};
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(*m_window, tab);
        const int errors = model->getErrorCount();
        goToCell(cell(tab, 1, 1));
        paste(contents[tab]);
        QCOMPARE(model->getErrorCount(), errors);
    }
    const QByteArray file = saved();
    m_window->loadFile(QStringLiteral("/specs/good"), false);
    QCOMPARE(saved(), file);
    QVERIFY(document().contains(text("|a|.AV|A")));
    QVERIFY(document().contains(text("|# one|FILLER_TXT|FILLER_TXT")));
}

void TestRowClipboard::hostileText_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("quote that is not closed") << text("\"") + QString(1000000, QLatin1Char('a'));
    QTest::newRow("quotes that are not closed") << text("\"a\t\"b\n").repeated(200000);
    QTest::newRow("quotes") << QString(1000001, QLatin1Char('"'));
    QTest::newRow("tabs") << QString(1000000, QLatin1Char('\t'));
    QTest::newRow("tabs in quotes")
        << text("\"a") + QString(1000000, QLatin1Char('\t')) + text("b\"");
    QTest::newRow("line ends") << text("\r\n").repeated(500000);
    QTest::newRow("lines") << text("a\n").repeated(500000);
    QTest::newRow("zero bytes between tabs")
        << (QString(QChar(0)) + QLatin1Char('\t')).repeated(500000);
    QTest::newRow("half a character") << QString(QChar(0xD800)).repeated(500000);
}

void TestRowClipboard::hostileText()
{
    QFETCH(QString, content);
    showOnce();
    const QStringList before = document();
    goToCell(cell(DE_TAB2, 1, 1));
    paste(content);
    QVERIFY2(isUntouched(before), qPrintable(newsOf(*m_window)));
    QVERIFY(!newsOf(*m_window).isEmpty());
}

void TestRowClipboard::keysBelongToTheOpenEditor_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("typed");  // none: it has no line
    QTest::newRow("line") << Place{DE_TAB1, 0, "@SYNC_EVENT", 1} << text("other");
    QTest::newRow("combo box") << Place{DE_TAB2, 3, "N_ENG", 3} << text("other");
    QTest::newRow("spin box") << Place{DE_TAB1, 0, "@MAX_SCANS", 1} << text("77");
    QTest::newRow("list of choices") << Place{DE_TAB1, 0, "@LOG_STATISTICS", 1} << QString();
    QTest::newRow("dialog") << Place{DE_TAB2, 3, "N_ENG", 1} << text("other");
}

void TestRowClipboard::keysBelongToTheOpenEditor()
{
    QFETCH(Place, place);
    QFETCH(QString, typed);
    show();
    const QStringList before = document();
    const QModelIndex index = cellAt(place);
    QVERIFY(open(index) != nullptr);
    if (!typed.isEmpty()) {
        press(Qt::Key_A, Qt::ControlModifier);
        paste(typed);
        press(Qt::Key_A, Qt::ControlModifier);
        setClipboard(QString());
        press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboardText(), typed);
    }
    copyRow();
    paste(text("a\tb\tc\nd\te\tf"));
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
    QCOMPARE(clipboardText(), text("a\tb\tc\nd\te\tf"));
    QVERIFY(newsOf(*m_window) != text("Row copied"));
    QVERIFY(editorOf(index) != nullptr);
}

// The editor is open, but something else has the focus.
void TestRowClipboard::openEditorIsTakenOver()
{
    show();
    const QModelIndex index = valueOf("@SYNC_EVENT");
    QVERIFY(open(index) != nullptr);
    typeOver(text("other"));
    tabsOf(*m_window)->tabBar()->setFocus();
    copyRow();
    QVERIFY2(clipboardText().startsWith(text("@SYNC_EVENT\tother")), qPrintable(clipboardText()));
}

void TestRowClipboard::tellsThatNothingIsOpen()
{
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    setClipboard(text("a\tb"));
    for (const Qt::KeyboardModifiers shift : {Qt::NoModifier, Qt::ShiftModifier}) {
        m_window->findChild<QStatusBar*>()->clearMessage();
        press(shift == Qt::NoModifier ? Qt::Key_V : Qt::Key_C, Qt::ControlModifier | shift);
        QCOMPARE(newsOf(*m_window), text("No file is open"));
    }
    QCOMPARE(clipboardText(), text("a\tb"));
}

void TestRowClipboard::tellsThatNothingIsOpenAfterAFailedLoad()
{
    show();
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
    const QStringList before = document();
    viewOf(*m_window, DE_TAB1)->setFocus();
    viewOf(*m_window, DE_TAB1)->setCurrentIndex(cell(DE_TAB1, 1, 1));
    paste(text("a\tb"));
    QCOMPARE(newsOf(*m_window), text("No file is open"));
    QCOMPARE(document(), before);
}

void TestRowClipboard::keysAreNotThoseOfOthers()
{
    QList<QKeySequence> keys;
    for (const QAction* const action : m_window->findChildren<QAction*>())
        keys += action->shortcuts();
    for (const QShortcut* const shortcut : m_window->findChildren<QShortcut*>())
        keys.append(shortcut->key());
    for (const char* const name : {"Ctrl+V", "Ctrl+Shift+C"})
        QCOMPARE(keys.count(QKeySequence(QLatin1String(name))), 1);
    QVERIFY(!keys.contains(QKeySequence(QKeySequence::Copy)));
}

void TestRowClipboard::messagesFitBesideTheCounters_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("start");
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QTest::addRow("tab %d, fields", tab) << tab << text("a\t").repeated(1000) << text("Row 1 ");
        QTest::addRow("tab %d, text", tab)
            << tab << text("a\t") + QString(40000, QLatin1Char('a')) << text("A text ");
        QTest::addRow("tab %d, rows", tab) << tab << text("a\n").repeated(5001) << text("More ");
    }
}

void TestRowClipboard::messagesFitBesideTheCounters()
{
    QFETCH(int, tab);
    QFETCH(QString, content);
    showOnce();
    m_window->resize(600, 600);
    goToCell(cell(tab, 1, 1));
    paste(content);
    const auto* const bar = m_window->findChild<QStatusBar*>(QStringLiteral("statusbar"));
    const auto* const counters = bar->findChild<StatusBarForm*>();
    QFETCH(QString, start);
    QVERIFY2(newsOf(*m_window).startsWith(start), qPrintable(newsOf(*m_window)));
    QVERIFY(bar->fontMetrics().horizontalAdvance(newsOf(*m_window)) < counters->x() - 6);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestRowClipboard)

#include "tst_row_clipboard.moc"
