// TableView has the row heights, column widths and scroll positions of a plain QTreeView on the
// same model, also after random edits.

#include <QHeaderView>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QUndoStack>
#include <utility>

#include "antlr3_basetreedelegate.h"
#include "editor_access.h"
#include "tableview.h"
#include "window_test.h"

namespace {

// Texts of one and of several lines, in letters of several scripts, empty ones and special ones.
QStringList cellTexts()
{
    return {QStringLiteral("eng_speed"),
            QStringLiteral(" .AV"),
            QStringLiteral("'one\ntwo\nthree\nfour'"),
            QStringLiteral("one") + QChar::LineSeparator + QStringLiteral("two\rthree\n\n\n"),
            QString::fromUtf8("\u03a9\u0416 \u6f22\u5b57 \u0e01\u0e34 \u0628"),
            QStringLiteral("# a comment"),
            QStringLiteral("FILLER_TXT"),
            QStringLiteral(" "),
            QStringLiteral("@SCAN_LIST"),
            QStringLiteral("1 wrong"),
            QStringLiteral("a name that is much longer than all of the other names of the list"),
            QString()};
}

QByteArray mixedSpec(int rows)
{
    QByteArray spec =
        "@SCRIBON\ncell\n@DESCRIPTION\n'one\ntwo\nthree\nfour'\n"
        "# a comment\n@GROUP\ng\n@MODE\n\"a\n\nb\n\n\"\n@SCAN_LIST\n";
    for (int row = 0; row < rows; ++row)
        spec += "variable_" + QByteArray::number(row) + (row % 3 == 0 ? " .AV N\n" : " N\n") +
                (row % 7 == 0 ? "# note\n" : "");
    return spec;
}

// Not in row 0, which a list hides.
QModelIndex randomCell(const QAbstractItemModel& model, QRandomGenerator* random)
{
    return model.index(random->bounded(1, model.rowCount()), random->bounded(model.columnCount()));
}

}  // namespace

class TestTableView : public WindowTest {
    Q_OBJECT

public:
    TestTableView() { Q_INIT_RESOURCE(scriboneditor); }

private Q_SLOTS:
    void sameAsAPlainView_data();
    void sameAsAPlainView();
    void sameAfterRandomActions_data();
    void sameAfterRandomActions();
    void pageKeysFromAnyRow_data();
    void pageKeysFromAnyRow();
    void rowOutOfSightTouchesTheViewport();
    void openEditorOutOfSightKeepsItsPlace();
    void hiddenRowHasNoPlace();
    void jumpMeasuresNoRowsInBetween_data();
    void jumpMeasuresNoRowsInBetween();
    void widthsAreMeasuredOnce();
    void newErrorCodesAreMeasured();
    void newLayoutIsMeasured_data();
    void newLayoutIsMeasured();

private:
    void makeViews(int tab);
    template <typename Action>
    void onBoth(Action action);
    void fitBoth();
    void act(QRandomGenerator* random);
    void change(QRandomGenerator* random);
    void arrange(QRandomGenerator* random);
    void compareRows();
    void compareColumns();

    Antlr3_BaseTreeDelegate m_delegate;
    TreeModel* m_model = nullptr;
    std::unique_ptr<TableView> m_view;
    std::unique_ptr<QTreeView> m_plain;
};

template <typename Action>
void TestTableView::onBoth(Action action)
{
    action(m_view.get());
    action(m_plain.get());
}

// Shows a TableView and a plain QTreeView on the model of the tab.
void TestTableView::makeViews(int tab)
{
    m_model = modelOf(*m_window, tab);
    m_view = std::make_unique<TableView>();
    m_plain = std::make_unique<QTreeView>();
    connect(m_model, &TreeModel::codesChanged, m_view.get(), &TableView::updateLooks);
    onBoth([this, tab](QTreeView* view) {
        view->setItemDelegate(&m_delegate);
        view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        view->setIndentation(5);
        view->setRootIsDecorated(false);
        view->setModel(m_model);
        view->setRowHidden(0, QModelIndex(), tab != 0);
        view->setColumnHidden(0, tab != 0);
        view->resize(300, 400);
        view->show();
    });
    QVERIFY(QTest::qWaitForWindowExposed(m_plain.get()));
}

