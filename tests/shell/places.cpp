#include "places.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

bool areOnOneFileSystem(const QString& one, const QString& other)
{
    struct stat first {};
    struct stat second {};
    return lstat(QFile::encodeName(one).constData(), &first) == 0 &&
           lstat(QFile::encodeName(other).constData(), &second) == 0 &&
           first.st_dev == second.st_dev;
}

// Symbolic links are removed, not followed. Directories on another file system are kept, since they
// were mounted for the test, as the source tree; and so are their parents.
void emptyDirectory(const QString& path, const QStringList& kept = {})
{
    const auto entries = QDir(path).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                  QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        if (kept.contains(entry.fileName()))
            continue;
        if (entry.isSymLink() || !entry.isDir()) {
            QFile::remove(entry.filePath());
        } else if (areOnOneFileSystem(path, entry.filePath())) {
            emptyDirectory(entry.filePath());
            QDir().rmdir(entry.filePath());
        }
    }
}

QByteArray requiredStatements()
{
    return "@SCRIBON\nengine_log\n\n"
           "@DESCRIPTION\n'A run of the engine'\n\n"
           "@GROUP\ngroup_var\n\n"
           "@MODE\nmode_var\n\n"
           "@PROGRAM\nprogram_var\n\n"
           "@TEST_ID\ntest_id_var\n\n"
           "@TEST_TYPE\ntest_type_var\n\n"
           "@SCAN_INTERVAL\n1[sec]\n\n"
           "@MAX_SCANS\n100\n\n";
}

QByteArray otherLists()
{
    return "@META_DATA\noil_pam oil_temp\n\n"
           "@SCAN_LIST_AUX_USER\nfuel_rate other_name\n\n"
           "@ECM_LIST\n/specs/asam3_specs.one:list_a:1\n\n";
}

}  // namespace

bool inPrivateNamespace()
{
    return QFileInfo(QStringLiteral("/small-disk")).isDir();
}

bool inFakeRoot()
{
    return qEnvironmentVariableIsSet("FAKECHROOT");
}

void emptyPlaces()
{
    // The sockets of the display and the files of the session.
    const QStringList kept{QStringLiteral(".X11-unix"), QStringLiteral("runtime"),
                           QStringLiteral("home")};
    for (const char* const place : {"/specs", "/tmp", "/tmp/home", "/small-disk"})
        emptyDirectory(QLatin1String(place), kept);
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

bool makePipe(const QString& path)
{
    return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

QByteArray goodSpec()
{
    return requiredStatements() + "@SCAN_LIST\nspeed .AV speed_chan\ntorque .MX torque_chan\n\n" +
           otherLists();
}

QByteArray largeSpec(int entries)
{
    QByteArray text = requiredStatements() + "@SCAN_LIST\n";
    for (int i = 0; i < entries; ++i)
        text +=
            "variable_" + QByteArray::number(i) + " .AV channel_" + QByteArray::number(i) + '\n';
    return text + '\n' + otherLists();
}

QByteArray badSpec()
{
    return "@DESCRIPTION\n'This file says nothing of what it is'\n";
}
