// scribon-spec format.

#include <algorithm>

#include "commands.h"
#include "formatfile.h"
#include "inputs.h"
#include "loadedfile.h"
#include "unifieddiff.h"

namespace {

const QString IN_PLACE = QStringLiteral("in-place");
const QString CHECK = QStringLiteral("check");
const QString DIFF = QStringLiteral("diff");
const QString FORCE = QStringLiteral("force");

struct FormatOptions {
    bool inPlace = false;
    bool check = false;
    bool diff = false;
    bool force = false;

    bool onlyTells() const { return check || diff; }
};

void addOptions(QCommandLineParser* parser)
{
    parser->setApplicationDescription(QStringLiteral(
        "Prints what the editor would write on saving spec files.\n"
        "Status 0: nothing to do, or all done; 1: a file would change; 2: trouble."));
    parser->addOptions(
        {{IN_PLACE, QStringLiteral("Replace the files. A file whose save would lose something is "
                                   "left as it is.")},
         {CHECK, QStringLiteral("Print the names of the files that would change; status 1 if "
                                "there are any.")},
         {DIFF, QStringLiteral("Print what would change as diff -u does; status 1 if anything "
                               "would.")},
         {FORCE, QStringLiteral("Replace files also where the save loses something, and do not "
                                "tell what.")}});
    addFileArguments(parser);
}

FormatOptions optionsOf(const QCommandLineParser& parser)
{
    return {parser.isSet(IN_PLACE), parser.isSet(CHECK), parser.isSet(DIFF), parser.isSet(FORCE)};
}

int complainOfFile(const SpecFile& file, const QString& problem)
{
    return complain(file.name() + QStringLiteral(": ") + problem);
}

void complainOfReason(const SpecFile& file, const Finding& reason, const QString& effect)
{
    QString place = QStringLiteral(":");
    if (reason.hasPlace())
        place += QStringLiteral("%1:%2:").arg(reason.place.line).arg(reason.place.column);
    complain(QStringLiteral("%1%2 %3%4 [%5]")
                 .arg(file.name(), place, effect, reason.message,
                      QLatin1String(factsOf(reason.rule).name)));
}

// Tells what a save would lose. Whether the file must be left as it is.
bool isRefused(const SpecFile& file, const FormatOptions& options)
{
    const QString effect = options.inPlace ? QStringLiteral("not formatted: ") : QString();
    const std::vector<Finding> reasons = reasonsNotToSave(file);
    for (const Finding& reason : reasons)
        complainOfReason(file, reason, effect);
    return options.inPlace && !reasons.empty();
}

int replace(const SpecFile& file, const QByteArray& text)
{
    const QString problem = replaceFile(file.name(), text);
    return problem.isEmpty() ? EXIT_CLEAN : complainOfFile(file, problem);
}

int printDifference(const SpecFile& file, const QByteArray& text)
{
    const UnifiedDiff difference = unifiedDiff(file.name(), file.bytes(), text);
    if (!difference.problem.isEmpty())
        return complainOfFile(file, difference.problem);
    print(difference.text);
    return EXIT_FINDINGS;
}

int tellOfChange(const SpecFile& file, const QByteArray& text, const FormatOptions& options)
{
    if (options.diff)
        return printDifference(file, text);
    print(file.name().toLocal8Bit() + '\n');
    return EXIT_FINDINGS;
}

int format(const QString& name, const FormatOptions& options)
{
    const SpecFile file = SpecFile::read(name);
    if (!isLoaded(file))
        return EXIT_TROUBLE;
    const QByteArray text = file.savedBytes();
    if (!options.inPlace && !options.onlyTells()) {
        print(text);
        return EXIT_CLEAN;
    }
    if (text == file.bytes())
        return EXIT_CLEAN;
    if (!options.force && isRefused(file, options))
        return EXIT_TROUBLE;
    return options.inPlace ? replace(file, text) : tellOfChange(file, text, options);
}

// Stops when standard output cannot be written.
int formatAll(const QStringList& files, const FormatOptions& options)
{
    int status = EXIT_CLEAN;
    for (auto name = files.begin(); name != files.end() && hasPrintedAll(); ++name)
        status = std::max(status, format(*name, options));
    return status;
}

// What is wrong with the arguments; empty if nothing is.
QString faultIn(const FormatOptions& options, const QStringList& files)
{
    if (options.inPlace && options.onlyTells())
        return QStringLiteral("--in-place goes with neither --check nor --diff");
    if (options.inPlace && files.contains(QStringLiteral("-")))
        return QStringLiteral("--in-place cannot replace standard input");
    return {};
}

}  // namespace

int runFormat(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(&parser);
    const int status = parseArguments(arguments, &parser);
    if (status >= 0)
        return status;
    const FormatOptions options = optionsOf(parser);
    const QStringList files = inputFiles(parser.positionalArguments());
    const QString fault = faultIn(options, files);
    if (!fault.isEmpty())
        return complain(fault);
    if (files.isEmpty())
        return complainOfNoFiles(parser.positionalArguments(), QStringLiteral("format"));
    return formatAll(files, options);
}
