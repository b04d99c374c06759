// VariableSelectionDialog by keyboard and by a screen reader: Tab and Shift+Tab go through its
// fields, and each field has a name.

#include <QtTest>

#include "dialog_test.h"
#include "form_walk.h"
#include "model_text.h"

namespace {

// The fields and buttons from the top to the bottom.
const QStringList READING_ORDER = lines({"groupComboBox", "variableComboBox", "subComboBox",
                                         "unitsComboBox", "lineEdit", "OkButton", "Cancel"});

}  // namespace

class TestVariableDialogKeys : public DialogTest {
    Q_OBJECT

private Q_SLOTS:
    void tabVisitsEveryField_data();
    void tabVisitsEveryField();
    void fieldsHaveNames_data();
    void fieldsHaveNames();
    void wrongLineHasADescription();
};

void TestVariableDialogKeys::tabVisitsEveryField_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QStringList>("absent");
    const auto member = QStringLiteral("subComboBox");
    const auto line = QStringLiteral("lineEdit");
    QTest::newRow("a variable") << ""
                                << ""
                                << "oil_temp"
                                << "variableComboBox" << QStringList{member, line};
    QTest::newRow("a member") << ""
                              << ""
                              << "speed_stat.MX"
                              << "variableComboBox" << QStringList{line};
    for (const char* const label : {"Interval", "Path", "Literal"}) {
        QTest::addRow("%s", label) << label << "x"
                                   << ""
                                   << "lineEdit" << QStringList{member};
        QTest::addRow("%s, with a variable", label) << label << ""
                                                    << "oil_temp"
                                                    << "variableComboBox" << QStringList{member};
        QTest::addRow("%s, with a member", label) << label << ""
                                                  << "speed_stat.MX"
                                                  << "variableComboBox" << QStringList();
    }
}

void TestVariableDialogKeys::tabVisitsEveryField()
{
    QFETCH(QString, label);
    QFETCH(QString, text);
    QFETCH(QString, variable);
    QFETCH(QStringList, absent);
    QStringList fields = READING_ORDER;
    for (const QString& field : absent)
        fields.removeOne(field);
    make(QT_MARVANE_ANY, label);
    dialog().setOptionalText(text);
    show(variable);
    QTRY_VERIFY(dialog().isActiveWindow());
    QTEST(focusedOf(fields), "start");
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        const QStringList round = roundFromFocus(key, fields);
        QCOMPARE(visitedBy(key, fields), round);
    }
}

void TestVariableDialogKeys::fieldsHaveNames_data()
{
    QTest::addColumn<QString>("optionalLabel");
    QTest::newRow("a variable") << "";
    for (const char* const label : {"Interval", "Path", "Literal"})
        QTest::newRow(label) << label;
}

// On Linux the name of a combo box is its text, and its label is told by a relation.
void TestVariableDialogKeys::fieldsHaveNames()
{
    QFETCH(QString, optionalLabel);
    make(QT_MARVANE_ANY, optionalLabel);
    show();
    QCOMPARE(namelessFields(dialog()), QStringList());
    QCOMPARE(labelsWithoutBuddy(dialog()), QStringList());
    const QStringList labels = lines({"Group", "Variable", "SubVariable", "Units"});
    for (int i = 0; i < labels.size(); ++i) {
        auto* const field = dialog().findChild<QWidget*>(READING_ORDER[i]);
        QCOMPARE(labelOf(field), labels[i]);
        QCOMPARE(roleOf(field), QAccessible::ComboBox);
    }
    QCOMPARE(accessibleText(&variables(), QAccessible::Name), QStringLiteral("Variable"));
    QCOMPARE(accessibleText(dialog().lineEdit(), QAccessible::Name), optionalLabel);
    QCOMPARE(labelOf(dialog().lineEdit()), optionalLabel);
    QCOMPARE(roleOf(dialog().lineEdit()), QAccessible::EditableText);
    QCOMPARE(accessibleText(&okButton(), QAccessible::Name), QStringLiteral("Ok"));
}

void TestVariableDialogKeys::wrongLineHasADescription()
{
    const auto model = modelOfRows(EDIT_TAB1, lines({"@SCRIBON | a | FILLER_TXT"}));
    make(QT_MARVANE_ANY, QStringLiteral("Path"), model->index(0, 1));
    show();
    QLineEdit* const line = dialog().lineEdit();
    const auto description = [line] { return accessibleText(line, QAccessible::Description); };
    QTest::keyClicks(line, QStringLiteral("/a b"));
    QCOMPARE(description(), QStringLiteral("Invalid Path"));
    QTest::keyClick(line, Qt::Key_Backspace);
    QTest::keyClick(line, Qt::Key_Backspace);
    QCOMPARE(line->text(), QStringLiteral("/a"));
    QCOMPARE(description(), QString());
    QCOMPARE(line->toolTip(), QString());
    m_dialog.reset();
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestVariableDialogKeys)
#include "tst_variable_dialog_keys.moc"
