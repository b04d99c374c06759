#include "statusnotices.h"

#include <QStatusBar>
#include <QStringList>
#include <algorithm>

StatusNotices::StatusNotices(QStatusBar* statusBar) : m_statusBar(statusBar)
{
    // Queued: the status bar is still in the middle of the change.
    connect(statusBar, &QStatusBar::messageChanged, this, &StatusNotices::update,
            Qt::QueuedConnection);
}

void StatusNotices::set(Kind kind, const QString& text)
{
    m_texts[kind] = text;
    QStringList all;
    std::copy_if(m_texts.begin(), m_texts.end(), std::back_inserter(all),
                 [](const QString& notice) { return !notice.isEmpty(); });
    m_statusBar->setToolTip(all.join(QLatin1Char('\n')));
    update();
}

QString StatusNotices::mostImportant() const
{
    const auto first = std::find_if(m_texts.begin(), m_texts.end(),
                                    [](const QString& text) { return !text.isEmpty(); });
    return first == m_texts.end() ? QString() : *first;
}

void StatusNotices::update()
{
    const QString current = m_statusBar->currentMessage();
    const QString wanted = mostImportant();
    if (current == wanted || (!current.isEmpty() && current != m_shown))
        return;
    m_shown = wanted;
    m_statusBar->showMessage(wanted);
}
