// TreeModel: headers, indexes, stores, rows, columns, flags and the roles of normal cells.

#include <QColor>
#include <QSignalSpy>
#include <QTest>

#include "model_text.h"
#include "treeitem.h"
#include "windowless_editing.h"

namespace {

// Two rows of the Keywords tab.
std::unique_ptr<TreeModel> sampleModel()
{
    return modelOfRows(EDIT_TAB1, lines({"@SCRIBON | x | FILLER_TXT", "@MODE | m | \\s"}));
}

QStringList sampleLines()
{
    return lines({"@SCRIBON | x | FILLER_TXT", "@MODE | m | \\s"});
}

// Two unset rows without a QAbstractItemModelTester: rows with child rows do not pass it. Documents
// have none.
std::unique_ptr<TreeModel> treeForNesting()
{
    auto model = std::make_unique<TreeModel>(headersOf(EDIT_TAB1), nullptr, EDIT_TAB1);
    model->insertRows(0, 2);
    return model;
}

// Records the signals and flags that a change may set.
class ModelWatch {
public:
    explicit ModelWatch(TreeModel* model)
        : m_model(model),
          m_dataChanged(model, &QAbstractItemModel::dataChanged),
          m_rowsInserted(model, &QAbstractItemModel::rowsInserted),
          m_rowsRemoved(model, &QAbstractItemModel::rowsRemoved)
    {
    }

    bool sawNothing() const
    {
        return m_dataChanged.isEmpty() && m_rowsInserted.isEmpty() && m_rowsRemoved.isEmpty() &&
               !m_model->isModified() && !m_model->isDirty();
    }
    const QSignalSpy& dataChanged() const { return m_dataChanged; }
    const QSignalSpy& rowsInserted() const { return m_rowsInserted; }
    const QSignalSpy& rowsRemoved() const { return m_rowsRemoved; }

private:
    TreeModel* m_model;
    QSignalSpy m_dataChanged;
    QSignalSpy m_rowsInserted;
    QSignalSpy m_rowsRemoved;
};

}  // namespace

class tst_TreeModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Qt::Orientation>(); }

    void tabs_data();
    void tabs();
    void newModelIsClean();
    void modelWithoutRows();

    void columnCountIsThatOfTheHeaders();
    void index_data();
    void index();
    void dataOfAColumnBeyondTheLastIsInvalid();
    void rowsHaveNoParentAndNoRows();
    void nestedRowsFindTheirParent();
    void flags();

    void headerData_data();
    void headerData();
    void setHeaderData_data();
    void setHeaderData();

    void roles_data();
    void roles();
    void noDataWhileLoading();
    void presentationRolesWithoutAWindow();
    void arrowWithoutAGuiApplication();

    void setData_data();
    void setData();
    void setDataOfUnknownRole();
    void setDataWithoutACell();
    void undoableStoreSignalsTwice();
    void rejectedUndoableStore_data();
    void rejectedUndoableStore();

    void errorCodes();

    void insertRows_data();
    void insertRows();
    void insertedRowsAreUnset();
    void removeRows_data();
    void removeRows();
    void persistentIndicesFollowTheirRows();
    void undoAndRedoOfNestedRows();
    void insertColumns_data();
    void insertColumns();
    void removeColumns_data();
    void removeColumns();
    void removingAllColumnsRemovesTheRows();

    void changeFlags();
};

void tst_TreeModel::tabs_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("headers");

    QTest::newRow("Keywords") << 13 << "Model13"
                              << lines(
                                     {"Keyword                                    ", "Value", ""});
    QTest::newRow("Scan List") << 14 << "Model14"
                               << lines({"Keyword          ", "Marvane Variable                  ",
                                         "Statistical\nMember        ", "Channel\nKeyword"});
    QTest::newRow("Meta Data List") << 15 << "Model15"
                                    << lines({"Keyword          ", "PAM Keyword        ",
                                              "Marvane Variable                  "});
    QTest::newRow("Scan List Aux User")
        << 16 << "Model16"
        << lines({"Keyword     ", "Marvane Variable                  ",
                  "Alternate Name                   "});
    QTest::newRow("ECM List") << 17 << "Model17"
                              << lines({"Keyword     ", "Ext. Number         ",
                                        "ASAM Specs Path   "});
}

