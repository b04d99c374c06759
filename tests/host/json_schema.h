// A check of JSON against a schema, as far as the catalogue's schema goes: it knows the keywords
// that occur there and no others.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

class JsonSchema {
public:
    explicit JsonSchema(const QJsonObject& schema) : root_(schema) {}

    // Empty when the value is valid, otherwise what is not.
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
