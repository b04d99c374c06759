// VariableSelectionDialog: what it shows for a cell, and how its fields follow the user's input.

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QtTest>

#include "dialog_test.h"
#include "model_text.h"

namespace {

const QStringList ALL_NAMES =
    lines({"T_oil", "Zero_signal", "air_temp", "bay_clear", "big_count", "cycle_count", "door_open",
           "engine_name", "engine_speed", "exhaust.", "fuel_pulses", "intake.", "oil_temp",
           "pulse_count", "speed_stat.", "tailpipe.", "user_real", "user_text"});

void clickItem(QAbstractItemView* list, int row)
{
    const QModelIndex item = list->model()->index(row, 0);
    list->scrollTo(item);
    const QPoint place = list->visualRect(item).center();
    QTest::mouseMove(list->viewport(), place);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
}

void pickByMouse(QComboBox* comboBox, int row)
{
    comboBox->showPopup();
    QAbstractItemView* const list = comboBox->view();
    clickItem(list, row);
    QTRY_VERIFY(!list->isVisible());
}

void pickByKeyboard(QComboBox* comboBox, int row)
{
    while (comboBox->currentIndex() != row)
        QTest::keyClick(comboBox, comboBox->currentIndex() < row ? Qt::Key_Down : Qt::Key_Up);
}

// The bytes of the platform's directory, in which the library looks names and units up.
QByteArray directoryOfPlatform()
{
    QFile file(
        sharedMemoryPath(qEnvironmentVariable("MARVANE_DESK_NAME"), QStringLiteral("directory")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

using Pick = void (*)(QComboBox*, int);

}  // namespace

Q_DECLARE_METATYPE(Pick)

class TestVariableDialog : public DialogTest {
    Q_OBJECT

private Q_SLOTS:
    void form();
    void rowOfButtons();
    void fieldsOfTheForm_data();
    void fieldsOfTheForm();
    void groupComboBoxIsGreyAndReadOnly();
    void variablesUseASortedProxyModel();
    void completesTheVariable_data();
    void completesTheVariable();
    void completionIsCaseSensitive();
    void lengthOfANameDoesNotWidenTheDialog();
    void listsShowWholeNames();

    void groupsInTheComboBox_data();
    void groupsInTheComboBox();
    void variablesInTheComboBox();
    void showingAgainFillsTheListsAgain();

    void cellText_data();
    void cellText();
    void memberOfTheCell_data();
    void memberOfTheCell();
    void slotsAreNotCalledWhileTheListsAreFilled();
    void variableComboBoxHasTheFocus();

    void pickedGroup_data();
    void pickedGroup();
    void firstGroupListsAllVariables();
    void headingInTheGroupListHasNoVariables_data();
    void headingInTheGroupListHasNoVariables();
    void typingDoesNotChangeTheGroup();

    void variableFormat_data();
    void variableFormat();
    void longTextIsValidatedQuickly();
    void pickedVariable_data();
    void pickedVariable();
    void returnInsertsTheNameInSortedOrder_data();
    void returnInsertsTheNameInSortedOrder();

    void membersInTheComboBox_data();
    void membersInTheComboBox();
    void membersGoWithTheFilter_data();
    void membersGoWithTheFilter();
    void memberKeepsTheMembersOfItsVariable();
    void emptyTextLeavesMembersAndUnits();

    void unitsInTheComboBox_data();
    void unitsInTheComboBox();
    void unknownVariableKeepsTheUnitsOfTheLast();
    void onlyTheFilterOfAllKindsShowsUnits_data();
    void onlyTheFilterOfAllKindsShowsUnits();
    void unitsOfTheCell_data();
    void unitsOfTheCell();
    void unitsOfTheCellAreCutAtSixteenBytes();

    void labelWithoutATerminatingZero();
    void unitsWithoutATerminatingZero();
    void ownUnitsWithoutATerminatingZero();
    void ownUnitsAreTheSameInAnyCase();
    void indexOfSelectedVarNameUsesTheItemData();

    void besideItsCell();
    void withoutAParent();

private:
    // Replaces these units everywhere in shared memory.
    void replaceUnits(const QByteArray& units, const QByteArray& by);
};

// ---- The form ----------------------------------------------------------------------------------

void TestVariableDialog::form()
{
    open(QT_MARVANE_ANY);
    QCOMPARE(dialog().objectName(), QStringLiteral("VariableSelectionDialog"));
    QCOMPARE(dialog().windowTitle(), QStringLiteral("Variable Selection"));
    QCOMPARE(dialog().minimumSize(), QSize(375, 164));
    QCOMPARE(dialog().maximumSize(), QSize(500, 250));
    QCOMPARE(dialog().windowFlags() & Qt::WindowType_Mask, Qt::Drawer);
    QCOMPARE(dialog().windowModality(), Qt::NonModal);
    QVERIFY(!dialog().isModal());
    QVERIFY(!dialog().isSizeGripEnabled());
    QCOMPARE(okButton().text(), QStringLiteral("Ok"));
    QCOMPARE(cancelButton().text(), QStringLiteral("Cancel"));
}

void TestVariableDialog::rowOfButtons()
{
    QCOMPARE(make(QT_MARVANE_ANY).size(), QSize(375, 164));
    const auto* const row = dialog().findChild<QHBoxLayout*>(QStringLiteral("horizontalLayout"));
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->itemAt(0)->sizeHint(), QSize(120, 20));
    QCOMPARE(row->itemAt(1)->widget(), &okButton());
    QCOMPARE(row->itemAt(2)->widget(), &cancelButton());
}

void TestVariableDialog::fieldsOfTheForm_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("minimumWidth");
    QTest::addColumn<QComboBox::InsertPolicy>("insertPolicy");
    QTest::newRow("group") << 0 << "Group"
                           << "groupComboBox" << true << 150 << QComboBox::NoInsert;
    QTest::newRow("variable") << 1 << "Variable"
                              << "variableComboBox" << true << 150
                              << QComboBox::InsertAlphabetically;
    QTest::newRow("member") << 2 << "SubVariable"
                            << "subComboBox" << false << 150 << QComboBox::InsertAlphabetically;
    QTest::newRow("units") << 3 << "Units"
                           << "unitsComboBox" << true << 0 << QComboBox::InsertAtBottom;
}

void TestVariableDialog::fieldsOfTheForm()
{
    QFETCH(int, row);
    QFETCH(QString, field);
    QFETCH(bool, enabled);
    QFETCH(int, minimumWidth);
    QFETCH(QComboBox::InsertPolicy, insertPolicy);
    make(QT_MARVANE_ANY);
    const auto* const layout = dialog().findChild<QFormLayout*>(QStringLiteral("formLayout"));
    auto* const comboBox = dialog().findChild<QComboBox*>(field);
    QCOMPARE(layout->itemAt(row, QFormLayout::FieldRole)->widget(), comboBox);
    const QWidget* const label = layout->itemAt(row, QFormLayout::LabelRole)->widget();
    QTEST(qobject_cast<const QLabel*>(label)->text(), "label");
    QVERIFY(comboBox->isEditable());
    QCOMPARE(comboBox->isEnabled(), enabled);
    QCOMPARE(comboBox->minimumWidth(), minimumWidth);
    QCOMPARE(comboBox->insertPolicy(), insertPolicy);
}

void TestVariableDialog::groupComboBoxIsGreyAndReadOnly()
{
    open(QT_MARVANE_ANY);
    QCOMPARE(groups().styleSheet(),
             QStringLiteral("\nbackground-color: rgb(172, 172, 172);"
                            "\nQComboBox::background-color: rgb(172, 172, 172);"
                            "\nQScrollBar::background-color: rgb(172, 172, 172);"));
    QVERIFY(groups().lineEdit()->isReadOnly());
    QVERIFY(!variables().lineEdit()->isReadOnly());
}

void TestVariableDialog::variablesUseASortedProxyModel()
{
    make(QT_MARVANE_ANY);
    const auto* const proxy = qobject_cast<QSortFilterProxyModel*>(variables().model());
    QVERIFY(proxy != nullptr);
    QCOMPARE(proxy->parent(), &variables());
    QCOMPARE(proxy->sourceModel()->parent(), proxy);
    QCOMPARE(proxy->filterCaseSensitivity(), Qt::CaseInsensitive);
    const QAbstractItemModelTester tester(variables().model());
    show(QStringLiteral("oil_temp"));
    pickByKeyboard(&groups(), 2);
    pickByKeyboard(&groups(), 0);
}

void TestVariableDialog::completesTheVariable_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("by mouse") << true;
    QTest::newRow("by keyboard") << false;
}

