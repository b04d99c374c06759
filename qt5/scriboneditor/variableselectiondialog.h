// Dialog to pick a variable of the platform, with its member and units, or to type what some cells
// accept instead: a time interval, a path or a literal. It writes nothing to the model: the
// delegate reads its widgets once it is accepted.
#pragma once

#include <QDialog>
#include <QPersistentModelIndex>
#include <QString>
#include <QStringList>
#include <memory>

#include "dialog_place.h"
#include "memory_areas.h"
#include "variablemaplist.h"

class QComboBox;
class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class SortedNames;

namespace Ui {
class VariableSelectionDialog;
}

class VariableSelectionDialog : public QDialog, private MemoryAreas {
    Q_OBJECT

public:
    // For the cell at this index, which is marked as wrong while the optional line edit holds an
    // invalid text. optionalData is the label of that line edit and decides what it accepts
    // ("Interval", "Path", "Literal"); empty for none. Rebuilds Master_variables if it was made
    // with another filter, which ends the program if the platform does not run.
    VariableSelectionDialog(const QModelIndex& index, QWidget* parent,
                            QFlags<QT_MARVANE_FLAGS> type, const QString& optionalData,
                            const QString& inName);
    ~VariableSelectionDialog() override;

    QComboBox* variableComboBox() const;
    QComboBox* subComboBox() const;
    QComboBox* unitsComboBox() const;
    QLineEdit* lineEdit() const;

    // The cell's text without its units; set it before the dialog is shown.
    void setOrigVarName(const QString& name) { origVarName_ = name; }

    // The cell's units, cut to 16 bytes; set them before the dialog is shown.
    void setUnits(const QString& units);

    // The text of the optional line edit; empty if a variable is picked.
    void setOptionalText(const QString& text) { m_optionalText = text; }
    QString optionalText() const { return m_optionalText; }

    QString subText() const;

    // The units of the last variable that the platform found; empty if there was none.
    QString defaultUnits() const;

    // The index of the item whose Qt::UserRole data is the current text. Items have no such data,
    // so it is -1. Existing behaviour, kept for compatibility.
    int indexOfSelectedVarName() const;

Q_SIGNALS:
    void closeDialog();
    void mapParent();

protected Q_SLOTS:
    void groupIndexChanged(const QString& item);
    void variableEditTextChanged(const QString& stext);
    void mapDialog();
    void unitsIndexChanged(const QString& item);
    void lineEditTextChanged(const QString& lineValueText);

protected:
    // Do not call the base class.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    bool focusNextPrevChild(bool next) override;

private:
    void putProxyBehindVariables();
    void setupVariableLine();
    void setupOptionalLine(const QString& optionalData, const QModelIndex& index);
    void connectAll();
    void connectText(QComboBox* comboBox, void (VariableSelectionDialog::*slot)(const QString&));
    void refreshCatalogue();

    void takeKeyboard();
    void fillGroups();
    QStringList allVariables() const;
    void offerVariables(QStringList names);
    void sortInOwnName();
    void showOriginal();
    void showPlainOriginal();
    void showMember(const QString& variable, const QString& member);
    static bool showItem(QComboBox* comboBox, const QString& item, const QString& text);

    void takeDefaultUnits(const QString& stext);
    void offerMembers(const QStringList& members);
    void offerUnits();
    int indexOfUnits() const;

    std::unique_ptr<Ui::VariableSelectionDialog> ui;
    QT_MARVANE_VAR_TYPE varType;
    QString origVarName_;
    std::shared_ptr<const VariablesByGroup> variables;
    QStandardItemModel* m_names = nullptr;  // source model of proxy_
    QSortFilterProxyModel* proxy_ = nullptr;
    SortedNames* m_lookup = nullptr;  // proxy_ by its own type
    UNITS_NAME m_units{};
    UNITS_NAME default_units{};
    bool initializingClass = false;  // the slots do nothing while it is set
    QString m_optionalText;
    QPersistentModelIndex m_index;
    DialogPlace m_place{this};
};
