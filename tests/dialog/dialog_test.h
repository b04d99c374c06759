// Base class of the tests of VariableSelectionDialog: starts a platform, and opens dialogs over a
// visible parent as the delegate does.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QWidget>
#include <memory>

#include "combo_items.h"
#include "live_platform.h"
#include "variableselectiondialog.h"

class DialogTest : public QObject {
    Q_OBJECT

protected Q_SLOTS:
    virtual void init();
    virtual void cleanup();

protected:
    // Creates the dialog without showing it.
    VariableSelectionDialog& make(int filter, const QString& optionalData = {},
                                  const QModelIndex& index = {});

    // Shows the last dialog that was made, like the delegate: sets the cell's text as edit text
    // first.
    void show(const QString& cellText = {});

    // Creates a dialog and shows it.
    VariableSelectionDialog& open(int filter, const QString& cellText = {});

    VariableSelectionDialog& dialog() { return *m_dialog; }
    QComboBox& groups() const
    {
        return *m_dialog->findChild<QComboBox*>(QStringLiteral("groupComboBox"));
    }
    QComboBox& variables() const { return *m_dialog->variableComboBox(); }
    QComboBox& members() const { return *m_dialog->subComboBox(); }
    QComboBox& units() const { return *m_dialog->unitsComboBox(); }
    QPushButton& okButton() const
    {
        return *m_dialog->findChild<QPushButton*>(QStringLiteral("OkButton"));
    }
    QPushButton& cancelButton() const
    {
        return *m_dialog->findChild<QPushButton*>(QStringLiteral("Cancel"));
    }

    // Replaces the edit text of the variable combo box, by keyboard.
    void type(const QString& text);

    std::unique_ptr<LivePlatform> m_platform;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<VariableSelectionDialog> m_dialog;
};
