// The editors of the list tabs: what they offer, show and store.

#include <QAbstractItemView>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QUndoStack>
#include <QtTest>

#include "editing_test.h"
#include "editor_types.h"
#include "member_choices.h"

namespace {

const auto ENGINE = QStringLiteral("/specs/asam3_specs.engine");
const auto FILLER = QStringLiteral("FILLER_TXT");

QByteArray listOf(const char* section, const QByteArray& entries)
{
    return QByteArray("@SCRIBON\nlog\n\n@") + section + '\n' + entries + "\n\n";
}

// The platform's keywords of this kind, for these units, or for any if units is null.
QStringList keywordsOf(const char* kind, const char* units = nullptr)
{
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + text("/catalogue.json"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("there is no catalogue");
    const QJsonObject catalogue = QJsonDocument::fromJson(file.readAll()).object();
    QStringList names;
    const QJsonArray keywords = catalogue.value(text("keywords")).toArray();
    for (const auto& entry : keywords) {
        const QJsonObject keyword = entry.toObject();
        const bool fits =
            units == nullptr || keyword.value(text("units")).toString() == text(units);
        if (fits && keyword.value(text("kind")).toString().contains(text(kind)))
            names.append(keyword.value(text("name")).toString());
    }
    return names;
}

QStringList without(QStringList list, const QString& item)
{
    list.removeOne(item);
    return list;
}

// Renames a keyword in shared memory while it lives. A catalogue cannot have a name twice, but a
// real platform might.
class RenamedKeyword {
public:
    RenamedKeyword(const DeskProcess& desk, const char* name, const char* newName)
        : m_memory(sharedMemoryPath(desk.name(), text("KEYWORD_MEM"))), m_name(name)
    {
        if (!m_memory.open(QIODevice::ReadWrite))
            qFatal("the platform has no keywords");
        m_position = m_memory.readAll().indexOf(m_name + '\0');
        write(newName);
    }
    ~RenamedKeyword() { write(m_name); }

private:
    Q_DISABLE_COPY(RenamedKeyword)

    void write(const QByteArray& name)
    {
        if (!m_memory.seek(m_position) || m_memory.write(name + '\0') == -1 || !m_memory.flush())
            qFatal("the keyword was not renamed");
    }

    QFile m_memory;
    const QByteArray m_name;
    qint64 m_position = -1;
};

}  // namespace

class TestListEditors : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void variableIsSplit_data();
    void variableIsSplit();
    void dialogOfAnEmptyVariableIsEmpty();
    void scanListsVariableIsStored_data();
    void scanListsVariableIsStored();
    void memberWithoutAFullStopInTheVariable();
    void defaultUnitsAreNotStored_data();
    void defaultUnitsAreNotStored();
    void clearedVariableKeepsTheValue_data();
    void clearedVariableKeepsTheValue();
    void unchangedDialogStores_data();
    void unchangedDialogStores();

    void membersAreOffered();
    void memberOpensOn_data();
    void memberOpensOn();
    void memberIsStored_data();
    void memberIsStored();
    void emptyItemRemovesTheMemberFromTheFile();

    void channelsAreOffered_data();
    void channelsAreOffered();
    void channelsOfOtherRowsAreNotOffered_data();
    void channelsOfOtherRowsAreNotOffered();
    void channelOfTwoVariablesIsOfferedTwice_data();
    void channelOfTwoVariablesIsOfferedTwice();
    void channelsNeedAVariable_data();
    void channelsNeedAVariable();
    void channelOpensOn_data();
    void channelOpensOn();
    void channelIsStored();
    void channelsAreOfferedAfterThePlatformEnded();

    void parametersAreOffered_data();
    void parametersAreOffered();
    void parametersNeedAText();
    void parameterIsStored();
    void literalOrVariable_data();
    void literalOrVariable();
    void metaDataIsStored_data();
    void metaDataIsStored();
    void invalidLiteralIsMarkedAndStored();

    void alternateNameFollowsTheVariable_data();
    void alternateNameFollowsTheVariable();
    void clearedVariableHasNoErrorCode_data();
    void clearedVariableHasNoErrorCode();
    void alternateNameShowsItsText_data();
    void alternateNameShowsItsText();
    void invalidAlternateNameIsStoredWithoutAnErrorCode();
    void alternateNameIsStoredAfterItsErrorCodeIsCleared();

    void ecmNumberOpens_data();
    void ecmNumberOpens();
    void ecmNumberIsStored_data();
    void ecmNumberIsStored();
    void ecmCommentIsValidated();
    void ecmListOpensOn_data();
    void ecmListOpensOn();
    void ecmListIsStored();
    void ecmListIsTrimmedAsAWhole();
    void unchangedEcmListStoresNothing();
    void ecmDialogWithoutAFileStoresNothing();
    void cancelledEcmListStoresNothing();

private:
    // Loads a list with one entry and sets its first columns to these texts; a null string keeps
    // the cell.
    QModelIndex showEntry(int tab, const QStringList& texts);
    QString textAt(int tab, int row, int column) const;

    // Picks the item by keyboard, or types the text if it is not offered.
    static void enter(QComboBox* comboBox, const QString& wanted);

    // Does nothing for an empty member.
    static void chooseMember(VariableSelectionDialog* dialog, const QString& member);
    static void chooseUnits(VariableSelectionDialog* dialog, const QString& units);
};

QModelIndex TestListEditors::showEntry(int tab, const QStringList& texts)
{
    constexpr std::array<const char*, TAB_COUNT> SECTIONS{"", "SCAN_LIST", "META_DATA",
                                                          "SCAN_LIST_AUX_USER", "ECM_LIST"};
    const QByteArray entry = tab == DE_TAB2 ? "old_name .AV N_OLD" : "old_name old_text";
    show(listOf(SECTIONS[static_cast<size_t>(tab)], entry));
    TreeModel* const model = modelOf(*m_window, tab);
    for (int i = 0; i < texts.size(); ++i) {
        if (!texts.at(i).isNull())
            model->setData(model->index(1, i + 1), texts.at(i));
    }
    m_window->checkErrorCount();
    return model->index(1, 1);
}

QString TestListEditors::textAt(int tab, int row, int column) const
{
    return cell(tab, row, column).data().toString();
}