void TestVariableDialog::completesTheVariable()
{
    QFETCH(bool, byMouse);
    open(QT_MARVANE_ANY);
    const QCompleter& completer = *variables().completer();
    QCOMPARE(completer.model(), variables().model());
    QCOMPARE(completer.parent(), &dialog());
    type(QStringLiteral("en"));
    QAbstractItemView* const list = completer.popup();
    QTRY_VERIFY(list->isVisible());
    QCOMPARE(completer.completionCount(), 2);
    if (byMouse) {
        clickItem(list, 1);
    } else {
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    }
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(variables().currentText(), QStringLiteral("engine_speed"));
    QCOMPARE(variables().itemText(variables().currentIndex()), QStringLiteral("engine_speed"));
    QCOMPARE(dialog().defaultUnits(), QStringLiteral("RPM"));
}

void TestVariableDialog::completionIsCaseSensitive()
{
    open(QT_MARVANE_ANY);
    type(QStringLiteral("t"));
    QCOMPARE(variables().completer()->completionCount(), 1);
    QCOMPARE(variables().completer()->currentCompletion(), QStringLiteral("tailpipe."));
    type(QStringLiteral("T"));
    QCOMPARE(variables().completer()->currentCompletion(), QStringLiteral("T_oil"));
}

void TestVariableDialog::lengthOfANameDoesNotWidenTheDialog()
{
    const QString longest(80, QLatin1Char('w'));
    const QSize hint = open(QT_MARVANE_ANY).sizeHint();
    QVERIFY(m_platform->overwrite("AI_REAL_MEM", 64, longest.toLatin1()));
    Master_variables.reset();
    QCOMPARE(open(QT_MARVANE_ANY).sizeHint(), hint);
    QVERIFY(itemsOf(&variables()).contains(longest));
}

