// The editors of keywords where the platform has gone before its keywords were first asked for. In
// a program of its own: once attached, the keywords stay to the end of the process.

#include <QComboBox>
#include <QLineEdit>

#include "antlr3_basetreedelegate.h"
#include "window_test.h"

class tst_NoKeywordArea : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void editorOpensWithoutItems();
};

void tst_NoKeywordArea::editorOpensWithoutItems()
{
    loadGoodFile();
    m_window->show();
    tabsOf(*m_window)->setCurrentIndex(1);
    QTreeView* const view = viewOf(*m_window, 1);
    QVERIFY(m_desk.kill());
    view->setFocus();
    goTo(view, 1, 3);
    QTest::keyClick(view, Qt::Key_F2);
    auto* const comboBox = view->viewport()->findChild<QComboBox*>();
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->count(), 0);
    QCOMPARE(Keyword_memory, nullptr);
    QTest::keyClicks(comboBox, QStringLiteral("by_hand"));
    QTest::keyClick(comboBox, Qt::Key_Return);
    QCOMPARE(view->model()->index(1, 3).data(Qt::EditRole).toString(), QStringLiteral("by_hand"));
}

QTEST_MAIN(tst_NoKeywordArea)
#include "tst_no_keyword_area.moc"
