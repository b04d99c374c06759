// The words that stand for keywords on the Keywords tab: in its cells, and in the list that it
// offers.
#pragma once

#include <QString>
#include <QStringList>
#include <cstddef>
#include <cstring>

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

// The name by which a cell shows the first keyword that begins with these bytes; empty if there is
// none, or if that keyword has no such name.
inline QString keywordDisplayName(const char* text, size_t length)
{
    static constexpr auto KEYWORDS = keywordsInDisplayOrder();
    for (const ScribonKeyword* const keyword : KEYWORDS) {
        if (std::strncmp(text, keyword->spelling, length) == 0)
            return QString::fromUtf8(keyword->displayName);
    }
    return {};
}
