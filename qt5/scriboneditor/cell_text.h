// Helpers with which the delegate reads and stores the text of cells.
#pragma once

#include <QModelIndex>
#include <QString>

#include "editor_types.h"
#include "textjudge.h"
#include "treemodel.h"

inline QString textOf(const QModelIndex& index)
{
    return index.data(Qt::EditRole).toString();
}

inline int editorTypeOf(const QModelIndex& index)
{
    return classify(textOf(index));
}

// Whether a row of this type has no keyword in column 0.
inline bool isFreeText(int editorType)
{
    return editorType == TEXT_BLOCK || editorType == COMMENT_LINE;
}

// Sets the value by a command on the active undo stack. Does nothing if model is not a TreeModel.
inline void store(QAbstractItemModel* model, const QModelIndex& index, const QVariant& value)
{
    if (auto* const treeModel = qobject_cast<TreeModel*>(model))
        treeModel->undoredo_setData(index, value, Qt::EditRole);
}

// Resets the error code of a cell before its value is replaced.
inline void clearMark(QAbstractItemModel* model, const QModelIndex& index)
{
    if (auto* const treeModel = qobject_cast<TreeModel*>(model))
        treeModel->setErrorCode(index, DE_NOERROR);
}
