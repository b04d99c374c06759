// Arbitrary bytes as a spec file: parsed, loaded into the five models, validated and saved. The
// saved file goes through the same again.

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "editor_antlr3.h"
#include "treemodel.h"

namespace {

struct Workspace {
    int argc = 1;
    std::array<char, 5> name{"fuzz"};
    char* argv = name.data();
    QCoreApplication application{argc, &argv};
    QTemporaryDir directory{QStringLiteral("/dev/shm/scribon-fuzz-XXXXXX")};
    QByteArray source = (directory.path() + QStringLiteral("/source")).toLocal8Bit();
    QByteArray saved = (directory.path() + QStringLiteral("/saved")).toLocal8Bit();
};

void write(const QByteArray& fileName, const char* bytes, qint64 size)
{
    QFile file(QString::fromLocal8Bit(fileName));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes, size);
}

// Loads a file and saves its five tabs to another one; false if it is not a spec file.
bool loadAndSave(const QByteArray& from, QByteArray to)
{
    if (read_file(from.constData()) != 0)
        return false;
    write(to, "", 0);
    for (int tab = EDIT_TAB1; tab <= EDIT_TAB5; ++tab) {
        const QStringList headers = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                     QStringLiteral("d")};
        const int columns = tab == EDIT_TAB2 ? 4 : 3;
        TreeModel model(headers.mid(0, columns), getTree(), static_cast<ANTLR3_UINT32>(tab));
        model.setDirty();
        model.validate_model();
        model.dump_to_file(to.data());
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Workspace workspace;
    write(workspace.source, reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    if (loadAndSave(workspace.source, workspace.saved))
        loadAndSave(workspace.saved, workspace.source);
    free_resources();
    return 0;
}