void tst_TreeModel::tabs()
{
    QFETCH(int, tab);
    QFETCH(QStringList, headers);
    const auto model = modelOfTree(nullptr, tab);
    QTEST(model->objectName(), "name");
    QCOMPARE(model->columnCount(), headers.size());
    for (int column = 0; column < headers.size(); ++column)
        QCOMPARE(model->headerData(column, Qt::Horizontal).toString(), headers.at(column));
}

void tst_TreeModel::newModelIsClean()
{
    const auto model = modelOfText("@SCRIBON x\n@SCAN_LIST\na b\n", EDIT_TAB2);
    QCOMPARE(model->rowCount(), 2);
    QVERIFY(!model->isModified());
    QVERIFY(!model->isDirty());
    QCOMPARE(model->getErrorCount(), 0);
}

void tst_TreeModel::modelWithoutRows()
{
    const auto model = modelOfTree(nullptr, EDIT_TAB1);
    QCOMPARE(model->rowCount(), 0);
    QVERIFY(!model->hasChildren());
    QVERIFY(!model->index(0, 0).isValid());
}

void tst_TreeModel::columnCountIsThatOfTheHeaders()
{
    const auto model = sampleModel();
    QCOMPARE(model->columnCount(), 3);
    QCOMPARE(model->columnCount(model->index(0, 0)), 3);
    QCOMPARE(model->columnCount(model->index(1, 2)), 3);
}

void tst_TreeModel::index_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("valid");

    QTest::newRow("first cell") << 0 << 0 << true;
    QTest::newRow("last cell") << 1 << 2 << true;
    QTest::newRow("a column beyond the last is not looked at") << 0 << 7 << true;
    QTest::newRow("a row beyond the last") << 2 << 0 << false;
    QTest::newRow("a row before the first") << -1 << 0 << false;
    QTest::newRow("a column before the first") << 0 << -1 << false;
}

void tst_TreeModel::index()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(bool, valid);
    const auto model = sampleModel();
    const QModelIndex index = model->index(row, column);
    QCOMPARE(index.isValid(), valid);
    if (valid) {
        QCOMPARE(index.row(), row);
        QCOMPARE(index.column(), column);
    }
}

void tst_TreeModel::dataOfAColumnBeyondTheLastIsInvalid()
{
    const auto model = sampleModel();
    const QModelIndex index = model->index(0, 7);
    QVERIFY(!model->data(index, Qt::DisplayRole).isValid());
    QVERIFY(!model->setData(index, QStringLiteral("x")));
    QCOMPARE(rowLines(*model), sampleLines());
}

void tst_TreeModel::rowsHaveNoParentAndNoRows()
{
    const auto model = sampleModel();
    for (int column = 0; column < 3; ++column) {
        const QModelIndex cell = model->index(1, column);
        QVERIFY(!model->parent(cell).isValid());
        QCOMPARE(model->rowCount(cell), 0);
        QVERIFY(!model->index(0, 0, cell).isValid());
    }
    QVERIFY(!model->parent(QModelIndex()).isValid());
}

void tst_TreeModel::nestedRowsFindTheirParent()
{
    const auto model = treeForNesting();
    const QModelIndex parent = model->index(1, 0);
    QVERIFY(model->insertRows(0, 2, parent));
    const QModelIndex child = model->index(1, 2, parent);
    QVERIFY(child.isValid());
    QCOMPARE(model->parent(child), parent);
    QCOMPARE(model->rowCount(parent), 2);
    QVERIFY2(!model->index(0, 0, model->index(1, 1)).isValid(), "rows hang below column 0 alone");
}

void tst_TreeModel::flags()
{
    const auto model = sampleModel();
    QCOMPARE(model->flags(QModelIndex()), Qt::ItemFlags());
    const Qt::ItemFlags editable = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable;
    for (int column = 0; column < 3; ++column)
        QCOMPARE(model->flags(model->index(0, column)), editable);
}