void TestTableView::fitBoth()
{
    onBoth([this](QTreeView* view) {
        for (int column = 0; column < m_model->columnCount(); ++column)
            view->resizeColumnToContents(column);
    });
}

void TestTableView::compareRows()
{
    const QRect area = m_plain->viewport()->rect();
    QCOMPARE(m_view->viewport()->rect(), area);
    for (int row = 0; row < m_model->rowCount(); ++row) {
        for (int column = 0; column < m_model->columnCount(); ++column) {
            const QModelIndex index = m_model->index(row, column);
            const QRect expected = m_plain->visualRect(index);
            const QRect rect = m_view->visualRect(index);
            QCOMPARE(rect.size(), expected.size());
            QCOMPARE(rect.intersects(area), expected.intersects(area));
            if (expected.intersects(area))
                QCOMPARE(rect, expected);
        }
    }
    QCOMPARE(m_view->verticalScrollBar()->value(), m_plain->verticalScrollBar()->value());
    QCOMPARE(m_view->verticalScrollBar()->maximum(), m_plain->verticalScrollBar()->maximum());
}

void TestTableView::compareColumns()
{
    for (int column = 0; column < m_model->columnCount(); ++column)
        QCOMPARE(m_view->header()->sectionSize(column), m_plain->header()->sectionSize(column));
}

void TestTableView::sameAsAPlainView_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("pointSize");
    for (const int pointSize : {6, 12, 40}) {
        QTest::addRow("keywords, %d points", pointSize) << 0 << 1 << pointSize;
        QTest::addRow("scan list, %d points", pointSize) << 1 << 60 << pointSize;
        QTest::addRow("long scan list, %d points", pointSize) << 1 << 2500 << pointSize;
        QTest::addRow("empty list, %d points", pointSize) << 3 << 0 << pointSize;
    }
}

void TestTableView::sameAsAPlainView()
{
    QFETCH(int, tab);
    QFETCH(int, rows);
    QFETCH(int, pointSize);
    loadGoodFile(mixedSpec(rows));
    makeViews(tab);
    const QFont font(QStringLiteral("DejaVu Sans"), pointSize);
    onBoth([&font](QTreeView* view) { view->setFont(font); });
    fitBoth();
    compareColumns();
    onBoth([](QTreeView* view) { view->scrollToBottom(); });
    compareRows();
    fitBoth();
    compareColumns();
}

// ---- Random actions ----------------------------------------------------------------------------

void TestTableView::change(QRandomGenerator* random)
{
    static const QStringList TEXTS = cellTexts();
    const QModelIndex cell = randomCell(*m_model, random);
    switch (random->bounded(6)) {
        case 0:
            m_model->insertRows(cell.row(), random->bounded(1, 4));
            break;
        case 1:
            m_model->removeRows(cell.row(), qMin(2, m_model->rowCount() - cell.row() - 1));
            break;
        case 2:
            m_model->setErrorCode(cell, random->bounded(-1, 3));
            break;
        case 3:
            m_window->uStack()->undo();
            break;
        case 4:
            m_model->setDirty();
            m_model->validate_model();
            break;
        default:
            m_model->undoredo_setData(cell, TEXTS.at(random->bounded(TEXTS.size())));
    }
}

void TestTableView::arrange(QRandomGenerator* random)
{
    const QModelIndex cell = randomCell(*m_model, random);
    const int number = random->bounded(100);
    switch (random->bounded(6)) {
        case 0:
            onBoth([number](QTreeView* view) {
                view->setFont(QFont(QStringLiteral("DejaVu Sans"), 6 + number % 30));
            });
            break;
        case 1:
            onBoth([number](QTreeView* view) { view->resize(200 + number, 100 + 4 * number); });
            break;
        case 2:
            onBoth([&cell, number](QTreeView* view) {
                view->scrollTo(cell, QAbstractItemView::ScrollHint(number % 4));
            });
            break;
        case 3:
            onBoth([number](QTreeView* view) { view->horizontalScrollBar()->setValue(number); });
            break;
        case 4:
            LoadingFile = number % 2;
            break;
        default:
            onBoth([&cell](QTreeView* view) { view->setCurrentIndex(cell); });
    }
}

