#include "filedrop.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMainWindow>
#include <QMimeData>
#include <QStatusBar>
#include <QSysInfo>
#include <QTimer>
#include <QUrl>
#include <utility>

#include "statusmessage.h"

namespace {

constexpr int REFUSAL_SHOWN_MS = 10000;

// Some file managers name the computer in the address of a local file. Empty for other addresses.
QString localPath(const QUrl& url)
{
    const QString host = url.host();
    const bool here = host.isEmpty() || host == QLatin1String("localhost") ||
                      host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    return url.isLocalFile() && here ? url.path(QUrl::FullyDecoded) : QString();
}

QString onlyPath(const QMimeData& data)
{
    return data.urls().size() == 1 ? localPath(data.urls().first()) : QString();
}

// Empty if the data can be opened.
QString refusalOf(const QMimeData& data)
{
    if (QApplication::activeModalWidget() != nullptr)
        return FileDrop::tr("Answer the dialog first");
    if (data.urls().isEmpty())
        return FileDrop::tr("Drop a file to open it");
    if (data.urls().size() > 1)
        return FileDrop::tr("One file at a time");
    const QString path = onlyPath(data);
    if (path.isEmpty())
        return FileDrop::tr("Not on this computer");
    return QFileInfo(path).isDir() ? FileDrop::tr("A folder cannot be opened") : QString();
}

}  // namespace

FileDrop::FileDrop(QMainWindow* window, Open open)
    : QObject(window), m_window(window), m_open(std::move(open))
{
    window->setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return take(watched, static_cast<QDropEvent*>(event));
        default:
            return false;
    }
}

// Qt passes what the parts of the window do not accept to the window. A line edit would take the
// address of a file as a text.
bool FileDrop::isMeant(QObject* watched, const QDropEvent& event) const
{
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != m_window)
        return false;
    return widget == m_window || event.mimeData()->hasUrls();
}

// The action is to copy, or none if that is not offered: a file manager removes a file whose move
// is accepted.
bool FileDrop::take(QObject* watched, QDropEvent* event)
{
    if (!isMeant(watched, *event))
        return false;
    const QString refusal = refusalOf(*event->mimeData());
    if (event->possibleActions().testFlag(Qt::CopyAction))
        event->setDropAction(Qt::CopyAction);
    else if (event->type() == QEvent::Drop)
        event->setDropAction(Qt::IgnoreAction);
    event->setAccepted(refusal.isEmpty());
    if (!refusal.isEmpty())
        refuse(refusal);
    else if (event->type() == QEvent::Drop)
        QTimer::singleShot(0, this, [this, path = onlyPath(*event->mimeData())] { m_open(path); });
    return true;
}

void FileDrop::refuse(const QString& reason)
{
    showFitting(m_window->statusBar(), reason, REFUSAL_SHOWN_MS);
}
