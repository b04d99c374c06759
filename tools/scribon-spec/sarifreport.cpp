#include "sarifreport.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QUrl>
#include <string>

#include "jsonbytes.h"

namespace {

// A change of what is hashed needs another number: results are the same ones only if names and
// values of their fingerprints are.
constexpr char FINGERPRINT_NAME[] = "scribonSpecFinding/v1";
constexpr int FINGERPRINT_DIGITS = 32;

const auto SCHEMA =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
    "sarif-schema-2.1.0.json";

std::string text(const QString& string)
{
    return string.toStdString();
}

// ---- The program --------------------------------------------------------------------------------

Json ruleObject(const RuleFacts& facts)
{
    return {{"id", facts.name},
            {"shortDescription", {{"text", facts.meaning}}},
            {"help", {{"text", facts.remedy}}},
            {"defaultConfiguration", {{"level", nameOf(facts.severity)}}}};
}

Json toolObject()
{
    Json rules = Json::array();
    for (const RuleFacts& facts : RULES)
        rules.push_back(ruleObject(facts));
    return {{"driver", {{"name", "scribon-spec"}, {"version", SCRIBON_VERSION}, {"rules", rules}}}};
}

// ---- Places -------------------------------------------------------------------------------------

// Relative to the working folder for what is below it, so that a build server finds the file in its
// clone.
std::string uriOf(const QString& name)
{
    const QDir here = QDir::current();
    const QString path = QDir::cleanPath(name);
    const QString inside = here.path() + QLatin1Char('/');
    if (path.startsWith(inside))
        return QUrl::toPercentEncoding(path.mid(inside.size()), "/").toStdString();
    const std::string encoded = QUrl::toPercentEncoding(path, "/").toStdString();
    return QFileInfo(path).isAbsolute() ? "file://" + encoded : encoded;
}

Json regionObject(const SpecFile& file, const Finding& finding)
{
    const FilePlace end = file.placeOf(finding.range.offset + finding.range.size);
    Json region{{"startLine", finding.place.line},
                {"startColumn", finding.place.column},
                {"endLine", end.line},
                {"endColumn", end.column}};
    if (finding.range.size > 0)
        region["snippet"] = {{"text", text(file.textOf(finding.range))}};
    return region;
}

Json cellObject(const SpecFile& file, const CellPlace& cell)
{
    const std::string field = text(fieldName(file.table(cell.tab), cell.column));
    const std::string row = std::to_string(visibleRow(cell));
    return {{"name", field},
            {"fullyQualifiedName", text(tabTitle(cell.tab)) + '/' + row + '/' + field},
            {"kind", "cell"}};
}

Json locationObject(const SpecFile& file, const Finding& finding)
{
    Json physical{{"artifactLocation", {{"uri", uriOf(file.name())}}}};
    if (finding.hasPlace())
        physical["region"] = regionObject(file, finding);
    Json location{{"physicalLocation", physical}};
    if (finding.cell.isValid())
        location["logicalLocations"] = Json::array({cellObject(file, finding.cell)});
    return location;
}

// ---- Results ------------------------------------------------------------------------------------

// The first text of the row, which tells it from others wherever it stands.
QString rowName(const SpecFile& file, const CellPlace& cell)
{
    return file.table(cell.tab)
        .index(cell.row, firstVisible(cell.tab))
        .data(Qt::EditRole)
        .toString();
}

// What a finding has to do with, without its lines and rows.
QString identityOf(const SpecFile& file, const Finding& finding)
{
    QStringList parts{QLatin1String(factsOf(finding.rule).name), finding.text};
    if (finding.cell.isValid())
        parts += {tabTitle(finding.cell.tab), QString::number(finding.cell.column),
                  rowName(file, finding.cell)};
    if (!finding.hasPlace())
        parts += finding.message;
    return parts.join(QChar(QChar::Null));
}

class Fingerprints {
public:
    // Equal findings of a file get different fingerprints, in their order.
    std::string next(const QString& identity)
    {
        const QString counted = QString::number(m_counts[identity]++) + identity;
        return QCryptographicHash::hash(counted.toUtf8(), QCryptographicHash::Sha256)
            .toHex()
            .left(FINGERPRINT_DIGITS)
            .toStdString();
    }

private:
    QHash<QString, int> m_counts;
};

Json resultObject(const SpecFile& file, const Finding& finding, Fingerprints* fingerprints)
{
    return {{"ruleId", factsOf(finding.rule).name},
            {"ruleIndex", static_cast<int>(finding.rule)},
            {"level", nameOf(finding.severity)},
            {"message", {{"text", text(messageWithHint(finding))}}},
            {"locations", Json::array({locationObject(file, finding)})},
            {"partialFingerprints",
             {{FINGERPRINT_NAME, fingerprints->next(identityOf(file, finding))}}}};
}

}  // namespace

QByteArray SarifReport::head(const Totals& /*totals*/) const
{
    return QByteArray("{\"$schema\":\"") + SCHEMA +
           "\",\"version\":\"2.1.0\",\"runs\":[{\"tool\":" + bytesOf(toolObject()) +
           ",\n\"columnKind\":\"utf16CodeUnits\",\"results\":[\n";
}

QByteArray SarifReport::file(const SpecFile& file, const FileReport& report) const
{
    Fingerprints fingerprints;
    QByteArrayList results;
    for (const Finding& finding : report.findings)
        results.append(bytesOf(resultObject(file, finding, &fingerprints)));
    return results.join(separator());
}

QByteArray SarifReport::separator() const
{
    return ",\n";
}

QByteArray SarifReport::foot(const Totals& totals) const
{
    const Json invocation{{"executionSuccessful", totals.unreadable == 0}};
    return "\n],\"invocations\":[" + bytesOf(invocation) + "]}]}\n";
}
