// The Preferences dialog: the editor's font, its size, and the colour of wrong cells.
#pragma once

#include <QDialog>
#include <memory>

#include "preference_results.h"

namespace Ui {
class Preferences;
}

class Preferences : public QDialog {
    Q_OBJECT

public:
    // The dialog opens at its parent's top left corner.
    explicit Preferences(QWidget* parent = nullptr);
    ~Preferences() override;

    // Shows these values. Call it before the dialog is shown.
    void setDefaults(const preference_results& prefs);

    // Sets the editor's font, its size and the colour; the other fields stay as they are. The size
    // is not applied to the font itself.
    void getResults(preference_results* prefs) const;

Q_SIGNALS:
    void closeDialog();
    void mapParent();
    void finishedSetup();  // never emitted; existing interface, kept for compatibility

protected:
    // Do not call the base class, whose showEvent() would move the dialog.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

protected Q_SLOTS:
    void setColor();
    void mapDialog();
    void sendMapParent();

private:
    void showColor();

    std::unique_ptr<Ui::Preferences> ui;
    preference_results m_defaults;  // only syntaxColor is used: picked, not yet accepted
};