// Measuring the rows comes first: a plain view measures them at other moments, with other columns
// in sight.
void TestTableView::act(QRandomGenerator* random)
{
    compareRows();
    if (random->bounded(2) == 0)
        change(random);
    else
        arrange(random);
    if (random->bounded(2) == 0)
        fitBoth();
    QApplication::processEvents();
}

void TestTableView::sameAfterRandomActions_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("actions");
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 5; ++seed)
        QTest::addRow("40 rows, seed %u", seed) << 40 << 250 << seed;
    for (quint32 seed = 1; seed <= 2; ++seed)
        QTest::addRow("2500 rows, seed %u", seed) << 2500 << 15 << seed;
}

void TestTableView::sameAfterRandomActions()
{
    QFETCH(int, rows);
    QFETCH(int, actions);
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    loadGoodFile(mixedSpec(rows));
    tabsOf(*m_window)->setCurrentIndex(1);
    makeViews(1);
    for (int action = 0; action < actions && !QTest::currentTestFailed(); ++action) {
        act(&random);
        compareColumns();
        compareRows();
    }
}

// ---- Page keys ---------------------------------------------------------------------------------

void TestTableView::pageKeysFromAnyRow_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("height");
    for (const int height : {40, 400}) {
        QTest::addRow("Page Down, %d pixels", height) << Qt::Key_PageDown << height;
        QTest::addRow("Page Up, %d pixels", height) << Qt::Key_PageUp << height;
    }
}

void TestTableView::pageKeysFromAnyRow()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, height);
    QRandomGenerator random(1);
    loadGoodFile(mixedSpec(200));
    makeViews(1);
    onBoth([height](QTreeView* view) { view->resize(300, height); });
    for (int i = 0; i < 40; ++i)
        m_model->setData(randomCell(*m_model, &random), cellTexts().at(2 + random.bounded(2)));
    for (int i = 0; i < 300; ++i) {
        const int row = random.bounded(1, m_model->rowCount());
        const int scrolled = random.bounded(m_model->rowCount());
        onBoth([&](QTreeView* view) {
            view->setCurrentIndex(m_model->index(row, 1));
            view->verticalScrollBar()->setValue(scrolled);
            QTest::keyClick(view, key);
        });
        QCOMPARE(m_view->currentIndex(), m_plain->currentIndex());
        QCOMPARE(m_view->verticalScrollBar()->value(), m_plain->verticalScrollBar()->value());
    }
}

// ---- Rows out of sight -------------------------------------------------------------------------

void TestTableView::rowOutOfSightTouchesTheViewport()
{
    loadGoodFile(mixedSpec(100));
    makeViews(1);
    const QRect area = m_view->viewport()->rect();
    QCOMPARE(m_view->visualRect(m_model->index(90, 1)).top(), area.bottom() + 1);
    m_view->scrollToBottom();
    QCOMPARE(m_view->visualRect(m_model->index(5, 1)).bottom(), area.top() - 1);
}

void TestTableView::openEditorOutOfSightKeepsItsPlace()
{
    loadGoodFile(mixedSpec(100));
    makeViews(1);
    const QModelIndex cell = m_model->index(2, 1);
    onBoth([&cell](QTreeView* view) {
        view->setIndexWidget(cell, new QLineEdit);
        view->scrollToBottom();
    });
    QCOMPARE(m_view->visualRect(cell), m_plain->visualRect(cell));
}

void TestTableView::hiddenRowHasNoPlace()
{
    loadGoodFile(mixedSpec(100));
    makeViews(1);
    m_view->scrollToBottom();
    QCOMPARE(m_view->visualRect(m_model->index(0, 1)), QRect());
    QCOMPARE(m_view->visualRect(QModelIndex()), QRect());
}

// ---- What is not measured ----------------------------------------------------------------------

namespace {

// Counts the cells that a view measures.
class CountingDelegate : public QStyledItemDelegate {
public:
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        ++m_measured;
        return QStyledItemDelegate::sizeHint(option, index);
    }
    int taken() { return std::exchange(m_measured, 0); }

private:
    mutable int m_measured = 0;
};

struct Jump {
    void (*act)(QTreeView* view, const QModelIndex& last);
};

void pressEnd(QTreeView* view, const QModelIndex& /*last*/)
{
    QTest::keyClick(view, Qt::Key_End);
}

