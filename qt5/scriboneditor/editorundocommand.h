// The one undo command: a cell's edit, a row's insertion or a row's removal. It performs the change
// itself, through the model's public operations, and keeps texts only.
#pragma once

#include <QPersistentModelIndex>
#include <QString>
#include <QStringList>
#include <QUndoCommand>

class TreeModel;

enum ur_command { udata = 0, uremoveRow = 1, uaddRow = 2 };

class EditorUndoCommand : public QUndoCommand {
public:
    // The edit of a cell from text to redoText. An empty redoText is a step that changes nothing: a
    // cell cannot be emptied by editing it.
    EditorUndoCommand(TreeModel* model, const QModelIndex& index, const QString& text,
                      const QString& redoText, QUndoCommand* parent = nullptr);

    // A row action on row `row` (uaddRow with index in the row before the new one, uremoveRow with
    // index in the row to remove), which keeps the texts of the columns startCol to endCol.
    EditorUndoCommand(TreeModel* model, const QModelIndex& index, int row, int startCol, int endCol,
                      ur_command cmd, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

    // Whether a command is at work. Nothing may go on a stack meanwhile: an editor whose row is
    // just being removed commits its value at that moment, and the stack would drop the very
    // command that it is carrying out.
    static bool isRunning();

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

    TreeModel* m_model;  // not owned; outlives the stack's commands
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

    // The cell of m_index. The index dies with its row, and comes to life again only when undo or
    // redo brings back that very row: an edit may be undone on another tab's stack at any time
    // between, when another row has taken its place.
    quint64 m_indexIdentity;
    int m_indexRow;
    int m_indexColumn;

    quint64 m_rowIdentity = 0;  // of the row that the command adds or removes, once it has
    bool m_removed = false;     // redo found the row to remove, so undo has one to bring back
};
