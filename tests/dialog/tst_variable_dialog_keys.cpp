// VariableSelectionDialog by keyboard: Tab and Shift+Tab go through its fields.

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

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestVariableDialogKeys)
#include "tst_variable_dialog_keys.moc"
