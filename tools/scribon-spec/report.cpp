#include "report.h"

#include "jsonreport.h"
#include "textreport.h"

void Totals::add(const FileReport& report)
{
    ++files;
    for (const Finding& finding : report.findings) {
        ++(finding.severity == Severity::Warning ? warnings : errors);
        unreadable += finding.rule == Rule::Unreadable ? 1 : 0;
    }
}

void Totals::add(const Totals& other)
{
    files += other.files;
    errors += other.errors;
    warnings += other.warnings;
    unreadable += other.unreadable;
}

std::unique_ptr<Report> reportOfName(const QString& name, bool coloured)
{
    if (name == QLatin1String("text"))
        return std::make_unique<TextReport>(coloured);
    if (name == QLatin1String("json"))
        return std::make_unique<JsonReport>();
    return nullptr;
}
