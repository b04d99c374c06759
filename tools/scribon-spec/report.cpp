#include "report.h"

#include "htmlreport.h"
#include "jsonreport.h"
#include "sarifreport.h"
#include "textreport.h"

namespace {

QString counted(int count, const char* noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(noun),
                                                    QLatin1String(count == 1 ? "" : "s"));
}

}  // namespace

void Totals::add(const FileCounts& file)
{
    files.push_back(file);
    errors += file.errors;
    warnings += file.warnings;
    unreadable += file.isUnreadable ? 1 : 0;
}

QString summaryOf(const Totals& totals)
{
    return QStringLiteral("%1 checked: %2, %3")
        .arg(counted(static_cast<int>(totals.files.size()), "file"),
             counted(totals.errors, "error"), counted(totals.warnings, "warning"));
}

FileCounts countsOf(const FileReport& report)
{
    FileCounts counts;
    counts.name = report.name;
    counts.number = report.number;
    counts.loads = report.loads;
    counts.isUnreadable = report.isUnreadable;
    for (const Finding& finding : report.findings)
        ++(finding.severity == Severity::Warning ? counts.warnings : counts.errors);
    return counts;
}

std::unique_ptr<Report> reportOfName(const QString& name, TextTarget target)
{
    if (name == QLatin1String("text"))
        return std::make_unique<TextReport>(target);
    if (name == QLatin1String("json"))
        return std::make_unique<JsonReport>();
    if (name == QLatin1String("sarif"))
        return std::make_unique<SarifReport>();
    if (name == QLatin1String("html"))
        return std::make_unique<HtmlReport>();
    return nullptr;
}
