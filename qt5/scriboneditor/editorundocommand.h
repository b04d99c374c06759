// The undo command for all changes: the edit of a cell, the insertion or the removal of a row. It
// uses the public functions of the model and stores only texts.
#pragma once

#include <QPersistentModelIndex>
#include <QString>
#include <QStringList>
#include <QUndoCommand>

class TreeModel;

enum ur_command { udata = 0, uremoveRow = 1, uaddRow = 2 };

class EditorUndoCommand : public QUndoCommand {
public:
    // The edit of a cell from text to redoText. Existing behaviour, kept for compatibility: an
    // empty redoText changes nothing, so an edit cannot empty a cell.
    EditorUndoCommand(TreeModel* model, const QModelIndex& index, const QString& text,
                      const QString& redoText, QUndoCommand* parent = nullptr);

    // A row action on row `row` (uaddRow with index in the row before the new one, uremoveRow with
    // index in the row to remove), which keeps the texts of the columns startCol to endCol.
    EditorUndoCommand(TreeModel* model, const QModelIndex& index, int row, int startCol, int endCol,
                      ur_command cmd, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

    // Whether a command is being executed. No command may be pushed meanwhile: an open editor
    // commits when its row is removed, and QUndoStack::push() would delete the command that is
    // running.
    static bool isRunning();

    // The cell that the last undo or redo has changed. For a row, a cell of it, or of the row that
    // has taken its place. Invalid if nothing was changed or the cell's row is removed.
    QModelIndex changedCell() const;

    // Whether it is a row action.
    bool changesRow() const { return m_cmd != udata; }

private:
    void doAgain();
    void takeBack();
    void findCell();
    QModelIndex ownRow() const;
    QStringList rowTexts() const;
    void setText(int column, const QString& text);
    void addRow();
    void identifyAddedRow();
    void takeAddedRow();
    void removeRow();
    void restoreRow();

    TreeModel* m_model;  // not owned; must outlive the command
    QPersistentModelIndex m_index;
    QPersistentModelIndex s_index;
    int m_row;
    int m_start_col;
    int m_end_col;
    ur_command m_cmd;
    QString m_text;
    QString m_redoText;
    QStringList m_text_lst;
    QStringList m_redotext_lst;

    // Where m_index was made. The index becomes invalid when its row is removed; it is made anew
    // only if undo or redo has restored that very row. Another row may have its place: an edit can
    // be on the undo stack of another tab.
    quint64 m_indexIdentity;
    int m_indexRow;
    int m_indexColumn;

    quint64 m_rowIdentity = 0;  // of the row that the command has added or removed
    bool m_removed = false;     // redo has removed a row, so undo can restore it
};