void TestListEditors::enter(QComboBox* comboBox, const QString& wanted)
{
    comboBox->setFocus();
    if (comboBox->findText(wanted, Qt::MatchExactly | Qt::MatchCaseSensitive) == -1)
        typeOver(wanted);
    else
        pick(comboBox, wanted);
}

void TestListEditors::chooseMember(VariableSelectionDialog* dialog, const QString& member)
{
    if (!member.isEmpty())
        enter(dialog->subComboBox(), member);
}

void TestListEditors::chooseUnits(VariableSelectionDialog* dialog, const QString& units)
{
    if (!units.isEmpty())
        enter(dialog->unitsComboBox(), units);
}

// ---- Scan List: variables ----------------------------------------------------------------------

void TestListEditors::variableIsSplit_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("units");
    const auto add = [](const char* name, const char* stored, const char* variable,
                        const char* member, const char* units) {
        QTest::newRow(name) << text(stored) << text(variable) << text(member) << text(units);
    };
    add("a variable", "eng_speed", "eng_speed", "", "RPM");
    add("with units", "eng_speed[HZ]", "eng_speed", "", "HZ");
    add("with units in lower case", "eng_speed[hz]", "eng_speed", "", "HZ");
    add("with its own units", "eng_speed[RPM]", "eng_speed", "", "");
    add("with no units in its brackets", "eng_speed[]", "eng_speed", "", "RPM");
    add("with units that do not fit", "eng_speed[KPA]", "eng_speed", "", "");
    add("with more than one bracket", "eng_speed[HZ][RPM]", "eng_speed", "", "HZ");
    add("with the beginning of units", "eng_speed[RAD]", "eng_speed", "", "RAD/S");
    add("with a member", "eng_speed_stat.SD", "eng_speed_stat.", "SD", "RPM");
    add("with an unknown member", "eng_speed_stat.XY", "eng_speed_stat.", "AV", "RPM");
    add("unknown", "no_such", "no_such", "", "");
    add("unknown with units", "no_such[KPA]", "no_such", "", "");
    add("a comment", "# A note", "", "", "");
    add("a placeholder", "FILLER_TXT", "", "", "");
}

void TestListEditors::variableIsSplit()
{
    QFETCH(QString, stored);
    QFETCH(QString, variable);
    QFETCH(QString, member);
    QFETCH(QString, units);
    for (const int tab : {DE_TAB2, DE_TAB4}) {
        const auto* const dialog =
            openAs<VariableSelectionDialog>(showEntry(tab, {stored, FILLER}));
        QVERIFY(dialog != nullptr);
        QVERIFY(!dialog->lineEdit()->isVisible());
        QCOMPARE(dialog->variableComboBox()->currentText(), variable);
        QCOMPARE(dialog->subText(), member);
        QCOMPARE(dialog->unitsComboBox()->currentText(), units);
        m_window.reset();
        m_window = std::make_unique<MainWindow>(nullptr);
    }
}

void TestListEditors::dialogOfAnEmptyVariableIsEmpty()
{
    for (const int tab : {DE_TAB2, DE_TAB4}) {
        const QModelIndex variable = showEntry(tab, {text("x"), FILLER});
        modelAt(variable)->setData(variable, QString());
        auto* const dialog = openAs<VariableSelectionDialog>(variable);
        QVERIFY(dialog != nullptr);
        QCOMPARE(dialog->variableComboBox()->currentText(), QString());
        cancelDialog(dialog);
    }
}

void TestListEditors::scanListsVariableIsStored_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("units");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("memberCell");
    const auto add = [](const char* name, const char* typed, const char* member, const char* units,
                        const QString& variable, const char* memberCell) {
        QTest::newRow(name) << text(typed) << text(member) << text(units) << variable
                            << text(memberCell);
    };
    add("a variable", "oil_temp", "", "", text("oil_temp"), ".IV");
    add("with units", "oil_temp", "", "DEGF", text("oil_temp[DEGF]"), ".IV");
    add("with its own units", "oil_temp", "", "DEGC", text("oil_temp"), ".IV");
    add("unknown", "no_such", "", "", text("no_such"), ".IV");
    add("a statistic", "eng_speed_stat.", "", "", text("eng_speed_stat."), ".AV");
    add("a statistic's member", "eng_speed_stat.", "SD", "", text("eng_speed_stat."), ".SD");
    add("with units as well", "eng_speed_stat.", "SD", "HZ", text("eng_speed_stat.[HZ]"), ".SD");
    add("a statistic's member with its full stop", "eng_speed_stat.", ".SD", "",
        text("eng_speed_stat."), ".SD");
    add("a statistic's member in lower case", "eng_speed_stat.", "sd", "", text("eng_speed_stat."),
        ".SD");
    add("the description of a state", "eng_speed_stat.", "LOG_DIGITAL_DESCP", "",
        text("eng_speed_stat."), "LOG_DIGITAL_DESCP");
    add("a property", "intake_air_prop.", "", "", text("intake_air_prop.AT"), ".IV");
    add("a property's member", "intake_air_prop.", "GM", "", text("intake_air_prop.GM"), ".IV");
    add("a property's member that is a statistic's too", "intake_air_prop.", "RE", "",
        text("intake_air_prop.RE"), ".IV");
    add("a composition's member", "exhaust_comp.", "CO", "", text("exhaust_comp.CO"), ".IV");
    add("an emission's member", "engine_out_emis.", "MF_CO", "", text("engine_out_emis.MF_CO"),
        ".IV");
    add("an emission's member with units", "engine_out_emis.", "MF_CO", "G/S",
        text("engine_out_emis.MF_CO[G/S]"), ".IV");
    add("a property's member with its full stop", "intake_air_prop.", ".GM", "",
        text("intake_air_prop.M") + QChar(0), ".IV");
    add("a full stop alone for a member", "intake_air_prop.", ".", "", text("intake_air_prop."),
        ".IV");
}

