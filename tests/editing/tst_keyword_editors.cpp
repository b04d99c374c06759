// The editors of the Keywords tab: what they offer, show and store.

#include <QAbstractItemView>
#include <QLabel>
#include <QUndoStack>
#include <QtTest>

#include "editing_test.h"
#include "editor_types.h"
#include "golden_keywords.h"

namespace {

const QByteArray ONE_KEYWORD = "@SCRIBON\nlog\n";
const auto FIRST_CHOICE = QStringLiteral("clear_statistics_event");

QString firstGroup(const QWidget* dialog)
{
    return partOf<QComboBox>(dialog, "groupComboBox")->itemText(0);
}

QStringList offeredWords()
{
    QStringList words;
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (isOffered(keyword))
            words.append(text(keyword.spelling).mid(1).toLower());
    }
    return words;
}

// The tool tips of the items if all keywords are offered. Tool tips are looked up by the position
// in the program's table, so there are none from the first keyword on that is not offered.
QStringList toolTipsOfAllChoices()
{
    QStringList tips;
    bool moved = false;
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (!isOffered(keyword))
            moved = true;
        else
            tips.append(moved ? QString() : text(keyword.choiceHelp()));
    }
    return tips;
}

// Rows with the keywords of lists, which can also be on this tab, with a variable as value.
void addListKeywords()
{
    QTest::addColumn<QByteArray>("keyword");
    for (const char* const keyword : {"@SCAN_LIST", "@META_DATA", "@SCAN_LIST_AUX_USER"})
        QTest::newRow(keyword) << QByteArray(keyword);
}

}  // namespace

class TestKeywordEditors : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void onlyRowOffersAllKeywords();
    void lookOfTheKeywordComboBox();
    void keywordsOfOtherRowsAreNotOffered_data();
    void keywordsOfOtherRowsAreNotOffered();
    void toolTipsAreLookedUpByPosition();
    void editorsUseTheFontOfThePreferences();

    void keywordOpensOn_data();
    void keywordOpensOn();
    void editorOfAnEmptyKeywordShowsTheFirstItem();
    void keywordIsStoredAs_data();
    void keywordIsStoredAs();
    void pickedKeywordIsStoredAtOnce_data();
    void pickedKeywordIsStoredAtOnce();
    void pickingTheFirstKeywordNeedsReturn();
    void changedKeywordChangesTheEditorOfItsValue();

    void dialogOffers_data();
    void dialogOffers();
    void numberHasLimits();
    void editorOfAnInvalidNumberShowsZero();
    void clearedNumberKeepsTheValue();
    void typedTextIsValidated_data();
    void typedTextIsValidated();
    void invalidTextIsStored();
    void lineTakesAnyLength();
    void editorOfAPlaceholderIsEmpty();

    void variableIsShownTrimmed();
    void unknownVariableIsShownInTheLine();
    void pickedVariableIsStored();
    void variableOfAListIsShown_data() { addListKeywords(); }
    void variableOfAListIsShown();
    void pickedVariableOfAListIsStored_data() { addListKeywords(); }
    void pickedVariableOfAListIsStored();
    void intervalFillsTheOptionalLine();
    void variableInPlaceOfAnIntervalIsChosen();
    void intervalThatBeginsWithNoDigitIsAVariable_data();
    void intervalThatBeginsWithNoDigitIsAVariable();
    void intervalOrVariableIsStored_data();
    void intervalOrVariableIsStored();
    void pathFillsTheOptionalLine();
    void variableInPlaceOfAPathIsCleared();
    void pathOrVariableIsStored_data();
    void pathOrVariableIsStored();

    void yesOrNoShows_data();
    void yesOrNoShows();
    void yesOrNoIsStoredAtOnce();
    void returnKeepsATextThatIsNeitherYesNorNo();

    void eventOfAnAverageShowsItsText_data();
    void eventOfAnAverageShowsItsText();
    void secondValueOfATextOpens_data();
    void secondValueOfATextOpens();

private:
    // Opens the dialog for the value of a row with this keyword and value.
    VariableSelectionDialog* dialogOf(const char* keyword, const QString& value);
};

// ---- The list of keywords ----------------------------------------------------------------------

