#include "windowless_access.h"

WindowlessAccess::WindowlessAccess()
{
    m_preferences.syntaxColor = Qt::black;
}

void WindowlessAccess::setActiveUndoStack(QUndoStack* stack)
{
    m_undoStack = stack;
}

QUndoStack* WindowlessAccess::activeUndoStack()
{
    return m_undoStack;
}

const preference_results& WindowlessAccess::preferences()
{
    return m_preferences;
}

QString WindowlessAccess::keywordHelp(const QString& /*keyword*/)
{
    return {};
}

const QStringList& WindowlessAccess::statisticalMembers()
{
    return m_statisticalMembers;
}

QWidget* WindowlessAccess::dialogParent()
{
    return nullptr;
}