void TestListEditors::scanListsVariableIsStored()
{
    QFETCH(QString, typed);
    QFETCH(QString, member);
    QFETCH(QString, units);
    QFETCH(QString, variable);
    QFETCH(QString, memberCell);
    auto* const dialog =
        openAs<VariableSelectionDialog>(showEntry(DE_TAB2, {text("old_name"), text(".IV")}));
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, typed);
    chooseMember(dialog, member);
    chooseUnits(dialog, units);
    acceptDialog(dialog);
    QCOMPARE(textAt(DE_TAB2, 1, 1), variable);
    QCOMPARE(textAt(DE_TAB2, 1, 2), memberCell);
    QCOMPARE(stack()->count(), memberCell == text(".IV") ? 1 : 2);
}

// A full stop is put before the member only if the variable has one.
void TestListEditors::memberWithoutAFullStopInTheVariable()
{
    auto* const dialog =
        openAs<VariableSelectionDialog>(showEntry(DE_TAB2, {text("old_name"), text(".IV")}));
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, text("oil_temp"));
    dialog->subComboBox()->setEditText(text("SD"));
    acceptDialog(dialog);
    QCOMPARE(textAt(DE_TAB2, 1, 1), text("oil_temp"));
    QCOMPARE(textAt(DE_TAB2, 1, 2), text("SD"));
}

// If the cell names other units, the default ones are not offered, so they have to be typed.
void TestListEditors::defaultUnitsAreNotStored_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("as the variable has them") << text("RPM") << text("eng_speed");
    QTest::newRow("in lower case") << text("rpm") << text("eng_speed[rpm]");
    QTest::newRow("unknown") << text("turns") << text("eng_speed[turns]");
}

void TestListEditors::defaultUnitsAreNotStored()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    for (const int tab : {DE_TAB2, DE_TAB4}) {
        const QModelIndex variable = showEntry(tab, {text("eng_speed[HZ]"), text("other")});
        auto* const dialog = openAs<VariableSelectionDialog>(variable);
        QVERIFY(dialog != nullptr);
        QCOMPARE(dialog->unitsComboBox()->findText(text("RPM")), -1);
        chooseUnits(dialog, typed);
        acceptDialog(dialog);
        QCOMPARE(variable.data().toString(), stored);
    }
}

// An edit never makes a cell empty: it adds a step that changes nothing.
void TestListEditors::clearedVariableKeepsTheValue_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("units");
    QTest::addColumn<QString>("memberCell");
    QTest::addColumn<int>("steps");
    QTest::newRow("at once") << QString() << QString() << QString() << text(".IV") << 1;
    QTest::newRow("after units were chosen")
        << text("oil_temp") << QString() << text("DEGF") << text(".IV") << 1;
    QTest::newRow("after a member was chosen")
        << text("eng_speed_stat.") << text("SD") << QString() << text("SD") << 2;
    QTest::newRow("after a member and units were chosen")
        << text("eng_speed_stat.") << text("SD") << text("HZ") << text("SD") << 2;
}

void TestListEditors::clearedVariableKeepsTheValue()
{
    QFETCH(QString, typed);
    QFETCH(QString, member);
    QFETCH(QString, units);
    QFETCH(QString, memberCell);
    QFETCH(int, steps);
    const QModelIndex variable = showEntry(DE_TAB2, {text("eng_speed"), text(".IV")});
    auto* const dialog = openAs<VariableSelectionDialog>(variable);
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, typed);
    chooseMember(dialog, member);
    chooseUnits(dialog, units);
    typeVariable(dialog, QString());
    acceptDialog(dialog);
    const QStringList row{QString(), text("eng_speed"), memberCell, text("N_OLD")};
    QCOMPARE(rowTexts(*modelAt(variable), 1), row);
    QCOMPARE(stack()->count(), steps);
    while (stack()->canUndo())
        stack()->undo();
    QCOMPARE(textAt(DE_TAB2, 1, 1), text("eng_speed"));
    QCOMPARE(textAt(DE_TAB2, 1, 2), text(".IV"));
}

void TestListEditors::unchangedDialogStores_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("variableAfter");
    QTest::addColumn<QString>("memberAfter");
    const auto add = [](const char* name, const char* variable, const char* member,
                        const char* variableAfter, const char* memberAfter) {
        QTest::newRow(name) << text(variable) << text(member) << text(variableAfter)
                            << text(memberAfter);
    };
    add("a variable", "eng_speed", ".SD", "eng_speed", ".SD");
    add("with units", "eng_speed[HZ]", ".SD", "eng_speed[HZ]", ".SD");
    add("with units in lower case", "eng_speed[hz]", ".SD", "eng_speed[HZ]", ".SD");
    add("with its own units", "eng_speed[RPM]", ".SD", "eng_speed[]", ".SD");
    add("unknown with units", "no_such[KPA]", ".SD", "no_such", ".SD");
    add("a statistic", "eng_speed_stat.", ".SD", "eng_speed_stat.", ".AV");
    add("a statistic with its member", "eng_speed_stat.SD", ".IV", "eng_speed_stat.", ".SD");
    add("a comment", "# A note", ".SD", "# A note", ".SD");
}

void TestListEditors::unchangedDialogStores()
{
    QFETCH(QString, variable);
    QFETCH(QString, member);
    QFETCH(QString, variableAfter);
    QFETCH(QString, memberAfter);
    auto* const dialog = openAs<VariableSelectionDialog>(showEntry(DE_TAB2, {variable, member}));
    QVERIFY(dialog != nullptr);
    acceptDialog(dialog);
    QCOMPARE(textAt(DE_TAB2, 1, 1), variableAfter);
    QCOMPARE(textAt(DE_TAB2, 1, 2), memberAfter);
}

// ---- Scan List: statistical members ------------------------------------------------------------

