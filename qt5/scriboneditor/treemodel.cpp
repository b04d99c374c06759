#include "treemodel.h"

#include <QFile>
#include <QTextStream>
#include <QtGlobal>

#include "editor_access.h"
#include "treeitem.h"

// clang-format off
const std::array<int, TAB_COUNT> NumberOfColumns{3, 4, 3, 3, 3};

const std::array<const char*, HEADER_COUNT> TableHeaders{
    QT_TRANSLATE_NOOP("MainWindow", "Keyword                                    "),
    QT_TRANSLATE_NOOP("MainWindow", "Value"), nullptr, nullptr, nullptr,

    QT_TRANSLATE_NOOP("MainWindow", "Keyword          "),
    QT_TRANSLATE_NOOP("MainWindow", "Marvane Variable                  "),
    QT_TRANSLATE_NOOP("MainWindow", "Statistical\nMember        "),
    QT_TRANSLATE_NOOP("MainWindow", "Channel\nKeyword"), nullptr,

    QT_TRANSLATE_NOOP("MainWindow", "Keyword          "),
    QT_TRANSLATE_NOOP("MainWindow", "PAM Keyword        "),
    QT_TRANSLATE_NOOP("MainWindow", "Marvane Variable                  "), nullptr, nullptr,

    QT_TRANSLATE_NOOP("MainWindow", "Keyword     "),
    QT_TRANSLATE_NOOP("MainWindow", "Marvane Variable                  "),
    QT_TRANSLATE_NOOP("MainWindow", "Alternate Name                   "), nullptr, nullptr,

    QT_TRANSLATE_NOOP("MainWindow", "Keyword     "),
    QT_TRANSLATE_NOOP("MainWindow", "Ext. Number         "),
    QT_TRANSLATE_NOOP("MainWindow", "ASAM Specs Path   "), nullptr, nullptr,
};

// clang-format on

namespace {

// All models share the compiled patterns, which also outlive them: compiling them takes longer than
// loading a small file.
const std::array<QRegExp, VALIDATOR_COUNT>& compiledPatterns()
{
    static const auto patterns = [] {
        std::array<QRegExp, VALIDATOR_COUNT> compiled;
        for (size_t i = 0; i < compiled.size(); ++i)
            compiled[i].setPattern(QString::fromLatin1(ValidatorPatterns[i]));
        return compiled;
    }();
    return patterns;
}

QString nameOfTab(int tab)
{
    return QStringLiteral("Model%1").arg(tab);
}

bool isInsertion(int position, int count, int size)
{
    return count > 0 && position >= 0 && position <= size;
}

bool isRemoval(int position, int count, int size)
{
    return count > 0 && position >= 0 && count <= size - position;
}

}  // namespace

// By the whole object name, so that a longer one is none.
int tabOfModel(const QAbstractItemModel* model)
{
    if (model == nullptr)
        return 0;
    const QString name = model->objectName();
    for (int tab = EDIT_TAB1; tab <= EDIT_TAB5; ++tab) {
        if (name == nameOfTab(tab))
            return tab;
    }
    return 0;
}

// ---- Frame
// ---------------------------------------------------------------------------------------

TreeModel::TreeModel(const QStringList& headers, pANTLR3_BASE_TREE tree, ANTLR3_UINT32 tab,
                     QObject* parent)
    : QAbstractItemModel(parent), tabIndexNumber(tab)
{
    QVector<QVariant> rootData;
    for (const QString& header : headers)
        rootData.append(header);
    setObjectName(nameOfTab(static_cast<int>(tab)));
    rootItem = std::make_unique<TreeItem>(rootData, QVector<QVariant>());
    for (size_t i = 0; i < ValidatorPatterns.size(); ++i) {
        regExpVF[i] = std::make_unique<QRegExp>(compiledPatterns()[i]);
        de_validator[i] = std::make_unique<QRegExpValidator>(*regExpVF[i]);
    }
    setupModelData(tree, rootItem.get());
}

TreeModel::~TreeModel() = default;

