#include "rowclipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QMainWindow>
#include <QShortcut>
#include <QStatusBar>
#include <QTabWidget>
#include <QUndoStack>
#include <utility>

#include "cell_edits.h"
#include "cell_text.h"
#include "delimitedtext.h"
#include "editor_access.h"
#include "editorundocommand.h"
#include "pastedrows.h"
#include "shown_text.h"
#include "statusmessage.h"
#include "tableview.h"
#include "treeitem.h"

namespace {

constexpr int DONE_SHOWN_MS = 2000;
constexpr int REFUSAL_SHOWN_MS = 10000;

// Far more than the largest table that is taken; a longer text is not even divided into fields.
constexpr int MAX_TEXT_LENGTH = 8 * 1024 * 1024;

// A keyword as it stands in the file, so that it can be pasted.
QString copiedText(const QModelIndex& cell)
{
    const QString text = textOf(cell);
    return showsNothing(text) ? QString() : text.trimmed();
}

}  // namespace

RowClipboard::RowClipboard(QMainWindow* window, QTabWidget* tabs, const Views& views,
                           Prepare prepare)
    : QObject(window), m_window(window), m_tabs(tabs), m_views(views), m_prepare(std::move(prepare))
{
    addShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_C, &RowClipboard::copyRow);
    addShortcut(Qt::CTRL + Qt::Key_V, &RowClipboard::paste);
}

// A line edit that has the focus takes Ctrl+V for itself before it becomes a shortcut.
void RowClipboard::addShortcut(int keys, void (RowClipboard::*action)())
{
    auto* const shortcut = new QShortcut(QKeySequence(keys), m_window);
    connect(shortcut, &QShortcut::activated, this, action);
}

TableView* RowClipboard::view() const
{
    return m_views[static_cast<size_t>(m_tabs->currentIndex())];
}

TreeModel* RowClipboard::model() const
{
    return static_cast<TreeModel*>(view()->model());
}

// False while an editor in a cell has the focus: the keys are meant for it.
bool RowClipboard::isReady()
{
    if (view()->viewport()->isAncestorOf(QApplication::focusWidget()))
        return false;
    return m_prepare() && editorAccess().activeUndoStack() != nullptr;
}

// Invalid in the hidden row that holds the keyword of a list.
QModelIndex RowClipboard::currentCell() const
{
    const QModelIndex cell = view()->currentIndex();
    return cell.isValid() && !view()->isRowHidden(cell.row(), {}) ? cell : QModelIndex();
}

void RowClipboard::refuse(const QString& reason)
{
    showFitting(m_window->statusBar(), reason, REFUSAL_SHOWN_MS);
}

// ---- Copying -----------------------------------------------------------------------------------

void RowClipboard::copyRow()
{
    if (!isReady())
        return;
    const QModelIndex cell = currentCell();
    if (!cell.isValid()) {
        refuse(tr("No row is selected"));
        return;
    }
    QStringList fields;
    for (int column = firstColumnOf(tabOfModel(model())); column < model()->columnCount(); ++column)
        fields.append(copiedText(cell.siblingAtColumn(column)));
    QApplication::clipboard()->setText(lineOf(fields));
    m_window->statusBar()->showMessage(tr("Row copied"), DONE_SHOWN_MS);
}

// ---- Pasting -----------------------------------------------------------------------------------

void RowClipboard::paste()
{
    if (!isReady())
        return;
    const QString text = QApplication::clipboard()->text();
    if (text.size() > MAX_TEXT_LENGTH) {
        refuse(tooLong(text.size()));
        return;
    }
    const QVector<QStringList> lines = fieldsOf(text);
    const QString field = onlyField(lines);
    if (field.isNull())
        pasteRows(lines);
    else
        pasteIntoCell(field);
}

// A cell that never had a value takes no edit.
void RowClipboard::pasteIntoCell(const QString& text)
{
    const QModelIndex cell = currentCell();
    const QString stored = pastedText(cell, text);
    if (!cell.isValid())
        refuse(tr("No cell is selected"));
    else if (!opensEditor(cell) || textOf(cell).isNull())
        refuse(tr("The cell has no editor: not pasted"));
    else if (stored.isEmpty())
        refuse(tr("Nothing to paste"));
    else if (stored.size() > MAX_PASTED_LENGTH)
        refuse(tooLong(stored.size()));
    else
        model()->undoredo_setData(cell, stored);
}

void RowClipboard::pasteRows(const QVector<QStringList>& lines)
{
    const PastedRows pasted = pastedRows(tabOfModel(model()), lines);
    if (!pasted.refusal.isEmpty()) {
        refuse(pasted.refusal);
        return;
    }
    if (pasted.rows.isEmpty() || model()->rowCount() == 0) {
        refuse(tr("Nothing to paste"));
        return;
    }
    insertRows(pasted.rows, qMax(view()->currentIndex().row(), 0) + 1);
    const int count = pasted.rows.size();
    m_window->statusBar()->showMessage(
        count == 1 ? tr("1 row pasted") : tr("%1 rows pasted").arg(count), DONE_SHOWN_MS);
}

// The last new row becomes the current one, so that the next paste goes on below it.
void RowClipboard::insertRows(const QVector<QStringList>& rows, int row)
{
    QUndoStack* const stack = editorAccess().activeUndoStack();
    stack->beginMacro(QString());
    for (int i = 0; i < rows.size(); ++i)
        insertRow(rows[i], row + i);
    stack->endMacro();
    const QModelIndex last =
        model()->index(row + rows.size() - 1, firstColumnOf(tabOfModel(model())));
    view()->selectionModel()->setCurrentIndex(last, QItemSelectionModel::ClearAndSelect);
    model()->validate_model();
}

void RowClipboard::insertRow(const QStringList& texts, int row)
{
    const QModelIndex above = model()->index(row - 1, 0);
    const int lastColumn = model()->columnCount() - 1;
    editorAccess().activeUndoStack()->push(
        new EditorUndoCommand(model(), above, row, 0, lastColumn, uaddRow));
    const int first = firstColumnOf(tabOfModel(model()));
    for (int i = 0; i < texts.size(); ++i) {
        if (!texts[i].isEmpty())
            model()->undoredo_setData(model()->index(row, first + i), texts[i]);
    }
}
