// One row of a tab: its cells' values and error codes. The rows are the document; they hold no
// reference to the syntax tree that they were read from.
#pragma once

#include <QList>
#include <QMetaType>
#include <QModelIndex>
#include <QVariant>
#include <QVector>
#include <array>

#include "editor_antlr3.h"

class TreeModel;

// The text of a cell whose field is absent in the file. It keeps columns in place; it is neither
// shown nor written.
constexpr QLatin1String FILLER_TEXT("FILLER_TXT", 10);

// Lets a node of the syntax tree travel in a QVariant.
Q_DECLARE_METATYPE(pANTLR3_BASE_TREE)

// What the last validation found in a row. It holds until a text or an error code of the row
// changes, so that a validation need not look at the texts of all rows.
struct RowVerdict {
    // A text that must be unique in its column.
    struct UniqueText {
        uint hash = 0;
        qint16 column = -1;    // none
        qint16 code = 0;       // the error code that it got
        bool isMarked = true;  // false: makes equal texts duplicates, but is never marked as one
    };

    int faults = 0;  // wrong cells, without the duplicates
    std::array<UniqueText, 2> uniqueTexts;

    bool hasErrors() const
    {
        return faults > 0 || uniqueTexts[0].code == DE_DUPLICATE_ERR ||
               uniqueTexts[1].code == DE_DUPLICATE_ERR;
    }
};

// A model's root is a TreeItem too: its cells are the column headers, its children the rows.
class TreeItem {
public:
    // Copies both vectors: one value and one error code a column.
    TreeItem(const QVector<QVariant>& data, const QVector<QVariant>& errorCodeData,
             TreeItem* parent = nullptr);
    ~TreeItem();

    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;

    // A null pointer and an invalid variant if the number or column is out of range.
    TreeItem* child(int number);
    QVariant data(int column) const;
    QVariant errorCode(int column) const;

    TreeItem* parent();
    int childCount() const;
    int columnCount() const;

    // This row's index in its parent; 0 without a parent. Linear in the number of rows.
    int childNumber() const;

    // All or nothing: returns false and changes nothing if the range is invalid. New cells hold
    // invalid variants. Existing behaviour, kept for compatibility: inserted columns get no error
    // code.
    bool insertChildren(int position, int count, int columns);
    bool removeChildren(int position, int count);
    bool insertColumns(int position, int columns);
    bool removeColumns(int position, int columns);

    // Stores without comparing; returns false if the column does not exist.
    bool setData(int column, const QVariant& value);
    bool setErrorCode(int column, const QVariant& value);

    // Stores a text; returns whether the cell changed.
    bool setData(TreeModel* model, const QModelIndex& index, const QVariant& value);

    // Pushes a command on the active undo stack, which stores the text. Returns false if the text
    // is the same, and for a cell that never had a value, which is not editable.
    bool undoredo_setData(TreeModel* model, const QModelIndex& index, const QVariant& value);

    // Whether a text has changed since the row was last validated. Set by storing a text and by
    // inserting or removing columns.
    void setDirty();
    bool isDirty() const { return dirty; }
    void clrDirty();

    // Belongs to the validation.
    RowVerdict& verdict() { return m_verdict; }

    // Whether the cell's error code says that its text is wrong or a duplicate.
    bool isWrong(int column) const;

    // A number that no other row has. A row that undo or redo restores gets the number of the row
    // that was removed, so that commands can find it again.
    quint64 identity() const;
    void setIdentity(quint64 identity);

private:
    // First, so that a validation of unchanged rows reads one cache line of each.
    RowVerdict m_verdict;
    bool dirty = true;

    QList<TreeItem*> childItems;  // owned
    QVector<QVariant> itemData;
    QVector<QVariant> ecData;
    TreeItem* parentItem;
    quint64 m_identity;
};