void TestVariableDialog::listsShowWholeNames()
{
    const QString longest(80, QLatin1Char('w'));
    QVERIFY(m_platform->overwrite("AI_REAL_MEM", 64, longest.toLatin1()));
    Master_variables.reset();
    open(QT_MARVANE_ANY);
    for (QComboBox* const comboBox : {&groups(), &variables()}) {
        comboBox->showPopup();
        QTRY_VERIFY(comboBox->view()->isVisible());
        QVERIFY(comboBox->view()->viewport()->width() >= comboBox->view()->sizeHintForColumn(0));
        comboBox->hidePopup();
    }
}

// ---- What is on offer --------------------------------------------------------------------------

void TestVariableDialog::groupsInTheComboBox_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QStringList>("expected");
    const QStringList strings = lines({"Engine/Cell (string)", "General Use (string)"});
    const QStringList all =
        lines({"Analog Inputs", "Counter Inputs (counts)", "Counter Inputs (engineering units)",
               "Digital Input (logical)", "Emissions", "Engine/Cell (string)",
               "Gas/Fluid (compostion)", "Gas/Fluid (property)", "General Use (integer)",
               "General Use (real)", "General Use (statistical)", "General Use (string)"});
    QTest::newRow("all kinds") << 1023 << lines({"All Variables"}) + all;
    QTest::newRow("strings") << 2 << lines({"All String Variables"}) + strings;
    QTest::newRow("logicals") << 1 << lines({"All Logical Variables", "Digital Input (logical)"});
    QTest::newRow("strings and logicals")
        << 3
        << lines({"All String Variables", "All Logical Variables", "Digital Input (logical)"}) +
               strings;
    QTest::newRow("integers have no entry for all")
        << 4 << lines({"Counter Inputs (counts)", "General Use (integer)"});
    QTest::newRow("members have no entry for all") << 16 << lines({"General Use (statistical)"});
    QTest::newRow("channels have no entry for all")
        << 1024
        << lines({"Analog Inputs", "Counter Inputs (counts)", "Counter Inputs (engineering units)",
                  "Digital Input (logical) "});
    QTest::newRow("channels and all kinds are no channels")
        << 2047 << lines({"All Variables"}) + all;
    QTest::newRow("a filter without a variable") << 256 << QStringList();
}

void TestVariableDialog::groupsInTheComboBox()
{
    QFETCH(int, filter);
    open(filter);
    QTEST(itemsOf(&groups()), "expected");
    QCOMPARE(groups().currentIndex(), groups().count() == 0 ? -1 : 0);
}

void TestVariableDialog::variablesInTheComboBox()
{
    open(QT_MARVANE_ANY);
    QCOMPARE(itemsOf(&variables()), ALL_NAMES);
    QCOMPARE(variables().currentText(), QString());
    QVERIFY(variables().isEnabled());
}

void TestVariableDialog::showingAgainFillsTheListsAgain()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    pickByKeyboard(&groups(), 1);
    dialog().hide();
    show(QStringLiteral("air_temp"));
    QCOMPARE(groups().currentIndex(), 0);
    QCOMPARE(itemsOf(&variables()), ALL_NAMES);
    QCOMPARE(variables().currentText(), QStringLiteral("air_temp"));
}

// ---- The cell's text ---------------------------------------------------------------------------

void TestVariableDialog::cellText_data()
{
    QTest::addColumn<QString>("original");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char* name, const char* original, const char* shown,
                        const char* selected) {
        QTest::newRow(name) << QString::fromLatin1(original) << QString::fromLatin1(shown)
                            << QString::fromLatin1(selected);
    };
    row("a variable is selected", "oil_temp", "oil_temp", "oil_temp");
    row("an alias is selected", "T_oil", "T_oil", "T_oil");
    row("an unknown variable is shown", "nobody", "nobody", "");
    row("a variable in another case is unknown", "OIL_TEMP", "OIL_TEMP", "");
    row("the beginning of a variable is unknown", "oil", "oil", "");
    row("an empty cell", "", "", "");
    row("an absent field", "FILLER_TXT", "", "");
    row("an absent field in other case is a text", "filler_txt", "filler_txt", "");
    row("a comment", "# a remark", "", "");
    row("a comment behind a blank is a text", " # remark", " # remark", "");
    row("a suffix is shown whole", "oil_temp:2:x", "oil_temp:2:x", "oil_temp");
    row("an empty suffix", "oil_temp:", "oil_temp:", "oil_temp");
    row("a suffix of an unknown variable", "nobody:2", "nobody:2", "");
    row("a suffix of nothing", ":2", ":2", "");
    row("a suffix behind a full stop", "speed_stat.:2", "speed_stat.:2", "speed_stat.");
    row("a full stop and no member", "speed_stat.", "speed_stat.", "speed_stat.");
    row("a member", "speed_stat.MX", "speed_stat.", "speed_stat.");
    row("a member of an unknown variable", "nobody.MX", "", "");
    row("a member of a variable without any", "oil_temp.MX", "", "");
    row("a member of nothing", ".MX", "", "");
    row("a variable that lost its full stop", "speed_stat", "speed_stat", "");
    row("a member in front of a suffix", "speed_stat.MX:2", "speed_stat.", "speed_stat.");
}

