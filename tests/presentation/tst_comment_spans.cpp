// Comments of the Keywords tab span the columns after each change of its rows, and do not count for
// the width of the first column.

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QUndoStack>

#include "editorundocommand.h"
#include "window_test.h"

namespace {

constexpr int FIRST_COMMENT = 1;
constexpr int MODE = 2;
constexpr int SECOND_COMMENT = 3;
constexpr int LOOSE_TEXT = 4;
constexpr int GROUP = 5;

const auto LONG_COMMENT = QByteArray("# ") + QByteArray(70, 'w');

QByteArray spec(const QByteArray& comment = "# one")
{
    return "@SCRIBON\ncell\n" + comment +
           "\n@MODE\nmode_var\n# two\nloose\n@GROUP\ngroup_var\n"
           "@SCAN_LIST\n# three\na A\n";
}

QByteArray comments(int count)
{
    QByteArray text = "@SCRIBON\ncell\n";
    for (int i = 0; i < count; ++i)
        text += "# " + QByteArray::number(i) + ' ' + QByteArray(70, 'w') + '\n';
    return text + "@MODE\nmode_var\n";
}

}  // namespace

class tst_CommentSpans : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void commentsSpanAfterALoad();
    void noSpansRemainFromTheLastFile();
    void spansFollowChanges_data();
    void spansFollowChanges();
    void spansFollowThirtyRandomChanges();
    void commentsDoNotWidenTheColumn_data();
    void commentsDoNotWidenTheColumn();
    void spanIsOneCell();
    void spanMovesSideways();
    void iconOfAWrongCommentStaysInSight();
    void editorFillsTheSpan();
    void otherCellsOfACommentHaveNoEditor();
    void keysPassACommentInTheirColumn_data();
    void keysPassACommentInTheirColumn();
    void keysOnACommentStayOnIt();
    void firstKeyInAListGoesToAVisibleCell();
    void commentsInSightSpanInAHugeFile();
    void hugeFileFollowsChangesInSight();
    void hugePasteKeepsToSight();

private:
    QTreeView* view() { return viewOf(*m_window, 0); }
    TreeModel* model() { return modelOf(*m_window, 0); }
    QModelIndex cell(int row, int column) { return model()->index(row, column); }
    bool spans(int row) { return view()->isFirstColumnSpanned(row, QModelIndex()); }
    QList<int> spannedRows();
    QList<int> commentRows();
    bool isInSight(int row);
    void show();
    bool hasIconAtTheEdge(int row);
    void push(int row, ur_command command);
    void change(const QByteArray& kind);
};

QList<int> tst_CommentSpans::spannedRows()
{
    QList<int> rows;
    for (int row = 0; row < model()->rowCount(); ++row) {
        if (spans(row))
            rows.append(row);
    }
    return rows;
}

QList<int> tst_CommentSpans::commentRows()
{
    QList<int> rows;
    for (int row = 0; row < model()->rowCount(); ++row) {
        if (cell(row, 0).data().toString().startsWith(QLatin1Char('#')))
            rows.append(row);
    }
    return rows;
}

bool tst_CommentSpans::isInSight(int row)
{
    return view()->viewport()->rect().intersects(view()->visualRect(cell(row, 0)));
}

