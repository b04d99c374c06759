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

QModelIndex showChange(const QUndoCommand* command, QTreeView* view)
{
    const EditorUndoCommand* const change = firstChange(command);
    const QModelIndex cell = change == nullptr ? QModelIndex() : change->changedCell();
    if (!cell.isValid() || cell.model() != view->model())
        return {};
    if (change->changesRow())
        scrollToRow(cell, view);
    else
        view->scrollTo(cell);
    return cell;
}

}  // namespace

QModelIndex showUndone(const QUndoStack* stack, QTreeView* view)
{
    if (stack == nullptr || view == nullptr)
        return {};
    return showChange(stack->command(stack->index()), view);
}

QModelIndex showRedone(const QUndoStack* stack, QTreeView* view)
{
    if (stack == nullptr || view == nullptr)
        return {};
    return showChange(stack->command(stack->index() - 1), view);
}