void TestVariableDialog::cellText()
{
    QFETCH(QString, original);
    QFETCH(QString, selected);
    make(QT_MARVANE_ANY);
    dialog().setOrigVarName(original);
    dialog().show();
    QTEST(variables().currentText(), "shown");
    if (!selected.isEmpty())
        QCOMPARE(variables().itemText(variables().currentIndex()), selected);
}

void TestVariableDialog::memberOfTheCell_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("member");
    QTest::newRow("a member is selected") << "speed_stat.MX"
                                          << "MX";
    QTest::newRow("the first without a member") << "speed_stat."
                                                << "AV";
    QTest::newRow("the first for an unknown member") << "speed_stat.XX"
                                                     << "AV";
    QTest::newRow("a member in another case is unknown") << "speed_stat.mx"
                                                         << "AV";
    QTest::newRow("what follows a member is dropped") << "speed_stat.MX.MN"
                                                      << "MX";
    QTest::newRow("a member of a composition") << "exhaust.CO"
                                               << "CO";
    QTest::newRow("a member of an emission") << "tailpipe.CW_CO_G1"
                                             << "CW_CO_G1";
}

void TestVariableDialog::memberOfTheCell()
{
    QFETCH(QString, cell);
    open(QT_MARVANE_ANY, cell);
    QTEST(dialog().subText(), "member");
    QTEST(members().currentText(), "member");
}

// The members and units of the cell's text are looked up when the delegate sets the edit text.
void TestVariableDialog::slotsAreNotCalledWhileTheListsAreFilled()
{
    make(QT_MARVANE_ANY);
    dialog().setOrigVarName(QStringLiteral("speed_stat."));
    dialog().show();
    QCOMPARE(variables().currentText(), QStringLiteral("speed_stat."));
    QCOMPARE(members().count(), 0);
    QVERIFY(!members().isEnabled());
    QCOMPARE(units().count(), 0);
    QCOMPARE(dialog().defaultUnits(), QString());
    variables().setEditText(QStringLiteral("speed_stat"));
    QCOMPARE(dialog().defaultUnits(), QStringLiteral("RPM"));
}

void TestVariableDialog::variableComboBoxHasTheFocus()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    QTRY_VERIFY(variables().lineEdit()->hasFocus());
    QTest::keyClicks(dialog().focusWidget(), QStringLiteral("air"));
    QCOMPARE(variables().currentText(), QStringLiteral("air"));
}

// ---- Groups ------------------------------------------------------------------------------------

void TestVariableDialog::pickedGroup_data()
{
    QTest::addColumn<Pick>("pick");
    QTest::addColumn<int>("filter");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("names");
    const struct {
        const char* name;
        Pick pick;
    } ways[] = {{"by mouse", pickByMouse}, {"by keyboard", pickByKeyboard}};
    for (const auto& way : ways) {
        const auto row = [&way](const char* name, int filter, int index, const QStringList& names) {
            QTest::newRow(qPrintable(
                QStringLiteral("%1, %2").arg(QLatin1String(name), QLatin1String(way.name))))
                << way.pick << filter << index << names;
        };
        row("a group", 1023, 9, lines({"big_count", "cycle_count"}));
        row("labels and aliases are sorted", 1023, 1,
            lines({"T_oil", "Zero_signal", "air_temp", "engine_speed", "oil_temp"}));
        row("the last group", 1023, 12, lines({"user_text"}));
        row("a group of strings", 2, 1, lines({"engine_name"}));
        row("a group of logicals", 1, 1, lines({"bay_clear", "door_open"}));
        row("channels", 1024, 1, lines({"0"}));
        row("a group behind the first", 4, 1, lines({"big_count", "cycle_count"}));
    }
}

void TestVariableDialog::pickedGroup()
{
    QFETCH(Pick, pick);
    QFETCH(int, filter);
    QFETCH(int, row);
    QFETCH(QStringList, names);
    open(filter, QStringLiteral("nobody"));
    pick(&groups(), row);
    QCOMPARE(itemsOf(&variables()), names);
    QCOMPARE(variables().currentIndex(), 0);
    QCOMPARE(variables().currentText(), names.first());
    QVERIFY(variables().isEnabled());
}

void TestVariableDialog::firstGroupListsAllVariables()
{
    open(QT_MARVANE_INTEGER);
    pickByKeyboard(&groups(), 1);
    variables().setMaxVisibleItems(3);
    pickByKeyboard(&groups(), 0);
    QCOMPARE(groups().currentText(), QStringLiteral("Counter Inputs (counts)"));
    QCOMPARE(itemsOf(&variables()), lines({"big_count", "cycle_count", "pulse_count"}));
    QCOMPARE(variables().currentText(), QStringLiteral("big_count"));
    QCOMPARE(variables().maxVisibleItems(), 10);
}

