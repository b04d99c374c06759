#include "commands.h"

#include <cerrno>
#include <cstdio>

#include "terminaltext.h"

namespace {

int firstPrintError = 0;

// Qt's text begins with the path of the program and knows no commands.
QString helpText(const QString& command, const QCommandLineParser& parser)
{
    const QString text = parser.helpText();
    return QStringLiteral("Usage: %1 %2")
        .arg(command, text.mid(text.indexOf(QLatin1String("[options]"))));
}

}  // namespace

int complain(const QString& complaint)
{
    std::fprintf(stderr, "scribon-spec: %s\n", qPrintable(withoutControls(complaint)));
    return EXIT_TROUBLE;
}

int parseArguments(const QStringList& arguments, QCommandLineParser* parser)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this text."));
    parser->addOption(help);
    if (!parser->parse(arguments))
        return complain(parser->errorText());
    if (!parser->isSet(help))
        return -1;
    print(helpText(arguments.constFirst(), *parser).toLocal8Bit());
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