void tst_CommentSpans::show()
{
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

// Whether some of the icon's red is at the right edge of the view.
bool tst_CommentSpans::hasIconAtTheEdge(int row)
{
    const QRect cellRect = view()->visualRect(cell(row, 0));
    QRect edge(0, cellRect.top(), cellRect.height(), cellRect.height());
    edge.moveRight(view()->viewport()->width() - 1);
    const QImage image = view()->viewport()->grab(edge).toImage();
    int redPixels = 0;
    for (int x = 0; x < image.width(); ++x) {
        const QColor colour = image.pixelColor(x, image.height() / 4 * 2 - 4);
        redPixels += colour.red() > 150 && colour.green() < 80 && colour.blue() < 80 ? 1 : 0;
    }
    return redPixels > 4;
}

void tst_CommentSpans::commentsSpanAfterALoad()
{
    loadGoodFile(spec());
    QCOMPARE(spannedRows(), (QList<int>{FIRST_COMMENT, SECOND_COMMENT}));
    QTreeView* const list = viewOf(*m_window, 1);
    for (int row = 0; row < list->model()->rowCount(); ++row)
        QVERIFY(!list->isFirstColumnSpanned(row, QModelIndex()));
    LoadingFile = 1;
    loadGoodFile("# zero\n" + spec());
    LoadingFile = 0;
    QCOMPARE(spannedRows(), (QList<int>{0, FIRST_COMMENT + 1, SECOND_COMMENT + 1}));
}

void tst_CommentSpans::noSpansRemainFromTheLastFile()
{
    loadGoodFile(spec());
    loadGoodFile("@SCRIBON\nx\n@MODE\nm\n@GROUP\ng\n# last\n@PROGRAM\np\n");
    QCOMPARE(spannedRows(), QList<int>{3});
}

// ---- Changes -----------------------------------------------------------------------------------

void tst_CommentSpans::push(int row, ur_command command)
{
    const int before = command == uaddRow ? row - 1 : row;
    m_window->uStack()->push(new EditorUndoCommand(model(), cell(before, 0), row, 0, 2, command));
}

void tst_CommentSpans::change(const QByteArray& kind)
{
    if (kind == "a keyword becomes a comment")
        edit(0, MODE, 0, QStringLiteral("# mode"));
    else if (kind == "a text becomes a comment")
        edit(0, LOOSE_TEXT, 0, QStringLiteral("# loose"));
    else if (kind == "a comment becomes a keyword")
        edit(0, FIRST_COMMENT, 0, QStringLiteral("@PROGRAM"));
    else if (kind == "a comment becomes another")
        edit(0, FIRST_COMMENT, 0, QStringLiteral("# other"));
    else if (kind == "a value looks like a comment")
        edit(0, GROUP, 1, QStringLiteral("# no comment"));
    else if (kind == "a row is inserted above")
        push(1, uaddRow);
    else if (kind == "a comment is removed")
        push(FIRST_COMMENT, uremoveRow);
    else if (kind == "a keyword is removed")
        push(MODE, uremoveRow);
}

void tst_CommentSpans::spansFollowChanges_data()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char* const kind :
         {"a keyword becomes a comment", "a text becomes a comment", "a comment becomes a keyword",
          "a comment becomes another", "a value looks like a comment", "a row is inserted above",
          "a comment is removed", "a keyword is removed"})
        QTest::newRow(kind) << QByteArray(kind);
}

void tst_CommentSpans::spansFollowChanges()
{
    QFETCH(QByteArray, kind);
    loadGoodFile(spec());
    show();
    const QList<int> before = spannedRows();
    change(kind);
    QVERIFY(m_window->uStack()->count() > 0);
    const QList<int> after = commentRows();
    QCOMPARE(spannedRows(), after);
    m_window->uStack()->undo();
    QCOMPARE(spannedRows(), before);
    m_window->uStack()->redo();
    QCOMPARE(spannedRows(), after);
    m_window->uStack()->undo();
    QCOMPARE(spannedRows(), before);
    QVERIFY(!view()->grab().isNull());
    QCOMPARE(spannedRows(), before);
}

// Restored rows must not leave anything behind in the view.
void tst_CommentSpans::spansFollowThirtyRandomChanges()
{
    loadGoodFile(spec());
    show();
    for (int i = 0; i < 30; ++i) {
        const int row = 1 + i * 7 % (model()->rowCount() - 1);
        if (i % 9 == 8)
            m_window->uStack()->undo();
        else if (i % 3 == 0)
            push(row, uaddRow);
        else if (i % 3 == 1)
            edit(0, row, 0, (i % 2 == 0 ? QStringLiteral("# %1") : QStringLiteral("@%1")).arg(i));
        else
            push(row, uremoveRow);
        QCOMPARE(spannedRows(), commentRows());
    }
    while (m_window->uStack()->canUndo())
        m_window->uStack()->undo();
    QCOMPARE(spannedRows(), (QList<int>{FIRST_COMMENT, SECOND_COMMENT}));
}

// ---- Widths ------------------------------------------------------------------------------------

void tst_CommentSpans::commentsDoNotWidenTheColumn_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a long comment") << spec(LONG_COMMENT);
    QTest::newRow("a huge file") << comments(20000);
}