void TestVariableDialog::headingInTheGroupListHasNoVariables_data()
{
    QTest::addColumn<Pick>("pick");
    QTest::newRow("by mouse") << Pick(pickByMouse);
    QTest::newRow("by keyboard") << Pick(pickByKeyboard);
}

void TestVariableDialog::headingInTheGroupListHasNoVariables()
{
    QFETCH(Pick, pick);
    open(QT_MARVANE_STRING | QT_MARVANE_LOGICAL, QStringLiteral("door_open"));
    pick(&groups(), 1);
    QCOMPARE(groups().currentText(), QStringLiteral("All Logical Variables"));
    QCOMPARE(itemsOf(&variables()), QStringList());
    QCOMPARE(variables().currentText(), QString());
    QVERIFY(variables().isEnabled());
    pick(&groups(), 2);
    QCOMPARE(itemsOf(&variables()), lines({"bay_clear", "door_open"}));
}

void TestVariableDialog::typingDoesNotChangeTheGroup()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    QTest::keyClicks(groups().lineEdit(), QStringLiteral("Em"));
    QCOMPARE(groups().currentText(), QStringLiteral("All Variables"));
    QCOMPARE(variables().currentText(), QStringLiteral("oil_temp"));
}

// ---- The variable's line -----------------------------------------------------------------------

void TestVariableDialog::variableFormat_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("accepted");
    QTest::newRow("letters, digits and underscores") << "Oil_temp_2"
                                                     << "Oil_temp_2";
    QTest::newRow("an underscore first") << "_oil"
                                         << "_oil";
    QTest::newRow("no digit first") << "1oil"
                                    << "oil";
    QTest::newRow("no blank") << "oil temp"
                              << "oiltemp";
    QTest::newRow("no brackets") << "oil[K]"
                                 << "oilK";
    QTest::newRow("no letter behind the full stop") << "stat.MX"
                                                    << "stat.";
    QTest::newRow("one full stop") << "stat..:"
                                   << "stat.:";
    QTest::newRow("six parts led by colons") << "a:1:b:c_3::5:6"
                                             << "a:1:b:c_3::5:6";
    QTest::newRow("no seventh") << "a:1:2:3:4:5:6:7"
                                << "a:1:2:3:4:5:67";
    QTest::newRow("no full stop behind a colon") << "a:b.c"
                                                 << "a:bc";
}

void TestVariableDialog::variableFormat()
{
    QFETCH(QString, typed);
    open(QT_MARVANE_ANY);
    type(typed);
    QTEST(variables().currentText(), "accepted");
}

void TestVariableDialog::longTextIsValidatedQuickly()
{
    open(QT_MARVANE_ANY);
    const QString name(30000, QLatin1Char('a'));
    variables().setEditText(name);
    QCOMPARE(variables().currentText(), name);
    QTest::keyClick(variables().lineEdit(), '?');
    QCOMPARE(variables().currentText(), name);
}

void TestVariableDialog::pickedVariable_data()
{
    QTest::addColumn<Pick>("pick");
    QTest::newRow("by mouse") << Pick(pickByMouse);
    QTest::newRow("by keyboard") << Pick(pickByKeyboard);
}

void TestVariableDialog::pickedVariable()
{
    QFETCH(Pick, pick);
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    pick(&variables(), ALL_NAMES.indexOf(QStringLiteral("speed_stat.")));
    QCOMPARE(variables().currentText(), QStringLiteral("speed_stat."));
    QCOMPARE(members().count(), 33);
    QCOMPARE(itemsOf(&units()), lines({"RPM", "HZ", "RAD/S"}));
}

void TestVariableDialog::returnInsertsTheNameInSortedOrder_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("between two of the list")
        << "boost"
        << lines({"T_oil", "Zero_signal", "air_temp", "boost", "engine_speed", "oil_temp"});
    QTest::newRow("at the top") << "Boost"
                                << lines({"Boost", "T_oil", "Zero_signal", "air_temp",
                                          "engine_speed", "oil_temp"});
    QTest::newRow("at the end") << "zone"
                                << lines({"T_oil", "Zero_signal", "air_temp", "engine_speed",
                                          "oil_temp", "zone"});
    QTest::newRow("one that is there")
        << "air_temp" << lines({"T_oil", "Zero_signal", "air_temp", "engine_speed", "oil_temp"});
    QTest::newRow("one that is there in other case")
        << "AIR_TEMP"
        << lines({"AIR_TEMP", "T_oil", "Zero_signal", "air_temp", "engine_speed", "oil_temp"});
}