void tst_TreeModel::headerData_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("text");

    const int across = Qt::Horizontal;
    const int down = Qt::Vertical;
    QTest::newRow("a column") << 1 << across << int(Qt::DisplayRole)
                              << QVariant(QStringLiteral("Value"));
    QTest::newRow("a column without a text")
        << 2 << across << int(Qt::DisplayRole) << QVariant(QString());
    QTest::newRow("a column beyond the last") << 3 << across << int(Qt::DisplayRole) << QVariant();
    QTest::newRow("a column before the first")
        << -1 << across << int(Qt::DisplayRole) << QVariant();
    QTest::newRow("a row") << 0 << down << int(Qt::DisplayRole) << QVariant();
    QTest::newRow("another role") << 1 << across << int(Qt::EditRole) << QVariant();
}

void tst_TreeModel::headerData()
{
    QFETCH(int, section);
    QFETCH(int, orientation);
    QFETCH(int, role);
    const auto model = sampleModel();
    QTEST(model->headerData(section, static_cast<Qt::Orientation>(orientation), role), "text");
}

void tst_TreeModel::setHeaderData_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("stored");

    QTest::newRow("a column") << 1 << int(Qt::Horizontal) << int(Qt::EditRole) << true;
    QTest::newRow("a column beyond the last")
        << 3 << int(Qt::Horizontal) << int(Qt::EditRole) << false;
    QTest::newRow("a row") << 1 << int(Qt::Vertical) << int(Qt::EditRole) << false;
    QTest::newRow("another role") << 1 << int(Qt::Horizontal) << int(Qt::DisplayRole) << false;
}

void tst_TreeModel::setHeaderData()
{
    QFETCH(int, section);
    QFETCH(int, orientation);
    QFETCH(int, role);
    QFETCH(bool, stored);
    const auto model = sampleModel();
    QSignalSpy changed(model.get(), &QAbstractItemModel::headerDataChanged);

    QCOMPARE(model->setHeaderData(section, static_cast<Qt::Orientation>(orientation),
                                  QStringLiteral("new"), role),
             stored);

    QCOMPARE(changed.size(), stored ? 1 : 0);
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(),
             stored ? QStringLiteral("new") : QStringLiteral("Value"));
    if (stored)
        QCOMPARE(changed.first(), QVariantList({QVariant::fromValue(Qt::Horizontal), 1, 1}));
    QVERIFY2(!model->isModified(), "headers are no part of the document");
}

void tst_TreeModel::roles_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("filler");
    QTest::addColumn<QVariant>("blank");

    const QVariant filler = QStringLiteral("FILLER_TXT");
    const QVariant blank = QStringLiteral(" ");
    QTest::newRow("display shows the cell as it is") << int(Qt::DisplayRole) << filler << blank;
    QTest::newRow("edit shows the cell as it is") << int(Qt::EditRole) << filler << blank;
    QTest::newRow("no error code before validation")
        << int(Qt::UserRole) << QVariant() << QVariant();
    QTest::newRow("fonts are the delegate's") << int(Qt::FontRole) << QVariant() << QVariant();
    QTest::newRow("no background") << int(Qt::BackgroundRole) << QVariant() << QVariant();
    QTest::newRow("no alignment") << int(Qt::TextAlignmentRole) << QVariant() << QVariant();
    QTest::newRow("no check box") << int(Qt::CheckStateRole) << QVariant() << QVariant();
}

void tst_TreeModel::roles()
{
    QFETCH(int, role);
    const auto model = sampleModel();
    QTEST(model->data(model->index(0, 2), role), "filler");
    QTEST(model->data(model->index(1, 2), role), "blank");
    QVERIFY(!model->data(QModelIndex(), role).isValid());
}

void tst_TreeModel::noDataWhileLoading()
{
    const auto model = sampleModel();
    const QModelIndex cell = model->index(0, 0);
    model->setErrorCode(cell, DE_SYNTAX_ERR);
    LoadingFile = 1;
    for (int role = 0; role <= Qt::UserRole; ++role)
        QVERIFY(!model->data(cell, role).isValid());
    LoadingFile = 0;
    QCOMPARE(model->data(cell, Qt::DisplayRole).toString(), QStringLiteral("@SCRIBON"));
    QCOMPARE(model->data(cell, Qt::UserRole).toInt(), 1);
}

