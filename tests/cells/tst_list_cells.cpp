// What the editors of the list tabs offer, and how a variable's cell is taken apart and joined
// again. On the platform of the example catalogue.

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QUndoStack>

#include "asamspecs_select.h"
#include "variableselectiondialog.h"
#include "window_test.h"

namespace {

constexpr int CHANNEL_KEYWORDS_OF_EXAMPLE = 136;
constexpr int PARAMETER_KEYWORDS_OF_EXAMPLE = 63;

QStringList itemsOf(const QComboBox& comboBox)
{
    QStringList items;
    for (int i = 0; i < comboBox.count(); ++i)
        items.append(comboBox.itemText(i));
    return items;
}

QPushButton* buttonOf(QDialog* dialog, const char* name)
{
    return dialog->findChild<QPushButton*>(QLatin1String(name));
}

}  // namespace

class tst_ListCells : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void channelsNeedAVariable();
    void parametersNeedAKeyword();
    void channelsGoByTheVariablesUnits_data();
    void channelsGoByTheVariablesUnits();
    void channelsOfOtherRowsAreLeftOut();
    void parametersOfOtherRowsStay();
    void membersAndTheirHelp();
    void memberThatIsShown_data();
    void memberThatIsShown();
    void joinOfTheScanList_data();
    void joinOfTheScanList();
    void variableOfAStatisticOpensWithItsMember();
    void unitsOfTheCellAreChosen();
    void alternateNameFollows_data();
    void alternateNameFollows();
    void literalIsShownInItsLine();
    void ecmRowOpensWithItsParts();
    void blankExtensionNumberIsZero();
    void cancelledEcmDialogStoresNothing();
    void returnInADialogDoesNothing();

private:
    void load(int tab, const QByteArray& section, const QByteArray& entries);
    void open(int row, int column);
    QComboBox* comboBox() const;
    VariableSelectionDialog* dialog() const;
    asamspecs_select* ecmDialog() const;
    QString text(int row, int column) const;

    int m_tab = 0;
};

void tst_ListCells::load(int tab, const QByteArray& section, const QByteArray& entries)
{
    m_tab = tab;
    loadGoodFile("@SCRIBON\nx\n\n@" + section + "\n" + entries + "\n\n");
    m_window->show();
    tabsOf(*m_window)->setCurrentIndex(tab);
}

void tst_ListCells::open(int row, int column)
{
    QTreeView* const view = viewOf(*m_window, m_tab);
    view->setFocus();
    goTo(view, row, column);
    QTest::keyClick(view, Qt::Key_F2);
}

QComboBox* tst_ListCells::comboBox() const
{
    return viewOf(*m_window, m_tab)->viewport()->findChild<QComboBox*>();
}

VariableSelectionDialog* tst_ListCells::dialog() const
{
    return m_window->findChild<VariableSelectionDialog*>();
}

asamspecs_select* tst_ListCells::ecmDialog() const
{
    return m_window->findChild<asamspecs_select*>();
}

QString tst_ListCells::text(int row, int column) const
{
    return modelOf(*m_window, m_tab)->index(row, column).data(Qt::EditRole).toString();
}

void tst_ListCells::channelsNeedAVariable()
{
    load(1, "SCAN_LIST", "eng_speed .AV N_ENG");
    TreeModel* const model = modelOf(*m_window, 1);
    QVERIFY(model->setData(model->index(1, 1), QString()));
    open(1, 3);
    QCOMPARE(comboBox(), nullptr);
}

void tst_ListCells::parametersNeedAKeyword()
{
    load(2, "META_DATA", "TEST_TITLE cell_name");
    TreeModel* const model = modelOf(*m_window, 2);
    QVERIFY(model->setData(model->index(1, 1), QString()));
    open(1, 1);
    QCOMPARE(comboBox(), nullptr);
}

void tst_ListCells::channelsGoByTheVariablesUnits_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<int>("count");
    QTest::newRow("a variable with units") << QByteArray("eng_speed") << 10;
    QTest::newRow("other units in the cell play no part") << QByteArray("eng_speed[HZ]") << 10;
    QTest::newRow("units of another kind play none either") << QByteArray("eng_speed[KPA]") << 10;
    QTest::newRow("an unknown variable has all")
        << QByteArray("no_such") << CHANNEL_KEYWORDS_OF_EXAMPLE;
}

void tst_ListCells::channelsGoByTheVariablesUnits()
{
    QFETCH(QByteArray, variable);
    QFETCH(int, count);
    load(1, "SCAN_LIST", variable + " .AV N_ENG");
    open(1, 3);
    QVERIFY(comboBox() != nullptr);
    QCOMPARE(comboBox()->count(), count);
    QCOMPARE(comboBox()->currentText(), QStringLiteral("N_ENG"));
}

void tst_ListCells::channelsOfOtherRowsAreLeftOut()
{
    load(1, "SCAN_LIST", "eng_speed .AV N_ENG\neng_speed .SD N_DYNO");
    open(1, 3);
    QVERIFY(itemsOf(*comboBox()).contains(QStringLiteral("N_ENG")));
    QVERIFY(!itemsOf(*comboBox()).contains(QStringLiteral("N_DYNO")));
    QCOMPARE(comboBox()->count(), 9);
}

