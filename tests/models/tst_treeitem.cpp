// TreeItem: cells, error codes, children, and the two ways to store a text.

#include <QPoint>
#include <QTest>

#include "model_text.h"
#include "treeitem.h"
#include "windowless_editing.h"

namespace {

QVector<QVariant> cells(const QStringList& texts)
{
    QVector<QVariant> result;
    for (const QString& text : texts)
        result.append(text);
    return result;
}

TreeItem row(int columns)
{
    return {QVector<QVariant>(columns), QVector<QVariant>(columns)};
}

QStringList texts(const TreeItem& item)
{
    QStringList result;
    for (int column = 0; column < item.columnCount(); ++column)
        result.append(item.data(column).toString());
    return result;
}

const auto A_B_C = lines({"a", "b", "c"});

}  // namespace

class tst_TreeItem : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newItem();
    void nothingOutOfRange();
    void childNumbers();
    void insertChildren_data();
    void insertChildren();
    void insertedRowsAreUnset();
    void removeChildren_data();
    void removeChildren();
    void insertColumns_data();
    void insertColumns();
    void insertedColumnHasNoErrorCode();
    void removeColumns_data();
    void removeColumns();
    void columnsReachAllDepths();
    void columnCountOfAShorterChildIsKept();
    void plainStore_data();
    void plainStore();
    void plainStoreDoesNotCompare();
    void errorCodeStore();
    void comparingStore_data();
    void comparingStore();
    void dirtyFlag();

    void undoableStore_data();
    void undoableStore();
    void undoableStoreOfATreeNode();
    void undoableStoreNeedsAnActiveStack();
};

void tst_TreeItem::newItem()
{
    TreeItem parent(cells(A_B_C), {});
    TreeItem item(cells(A_B_C), cells({QStringLiteral("1")}), &parent);
    QCOMPARE(texts(item), A_B_C);
    QCOMPARE(item.errorCode(0).toString(), QStringLiteral("1"));
    QCOMPARE(item.parent(), &parent);
    QCOMPARE(item.childCount(), 0);
    QVERIFY(item.isDirty());
    QCOMPARE(parent.parent(), nullptr);
    QCOMPARE(parent.childNumber(), 0);
}

void tst_TreeItem::nothingOutOfRange()
{
    TreeItem item = row(3);
    item.insertChildren(0, 1, 3);
    QVERIFY(!item.data(5).isValid());
    QVERIFY(!item.data(-1).isValid());
    QVERIFY(!item.errorCode(3).isValid());
    QCOMPARE(item.child(-1), nullptr);
    QCOMPARE(item.child(1), nullptr);
    QVERIFY(item.child(0) != nullptr);
}

void tst_TreeItem::childNumbers()
{
    TreeItem item = row(1);
    item.insertChildren(0, 3, 1);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(item.child(i)->childNumber(), i);
        QCOMPARE(item.child(i)->parent(), &item);
    }
}

void tst_TreeItem::insertChildren_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("children");

    QTest::newRow("at the front") << 0 << 1 << true << "-ab";
    QTest::newRow("in the middle") << 1 << 2 << true << "a--b";
    QTest::newRow("at the end") << 2 << 1 << true << "ab-";
    QTest::newRow("behind the end") << 3 << 1 << false << "ab";
    QTest::newRow("before the front") << -1 << 1 << false << "ab";
    QTest::newRow("none") << 1 << 0 << true << "ab";
    QTest::newRow("fewer than none") << 1 << -2 << true << "ab";
    QTest::newRow("none behind the end") << 3 << 0 << false << "ab";
}

void tst_TreeItem::insertChildren()
{
    QFETCH(int, position);
    QFETCH(int, count);
    TreeItem item = row(1);
    item.insertChildren(0, 2, 1);
    item.child(0)->setData(0, QStringLiteral("a"));
    item.child(1)->setData(0, QStringLiteral("b"));

    QTEST(item.insertChildren(position, count, 1), "result");

    QString children;
    for (int i = 0; i < item.childCount(); ++i) {
        const QVariant cell = item.child(i)->data(0);
        children += cell.isValid() ? cell.toString() : QStringLiteral("-");
    }
    QTEST(children, "children");
}

