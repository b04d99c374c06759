// The dialog that changes the editor's font, its size and the colour of wrong cells.
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
    // The dialog opens over its parent.
    explicit Preferences(QWidget* parent = nullptr);
    ~Preferences() override;

    // Shows the user's choices as they are.
    void setDefaults(const preference_results& prefs);

    // Puts the editor's font, its size and the colour in their places, and leaves the rest. The
    // font itself does not have that size yet.
    void getResults(preference_results* prefs) const;

Q_SIGNALS:
    void closeDialog();
    void mapParent();
    void finishedSetup();  // for who derives from the dialog; it has nothing to set up later itself

protected:
    // Both without the base class's part, which would centre the dialog.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

protected Q_SLOTS:
    void setColor();
    void mapDialog();
    void sendMapParent();

private:
    void showColor();

    std::unique_ptr<Ui::Preferences> ui;
    preference_results m_defaults;  // the colour alone: chosen, but not yet anyone's
};
