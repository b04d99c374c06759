// Scrolls a table to what Undo and Redo have changed in it. The selection and the current cell stay
// as they are.
#pragma once

#include <QModelIndex>

class QTreeView;
class QUndoStack;

// What the last undo or redo of the stack has changed, which they return. Nothing happens if that
// is not a cell of the view's model, or without a stack or a view: then the index is invalid.
QModelIndex showUndone(const QUndoStack* stack, QTreeView* view);
QModelIndex showRedone(const QUndoStack* stack, QTreeView* view);
