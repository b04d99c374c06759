// What differs between two versions of a spec file, tab by tab and row by row.
#pragma once

#include <array>
#include <vector>

#include "tablerows.h"

struct RowDifference {
    enum Kind { Added, Removed, Moved, Changed };

    Kind kind;
    bool isMoved;     // a changed row may also stand in another place among the other rows
    TableRow before;  // without texts for an added row
    TableRow after;   // without texts for a removed row
};

using TabDifferences = std::vector<RowDifference>;

// In the order of the rows after; removed rows where they stood.
TabDifferences differencesBetween(int tab, const std::vector<TableRow>& before,
                                  const std::vector<TableRow>& after);

using SpecDifferences = std::array<TabDifferences, TAB_COUNT>;

SpecDifferences differencesBetween(const SpecFile& before, const SpecFile& after);