void TestKeywordEditors::onlyRowOffersAllKeywords()
{
    show(ONE_KEYWORD);
    const auto* const comboBox = openAs<QComboBox>(valueOf("@SCRIBON", 0));
    QVERIFY(comboBox != nullptr);
    QCOMPARE(itemsOf(comboBox), offeredWords());
    const QStringList tips = toolTipsOfAllChoices();
    for (int i = 0; i < comboBox->count(); ++i)
        QCOMPARE(comboBox->itemData(i, Qt::ToolTipRole).toString(), tips.at(i));
}

void TestKeywordEditors::lookOfTheKeywordComboBox()
{
    show(ONE_KEYWORD + "\n# note\n");
    for (int row = 0; row < 2; ++row) {
        const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB1, row, 0));
        QVERIFY(comboBox != nullptr);
        QVERIFY(comboBox->isEditable());
        QCOMPARE(comboBox->maxVisibleItems(), 15);
        QCOMPARE(comboBox->view()->selectionBehavior(), QAbstractItemView::SelectItems);
        QCOMPARE(comboBox->view()->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(comboBox->view()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    }
}

void TestKeywordEditors::keywordsOfOtherRowsAreNotOffered_data()
{
    QTest::addColumn<QString>("otherRow");
    QTest::addColumn<QString>("missing");
    QTest::newRow("a keyword") << text("@TEST_ID") << text("test_id");
    QTest::newRow("in lower case") << text("@enable") << text("enable");
    QTest::newRow("without its @") << text("enable") << text("enable");
    QTest::newRow("in upper case without its @") << text("ENABLE") << QString();
    QTest::newRow("a comment") << text("#enable") << QString();
    QTest::newRow("none in the list") << text("@SCAN_LIST") << QString();
}

void TestKeywordEditors::keywordsOfOtherRowsAreNotOffered()
{
    QFETCH(QString, otherRow);
    QFETCH(QString, missing);
    show(ONE_KEYWORD + "\n@REG_NAME\nname\n");
    edit(DE_TAB1, 1, 0, otherRow);
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB1, 0, 0));
    QVERIFY(comboBox != nullptr);
    QStringList expected = offeredWords();
    expected.removeOne(missing);
    QCOMPARE(itemsOf(comboBox), expected);
    QCOMPARE(comboBox->currentText(), text("scribon"));
}

void TestKeywordEditors::toolTipsAreLookedUpByPosition()
{
    show(ONE_KEYWORD + "\n@ENABLE\ntake_data\n");
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB1, 0, 0));
    QVERIFY(comboBox != nullptr);
    const int missing = 4;
    const QStringList tips = toolTipsOfAllChoices();
    for (int i = 0; i < comboBox->count(); ++i)
        QCOMPARE(comboBox->itemData(i, Qt::ToolTipRole).toString(),
                 i < missing ? tips.at(i) : QString());
}

void TestKeywordEditors::editorsUseTheFontOfThePreferences()
{
    show(ONE_KEYWORD);
    QFont font = m_window->myPrefs.editorFont;
    font.setPointSize(19);
    font.setItalic(true);
    m_window->myPrefs.editorFont = font;
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB1, 0, 0));
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->font().pointSize(), 19);
    QVERIFY(comboBox->font().italic());
}

// ---- A row's keyword ---------------------------------------------------------------------------

void TestKeywordEditors::keywordOpensOn_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a keyword") << text("@REG_NAME") << text("reg_name");
    QTest::newRow("in lower case") << text("@reg_name") << text("reg_name");
    QTest::newRow("between blanks") << text(" @REG_NAME ") << text(" @REG_NAME ");
    QTest::newRow("none in the list") << text("@SCAN_LIST") << FIRST_CHOICE;
    QTest::newRow("an unknown keyword") << text("@NONSENSE") << FIRST_CHOICE;
    QTest::newRow("a comment") << text("# A note") << text("# A note");
    QTest::newRow("a text") << text("Some text") << text("Some text");
    QTest::newRow("a new row") << text(" ") << text(" ");
}

void TestKeywordEditors::keywordOpensOn()
{
    QFETCH(QString, keyword);
    QFETCH(QString, shown);
    show(ONE_KEYWORD + "\n@MAX_SCANS\n1\n");
    edit(DE_TAB1, 1, 0, keyword);
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB1, 1, 0));
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->currentText(), shown);
}