void TestVariableDialog::returnInsertsTheNameInSortedOrder()
{
    QFETCH(QString, typed);
    open(QT_MARVANE_ANY);
    pickByKeyboard(&groups(), 1);
    type(typed);
    variables().completer()->popup()->hide();
    QTest::keyClick(variables().lineEdit(), Qt::Key_Return);
    QTEST(itemsOf(&variables()), "expected");
    QCOMPARE(variables().currentText(), typed);
    QCOMPARE(variables().itemText(variables().currentIndex()), typed);
    type(typed.left(2));
    QCOMPARE(variables().completer()->currentCompletion(), typed);
    pickByKeyboard(&groups(), 2);
    pickByKeyboard(&groups(), 1);
    QCOMPARE(variables().count(), 5);
    type(typed);
    QTest::keyClick(variables().lineEdit(), Qt::Key_Return);
    QTEST(itemsOf(&variables()), "expected");
    QCOMPARE(variables().currentText(), typed);
}

// ---- Members -----------------------------------------------------------------------------------

namespace {

const auto STAT_MEMBERS_TOLD =
    "AV MN MX RN SD C0 IV FV DL E0 CI I0 I5 I9 ME MD RM ST EN TN TX C1 IN IT RS CV E1 RA NM SE RC "
    "QF NR";
const auto COMP_MEMBERS_TOLD =
    "H2 CO O2 WA C2 N2 NX AR AM ME EE PR NB IB NP IP HX HE OC NN HS H2S MTM ETM DMS IPM TBM MES "
    "NPM SBM DES THT NM OM HM CM NA OA HA CA NF OF HF CF FA OL SA UT MM";
const auto PROP_MEMBERS_TOLD =
    "AT AP CP CV GM TH GC ER SR HV HU ET VS RE DD ID IR CM DW AH VP WD EA LM LV HM HH WL WH MR ML "
    "MT MO KE KT KP HC RD RW IE OT CU CI DS LH DE UT";
const auto EMIS_MEMBERS_TOLD =
    "FUEL_MF_MEA AIR_MF_MEA EXH_MF_MEA EXH_CD_CO2_MEA EXH_CD_O2_MEA EXH_CD_CO_MEA EXH_CD_NOX_MEA "
    "EXH_CW_HC_MEA EXH_CW_NOX_MEA FUEL_MW AIR_MF_DRY CD_CO2_TH CD_O2_TH DRY_TO_WET_TH CW_CO2_G1 "
    "CW_CO_G1 CW_NOX_G1 CW_HC_G1 MF_CO2 MF_CO MF_NOX MF_HC MW_HC CBE CBE_CO2 AFDE_O2 AFDE_CO2 "
    "BSCO2_G1 BSCO_G1 BSNOX_G1 BSHC_G1 NOX_COR_G1 BSNOX_COR_G1 FSCO2_G1 FSCO_G1 FSNOX_G1 FSHC_G1 "
    "FA_WET DRY_WET_I1 EXH_CW_CO2_I1 EXH_CW_CO_I1 EXH_CW_NOX_I1 EXH_CW_HC_I1 EXH_MF_CO2_I1 "
    "EXH_MF_CO_I1 EXH_MF_NOX_I1 EXH_MF_HC_I1 BSCO2_I1 BSCO_I1 BSNOX_I1 BSHC_I1 NOX_COR_I1 "
    "BSNOX_COR_I1 PSEUDO_PHI CO2_ERR O2_ERR UT";

}  // namespace

void TestVariableDialog::membersInTheComboBox_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("count");
    QTest::newRow("statistic") << "speed_stat." << words(STAT_MEMBERS_TOLD) << 33;
    QTest::newRow("composition") << "exhaust." << words(COMP_MEMBERS_TOLD) << 49;
    QTest::newRow("property") << "intake." << words(PROP_MEMBERS_TOLD) << 47;
    QTest::newRow("emission") << "tailpipe." << words(EMIS_MEMBERS_TOLD) << 57;
    QTest::newRow("without the full stop") << "speed_stat" << words(STAT_MEMBERS_TOLD) << 33;
    QTest::newRow("a plain variable has none") << "oil_temp" << QStringList() << 0;
    QTest::newRow("an unknown variable has none") << "nobody" << QStringList() << 0;
    QTest::newRow("a part of a name has none") << "speed_sta" << QStringList() << 0;
    QTest::newRow("a name with a suffix has none") << "speed_stat:2" << QStringList() << 0;
}

void TestVariableDialog::membersInTheComboBox()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    open(QT_MARVANE_ANY, QStringLiteral("tailpipe.CBE"));
    type(typed);
    QCOMPARE(itemsOf(&members()), expected);
    QTEST(members().count(), "count");
    QCOMPARE(members().isEnabled(), !expected.isEmpty());
    QCOMPARE(dialog().subText(), expected.value(0));
}

void TestVariableDialog::membersGoWithTheFilter_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("count");
    const struct {
        const char* name;
        const char* variable;
        int flag;
        int count;
    } kinds[] = {{"statistics", "speed_stat.", 16, 33},
                 {"emissions", "tailpipe.", 32, 57},
                 {"compositions", "exhaust.", 64, 49},
                 {"properties", "intake.", 256, 47}};
    for (const auto& kind : kinds) {
        QTest::newRow(qPrintable(QStringLiteral("%1 alone").arg(QLatin1String(kind.name))))
            << kind.flag << kind.variable << kind.count;
        QTest::newRow(qPrintable(QStringLiteral("%1 and reals").arg(QLatin1String(kind.name))))
            << (kind.flag | 8) << kind.variable << kind.count;
        QTest::newRow(qPrintable(QStringLiteral("all but %1").arg(QLatin1String(kind.name))))
            << (1023 & ~kind.flag) << kind.variable << 0;
    }
}