void TestListEditors::membersAreOffered()
{
    QFont font = m_window->myPrefs.editorFont;
    font.setPointSize(19);
    m_window->myPrefs.editorFont = font;
    const QModelIndex variable = showEntry(DE_TAB2, {});
    const auto* const comboBox = openAs<QComboBox>(variable.siblingAtColumn(2));
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->count(), 35);
    for (int i = 0; i < int(MEMBER_CHOICES.size()); ++i) {
        const MemberChoice& choice = MEMBER_CHOICES[static_cast<size_t>(i)];
        QCOMPARE(comboBox->itemText(i), text(choice.name));
        QCOMPARE(comboBox->itemData(i, Qt::ToolTipRole).toString(), text(choice.toolTip));
    }
    QCOMPARE(comboBox->itemText(34), QString());
    QVERIFY(comboBox->itemData(34, Qt::ToolTipRole).isNull());
    QVERIFY(comboBox->isEditable());
    QCOMPARE(comboBox->font().pointSize(), 19);
    QCOMPARE(comboBox->maxVisibleItems(), 10);
    QCOMPARE(comboBox->view()->selectionBehavior(), QAbstractItemView::SelectItems);
    QCOMPARE(comboBox->view()->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(comboBox->view()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

void TestListEditors::memberOpensOn_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<int>("item");
    QTest::newRow("a member") << text(".SD") << 29;
    QTest::newRow("between blanks") << text("  .SD ") << 29;
    QTest::newRow("the description of a state") << text("LOG_DIGITAL_DESCP") << 0;
    QTest::newRow("blanks") << text("  ") << 34;
    QTest::newRow("unknown") << text(".XY") << 0;
    QTest::newRow("in lower case") << text(".sd") << 0;
    QTest::newRow("a placeholder") << FILLER << 0;
    QTest::newRow("empty") << text("") << 0;
}

void TestListEditors::memberOpensOn()
{
    QFETCH(QString, member);
    QFETCH(int, item);
    const QModelIndex index = showEntry(DE_TAB2, {}).siblingAtColumn(2);
    modelAt(index)->setData(index, member);
    const auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->currentIndex(), item);
    QCOMPARE(comboBox->currentText(), comboBox->itemText(item));
    QCOMPARE(comboBox->lineEdit()->selectedText(), comboBox->currentText());
}

void TestListEditors::memberIsStored_data()
{
    QTest::addColumn<QString>("picked");
    QTest::newRow("a member") << text(".MX");
    QTest::newRow("the description of a state") << text("LOG_DIGITAL_DESCP");
    QTest::newRow("none") << QString();
}

void TestListEditors::memberIsStored()
{
    QFETCH(QString, picked);
    const QModelIndex member = showEntry(DE_TAB2, {}).siblingAtColumn(2);
    auto* const comboBox = openAs<QComboBox>(member);
    QVERIFY(comboBox != nullptr);
    pick(comboBox, picked);
    QCOMPARE(member.data().toString(), text("  ") + picked);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
}

void TestListEditors::emptyItemRemovesTheMemberFromTheFile()
{
    auto* const comboBox = openAs<QComboBox>(showEntry(DE_TAB2, {}).siblingAtColumn(2));
    QVERIFY(comboBox != nullptr);
    pick(comboBox, QString());
    QVERIFY(saved().contains("\nold_name\t\tN_OLD\n"));
}

// ---- Scan List: channel keywords ---------------------------------------------------------------

void TestListEditors::channelsAreOffered_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QStringList>("offered");
    const QStringList all = keywordsOf("channel");
    const QStringList rpm = keywordsOf("channel", "RPM");
    QTest::newRow("with units") << text("eng_speed") << rpm;
    QTest::newRow("by another name") << text("engine_speed") << rpm;
    QTest::newRow("with units of the cell's own") << text("eng_speed[KPA]") << rpm;
    QTest::newRow("with no units in its brackets") << text("eng_speed[]") << rpm;
    QTest::newRow("with 93 characters in its brackets")
        << text("eng_speed[KPA") + QString(90, QLatin1Char(']')) << rpm;
    QTest::newRow("with 96 characters in its brackets")
        << text("eng_speed[KPA") + QString(93, QLatin1Char(']')) << keywordsOf("channel", "KPA");
    QTest::newRow("of other units") << text("oil_temp") << keywordsOf("channel", "DEGC");
    QTest::newRow("without units") << text("eng_running") << all;
    QTest::newRow("unknown") << text("no_such") << all;
    QTest::newRow("unknown with units") << text("no_such[RPM]") << all;
    QTest::newRow("a new row") << text(" ") << all;
    QTest::newRow("a comment") << text("# A note") << all;
}

void TestListEditors::channelsAreOffered()
{
    QFETCH(QString, variable);
    QFETCH(QStringList, offered);
    const auto* const comboBox =
        openAs<QComboBox>(showEntry(DE_TAB2, {variable}).siblingAtColumn(3));
    QVERIFY(comboBox != nullptr);
    QVERIFY(comboBox->isEditable());
    QCOMPARE(itemsOf(comboBox), offered);
}

void TestListEditors::channelsOfOtherRowsAreNotOffered_data()
{
    QTest::addColumn<QStringList>("others");
    QTest::addColumn<QStringList>("offered");
    const QStringList rpm = keywordsOf("channel", "RPM");
    const QStringList left = without(rpm, text("N_DYNO"));
    QTest::newRow("a keyword") << QStringList({text("N_DYNO")}) << left;
    QTest::newRow("one on two rows") << QStringList({text("N_DYNO"), text("N_DYNO")}) << left;
    QTest::newRow("two") << QStringList({text("N_DYNO"), text("N_CAM")})
                         << without(left, text("N_CAM"));
    QTest::newRow("the row's own") << QStringList({text("N_ENG")}) << without(rpm, text("N_ENG"));
    QTest::newRow("behind a blank") << QStringList({text(" N_DYNO")}) << rpm;
    QTest::newRow("before a blank") << QStringList({text("N_DYNO ")}) << rpm;
    QTest::newRow("in lower case") << QStringList({text("n_dyno")}) << rpm;
    QTest::newRow("of other units") << QStringList({text("T_OIL")}) << rpm;
    QTest::newRow("unknown") << QStringList({text("NOTHING")}) << rpm;
}

void TestListEditors::channelsOfOtherRowsAreNotOffered()
{
    QFETCH(QStringList, others);
    QFETCH(QStringList, offered);
    show(listOf("SCAN_LIST", "eng_speed N_ENG\ndyno_speed N_OLD\ncam_speed N_OLD"));
    for (int i = 0; i < others.size(); ++i)
        modelOf(*m_window, DE_TAB2)->setData(cell(DE_TAB2, i + 2, 3), others.at(i));
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB2, 1, 3));
    QVERIFY(comboBox != nullptr);
    QCOMPARE(itemsOf(comboBox), offered);
    QCOMPARE(textAt(DE_TAB2, 1, 3), text("N_ENG"));
}

