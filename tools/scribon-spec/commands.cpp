#include "commands.h"

#include <cerrno>
#include <cstdio>

namespace {

int firstPrintError = 0;

}  // namespace

int complain(const QString& complaint)
{
    std::fprintf(stderr, "scribon-spec: %s\n", qPrintable(complaint));
    return EXIT_TROUBLE;
}

int parseArguments(const QStringList& arguments, QCommandLineParser* parser)
{
    const QCommandLineOption help = parser->addHelpOption();
    if (!parser->parse(arguments))
        return complain(parser->errorText());
    if (!parser->isSet(help))
        return -1;
    print(parser->helpText().toLocal8Bit());
    return EXIT_CLEAN;
}

void print(const QByteArray& bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    errno = 0;
    if (std::fwrite(bytes.constData(), 1, size, stdout) < size || std::fflush(stdout) != 0)
        firstPrintError = firstPrintError == 0 ? errno : firstPrintError;
}

bool hasPrintedAll()
{
    return firstPrintError == 0;
}

int printError()
{
    return firstPrintError;
}
