// Helpers with which the delegate reads and stores the text of cells.
#pragma once

#include <QByteArray>
#include <QModelIndex>
#include <QString>

#include "editor_antlr3.h"
#include "treeitem.h"
#include "treemodel.h"

inline QString textOf(const QModelIndex& index)
{
    return index.data(Qt::EditRole).toString();
}

// The type of editor for a text. Stores the type of its first token in *tok_type unless that is
// null.
inline int editorTypeOf(const QString& text, int* tok_type = nullptr)
{
    const QByteArray bytes = text.toUtf8();
    int token = 0;
    const int type = appGrammerTypeToEditorType(bytes.constData(), bytes.size(), &token);
    if (tok_type != nullptr)
        *tok_type = token;
    return type;
}

inline int editorTypeOf(const QModelIndex& index)
{
    return editorTypeOf(textOf(index));
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
