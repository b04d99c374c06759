// Picks a live variable, with its member and units where it has them, or what may stand in place of
// one in some cells: a time interval, a path, a literal. It shows what it is given and writes
// nothing: who opened it reads its fields once it is accepted.
#pragma once

#include <QDialog>
#include <QPersistentModelIndex>
#include <QString>
#include <QStringList>
#include <memory>

#include "memory_areas.h"
#include "variablemaplist.h"

class QComboBox;
class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;

namespace Ui {
class VariableSelectionDialog;
}

class VariableSelectionDialog : public QDialog, private MemoryAreas {
    Q_OBJECT

public:
    // For the cell of this index, which is marked while the optional line holds a wrong text.
    // optionalData is the label of that line, which also tells what it accepts; empty for none.
    // The catalogue is read anew if the current one was made with another filter; that ends the
    // program when the platform has gone away.
    VariableSelectionDialog(const QModelIndex& index, QWidget* parent,
                            QFlags<QT_MARVANE_FLAGS> type, const QString& optionalData,
                            const QString& inName);
    ~VariableSelectionDialog() override;

    QComboBox* variableComboBox() const;
    QComboBox* subComboBox() const;
    QComboBox* unitsComboBox() const;
    QLineEdit* lineEdit() const;

    // Before the dialog is shown: the text that the cell had, without its units.
    void setOrigVarName(const QString& name) { origVarName_ = name; }

    // Before the dialog is shown: the units of the cell, of which the first 16 bytes count.
    void setUnits(const QString& units);

    // What stands in place of a variable; empty for a variable.
    void setOptionalText(const QString& text) { m_optionalText = text; }
    QString optionalText() const { return m_optionalText; }

    QString subText() const;

    // Those of the variable in the line, as the platform told them last.
    QString defaultUnits() const;

    // The item whose data is the text in the line; -1 for none. The names have no data.
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
    // Both without the base class's part.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

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
    QStringList membersOf(const QString& stext) const;
    void offerMembers(const QStringList& members);
    void offerUnits();
    int indexOfUnits() const;

    std::unique_ptr<Ui::VariableSelectionDialog> ui;
    QT_MARVANE_VAR_TYPE varType;
    QString origVarName_;
    std::shared_ptr<const VariablesByGroup> variables;
    QStandardItemModel* m_names = nullptr;  // what variableComboBox holds, behind the proxy
    QSortFilterProxyModel* proxy_ = nullptr;
    int m_sortedNames = 0;
    UNITS_NAME m_units{};
    UNITS_NAME default_units{};
    bool initializingClass = false;  // the slots do nothing meanwhile
    QString m_optionalText;
    QPersistentModelIndex m_index;
};
