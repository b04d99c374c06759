// StatusNotices: permanent notices and other messages in a status bar.

#include <QLabel>
#include <QMainWindow>
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

    void noticeHasNoTimeout();
    void noticeWaitsForAMessageToEnd();
    void noticeWaitsForAMessageWithoutTimeout();
    void noticeIsShownAgainAfterAMessage();
    void allNoticesAreShown();
    void removedNoticeIsHidden();
    void noticeIsReplaced();
    void noticeRemovedWhileAMessageIsShown();
    void longNoticeIsWrapped();

private:
    QLabel* label() const { return m_bar->findChild<QLabel*>(QStringLiteral("noticeLabel")); }
    QString notice() const { return label()->isHidden() ? QString() : label()->text(); }

    std::unique_ptr<QStatusBar> m_bar;
    std::unique_ptr<StatusNotices> m_notices;
};

void tst_StatusNotices::init()
{
    m_notices.reset();
    m_bar = std::make_unique<QStatusBar>();
    m_notices = std::make_unique<StatusNotices>(m_bar.get());
}

void tst_StatusNotices::noticeHasNoTimeout()
{
    QVERIFY(notice().isEmpty());
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(notice(), NOTICE);
    QVERIFY(m_bar->currentMessage().isEmpty());
}

void tst_StatusNotices::noticeWaitsForAMessageToEnd()
{
    m_bar->showMessage(NEWS, 100);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(m_bar->currentMessage(), NEWS);
    QVERIFY(notice().isEmpty());
    QTRY_COMPARE(notice(), NOTICE);
}

void tst_StatusNotices::noticeWaitsForAMessageWithoutTimeout()
{
    m_bar->showMessage(NEWS);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCoreApplication::processEvents();
    QVERIFY(notice().isEmpty());
    m_bar->clearMessage();
    QCOMPARE(notice(), NOTICE);
}

void tst_StatusNotices::noticeIsShownAgainAfterAMessage()
{
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_bar->showMessage(NEWS, 100);
    QVERIFY(notice().isEmpty());
    QTRY_COMPARE(notice(), NOTICE);
}

void tst_StatusNotices::allNoticesAreShown()
{
    m_notices->set(StatusNotices::AbandonedNotice, OTHER_NOTICE);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    QCOMPARE(notice(), NOTICE + QLatin1Char('\n') + OTHER_NOTICE);
    m_notices->set(StatusNotices::FileNotice, {});
    QCOMPARE(notice(), OTHER_NOTICE);
}

void tst_StatusNotices::removedNoticeIsHidden()
{
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_notices->set(StatusNotices::FileNotice, {});
    QVERIFY(label()->isHidden());
}

void tst_StatusNotices::noticeIsReplaced()
{
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_notices->set(StatusNotices::FileNotice, OTHER_NOTICE);
    QCOMPARE(notice(), OTHER_NOTICE);
}

void tst_StatusNotices::noticeRemovedWhileAMessageIsShown()
{
    m_bar->showMessage(NEWS);
    m_notices->set(StatusNotices::FileNotice, NOTICE);
    m_notices->set(StatusNotices::FileNotice, {});
    QCOMPARE(m_bar->currentMessage(), NEWS);
    m_bar->clearMessage();
    QVERIFY(notice().isEmpty());
}

// The status bar grows in height and not in width.
void tst_StatusNotices::longNoticeIsWrapped()
{
    QMainWindow window;
    window.setStatusBar(m_bar.release());
    window.resize(300, 300);
    window.show();
    m_notices->set(StatusNotices::FileNotice, QStringLiteral("a word ").repeated(40));
    QTRY_VERIFY(window.statusBar()->height() > 4 * window.fontMetrics().lineSpacing());
    QCOMPARE(window.width(), 300);
    m_notices->set(StatusNotices::FileNotice, {});
    QTRY_VERIFY(window.statusBar()->height() < 3 * window.fontMetrics().lineSpacing());
    m_notices.reset();
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_StatusNotices)
#include "tst_status_notices.moc"