TreeItem* TreeModel::getItem(const QModelIndex& index) const
{
    if (index.isValid() && index.internalPointer() != nullptr)
        return static_cast<TreeItem*>(index.internalPointer());
    return rootItem.get();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return {};
    TreeItem* const child = getItem(parent)->child(row);
    return child == nullptr ? QModelIndex() : createIndex(row, column, child);
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    TreeItem* const parentItem = getItem(index)->parent();
    if (parentItem == nullptr || parentItem == rootItem.get())
        return {};
    return createIndex(parentItem->childNumber(), 0, parentItem);
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    return getItem(parent)->childCount();
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return rootItem->columnCount();
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return QAbstractItemModel::flags(index) | Qt::ItemIsEditable;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (LoadingFile != 0 || !index.isValid())
        return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return getItem(index)->data(index.column());
        case Qt::UserRole:
            return errorCode(index);
        case Qt::ForegroundRole:
            return colour(index);
        case Qt::DecorationRole:
            return decoration(index);
        case Qt::ToolTipRole:
            return toolTip(index);
        default:
            return {};
    }
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return rootItem->data(section);
}

bool TreeModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                              int role)
{
    if (role != Qt::EditRole || orientation != Qt::Horizontal)
        return false;
    const bool stored = rootItem->setData(section, value);
    if (stored)
        Q_EMIT headerDataChanged(orientation, section, section);
    return stored;
}

void TreeModel::markChanged()
{
    modified = true;
    dirty = true;
    touched = true;
}

bool TreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole)
        return false;
    const bool stored = getItem(index)->setData(this, index, value);
    if (stored) {
        markChanged();
        m_dataChanged(index);
    }
    return stored;
}

bool TreeModel::undoredo_setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole)
        return false;
    const bool pushed = getItem(index)->undoredo_setData(this, index, value);
    if (pushed) {
        markChanged();
        m_dataChanged(index);
    }
    return pushed;
}

void TreeModel::m_dataChanged(const QModelIndex& index)
{
    Q_EMIT dataChanged(index, index);
}

// The views hear only of what really changes: a range that does not fit in is refused by the rows,
// and an empty one changes nothing.
bool TreeModel::insertRows(int position, int rows, const QModelIndex& parent)
{
    TreeItem* const parentItem = getItem(parent);
    const bool changes = isInsertion(position, rows, parentItem->childCount());
    if (changes)
        beginInsertRows(parent, position, position + rows - 1);
    const bool inserted = parentItem->insertChildren(position, rows, rootItem->columnCount());
    if (changes)
        endInsertRows();
    touched = true;
    return inserted;
}

bool TreeModel::removeRows(int position, int rows, const QModelIndex& parent)
{
    TreeItem* const parentItem = getItem(parent);
    const bool changes = isRemoval(position, rows, parentItem->childCount());
    if (changes)
        beginRemoveRows(parent, position, position + rows - 1);
    const bool removed = parentItem->removeChildren(position, rows);
    if (changes)
        endRemoveRows();
    if (removed)
        markChanged();
    return removed;
}

bool TreeModel::insertColumns(int position, int columns, const QModelIndex& parent)
{
    const bool changes = isInsertion(position, columns, rootItem->columnCount());
    if (changes)
        beginInsertColumns(parent, position, position + columns - 1);
    const bool inserted = rootItem->insertColumns(position, columns);
    if (changes)
        endInsertColumns();
    if (inserted)
        markChanged();
    return inserted;
}

// A row without columns is no row, so the last column takes the rows with it.
bool TreeModel::removeColumns(int position, int columns, const QModelIndex& parent)
{
    const bool changes = isRemoval(position, columns, rootItem->columnCount());
    if (changes)
        beginRemoveColumns(parent, position, position + columns - 1);
    const bool removed = rootItem->removeColumns(position, columns);
    if (changes)
        endRemoveColumns();
    touched = true;
    if (rootItem->columnCount() == 0)
        removeRows(0, rowCount());
    return removed;
}

