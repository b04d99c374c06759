// scribon-spec check and rules.

#include <unistd.h>

#include "celloptions.h"
#include "check.h"
#include "checkrun.h"
#include "commands.h"
#include "inputs.h"
#include "report.h"

namespace {

const QString FORMAT = QStringLiteral("format");
const QString FAIL_ON = QStringLiteral("fail-on");
const QString JOBS = QStringLiteral("jobs");
const QString DISABLE = QStringLiteral("disable");
const QString AS_ERROR = QStringLiteral("error");
const QString AS_WARNING = QStringLiteral("warning");

constexpr int MOST_JOBS = 256;
constexpr int RULE_WIDTH = 17;

void addOptions(QCommandLineParser* parser)
{
    const QString rule = QStringLiteral("RULE");
    parser->setApplicationDescription(QStringLiteral(
        "Finds what is wrong with spec files, without changing anything.\n"
        "Status 0: nothing that counts; 1: findings; 2: a file that cannot be read, or trouble."));
    parser->addOptions(
        {{FORMAT, QStringLiteral("Print text, json, sarif or html."), QStringLiteral("FORMAT"),
          QStringLiteral("text")},
         {FAIL_ON, QStringLiteral("End with status 1 from this severity on: error or warning."),
          QStringLiteral("SEVERITY"), QStringLiteral("error")},
         {JOBS, QStringLiteral("Check with this many processes."), QStringLiteral("NUMBER")},
         {DISABLE, QStringLiteral("Do not report this rule."), rule},
         {AS_ERROR, QStringLiteral("Report this rule as an error."), rule},
         {AS_WARNING, QStringLiteral("Report this rule as a warning."), rule}});
    CellOptions::addTo(parser);
    addFileArguments(parser);
}

// False, with a complaint, for a name that is no rule.
bool setSeverity(const QStringList& names, Severity severity, CheckOptions* options)
{
    for (const QString& name : names) {
        const std::optional<Rule> rule = ruleOfName(name);
        if (!rule) {
            complain(QStringLiteral("no rule %1; see scribon-spec rules").arg(name));
            return false;
        }
        options->severities[static_cast<size_t>(*rule)] = severity;
    }
    return true;
}

bool readSeverities(const QCommandLineParser& parser, CheckOptions* options)
{
    return setSeverity(parser.values(AS_WARNING), Severity::Warning, options) &&
           setSeverity(parser.values(AS_ERROR), Severity::Error, options) &&
           setSeverity(parser.values(DISABLE), Severity::Off, options);
}

TextTarget textTarget()
{
    if (isatty(STDOUT_FILENO) == 0)
        return TextTarget::File;
    return qEnvironmentVariableIsEmpty("NO_COLOR") ? TextTarget::ColourTerminal
                                                   : TextTarget::Terminal;
}

// Nothing, with a complaint, for what is no number of processes.
std::optional<int> jobsOf(const QCommandLineParser& parser, int files)
{
    if (!parser.isSet(JOBS))
        return CheckRun::usualJobs(files);
    bool isNumber = false;
    const int jobs = parser.value(JOBS).toInt(&isNumber);
    if (isNumber && jobs > 0)
        return qMin(jobs, MOST_JOBS);
    complain(QStringLiteral("--jobs takes a number from 1"));
    return std::nullopt;
}

// The standard input can be read once.
bool isReadOnce(const QStringList& files)
{
    return files.count(QStringLiteral("-")) <= 1;
}

int statusOf(const Totals& totals, bool failOnWarnings)
{
    if (totals.unreadable > 0)
        return EXIT_TROUBLE;
    const bool fails = totals.errors > 0 || (failOnWarnings && totals.warnings > 0);
    return fails ? EXIT_FINDINGS : EXIT_CLEAN;
}

}  // namespace

int runCheck(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(&parser);
    const int status = parseArguments(arguments, &parser);
    if (status >= 0)
        return status;
    CheckOptions options;
    if (!readSeverities(parser, &options))
        return EXIT_TROUBLE;
    const QString failOn = parser.value(FAIL_ON);
    if (failOn != AS_ERROR && failOn != AS_WARNING)
        return complain(QStringLiteral("--fail-on takes error or warning"));
    const auto report = reportOfName(parser.value(FORMAT), textTarget());
    if (report == nullptr)
        return complain(QStringLiteral("--format takes text, json, sarif or html"));
    const QStringList files = inputFiles(parser.positionalArguments());
    if (files.isEmpty())
        return complainOfNoFiles(parser.positionalArguments(), QStringLiteral("check"));
    if (!isReadOnce(files))
        return complain(QStringLiteral("standard input can be checked once only"));
    const std::optional<int> jobs = jobsOf(parser, files.size());
    if (!jobs)
        return EXIT_TROUBLE;
    CellOptions cell;
    if (!cell.read(parser, &options))
        return EXIT_TROUBLE;
    const Totals totals = CheckRun(files, options, *report).run(*jobs);
    return cell.isStillGood() ? statusOf(totals, failOn == AS_WARNING) : EXIT_TROUBLE;
}

int runRules(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Lists what check can find."));
    const int status = parseArguments(arguments, &parser);
    if (status >= 0)
        return status;
    if (!parser.positionalArguments().isEmpty())
        return complain(QStringLiteral("rules takes no arguments"));
    for (const RuleFacts& facts : RULES) {
        print(QStringLiteral("%1 %2 %3\n")
                  .arg(QLatin1String(facts.name), -RULE_WIDTH)
                  .arg(QLatin1String(nameOf(facts.severity)), -8)
                  .arg(QLatin1String(facts.meaning))
                  .toUtf8());
    }
    return EXIT_CLEAN;
}