void TestListEditors::channelOfTwoVariablesIsOfferedTwice_data()
{
    QTest::addColumn<int>("uses");
    QTest::newRow("unused") << 0;
    QTest::newRow("used once") << 1;
    QTest::newRow("used twice") << 2;
    QTest::newRow("used more often") << 3;
}

// Each of the other rows uses one of the two entries.
void TestListEditors::channelOfTwoVariablesIsOfferedTwice()
{
    QFETCH(int, uses);
    const RenamedKeyword oilTemperature(m_desk, "T_OIL", "N_DYNO");
    QStringList offered = keywordsOf("channel");
    QVERIFY(offered.indexOf(text("N_DYNO")) < offered.indexOf(text("T_OIL")));
    offered.replace(offered.indexOf(text("T_OIL")), text("N_DYNO"));
    QByteArray entries = "no_such N_ENG\n";
    for (int i = 0; i < uses; ++i) {
        entries += "oil_temp N_DYNO\n";
        offered.removeOne(text("N_DYNO"));
    }
    show(listOf("SCAN_LIST", entries));
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB2, 1, 3));
    QVERIFY(comboBox != nullptr);
    QCOMPARE(itemsOf(comboBox), offered);
}

void TestListEditors::channelsNeedAVariable_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<bool>("opens");
    QTest::newRow("none") << text("") << false;
    QTest::newRow("a blank") << text(" ") << true;
    QTest::newRow("a placeholder") << FILLER << true;
}

void TestListEditors::channelsNeedAVariable()
{
    QFETCH(QString, variable);
    QFETCH(bool, opens);
    const QModelIndex index = showEntry(DE_TAB2, {});
    modelAt(index)->setData(index, variable);
    QCOMPARE(open(index.siblingAtColumn(3)) != nullptr, opens);
}

void TestListEditors::channelOpensOn_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("shown");
    const QString first = keywordsOf("channel", "RPM").first();
    QTest::newRow("a keyword") << text("N_CAM") << text("N_CAM");
    QTest::newRow("behind a blank") << text(" N_CAM") << first;
    QTest::newRow("in lower case") << text("n_cam") << first;
    QTest::newRow("of other units") << text("T_OIL") << first;
    QTest::newRow("a placeholder") << FILLER << first;
}

void TestListEditors::channelOpensOn()
{
    QFETCH(QString, channel);
    QFETCH(QString, shown);
    const QModelIndex index =
        showEntry(DE_TAB2, {text("eng_speed"), FILLER, channel}).siblingAtColumn(3);
    const auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->currentText(), shown);
    QCOMPARE(index.data().toString(), channel);
}

void TestListEditors::channelIsStored()
{
    const QModelIndex index = showEntry(DE_TAB2, {text("eng_speed")}).siblingAtColumn(3);
    auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    pick(comboBox, text("N_CAM"));
    QCOMPARE(index.data().toString(), text("N_CAM"));
    QCOMPARE(openEditors(), 0);
    QVERIFY(open(index) != nullptr);
    typeOver(text("my own "));
    press(Qt::Key_Return);
    QCOMPARE(index.data().toString(), text("my own "));
    QCOMPARE(stack()->count(), 2);
}

// The keyword area stays attached; without a platform the variable's units are unknown.
void TestListEditors::channelsAreOfferedAfterThePlatformEnded()
{
    const QModelIndex index = showEntry(DE_TAB2, {text("eng_speed")}).siblingAtColumn(3);
    QVERIFY(openAs<QComboBox>(index) != nullptr);
    press(Qt::Key_Return);
    QCOMPARE(openEditors(), 0);
    QVERIFY(m_desk.kill());
    const auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    QCOMPARE(itemsOf(comboBox), keywordsOf("channel"));
    QVERIFY(m_desk.start(qEnvironmentVariable("SCRIBON_EXAMPLES") + text("/catalogue.json")));
}

// ---- Meta Data List ----------------------------------------------------------------------------

void TestListEditors::parametersAreOffered_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QStringList>("offered");
    const QStringList all = keywordsOf("parameter");
    QTest::newRow("a keyword") << text("BORE") << all;
    QTest::newRow("one of another row") << text("STROKE") << all;
    QTest::newRow("a variable's name") << text("eng_speed") << keywordsOf("parameter", "RPM");
    QTest::newRow("a variable's name with units")
        << text("eng_speed[MM]") << keywordsOf("parameter", "RPM");
    QTest::newRow("a new row") << text(" ") << all;
    QTest::newRow("a comment") << text("# A note") << all;
}

void TestListEditors::parametersAreOffered()
{
    QFETCH(QString, keyword);
    QFETCH(QStringList, offered);
    show(listOf("META_DATA", "BORE bore\nSTROKE stroke\nBORE bore"));
    modelOf(*m_window, DE_TAB3)->setData(cell(DE_TAB3, 1, 1), keyword);
    const auto* const comboBox = openAs<QComboBox>(cell(DE_TAB3, 1, 1));
    QVERIFY(comboBox != nullptr);
    QVERIFY(comboBox->isEditable());
    QCOMPARE(itemsOf(comboBox), offered);
    QCOMPARE(comboBox->currentText(), offered.contains(keyword) ? keyword : offered.first());
}

void TestListEditors::parametersNeedAText()
{
    const QModelIndex index = showEntry(DE_TAB3, {});
    modelAt(index)->setData(index, QString());
    QCOMPARE(open(index), nullptr);
}

void TestListEditors::parameterIsStored()
{
    const QModelIndex index = showEntry(DE_TAB3, {text("BORE")});
    auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    pick(comboBox, text("STROKE"));
    QCOMPARE(index.data().toString(), text("STROKE"));
    QVERIFY(open(index) != nullptr);
    typeOver(text("OWN"));
    press(Qt::Key_Return);
    QCOMPARE(index.data().toString(), text("OWN"));
    QCOMPARE(stack()->count(), 2);
}