void TestKeywordEditors::editorOfAnEmptyKeywordShowsTheFirstItem()
{
    show(ONE_KEYWORD);
    const QModelIndex keyword = cell(DE_TAB1, 0, 0);
    modelAt(keyword)->setData(keyword, QString());
    const auto* const comboBox = openAs<QComboBox>(keyword);
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->currentText(), FIRST_CHOICE);
}

void TestKeywordEditors::keywordIsStoredAs_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    const auto add = [](const char* name, const char* before, const char* typed,
                        const char* stored) {
        QTest::newRow(name) << text(before) << text(typed) << text(stored);
    };
    add("a keyword over a keyword", "@MAX_SCANS", "reg_name", "@REG_NAME");
    add("in mixed case", "@MAX_SCANS", "Reg_Name", "@REG_NAME");
    add("between blanks", "@MAX_SCANS", "  reg_name ", "@REG_NAME");
    add("with its @", "@MAX_SCANS", "@reg_name", "@@REG_NAME");
    add("what is no keyword", "@MAX_SCANS", "nonsense", "@NONSENSE");
    add("a comment over a keyword", "@MAX_SCANS", "# a note", "@# A NOTE");
    add("nothing over a keyword", "@MAX_SCANS", "", "@");
    add("over an unknown keyword", "@NONSENSE", "reg_name", "@REG_NAME");

    add("a keyword over a comment", "# note", "reg_name", "@REG_NAME");
    add("a comment over a comment", "# note", "# Another Note", "# Another Note");
    add("a comment between blanks", "# note", "  # Another ", "# Another");
    add("what is no keyword over a comment", "# note", "Nonsense", "Nonsense");
    add("a keyword with its @ over a comment", "# note", "@mode", "@@MODE");
    add("a list's keyword over a comment", "# note", "scan_list", "@SCAN_LIST");

    add("a keyword in a new row", " ", "reg_name", "@REG_NAME");
    add("a keyword with its @ in a new row", " ", "@mode", "@@MODE");
    add("what is no keyword in a new row", " ", "Nonsense", "Nonsense");
    add("a comment in a new row", " ", "# A note", "# A NOTE");
    add("a keyword over a text", "Some text", "reg_name", "@REG_NAME");
    add("a text over a text", "Some text", "Another", "Another");
    add("a keyword with its @ over a text", "Some text", "@mode", "@@MODE");
}

void TestKeywordEditors::keywordIsStoredAs()
{
    QFETCH(QString, before);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    show(ONE_KEYWORD + "\n@FILENAME\n'x'\n");
    edit(DE_TAB1, 1, 0, before);
    const QModelIndex keyword = cell(DE_TAB1, 1, 0);
    QVERIFY(open(keyword) != nullptr);
    typeOver(typed);
    press(Qt::Key_Return);
    QCOMPARE(rowTexts(*modelAt(keyword), 1),
             QStringList({stored, text("'x'"), text("FILLER_TXT")}));
    stack()->undo();
    QCOMPARE(keyword.data().toString(), before);
}

void TestKeywordEditors::pickedKeywordIsStoredAtOnce_data()
{
    QTest::addColumn<QString>("before");
    QTest::newRow("a keyword") << text("@FILENAME");
    QTest::newRow("a comment") << text("# note");
    QTest::newRow("a new row") << text(" ");
}

void TestKeywordEditors::pickedKeywordIsStoredAtOnce()
{
    QFETCH(QString, before);
    show(ONE_KEYWORD + "\n@MAX_SCANS\n1\n");
    edit(DE_TAB1, 1, 0, before);
    stack()->clear();
    const QModelIndex keyword = cell(DE_TAB1, 1, 0);
    auto* const comboBox = openAs<QComboBox>(keyword);
    QVERIFY(comboBox != nullptr);
    pick(comboBox, text("enable"));
    QCOMPARE(keyword.data().toString(), text("@ENABLE"));
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
}