void tst_ListCells::parametersOfOtherRowsStay()
{
    load(2, "META_DATA", "TEST_TITLE cell_name\nENGINEER cell_name");
    open(1, 1);
    QVERIFY(itemsOf(*comboBox()).contains(QStringLiteral("ENGINEER")));
    QCOMPARE(comboBox()->count(), PARAMETER_KEYWORDS_OF_EXAMPLE);
}

void tst_ListCells::membersAndTheirHelp()
{
    load(1, "SCAN_LIST", "eng_speed .AV N_ENG");
    open(1, 2);
    QCOMPARE(comboBox()->count(), 35);
    QCOMPARE(comboBox()->itemText(34), QString());
    QVERIFY(comboBox()->itemData(34, Qt::ToolTipRole).isNull());
    for (int i = 0; i < 34; ++i)
        QVERIFY(!comboBox()->itemData(i, Qt::ToolTipRole).toString().isEmpty());
    QCOMPARE(comboBox()->itemData(1, Qt::ToolTipRole).toString(), QStringLiteral("mean"));
    QCOMPARE(comboBox()->itemText(33), QStringLiteral(".TX"));
    QCOMPARE(comboBox()->itemData(33, Qt::ToolTipRole).toString(),
             QStringLiteral("time of maximum"));
    QCOMPARE(comboBox()->maxVisibleItems(), 10);
}

void tst_ListCells::memberThatIsShown_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<int>("item");
    QTest::newRow("a member") << QStringLiteral(".SD") << 29;
    QTest::newRow("a member behind blanks") << QStringLiteral("  .SD") << 29;
    QTest::newRow("a blank") << QStringLiteral(" ") << 34;
    QTest::newRow("an unknown one") << QStringLiteral(".XX") << 0;
    QTest::newRow("another case") << QStringLiteral(".sd") << 0;
}

void tst_ListCells::memberThatIsShown()
{
    QFETCH(QString, cell);
    QFETCH(int, item);
    load(1, "SCAN_LIST", "eng_speed .AV N_ENG");
    TreeModel* const model = modelOf(*m_window, 1);
    QVERIFY(model->setData(model->index(1, 2), cell));
    open(1, 2);
    QCOMPARE(comboBox()->currentIndex(), item);
}

// The NUL behind a member that was typed with its full stop is no slip: see the joining code.
void tst_ListCells::joinOfTheScanList_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("units");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("memberCell");
    const auto row = [](const char* name, const char* variable, const char* member,
                        const char* units, const QString& cell, const char* memberCell) {
        QTest::newRow(name) << QString::fromLatin1(variable) << QString::fromLatin1(member)
                            << QString::fromLatin1(units) << cell
                            << QString::fromLatin1(memberCell);
    };
    row("a plain variable", "oil_press", "", "KPA", QStringLiteral("oil_press"), ".AV");
    row("its own units add nothing", "eng_speed", "", "RPM", QStringLiteral("eng_speed"), ".AV");
    row("other units", "eng_speed", "", "HZ", QStringLiteral("eng_speed[HZ]"), ".AV");
    row("its own units in another case", "eng_speed", "", "rpm", QStringLiteral("eng_speed[rpm]"),
        ".AV");
    row("a member of a statistic", "eng_speed_stat.", "SD", "RPM",
        QStringLiteral("eng_speed_stat."), ".SD");
    row("another member", "intake_air_prop.", "GM", "", QStringLiteral("intake_air_prop.GM"),
        ".AV");
    row("another member and units", "engine_out_emis.", "MF_CO", "G/S",
        QStringLiteral("engine_out_emis.MF_CO[G/S]"), ".AV");
    row("another member with its full stop", "intake_air_prop.", ".GM", "",
        QStringLiteral("intake_air_prop.M") + QChar(0), ".AV");
}

void tst_ListCells::joinOfTheScanList()
{
    QFETCH(QString, variable);
    QFETCH(QString, member);
    QFETCH(QString, units);
    QFETCH(QString, cell);
    QFETCH(QString, memberCell);
    load(1, "SCAN_LIST", "old_name .AV N_ENG");
    open(1, 1);
    QVERIFY(dialog() != nullptr);
    dialog()->variableComboBox()->setEditText(variable);
    dialog()->subComboBox()->setEditText(member);
    dialog()->unitsComboBox()->setEditText(units);
    QTest::mouseClick(buttonOf(dialog(), "OkButton"), Qt::LeftButton);
    QCOMPARE(text(1, 1), cell);
    QCOMPARE(text(1, 2), memberCell);
}

void tst_ListCells::variableOfAStatisticOpensWithItsMember()
{
    load(1, "SCAN_LIST", "eng_speed_stat.SD N_ENG");
    open(1, 1);
    QVERIFY(dialog() != nullptr);
    QVERIFY(dialog()->subComboBox()->isEnabled());
    QCOMPARE(dialog()->subComboBox()->count(), 33);
}

