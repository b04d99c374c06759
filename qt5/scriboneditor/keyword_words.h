// The words that the Keywords tab offers for keywords.
#pragma once

#include <QString>
#include <QStringList>

#include "scribon_keywords.h"

// A keyword as it is offered: in lower case, without its "@". A text without "@" stays as it is.
inline QString keywordWord(const QString& text)
{
    return text.startsWith(QLatin1Char('@')) ? text.mid(1).toLower() : text;
}

inline QString keywordWord(const ScribonKeyword& keyword)
{
    return keywordWord(QString::fromLatin1(keyword.spelling));
}

inline QStringList wordList()
{
    QStringList words;
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        if (keyword.is(IN_WORD_LIST))
            words.append(keywordWord(keyword));
    }
    return words;
}
