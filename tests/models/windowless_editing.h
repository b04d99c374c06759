// Edits in a program without a window: they go through an undo stack of the test's own.
#pragma once

#include <QUndoStack>

#include "windowless_access.h"

class WindowlessEditing {
public:
    WindowlessEditing()
    {
        setActiveStack(&m_stack);
        setEditorAccess(&m_access);
    }
    ~WindowlessEditing() { setEditorAccess(nullptr); }

    QUndoStack* stack() { return &m_stack; }

    // Not owned.
    void setActiveStack(QUndoStack* stack) { m_access.setActiveUndoStack(stack); }

private:
    Q_DISABLE_COPY(WindowlessEditing)

    QUndoStack m_stack;
    WindowlessAccess m_access;
};
