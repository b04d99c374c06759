// Base class of the tests of editing: a visible window with a document, and functions that act like
// the user. Keys go to the widget that has the focus.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "antlr3_basetreedelegate.h"
#include "asamspecs_select.h"
#include "combo_items.h"
#include "spec_document.h"
#include "variableselectiondialog.h"
#include "window_test.h"

enum class Way { DoubleClick, EditKey };

// A cell in a test's data: a column of the row that has the text `key` in column `keyColumn`.
struct Place {
    int tab;
    int keyColumn;
    const char* key;
    int column;
};

Q_DECLARE_METATYPE(Way)
Q_DECLARE_METATYPE(Place)

class EditingTest : public WindowTest {
    Q_OBJECT

public:
    EditingTest() { Q_INIT_RESOURCE(scriboneditor); }

protected:
    // Loads the text and shows the window, with an asam3_specs file in /specs. Modal dialogs are
    // not answered any more, since a modal dialog is an editor then.
    void show(const QByteArray& text = fullSpec());

    // The index of a cell; tab is DE_TAB1 to DE_TAB5.
    QModelIndex cell(int tab, int row, int column) const;

    // Invalid if there is no such cell.
    QModelIndex cellAt(const Place& place) const;
    QModelIndex valueOf(const char* keyword, int column = 1) const;

    // The texts of all rows of all tabs.
    QStringList document() const;

    static QTreeView* viewAt(const QModelIndex& cell);
    static TreeModel* modelAt(const QModelIndex& cell);
    Antlr3_BaseTreeDelegate* delegateAt(const QModelIndex& cell) const;

    // Opens the cell's editor and waits until it has the focus. Null if none opens.
    QWidget* open(const QModelIndex& cell, Way way = Way::DoubleClick);

    template <typename Editor>
    Editor* openAs(const QModelIndex& cell)
    {
        return qobject_cast<Editor*>(open(cell));
    }

    // For tests with the data of addCellEditors(): opens the cell's editor and replaces its text.
    QModelIndex openFetchedAndType();

    // Null if the cell is not being edited.
    static QWidget* editorOf(const QModelIndex& cell);

    // The number of open editors in all tabs.
    int openEditors() const;

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void typeOver(const QString& text);

    // Opens the popup list of a combo box and picks the item, by keyboard.
    static void pick(QComboBox* comboBox, const QString& item);

    // Replaces the variable in the dialog by typing, and does not pick a completion.
    static void typeVariable(VariableSelectionDialog* dialog, const QString& name);

    QUndoStack* stack() const;

    // Saves the document and returns the bytes of the file.
    QByteArray saved();
};

// Converts a string literal.
QString text(const char* latin1);

// The dialog's child widget of this class and name, which must exist.
template <typename Part>
Part* partOf(const QWidget* dialog, const char* name)
{
    auto* const part = dialog->findChild<Part*>(QLatin1String(name));
    if (part == nullptr)
        qFatal("the dialog has no %s", name);
    return part;
}

// Clicks on the dialog's Ok button.
void acceptDialog(QDialog* dialog);
void cancelDialog(QDialog* dialog);

QString toolTipOf(const QComboBox* comboBox, const QString& item);
