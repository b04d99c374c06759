#include "asam3files.h"

#include <QDir>

#include "get_asam3_lists.h"

namespace {

const auto SPEC_PATTERN = QStringLiteral("asam3_specs.*");

// Appends the files of the directory whose names match, then those of its subdirectories. Symbolic
// links are not followed, since they may form a loop.
void findRecursion(const QString& path, const QString& pattern, QStringList* result)
{
    const QDir currentDir(path);
    const QString prefix = path + QLatin1Char('/');
    const QStringList files =
        currentDir.entryList({pattern}, QDir::Files | QDir::NoSymLinks, QDir::NoSort);
    for (const QString& name : files)
        result->append(prefix + name);
    const QStringList directories =
        currentDir.entryList(QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QString& name : directories)
        findRecursion(prefix + name, pattern, result);
}

}  // namespace

QStringList asam3FilesBelow(const QString& folder)
{
    QStringList files;
    findRecursion(folder, SPEC_PATTERN, &files);
    return files;
}

QStringList ecmInstancesOf(const QByteArray& fileName)
{
    char ecmLists[MAX_ASAM3_LISTS][ASAM3_LIST_SIZE]{};
    int numLists = 0;
    QStringList instances;
    if (get_asam3_lists(fileName.constData(), ecmLists, &numLists) == ASAM3_READ) {
        for (int i = 0; i < numLists; ++i)
            instances.append(QString::fromLocal8Bit(ecmLists[i]));
    }
    return instances;
}
