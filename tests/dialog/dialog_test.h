// Tests of the variable dialog: a platform of their own, and dialogs as the editor opens them, over
// a parent that is on the screen.
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
    // Makes the dialog, but does not show it yet.
    VariableSelectionDialog& make(int filter, const QString& optionalData = {},
                                  const QModelIndex& index = {});

    // Shows the dialog that was made last as the editor does: its line holds the cell's text
    // before.
    void show(const QString& cellText = {});

    // Makes and shows one.
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

    // Replaces what stands in the variable's line, key by key.
    void type(const QString& text);

    std::unique_ptr<LivePlatform> m_platform;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<VariableSelectionDialog> m_dialog;
};