void TestVariableDialog::membersGoWithTheFilter()
{
    QFETCH(int, filter);
    QFETCH(QString, typed);
    open(filter);
    type(typed);
    QTEST(members().count(), "count");
}

void TestVariableDialog::memberKeepsTheMembersOfItsVariable()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    variables().setEditText(QStringLiteral("speed_stat.MX"));
    QCOMPARE(itemsOf(&members()), words(STAT_MEMBERS_TOLD));
    QVERIFY(members().isEnabled());
    QCOMPARE(dialog().defaultUnits(), QStringLiteral("RPM"));
    QCOMPARE(itemsOf(&units()), lines({"RPM", "HZ", "RAD/S"}));
    variables().setEditText(QStringLiteral("nobody.MX"));
    QCOMPARE(members().count(), 0);
    QVERIFY(!members().isEnabled());
    variables().setEditText(QStringLiteral("exhaust.CO.x"));
    QCOMPARE(itemsOf(&members()), words(COMP_MEMBERS_TOLD));
    variables().setEditText(QStringLiteral(".MX"));
    QCOMPARE(itemsOf(&members()), words(COMP_MEMBERS_TOLD));
}

void TestVariableDialog::emptyTextLeavesMembersAndUnits()
{
    open(QT_MARVANE_ANY, QStringLiteral("speed_stat.MX"));
    const QStringList unitsBefore = itemsOf(&units());
    type(QString());
    QCOMPARE(variables().currentText(), QString());
    QCOMPARE(dialog().subText(), QStringLiteral("MX"));
    QCOMPARE(members().count(), 33);
    QCOMPARE(itemsOf(&units()), unitsBefore);
    QCOMPARE(dialog().defaultUnits(), QStringLiteral("RPM"));
}

// ---- Units -------------------------------------------------------------------------------------

void TestVariableDialog::unitsInTheComboBox_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("the variable's own come first") << "air_temp" << lines({"DEGF", "DEGC", "K"});
    QTest::newRow("an alias has those of its variable") << "T_oil" << lines({"DEGC", "DEGF", "K"});
    QTest::newRow("the only ones of their dimension") << "pulse_count" << lines({"COUNTS"});
    QTest::newRow("a variable without units") << "Zero_signal" << lines({""});
    QTest::newRow("a structured variable") << "speed_stat." << lines({"RPM", "HZ", "RAD/S"});
}

void TestVariableDialog::unitsInTheComboBox()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    open(QT_MARVANE_ANY, QStringLiteral("user_real"));
    type(typed);
    QCOMPARE(itemsOf(&units()), expected);
    QCOMPARE(units().currentText(), expected.first());
    QCOMPARE(dialog().defaultUnits(), expected.first());
    QVERIFY(units().isEnabled());
}

void TestVariableDialog::unknownVariableKeepsTheUnitsOfTheLast()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    type(QStringLiteral("nobody"));
    QCOMPARE(variables().currentText(), QStringLiteral("nobody"));
    QVERIFY(!members().isEnabled());
    QCOMPARE(dialog().defaultUnits(), QStringLiteral("DEGC"));
    QCOMPARE(itemsOf(&units()), lines({"DEGC", "DEGF", "K"}));
}

void TestVariableDialog::onlyTheFilterOfAllKindsShowsUnits_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("typed");
    QTest::newRow("integers") << 4 << "pulse_count";
    QTest::newRow("reals") << 8 << "oil_temp";
    QTest::newRow("all kinds but arrays") << 511 << "oil_temp";
    QTest::newRow("all kinds and channels") << 2047 << "oil_temp";
}

void TestVariableDialog::onlyTheFilterOfAllKindsShowsUnits()
{
    QFETCH(int, filter);
    QFETCH(QString, typed);
    open(filter);
    type(typed);
    QCOMPARE(dialog().defaultUnits(), QString());
    QCOMPARE(itemsOf(&units()), lines({""}));
    QCOMPARE(units().currentIndex(), 0);
}

void TestVariableDialog::unitsOfTheCell_data()
{
    QTest::addColumn<QString>("cellUnits");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("selected");
    QTest::newRow("are selected") << "K"
                                  << "oil_temp" << lines({"DEGF", "K"}) << "K";
    QTest::newRow("in lower case") << "degf"
                                   << "oil_temp" << lines({"DEGF", "K"}) << "DEGF";
    QTest::newRow("by their beginning") << "RAD"
                                        << "engine_speed" << lines({"HZ", "RAD/S"}) << "RAD/S";
    QTest::newRow("that are the variable's own select nothing")
        << "DEGC"
        << "oil_temp" << lines({"DEGF", "K"}) << "";
    QTest::newRow("of another dimension select nothing")
        << "RPM"
        << "oil_temp" << lines({"DEGF", "K"}) << "";
    QTest::newRow("of a variable that has no other") << "COUNTS"
                                                     << "pulse_count" << QStringList() << "";
}

