// Makes rows of the statements of a tab in the syntax tree.

#include "tabrows.h"
#include "treeitem.h"
#include "treemodel.h"

namespace {

constexpr int DEEPEST_LEVEL = 4;

// A text that belongs to the parser's runtime.
struct Bytes {
    const char* data;
    int size;
};

// Whether the token is one of the file, not one made by a rewrite rule.
bool isSourceToken(pANTLR3_COMMON_TOKEN token)
{
    return token != nullptr && token->textState == ANTLR3_TEXT_NONE && token->input != nullptr &&
           token->type != ANTLR3_TOKEN_EOF;
}

// A node's text. The text of a source token is taken from the file's buffer: toString() would
// allocate a string for each that lives until the next load.
Bytes bytesOf(pANTLR3_BASE_TREE node)
{
    const pANTLR3_COMMON_TOKEN token = node->getToken(node);
    if (isSourceToken(token)) {
        const ANTLR3_MARKER start = token->getStartIndex(token);
        const ANTLR3_MARKER stop = token->getStopIndex(token);
        // The runtime stores the pointer into the buffer as a number.
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return {reinterpret_cast<const char*>(start), static_cast<int>(stop - start + 1)};
    }
    const pANTLR3_STRING text = node->toString(node);
    if (text == nullptr || text->chars == nullptr)
        return {nullptr, 0};
    return {reinterpret_cast<const char*>(text->chars), static_cast<int>(text->len)};
}

// A line end is no cell.
bool isCell(const Bytes& bytes)
{
    return bytes.data != nullptr && (bytes.size == 0 || bytes.data[0] != '\n');
}

// The first child of a statement is the node of its tab.
bool belongsToTab(pANTLR3_BASE_TREE statement, ANTLR3_UINT32 tab)
{
    if (statement->getChildCount(statement) == 0)
        return false;
    const pANTLR3_BASE_TREE marker = childAt(statement, 0);
    return marker->getType(marker) == tab;
}

// Makes the rows of one statement. Its items come in file order: the node of the tab, which is no
// cell, then the keyword, then the values.
class StatementRows {
public:
    StatementRows(ANTLR3_UINT32 tab, SpecEncoding encoding, FileRange place, RowReceiver* receiver);

    // Adds the nodes below `tree` as cells, in depth-first order.
    void addItemsBelow(pANTLR3_BASE_TREE tree, int level = 1);

private:
    QString textOf(const Bytes& bytes, int level) const;
    void addItem(pANTLR3_BASE_TREE node, const QString& text);
    void addListItem(pANTLR3_BASE_TREE node, const QString& text);
    int listColumn(int editor) const;