// It is the current item already, although the line edit shows the comment's text.
void TestKeywordEditors::pickingTheFirstKeywordNeedsReturn()
{
    show(ONE_KEYWORD + "\n@MAX_SCANS\n1\n");
    edit(DE_TAB1, 1, 0, text("# note"));
    const QModelIndex keyword = cell(DE_TAB1, 1, 0);
    auto* const comboBox = openAs<QComboBox>(keyword);
    QVERIFY(comboBox != nullptr);
    pick(comboBox, FIRST_CHOICE);
    QCOMPARE(keyword.data().toString(), text("# note"));
    QCOMPARE(comboBox->currentText(), FIRST_CHOICE);
    press(Qt::Key_Return);
    QCOMPARE(keyword.data().toString(), text("@CLEAR_STATISTICS_EVENT"));
}

void TestKeywordEditors::changedKeywordChangesTheEditorOfItsValue()
{
    show(ONE_KEYWORD + "\n@REG_NAME\nname\n");
    QVERIFY(openAs<QLineEdit>(cell(DE_TAB1, 1, 1)) != nullptr);
    QVERIFY(open(cell(DE_TAB1, 1, 0)) != nullptr);
    typeOver(text("max_scans"));
    press(Qt::Key_Return);
    QVERIFY(openAs<QSpinBox>(cell(DE_TAB1, 1, 1)) != nullptr);
}

// ---- A keyword's value -------------------------------------------------------------------------

VariableSelectionDialog* TestKeywordEditors::dialogOf(const char* keyword, const QString& value)
{
    show(ONE_KEYWORD + "\n@REG_NAME\nname\n");
    edit(DE_TAB1, 1, 0, text(keyword));
    if (value != QLatin1String("name"))
        edit(DE_TAB1, 1, 1, value);
    stack()->clear();
    auto* const dialog = openAs<VariableSelectionDialog>(cell(DE_TAB1, 1, 1));
    if (dialog == nullptr)
        qFatal("no dialog opened");
    return dialog;
}

void TestKeywordEditors::dialogOffers_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QStringList>("offered");
    const QStringList all{text("take_data"), text("test_id"), text("scan_number"),
                          text("eng_speed")};
    const auto add = [&](const char* keyword, const char* group, const char* label,
                         const QStringList& offered) {
        QTest::newRow(keyword) << QByteArray(keyword) << text(group) << text(label) << offered;
    };
    for (const char* const keyword : {"@ENABLE", "@LOGGING_ACTIVE_LABEL"})
        add(keyword, "All Logical Variables", "", {all[0]});
    for (const char* const keyword : {"@GROUP", "@MODE", "@PROGRAM", "@TEST_ID", "@TEST_TYPE"})
        add(keyword, "All String Variables", "", {all[1]});
    for (const char* const keyword : {"@OUTPUT_PATH", "@META_HEADER_FILENAME"})
        add(keyword, "All String Variables", "Path", {all[1]});
    for (const char* const keyword : {"@SCAN_LIST", "@META_DATA", "@SCAN_LIST_AUX_USER"})
        add(keyword, "All Variables", "", all);
    add("@SCAN_INTERVAL", "", "Interval", {all[2]});
}

void TestKeywordEditors::dialogOffers()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QString, group);
    QFETCH(QString, label);
    QFETCH(QStringList, offered);
    const auto* const dialog = dialogOf(keyword.constData(), text("name"));
    if (!group.isEmpty())
        QCOMPARE(firstGroup(dialog), group);
    else
        QVERIFY(!firstGroup(dialog).startsWith(text("All ")));
    QCOMPARE(partOf<QLabel>(dialog, "interval_or_path")->text(), label);
    QCOMPARE(dialog->lineEdit()->isVisible(), !label.isEmpty());
    for (const char* const name : {"take_data", "test_id", "scan_number", "eng_speed"}) {
        const bool found = dialog->variableComboBox()->findText(text(name)) != -1;
        QCOMPARE(found, offered.contains(text(name)));
    }
}

void TestKeywordEditors::numberHasLimits()
{
    show(ONE_KEYWORD + "\n@MAX_SCANS\n72000\n");
    const QModelIndex value = cell(DE_TAB1, 1, 1);
    auto* const spinBox = openAs<QSpinBox>(value);
    QVERIFY(spinBox != nullptr);
    QCOMPARE(spinBox->value(), 72000);
    QCOMPARE(spinBox->minimum(), 0);
    QCOMPARE(spinBox->maximum(), 1000000);
    typeOver(text("1000000"));
    press(Qt::Key_Return);
    QCOMPARE(value.data().toString(), text("1000000"));
}

