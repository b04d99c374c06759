// Validates JSON against a schema. Supports only the keywords that the catalogue's schema uses.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

class JsonSchema {
public:
    explicit JsonSchema(const QJsonObject& schema) : root_(schema) {}

    // Empty if the value is valid, otherwise a description of the fault.
    QString faultIn(const QJsonValue& value) const { return fault(value, root_); }

private:
    QString fault(const QJsonValue& value, const QJsonObject& schema) const;
    QString keywordFault(const QJsonValue& value, const QString& keyword,
                         const QJsonObject& schema) const;
    QString memberFault(const QJsonObject& object, const QJsonObject& schema) const;
    QString itemFault(const QJsonArray& array, const QJsonObject& items) const;
    QJsonObject referenced(const QString& reference) const;

    QJsonObject root_;
};
