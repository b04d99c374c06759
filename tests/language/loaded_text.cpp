#include "loaded_text.h"

#include <QFile>
#include <QTemporaryDir>

#include "editor_antlr3.h"
#include "tree_printer.h"

int loadText(const QByteArray& text)
{
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("spec")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.close();
    return read_file(QFile::encodeName(file.fileName()).constData());
}

QString loadedTree()
{
    return QString::fromLatin1(printWholeTree(getTree()).c_str());
}
