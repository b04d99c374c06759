// What the tests of editing share: a shown window with a document, and the user's hands. Keys go to
// whatever has the keyboard, as the user's do.
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

// A cell as a test's data row names it: its column in the row that has the key in another column.
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
    // Loads the text and shows the window, beside an asam3_specs file. Nobody answers modal dialogs
    // from then on: the only one is an editor itself.
    void show(const QByteArray& text = fullSpec());

    // A cell by the number of its tab, DE_TAB1 to DE_TAB5.
    QModelIndex cell(int tab, int row, int column) const;

    // Invalid when there is none.
    QModelIndex cellAt(const Place& place) const;
    QModelIndex valueOf(const char* keyword, int column = 1) const;

    // The texts of all rows of all tabs.
    QStringList document() const;

    static QTreeView* viewAt(const QModelIndex& cell);
    static TreeModel* modelAt(const QModelIndex& cell);
    Antlr3_BaseTreeDelegate* delegateAt(const QModelIndex& cell) const;

    // Opens the cell's editor and waits until the user can type; null when none opens.
    QWidget* open(const QModelIndex& cell, Way way = Way::DoubleClick);

    template <typename Editor>
    Editor* openAs(const QModelIndex& cell)
    {
        return qobject_cast<Editor*>(open(cell));
    }

    // For a test whose data are those of addCellEditors(): opens the cell's editor and types over
    // its text.
    QModelIndex openFetchedAndType();

    // Null when the cell is not being edited.
    static QWidget* editorOf(const QModelIndex& cell);

    // In all tabs.
    int openEditors() const;

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void typeOver(const QString& text);

    // Picks the item by the keys in the list that a combo box drops down.
    static void pick(QComboBox* comboBox, const QString& item);

    // Puts the text in the dialog's variable line in place of what stands there, and picks none of
    // what is offered to complete it.
    static void typeVariable(VariableSelectionDialog* dialog, const QString& name);

    QUndoStack* stack() const;

    // What the file holds after the user saved.
    QByteArray saved();
};

// A text of a source file as a string.
QString text(const char* latin1);

// The widget of this kind and name in the dialog, which must have it.
template <typename Part>
Part* partOf(const QWidget* dialog, const char* name)
{
    auto* const part = dialog->findChild<Part*>(QLatin1String(name));
    if (part == nullptr)
        qFatal("the dialog has no %s", name);
    return part;
}

// By the mouse on the button.
void acceptDialog(QDialog* dialog);
void cancelDialog(QDialog* dialog);

QString toolTipOf(const QComboBox* comboBox, const QString& item);
