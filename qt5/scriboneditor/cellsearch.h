// Finds the cells of a table that contain a text.
#pragma once

#include <QString>
#include <tuple>
#include <vector>

class QTreeView;

struct CellPlace {
    int row;
    int column;

    bool operator<(const CellPlace& other) const
    {
        return std::tie(row, column) < std::tie(other.row, other.column);
    }
    bool operator==(const CellPlace& other) const
    {
        return row == other.row && column == other.column;
    }
};

// The cells whose text, or what is shown for it, contains `text`, in the order of rows and columns.
// Upper and lower case are the same. Hidden rows and columns and cells without a text are left out.
// None if `text` is empty or the view has no model.
std::vector<CellPlace> cellsWith(const QString& text, const QTreeView& view);
