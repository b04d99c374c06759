// What rows and models get in a program without a main window: an undo stack if it sets one, black
// for wrong cells, no keyword help and no statistical members.
#pragma once

#include "editor_access.h"

class WindowlessAccess final : public EditorAccess {
public:
    WindowlessAccess();

    // Not owned.
    void setActiveUndoStack(QUndoStack* stack);

    QUndoStack* activeUndoStack() override;
    const preference_results& preferences() override;
    QString keywordHelp(const QString& keyword) override;
    const QStringList& statisticalMembers() override;
    QWidget* dialogParent() override;

private:
    QUndoStack* m_undoStack = nullptr;
    preference_results m_preferences;
    QStringList m_statisticalMembers;
};
