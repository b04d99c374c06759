// Editors of the platform's keywords if the platform ended before its keyword area was attached. A
// test program of its own, since the area stays attached once it is.

#include <QComboBox>
#include <QLineEdit>

#include "platformkeywords.h"
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

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_NoKeywordArea)
#include "tst_no_keyword_area.moc"
