#include "changeview.h"

#include <QScrollBar>
#include <QTreeView>
#include <QUndoStack>

#include "editorundocommand.h"

namespace {

// A macro has its changes as children; the first of them stands for all.
const EditorUndoCommand* firstChange(const QUndoCommand* command)
{
    while (command != nullptr && command->childCount() > 0)
        command = command->child(0);
    return dynamic_cast<const EditorUndoCommand*>(command);
}

// A row needs no scrolling to one of its columns.
void scrollToRow(const QModelIndex& cell, QTreeView* view)
{
    const int before = view->horizontalScrollBar()->value();
    view->scrollTo(cell);
    view->horizontalScrollBar()->setValue(before);
}

// QTreeView::scrollTo() ignores an invalid index and the cells of another tab's model.
void showChange(const QUndoCommand* command, QTreeView* view)
{
    const EditorUndoCommand* const change = firstChange(command);
    if (change == nullptr)
        return;
    if (change->changesRow())
        scrollToRow(change->changedCell(), view);
    else
        view->scrollTo(change->changedCell());
}

}  // namespace

void showUndone(const QUndoStack* stack, QTreeView* view)
{
    if (stack != nullptr && view != nullptr)
        showChange(stack->command(stack->index()), view);
}

void showRedone(const QUndoStack* stack, QTreeView* view)
{
    if (stack != nullptr && view != nullptr)
        showChange(stack->command(stack->index() - 1), view);
}