void TestListEditors::literalOrVariable_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("variable");
    QTest::newRow("single quotes") << text("'one'") << text("'one'") << QString();
    QTest::newRow("double quotes") << text("\"one\"") << text("\"one\"") << QString();
    QTest::newRow("a quote that is not closed") << text("'one") << text("'one") << QString();
    QTest::newRow("a variable") << text("bore[IN]") << QString() << text("bore");
    QTest::newRow("empty") << text("") << QString() << QString();
}

void TestListEditors::literalOrVariable()
{
    QFETCH(QString, stored);
    QFETCH(QString, literal);
    QFETCH(QString, variable);
    const QModelIndex index = showEntry(DE_TAB3, {text("BORE"), text("x")}).siblingAtColumn(2);
    modelAt(index)->setData(index, stored);
    auto* const dialog = openAs<VariableSelectionDialog>(index);
    QVERIFY(dialog != nullptr);
    QCOMPARE(partOf<QLabel>(dialog, "interval_or_path")->text(), text("Literal"));
    QVERIFY(dialog->lineEdit()->isVisible());
    QCOMPARE(dialog->lineEdit()->text(), literal);
    QCOMPARE(dialog->variableComboBox()->currentText(), variable);
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), 0);
}

void TestListEditors::metaDataIsStored_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("units");
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("stored");
    const auto add = [](const char* name, const char* variable, const char* member,
                        const char* units, const char* literal, const char* stored) {
        QTest::newRow(name) << text(variable) << text(member) << text(units) << text(literal)
                            << text(stored);
    };
    add("a variable", "stroke", "", "", "", "stroke");
    add("with units", "stroke", "", "IN", "", "stroke[IN]");
    add("a statistic's member", "eng_speed_stat.", "SD", "", "", "eng_speed_stat.SD");
    add("with units as well", "eng_speed_stat.", "SD", "HZ", "", "eng_speed_stat.SD[HZ]");
    add("a property's first member", "intake_air_prop.", "", "", "", "intake_air_prop.AT");
    add("a member between blanks", "eng_speed_stat.", "SD ", "", "", "eng_speed_stat.SD");
    add("a literal", "", "", "", "\"two\"", "\"two\"");
    add("a literal over a variable", "stroke", "", "", "\"two\"", "\"two\"");
    add("neither", "", "", "", "", "old");
}

void TestListEditors::metaDataIsStored()
{
    QFETCH(QString, variable);
    QFETCH(QString, member);
    QFETCH(QString, units);
    QFETCH(QString, literal);
    QFETCH(QString, stored);
    const QModelIndex index = showEntry(DE_TAB3, {text("BORE"), text("old")}).siblingAtColumn(2);
    auto* const dialog = openAs<VariableSelectionDialog>(index);
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, variable);
    chooseMember(dialog, member);
    chooseUnits(dialog, units);
    if (!literal.isEmpty()) {
        dialog->lineEdit()->setFocus();
        typeOver(literal);
    }
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), stored == text("old") ? 0 : 1);
}

void TestListEditors::invalidLiteralIsMarkedAndStored()
{
    const QModelIndex index = showEntry(DE_TAB3, {text("BORE"), text("bore")}).siblingAtColumn(2);
    auto* const dialog = openAs<VariableSelectionDialog>(index);
    QVERIFY(dialog != nullptr);
    QCOMPARE(modelAt(index)->errorCode(index).toInt(), int{DE_NOERROR});
    dialog->lineEdit()->setFocus();
    typeOver(text("two"));
    QCOMPARE(modelAt(index)->errorCode(index).toInt(), int{DE_SYNTAX_ERR});
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), text("two"));
}

// ---- Scan List Aux User ------------------------------------------------------------------------

void TestListEditors::alternateNameFollowsTheVariable_data()
{
    QTest::addColumn<QString>("alternate");
    QTest::addColumn<bool>("follows");
    QTest::newRow("a placeholder") << FILLER << true;
    QTest::newRow("a placeholder between blanks") << text(" FILLER_TXT ") << true;
    QTest::newRow("a blank") << text(" ") << true;
    QTest::newRow("a name") << text("other") << false;
}

void TestListEditors::alternateNameFollowsTheVariable()
{
    QFETCH(QString, alternate);
    QFETCH(bool, follows);
    const QModelIndex variable = showEntry(DE_TAB4, {text("old_name"), alternate});
    const QModelIndex name = variable.siblingAtColumn(2);
    modelAt(name)->setErrorCode(name, DE_SYNTAX_ERR);
    auto* const dialog = openAs<VariableSelectionDialog>(variable);
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, text("eng_speed_stat."));
    chooseUnits(dialog, text("HZ"));
    acceptDialog(dialog);
    const QString value = text("eng_speed_stat.AV[HZ]");
    QCOMPARE(variable.data().toString(), value);
    QCOMPARE(name.data().toString(), follows ? value : alternate);
    QCOMPARE(modelAt(name)->errorCode(name).toInt(),
             follows ? int{DE_NOERROR} : int{DE_SYNTAX_ERR});
    QCOMPARE(stack()->count(), follows ? 2 : 1);
}

void TestListEditors::clearedVariableHasNoErrorCode_data()
{
    QTest::addColumn<QString>("units");
    QTest::addColumn<QString>("alternate");
    QTest::addColumn<bool>("follows");
    QTest::newRow("a placeholder") << QString() << FILLER << true;
    QTest::newRow("a blank") << QString() << text(" ") << true;
    QTest::newRow("a placeholder after units were chosen") << text("DEGF") << FILLER << true;
    QTest::newRow("a name") << QString() << text("other") << false;
    QTest::newRow("a name after units were chosen") << text("DEGF") << text("other") << false;
}

// The alternate name keeps its text, like the variable.
void TestListEditors::clearedVariableHasNoErrorCode()
{
    QFETCH(QString, units);
    QFETCH(QString, alternate);
    QFETCH(bool, follows);
    const QModelIndex variable = showEntry(DE_TAB4, {text("eng_speed"), alternate});
    const QModelIndex name = variable.siblingAtColumn(2);
    modelAt(name)->setErrorCode(name, DE_SYNTAX_ERR);
    auto* const dialog = openAs<VariableSelectionDialog>(variable);
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, text("oil_temp"));
    chooseUnits(dialog, units);
    typeVariable(dialog, QString());
    acceptDialog(dialog);
    QCOMPARE(rowTexts(*modelAt(variable), 1),
             QStringList({QString(), text("eng_speed"), alternate}));
    QCOMPARE(modelAt(name)->errorCode(name).toInt(),
             follows ? int{DE_NOERROR} : int{DE_SYNTAX_ERR});
    QCOMPARE(stack()->count(), follows ? 1 : 0);
}

