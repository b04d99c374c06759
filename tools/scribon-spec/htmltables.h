// The five tables of a spec file as HTML, as the editor shows them: keywords by their names, wrong
// cells marked.
#pragma once

#include <QString>
#include <functional>

#include "finding.h"

// What a page adds to a cell. It comes after what the cell has of its own.
struct HtmlCellAddition {
    QString classes;  // names, separated by blanks
    QString title;    // tool tip; plain text; replaces the cell's own
    QString html;     // after the cell's text
};

struct HtmlTablesOptions {
    QString idPrefix;  // tells the cells of several files on a page apart
    std::function<HtmlCellAddition(const CellPlace& cell)> additionOf;  // may be empty
};

// The style of the tables, for a page's <style>. It has colours for the class "wrong" and for
// comments, and is fit for printing.
extern const char HTML_TABLES_STYLE[];

// For each tab a <section> with a <h3> and a <table>. Only of a loaded file.
QString htmlTables(const SpecFile& file, const HtmlTablesOptions& options = {});

// The id of a cell's <td>: "t2r3c1" is the first column of row 3 on the Scan List, counted from 1
// as the editor shows them. The id of a section is "t2".
QString htmlCellId(const CellPlace& cell, const QString& prefix = {});

// Whether the tables have a <td> for the cell: the editor hides row and column 0 of the lists.
bool isInHtmlTables(const CellPlace& cell);

// Plain text as HTML, for content and for attributes in double quotes. Characters that HTML does
// not allow become replacement characters.
QString htmlText(const QString& text);
