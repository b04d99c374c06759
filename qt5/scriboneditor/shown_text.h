// What the user sees of a cell's text: the rules of Antlr3_BaseTreeDelegate::displayText(), for
// those who search.
#pragma once

#include <QByteArray>
#include <QString>

#include "keyword_words.h"
#include "treeitem.h"

inline bool showsNothing(const QString& text)
{
    return text == FILLER_TEXT || text.trimmed().isEmpty();
}

// A keyword's display name; other texts without their leading blank.
inline QString shownText(const QString& text)
{
    if (showsNothing(text))
        return {};
    if (text.startsWith(QLatin1Char('@'))) {
        const QByteArray bytes = text.toUtf8();
        return keywordDisplayName(bytes.constData(), static_cast<size_t>(bytes.size()));
    }
    return text.startsWith(QLatin1Char(' ')) ? text.mid(1) : text;
}
