#include "commands.h"

#include <QCoreApplication>
#include <cerrno>
#include <cstdio>

#include "terminaltext.h"

namespace {

int firstPrintError = 0;

// Qt's text begins with the path of the program, as the caller has written it, and knows no
// commands.
QString helpOf(const QString& command, const QCommandLineParser& parser)
{
    const auto usage = QStringLiteral("Usage: ");
    const int pathLength = QCoreApplication::arguments().constFirst().size();
    return usage + command + parser.helpText().mid(usage.size() + pathLength);
}

}  // namespace

int complain(const QString& complaint)
{
    std::fprintf(stderr, "scribon-spec: %s\n", qPrintable(withoutControls(complaint)));
    return EXIT_TROUBLE;
}

int parseArguments(const QStringList& arguments, QCommandLineParser* parser)
{
    // Qt's own help option comes with a second one for the options of Qt, which there are none of.
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this help."));
    parser->addOption(help);
    if (!parser->parse(arguments))
        return complain(parser->errorText());
    if (!parser->isSet(help))
        return -1;
    print(helpOf(arguments.constFirst(), *parser).toLocal8Bit());
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
