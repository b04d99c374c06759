// scribon-spec diff.

#include "commands.h"
#include "differencereports.h"
#include "loadedfile.h"

namespace {

const QString FORMAT = QStringLiteral("format");
const auto STANDARD_INPUT = QStringLiteral("-");

void addOptions(QCommandLineParser* parser)
{
    parser->setApplicationDescription(
        QStringLiteral("Compares two spec files table by table: rows added, removed, moved and "
                       "changed.\nStatus 0: the same; 1: different; 2: trouble."));
    parser->addOptions({{FORMAT, QStringLiteral("Print text or json."), QStringLiteral("FORMAT"),
                         QStringLiteral("text")}});
    parser->addPositionalArgument(QStringLiteral("BEFORE"),
                                  QStringLiteral("The older file, or - for standard input."));
    parser->addPositionalArgument(QStringLiteral("AFTER"),
                                  QStringLiteral("The newer file, or - for standard input."));
}

// Both are read, so that both are complained of.
int compare(const QStringList& files, bool asJson)
{
    const SpecFile before = SpecFile::read(files.constFirst());
    const bool beforeIsLoaded = isLoaded(before);
    const SpecFile after = SpecFile::read(files.constLast());
    if (!isLoaded(after) || !beforeIsLoaded)
        return EXIT_TROUBLE;
    const FileComparison comparison{before, after, differencesBetween(before, after)};
    print(asJson ? differencesAsJson(comparison) : differencesAsText(comparison));
    return comparison.isEmpty() ? EXIT_CLEAN : EXIT_FINDINGS;
}

}  // namespace

int runDiff(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(&parser);
    const int status = parseArguments(arguments, &parser);
    if (status >= 0)
        return status;
    const QStringList files = parser.positionalArguments();
    if (files.size() != 2 || files.count(STANDARD_INPUT) == 2)
        return complain(QStringLiteral("diff compares two files"));
    const QString format = parser.value(FORMAT);
    if (format != QLatin1String("text") && format != QLatin1String("json"))
        return complain(QStringLiteral("--format takes text or json"));
    return compare(files, format == QLatin1String("json"));
}
