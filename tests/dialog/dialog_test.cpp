#include "dialog_test.h"

#include <QtTest>

#include "test_catalogue.h"

void DialogTest::init()
{
    m_platform = std::make_unique<LivePlatform>();
    QVERIFY(m_platform->start(testCatalogue()));
    m_parent = std::make_unique<QWidget>();
    m_parent->setGeometry(40, 30, 600, 400);
    m_parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_parent.get()));
}

// The catalogue must be rebuilt for the platform of the next test.
void DialogTest::cleanup()
{
    m_dialog.reset();
    m_parent.reset();
    m_platform.reset();
    Master_variables.reset();
    VMLType = 0;
}

VariableSelectionDialog& DialogTest::make(int filter, const QString& optionalData,
                                          const QModelIndex& index)
{
    m_dialog = std::make_unique<VariableSelectionDialog>(
        index, m_parent.get(), QT_MARVANE_VAR_TYPE(QFlag(filter)), optionalData, QString());
    return *m_dialog;
}

void DialogTest::show(const QString& cellText)
{
    m_dialog->setOrigVarName(cellText);
    m_dialog->variableComboBox()->setCurrentText(cellText);
    m_dialog->show();
    m_dialog->setFocus();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

VariableSelectionDialog& DialogTest::open(int filter, const QString& cellText)
{
    make(filter);
    show(cellText);
    return *m_dialog;
}

void DialogTest::type(const QString& text)
{
    variables().lineEdit()->selectAll();
    QTest::keyClick(variables().lineEdit(), Qt::Key_Delete);
    QTest::keyClicks(variables().lineEdit(), text);
}
