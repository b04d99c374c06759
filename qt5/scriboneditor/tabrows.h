// The rows of a tab as the syntax tree gives them, with the place of each text in the file.
#pragma once

#include <QString>
#include <cstddef>

#include "editor_antlr3.h"
#include "specencoding.h"

// Gets the rows of a tab in their order.
class RowReceiver {
public:
    virtual ~RowReceiver() = default;

    // Whether setCell() needs the texts. They are not decoded for one that asks for places only.
    virtual bool wantsTexts() const { return true; }

    // A row of a statement that begins there.
    virtual void appendRow(FileRange statement) = 0;

    // A text for a cell of the last row. It replaces one that the cell has. A tab need not have the
    // column, and -1 is none: then the text is dropped.
    virtual void setCell(int column, const QString& text, FileRange range) = 0;
};

// The encoding of the file whose tree was read last.
SpecEncoding encodingOfFile();

// Passes the rows of tab `tab` (EDIT_TAB1 to EDIT_TAB5) of the tree that was read last. A null tree
// gives none.
void readRows(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 tab, SpecEncoding encoding,
              RowReceiver* receiver);
