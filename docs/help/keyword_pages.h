// A page for each keyword, generated from the program's table, so that help and program agree.
#pragma once

#include <QString>
#include <QVector>

#include "scribon_keywords.h"

struct KeywordPage {
    const ScribonKeyword* keyword;
    QString name;      // of its Markdown file, were there one
    QString title;     // what the table shows in the keyword's place
    QString markdown;  // empty when the example has no statement of the keyword
};

// One for each row of the table, in its order. The example is the text of a spec file.
QVector<KeywordPage> keywordPages(const QString& example);

// The keywords with their links and whether they are required, as a table in Markdown.
QString keywordTable(const QVector<KeywordPage>& pages);

// The statistical members and what they mean, likewise.
QString statisticTable();
