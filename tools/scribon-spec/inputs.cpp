#include "inputs.h"

#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>

namespace {

QStringList specFilesBelow(const QString& folder)
{
    QStringList files;
    QDirIterator walk(folder, {QStringLiteral("scrib*")}, QDir::Files | QDir::Readable,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(walk.next());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

QStringList inputFiles(const QStringList& arguments)
{
    QStringList files;
    for (const QString& argument : arguments) {
        if (QFileInfo(argument).isDir())
            files += specFilesBelow(argument);
        else
            files.append(argument);
    }
    return files;
}