void tst_TreeItem::insertedRowsAreUnset()
{
    TreeItem item = row(1);
    QVERIFY(item.insertChildren(0, 2, 3));
    for (int i = 0; i < 2; ++i) {
        TreeItem* const child = item.child(i);
        QCOMPARE(child->columnCount(), 3);
        QVERIFY(!child->data(0).isValid());
        QVERIFY(!child->errorCode(0).isValid());
        QVERIFY2(child->setErrorCode(2, 1), "a code for each column");
        QVERIFY2(!child->setErrorCode(3, 1), "and none beyond");
        QVERIFY2(!child->data(2).isValid(), "codes are not cells");
    }
}

void tst_TreeItem::removeChildren_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("children");

    QTest::newRow("the first") << 0 << 1 << true << "bc";
    QTest::newRow("the last") << 2 << 1 << true << "ab";
    QTest::newRow("several") << 1 << 2 << true << "a";
    QTest::newRow("all") << 0 << 3 << true << "";
    QTest::newRow("one too many") << 1 << 3 << false << "abc";
    QTest::newRow("as many as a number can hold") << 1 << INT_MAX << false << "abc";
    QTest::newRow("behind the end") << 3 << 1 << false << "abc";
    QTest::newRow("before the front") << -1 << 1 << false << "abc";
    QTest::newRow("none") << 1 << 0 << true << "abc";
    QTest::newRow("fewer than none") << 1 << -1 << true << "abc";
}

void tst_TreeItem::removeChildren()
{
    QFETCH(int, position);
    QFETCH(int, count);
    TreeItem item = row(1);
    item.insertChildren(0, 3, 1);
    for (int i = 0; i < 3; ++i)
        item.child(i)->setData(0, A_B_C.at(i));

    QTEST(item.removeChildren(position, count), "result");

    QString children;
    for (int i = 0; i < item.childCount(); ++i)
        children += item.child(i)->data(0).toString();
    QTEST(children, "children");
}

void tst_TreeItem::insertColumns_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("cells");

    QTest::newRow("at the front") << 0 << 1 << true << lines({"", "a", "b", "c"});
    QTest::newRow("in the middle") << 1 << 2 << true << lines({"a", "", "", "b", "c"});
    QTest::newRow("at the end") << 3 << 1 << true << lines({"a", "b", "c", ""});
    QTest::newRow("behind the end") << 4 << 1 << false << A_B_C;
    QTest::newRow("before the front") << -1 << 1 << false << A_B_C;
    QTest::newRow("none") << 1 << 0 << true << A_B_C;
    QTest::newRow("fewer than none") << 1 << -1 << true << A_B_C;
}

void tst_TreeItem::insertColumns()
{
    QFETCH(int, position);
    QFETCH(int, columns);
    TreeItem item(cells(A_B_C), QVector<QVariant>(3));
    QTEST(item.insertColumns(position, columns), "result");
    QTEST(texts(item), "cells");
}

void tst_TreeItem::insertedColumnHasNoErrorCode()
{
    TreeItem item = row(3);
    QVERIFY(item.insertColumns(1, 1));
    QCOMPARE(item.columnCount(), 4);
    QVERIFY(item.setData(3, QStringLiteral("x")));
    QVERIFY(item.setErrorCode(2, 1));
    QVERIFY(!item.setErrorCode(3, 1));
}

void tst_TreeItem::removeColumns_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("cells");

    QTest::newRow("the first") << 0 << 1 << true << lines({"b", "c"});
    QTest::newRow("the last two") << 1 << 2 << true << lines({"a"});
    QTest::newRow("all") << 0 << 3 << true << QStringList();
    QTest::newRow("one too many") << 1 << 3 << false << A_B_C;
    QTest::newRow("as many as a number can hold") << 1 << INT_MAX << false << A_B_C;
    QTest::newRow("before the front") << -1 << 1 << false << A_B_C;
    QTest::newRow("none") << 1 << 0 << true << A_B_C;
    QTest::newRow("fewer than none") << 1 << -1 << true << A_B_C;
}

