// Standing notices among the other messages of a status bar.

#include <QStatusBar>
#include <QTest>
#include <memory>

#include "statusnotices.h"

namespace {

const auto NOTICE = QStringLiteral("the file was changed");
const auto OTHER_NOTICE = QStringLiteral("there is unsaved work");
const auto NEWS = QStringLiteral("File loaded");

}  // namespace

class tst_StatusNotices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isShownWithoutATimeLimit();
    void waitsForAMessageToEnd();
    void waitsForAMessageWithoutAnEnd();
    void comesBackAfterAMessage();
    void mostImportantIsShown();
    void isTakenAway();
    void isReplaced();
    void takenAwayWhileItWaits();
    void toolTipHasAll();

private:
    std::unique_ptr<QStatusBar> m_bar;
    std::unique_ptr<StatusNotices> m_notices;
};

void tst_StatusNotices::init()
{
    m_notices.reset();
    m_bar = std::make_unique<QStatusBar>();
    m_notices = std::make_unique<StatusNotices>(m_bar.get());
}

void tst_StatusNotices::isShownWithoutATimeLimit()
{
    QVERIFY(m_bar->currentMessage().isEmpty());
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(m_bar->currentMessage(), NOTICE);
}

void tst_StatusNotices::waitsForAMessageToEnd()
{
    m_bar->showMessage(NEWS, 100);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(m_bar->currentMessage(), NEWS);
    QTRY_COMPARE(m_bar->currentMessage(), NOTICE);
}

void tst_StatusNotices::waitsForAMessageWithoutAnEnd()
{
    m_bar->showMessage(NEWS);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCoreApplication::processEvents();
    QCOMPARE(m_bar->currentMessage(), NEWS);
    m_bar->clearMessage();
    QTRY_COMPARE(m_bar->currentMessage(), NOTICE);
}

void tst_StatusNotices::comesBackAfterAMessage()
{
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_bar->showMessage(NEWS, 100);
    QCOMPARE(m_bar->currentMessage(), NEWS);
    QTRY_COMPARE(m_bar->currentMessage(), NOTICE);
}

void tst_StatusNotices::mostImportantIsShown()
{
    m_notices->set(StatusNotices::AbandonedNotice, OTHER_NOTICE);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(m_bar->currentMessage(), NOTICE);
    m_notices->set(StatusNotices::FileNotice, {});
    QCOMPARE(m_bar->currentMessage(), OTHER_NOTICE);
}

void tst_StatusNotices::isTakenAway()
{
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_notices->set(StatusNotices::FileNotice, {});
    QVERIFY(m_bar->currentMessage().isEmpty());
    QVERIFY(m_bar->toolTip().isEmpty());
}

void tst_StatusNotices::isReplaced()
{
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_notices->set(StatusNotices::FileNotice, OTHER_NOTICE);
    QCOMPARE(m_bar->currentMessage(), OTHER_NOTICE);
}

void tst_StatusNotices::takenAwayWhileItWaits()
{
    m_bar->showMessage(NEWS);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_notices->set(StatusNotices::FileNotice, {});
    QCOMPARE(m_bar->currentMessage(), NEWS);
    m_bar->clearMessage();
    QCoreApplication::processEvents();
    QVERIFY(m_bar->currentMessage().isEmpty());
}

void tst_StatusNotices::toolTipHasAll()
{
    m_notices->set(StatusNotices::AbandonedNotice, OTHER_NOTICE);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(m_bar->toolTip(), NOTICE + QLatin1Char('\n') + OTHER_NOTICE);
}

QTEST_MAIN(tst_StatusNotices)
#include "tst_status_notices.moc"
