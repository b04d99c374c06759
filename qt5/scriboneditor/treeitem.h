// One row of a tab: its cells' values and error codes. The rows are the document; they hold no
// reference to the syntax tree that they were read from.
#pragma once

#include <QList>
#include <QMetaType>
#include <QModelIndex>
#include <QVariant>
#include <QVector>

#include "editor_antlr3.h"

class TreeModel;

// The text of a cell whose field is absent in the file. It keeps columns in place; it is neither
// shown nor written.
constexpr QLatin1String FILLER_TEXT("FILLER_TXT", 10);

// Lets a node of the syntax tree travel in a QVariant.
Q_DECLARE_METATYPE(pANTLR3_BASE_TREE)

// A model's root is a TreeItem too: its cells are the column headers, its children the rows.
class TreeItem {
public:
    // Copies both vectors: one value and one error code a column.
    TreeItem(const QVector<QVariant>& data, const QVector<QVariant>& errorCodeData,
             TreeItem* parent = nullptr);
    ~TreeItem();

    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;

    // Null and an invalid variant where there is none.
    TreeItem* child(int number);
    QVariant data(int column) const;
    QVariant errorCode(int column) const;

    TreeItem* parent();
    int childCount() const;
    int columnCount() const;

    // This row's index in its parent, 0 without one. Linear in the number of rows.
    int childNumber() const;

    // Rows and columns in one piece; false, and nothing changed, when they do not fit in. New cells
    // hold invalid variants. Columns change the values alone: an inserted column has no error code.
    bool insertChildren(int position, int count, int columns);
    bool removeChildren(int position, int count);
    bool insertColumns(int position, int columns);
    bool removeColumns(int position, int columns);

    // Stores without comparing; false for a column that does not exist.
    bool setData(int column, const QVariant& value);
    bool setErrorCode(int column, const QVariant& value);

    // Stores a text and tells whether that changed the cell.
    bool setData(TreeModel* model, const QModelIndex& index, const QVariant& value);

    // Turns a change of text into a command on the active undo stack, which stores it; false when
    // the text is the same, and for a cell that never held a value: such a cell is not editable.
    bool undoredo_setData(TreeModel* model, const QModelIndex& index, const QVariant& value);

    // Whether a text of the row is new in its place since its cells were last judged. Storing one
    // sets it, and so do columns that come or go.
    void setDirty();
    bool isDirty() const;
    void clrDirty();

    // What tells the row from every other, also from one that takes its place. Undo and redo hand
    // it on: a row that is brought back has that of the row that went.
    quint64 identity() const;
    void setIdentity(quint64 identity);

private:
    QList<TreeItem*> childItems;  // owned
    QVector<QVariant> itemData;
    QVector<QVariant> ecData;
    bool dirty = true;
    TreeItem* parentItem;
    quint64 m_identity;
};
