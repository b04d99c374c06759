#include "inputs.h"

#include <QCommandLineParser>
#include <QFile>
#include <algorithm>
#include <filesystem>

#include "commands.h"

namespace {

namespace fs = std::filesystem;

const auto BEGIN_OF_NAME = QStringLiteral("scrib");

QString decoded(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

// Devices and the like are no files to open. A link that leads nowhere is one that cannot be read.
bool isSpecFile(const fs::directory_entry& entry)
{
    std::error_code error;
    const fs::file_type type = entry.status(error).type();
    const bool isFile = type == fs::file_type::regular || type == fs::file_type::not_found ||
                        type == fs::file_type::none;
    return isFile &&
           decoded(entry.path().filename()).startsWith(BEGIN_OF_NAME, Qt::CaseInsensitive);
}

bool isFolderToSearch(const fs::directory_entry& entry)
{
    std::error_code error;
    return entry.symlink_status(error).type() == fs::file_type::directory &&
           entry.path().filename().native().front() != '.';
}

void addSpecFilesBelow(const fs::path& folder, QStringList* files)
{
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (isFolderToSearch(*entry))
            addSpecFilesBelow(entry->path(), files);
        else if (isSpecFile(*entry))
            files->append(decoded(entry->path()));
    }
    if (error)
        files->append(decoded(folder));
}

QStringList specFilesBelow(const QString& folder)
{
    QStringList files;
    addSpecFilesBelow(QFile::encodeName(folder).toStdString(), &files);
    std::sort(files.begin(), files.end());
    return files;
}

bool isFolder(const QString& name)
{
    std::error_code error;
    return fs::is_directory(QFile::encodeName(name).toStdString(), error);
}

}  // namespace

void addFileArguments(QCommandLineParser* parser)
{
    parser->addPositionalArgument(QStringLiteral("FILE"),
                                  QStringLiteral("Spec files, folders, or - for standard input."),
                                  QStringLiteral("FILE..."));
}

QStringList inputFiles(const QStringList& arguments)
{
    QStringList files;
    for (const QString& argument : arguments) {
        if (isFolder(argument))
            files += specFilesBelow(argument);
        else
            files.append(argument);
    }
    return files;
}

int complainOfNoFiles(const QStringList& arguments, const QString& purpose)
{
    const QString complaint = QStringLiteral("no files to ") + purpose;
    return complain(arguments.isEmpty()
                        ? complaint
                        : complaint + QStringLiteral("; folders are searched for scrib*"));
}
