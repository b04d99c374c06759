#include "jsonreport.h"

#include <string>

#include "jsonbytes.h"

namespace {

// Lone surrogates become replacement characters in UTF-8, so the text is always valid.
std::string text(const QString& string)
{
    return string.toStdString();
}

Json cellOf(const SpecFile& file, const CellPlace& cell)
{
    return {{"tab", text(tabTitle(cell.tab))},
            {"row", visibleRow(cell)},
            {"field", text(fieldName(file.table(cell.tab), cell.column))}};
}

Json findingObject(const SpecFile& file, const Finding& finding)
{
    Json object{{"rule", factsOf(finding.rule).name},
                {"severity", nameOf(finding.severity)},
                {"line", finding.place.line},
                {"column", finding.place.column}};
    if (finding.cell.isValid())
        object.update(cellOf(file, finding.cell));
    object["text"] = text(finding.text);
    object["message"] = text(finding.message);
    if (!finding.hint.isEmpty())
        object["hint"] = text(finding.hint);
    return object;
}

Json errorCounts(const FileReport& report)
{
    Json counts = Json::object();
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        counts[text(tabTitle(tab))] = report.errors[static_cast<size_t>(tab)];
    return counts;
}

}  // namespace

QByteArray JsonReport::head(const Totals& /*totals*/) const
{
    return "{\"version\":1,\"files\":[\n";
}

QByteArray JsonReport::file(const SpecFile& file, const FileReport& report) const
{
    Json findings = Json::array();
    for (const Finding& finding : report.findings)
        findings.push_back(findingObject(file, finding));
    const Json object{{"file", text(report.name)},
                      {"loads", report.loads},
                      {"errors", errorCounts(report)},
                      {"findings", findings}};
    return bytesOf(object);
}

QByteArray JsonReport::separator() const
{
    return ",\n";
}

QByteArray JsonReport::foot(const Totals& /*totals*/) const
{
    return "\n]}\n";
}