    bool m_list;      // one row for the keyword, then one row for each entry
    bool m_scanList;  // entries have a statistical member as second value
    SpecEncoding m_encoding;
    FileRange m_place;  // of the statement
    RowReceiver* m_receiver;
    int m_itemCount = 0;
    int m_position = 0;  // of the next value within the current list entry
};

StatementRows::StatementRows(ANTLR3_UINT32 tab, SpecEncoding encoding, FileRange place,
                             RowReceiver* receiver)
    : m_list(tab >= EDIT_TAB2 && tab <= EDIT_TAB5),
      m_scanList(tab == EDIT_TAB2),
      m_encoding(encoding),
      m_place(place),
      m_receiver(receiver)
{
    m_receiver->appendRow(m_place);
}

// Zero bytes are part of the text: cut at one, a quoted text would lose its closing quote, and the
// next load would take the rest of the file as quoted. Existing behaviour, kept for compatibility:
// texts of the deepest level are not trimmed.
QString StatementRows::textOf(const Bytes& bytes, int level) const
{
    if (!m_receiver->wantsTexts())
        return {};
    const QString text = decoded(m_encoding, bytes.data, bytes.size);
    return level < DEEPEST_LEVEL ? text.trimmed() : text;
}

// Existing behaviour, kept for compatibility: nodes below the deepest level are ignored.
void StatementRows::addItemsBelow(pANTLR3_BASE_TREE tree, int level)
{
    const ANTLR3_UINT32 count = tree->getChildCount(tree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE node = childAt(tree, i);
        const Bytes bytes = bytesOf(node);
        if (isCell(bytes))
            addItem(node, textOf(bytes, level));
        if (level < DEEPEST_LEVEL)
            addItemsBelow(node, level + 1);
    }
}

// Values for which a keyword's row has no column are dropped.
void StatementRows::addItem(pANTLR3_BASE_TREE node, const QString& text)
{
    const int number = m_itemCount++;
    if (number == 1 || (number > 1 && !m_list))
        m_receiver->setCell(number - 1, text, rangeOfNode(node));
    else if (number > 1)
        addListItem(node, text);
}

// The fillers behind the section's keyword go to the row of the keyword. A plain text as second
// value completes an entry of any list: on the Scan List it is the channel keyword of an entry
// without a statistical member.
void StatementRows::addListItem(pANTLR3_BASE_TREE node, const QString& text)
{
    constexpr int FIRST_ENTRY_ITEM = 3;
    if (m_position == 0 && m_itemCount > FIRST_ENTRY_ITEM)
        m_receiver->appendRow(m_place);
    const int editor = appGrammerTypeToEditorTypeOrig(node);
    m_receiver->setCell(listColumn(editor), text, rangeOfNode(node));
    const bool complete = m_position == 1 && editor == TEXT_BLOCK;
    const int slotCount = m_scanList ? 3 : 2;
    m_position = complete ? 0 : (m_position + 1) % slotCount;
}

// The column of an item by its kind and position; -1 if it is not stored. A comment goes to the
// first column of the entry at any position and replaces what is there.
int StatementRows::listColumn(int editor) const
{
    const bool plain = editor == TEXT_BLOCK || editor == FILLER_DATA;
    if (editor == COMMENT_LINE)
        return ENTRY_COLUMN;
    if (plain && m_position == 1)
        return m_scanList && editor == TEXT_BLOCK ? int(ScanListTab::CHANNEL) : SECOND_ENTRY_COLUMN;
    if (plain)
        return ENTRY_COLUMN + m_position;
    const bool member = editor == LOG_DIG_DESCRIPTION || editor == STAT_MEM_EDITOR;
    return member && m_position == 1 ? SECOND_ENTRY_COLUMN : -1;
}

// Makes the rows of a model.
class ItemRows final : public RowReceiver {
public:
    // The rows become children of parent.
    ItemRows(TreeItem* parent, int columns) : m_parent(parent), m_columns(columns) {}

    void appendRow(FileRange /*statement*/) override
    {
        const int row = m_parent->childCount();
        m_parent->insertChildren(row, 1, m_columns);
        m_row = m_parent->child(row);
    }

    void setCell(int column, const QString& text, FileRange /*range*/) override
    {
        m_row->setData(column, text);
    }

private:
    TreeItem* m_parent;
    int m_columns;
    TreeItem* m_row = nullptr;
};

}  // namespace

SpecEncoding encodingOfFile()
{
    const FileBytes file = getFileBytes();
    return encodingOf(file.data, file.size);
}

void readRows(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 tab, SpecEncoding encoding,
              RowReceiver* receiver)
{
    if (tree == nullptr || tree->children == nullptr)
        return;
    const ANTLR3_UINT32 count = tree->getChildCount(tree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE statement = childAt(tree, i);
        if (belongsToTab(statement, tab))
            StatementRows(tab, encoding, startOfStatement(statement), receiver)
                .addItemsBelow(statement);
    }
}

void TreeModel::setupModelData(pANTLR3_BASE_TREE bTree, TreeItem* parent)
{
    rootTree = bTree;
    if (bTree == nullptr || bTree->children == nullptr)
        return;
    specEncoding = encodingOfFile();
    ItemRows rows(parent, rootItem->columnCount());
    readRows(bTree, tabIndexNumber, specEncoding, &rows);
}
