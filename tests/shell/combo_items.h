// The items of a combo box.
#pragma once

#include <QComboBox>
#include <QStringList>

inline QStringList itemsOf(const QComboBox* comboBox)
{
    QStringList items;
    for (int i = 0; i < comboBox->count(); ++i)
        items.append(comboBox->itemText(i));
    return items;
}

// Splits a string literal at blanks.
inline QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