quint64 TreeModel::rowIdentity(const QModelIndex& index) const
{
    return index.isValid() ? getItem(index)->identity() : 0;
}

void TreeModel::setRowIdentity(const QModelIndex& index, quint64 identity)
{
    if (index.isValid())
        getItem(index)->setIdentity(identity);
}

QModelIndex TreeModel::cellOfRow(quint64 identity, int column, int expectedRow) const
{
    const QModelIndex expected = index(expectedRow, column);
    if (rowIdentity(expected) == identity)
        return expected;
    for (int row = 0; row < rootItem->childCount(); ++row) {
        if (rootItem->child(row)->identity() == identity)
            return index(row, column);
    }
    return {};
}

QVariant TreeModel::errorCode(const QModelIndex& index) const
{
    return index.isValid() ? getItem(index)->errorCode(index.column()) : QVariant();
}

bool TreeModel::setErrorCode(const QModelIndex& index, const QVariant& value) const
{
    TreeItem* const row = getItem(index);
    row->setDirty();
    touched = true;
    if (!row->setErrorCode(index.column(), value))
        return false;
    Q_EMIT codesChanged();
    return true;
}

int TreeModel::getErrorCount() const
{
    return errorCount;
}

void TreeModel::clearErrorCount()
{
    touched = true;
    errorCount = 0;
}

bool TreeModel::isModified() const
{
    return modified;
}

void TreeModel::setModified()
{
    modified = true;
}

void TreeModel::clrModified()
{
    modified = false;
}

bool TreeModel::isDirty() const
{
    return dirty;
}

void TreeModel::setDirty()
{
    dirty = true;
}

// ---- Loading
// -------------------------------------------------------------------------------------

namespace {

constexpr int DEEPEST_LEVEL = 4;

pANTLR3_BASE_TREE childAt(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 index)
{
    return static_cast<pANTLR3_BASE_TREE>(tree->getChild(tree, index));
}

// The bytes of a text in the runtime's hands.
struct Bytes {
    const char* data;
    int size;
};

// A token that came out of the file and not out of a rewrite.
bool isSourceToken(pANTLR3_COMMON_TOKEN token)
{
    return token != nullptr && token->textState == ANTLR3_TEXT_NONE && token->input != nullptr &&
           token->type != ANTLR3_TOKEN_EOF;
}

// A node's text. The runtime would make a string of its own for each token of the file that is
// asked for and keep it until the next load, so those are read where they stand in the file.
Bytes bytesOf(pANTLR3_BASE_TREE node)
{
    const pANTLR3_COMMON_TOKEN token = node->getToken(node);
    if (isSourceToken(token)) {
        const ANTLR3_MARKER start = token->getStartIndex(token);
        const ANTLR3_MARKER stop = token->getStopIndex(token);
        // The runtime keeps the place in the file as a number.
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return {reinterpret_cast<const char*>(start), static_cast<int>(stop - start + 1)};
    }
    const pANTLR3_STRING text = node->toString(node);
    if (text == nullptr || text->chars == nullptr)
        return {nullptr, 0};
    return {reinterpret_cast<const char*>(text->chars), static_cast<int>(text->len)};
}

// The text of a node, null for a line end, which never becomes a cell. All of the text counts, zero
// bytes too: cut at one, a quoted text would lose its closing quote and, once saved, swallow the
// file behind it.
QString nodeText(pANTLR3_BASE_TREE node, SpecEncoding encoding)
{
    const Bytes bytes = bytesOf(node);
    if (bytes.data == nullptr || (bytes.size > 0 && bytes.data[0] == '\n'))
        return {};
    return decoded(encoding, bytes.data, bytes.size);
}

// A statement tells its tab by its first child.
bool belongsToTab(pANTLR3_BASE_TREE statement, ANTLR3_UINT32 tab)
{
    if (statement->getChildCount(statement) == 0)
        return false;
    const pANTLR3_BASE_TREE marker = childAt(statement, 0);
    return marker->getType(marker) == tab;
}

// Makes the rows of one statement. Its items come in file order, the tab's marker first, which
// makes no cell, then the keyword.
class StatementRows {
public:
    // The rows become children of parent.
    StatementRows(TreeItem* parent, int columns, ANTLR3_UINT32 tab, SpecEncoding encoding);

