// What rows, models, undo commands and cell editors use of the program around them. The main window
// provides it; where there is none, a WindowlessAccess does.
#pragma once

#include <QString>
#include <QStringList>

#include "preference_results.h"

class QUndoStack;
class QWidget;

// Callers own nothing of what they get.
class EditorAccess {
public:
    virtual QUndoStack* activeUndoStack() = 0;                // null: edits are refused
    virtual const preference_results& preferences() = 0;      // colour of wrong cells, cell font
    virtual QString keywordHelp(const QString& keyword) = 0;  // by lower case name without "@"
    virtual const QStringList& statisticalMembers() = 0;      // last entry empty: no member
    virtual QWidget* dialogParent() = 0;

protected:
    ~EditorAccess() = default;
};

EditorAccess& editorAccess();

// Not owned; null goes back to a WindowlessAccess without an undo stack.
void setEditorAccess(EditorAccess* access);

// Nonzero while New or Open loads a file: TreeModel::data() returns nothing and the delegate paints
// nothing meanwhile, so that no half-built model is shown.
extern int LoadingFile;