void tst_CommentSpans::commentsDoNotWidenTheColumn()
{
    QFETCH(QByteArray, text);
    show();
    loadGoodFile("@SCRIBON\ncell\n@MODE\nmode_var\n@GROUP\ngroup_var\n");
    const int width = view()->columnWidth(0);
    loadGoodFile(text);
    QCOMPARE(view()->columnWidth(0), width);
    edit(0, FIRST_COMMENT, 0, QStringLiteral("@") + QString(70, QLatin1Char('W')));
    view()->resizeColumnToContents(0);
    QCOMPARE(view()->columnWidth(0), width);  // an unknown keyword is not shown
    edit(0, FIRST_COMMENT, 0, QString(70, QLatin1Char('w')));
    view()->resizeColumnToContents(0);
    QVERIFY(view()->columnWidth(0) > width);
    m_window->uStack()->undo();
    view()->resizeColumnToContents(0);
    QCOMPARE(view()->columnWidth(0), width);
}

// ---- One cell ----------------------------------------------------------------------------------

void tst_CommentSpans::spanIsOneCell()
{
    loadGoodFile(spec());
    show();
    const QRect rect = view()->visualRect(cell(FIRST_COMMENT, 0));
    QCOMPARE(rect.width(), view()->header()->length());
    const int x = view()->columnViewportPosition(1) + 20;
    const QPoint overValues(x, rect.center().y());
    QCOMPARE(view()->indexAt(overValues), cell(FIRST_COMMENT, 0));
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, overValues);
    QCOMPARE(view()->currentIndex(), cell(FIRST_COMMENT, 0));
    QCOMPARE(view()->selectionModel()->selectedIndexes(), QModelIndexList{cell(FIRST_COMMENT, 0)});
}

void tst_CommentSpans::spanMovesSideways()
{
    loadGoodFile(spec());
    show();
    view()->setColumnWidth(1, 2000);
    QTRY_VERIFY(view()->horizontalScrollBar()->maximum() > 300);
    view()->horizontalScrollBar()->setValue(300);
    const QRect rect = view()->visualRect(cell(FIRST_COMMENT, 0));
    QCOMPARE(rect.left(), -300);
    QCOMPARE(rect.width(), view()->header()->length());
}

// A row that spans the columns is wider than the view here.
void tst_CommentSpans::iconOfAWrongCommentStaysInSight()
{
    loadGoodFile(spec("# " + QByteArray(90, 'w')));
    view()->setColumnWidth(1, 2000);
    show();
    m_window->checkErrorCount();
    QVERIFY(hasIconAtTheEdge(FIRST_COMMENT));
    QVERIFY(!hasIconAtTheEdge(SECOND_COMMENT));
    QTRY_VERIFY(view()->horizontalScrollBar()->maximum() > 300);
    view()->horizontalScrollBar()->setValue(300);
    QVERIFY(hasIconAtTheEdge(FIRST_COMMENT));
}

void tst_CommentSpans::editorFillsTheSpan()
{
    loadGoodFile(spec());
    show();
    const QRect rect = view()->visualRect(cell(FIRST_COMMENT, 0));
    const QPoint overValues(view()->columnViewportPosition(1) + 20, rect.center().y());
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, overValues);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, overValues);
    auto* const editor = view()->findChild<QComboBox*>();
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->lineEdit()->text(), QStringLiteral("# one"));
    QCOMPARE(editor->geometry().left(), rect.left());
    QVERIFY(editor->width() >= rect.width());
    editor->lineEdit()->setText(QStringLiteral("# changed"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(cell(FIRST_COMMENT, 0).data().toString(), QStringLiteral("# changed"));
    QVERIFY(spans(FIRST_COMMENT));
}

void tst_CommentSpans::otherCellsOfACommentHaveNoEditor()
{
    loadGoodFile(spec());
    show();
    for (const int column : {1, 2}) {
        view()->edit(cell(FIRST_COMMENT, column));
        QVERIFY(view()->indexWidget(cell(FIRST_COMMENT, column)) == nullptr);
        QVERIFY(view()->findChildren<QLineEdit*>().isEmpty());
    }
}

// ---- Keys --------------------------------------------------------------------------------------

void tst_CommentSpans::keysPassACommentInTheirColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (const int column : {0, 1, 2}) {
        QTest::addRow("down, column %d", column) << column << int(Qt::Key_Down) << 0 << int(MODE);
        QTest::addRow("up, column %d", column) << column << int(Qt::Key_Up) << int(MODE) << 0;
    }
}

