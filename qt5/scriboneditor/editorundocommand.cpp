#include "editorundocommand.h"

#include "treemodel.h"

EditorUndoCommand::EditorUndoCommand(TreeModel* model, const QModelIndex& index,
                                     const QString& text, const QString& redoText,
                                     QUndoCommand* parent)
    : QUndoCommand(parent),
      m_model(model),
      m_index(index),
      m_row(0),
      m_start_col(0),
      m_end_col(0),
      m_cmd(udata),
      m_text(text),
      m_redoText(redoText),
      m_indexIdentity(model->rowIdentity(index)),
      m_indexRow(index.row()),
      m_indexColumn(index.column())
{
}

EditorUndoCommand::EditorUndoCommand(TreeModel* model, const QModelIndex& index, int row,
                                     int startCol, int endCol, ur_command cmd, QUndoCommand* parent)
    : QUndoCommand(parent),
      m_model(model),
      m_index(index),
      m_row(row),
      m_start_col(startCol),
      m_end_col(endCol),
      m_cmd(cmd),
      m_indexIdentity(model->rowIdentity(index)),
      m_indexRow(index.row()),
      m_indexColumn(index.column())
{
    if (m_cmd == uremoveRow && m_index.isValid())
        m_redotext_lst = rowTexts();
}

namespace {

int runningCommands = 0;

class Running {
public:
    Running() { ++runningCommands; }
    ~Running() { --runningCommands; }

private:
    Q_DISABLE_COPY(Running)
};

}  // namespace

bool EditorUndoCommand::isRunning()
{
    return runningCommands > 0;
}

void EditorUndoCommand::redo()
{
    const Running running;
    doAgain();
}

void EditorUndoCommand::undo()
{
    const Running running;
    takeBack();
}

void EditorUndoCommand::doAgain()
{
    findCell();
    if (!m_index.isValid())
        return;
    switch (m_cmd) {
        case udata:
            if (!m_redoText.isEmpty())
                m_model->setData(m_index, m_redoText, Qt::EditRole);
            break;
        case uaddRow:
            addRow();
            break;
        case uremoveRow:
            removeRow();
            break;
    }
}

void EditorUndoCommand::takeBack()
{
    if (m_cmd == uremoveRow) {
        restoreRow();
        return;
    }
    findCell();
    if (!m_index.isValid())
        return;
    if (m_cmd == udata)
        m_model->setData(m_index, m_text, Qt::EditRole);
    else
        takeAddedRow();
}

void EditorUndoCommand::findCell()
{
    if (!m_index.isValid())
        m_index = m_model->cellOfRow(m_indexIdentity, m_indexColumn, m_indexRow);
}

QModelIndex EditorUndoCommand::ownRow() const
{
    return m_model->index(m_row, 0, m_index.parent());
}

QModelIndex EditorUndoCommand::changedCell() const
{
    if (m_cmd == udata)
        return m_index;
    const bool done = m_cmd == uremoveRow ? m_removed : m_index.isValid();
    const int row = qMin(m_row, m_model->rowCount() - 1);
    return done ? m_model->index(row, m_indexColumn) : QModelIndex();
}

// The text of an unset cell, or of a column that the row does not have, is empty.
QStringList EditorUndoCommand::rowTexts() const
{
    QStringList texts;
    for (int column = m_start_col; column <= m_end_col; ++column)
        texts.append(m_index.sibling(m_row, column).data(Qt::DisplayRole).toString());
    return texts;
}

void EditorUndoCommand::setText(int column, const QString& text)
{
    m_model->setData(m_model->index(m_row, column, m_index.parent()), text, Qt::EditRole);
}

// New cells hold a blank, since a cell that never had a value is not editable.
void EditorUndoCommand::addRow()
{
    m_model->insertRows(m_row, 1, m_index.parent());
    identifyAddedRow();
    for (int column = m_start_col; column <= m_end_col; ++column)
        setText(column, m_redotext_lst.value(column, QStringLiteral(" ")));
}

// The first redo makes a new row; later ones restore the row that undo removed.
void EditorUndoCommand::identifyAddedRow()
{
    if (m_rowIdentity == 0)
        m_rowIdentity = m_model->rowIdentity(ownRow());
    else
        m_model->setRowIdentity(ownRow(), m_rowIdentity);
}

// Existing behaviour, kept for compatibility: the texts are appended to those of an earlier undo,
// so redo restores the row as it was at the first undo.
void EditorUndoCommand::takeAddedRow()
{
    m_redotext_lst += rowTexts();
    m_model->removeRows(m_row, 1, m_index.parent());
}

void EditorUndoCommand::removeRow()
{
    m_text_lst = rowTexts();
    s_index = m_index.sibling(m_row - 1, 0);
    m_rowIdentity = m_model->rowIdentity(ownRow());
    m_removed = m_model->removeRows(m_row, 1, m_index.parent());
}

void EditorUndoCommand::restoreRow()
{
    if (!m_removed)
        return;
    m_model->insertRows(m_row, 1, s_index.parent());
    m_index = m_model->index(m_row, 0, s_index.parent());
    m_model->setRowIdentity(m_index, m_rowIdentity);
    const int columns = m_model->columnCount(m_index);
    for (int column = m_start_col; column < columns; ++column)
        setText(column, m_redotext_lst.value(column));
}