    // What becomes a cell below `tree`, left to right, a node before its children.
    void addItemsBelow(pANTLR3_BASE_TREE tree, int level = 1);

private:
    void addItem(int editor, const QString& text);
    void addListItem(int editor, const QString& text);
    int listColumn(int editor) const;
    void appendRow();

    TreeItem* m_parent;
    int m_columns;
    bool m_list;      // one row for the keyword and one for each entry behind it
    bool m_scanList;  // whose entries have a statistical member in their middle
    SpecEncoding m_encoding;
    TreeItem* m_row = nullptr;
    int m_itemCount = 0;
    int m_position = 0;  // slot within the list entry in progress
};

StatementRows::StatementRows(TreeItem* parent, int columns, ANTLR3_UINT32 tab,
                             SpecEncoding encoding)
    : m_parent(parent),
      m_columns(columns),
      m_list(tab >= EDIT_TAB2 && tab <= EDIT_TAB5),
      m_scanList(tab == EDIT_TAB2),
      m_encoding(encoding)
{
    appendRow();
}

// The texts of the deepest level keep their blanks, and what lies below it is nobody's cell.
void StatementRows::addItemsBelow(pANTLR3_BASE_TREE tree, int level)
{
    const ANTLR3_UINT32 count = tree->getChildCount(tree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE node = childAt(tree, i);
        const QString text = nodeText(node, m_encoding);
        if (!text.isNull())
            addItem(appGrammerTypeToEditorTypeOrig(node),
                    level < DEEPEST_LEVEL ? text.trimmed() : text);
        if (level < DEEPEST_LEVEL)
            addItemsBelow(node, level + 1);
    }
}

// A keyword's row drops what it has no column for.
void StatementRows::addItem(int editor, const QString& text)
{
    const int number = m_itemCount++;
    if (number == 1 || (number > 1 && !m_list))
        m_row->setData(number - 1, text);
    else if (number > 1)
        addListItem(editor, text);
}

// The fillers behind the section's keyword fill its row as if they were an entry. A plain text in
// the second slot completes an entry of any list: on the Scan List it is the channel keyword of one
// without a statistical member.
void StatementRows::addListItem(int editor, const QString& text)
{
    constexpr int FIRST_ENTRY_ITEM = 3;
    if (m_position == 0 && m_itemCount > FIRST_ENTRY_ITEM)
        appendRow();
    m_row->setData(listColumn(editor), text);
    const bool complete = m_position == 1 && editor == TEXT_BLOCK;
    const int slotCount = m_scanList ? 3 : 2;
    m_position = complete ? 0 : (m_position + 1) % slotCount;
}

// The column for an item, by its kind and its slot; -1, which no row has, for one that only uses up
// its slot. A comment counts wherever it stands, over whatever was there.
int StatementRows::listColumn(int editor) const
{
    const bool plain = editor == TEXT_BLOCK || editor == FILLER_DATA;
    if (editor == COMMENT_LINE)
        return 1;
    if (plain && m_position == 1)
        return m_scanList && editor == TEXT_BLOCK ? 3 : 2;
    if (plain)
        return m_position + 1;
    const bool member = editor == LOG_DIG_DESCRIPTION || editor == STAT_MEM_EDITOR;
    return member && m_position == 1 ? 2 : -1;
}

void StatementRows::appendRow()
{
    const int row = m_parent->childCount();
    m_parent->insertChildren(row, 1, m_columns);
    m_row = m_parent->child(row);
}

}  // namespace

