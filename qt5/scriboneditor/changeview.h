// Scrolls a table to what Undo and Redo have changed in it. The selection and the current cell stay
// as they are.
#pragma once

class QTreeView;
class QUndoStack;

// What the last undo or redo of the stack has changed. Nothing happens if that is not a cell of the
// view's model, or without a stack or a view.
void showUndone(const QUndoStack* stack, QTreeView* view);
void showRedone(const QUndoStack* stack, QTreeView* view);
