// What a combo box offers.
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

// A list as it is told in a source file, with blanks between the items.
inline QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