void tst_CommentSpans::keysPassACommentInTheirColumn()
{
    QFETCH(int, column);
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    loadGoodFile(spec());
    show();
    view()->setFocus();
    goTo(view(), from, column);
    QTest::keyClick(view(), static_cast<Qt::Key>(key));
    QCOMPARE(view()->currentIndex(), cell(FIRST_COMMENT, 0));
    QCOMPARE(view()->selectionModel()->selectedIndexes(), QModelIndexList{cell(FIRST_COMMENT, 0)});
    QTest::keyClick(view(), static_cast<Qt::Key>(key));
    QCOMPARE(view()->currentIndex(), cell(to, column));
    QCOMPARE(view()->selectionModel()->selectedIndexes(), QModelIndexList{cell(to, column)});
}

void tst_CommentSpans::keysOnACommentStayOnIt()
{
    loadGoodFile(spec());
    show();
    view()->setFocus();
    goTo(view(), FIRST_COMMENT, 0);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left}) {
        QTest::keyClick(view(), key);
        QCOMPARE(view()->currentIndex(), cell(FIRST_COMMENT, 0));
    }
    QTest::keyClick(view(), Qt::Key_F2);
    QVERIFY(view()->indexWidget(cell(FIRST_COMMENT, 0)) != nullptr);
}

void tst_CommentSpans::firstKeyInAListGoesToAVisibleCell()
{
    loadGoodFile(spec());
    show();
    tabsOf(*m_window)->setCurrentIndex(1);
    QTreeView* const list = viewOf(*m_window, 1);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(list->currentIndex().column(), 1);
}

// ---- Very many comments ------------------------------------------------------------------------

void tst_CommentSpans::commentsInSightSpanInAHugeFile()
{
    show();
    loadGoodFile(comments(20000));
    for (const int top : {0, 9000, 19900, 5, 20001}) {
        view()->verticalScrollBar()->setValue(top);
        const QList<int> rows = spannedRows();
        QVERIFY(rows.size() >= 5);
        QVERIFY(rows.size() < 100);
        for (int row = 0; row < model()->rowCount(); ++row) {
            if (isInSight(row))
                QCOMPARE(spans(row), model()->isComment(row));
        }
    }
    loadGoodFile(spec());
    QCOMPARE(spannedRows(), commentRows());
    change("a keyword becomes a comment");
    QCOMPARE(spannedRows(), commentRows());
}

void tst_CommentSpans::hugeFileFollowsChangesInSight()
{
    show();
    loadGoodFile(comments(20000));
    edit(0, 3, 0, QStringLiteral("@ENABLE"));
    QVERIFY(!spans(3));
    QVERIFY(spans(4));
    m_window->uStack()->undo();
    QVERIFY(spans(3));
    push(3, uaddRow);
    QTRY_VERIFY(!spans(3) && spans(4));
    m_window->uStack()->undo();
    QTRY_VERIFY(spans(3));
    edit(0, 15000, 0, QStringLiteral("@ENABLE"));
    view()->scrollTo(cell(15000, 0));
    QVERIFY(!spans(15000));
    QVERIFY(spans(14999));
}

void tst_CommentSpans::hugePasteKeepsToSight()
{
    loadGoodFile(spec());
    show();
    m_window->uStack()->beginMacro(QString());
    for (int i = 0; i < 3000; ++i) {
        push(1, uaddRow);
        edit(0, 1, 0, QStringLiteral("# pasted"));
    }
    m_window->uStack()->endMacro();
    QApplication::processEvents();
    QVERIFY(spans(1));
    QVERIFY(spannedRows().size() < 100);
    m_window->uStack()->undo();
    QApplication::processEvents();
    QCOMPARE(spannedRows(), commentRows());
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_CommentSpans)
#include "tst_comment_spans.moc"
