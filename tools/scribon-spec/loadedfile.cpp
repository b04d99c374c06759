#include "loadedfile.h"

#include "commands.h"

bool isLoaded(const SpecFile& file)
{
    if (file.state() == SpecFile::State::Loaded)
        return true;
    const QString problem =
        file.state() == SpecFile::State::Unreadable
            ? file.problem()
            : QStringLiteral("not a spec file: the first statement must be @SCRIBON and its value");
    complain(file.name() + QStringLiteral(": ") + problem);
    return false;
}
