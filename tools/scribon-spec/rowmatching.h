// Which row of a table is which row of another version of it.
#pragma once

#include <vector>

#include "tablerows.h"

constexpr int NO_ROW = -1;

// For each row of `after` the index of its row in `before`, or NO_ROW. Equal rows come first, with
// preference for those beside other equal rows; then rows with the same keyword, channel, name and
// so on, as the tab has it. Among rows that are alike the first belongs to the first.
std::vector<int> matchRows(int tab, const std::vector<TableRow>& before,
                           const std::vector<TableRow>& after);

// For each row of `after` whether it has kept its place among the matched rows: the largest number
// of rows whose order is the same.
std::vector<bool> rowsInOrder(const std::vector<int>& matches);