void TestKeywordEditors::editorOfAnInvalidNumberShowsZero()
{
    show(ONE_KEYWORD + "\n@REG_NAME\nname\n");
    edit(DE_TAB1, 1, 0, text("@MAX_SCANS"));
    const auto* const spinBox = openAs<QSpinBox>(cell(DE_TAB1, 1, 1));
    QVERIFY(spinBox != nullptr);
    QCOMPARE(spinBox->value(), 0);
}

void TestKeywordEditors::clearedNumberKeepsTheValue()
{
    show(ONE_KEYWORD + "\n@MAX_SCANS\n72000\n");
    const QModelIndex value = cell(DE_TAB1, 1, 1);
    QVERIFY(open(value) != nullptr);
    typeOver(QString());
    press(Qt::Key_Return);
    QCOMPARE(value.data().toString(), text("72000"));
    QCOMPARE(stack()->count(), 0);
}

void TestKeywordEditors::typedTextIsValidated_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("good");
    const auto add = [](const char* keyword, const QString& typed, bool good, int column = 1) {
        QTest::addRow("%s %d: %s", keyword, column, qPrintable(typed.left(40)))
            << QByteArray(keyword) << column << typed << good;
    };
    add("@DONE_EVENT", text("done_1"), true);
    add("@DONE_EVENT", QString(62, QLatin1Char('e')), true);
    add("@DONE_EVENT", QString(63, QLatin1Char('e')), false);
    add("@DONE_EVENT", text("no-event"), false);
    add("@DONE_EVENT", QString(), false);
    for (const char* const keyword : {"@FIFO_POST_TRIGGER_INTERVAL", "@RUNNING_AVERAGE"}) {
        add(keyword, text("10[msec]"), true);
        add(keyword, text("2.5[MIN]"), true);
        add(keyword, text("-3[hr]"), true);
        add(keyword, text("10 msec"), false);
        add(keyword, text("10[day]"), false);
        add(keyword, text("10[sec"), false);
        add(keyword, text("10[Sec]"), false);
        add(keyword, text("[sec]"), false);
    }
    add("@DESCRIPTION", text("'It''s'"), true);
    add("@DESCRIPTION", text("\"x\" + 'y'"), false);
    add("@DESCRIPTION", text("\"x\""), true);
    add("@DESCRIPTION", text("'x\""), false);
    add("@FILENAME", text("'x'"), true);
    add("@NONSENSE", text("'x'"), true);
    add("@NONSENSE", text("x"), false);
    add("@REG_NAME", text("_name1"), true);
    add("@REG_NAME", text("1name"), false);
    add("@SCRIBON", QString(79, QLatin1Char('s')), true);
    add("@SCRIBON", QString(80, QLatin1Char('s')), false);
    add("@ECM_LIST", QString(32, QLatin1Char('-')), true);
    add("@ECM_LIST", QString(33, QLatin1Char('-')), false);
    add("Some text", text("any thing"), true);
    add("@RUNNING_AVERAGE", text("event_1"), true, 2);
    add("@RUNNING_AVERAGE", text("no-event"), false, 2);
    add("Some text", QString(33, QLatin1Char('-')), false, 2);
    add("Some text", text("any thing"), true, 2);
}

void TestKeywordEditors::typedTextIsValidated()
{
    QFETCH(QByteArray, keyword);
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(bool, good);
    show(ONE_KEYWORD + "\n@GROUP\nname\n");
    edit(DE_TAB1, 1, 0, QString::fromLatin1(keyword));
    const QModelIndex value = cell(DE_TAB1, 1, column);
    QVERIFY(openAs<QLineEdit>(value) != nullptr);
    modelAt(value)->setErrorCode(value, good ? DE_SYNTAX_ERR : DE_NOERROR);
    typeOver(text("?"));
    typeOver(typed);
    QCOMPARE(modelAt(value)->errorCode(value).toInt(), good ? DE_NOERROR : DE_SYNTAX_ERR);
}

