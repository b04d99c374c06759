#include "documentguard.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace {

// Collects several edits into one copy, and leaves three of the five seconds for writing it.
constexpr int COPY_SOON_MS = 2000;

QString shortPath(const QString& path)
{
    const QString home = QDir::homePath() + QLatin1Char('/');
    return path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path;
}

}  // namespace

DocumentGuard::DocumentGuard(QWidget* window, QStatusBar* statusBar, Document document)
    : m_document(std::move(document)), m_notices(statusBar)
{
    m_copySoon.setSingleShot(true);
    m_copySoon.setInterval(COPY_SOON_MS);
    connect(&m_copySoon, &QTimer::timeout, this, &DocumentGuard::copyUnsavedWork);
    connect(&m_file, &WatchedFile::stateChanged, this, &DocumentGuard::tellFileState);
    window->installEventFilter(this);
    tellAbandonedCopies();
}

bool DocumentGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        m_file.look();
    return QObject::eventFilter(watched, event);
}

void DocumentGuard::loaded(const QString& fileName, const QByteArray& bytes)
{
    dropCopy();
    m_copiedFile = fileName;
    m_file.watch(fileName, bytes);
    tellFileState();
    tellAbandonedCopies();
}

void DocumentGuard::unloaded()
{
    dropCopy();
    m_copiedFile.clear();
    m_file.stop();
    tellFileState();
}

void DocumentGuard::dropCopy()
{
    m_copySoon.stop();
    if (std::exchange(m_saveFailed, false))
        m_copy.leave();
    else
        m_copy.remove();
}

void DocumentGuard::edited()
{
    if (!m_copySoon.isActive())
        m_copySoon.start();
}

void DocumentGuard::copyUnsavedWork()
{
    if (!m_closed && m_document.hasUnsavedWork())
        writeCopy();
}

void DocumentGuard::aboutToSave()
{
    writeCopy();
}

void DocumentGuard::saveRefused()
{
    if (!m_saveFailed && !m_document.hasUnsavedWork())
        m_copy.remove();
}

void DocumentGuard::writeCopy()
{
    QString error;
    const bool written = m_copy.write(m_copiedFile, m_document.text(), &error);
    m_notices.set(StatusNotices::NoCopyNotice,
                  written ? QString()
                          : tr("No copy of unsaved work can be kept in %1: %2")
                                .arg(shortPath(recoveryFolder()), error));
}

// Removes the abandoned copy that was opened, once it is saved under another name.
void DocumentGuard::saved(const QString& fileName, const QByteArray& text)
{
    const QString openedFile = m_file.fileName();
    m_file.watch(fileName, text);
    m_file.look();
    m_saveFailed = m_file.state() != WatchedFile::State::AsKnown;
    tellFileState();
    if (m_saveFailed)
        return;
    dropCopy();
    if (QFileInfo(openedFile) != QFileInfo(fileName))
        removeAbandonedCopy(openedFile);
    m_copiedFile = fileName;
    tellAbandonedCopies();
}

void DocumentGuard::closed()
{
    dropCopy();
    m_closed = true;
}

void DocumentGuard::tellAbandonedCopies()
{
    QVector<AbandonedCopy> copies = abandonedCopies();
    const QFileInfo open(m_file.fileName());
    const auto isOpen = [&open](const AbandonedCopy& copy) { return QFileInfo(copy.path) == open; };
    copies.erase(std::remove_if(copies.begin(), copies.end(), isOpen), copies.end());
    m_notices.set(StatusNotices::AbandonedNotice, abandonedText(copies));
}

QString DocumentGuard::abandonedText(const QVector<AbandonedCopy>& copies)
{
    if (copies.isEmpty())
        return {};
    const AbandonedCopy& newest = copies.first();
    if (copies.size() == 1)
        return tr("Unsaved work on %1 is kept in %2").arg(newest.document, shortPath(newest.path));
    return tr("Unsaved work on %1 and %2 more is kept in %3")
        .arg(newest.document)
        .arg(copies.size() - 1)
        .arg(shortPath(recoveryFolder()));
}

void DocumentGuard::tellFileState()
{
    m_notices.set(StatusNotices::FileNotice, fileStateText());
}

QString DocumentGuard::fileStateText() const
{
    const QString name = m_file.fileName();
    if (m_file.state() == WatchedFile::State::AsKnown)
        return {};
    if (m_saveFailed && m_copy.path().isEmpty())
        return tr("Not all of the document is in %1; save it elsewhere").arg(name);
    if (m_saveFailed)
        return tr("Not all of the document is in %1; it is kept whole in %2")
            .arg(name, shortPath(m_copy.path()));
    if (m_file.state() == WatchedFile::State::Gone)
        return tr("%1 is gone from the disk; Save makes it anew").arg(name);
    return tr("%1 was changed by another program; Save overwrites that").arg(name);
}
