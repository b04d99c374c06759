// The rows of a tab for programs and for comparison: the texts as a save writes them.
#pragma once

#include <QStringList>
#include <vector>

#include "specfile.h"

struct TableRow {
    int number = 0;  // among the visible ones, from 1
    int line = 0;    // where it begins in the file

    // By field; empty where the file has nothing. A keyword of a section that stands in the file
    // for a second time is the first text of its row.
    QStringList texts;

    bool isComment() const { return texts.constFirst().startsWith(QLatin1Char('#')); }
};

// The names of the columns that the editor shows.
QStringList fieldsOf(const SpecFile& file, int tab);

// Without the row of the section's keyword, which the editor hides.
std::vector<TableRow> rowsOf(const SpecFile& file, int tab);