void TestKeywordEditors::invalidTextIsStored()
{
    show(ONE_KEYWORD + "\n@FIFO_POST_TRIGGER_INTERVAL\n10[msec]\n");
    const QModelIndex value = cell(DE_TAB1, 1, 1);
    QVERIFY(open(value) != nullptr);
    typeOver(text("10 msec"));
    press(Qt::Key_Return);
    QCOMPARE(value.data().toString(), text("10 msec"));
    QCOMPARE(modelAt(value)->errorCode(value).toInt(), int{DE_SYNTAX_ERR});
    m_window->checkErrorCount();
    QCOMPARE(modelAt(value)->errorCode(value).toInt(), int{DE_SYNTAX_ERR});
}

void TestKeywordEditors::lineTakesAnyLength()
{
    show(ONE_KEYWORD);
    const QModelIndex value = cell(DE_TAB1, 0, 1);
    const auto* const line = openAs<QLineEdit>(value);
    QVERIFY(line != nullptr);
    QCOMPARE(line->validator(), nullptr);
    const QString longText(300, QLatin1Char('s'));
    typeOver(longText);
    press(Qt::Key_Return);
    QCOMPARE(value.data().toString(), longText);
}

void TestKeywordEditors::editorOfAPlaceholderIsEmpty()
{
    show(ONE_KEYWORD);
    edit(DE_TAB1, 0, 1, text("FILLER_TXT"));
    const auto* const line = openAs<QLineEdit>(cell(DE_TAB1, 0, 1));
    QVERIFY(line != nullptr);
    QCOMPARE(line->text(), QString());
}

// ---- Variables, intervals and paths ------------------------------------------------------------

void TestKeywordEditors::variableIsShownTrimmed()
{
    const auto* const dialog = dialogOf("@TEST_ID", text("  test_id "));
    QCOMPARE(dialog->variableComboBox()->currentText(), text("test_id"));
    QCOMPARE(dialog->variableComboBox()->currentIndex(),
             dialog->variableComboBox()->findText(text("test_id")));
}

void TestKeywordEditors::unknownVariableIsShownInTheLine()
{
    auto* const dialog = dialogOf("@TEST_ID", text("no_such_variable"));
    QCOMPARE(dialog->variableComboBox()->currentText(), text("no_such_variable"));
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text("no_such_variable"));
    QCOMPARE(stack()->count(), 0);
}

void TestKeywordEditors::pickedVariableIsStored()
{
    auto* const dialog = dialogOf("@ENABLE", text("name"));
    dialog->variableComboBox()->setFocus();
    pick(dialog->variableComboBox(), text("take_data"));
    QCOMPARE(stack()->count(), 0);
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text("take_data"));
    QCOMPARE(stack()->count(), 1);
}

void TestKeywordEditors::variableOfAListIsShown()
{
    QFETCH(QByteArray, keyword);
    auto* const dialog = dialogOf(keyword.constData(), text(" eng_speed "));
    const QComboBox* const comboBox = dialog->variableComboBox();
    QCOMPARE(comboBox->currentText(), text("eng_speed"));
    QCOMPARE(comboBox->currentIndex(), comboBox->findText(text("eng_speed")));
    QVERIFY(!dialog->lineEdit()->isVisible());
    cancelDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text(" eng_speed "));
    QCOMPARE(stack()->count(), 0);
}

void TestKeywordEditors::pickedVariableOfAListIsStored()
{
    QFETCH(QByteArray, keyword);
    auto* const dialog = dialogOf(keyword.constData(), text("eng_speed"));
    dialog->variableComboBox()->setFocus();
    pick(dialog->variableComboBox(), text("scan_number"));
    QCOMPARE(stack()->count(), 0);
    acceptDialog(dialog);
    const QModelIndex value = cell(DE_TAB1, 1, 1);
    QCOMPARE(value.data().toString(), text("scan_number"));
    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QCOMPARE(value.data().toString(), text("eng_speed"));
}

void TestKeywordEditors::intervalFillsTheOptionalLine()
{
    auto* const dialog = dialogOf("@SCAN_INTERVAL", text("10[msec]"));
    QCOMPARE(dialog->lineEdit()->text(), text("10[msec]"));
    QCOMPARE(dialog->variableComboBox()->currentText(), QString());
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text("10[msec]"));
    QCOMPARE(stack()->count(), 0);
}

