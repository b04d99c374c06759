#include "treemodel.h"

#include <QFile>
#include <QTextStream>
#include <QtGlobal>

#include "mainwindow.h"
#include "treeitem.h"

// clang-format off
const std::array<int, TAB_COUNT> NumberOfColumns{3, 4, 3, 3, 3};

const std::array<const char*, TAB_COUNT * HEADER_SLOTS> TableHeaders{
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

namespace {

// By VaidatorFormat. Some are wider than they look, such as the range "_-(" that stands for all
// characters from the bracket to the underscore: existing files rely on that.
constexpr std::array<const char*, VALIDATOR_COUNT> PATTERNS{
    R"x(^([A-Za-z_0-9][A-Za-z_0-9]?){1,31})x",
    R"x(^[A-Za-z_]([A-Za-z_0-9]*){1,31})x",
    R"x(^\/(([A-Za-z_0-9.])+\/?)+)x",
    R"x(^(".*")|('.*'))x",
    R"x(^.?\d+(.\d+)?\[(min|sec|hr|msec|MIN|SEC|HR|MSEC)\])x",
    R"x(^([A-Za-z]([A-Za-z_0-9]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?)x",
    R"x(^[0-9]{1,31})x",
    R"x(^(YES|Yes|yes|NO|No|no))x",
    R"x(^#.{0,79})x",
    R"x(^.{1,32})x",
    R"x(^[A-Za-z_0-9]{1,79})x",
    R"x(^((\.AV)|(\.MN)|(\.MX)|(\.RN)|(\.SD)|(\.C0)|(\.IV)|(\.FV)|(\.DL)|(\.E0)|(\.CI)|(\.I0)|(\.I5)|(\.I9)|(\.ME)|(\.MD)|(\.RM)|(\.ST)|(\.EN)|(\.TN)|(\.TX)|(\.C1)|(\.IN)|(\.IT)|(\.RS)|(\.CV)|(\.E1)|(\.RA)|(\.NM)|(\.SE)|(\.RC)|(\.QF)|(\.NR))|(LOG_DIGITAL_DESCP)|(FILLER_TXT))x",
    R"x(^([$A-Za-z]([A-Za-z_0-9@/:]*)){1,79})x",
    R"x(^(([A-Za-z]([A-Za-z_0-9]*)(@[0-9]*)?)){1,79})x",
    R"x(^(/([^(/:)]*))*:([A-Za-z_-0-9]*):[0-9]{1,2})x",
    R"x(^"(([A-Za-z_0-9. ']*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?")x",
    R"x(^'(([A-Za-z_0-9. ]*)){1,79}(([A-Za-z%0-9_-()/.*]{1,32}))?')x",
};
// clang-format on

constexpr auto FILLER = QLatin1String("FILLER_TXT");

pANTLR3_BASE_TREE childAt(pANTLR3_BASE_TREE tree, ANTLR3_UINT32 index)
{
    return static_cast<pANTLR3_BASE_TREE>(tree->getChild(tree, index));
}

}  // namespace

// ---- Frame
// ---------------------------------------------------------------------------------------

TreeModel::TreeModel(const QStringList& headers, pANTLR3_BASE_TREE tree, ANTLR3_UINT32 tab,
                     QObject* parent)
    : QAbstractItemModel(parent), tabIndexNumber(tab)
{
    QVector<QVariant> rootData;
    for (const QString& header : headers)
        rootData.append(header);
    setObjectName(QStringLiteral("Model%1").arg(tab));
    rootItem = std::make_unique<TreeItem>(rootData, QVector<QVariant>());
    for (size_t i = 0; i < PATTERNS.size(); ++i) {
        regExpVF[i] = std::make_unique<QRegExp>(QString::fromLatin1(PATTERNS[i]));
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
        emit headerDataChanged(orientation, section, section);
    return stored;
}

void TreeModel::markChanged()
{
    modified = true;
    dirty = true;
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
    emit dataChanged(index, index);
}

// The views must not hear of a change that does not fit in, so the ranges are looked at here too.
bool TreeModel::insertRows(int position, int rows, const QModelIndex& parent)
{
    TreeItem* const parentItem = getItem(parent);
    if (rows <= 0 || position < 0 || position > parentItem->childCount())
        return parentItem->insertChildren(position, 0, 0) && rows <= 0;
    beginInsertRows(parent, position, position + rows - 1);
    const bool inserted = parentItem->insertChildren(position, rows, rootItem->columnCount());
    endInsertRows();
    return inserted;
}

bool TreeModel::removeRows(int position, int rows, const QModelIndex& parent)
{
    TreeItem* const parentItem = getItem(parent);
    if (rows <= 0 || position < 0 || position + rows > parentItem->childCount())
        return false;
    beginRemoveRows(parent, position, position + rows - 1);
    const bool removed = parentItem->removeChildren(position, rows);
    endRemoveRows();
    if (removed)
        markChanged();
    return removed;
}

bool TreeModel::insertColumns(int position, int columns, const QModelIndex& parent)
{
    if (columns <= 0 || position < 0 || position > rootItem->columnCount())
        return false;
    beginInsertColumns(parent, position, position + columns - 1);
    const bool inserted = rootItem->insertColumns(position, columns);
    endInsertColumns();
    if (inserted)
        markChanged();
    return inserted;
}

bool TreeModel::removeColumns(int position, int columns, const QModelIndex& parent)
{
    if (columns <= 0 || position < 0 || position + columns > rootItem->columnCount())
        return false;
    beginRemoveColumns(parent, position, position + columns - 1);
    const bool removed = rootItem->removeColumns(position, columns);
    endRemoveColumns();
    if (rootItem->columnCount() == 0)
        removeRows(0, rowCount());
    return removed;
}

QVariant TreeModel::errorCode(const QModelIndex& index) const
{
    return index.isValid() ? getItem(index)->errorCode(index.column()) : QVariant();
}

bool TreeModel::setErrorCode(const QModelIndex& index, const QVariant& value) const
{
    return getItem(index)->setErrorCode(index.column(), value);
}

int TreeModel::getErrorCount() const
{
    return errorCount;
}

void TreeModel::clearErrorCount()
{
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

// A node of a statement that becomes a cell: its kind and its text.
struct TreeModel::StatementItem {
    int editor;
    QString text;
};

namespace {

constexpr int DEEPEST_LEVEL = 4;

// The text of a node, in the encoding that writing uses; a null string for one without text and
// for a line end, which never becomes a cell.
QString nodeText(pANTLR3_BASE_TREE node)
{
    const pANTLR3_STRING text = node->toString(node);
    if (text == nullptr || text->chars == nullptr || text->chars[0] == '\n')
        return {};
    const QString result = QString::fromLocal8Bit(reinterpret_cast<const char*>(text->chars));
    return result.isNull() ? QString(QLatin1String("")) : result;
}

// Keeps the texts of the nodes below `tree`, left to right, a node before its children. Texts of
// the deepest level keep their blanks, and what lies below it is nobody's cell.
template <typename Item>
void gather(pANTLR3_BASE_TREE tree, int level, QVector<Item>* items)
{
    const ANTLR3_UINT32 count = tree->getChildCount(tree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE node = childAt(tree, i);
        const QString text = nodeText(node);
        if (!text.isNull())
            items->append(Item{appGrammerTypeToEditorTypeOrig(node),
                               level < DEEPEST_LEVEL ? text.trimmed() : text});
        if (level < DEEPEST_LEVEL)
            gather(node, level + 1, items);
    }
}

bool isPlain(int editor)
{
    return editor == TEXT_BLOCK || editor == FILLER_DATA;
}

// The column that an item of a list entry lands in, by its kind and its slot within the entry; -1
// for one that only uses up its slot.
int listColumn(int editor, int position, bool scanList)
{
    if (editor == COMMENT_LINE || (isPlain(editor) && position == 0))
        return 1;
    if (isPlain(editor) && position == 1 && !scanList)
        return 2;
    if (position == 1 && scanList && isPlain(editor))
        return editor == FILLER_DATA ? 2 : 3;
    if (isPlain(editor) && position == 2)
        return 3;
    if ((editor == LOG_DIG_DESCRIPTION || editor == STAT_MEM_EDITOR) && position == 1)
        return 2;
    return -1;
}

}  // namespace

void TreeModel::setupModelData(pANTLR3_BASE_TREE bTree, TreeItem* parent)
{
    rootTree = bTree;
    if (bTree == nullptr || bTree->children == nullptr)
        return;
    const ANTLR3_UINT32 count = bTree->getChildCount(bTree);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        const pANTLR3_BASE_TREE statement = childAt(bTree, i);
        if (statement->children == nullptr || statement->getChildCount(statement) == 0)
            continue;
        const pANTLR3_BASE_TREE tab = childAt(statement, 0);
        if (tab->getType(tab) == tabIndexNumber)
            addStatement(statement, parent);
    }
}

void TreeModel::addStatement(pANTLR3_BASE_TREE statement, TreeItem* parent)
{
    QVector<StatementItem> items;
    gather(statement, 1, &items);
    if (tabIndexNumber == EDIT_TAB1)
        addKeywordRow(items, parent);
    else
        addListRows(items, parent);
}

TreeItem* TreeModel::appendRow(TreeItem* parent)
{
    const int row = parent->childCount();
    parent->insertChildren(row, 1, rootItem->columnCount());
    return parent->child(row);
}

// The first item is the tab's marker.
void TreeModel::addKeywordRow(const QVector<StatementItem>& items, TreeItem* parent)
{
    TreeItem* const row = appendRow(parent);
    for (int i = 1; i < items.size(); ++i)
        row->setData(i - 1, items.at(i).text);
}

// The section's keyword makes a row of its own with the fillers behind it; then a row for each
// entry. A text in the second slot of a scan list entry is its channel keyword: the entry has no
// statistical member, and its slot is skipped.
void TreeModel::addListRows(const QVector<StatementItem>& items, TreeItem* parent)
{
    const bool scanList = tabIndexNumber == EDIT_TAB2;
    const int slots = scanList ? 3 : 2;
    TreeItem* row = appendRow(parent);
    if (items.size() > 1)
        row->setData(0, items.at(1).text);
    int position = 0;
    for (int i = 2; i < items.size(); ++i) {
        const StatementItem& item = items.at(i);
        const int column = listColumn(item.editor, position, scanList);
        row->setData(column, item.text);
        if (scanList && position == 1 && item.editor == TEXT_BLOCK)
            ++position;
        position = (position + 1) % slots;
        if (position == 0 && i + 1 < items.size())
            row = appendRow(parent);
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

    void write(const TreeItem& row, int rowNumber, int columns);

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

void RowWriter::write(const TreeItem& row, int rowNumber, int columns)
{
    m_fieldCount = 0;
    m_skipEol = false;
    for (int column = 0; column < columns; ++column) {
        if (!writeCell(row.data(column).toString().trimmed(), rowNumber, column))
            break;
    }
    if (!m_skipEol)
        *m_out << '\n';
}

bool RowWriter::writeCell(const QString& text, int rowNumber, int column)
{
    if (text == FILLER) {
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

void TreeModel::dump_to_file(char* filename)
{
    QFile file(QFile::decodeName(filename));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    QTextStream out(&file);
    RowWriter writer(&out);
    for (int i = 0; i < rootItem->childCount(); ++i) {
        const TreeItem& row = *rootItem->child(i);
        writer.write(row, i, row.columnCount());
    }
}
