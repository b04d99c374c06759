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
#include <memory>

#include "editor_antlr3.h"
#include "specencoding.h"
#include "textjudge.h"
#include "validatorformat.h"

class TreeItem;

// Columns of each tab, and five header slots a tab; a null slot is an empty header. Padding blanks
// and line breaks give the columns their first width.
constexpr int HEADER_SLOTS = 5;
constexpr int HEADER_COUNT = TAB_COUNT * HEADER_SLOTS;
extern const std::array<int, TAB_COUNT> NumberOfColumns;
extern const std::array<const char*, HEADER_COUNT> TableHeaders;

// Which tab a model is, EDIT_TAB1 to EDIT_TAB5, by its object name; 0 for a model that is no tab's.
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

    // Stores a text at once, past the undo stack: for the undo commands.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    // Stores a text through a command on the active undo stack: for edits by the user. Does nothing
    // while another command is at work.
    bool undoredo_setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole);

    // A range that does not fit in changes nothing and sends no signal. Inserting rows leaves the
    // document unmodified, removing them does not: the texts that follow an insertion do the rest.
    bool insertRows(int position, int rows, const QModelIndex& parent = QModelIndex()) override;
    bool removeRows(int position, int rows, const QModelIndex& parent = QModelIndex()) override;
    bool insertColumns(int position, int columns,
                       const QModelIndex& parent = QModelIndex()) override;
    bool removeColumns(int position, int columns,
                       const QModelIndex& parent = QModelIndex()) override;

    // What tells the cell's row from every other; 0 for an invalid index. A row that undo or redo
    // brings back is given that of the row that it replaces.
    quint64 rowIdentity(const QModelIndex& index) const;
    void setRowIdentity(const QModelIndex& index, quint64 identity);

    // The cell of the row with this identity, invalid when there is none. Row `expectedRow` is
    // looked at first; if it is another one, the search is linear in the number of rows.
    QModelIndex cellOfRow(quint64 identity, int column, int expectedRow) const;

    // A cell's error code, an invalid variant before the first validation. Setting one changes no
    // flag; the next validation of the cell replaces it.
    QVariant errorCode(const QModelIndex& index) const;
    bool setErrorCode(const QModelIndex& index, const QVariant& value) const;

    // Tells the views that the cell looks different now.
    void m_dataChanged(const QModelIndex& index);

    // Appends specText() to the file (name in the local 8-bit encoding), encoded as encoding() says
    // or, where a text cannot be, in the local encoding. Silent when the file cannot be opened or
    // written.
    void dump_to_file(char* filename);

    // The rows as spec file text.
    QString specText() const;

    // That of the file that the rows were read from. A document is written in one encoding, so
    // whoever saves the five models gives all of them the same.
    SpecEncoding encoding() const;
    void setEncoding(SpecEncoding encoding);

    int getErrorCount() const;
    void clearErrorCount();

    // The rows differ from the file.
    bool isModified() const;
    void setModified();
    void clrModified();

    // The rows must be validated again.
    bool isDirty() const;
    void setDirty();

    // Judges the tab's cells, if it is dirty: gives them their error codes and counts the faults.
    // Nothing is refused. Row texts alone count, so it works while a file is loading.
    void validate_model();

Q_SIGNALS:
    // Codes changed, and with them how cells look.
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
    void endPass(int errors, bool changedCodes);
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
    mutable bool touched = true;  // since the last pass, by whoever changes rows or codes
    QUndoStack undoStack;
    std::array<std::unique_ptr<QRegExp>, VALIDATOR_COUNT> regExpVF;
    mutable QIcon arrowIcon;  // made when it is first asked for
    FormatValidators de_validator;
    TextJudge judge{de_validator};
    int errorCount = 0;
};