void TreeModel::setupModelData(pANTLR3_BASE_TREE bTree, TreeItem* parent)
{
    rootTree = bTree;
    if (bTree == nullptr || bTree->children == nullptr)
        return;
    const FileBytes file = getFileBytes();
    specEncoding = encodingOf(file.data, file.size);
    const ANTLR3_UINT32 count = bTree->getChildCount(bTree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE statement = childAt(bTree, i);
        if (belongsToTab(statement, tabIndexNumber))
            StatementRows(parent, rootItem->columnCount(), tabIndexNumber, specEncoding)
                .addItemsBelow(statement);
    }
}

// ---- Saving
// --------------------------------------------------------------------------------------

namespace {

// Writes rows as spec file text. How many values a line holds is told by the last keyword that was
// written, so the limit lives as long as the writer.
class RowWriter {
public:
    explicit RowWriter(QTextStream* out) : m_out(out) {}

    void write(const TreeItem& row, int rowNumber);

private:
    // Writes one cell; false when the rest of the row is not written.
    bool writeCell(const QString& text, int rowNumber, int column);
    bool writeLine(const QString& text, int rowNumber);
    void writeValue(const QString& text, int column);

    QTextStream* m_out;
    int m_fieldLimit = 2;
    int m_fieldCount = 0;
    bool m_skipEol = false;
};

bool isSectionKeyword(const QString& text)
{
    return text == QLatin1String("@SCAN_LIST_AUX_USER") || text == QLatin1String("@SCAN_LIST") ||
           text == QLatin1String("@META_DATA") || text == QLatin1String("@ECM_LIST");
}

void RowWriter::write(const TreeItem& row, int rowNumber)
{
    m_fieldCount = 0;
    m_skipEol = false;
    for (int column = 0; column < row.columnCount(); ++column) {
        if (!writeCell(row.data(column).toString().trimmed(), rowNumber, column))
            break;
    }
    if (!m_skipEol)
        *m_out << '\n';
}

bool RowWriter::writeCell(const QString& text, int rowNumber, int column)
{
    if (text == FILLER_TEXT) {
        ++m_fieldCount;
        return true;
    }
    if (text.isEmpty())
        return true;
    if (text.at(0) == QLatin1Char('@') || text.at(0) == QLatin1Char('#'))
        return writeLine(text, rowNumber);
    writeValue(text, column);
    return true;
}

// A keyword or comment, on a line of its own. A blank line stands before every keyword but the
// first row's, and before a commented-out keyword.
bool RowWriter::writeLine(const QString& text, int rowNumber)
{
    const bool keyword = text.at(0) == QLatin1Char('@');
    const bool commentedKeyword = text.startsWith(QLatin1String("#@"));
    const bool section = isSectionKeyword(text);
    if (keyword && rowNumber >= 1)
        *m_out << '\n';
    if (section || commentedKeyword)
        *m_out << '\n';
    *m_out << text << '\n';
    if (keyword) {
        const bool threeValues =
            text == QLatin1String("@SCAN_LIST_AUX_USER") || text == QLatin1String("@SCAN_LIST");
        m_fieldCount = 0;
        m_fieldLimit = threeValues ? 3 : 2;
    }
    m_skipEol = true;
    return keyword && !section;
}

void RowWriter::writeValue(const QString& text, int column)
{
    if (m_fieldCount == m_fieldLimit) {
        *m_out << '\n';
        m_fieldCount = 0;
    }
    if (column > 1)
        *m_out << "\t\t";
    *m_out << text;
    ++m_fieldCount;
    m_skipEol = false;
}

}  // namespace

QString TreeModel::specText() const
{
    QString text;
    QTextStream out(&text);
    RowWriter writer(&out);
    for (int i = 0; i < rootItem->childCount(); ++i)
        writer.write(*rootItem->child(i), i);
    return text;
}

SpecEncoding TreeModel::encoding() const
{
    return specEncoding;
}

void TreeModel::setEncoding(SpecEncoding encoding)
{
    specEncoding = encoding;
}

void TreeModel::dump_to_file(char* filename)
{
    QFile file(QFile::decodeName(filename));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    const QString text = specText();
    file.write(encoded(encodingFor(text, specEncoding), text));
}
