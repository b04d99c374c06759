#include "check.h"

#include <algorithm>
#include <utility>

#include "cellfindings.h"
#include "livefindings.h"
#include "lossfindings.h"
#include "savefindings.h"

CheckOptions::CheckOptions()
{
    std::transform(RULES.begin(), RULES.end(), severities.begin(),
                   [](const RuleFacts& facts) { return facts.severity; });
}

namespace {

Finding findingOfFile(Rule rule, const QString& message, const QString& hint = {})
{
    Finding finding;
    finding.rule = rule;
    finding.message = message;
    finding.hint = hint;
    return finding;
}

void addRefusal(const SpecFile& file, std::vector<Finding>* findings)
{
    if (file.state() == SpecFile::State::Unreadable)
        findings->push_back(findingOfFile(Rule::Unreadable, file.problem()));
    else
        findings->push_back(
            findingOfFile(Rule::Refused, QStringLiteral("not a spec file for the editor"),
                          QStringLiteral("The first statement must be @SCRIBON and its value.")));
}

// The first byte that is not part of a character in UTF-8.
void addEncoding(const SpecFile& file, std::vector<Finding>* findings)
{
    if (file.encoding() == SpecEncoding::Local)
        return;
    Finding finding =
        findingOfFile(Rule::Encoding, QStringLiteral("bytes that are not UTF-8; read as Latin-1"),
                      QStringLiteral("Save the file as UTF-8."));
    finding.range = {firstByteOutsideUtf8(file.bytes()), 1};
    finding.text = file.textOf(finding.range);
    findings->push_back(finding);
}

void addOfLoaded(const SpecFile& file, const CheckOptions& options, FileReport* report)
{
    report->loads = true;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        report->errors[static_cast<size_t>(tab)] = file.table(tab).getErrorCount();
    addCellFindings(file, &report->findings);
    addMissingKeywords(file, &report->findings);
    addLosses(file, &report->findings);
    addSaveFindings(file, &report->findings);
    if (options.cell != nullptr)
        addLiveFindings(file, *options.cell, &report->findings);
    if (options.offers != nullptr)
        addListFindings(file, *options.offers, &report->findings);
}

// Findings without a place come first.
void sortByPlace(std::vector<Finding>* findings)
{
    const auto key = [](const Finding& finding) {
        return std::make_pair(finding.range.offset, finding.cell.tab);
    };
    std::stable_sort(findings->begin(), findings->end(),
                     [&key](const Finding& a, const Finding& b) { return key(a) < key(b); });
}

void setSeverities(const CheckOptions& options, std::vector<Finding>* findings)
{
    for (Finding& finding : *findings)
        finding.severity = options.severities[static_cast<size_t>(finding.rule)];
    const auto isOff = [](const Finding& finding) { return finding.severity == Severity::Off; };
    findings->erase(std::remove_if(findings->begin(), findings->end(), isOff), findings->end());
}

}  // namespace

FileReport checkFile(const SpecFile& file, const CheckOptions& options)
{
    FileReport report;
    report.name = file.name();
    report.isUnreadable = file.state() == SpecFile::State::Unreadable;
    if (file.state() == SpecFile::State::Loaded)
        addOfLoaded(file, options, &report);
    else
        addRefusal(file, &report.findings);
    addEncoding(file, &report.findings);
    setSeverities(options, &report.findings);
    sortByPlace(&report.findings);
    for (Finding& finding : report.findings)
        finding.place = file.placeOf(finding.range.offset);
    return report;
}
