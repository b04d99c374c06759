#include "statusnotices.h"

#include <QLabel>
#include <QStatusBar>
#include <QStringList>
#include <algorithm>
#include <iterator>

StatusNotices::StatusNotices(QStatusBar* statusBar)
    : m_statusBar(statusBar), m_label(new QLabel(statusBar))
{
    m_label->setObjectName(QStringLiteral("noticeLabel"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_label->setContentsMargins(4, 2, 8, 2);
    m_label->hide();
    statusBar->addWidget(m_label, 1);
    connect(statusBar, &QStatusBar::messageChanged, this, &StatusNotices::makeRoomForMessage);
}

void StatusNotices::set(Kind kind, const QString& text)
{
    m_texts[kind] = text;
    QStringList all;
    std::copy_if(m_texts.begin(), m_texts.end(), std::back_inserter(all),
                 [](const QString& notice) { return !notice.isEmpty(); });
    m_label->setText(all.join(QLatin1Char('\n')));
    makeRoomForMessage(m_statusBar->currentMessage());
}

void StatusNotices::makeRoomForMessage(const QString& message)
{
    m_label->setVisible(message.isEmpty() && !m_label->text().isEmpty());
}
