// The item model of one tab: its rows, headers and validators, and the flags that tell whether the
// rows differ from the file and must be validated again.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QRegExp>
#include <QRegExpValidator>
#include <QStringList>
#include <QUndoStack>
#include <QVariant>
#include <array>
#include <functional>
#include <memory>

#include "editor_antlr3.h"
#include "specencoding.h"
#include "validatorformat.h"

class TreeItem;

// The number of columns of each tab, and five headers for each tab; a null pointer is an empty
// header. The blanks and line breaks in the headers are part of them and set the minimum width.
constexpr int HEADER_SLOTS = 5;
constexpr int HEADER_COUNT = TAB_COUNT * HEADER_SLOTS;
extern const std::array<int, TAB_COUNT> NumberOfColumns;
extern const std::array<const char*, HEADER_COUNT> TableHeaders;

// The translated headers of a tab, EDIT_TAB1 to EDIT_TAB5.
QStringList headersOf(int tab);

// The tab of a model, EDIT_TAB1 to EDIT_TAB5, by its object name; 0 if the name is another one.
int tabOfModel(const QAbstractItemModel* model);

class TreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    // Loads the rows of tab `tab` (EDIT_TAB1 to EDIT_TAB5) from the tree, which is not needed any
    // more afterwards; a null tree gives no rows. The model has one column for each header.
    TreeModel(const QStringList& headers, pANTLR3_BASE_TREE tree, ANTLR3_UINT32 tab,
              QObject* parent = nullptr);
    ~TreeModel() override;

    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                       int role = Qt::EditRole) override;

    // Looks for texts like QAbstractItemModel. A search from QTreeView, for what the user types,
    // also finds the beginning of a text as it is shown, and no placeholder.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith |
                                                                Qt::MatchWrap)) const override;

    // Calls visit(row, column, text) for each cell, in the order of rows and columns.
    void visitTexts(
        const std::function<void(int row, int column, const QString& text)>& visit) const;

    // Stores a text without an undo command: for the undo commands themselves.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    // Stores a text by a command on the active undo stack: for edits by the user. Does nothing
    // while a command is being undone or redone.
    bool undoredo_setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole);

    // An invalid range changes nothing and emits no signal. insertRows() does not set the modified
    // flag, removeRows() does: an inserted row gets its texts by setData(), which sets it.
    bool insertRows(int position, int rows, const QModelIndex& parent = QModelIndex()) override;
    bool removeRows(int position, int rows, const QModelIndex& parent = QModelIndex()) override;
    bool insertColumns(int position, int columns,
                       const QModelIndex& parent = QModelIndex()) override;
    bool removeColumns(int position, int columns,
                       const QModelIndex& parent = QModelIndex()) override;

    // The number of the cell's row (see TreeItem); 0 for an invalid index. The undo commands give
    // a restored row the number of the removed one.
    quint64 rowIdentity(const QModelIndex& index) const;
    void setRowIdentity(const QModelIndex& index, quint64 identity);

    // The cell of the row with this number; invalid if there is none. Checks row `expectedRow`
    // first; otherwise the search is linear in the number of rows.
    QModelIndex cellOfRow(quint64 identity, int column, int expectedRow) const;

    // A cell's error code; an invalid variant before the first validation. Setting it changes no
    // flag, and the next validation of the cell replaces it.
    QVariant errorCode(const QModelIndex& index) const;
    bool setErrorCode(const QModelIndex& index, const QVariant& value) const;

    // Emits dataChanged() for the cell.
    void m_dataChanged(const QModelIndex& index);

    // Appends specText() to the file (name in the local 8-bit encoding), encoded as encoding() says
    // or, where a text cannot be, in the local encoding. Silent when the file cannot be opened or
    // written.
    void dump_to_file(char* filename);

    // The rows as spec file text.
    QString specText() const;

    // The encoding of the file that the rows were read from. The five models of a document must be
    // given the same encoding before they are saved.
    SpecEncoding encoding() const;
    void setEncoding(SpecEncoding encoding);

    int getErrorCount() const;
    void clearErrorCount();

    // Calls visit(row, column) for each wrong cell, in the order of rows and columns. Rows in which
    // the last validation counted no error are left out: their cells may still have old codes.
    void visitErrors(const std::function<void(int row, int column)>& visit) const;

    // Whether the row is a comment of the Keywords tab. Works while a file is loading.
    bool isComment(int row) const;

    // What is wrong with the cell, in one line; empty if nothing is.
    QString errorText(const QModelIndex& index) const;

    // Whether the rows have been changed since the last load or save.
    bool isModified() const;
    void setModified();
    void clrModified();

    // Whether the rows must be validated again.
    bool isDirty() const;
    void setDirty();

    // Validates the tab if it is dirty: sets the error codes and counts the errors. Uses only the
    // texts of the rows, so it works while a file is loading.
    void validate_model();

Q_SIGNALS:
    // Error codes have changed, so the views must repaint.
    void codesChanged() const;

private:
    void setupModelData(pANTLR3_BASE_TREE bTree, TreeItem* parent);
    TreeItem* getItem(const QModelIndex& index) const;
    void markChanged();
    QVariant colour(const QModelIndex& index) const;
    bool hasArrow(const QModelIndex& index) const;
    bool keywordHasArrow(const QModelIndex& index) const;
    bool entryHasArrow(const QModelIndex& index, int tab) const;
    QVariant decoration(const QModelIndex& index) const;
    QVariant keywordToolTip(const QModelIndex& index) const;
    QVariant toolTip(const QModelIndex& index) const;

    bool startPass();
    bool startListPass(int keywordEditor);

    // Validates the rows from `first` on: judges the changed ones and compares the texts of all.
    template <typename JudgeRow, typename IsDuplicate>
    void validateRows(int first, JudgeRow judgeRow, IsDuplicate isDuplicate);

    // Validates a list, in which row 0 holds the keyword of the section.
    template <typename JudgeEntry>
    void validateList(int keywordEditor, JudgeEntry judgeEntry);
    void validate_tab1();
    void validate_tab2();
    void validate_tab3();
    void validate_tab4();
    void validate_tab5();

    std::unique_ptr<TreeItem> rootItem;
    pANTLR3_BASE_TREE rootTree = nullptr;
    ANTLR3_UINT32 tabIndexNumber;
    SpecEncoding specEncoding = SpecEncoding::Local;
    bool modified = false;
    bool dirty = false;
    mutable bool touched = true;  // rows or error codes have changed since the last validation
    QUndoStack undoStack;
    std::array<std::unique_ptr<QRegExp>, VALIDATOR_COUNT> regExpVF;
    mutable QIcon arrowIcon;  // loaded at its first use
    FormatValidators de_validator;
    int errorCount = 0;
};
