// The error counters in the status bar, of the current tab and of the file.

#include <QLabel>
#include <QSpinBox>
#include <QtTest>

#include "statusbarform.h"
#include "window_test.h"

namespace {

// Three errors on the Scan List, one on the Meta Data List.
QByteArray specWithErrors()
{
    return "@SCRIBON\ncell\n@SCAN_LIST\n1a A\n2b B\nc\n@META_DATA\nA x\nA y\n"
           "@SCAN_LIST_AUX_USER\nv name\n@ECM_LIST\n1 /a:b:1\n";
}

}  // namespace

class TestErrorCounts : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void countersAreDisplaysWithoutFocus();
    void namesTheCurrentTab_data();
    void namesTheCurrentTab();
    void countsTabAndFile();
    void followsAnEditAtTheNextTick();
    void showsZeroForAValidDocument();
    void keepsItsNumbersAfterAFailedLoad();
    void countsWhileAFileIsLoading();
    void stopsAt999();
    void validatesTheCurrentTabWhileItHasErrors();

private:
    template <typename Widget>
    Widget* part(const char* name)
    {
        return m_window->findChild<Widget*>(QLatin1String(name));
    }
    int tabErrors() { return part<QSpinBox>("tabErrs")->value(); }
    int allErrors() { return part<QSpinBox>("errors")->value(); }
    QString label() { return part<QLabel>("label")->text(); }
};

void TestErrorCounts::countersAreDisplaysWithoutFocus()
{
    auto* const form = part<StatusBarForm>("StatusBarForm");
    QVERIFY(form != nullptr);
    QCOMPARE(form->getTabIndex(), -1);
    form->setTabIndex(DE_TAB3);
    QCOMPARE(form->getTabIndex(), int(DE_TAB3));
    QCOMPARE(label(), QStringLiteral("Errors:"));
    QCOMPARE(part<QLabel>("label_2")->text(), QStringLiteral("Total Errors: "));
    for (const char* const name : {"tabErrs", "errors"}) {
        auto* const display = part<QSpinBox>(name);
        QCOMPARE(display->maximum(), 999);
        QCOMPARE(display->maximumSize(), QSize(32, 22));
        QCOMPARE(display->focusPolicy(), Qt::NoFocus);
        QCOMPARE(display->buttonSymbols(), QAbstractSpinBox::NoButtons);
        QVERIFY(!display->hasFrame());
        QVERIFY(!display->keyboardTracking());
        QCOMPARE(display->palette().color(QPalette::Active, QPalette::Base), QColor(170, 255, 255));
        QCOMPARE(display->palette().color(QPalette::Disabled, QPalette::Text),
                 QColor(85, 127, 127));
    }
}

void TestErrorCounts::namesTheCurrentTab_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");
    QTest::newRow("keywords") << 0 << QStringLiteral("Keyword Errors:");
    QTest::newRow("scan list") << 1 << QStringLiteral("Scan List Errors:");
    QTest::newRow("meta data") << 2 << QStringLiteral("Meta Data List Errors:");
    QTest::newRow("aux user") << 3 << QStringLiteral("Scan List Aux User Errors:");
    QTest::newRow("ECM list") << 4 << QStringLiteral("ECM List Errors:");
}

void TestErrorCounts::namesTheCurrentTab()
{
    QFETCH(int, tab);
    loadGoodFile(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(tab);
    QTEST(label(), "text");
}

void TestErrorCounts::countsTabAndFile()
{
    loadGoodFile(specWithErrors());
    m_window->checkErrorCount();
    QCOMPARE(tabErrors(), 0);
    QCOMPARE(allErrors(), 4);
    tabsOf(*m_window)->setCurrentIndex(DE_TAB2);
    QCOMPARE(tabErrors(), 3);
    tabsOf(*m_window)->setCurrentIndex(DE_TAB3);
    QCOMPARE(tabErrors(), 1);
    QCOMPARE(allErrors(), 4);
}

void TestErrorCounts::followsAnEditAtTheNextTick()
{
    loadGoodFile(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(DE_TAB2);
    edit(DE_TAB2, 1, 1, QStringLiteral("good_now"));
    QTRY_COMPARE(tabErrors(), 2);
    QCOMPARE(allErrors(), 3);
}

void TestErrorCounts::showsZeroForAValidDocument()
{
    part<QSpinBox>("errors")->setValue(7);
    part<QSpinBox>("tabErrs")->setValue(7);
    loadGoodFile(
        "@SCRIBON\ncell\n@SCAN_LIST\nv N\n@META_DATA\nA x\n@SCAN_LIST_AUX_USER\nv n\n"
        "@ECM_LIST\n1 /a:b:1\n");
    m_window->checkErrorCount();
    QCOMPARE(tabErrors(), 0);
    QCOMPARE(allErrors(), 0);
}

void TestErrorCounts::keepsItsNumbersAfterAFailedLoad()
{
    loadGoodFile(specWithErrors());
    m_window->checkErrorCount();
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
    m_window->checkErrorCount();
    QCOMPARE(allErrors(), 4);
    QCOMPARE(label(), QStringLiteral("Keyword Errors:"));
}

// The cells have no data then, but the first validation is part of the load.
void TestErrorCounts::countsWhileAFileIsLoading()
{
    LoadingFile = 1;
    loadGoodFile(specWithErrors());
    QCOMPARE(allErrors(), 4);
}

void TestErrorCounts::stopsAt999()
{
    QByteArray text = "@SCRIBON\ncell\n@SCAN_LIST\n";
    for (int i = 0; i < 1100; ++i)
        text += "bad- N" + QByteArray::number(i) + "\n";
    loadGoodFile(text.replace("bad-", "1bad"));
    m_window->checkErrorCount();
    QVERIFY(modelOf(*m_window, DE_TAB2)->getErrorCount() >= 1100);
    QCOMPARE(allErrors(), 999);
}

// A code that was set in between is corrected by the next timer event, on the current tab only.
void TestErrorCounts::validatesTheCurrentTabWhileItHasErrors()
{
    loadGoodFile(specWithErrors());
    tabsOf(*m_window)->setCurrentIndex(DE_TAB2);
    m_window->checkErrorCount();
    TreeModel* const scanList = modelOf(*m_window, DE_TAB2);
    TreeModel* const metaData = modelOf(*m_window, DE_TAB3);
    scanList->setErrorCode(scanList->index(1, 3), int(DE_SYNTAX_ERR));
    metaData->setErrorCode(metaData->index(1, 1), int(DE_SYNTAX_ERR));
    m_window->checkErrorCount();
    QCOMPARE(scanList->errorCode(scanList->index(1, 3)), QVariant(int(DE_NOERROR)));
    QCOMPARE(metaData->errorCode(metaData->index(1, 1)), QVariant(int(DE_SYNTAX_ERR)));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestErrorCounts)
#include "tst_error_counts.moc"
