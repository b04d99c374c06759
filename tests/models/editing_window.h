// A main window beside a platform of its own, whose undo group works on a stack of the test's own.
#pragma once

#include <QUndoGroup>
#include <QUndoStack>

#include "desk_process.h"
#include "mainwindow.h"
#include "marvane_headers.h"

// Without a platform the window's constructor would end the test as if it had passed.
class EditingWindow {
public:
    EditingWindow() : m_window(withPlatform(&m_desk))
    {
        m_window.undoGroup->addStack(&m_stack);
        m_window.undoGroup->setActiveStack(&m_stack);
    }

    QUndoStack* stack() { return &m_stack; }

private:
    // The parent of a window that may be built now: none.
    static QWidget* withPlatform(DeskProcess* desk)
    {
        if (!desk->startWith(R"({"areas": {}})"))
            qFatal("The platform did not start.");
        marvane_init_fn(1);
        return nullptr;
    }

    DeskProcess m_desk;
    QUndoStack m_stack;
    MainWindow m_window;
};
