#include "json_schema.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <cmath>

namespace {

bool isOfType(const QJsonValue& value, const QString& type)
{
    if (type == QLatin1String("integer"))
        return value.isDouble() && std::floor(value.toDouble()) == value.toDouble();
    if (type == QLatin1String("boolean"))
        return value.isBool();
    if (type == QLatin1String("string"))
        return value.isString();
    return type == QLatin1String("array") ? value.isArray() : value.isObject();
}

bool hasAll(const QJsonObject& object, const QJsonArray& keys)
{
    return std::all_of(keys.begin(), keys.end(), [&object](const QJsonValue& key) {
        return object.contains(key.toString());
    });
}

// A limit does not apply to values of other types.
bool keepsLimit(const QJsonValue& value, const QString& keyword, const QJsonValue& limit)
{
    if (keyword == QLatin1String("minLength"))
        return !value.isString() || value.toString().size() >= limit.toInt();
    if (keyword == QLatin1String("maxLength"))
        return !value.isString() || value.toString().size() <= limit.toInt();
    if (keyword == QLatin1String("minItems"))
        return !value.isArray() || value.toArray().size() >= limit.toInt();
    if (keyword == QLatin1String("maxItems"))
        return !value.isArray() || value.toArray().size() <= limit.toInt();
    if (keyword == QLatin1String("minimum"))
        return !value.isDouble() || value.toDouble() >= limit.toDouble();
    if (keyword == QLatin1String("maximum"))
        return !value.isDouble() || value.toDouble() <= limit.toDouble();
    return false;
}

bool matches(const QJsonValue& value, const QString& pattern)
{
    QString text = value.toString();
    // In JSON Schema, "$" does not match before a line feed at the end.
    text.replace(QLatin1Char('\n'), QChar(1));
    return !value.isString() || QRegularExpression(pattern).match(text).hasMatch();
}

}  // namespace

QString JsonSchema::fault(const QJsonValue& value, const QJsonObject& schema) const
{
    for (const QString& keyword : schema.keys()) {
        QString found = keywordFault(value, keyword, schema);
        if (!found.isEmpty())
            return found;
    }
    return memberFault(value.toObject(), schema);
}

QString JsonSchema::keywordFault(const QJsonValue& value, const QString& keyword,
                                 const QJsonObject& schema) const
{
    static const QStringList NOT_CHECKED_HERE{
        QStringLiteral("$schema"),    QStringLiteral("$defs"),
        QStringLiteral("title"),      QStringLiteral("description"),
        QStringLiteral("properties"), QStringLiteral("additionalProperties")};
    const QJsonValue rule = schema[keyword];
    if (NOT_CHECKED_HERE.contains(keyword))
        return {};
    if (keyword == QLatin1String("$ref"))
        return fault(value, referenced(rule.toString()));
    if (keyword == QLatin1String("items"))
        return itemFault(value.toArray(), rule.toObject());
    bool isValid = false;
    if (keyword == QLatin1String("type"))
        isValid = isOfType(value, rule.toString());
    else if (keyword == QLatin1String("required"))
        isValid = !value.isObject() || hasAll(value.toObject(), rule.toArray());
    else if (keyword == QLatin1String("enum"))
        isValid = rule.toArray().contains(value);
    else if (keyword == QLatin1String("pattern"))
        isValid = matches(value, rule.toString());
    else
        isValid = keepsLimit(value, keyword, rule);
    return isValid ? QString() : keyword;
}

QString JsonSchema::memberFault(const QJsonObject& object, const QJsonObject& schema) const
{
    const QJsonObject properties = schema[QLatin1String("properties")].toObject();
    const QJsonValue others = schema[QLatin1String("additionalProperties")];
    for (const QString& key : object.keys()) {
        if (!properties.contains(key) && others.isBool() && !others.toBool())
            return QStringLiteral("no key ") + key;
        const QJsonValue rules = properties.contains(key) ? properties[key] : others;
        QString found = fault(object[key], rules.toObject());
        if (!found.isEmpty())
            return key + QLatin1Char('/') + found;
    }
    return {};
}

QString JsonSchema::itemFault(const QJsonArray& array, const QJsonObject& items) const
{
    for (const QJsonValue item : array) {
        QString found = fault(item, items);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QJsonObject JsonSchema::referenced(const QString& reference) const
{
    return root_[QLatin1String("$defs")][reference.section(QLatin1Char('/'), -1)].toObject();
}