void TestListEditors::alternateNameShowsItsText_data()
{
    QTest::addColumn<QString>("alternate");
    QTest::newRow("a name") << text("other");
    QTest::newRow("a placeholder") << FILLER;
    QTest::newRow("between blanks") << text(" other ");
}

void TestListEditors::alternateNameShowsItsText()
{
    QFETCH(QString, alternate);
    const QModelIndex name = showEntry(DE_TAB4, {text("x"), alternate}).siblingAtColumn(2);
    const auto* const line = openAs<QLineEdit>(name);
    QVERIFY(line != nullptr);
    QCOMPARE(line->text(), alternate);
}

// Typed text is validated at once, stored text at the next validation.
void TestListEditors::invalidAlternateNameIsStoredWithoutAnErrorCode()
{
    const QModelIndex name = showEntry(DE_TAB4, {text("x"), text("other")}).siblingAtColumn(2);
    const TreeModel* const model = modelAt(name);
    QVERIFY(open(name) != nullptr);
    typeOver(text("no-name "));
    QCOMPARE(model->errorCode(name).toInt(), int{DE_SYNTAX_ERR});
    press(Qt::Key_Return);
    QCOMPARE(name.data().toString(), text("no-name "));
    QCOMPARE(model->errorCode(name).toInt(), int{DE_NOERROR});
    m_window->checkErrorCount();
    QCOMPARE(model->errorCode(name).toInt(), int{DE_SYNTAX_ERR});
}

// When dataChanged() is emitted, the mark is cleared already.
void TestListEditors::alternateNameIsStoredAfterItsErrorCodeIsCleared()
{
    const QModelIndex name = showEntry(DE_TAB4, {text("x"), text("other")}).siblingAtColumn(2);
    const TreeModel* const model = modelAt(name);
    QVERIFY(open(name) != nullptr);
    typeOver(text("no-name"));
    QVector<int> codes{model->errorCode(name).toInt()};
    const auto hearing = connect(model, &TreeModel::dataChanged, this, [&codes, &name, model] {
        codes.append(model->errorCode(name).toInt());
    });
    press(Qt::Key_Return);
    disconnect(hearing);
    QVERIFY(codes.size() > 1);
    QCOMPARE(codes.takeFirst(), int{DE_SYNTAX_ERR});
    QCOMPARE(codes, QVector<int>(codes.size(), DE_NOERROR));
}

// ---- ECM List ----------------------------------------------------------------------------------

void TestListEditors::ecmNumberOpens_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<bool>("listOpens");
    QTest::newRow("a number") << text("1") << true << true;
    QTest::newRow("a comment") << text("# A note") << true << false;
    QTest::newRow("a text") << text("some_text") << true << true;
    QTest::newRow("a new row") << text(" ") << true << true;
    QTest::newRow("a keyword") << text("@MODE") << false << true;
    QTest::newRow("a statistical member") << text(".AV") << false << true;
}

void TestListEditors::ecmNumberOpens()
{
    QFETCH(QString, number);
    QFETCH(bool, opens);
    QFETCH(bool, listOpens);
    const QModelIndex index = showEntry(DE_TAB5, {number, ENGINE + text(":ECM0:0")});
    const auto* const line = openAs<QLineEdit>(index);
    QCOMPARE(line != nullptr, opens);
    if (line != nullptr)
        QCOMPARE(line->text(), number);
    QCOMPARE(open(index.siblingAtColumn(2)) != nullptr, listOpens);
}

void TestListEditors::ecmNumberIsStored_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a number") << text("1") << text("17") << text("17");
    QTest::newRow("a comment") << text("# A note") << text("# Another") << text("# Another");
    QTest::newRow("between blanks") << text("# A note") << text("  # Other ") << text("# Other");
    QTest::newRow("a comment over a number") << text("1") << text("# Note") << text("# Note");
    QTest::newRow("a text") << text("1") << text("some text") << text("some text");
}

void TestListEditors::ecmNumberIsStored()
{
    QFETCH(QString, before);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    const QModelIndex index = showEntry(DE_TAB5, {before, ENGINE + text(":ECM0:0")});
    TreeModel* const model = modelAt(index);
    QVERIFY(open(index) != nullptr);
    typeOver(typed);
    model->setErrorCode(index, DE_DUPLICATE_ERR);
    model->setErrorCode(index.siblingAtColumn(2), DE_DUPLICATE_ERR);
    press(Qt::Key_Return);
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(model->errorCode(index).toInt(), int{DE_DUPLICATE_ERR});
    QCOMPARE(model->errorCode(index.siblingAtColumn(2)).toInt(), int{DE_NOERROR});
    QCOMPARE(textAt(DE_TAB5, 1, 2), ENGINE + text(":ECM0:0"));
    QCOMPARE(stack()->count(), 1);
}

void TestListEditors::ecmCommentIsValidated()
{
    const QModelIndex index = showEntry(DE_TAB5, {text("# A note")});
    QVERIFY(open(index) != nullptr);
    typeOver(text("note"));
    QCOMPARE(modelAt(index)->errorCode(index).toInt(), int{DE_SYNTAX_ERR});
    typeOver(text("#") + QString(79, QLatin1Char('x')));
    QCOMPARE(modelAt(index)->errorCode(index).toInt(), int{DE_NOERROR});
    typeOver(text("#") + QString(80, QLatin1Char('x')));
    QCOMPARE(modelAt(index)->errorCode(index).toInt(), int{DE_SYNTAX_ERR});
}

