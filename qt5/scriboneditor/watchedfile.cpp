#include "watchedfile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <limits>
#include <string>

#include "wholefile.h"

namespace {

// A program that writes a file in many pieces sends an event for each of them.
constexpr int LOOK_SOON_MS = 200;
// The longest text that a QByteArray can hold, so that a longer file has changed.
constexpr size_t MAX_SIZE = std::numeric_limits<int>::max();

QByteArray digestOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

}  // namespace

WatchedFile::WatchedFile()
{
    m_lookSoon.setSingleShot(true);
    m_lookSoon.setInterval(LOOK_SOON_MS);
    const auto lookSoon = [this] {
        if (!m_lookSoon.isActive())
            m_lookSoon.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, lookSoon);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, lookSoon);
    connect(&m_lookSoon, &QTimer::timeout, this, &WatchedFile::look);
}

void WatchedFile::watch(const QString& fileName, const QByteArray& bytes)
{
    stop();
    m_fileName = fileName;
    m_digest = digestOf(bytes);
    watchPaths();
}

void WatchedFile::stop()
{
    const QStringList paths = m_watcher.files() + m_watcher.directories();
    if (!paths.isEmpty())
        m_watcher.removePaths(paths);
    m_lookSoon.stop();
    m_fileName.clear();
    m_state = State::AsKnown;
}

// A file that is replaced by another drops out of the watcher; its folder tells of the new one.
void WatchedFile::watchPaths()
{
    const QString folder = QFileInfo(m_fileName).absolutePath();
    if (!m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    if (!m_watcher.files().contains(m_fileName) && QFileInfo(m_fileName).isFile())
        m_watcher.addPath(m_fileName);
}

void WatchedFile::look()
{
    if (m_fileName.isEmpty())
        return;
    watchPaths();
    const State found = findState();
    if (found == m_state)
        return;
    m_state = found;
    Q_EMIT stateChanged();
}

WatchedFile::State WatchedFile::findState() const
{
    std::string bytes;
    const int error = readWholeFile(QFile::encodeName(m_fileName).constData(), MAX_SIZE, &bytes);
    if (error == ENOENT)
        return State::Gone;
    const QByteArray read = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    return error == 0 && digestOf(read) == m_digest ? State::AsKnown : State::Changed;
}
