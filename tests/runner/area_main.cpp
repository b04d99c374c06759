// main() of an area's program: runs the test that the program is called by the name of. The build
// makes a symbolic link to the program for each of its tests.

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include "area_test.h"

namespace {

// A function, since the tests of the other sources register before main() begins.
QMap<QString, AreaTest::Main>& registeredTests()
{
    static QMap<QString, AreaTest::Main> tests;
    return tests;
}

QString baseNameOf(const char* file)
{
    return QFileInfo(QFile::decodeName(file)).baseName();
}

int complain(const char* program)
{
    QTextStream(stderr) << program << ": run one of its tests by the symbolic link beside it: "
                        << QStringList(registeredTests().keys()).join(QStringLiteral(", ")) << '\n';
    return 2;
}

}  // namespace

AreaTest::AreaTest(const char* sourceFile, Main main)
{
    registeredTests().insert(baseNameOf(sourceFile), main);
}

int main(int argc, char* argv[])
{
    const AreaTest::Main run = registeredTests().value(baseNameOf(argv[0]));
    return run ? run(argc, argv) : complain(argv[0]);
}
