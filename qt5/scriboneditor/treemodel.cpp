#include "treemodel.h"

#include <QCoreApplication>
#include <QtGlobal>
#include <algorithm>

#include "editor_access.h"
#include "treeitem.h"

// clang-format off
const std::array<int, TAB_COUNT> NumberOfColumns{
    KeywordsTab::COLUMN_COUNT, ScanListTab::COLUMN_COUNT, MetaDataTab::COLUMN_COUNT,
    AuxUserTab::COLUMN_COUNT, EcmListTab::COLUMN_COUNT};

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

QStringList headersOf(int tab)
{
    const auto row = static_cast<size_t>(tab - EDIT_TAB1);
    QStringList headers;
    for (int column = 0; column < NumberOfColumns[row]; ++column) {
        const char* const header = TableHeaders[row * HEADER_SLOTS + static_cast<size_t>(column)];
        headers.append(header == nullptr ? QString()
                                         : QCoreApplication::translate("MainWindow", header));
    }
    return headers;
}

namespace {

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

// Compares the whole object name. Called several times for each cell that is painted or measured.
int tabOfModel(const QAbstractItemModel* model)
{
    if (model == nullptr)
        return 0;
    static const std::array<QString, TAB_COUNT> NAMES{nameOfTab(EDIT_TAB1), nameOfTab(EDIT_TAB2),
                                                      nameOfTab(EDIT_TAB3), nameOfTab(EDIT_TAB4),
                                                      nameOfTab(EDIT_TAB5)};
    const auto found = std::find(NAMES.begin(), NAMES.end(), model->objectName());
    return found == NAMES.end() ? 0 : EDIT_TAB1 + static_cast<int>(found - NAMES.begin());
}

// ---- Frame --------------------------------------------------------------------------------------

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

// Views may be notified only of real changes, so no signal is emitted for an invalid or empty
// range.
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

// Removing the last column removes all rows.
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