// A program without a window has chosen no colour and has no keyword help.
void tst_TreeModel::presentationRolesWithoutAWindow()
{
    const auto model = sampleModel();
    const QModelIndex cell = model->index(1, 0);
    QVERIFY(model->data(cell, Qt::ToolTipRole).toString().isEmpty());
    model->setErrorCode(cell, DE_SYNTAX_ERR);
    QCOMPARE(model->data(cell, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
    QCOMPARE(model->data(cell, Qt::ToolTipRole).toString(),
             QStringLiteral("\nInvalid keyword found! >>"));
}

void tst_TreeModel::arrowWithoutAGuiApplication()
{
    const auto model = sampleModel();
    const QVariant arrow = model->data(model->index(0, 0), Qt::DecorationRole);
    QCOMPARE(arrow.userType(), int(QMetaType::QIcon));
    QCOMPARE(model->data(model->index(0, 2), Qt::DecorationRole).toString(), FILLER_TEXT);
}

void tst_TreeModel::setData_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("stored");
    QTest::newRow("another text") << "y" << true;
    QTest::newRow("another case") << "X" << true;
    QTest::newRow("an empty text") << "" << true;
    QTest::newRow("the present text") << "x" << false;
}

void tst_TreeModel::setData()
{
    QFETCH(QString, text);
    QFETCH(bool, stored);
    const auto model = sampleModel();
    const QModelIndex cell = model->index(0, 1);
    const ModelWatch watch(model.get());

    QCOMPARE(model->setData(cell, text), stored);

    QCOMPARE(model->data(cell, Qt::DisplayRole).toString(), text);
    if (!stored) {
        QVERIFY(watch.sawNothing());
        return;
    }
    QVERIFY(model->isModified());
    QVERIFY(model->isDirty());
    QCOMPARE(watch.dataChanged().size(), 1);
    QCOMPARE(watch.dataChanged().first(),
             QVariantList({cell, cell, QVariant::fromValue(QVector<int>())}));
}

void tst_TreeModel::setDataOfUnknownRole()
{
    const auto model = sampleModel();
    const QModelIndex cell = model->index(0, 1);
    const ModelWatch watch(model.get());
    QVERIFY(!model->setData(cell, QStringLiteral("y"), Qt::DisplayRole));
    QVERIFY(!model->undoredo_setData(cell, QStringLiteral("y"), Qt::DisplayRole));
    QVERIFY(!model->setData(cell, 1, Qt::UserRole));
    QVERIFY(watch.sawNothing());
    QCOMPARE(rowLines(*model), sampleLines());
}

void tst_TreeModel::setDataWithoutACell()
{
    const auto model = sampleModel();
    const ModelWatch watch(model.get());
    QVERIFY(!model->setData(QModelIndex(), QStringLiteral("y")));
    QVERIFY(!model->undoredo_setData(QModelIndex(), QStringLiteral("y")));
    QVERIFY(watch.sawNothing());
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString().trimmed(), QStringLiteral("Keyword"));
}

// Once when the command stores the text, and once when the edit returns.
void tst_TreeModel::undoableStoreSignalsTwice()
{
    WindowlessEditing editing;
    const auto model = sampleModel();
    const QModelIndex cell = model->index(0, 1);
    const ModelWatch watch(model.get());

    QVERIFY(model->undoredo_setData(cell, QStringLiteral("y")));

    QCOMPARE(model->data(cell, Qt::DisplayRole).toString(), QStringLiteral("y"));
    QCOMPARE(watch.dataChanged().size(), 2);
    QCOMPARE(editing.stack()->count(), 1);
    QVERIFY(model->isModified());
    QVERIFY(model->isDirty());
}

void tst_TreeModel::rejectedUndoableStore_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("text");
    QTest::newRow("the present text") << "x"
                                      << "x";
    QTest::newRow("an unset cell") << "<unset>"
                                   << "x";
}

void tst_TreeModel::rejectedUndoableStore()
{
    QFETCH(QString, cell);
    QFETCH(QString, text);
    WindowlessEditing editing;
    const QStringList lines{QStringLiteral("@MODE | %1 | FILLER_TXT").arg(cell)};
    const auto model = modelOfRows(EDIT_TAB1, lines);
    const ModelWatch watch(model.get());
    QVERIFY(!model->undoredo_setData(model->index(0, 1), text));
    QVERIFY(watch.sawNothing());
    QCOMPARE(rowLines(*model), lines);
    QCOMPARE(editing.stack()->count(), 0);
}