void TestKeywordEditors::variableInPlaceOfAnIntervalIsChosen()
{
    auto* const dialog = dialogOf("@SCAN_INTERVAL", text("scan_number"));
    QCOMPARE(dialog->lineEdit()->text(), QString());
    QCOMPARE(dialog->variableComboBox()->currentText(), text("scan_number"));
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text("scan_number"));
}

void TestKeywordEditors::intervalThatBeginsWithNoDigitIsAVariable_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a blank") << text(" 10[sec]") << text("10[sec]");
    QTest::newRow("a sign") << text("-10[sec]") << text("-10[sec]");
    QTest::newRow("a digit of another script")
        << QStringLiteral("\u0663[sec]") << QStringLiteral("\u0663[sec]");
}

// The first byte decides; blanks around a variable are removed.
void TestKeywordEditors::intervalThatBeginsWithNoDigitIsAVariable()
{
    QFETCH(QString, value);
    QFETCH(QString, shown);
    auto* const dialog = dialogOf("@SCAN_INTERVAL", value);
    QCOMPARE(dialog->lineEdit()->text(), QString());
    QCOMPARE(dialog->optionalText(), QString());
    QCOMPARE(dialog->variableComboBox()->currentText(), shown);
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), shown);
}

void TestKeywordEditors::intervalOrVariableIsStored_data()
{
    QTest::addColumn<QString>("interval");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("stored");
    QTest::newRow("an interval") << text("2[sec]") << QString() << text("2[sec]");
    QTest::newRow("a variable") << QString() << text("scan_number") << text("scan_number");
    QTest::newRow("both") << text("2[sec]") << text("scan_number") << text("2[sec]");
    QTest::newRow("a wrong interval") << text("2") << QString() << text("2");
}

void TestKeywordEditors::intervalOrVariableIsStored()
{
    QFETCH(QString, interval);
    QFETCH(QString, variable);
    QFETCH(QString, stored);
    auto* const dialog = dialogOf("@SCAN_INTERVAL", text("10[msec]"));
    typeVariable(dialog, variable);
    dialog->lineEdit()->setFocus();
    typeOver(interval);
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), stored);
}

void TestKeywordEditors::pathFillsTheOptionalLine()
{
    auto* const dialog = dialogOf("@OUTPUT_PATH", text("/data/cell"));
    QCOMPARE(dialog->lineEdit()->text(), text("/data/cell"));
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text("/data/cell"));
    QCOMPARE(stack()->count(), 0);
}

// The cell still keeps its value.
void TestKeywordEditors::variableInPlaceOfAPathIsCleared()
{
    auto* const dialog = dialogOf("@OUTPUT_PATH", text("test_purpose"));
    QCOMPARE(dialog->variableComboBox()->currentText(), QString());
    QCOMPARE(dialog->lineEdit()->text(), QString());
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), text("test_purpose"));
}

void TestKeywordEditors::pathOrVariableIsStored_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a path") << text("/other") << QString() << text("/other");
    QTest::newRow("a variable") << QString() << text("test_purpose") << text("test_purpose");
    QTest::newRow("both") << text("/other") << text("test_purpose") << text("/other");
    QTest::newRow("a relative path") << text("other") << QString() << text("other");
}

void TestKeywordEditors::pathOrVariableIsStored()
{
    QFETCH(QString, path);
    QFETCH(QString, variable);
    QFETCH(QString, stored);
    auto* const dialog = dialogOf("@OUTPUT_PATH", text("/data/cell"));
    typeVariable(dialog, variable);
    dialog->lineEdit()->setFocus();
    typeOver(path);
    acceptDialog(dialog);
    QCOMPARE(cell(DE_TAB1, 1, 1).data().toString(), stored);
}

// ---- Yes or no ---------------------------------------------------------------------------------

void TestKeywordEditors::yesOrNoShows_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("item");
    QTest::newRow("yes") << text("yes") << 0;
    QTest::newRow("no") << text("no") << 1;
    QTest::newRow("yes in upper case") << text("YES") << 0;
    QTest::newRow("no in mixed case") << text("No") << 1;
    QTest::newRow("neither") << text("maybe") << -1;
    QTest::newRow("with a blank") << text("yes ") << -1;
    QTest::newRow("a placeholder") << text("FILLER_TXT") << -1;
}