void TestVariableDialog::unitsOfTheCell()
{
    QFETCH(QString, cellUnits);
    QFETCH(QString, typed);
    QFETCH(QString, selected);
    make(QT_MARVANE_ANY);
    dialog().setUnits(cellUnits);
    show(typed);
    QTEST(itemsOf(&units()), "expected");
    QCOMPARE(units().currentText(), selected);
    QCOMPARE(units().currentIndex(), itemsOf(&units()).indexOf(selected));
    type(typed);
    QTEST(itemsOf(&units()), "expected");
    QCOMPARE(units().currentText(), selected);
}

void TestVariableDialog::unitsOfTheCellAreCutAtSixteenBytes()
{
    make(QT_MARVANE_ANY);
    dialog().setUnits(QStringLiteral("RAD/S") + QString(400, QLatin1Char('x')));
    show(QStringLiteral("engine_speed"));
    QCOMPARE(units().currentIndex(), -1);
    dialog().setUnits(QStringLiteral("RAD/S"));
    type(QStringLiteral("engine_speed"));
    QCOMPARE(units().currentText(), QStringLiteral("RAD/S"));
}

// ---- Fields of the platform without an end -----------------------------------------------------

void TestVariableDialog::labelWithoutATerminatingZero()
{
    const QString label = QStringLiteral("x") + QString(79, QLatin1Char('y'));
    QVERIFY(m_platform->overwrite("AI_REAL_MEM", 64, label.toLatin1()));
    open(QT_MARVANE_ANY, label + QStringLiteral("z"));
    QVERIFY(itemsOf(&variables()).contains(label));
    QCOMPARE(variables().currentText(), label + QStringLiteral("z"));
    type(label);
    QCOMPARE(variables().currentText(), label);
    QCOMPARE(dialog().subText(), QString());
}

void TestVariableDialog::replaceUnits(const QByteArray& units, const QByteArray& by)
{
    const QByteArray directory = directoryOfPlatform();
    int place = 0;
    while ((place = directory.indexOf(units.leftJustified(16, '\0'), place)) != -1)
        QVERIFY(m_platform->overwrite("directory", place++, by));
}

void TestVariableDialog::unitsWithoutATerminatingZero()
{
    const QByteArray units16 = "ABCDEFGHIJKLMNOP";
    make(QT_MARVANE_ANY);
    replaceUnits("HZ", units16);
    show(QStringLiteral("engine_speed"));
    QCOMPARE(itemsOf(&units()), lines({"RPM", units16.constData(), "RAD/S"}));
}

void TestVariableDialog::ownUnitsWithoutATerminatingZero()
{
    const QByteArray units16 = "ABCDEFGHIJKLMNOP";
    make(QT_MARVANE_ANY);
    replaceUnits("RPM", units16);
    show(QStringLiteral("engine_speed"));
    QCOMPARE(dialog().defaultUnits(), QString::fromLatin1(units16));
    QCOMPARE(units().itemText(0), QString::fromLatin1(units16));
}

// The units are in the variable's record and again in the list of their dimension.
void TestVariableDialog::ownUnitsAreTheSameInAnyCase()
{
    make(QT_MARVANE_ANY);
    replaceUnits("RPM", "rpm");
    show(QStringLiteral("engine_speed"));
    QCOMPARE(itemsOf(&units()).filter(QStringLiteral("rpm"), Qt::CaseInsensitive).size(), 1);
    QCOMPARE(units().count(), 3);
}

void TestVariableDialog::indexOfSelectedVarNameUsesTheItemData()
{
    open(QT_MARVANE_ANY, QStringLiteral("oil_temp"));
    QCOMPARE(dialog().indexOfSelectedVarName(), -1);
    variables().setItemData(3, QStringLiteral("oil_temp"));
    QCOMPARE(dialog().indexOfSelectedVarName(), 3);
}

// ---- Its place ---------------------------------------------------------------------------------

void TestVariableDialog::besideItsCell()
{
    make(QT_MARVANE_ANY);
    dialog().setGeometry(70, 50, 400, 200);
    const QSignalSpy mapped(&dialog(), &VariableSelectionDialog::mapParent);
    show(QStringLiteral("oil_temp"));
    QCOMPARE(mapped.count(), 1);
    const QPoint frame = dialog().geometry().topLeft() - dialog().pos();
    QCOMPARE(dialog().geometry(),
             QRect(m_parent->mapToGlobal(QPoint(70, 50) - frame), QSize(400, 200)));

    const QPoint corner = m_parent->mapToGlobal(dialog().pos());
    Q_EMIT dialog().mapParent();
    QCOMPARE(dialog().geometry(), QRect(corner, QSize(400, 200)));
}

void TestVariableDialog::withoutAParent()
{
    m_dialog = std::make_unique<VariableSelectionDialog>(QModelIndex(), nullptr, QT_MARVANE_ANY,
                                                         QString(), QStringLiteral("oil_temp"));
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    QCOMPARE(variables().currentText(), QStringLiteral("oil_temp"));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestVariableDialog)
#include "tst_variable_dialog.moc"