void tst_TreeModel::errorCodes()
{
    const auto model = sampleModel();
    const QModelIndex cell = model->index(1, 1);
    const ModelWatch watch(model.get());

    QVERIFY(!model->errorCode(cell).isValid());
    QVERIFY(model->setErrorCode(cell, DE_DUPLICATE_ERR));
    QCOMPARE(model->errorCode(cell), QVariant(2));
    QCOMPARE(model->data(cell, Qt::UserRole), QVariant(2));
    QVERIFY(!model->errorCode(model->index(0, 1)).isValid());

    QVERIFY(!model->setErrorCode(QModelIndex(), 1));
    QVERIFY(!model->setErrorCode(model->index(0, 3), 1));
    QVERIFY(!model->errorCode(QModelIndex()).isValid());
    QVERIFY2(watch.sawNothing(), "a code is no change of the document");
}

void tst_TreeModel::insertRows_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("lines");

    const char* const first = "@SCRIBON | x | FILLER_TXT";
    const char* const second = "@MODE | m | \\s";
    const char* const unset = "<unset> | <unset> | <unset>";
    QTest::newRow("at the front") << 0 << 1 << true << lines({unset, first, second});
    QTest::newRow("between") << 1 << 2 << true << lines({first, unset, unset, second});
    QTest::newRow("at the end") << 2 << 1 << true << lines({first, second, unset});
    QTest::newRow("behind the end") << 3 << 1 << false << lines({first, second});
    QTest::newRow("before the front") << -1 << 1 << false << lines({first, second});
    QTest::newRow("none") << 1 << 0 << true << lines({first, second});
}

void tst_TreeModel::insertRows()
{
    QFETCH(int, position);
    QFETCH(int, rows);
    QFETCH(QStringList, lines);
    const auto model = sampleModel();
    const ModelWatch watch(model.get());

    QTEST(model->insertRows(position, rows), "result");

    QCOMPARE(rowLines(*model), lines);
    QVERIFY(!model->isModified());
    QVERIFY(!model->isDirty());
    const bool changed = lines.size() > 2;
    QCOMPARE(watch.rowsInserted().size(), changed ? 1 : 0);
    if (changed) {
        QCOMPARE(watch.rowsInserted().first(),
                 QVariantList({QModelIndex(), position, position + rows - 1}));
    }
}

void tst_TreeModel::insertedRowsAreUnset()
{
    WindowlessEditing editing;
    const auto model = sampleModel();
    model->insertRows(1, 1);
    const QModelIndex cell = model->index(1, 1);
    QVERIFY(!model->data(cell, Qt::DisplayRole).isValid());
    QVERIFY(!model->errorCode(cell).isValid());
    QVERIFY2(!model->undoredo_setData(cell, QStringLiteral("x")), "an unset cell takes no edit");
    QVERIFY2(model->setData(cell, QStringLiteral("x")), "a command may set it");
    QVERIFY(model->isModified());
}

void tst_TreeModel::removeRows_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("lines");

    const char* const first = "@SCRIBON | x | FILLER_TXT";
    const char* const second = "@MODE | m | \\s";
    QTest::newRow("the first") << 0 << 1 << true << lines({second});
    QTest::newRow("the last") << 1 << 1 << true << lines({first});
    QTest::newRow("all") << 0 << 2 << true << QStringList();
    QTest::newRow("one too many") << 1 << 2 << false << lines({first, second});
    QTest::newRow("before the front") << -1 << 1 << false << lines({first, second});
    QTest::newRow("none") << 1 << 0 << true << lines({first, second});
}

void tst_TreeModel::removeRows()
{
    QFETCH(int, position);
    QFETCH(int, rows);
    QFETCH(bool, result);
    QFETCH(QStringList, lines);
    const auto model = sampleModel();
    const ModelWatch watch(model.get());

    QCOMPARE(model->removeRows(position, rows), result);

    QCOMPARE(rowLines(*model), lines);
    QCOMPARE(model->isModified(), result);
    QCOMPARE(model->isDirty(), result);
    const bool changed = lines.size() < 2;
    QCOMPARE(watch.rowsRemoved().size(), changed ? 1 : 0);
    if (changed) {
        QCOMPARE(watch.rowsRemoved().first(),
                 QVariantList({QModelIndex(), position, position + rows - 1}));
    }
}