void clickLast(QTreeView* view, const QModelIndex& last)
{
    view->scrollToBottom();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(last).center());
}

void pressPageDownFarFromTheViewport(QTreeView* view, const QModelIndex& /*last*/)
{
    view->scrollToBottom();
    QTest::keyClick(view, Qt::Key_PageDown);
}

void pressPageUpFarFromTheViewport(QTreeView* view, const QModelIndex& last)
{
    view->setCurrentIndex(last);
    view->scrollToTop();
    QTest::keyClick(view, Qt::Key_PageUp);
}

void editLast(QTreeView* view, const QModelIndex& last)
{
    view->model()->setData(last, QStringLiteral("edited"));
}

void makeCurrent(QTreeView* view, const QModelIndex& last)
{
    view->setCurrentIndex(last);
}

}  // namespace

Q_DECLARE_METATYPE(Jump)

void TestTableView::jumpMeasuresNoRowsInBetween_data()
{
    QTest::addColumn<Jump>("jump");
    QTest::newRow("key End") << Jump{pressEnd};
    QTest::newRow("click on the last row") << Jump{clickLast};
    QTest::newRow("key Page Down, first row current") << Jump{pressPageDownFarFromTheViewport};
    QTest::newRow("key Page Up, last row current") << Jump{pressPageUpFarFromTheViewport};
    QTest::newRow("edit of the last row") << Jump{editLast};
    QTest::newRow("last row becomes current") << Jump{makeCurrent};
}

void TestTableView::jumpMeasuresNoRowsInBetween()
{
    QFETCH(Jump, jump);
    loadGoodFile(mixedSpec(5000));
    makeViews(1);
    CountingDelegate counting;
    m_view->setItemDelegate(&counting);
    m_view->setCurrentIndex(m_model->index(1, 1));
    QApplication::processEvents();
    m_view->doItemsLayout();
    counting.taken();
    jump.act(m_view.get(), m_model->index(m_model->rowCount() - 1, 1));
    QApplication::processEvents();
    QVERIFY2(counting.taken() < 500, "rows out of sight were measured");
    m_view.reset();
}

void TestTableView::widthsAreMeasuredOnce()
{
    loadGoodFile(mixedSpec(500));
    makeViews(1);
    CountingDelegate counting;
    m_view->setItemDelegate(&counting);
    m_view->resizeColumnToContents(1);
    QVERIFY(counting.taken() > 500);
    m_view->resizeColumnToContents(1);
    QCOMPARE(counting.taken(), 0);
    m_view.reset();
}

// The views of the window are told of new codes.
void TestTableView::newErrorCodesAreMeasured()
{
    loadGoodFile(mixedSpec(10));
    QTreeView* const view = viewOf(*m_window, 1);
    CountingDelegate counting;
    QAbstractItemDelegate* const own = view->itemDelegate();
    view->setItemDelegate(&counting);
    view->resizeColumnToContents(1);
    counting.taken();
    QVERIFY(modelOf(*m_window, 1)->setErrorCode(view->model()->index(1, 1), DE_SYNTAX_ERR));
    view->resizeColumnToContents(1);
    QVERIFY(counting.taken() >= 10);
    view->setItemDelegate(own);
}

void TestTableView::newLayoutIsMeasured_data()
{
    QTest::addColumn<bool>("removes");
    QTest::newRow("widest row removed") << true;
    QTest::newRow("other font in the cells alone") << false;
}

// What is in sight stays as high as it was.
void TestTableView::newLayoutIsMeasured()
{
    QFETCH(bool, removes);
    loadGoodFile(mixedSpec(40));
    makeViews(1);
    onBoth(
        [](QTreeView* view) { view->header()->setFont(QFont(QStringLiteral("DejaVu Sans"), 9)); });
    QVERIFY(m_model->setData(m_model->index(5, 1), QString(90, QLatin1Char('w'))));
    fitBoth();
    const int before = m_view->columnWidth(1);
    if (removes)
        QVERIFY(m_model->removeRows(5, 1));
    else
        onBoth([](QTreeView* view) { view->setFont(QFont(QStringLiteral("DejaVu Sans"), 20)); });
    fitBoth();
    QVERIFY(m_view->columnWidth(1) != before);
    compareColumns();
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestTableView)
#include "tst_table_view.moc"
