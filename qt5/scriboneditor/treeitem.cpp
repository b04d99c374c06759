#include "treeitem.h"

#include <QString>
#include <QUndoStack>

#include "editor_access.h"
#include "editorundocommand.h"

namespace {

bool contains(const QVector<QVariant>& cells, int column)
{
    return column >= 0 && column < cells.size();
}

// Starts at 1: 0 means no row.
quint64 newIdentity()
{
    static quint64 last = 0;
    return ++last;
}

}  // namespace

TreeItem::TreeItem(const QVector<QVariant>& data, const QVector<QVariant>& errorCodeData,
                   TreeItem* parent)
    : itemData(data), ecData(errorCodeData), parentItem(parent), m_identity(newIdentity())
{
}

TreeItem::~TreeItem()
{
    qDeleteAll(childItems);
}

TreeItem* TreeItem::child(int number)
{
    return childItems.value(number);
}

QVariant TreeItem::data(int column) const
{
    return itemData.value(column);
}

QVariant TreeItem::errorCode(int column) const
{
    return ecData.value(column);
}

// Reads in place: a search reads the cells of all rows with errors.
bool TreeItem::isWrong(int column) const
{
    if (column >= ecData.size())
        return false;
    const int code = ecData.at(column).toInt();
    return code == DE_SYNTAX_ERR || code == DE_DUPLICATE_ERR;
}

TreeItem* TreeItem::parent()
{
    return parentItem;
}

int TreeItem::childCount() const
{
    return childItems.size();
}

int TreeItem::columnCount() const
{
    return itemData.size();
}

int TreeItem::childNumber() const
{
    return parentItem == nullptr ? 0 : parentItem->childItems.indexOf(const_cast<TreeItem*>(this));
}

bool TreeItem::insertChildren(int position, int count, int columns)
{
    if (position < 0 || position > childItems.size())
        return false;
    const QVector<QVariant> cells(columns);
    for (int i = 0; i < count; ++i)
        childItems.insert(position, new TreeItem(cells, cells, this));
    return true;
}

bool TreeItem::removeChildren(int position, int count)
{
    if (position < 0 || count > childItems.size() - position)
        return false;
    for (int i = 0; i < count; ++i)
        delete childItems.takeAt(position);
    return true;
}

bool TreeItem::insertColumns(int position, int columns)
{
    if (position < 0 || position > itemData.size())
        return false;
    itemData.insert(position, qMax(columns, 0), QVariant());
    dirty = true;
    for (TreeItem* row : qAsConst(childItems))
        row->insertColumns(position, columns);
    return true;
}

bool TreeItem::removeColumns(int position, int columns)
{
    if (position < 0 || columns > itemData.size() - position)
        return false;
    if (columns > 0)
        itemData.remove(position, columns);
    dirty = true;
    for (TreeItem* row : qAsConst(childItems))
        row->removeColumns(position, columns);
    return true;
}

bool TreeItem::setData(int column, const QVariant& value)
{
    if (!contains(itemData, column))
        return false;
    itemData[column] = value;
    dirty = true;
    return true;
}

bool TreeItem::setErrorCode(int column, const QVariant& value)
{
    if (!contains(ecData, column))
        return false;
    ecData[column] = value;
    return true;
}

bool TreeItem::setData(TreeModel* /*model*/, const QModelIndex& index, const QVariant& value)
{
    const int column = index.column();
    if (!contains(itemData, column) || !value.canConvert<QString>())
        return false;
    if (itemData.at(column).toString() == value.toString())
        return false;
    return setData(column, value);
}

bool TreeItem::undoredo_setData(TreeModel* model, const QModelIndex& index, const QVariant& value)
{
    const int column = index.column();
    if (!contains(itemData, column))
        return false;
    if (!value.canConvert<QString>()) {
        if (value.canConvert<pANTLR3_BASE_TREE>())
            setData(column, value);
        return true;
    }
    const QString before = itemData.at(column).toString();
    const QString after = value.toString();
    // A null string: the file has no such cell; not editable.
    if (before.isNull() || before == after)
        return false;
    QUndoStack* const undoStack = editorAccess().activeUndoStack();
    if (undoStack == nullptr || EditorUndoCommand::isRunning())
        return false;
    undoStack->push(new EditorUndoCommand(model, index, before, after));
    return true;
}

void TreeItem::setDirty()
{
    dirty = true;
}

void TreeItem::clrDirty()
{
    dirty = false;
}

quint64 TreeItem::identity() const
{
    return m_identity;
}

void TreeItem::setIdentity(quint64 identity)
{
    m_identity = identity;
}
