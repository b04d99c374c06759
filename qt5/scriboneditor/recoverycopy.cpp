#include "recoverycopy.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSysInfo>
#include <algorithm>
#include <cerrno>
#include <csignal>

namespace {

const auto LOCK_NAME = QStringLiteral("/.lock");
const auto FACTS_NAME = QStringLiteral("/.belongs_to.json");
const auto COPY_KEY = QStringLiteral("copy");
const auto FILE_KEY = QStringLiteral("file");
const auto HOST_KEY = QStringLiteral("host");
const auto PROCESS_KEY = QStringLiteral("process");
const auto TIME_KEY = QStringLiteral("time");

constexpr auto OWNER_ONLY = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// As the XDG base directory specification says, a relative path is ignored.
QString stateDirectory()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (QDir::isAbsolutePath(state))
        return state;
    const QString home = qEnvironmentVariable("HOME");
    return QFileInfo(home).isDir() ? home + QStringLiteral("/.local/state") : QString();
}

// On a full disk the first write is short without an error; the next one has the error.
bool writeAll(QIODevice* file, const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 count = file->write(bytes.constData() + done, bytes.size() - done);
        if (count <= 0)
            return false;
        done += count;
    }
    return true;
}

// Flushed by itself, since QSaveFile::commit() takes no notice of a last buffer that is not
// written.
bool writeAtomically(const QString& path, const QByteArray& bytes, QString* error)
{
    QSaveFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.setPermissions(OWNER_ONLY) &&
                         writeAll(&file, bytes) && file.flush() && file.commit();
    if (!written)
        *error = file.errorString();
    return written;
}

// A file name of its own kind, so that the file dialogs list it like the document, and short enough
// for what is put behind it while it is written.
QString copyName(const QString& document)
{
    constexpr int MAX_LENGTH = 100;
    const QString name = QFileInfo(document).fileName().left(MAX_LENGTH);
    return name.startsWith(QLatin1Char('.')) ? QStringLiteral("scrib") + name : name;
}

QByteArray factsOf(const QString& document)
{
    const QJsonObject facts{
        {COPY_KEY, copyName(document)},
        {FILE_KEY, QFileInfo(document).absoluteFilePath()},
        {HOST_KEY, QSysInfo::machineHostName()},
        {PROCESS_KEY, QCoreApplication::applicationPid()},
        {TIME_KEY, QDateTime::currentDateTime().toString(Qt::ISODate)},
    };
    return QJsonDocument(facts).toJson();
}

QJsonObject readFacts(const QString& folder)
{
    QFile file(folder + FACTS_NAME);
    file.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(file.readAll()).object();
}

bool processLives(const QJsonObject& facts)
{
    const auto process = static_cast<pid_t>(facts.value(PROCESS_KEY).toInt());
    const bool here = facts.value(HOST_KEY).toString() == QSysInfo::machineHostName();
    return !here || process <= 0 || kill(process, 0) == 0 || errno != ESRCH;
}

// The first free number; concurrent editors get different ones.
QString makeFolder(QString* error)
{
    constexpr int MAX_FOLDERS = 10000;
    const QString parent = recoveryFolder();
    if (parent.isEmpty() || !QDir().mkpath(parent)) {
        *error = qt_error_string(parent.isEmpty() ? ENOENT : errno);
        return {};
    }
    for (int number = 1; number <= MAX_FOLDERS; ++number) {
        QString folder = parent + QLatin1Char('/') + QString::number(number);
        if (mkdir(QFile::encodeName(folder).constData(), S_IRWXU) == 0)
            return folder;
        if (errno != EEXIST)
            break;
    }
    *error = qt_error_string(errno);
    return {};
}

}  // namespace

// ---- Locks -------------------------------------------------------------------------------------

// An flock() lock: the kernel releases it however the process ends.
class FolderLock {
public:
    explicit FolderLock(const QString& folder, int flags = 0)
        : m_descriptor(open(QFile::encodeName(folder + LOCK_NAME).constData(),
                            O_RDWR | O_CLOEXEC | flags, S_IRUSR | S_IWUSR)),
          m_error(m_descriptor >= 0 && flock(m_descriptor, LOCK_EX | LOCK_NB) == 0 ? 0 : errno)
    {
    }
    ~FolderLock()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    // 0 when the lock is held; EWOULDBLOCK when somebody else holds it.
    int error() const { return m_error; }

private:
    Q_DISABLE_COPY(FolderLock)

    int m_descriptor;
    int m_error;
};

namespace {

// If the file system does not support locks, checks whether the process exists.
bool isAbandoned(const QString& folder, const FolderLock& lock)
{
    if (lock.error() == 0)
        return true;
    return lock.error() != EWOULDBLOCK && !processLives(readFacts(folder));
}

void removeFolder(const QString& folder, const QString& copy)
{
    for (const QString& file : {copy, folder + FACTS_NAME, folder + LOCK_NAME})
        QFile::remove(file);
    QDir().rmdir(folder);
}

}  // namespace

// ---- The copy of this process ------------------------------------------------------------------

RecoveryCopy::RecoveryCopy() = default;
RecoveryCopy::~RecoveryCopy() = default;

bool RecoveryCopy::claimFolder(const QString& document, QString* error)
{
    const QString folder = makeFolder(error);
    if (folder.isEmpty())
        return false;
    auto lock = std::make_unique<FolderLock>(folder, O_CREAT);
    if (!writeAtomically(folder + FACTS_NAME, factsOf(document), error)) {
        removeFolder(folder, {});
        return false;
    }
    m_path = folder + QLatin1Char('/') + copyName(document);
    m_lock = std::move(lock);
    return true;
}

bool RecoveryCopy::write(const QString& document, const QByteArray& text, QString* error)
{
    if (m_path.isEmpty() && !claimFolder(document, error))
        return false;
    return writeAtomically(m_path, text, error);
}

QString RecoveryCopy::path() const
{
    return QFileInfo::exists(m_path) ? m_path : QString();
}

void RecoveryCopy::remove()
{
    if (!m_path.isEmpty())
        removeFolder(QFileInfo(m_path).path(), m_path);
    leave();
}

void RecoveryCopy::leave()
{
    m_path.clear();
    m_lock.reset();
}

// ---- The copies of others ----------------------------------------------------------------------

QString recoveryFolder()
{
    const QString state = stateDirectory();
    return state.isEmpty() ? QString() : state + QStringLiteral("/scriboneditor/recovery");
}

QVector<AbandonedCopy> abandonedCopies()
{
    QVector<AbandonedCopy> copies;
    const QString parent = recoveryFolder();
    const auto folders = parent.isEmpty()
                             ? QFileInfoList()
                             : QDir(parent).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo& folder : folders) {
        const QJsonObject facts = readFacts(folder.filePath());
        const QString name = QFileInfo(facts.value(COPY_KEY).toString()).fileName();
        const QFileInfo copy(folder.filePath(), name);
        if (copy.isFile() && isAbandoned(folder.filePath(), FolderLock(folder.filePath())))
            copies.append({copy.filePath(), facts.value(FILE_KEY).toString(), copy.lastModified()});
    }
    std::sort(copies.begin(), copies.end(),
              [](const AbandonedCopy& a, const AbandonedCopy& b) { return a.time > b.time; });
    return copies;
}

void removeAbandonedCopy(const QString& path)
{
    const auto copies = abandonedCopies();
    for (const AbandonedCopy& copy : copies) {
        if (QFileInfo(copy.path) == QFileInfo(path))
            removeFolder(QFileInfo(path).path(), path);
    }
}
