// How cells look and how they are edited. One class for all cells of all tabs; it holds no state
// and takes the tab from the object name of the model behind the index, "Model13" to "Model17".
// What the user enters goes to the model as commands on the active undo stack.
#pragma once

#include <QStringList>
#include <QStyledItemDelegate>
#include <cstddef>

#include "marvane_headers.h"

class QComboBox;

class Antlr3_BaseTreeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Marks a wrong cell with the error icon at its right; draws nothing while a file is loading.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    // What a cell's text reads like: a keyword by its display name, a placeholder as nothing.
    QString displayText(const QVariant& value, const QLocale& locale) const override;

    // At least 40 pixels high.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Null for a cell that cannot be edited. Dialogs belong to the main window, other editors to
    // the parent; the view deletes either.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

    // The cell, or more to the right and downwards where the editor needs it.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

public Q_SLOTS:
    // Each ends the edit of the editor that sends the signal, and first takes its value over; a
    // sender of another class is none. The dialogs' values are taken over only when accepted.
    void commitAndCloseEditor();
    void sbCommitAndCloseEditor();
    void commitAndCloseEditor(int index);
    void vsCommitAndCloseEditor(int rc);
    void cbCommitAndCloseEditor();
    void asamCommitAndCloseEditor(int rc);

    // Return ends the edit in a cell and does nothing in a dialog; a dialog also stays open when
    // it loses the focus.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
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

    // Offers the keywords that no other row has.
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

    // The display name of the first keyword that agrees with the first `length` bytes of the text,
    // so the beginning of a keyword has one too; empty for none.
    QString convertKeywordText(const char* value, size_t length) const;

    // Declared only: an interval is edited as one text, its units in brackets.
    QWidget* interval_w_units_editor(QWidget* the_parent, const QModelIndex& index) const;

    // A line edit whose cell is marked while its text does not match the format; the length does
    // not limit it.
    QWidget* get_line_editor(QWidget* parent, const char* format, unsigned int length,
                             const char* message, const QModelIndex& index) const;
    QWidget* integer_editor(QWidget* the_parent, int minValue, int maxValue) const;

    // The platform's keywords for the variable of this label that no other row has, in the order
    // of the platform's table; none without a keyword area.
    QStringList PAM_Keywords(const QString& label, const QModelIndex& index) const;
    QStringList Chan_Keywords(const QString& label, const QModelIndex& index) const;
    QStringList mPAM_Keywords(const QString& label, const QModelIndex& index,
                              int keywordType) const;

    template <typename Editor>
    void endEdit(bool commit);
    QWidget* keywordEditor(QWidget* the_parent, const QModelIndex& index) const;
    QWidget* keywordValueEditor(QWidget* the_parent, const QModelIndex& index) const;
    QWidget* variableEditor(const QModelIndex& index, int type, const char* optionalData) const;
    QWidget* statMemberEditor(QWidget* the_parent) const;
    QWidget* listKeywordEditor(QWidget* the_parent, const QStringList& keywords) const;
    QWidget* asamEditor(const QModelIndex& index) const;
};

// The platform's keywords; null until they are first asked for, and then attached to the end of the
// process.
extern const KEYWORD_MEMORY* Keyword_memory;