void tst_ListCells::unitsOfTheCellAreChosen()
{
    load(1, "SCAN_LIST", "eng_speed[hz] .AV N_ENG");
    open(1, 1);
    QCOMPARE(dialog()->variableComboBox()->currentText(), QStringLiteral("eng_speed"));
    QCOMPARE(dialog()->unitsComboBox()->currentText(), QStringLiteral("HZ"));
    QTest::mouseClick(buttonOf(dialog(), "OkButton"), Qt::LeftButton);
    QCOMPARE(text(1, 1), QStringLiteral("eng_speed[HZ]"));
}

void tst_ListCells::alternateNameFollows_data()
{
    QTest::addColumn<QString>("alternate");
    QTest::addColumn<QString>("afterwards");
    QTest::newRow("none yet") << QStringLiteral("FILLER_TXT") << QStringLiteral("oil_press");
    QTest::newRow("a blank one") << QStringLiteral(" ") << QStringLiteral("oil_press");
    QTest::newRow("one of its own") << QStringLiteral("other") << QStringLiteral("other");
}

void tst_ListCells::alternateNameFollows()
{
    QFETCH(QString, alternate);
    QFETCH(QString, afterwards);
    load(3, "SCAN_LIST_AUX_USER", "eng_speed second");
    TreeModel* const model = modelOf(*m_window, 3);
    QVERIFY(model->setData(model->index(1, 2), alternate));
    QVERIFY(model->setErrorCode(model->index(1, 2), DE_SYNTAX_ERR));
    open(1, 1);
    dialog()->variableComboBox()->setEditText(QStringLiteral("oil_press"));
    QTest::mouseClick(buttonOf(dialog(), "OkButton"), Qt::LeftButton);
    QCOMPARE(text(1, 1), QStringLiteral("oil_press"));
    QCOMPARE(text(1, 2), afterwards);
    const int code = alternate == afterwards ? DE_SYNTAX_ERR : DE_NOERROR;
    QCOMPARE(model->errorCode(model->index(1, 2)).toInt(), code);
}

void tst_ListCells::literalIsShownInItsLine()
{
    load(2, "META_DATA", "TEST_TITLE 'one'");
    open(1, 2);
    QCOMPARE(dialog()->lineEdit()->text(), QStringLiteral("'one'"));
    QCOMPARE(dialog()->variableComboBox()->currentText(), QString());
    QTest::mouseClick(buttonOf(dialog(), "OkButton"), Qt::LeftButton);
    QCOMPARE(text(1, 2), QStringLiteral("'one'"));
    QCOMPARE(m_window->uStack()->count(), 0);
}

void tst_ListCells::ecmRowOpensWithItsParts()
{
    load(4, "ECM_LIST", "7 /specs/asam3_specs.none:ECM1:2");
    open(1, 2);
    QVERIFY(ecmDialog() != nullptr);
    QCOMPARE(ecmDialog()->OrigFileName(), QStringLiteral("/specs/asam3_specs.none"));
    QCOMPARE(ecmDialog()->OrigEcmInstance(), QStringLiteral("ECM1:2"));
    QCOMPARE(ecmDialog()->extSpinBoxEdit()->value(), 7);
    ecmDialog()->reject();
}

void tst_ListCells::blankExtensionNumberIsZero()
{
    load(4, "ECM_LIST", "7 /specs/asam3_specs.none:ECM1:2");
    TreeModel* const model = modelOf(*m_window, 4);
    QVERIFY(model->setData(model->index(1, 1), QStringLiteral(" ")));
    open(1, 2);
    QCOMPARE(ecmDialog()->extSpinBoxEdit()->value(), 0);
    ecmDialog()->reject();
}

void tst_ListCells::cancelledEcmDialogStoresNothing()
{
    load(4, "ECM_LIST", "7 /specs/asam3_specs.none:ECM1:2");
    open(1, 2);
    ecmDialog()->extSpinBoxEdit()->setValue(9);
    QTest::mouseClick(buttonOf(ecmDialog(), "cancel_button"), Qt::LeftButton);
    QCOMPARE(text(1, 1), QStringLiteral("7"));
    QCOMPARE(text(1, 2), QStringLiteral("/specs/asam3_specs.none:ECM1:2"));
    QCOMPARE(m_window->uStack()->count(), 0);
}

void tst_ListCells::returnInADialogDoesNothing()
{
    load(1, "SCAN_LIST", "eng_speed .AV N_ENG");
    open(1, 1);
    VariableSelectionDialog* const variables = dialog();
    QTest::keyClick(variables, Qt::Key_Return);
    QVERIFY(variables->isVisible());
    QCOMPARE(m_window->uStack()->count(), 0);
    variables->reject();
    QVERIFY(!variables->isVisible());
    QCOMPARE(text(1, 1), QStringLiteral("eng_speed"));
}

QTEST_MAIN(tst_ListCells)
#include "tst_list_cells.moc"
