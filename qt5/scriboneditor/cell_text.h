// Cells as the editors of the tabs read and write them.
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

// What kind of editor a text calls for; its token goes to *tok_type.
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

// Of a row that no keyword rules.
inline bool isFreeText(int editorType)
{
    return editorType == TEXT_BLOCK || editorType == COMMENT_LINE;
}

// Through the active undo stack; nothing for a model of another kind.
inline void store(QAbstractItemModel* model, const QModelIndex& index, const QVariant& value)
{
    if (auto* const treeModel = qobject_cast<TreeModel*>(model))
        treeModel->undoredo_setData(index, value, Qt::EditRole);
}

// Takes the mark off a cell whose value is about to be replaced.
inline void clearMark(QAbstractItemModel* model, const QModelIndex& index)
{
    if (auto* const treeModel = qobject_cast<TreeModel*>(model))
        treeModel->setErrorCode(index, DE_NOERROR);
}
