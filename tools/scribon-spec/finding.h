// One thing that is wrong with a spec file, and all of them.
#pragma once

#include <QString>
#include <array>
#include <vector>

#include "editor_types.h"
#include "rules.h"
#include "specfile.h"

struct Finding {
    Rule rule = Rule::Syntax;
    Severity severity = Severity::Error;
    FileRange range;  // where it begins; size 0 if there is no text of its own
    FilePlace place;
    CellPlace cell;
    QString text;     // the text that is wrong
    QString message;  // what is wrong with it, in one line
    QString hint;     // the way out, in one line; may be empty

    // A finding about the whole file has no place in it.
    bool hasPlace() const { return cell.isValid() || range.size > 0; }
};

struct FileReport {
    QString name;
    int number = 1;  // among the files of a run
    bool loads = false;
    bool isUnreadable = false;
    std::array<int, TAB_COUNT> errors{};  // as the editor counts them
    std::vector<Finding> findings;        // in the order of their places
};

// What is wrong and the way out, in one line.
QString messageWithHint(const Finding& finding);

// What reports and messages call the tabs, the columns and the rows of the tables: the title of the
// tab, the header on one line, and the number of the row among the visible ones, from 1.
QString tabTitle(int tab);
QString fieldName(const TreeModel& table, int column);
int visibleRow(const CellPlace& cell);

// The first row and the first column that the editor shows: of a list it hides those of the
// section's keyword.
int firstVisible(int tab);
