// What the rows, models and cell editors use of the main window.

#include <QUndoGroup>

#include "editor_access.h"
#include "mainwindow.h"

namespace {

class WindowAccess final : public EditorAccess {
public:
    QUndoStack* activeUndoStack() override { return EditorMainWindow->undoGroup->activeStack(); }
    const preference_results& preferences() override { return EditorMainWindow->myPrefs; }
    const QStringList& statisticalMembers() override { return EditorMainWindow->statMemList; }
    QWidget* dialogParent() override { return EditorMainWindow; }

    // Existing behaviour, kept for compatibility: looking up an unknown keyword adds it to the
    // table.
    QString keywordHelp(const QString& keyword) override { return EditorMainWindow->hash[keyword]; }
};

}  // namespace

void MainWindow::setEditorMainWindow(MainWindow* window)
{
    static WindowAccess access;
    EditorMainWindow = window;
    setEditorAccess(window == nullptr ? nullptr : &access);
}