void tst_TreeItem::removeColumns()
{
    QFETCH(int, position);
    QFETCH(int, columns);
    TreeItem item(cells(A_B_C), QVector<QVariant>(3));
    QTEST(item.removeColumns(position, columns), "result");
    QTEST(texts(item), "cells");
    QVERIFY2(item.setErrorCode(2, 1), "the codes stay");
}

void tst_TreeItem::columnsReachAllDepths()
{
    TreeItem item = row(2);
    item.insertChildren(0, 1, 2);
    item.child(0)->insertChildren(0, 1, 2);
    TreeItem* const grandchild = item.child(0)->child(0);

    QVERIFY(item.insertColumns(2, 3));
    QCOMPARE(item.child(0)->columnCount(), 5);
    QCOMPARE(grandchild->columnCount(), 5);

    QVERIFY(item.removeColumns(1, 4));
    QCOMPARE(item.child(0)->columnCount(), 1);
    QCOMPARE(grandchild->columnCount(), 1);
}

void tst_TreeItem::columnCountOfAShorterChildIsKept()
{
    TreeItem item = row(3);
    item.insertChildren(0, 1, 1);
    QVERIFY(item.insertColumns(3, 1));
    QCOMPARE(item.child(0)->columnCount(), 1);
    QVERIFY(item.removeColumns(2, 2));
    QCOMPARE(item.child(0)->columnCount(), 1);
}

void tst_TreeItem::plainStore_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("stored");
    QTest::newRow("first column") << 0 << true;
    QTest::newRow("last column") << 2 << true;
    QTest::newRow("behind the last") << 3 << false;
    QTest::newRow("before the first") << -1 << false;
}

void tst_TreeItem::plainStore()
{
    QFETCH(int, column);
    QFETCH(bool, stored);
    TreeItem item(cells(A_B_C), QVector<QVariant>(3));
    QCOMPARE(item.setData(column, QStringLiteral("x")), stored);
    QCOMPARE(item.data(column).toString() == QStringLiteral("x"), stored);
    QCOMPARE(texts(item).count(QStringLiteral("x")), stored ? 1 : 0);
}

void tst_TreeItem::plainStoreDoesNotCompare()
{
    TreeItem item(cells(A_B_C), QVector<QVariant>(3));
    QVERIFY(item.setData(0, QStringLiteral("a")));
    QVERIFY(item.setData(0, QVariant()));
    QVERIFY(!item.data(0).isValid());
}

void tst_TreeItem::errorCodeStore()
{
    TreeItem item = row(2);
    QVERIFY(item.setErrorCode(1, DE_DUPLICATE_ERR));
    QCOMPARE(item.errorCode(1), QVariant(2));
    QVERIFY(!item.errorCode(0).isValid());
    QVERIFY(!item.setErrorCode(-1, 1));
    QVERIFY(!item.setErrorCode(2, 1));
}

void tst_TreeItem::comparingStore_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("stored");

    const auto text = [](const char* value) { return QVariant(QString::fromLatin1(value)); };
    QTest::newRow("another text") << text("a") << text("b") << true;
    QTest::newRow("the same text") << text("a") << text("a") << false;
    QTest::newRow("the same letters in another case") << text("a") << text("A") << true;
    QTest::newRow("an empty text over a text") << text("a") << text("") << true;
    QTest::newRow("a text into an unset cell") << QVariant() << text("a") << true;
    QTest::newRow("an empty text into an unset cell") << QVariant() << text("") << false;
    QTest::newRow("a number over its own text") << text("5") << QVariant(5) << false;
    QTest::newRow("a number over another text") << text("4") << QVariant(5) << true;
    QTest::newRow("what is no text") << text("a") << QVariant(QPoint(1, 2)) << false;
    QTest::newRow("nothing") << text("a") << QVariant() << false;
}