void TestListEditors::ecmListOpensOn_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("remembered");
    const auto add = [](const char* name, const char* number, const QString& list,
                        const QStringList& shown, const QStringList& remembered) {
        QTest::newRow(name) << text(number) << list << shown << remembered;
    };
    const QString other = text("/specs/none");
    add("file, name and index", "1", ENGINE + text(":ECM0:1"), {ENGINE, text("ECM0:1"), text("1")},
        {ENGINE, text("ECM0:1")});
    add("between blanks", "12", text("  ") + ENGINE + text(":ECM0:1 "),
        {ENGINE, text("ECM0:1"), text("12")}, {ENGINE, text("ECM0:1")});
    add("more parts", "1", ENGINE + text(":ECM0:1:x"), {ENGINE, text("ECM0:1"), text("1")},
        {ENGINE, text("ECM0:1")});
    add("no index", "1", ENGINE + text(":ECM1"), {ENGINE, text("ECM0:0"), text("1")},
        {ENGINE, QString()});
    add("the file alone", "1", ENGINE, {ENGINE, text("ECM0:0"), text("1")}, {ENGINE, QString()});
    add("a file that is not there", "1", other + text(":A:1"), {other, text("ECM0:0"), text("1")},
        {other, text("A:1")});
    add("a blank number", " ", ENGINE + text(":ECM1:0"), {ENGINE, text("ECM1:0"), text("0")},
        {ENGINE, text("ECM1:0")});
    add("a number that is none", "x", ENGINE + text(":ECM1:0"), {ENGINE, text("ECM1:0"), text("0")},
        {ENGINE, text("ECM1:0")});
    add("a number that is too large", "100", ENGINE + text(":ECM1:0"),
        {ENGINE, text("ECM1:0"), text("99")}, {ENGINE, text("ECM1:0")});
}

void TestListEditors::ecmListOpensOn()
{
    QFETCH(QString, number);
    QFETCH(QString, list);
    QFETCH(QStringList, shown);
    QFETCH(QStringList, remembered);
    const QModelIndex index = showEntry(DE_TAB5, {number, list}).siblingAtColumn(2);
    const auto* const dialog = openAs<asamspecs_select>(index);
    QVERIFY(dialog != nullptr);
    QCOMPARE(QStringList({dialog->OrigFileName(), dialog->OrigEcmInstance()}), remembered);
    QCOMPARE(QStringList({dialog->fileComboBox()->currentText(),
                          dialog->ecmComboBox()->currentText(), dialog->extSpinBoxEdit()->text()}),
             shown);
}

void TestListEditors::ecmListIsStored()
{
    const QModelIndex index =
        showEntry(DE_TAB5, {text("1"), ENGINE + text(":ECM0:0")}).siblingAtColumn(2);
    const QModelIndex number = index.siblingAtColumn(1);
    auto* const dialog = openAs<asamspecs_select>(index);
    QVERIFY(dialog != nullptr);
    dialog->ecmComboBox()->setFocus();
    pick(dialog->ecmComboBox(), text("ECM1:0"));
    dialog->extSpinBoxEdit()->setFocus();
    typeOver(text("42"));
    modelAt(number)->setErrorCode(number, DE_DUPLICATE_ERR);
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), ENGINE + text(":ECM1:0"));
    QCOMPARE(number.data().toString(), text("42"));
    QCOMPARE(modelAt(number)->errorCode(number).toInt(), int{DE_NOERROR});
    QCOMPARE(stack()->count(), 2);
    QVERIFY(saved().contains("\n42\t\t/specs/asam3_specs.engine:ECM1:0\n"));
}

void TestListEditors::ecmListIsTrimmedAsAWhole()
{
    const QModelIndex index =
        showEntry(DE_TAB5, {text("1"), ENGINE + text(":ECM0:0")}).siblingAtColumn(2);
    auto* const dialog = openAs<asamspecs_select>(index);
    QVERIFY(dialog != nullptr);
    const QString file = text("  ") + ENGINE + text(" ");
    dialog->fileComboBox()->insertItem(0, file);
    dialog->fileComboBox()->setFocus();
    pick(dialog->fileComboBox(), file);
    dialog->ecmComboBox()->addItem(text(" ECM1:0  "));
    dialog->ecmComboBox()->setFocus();
    pick(dialog->ecmComboBox(), text(" ECM1:0  "));
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), ENGINE + text(" : ECM1:0"));
}

void TestListEditors::unchangedEcmListStoresNothing()
{
    const QModelIndex index =
        showEntry(DE_TAB5, {text("1"), ENGINE + text(":ECM0:1")}).siblingAtColumn(2);
    auto* const dialog = openAs<asamspecs_select>(index);
    QVERIFY(dialog != nullptr);
    acceptDialog(dialog);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(stack()->count(), 0);
}

// Such a dialog is never shown, since it would open a file dialog at once.
void TestListEditors::ecmDialogWithoutAFileStoresNothing()
{
    const QModelIndex index = showEntry(DE_TAB5, {text(" "), text(" ")}).siblingAtColumn(2);
    const Antlr3_BaseTreeDelegate* const delegate = delegateAt(index);
    const std::unique_ptr<QWidget> dialog(delegate->createEditor(nullptr, {}, index));
    delegate->setEditorData(dialog.get(), index);
    delegate->setModelData(dialog.get(), modelAt(index), index);
    QCOMPARE(rowTexts(*modelAt(index), 1), QStringList({QString(), text(" "), text(" ")}));
    QCOMPARE(stack()->count(), 0);
    qobject_cast<asamspecs_select*>(dialog.get())->fileComboBox()->setCurrentIndex(0);
    delegate->setModelData(dialog.get(), modelAt(index), index);
    QCOMPARE(textAt(DE_TAB5, 1, 2), text("asam3_specs.7:0"));
}

void TestListEditors::cancelledEcmListStoresNothing()
{
    const QModelIndex index =
        showEntry(DE_TAB5, {text("1"), ENGINE + text(":ECM0:0")}).siblingAtColumn(2);
    auto* const dialog = openAs<asamspecs_select>(index);
    QVERIFY(dialog != nullptr);
    dialog->ecmComboBox()->setFocus();
    pick(dialog->ecmComboBox(), text("ECM1:0"));
    cancelDialog(dialog);
    QCOMPARE(dialog->canceled, 1);
    delegateAt(index)->setModelData(dialog, modelAt(index), index);
    QCOMPARE(index.data().toString(), ENGINE + text(":ECM0:0"));
    QCOMPARE(stack()->count(), 0);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestListEditors)
#include "tst_list_editors.moc"
