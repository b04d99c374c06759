#include "taken_snapshot.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryFile>
#include <QtTest>
#include <algorithm>

#include "json_schema.h"

namespace {

QString schemaFault(const QByteArray& text)
{
    static const QJsonObject schema = [] {
        QFile file(QStringLiteral(CATALOGUE_SCHEMA));
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                              : QJsonObject();
    }();
    return JsonSchema(schema).faultIn(QJsonDocument::fromJson(text).object());
}

template <typename Row>
std::vector<Row> byIndex(std::vector<Row> rows)
{
    std::sort(rows.begin(), rows.end(),
              [](const Row& a, const Row& b) { return a.index < b.index; });
    return rows;
}

void describe(const marvane::CatalogueVariable& variable, QByteArray& text)
{
    text += ' ' + QByteArray::number(variable.index) + ' ' + variable.label.c_str() + " alias " +
            variable.alias.c_str() + " units " + variable.units.c_str() +
            (variable.isActive ? "" : " inactive") + '\n';
}

void describe(const marvane::CatalogueKeyword& keyword, QByteArray& text)
{
    text += "keyword " + QByteArray::number(keyword.index) + ' ' + keyword.name.c_str() + ' ' +
            QByteArray::number(keyword.unitsCode) + ' ' + QByteArray::number(keyword.kind) + '\n';
}

}  // namespace

TakenSnapshot textOf(const snapshot::Platform& platform)
{
    const snapshot::Catalogue catalogue = snapshot::makeCatalogue(platform);
    TakenSnapshot taken{snapshot::Reading::Done, QByteArray::fromStdString(catalogue.text), {}};
    for (const std::string& omission : catalogue.omissions)
        taken.omissions.append(QString::fromStdString(omission));
    return taken;
}

TakenSnapshot takeSnapshot()
{
    snapshot::Platform platform;
    const snapshot::Reading reading = snapshot::readPlatform(platform, [](const char* /*area*/) {});
    TakenSnapshot taken = textOf(platform);
    taken.reading = reading;
    return taken;
}

std::optional<marvane::Catalogue> loadedCatalogue(const QByteArray& text)
{
    QTemporaryFile file;
    if (!file.open() || file.write(text) != text.size() || !file.flush())
        return std::nullopt;
    std::string complaint;
    auto catalogue = marvane::readCatalogue(file.fileName().toStdString(), &complaint);
    if (!catalogue)
        qWarning("%s", complaint.c_str());
    return catalogue;
}

std::optional<marvane::Catalogue> acceptedCatalogue(const QByteArray& text)
{
    const QString fault = schemaFault(text);
    if (!fault.isEmpty()) {
        qWarning("the schema: %s", qPrintable(fault));
        return std::nullopt;
    }
    return loadedCatalogue(text);
}

QByteArray described(const marvane::Catalogue& catalogue)
{
    QByteArray text;
    for (const marvane::CatalogueUnits& units : catalogue.units)
        text +=
            QByteArray(units.name.c_str()) + " of " + QByteArray::number(units.dimension) + '\n';
    for (const uint16_t count : catalogue.counts)
        text += "count " + QByteArray::number(count) + '\n';
    for (const SM_AREA_ID area : catalogue.areas)
        text += "area " + QByteArray::number(area) + '\n';
    for (size_t i = 0; i < catalogue.tables.size(); ++i) {
        text += "table " + QByteArray::number(static_cast<int>(i)) + '\n';
        for (const marvane::CatalogueVariable& variable : byIndex(catalogue.tables[i]))
            describe(variable, text);
    }
    for (const marvane::CatalogueKeyword& keyword : byIndex(catalogue.keywords))
        describe(keyword, text);
    return text;
}
