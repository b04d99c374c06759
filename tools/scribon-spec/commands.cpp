#include "commands.h"

#include <cstdio>

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
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

bool hasPrintedAll()
{
    return std::ferror(stdout) == 0;
}
