// A main window whose undo group works on a stack of the test's own.
#pragma once

#include <QUndoGroup>
#include <QUndoStack>

#include "mainwindow.h"

class EditingWindow {
public:
    EditingWindow()
    {
        m_window.undoGroup->addStack(&m_stack);
        m_window.undoGroup->setActiveStack(&m_stack);
    }

    QUndoStack* stack() { return &m_stack; }

private:
    QUndoStack m_stack;
    MainWindow m_window;
};
