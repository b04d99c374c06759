// The delegate of all five tabs: paints cells and creates their editors. It has no state; the tab
// follows from the object name of the index's model, "Model13" to "Model17". Edits go to the model
// as commands on the active undo stack.
#pragma once

#include <QStringList>
#include <QStyledItemDelegate>
#include <cstddef>

class QComboBox;
struct LineFormat;

class Antlr3_BaseTreeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Paints the error icon at the right of a wrong cell. Paints nothing while a file is loading.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    // A keyword's display name; empty for a placeholder ("FILLER_TXT"); other texts without a
    // leading blank.
    QString displayText(const QVariant& value, const QLocale& locale) const override;

    // The height is at least 40 pixels.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Null for a cell that cannot be edited. The parent of a dialog is the main window, that of
    // other editors is parent. The view deletes the editor in both cases.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

    // Sets the editor to the cell's rectangle, enlarged to the editor's size hint.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

public Q_SLOTS:
    // Commits and closes the sending editor; other senders are ignored. A dialog that was not
    // accepted is closed without a commit.
    void commitAndCloseEditor();
    void sbCommitAndCloseEditor();
    void commitAndCloseEditor(int index);
    void vsCommitAndCloseEditor(int rc);
    void cbCommitAndCloseEditor();
    void asamCommitAndCloseEditor(int rc);

    // Return commits and closes an editor in a cell; a dialog ignores it, and also stays open on
    // focus loss.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct TabFunctions;

    // Null if the model is not that of a tab.
    static const TabFunctions* functionsOf(const QAbstractItemModel* model);

    // These are called only for cells that have an editor.
    QWidget* createEditorTab1(QWidget* the_parent, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const;
    QWidget* createEditorTab2(QWidget* the_parent, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const;
    QWidget* createEditorTab3(QWidget* the_parent, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const;
    QWidget* createEditorTab4(QWidget* the_parent, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const;
    QWidget* createEditorTab5(QWidget* the_parent, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const;

    // Fills the combo box with the keywords that no other row has.
    void keywordComboBoxSetup(QComboBox* editor, const QModelIndex& index) const;

    void setModelDataTab1(QWidget* editor, QAbstractItemModel* model,
                          const QModelIndex& index) const;
    void setModelDataTab2(QWidget* editor, QAbstractItemModel* model,
                          const QModelIndex& index) const;
    void setModelDataTab3(QWidget* editor, QAbstractItemModel* model,
                          const QModelIndex& index) const;
    void setModelDataTab4(QWidget* editor, QAbstractItemModel* model,
                          const QModelIndex& index) const;
    void setModelDataTab5(QWidget* editor, QAbstractItemModel* model,
                          const QModelIndex& index) const;

    void setEditorDataTab1(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab2(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab3(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab4(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab5(QWidget* editor, const QModelIndex& index) const;

    void setModelDataTab1Col0(QWidget* editor, QAbstractItemModel* model,
                              const QModelIndex& index) const;
    void setModelDataTab1Col1(QWidget* editor, QAbstractItemModel* model,
                              const QModelIndex& index) const;
    void setModelDataTab1Col2(QWidget* editor, QAbstractItemModel* model,
                              const QModelIndex& index) const;

    void setEditorDataTab1Col0(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab1Col1(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab1Col2(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab2Col1(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab2Col2(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab2Col3(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab3Col1(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab3Col2(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab4Col1(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab4Col2(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab5Col1(QWidget* editor, const QModelIndex& index) const;
    void setEditorDataTab5Col2(QWidget* editor, const QModelIndex& index) const;

    QWidget* yesno_editor(QWidget* the_parent) const;

    // The display name of the first keyword that begins with the first `length` bytes of value;
    // empty if there is none.
    QString convertKeywordText(const char* value, size_t length) const;

    // Declared, but not defined: an interval is edited as one text, as in "1[sec]".
    QWidget* interval_w_units_editor(QWidget* the_parent, const QModelIndex& index) const;

    // A line edit whose cell is marked as wrong while the text does not match the regular
    // expression. length is not used.
    QWidget* get_line_editor(QWidget* parent, const char* format, unsigned int length,
                             const char* message, const QModelIndex& index) const;
    QWidget* integer_editor(QWidget* the_parent, int minValue, int maxValue) const;

    // The platform's keywords that fit the units of the variable of this label and that no other
    // row has, in the order of the platform's table. Empty if there is no keyword area.
    QStringList PAM_Keywords(const QString& label, const QModelIndex& index) const;
    QStringList Chan_Keywords(const QString& label, const QModelIndex& index) const;
    QStringList mPAM_Keywords(const QString& label, const QModelIndex& index,
                              int keywordType) const;

    // Closes the sender, after commitData() if commit is set. Ignored if it is not an Editor.
    template <typename Editor>
    void endEdit(bool commit);
    QWidget* keywordEditor(QWidget* the_parent, const QModelIndex& index) const;
    QWidget* keywordValueEditor(QWidget* the_parent, const QModelIndex& index) const;
    QWidget* secondValueEditor(QWidget* the_parent, const QModelIndex& index) const;
    QWidget* lineEditor(QWidget* the_parent, const LineFormat& line,
                        const QModelIndex& index) const;
    QWidget* variableEditor(const QModelIndex& index, int type, const char* optionalData) const;
    QWidget* statMemberEditor(QWidget* the_parent) const;
    QWidget* listKeywordEditor(QWidget* the_parent, const QStringList& keywords) const;
    QWidget* asamEditor(const QModelIndex& index) const;
};