void tst_TreeItem::comparingStore()
{
    QFETCH(QVariant, before);
    QFETCH(QVariant, value);
    QFETCH(bool, stored);
    const auto model = modelOfTree(nullptr, EDIT_TAB1);
    model->insertRows(0, 1);
    TreeItem item = row(3);
    item.setData(1, before);

    QCOMPARE(item.setData(model.get(), model->index(0, 1), value), stored);
    QCOMPARE(item.data(1), stored ? value : before);
    QVERIFY(!item.setData(model.get(), model->index(0, 3), QStringLiteral("x")));
    QVERIFY(!item.setData(model.get(), QModelIndex(), QStringLiteral("x")));
}

void tst_TreeItem::dirtyFlag()
{
    TreeItem item = row(1);
    item.clrDirty();
    QVERIFY(!item.isDirty());
    item.setDirty();
    QVERIFY(item.isDirty());
}

void tst_TreeItem::undoableStore_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("pushed");
    QTest::addColumn<QString>("after");

    const auto text = [](const char* value) { return QVariant(QString::fromLatin1(value)); };
    QTest::newRow("another text") << "a" << 1 << text("b") << true << "b";
    QTest::newRow("the same text") << "a" << 1 << text("a") << false << "a";
    QTest::newRow("the same letters in another case") << "a" << 1 << text("A") << true << "A";
    QTest::newRow("a text into an empty cell") << "<empty>" << 1 << text("b") << true << "b";
    QTest::newRow("a text into an unset cell") << "<unset>" << 1 << text("b") << false << "<unset>";
    QTest::newRow("a text into an inserted cell") << "\\s" << 1 << text("b") << true << "b";
    QTest::newRow("an empty text is a step without effect") << "a" << 1 << text("") << true << "a";
    QTest::newRow("a column behind the last") << "a" << 3 << text("b") << false << "a";
    QTest::newRow("what is no text") << "a" << 1 << QVariant(QPoint(1, 2)) << true << "a";
}

void tst_TreeItem::undoableStore()
{
    QFETCH(QString, before);
    QFETCH(int, column);
    QFETCH(QVariant, value);
    QFETCH(bool, pushed);
    QFETCH(QString, after);
    WindowlessEditing editing;
    const auto model = modelOfRows(EDIT_TAB1, {QStringLiteral("k | %1 | v").arg(before)});
    const QModelIndex index = model->index(0, column);
    auto* const item = static_cast<TreeItem*>(index.internalPointer());

    QCOMPARE(item->undoredo_setData(model.get(), index, value), pushed);
    QCOMPARE(rowLines(*model), QStringList{QStringLiteral("k | %1 | v").arg(after)});
    const bool isText = value.canConvert<QString>();
    QCOMPARE(editing.stack()->count(), pushed && isText ? 1 : 0);
}

// A tree node is stored at once, and not as an undo step.
void tst_TreeItem::undoableStoreOfATreeNode()
{
    WindowlessEditing editing;
    const auto model = modelOfRows(EDIT_TAB1, {QStringLiteral("k | v | w")});
    const QModelIndex index = model->index(0, 1);
    auto* const item = static_cast<TreeItem*>(index.internalPointer());
    ANTLR3_BASE_TREE_struct tree{};

    QVERIFY(item->undoredo_setData(model.get(), index, QVariant::fromValue(&tree)));
    QCOMPARE(item->data(1).value<pANTLR3_BASE_TREE>(), &tree);
    QCOMPARE(editing.stack()->count(), 0);
}

void tst_TreeItem::undoableStoreNeedsAnActiveStack()
{
    WindowlessEditing editing;
    editing.setActiveStack(nullptr);
    const auto model = modelOfRows(EDIT_TAB1, {QStringLiteral("k | v | w")});
    const QModelIndex index = model->index(0, 1);
    auto* const item = static_cast<TreeItem*>(index.internalPointer());
    QVERIFY(!item->undoredo_setData(model.get(), index, QStringLiteral("x")));
    QCOMPARE(item->data(1).toString(), QStringLiteral("v"));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_TreeItem)
#include "tst_treeitem.moc"