void TestKeywordEditors::yesOrNoShows()
{
    QFETCH(QString, value);
    QFETCH(int, item);
    show(ONE_KEYWORD + "\n@LOG_STATISTICS\nNO\n");
    edit(DE_TAB1, 1, 1, value);
    stack()->clear();
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB1, 1, 1));
    QVERIFY(comboBox != nullptr);
    QVERIFY(!comboBox->isEditable());
    QCOMPARE(itemsOf(comboBox), QStringList({text("yes"), text("no")}));
    QCOMPARE(comboBox->currentIndex(), item);
    QCOMPARE(stack()->count(), 0);
}

void TestKeywordEditors::yesOrNoIsStoredAtOnce()
{
    show(ONE_KEYWORD + "\n@LOG_STATISTICS\nyes\n");
    const QModelIndex value = cell(DE_TAB1, 1, 1);
    QVERIFY(open(value) != nullptr);
    press(Qt::Key_Down);
    QCOMPARE(value.data().toString(), text("no"));
    QCOMPARE(openEditors(), 0);
    auto* const comboBox = openAs<QComboBox>(value);
    QVERIFY(comboBox != nullptr);
    pick(comboBox, text("yes"));
    QCOMPARE(value.data().toString(), text("yes"));
    QCOMPARE(openEditors(), 0);
    QCOMPARE(stack()->count(), 2);
}

void TestKeywordEditors::returnKeepsATextThatIsNeitherYesNorNo()
{
    show(ONE_KEYWORD + "\n@LOG_STATISTICS\nyes\n");
    edit(DE_TAB1, 1, 1, text("maybe"));
    const QModelIndex value = cell(DE_TAB1, 1, 1);
    QVERIFY(open(value) != nullptr);
    press(Qt::Key_Return);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(value.data().toString(), text("maybe"));
}

// ---- Second values -----------------------------------------------------------------------------

void TestKeywordEditors::eventOfAnAverageShowsItsText_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("an event") << text("snapshot");
    QTest::newRow("a placeholder") << text("FILLER_TXT");
    QTest::newRow("what is no event") << text("30[sec]");
}

void TestKeywordEditors::eventOfAnAverageShowsItsText()
{
    QFETCH(QString, value);
    show(ONE_KEYWORD + "\n@RUNNING_AVERAGE\n30[sec] event\n");
    edit(DE_TAB1, 1, 2, value);
    const QModelIndex second = cell(DE_TAB1, 1, 2);
    const auto* const line = openAs<QLineEdit>(second);
    QVERIFY(line != nullptr);
    QCOMPARE(line->text(), value);
    typeOver(text("other"));
    press(Qt::Key_Return);
    QCOMPARE(second.data().toString(), text("other"));
}

void TestKeywordEditors::secondValueOfATextOpens_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    for (const char* const keyword : {"@START_EVENT", "@GET_NEW_SCAN_INTERVAL"})
        QTest::newRow(keyword) << text(keyword) << text(keyword);
    for (const char* const other :
         {"event", "any thing", "FILLER_TXT", "@MODE", "@RUNNING_AVERAGE", "# a note"})
        QTest::newRow(other) << text(other) << QString();
}

// Only the keyword of an event is shown in the editor.
void TestKeywordEditors::secondValueOfATextOpens()
{
    QFETCH(QString, value);
    QFETCH(QString, shown);
    show(ONE_KEYWORD + "\n@RUNNING_AVERAGE\n30[sec] start\n");
    edit(DE_TAB1, 1, 0, text("Some text"));
    edit(DE_TAB1, 1, 2, value);
    const QModelIndex second = cell(DE_TAB1, 1, 2);
    const auto* const line = openAs<QLineEdit>(second);
    QVERIFY(line != nullptr);
    QCOMPARE(line->text(), shown);
    typeOver(text("other"));
    press(Qt::Key_Return);
    QCOMPARE(second.data().toString(), text("other"));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestKeywordEditors)
#include "tst_keyword_editors.moc"