void tst_TreeModel::persistentIndicesFollowTheirRows()
{
    const auto model = sampleModel();
    const QPersistentModelIndex mode = model->index(1, 1);
    model->insertRows(0, 3);
    QCOMPARE(mode.row(), 4);
    model->removeRows(1, 2);
    QCOMPARE(mode.row(), 2);
    QCOMPARE(mode.data().toString(), QStringLiteral("m"));
    model->removeRows(2, 1);
    QVERIFY(!mode.isValid());
}

void tst_TreeModel::undoAndRedoOfNestedRows()
{
    const auto model = treeForNesting();
    const QModelIndex parent = model->index(0, 0);
    const ModelWatch watch(model.get());
    QVERIFY(model->insertRows(0, 2, parent));
    QVERIFY(!model->insertRows(3, 1, parent));
    QVERIFY(model->removeRows(1, 1, parent));
    QVERIFY(!model->removeRows(1, 1, parent));
    QCOMPARE(model->rowCount(parent), 1);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(watch.rowsInserted().size(), 1);
    QCOMPARE(watch.rowsRemoved().size(), 1);
}

void tst_TreeModel::insertColumns_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("firstRow");

    QTest::newRow("at the front") << 0 << 1 << true << "<unset> | @SCRIBON | x | FILLER_TXT";
    QTest::newRow("at the end") << 3 << 2 << true
                                << "@SCRIBON | x | FILLER_TXT | <unset> | <unset>";
    QTest::newRow("behind the end") << 4 << 1 << false << "@SCRIBON | x | FILLER_TXT";
    QTest::newRow("none") << 1 << 0 << true << "@SCRIBON | x | FILLER_TXT";
}

void tst_TreeModel::insertColumns()
{
    QFETCH(int, position);
    QFETCH(int, columns);
    QFETCH(bool, result);
    const auto model = sampleModel();
    QSignalSpy inserted(model.get(), &QAbstractItemModel::columnsInserted);

    QCOMPARE(model->insertColumns(position, columns), result);

    QTEST(rowLines(*model).first(), "firstRow");
    QCOMPARE(model->isModified(), result);
    QCOMPARE(model->isDirty(), result);
    QCOMPARE(inserted.size(), model->columnCount() > 3 ? 1 : 0);
}

void tst_TreeModel::removeColumns_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("firstRow");

    QTest::newRow("the first") << 0 << 1 << true << "x | FILLER_TXT";
    QTest::newRow("the last two") << 1 << 2 << true << "@SCRIBON";
    QTest::newRow("one too many") << 1 << 3 << false << "@SCRIBON | x | FILLER_TXT";
    QTest::newRow("none") << 1 << 0 << true << "@SCRIBON | x | FILLER_TXT";
}

void tst_TreeModel::removeColumns()
{
    QFETCH(int, position);
    QFETCH(int, columns);
    const auto model = sampleModel();
    QSignalSpy removed(model.get(), &QAbstractItemModel::columnsRemoved);

    QTEST(model->removeColumns(position, columns), "result");

    QTEST(rowLines(*model).first(), "firstRow");
    QVERIFY(!model->isModified());
    QVERIFY(!model->isDirty());
    QCOMPARE(removed.size(), model->columnCount() < 3 ? 1 : 0);
}

void tst_TreeModel::removingAllColumnsRemovesTheRows()
{
    const auto model = sampleModel();
    QVERIFY(model->removeColumns(0, 3));
    QCOMPARE(model->columnCount(), 0);
    QCOMPARE(model->rowCount(), 0);
    QVERIFY2(model->isModified(), "rows have gone");
}

void tst_TreeModel::changeFlags()
{
    const auto model = sampleModel();
    model->setModified();
    QVERIFY(model->isModified());
    QVERIFY(!model->isDirty());
    model->clrModified();
    QVERIFY(!model->isModified());
    model->setDirty();
    QVERIFY(model->isDirty());
    QVERIFY(!model->isModified());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_TreeModel)
#include "tst_treemodel.moc"
