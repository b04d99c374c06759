// What the editors of the Keywords tab offer and show, and editors that are open when their row or
// their document goes.

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QUndoGroup>
#include <QUndoStack>

#include "antlr3_basetreedelegate.h"
#include "variableselectiondialog.h"
#include "window_test.h"

class tst_KeywordCells : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void allWordsAreOffered();
    void wordsOfOtherRowsAreNot();
    void helpGoesByPosition();
    void placeholderShowsAnEmptyLine();
    void yesOrNo_data();
    void yesOrNo();
    void wrongTextIsStoredAndMarked();
    void numbersStayInTheirRange();
    void otherModelsHaveNoEditor();
    void escapeEndsNothing();
    void editorIsNeverSmallerThanItsCell();

    void undoWhileAnEditorIsOpen();
    void redoOfARemovalWhileAnEditorIsOpen();
    void rowGoesUnderADialog();
    void documentGoesUnderADialog_data();
    void documentGoesUnderADialog();

private:
    void load(const QByteArray& statements);
    void open(int row, int column);
    template <typename T>
    T* editor() const;
    QTreeView* view() const { return viewOf(*m_window, 0); }
    QString text(int row, int column) const;
};

void tst_KeywordCells::load(const QByteArray& statements)
{
    loadGoodFile("@SCRIBON\nx\n\n" + statements + "\n\n");
    m_window->show();
}

void tst_KeywordCells::open(int row, int column)
{
    view()->setFocus();
    goTo(view(), row, column);
    QTest::keyClick(view(), Qt::Key_F2);
}

template <typename T>
T* tst_KeywordCells::editor() const
{
    return view()->viewport()->findChild<T*>(QString(), Qt::FindDirectChildrenOnly);
}

QString tst_KeywordCells::text(int row, int column) const
{
    return view()->model()->index(row, column).data(Qt::EditRole).toString();
}

void tst_KeywordCells::allWordsAreOffered()
{
    load("");
    open(0, 0);
    auto* const comboBox = editor<QComboBox>();
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->count(), 33);
    QCOMPARE(comboBox->itemText(0), QStringLiteral("clear_statistics_event"));
    QCOMPARE(comboBox->itemText(32), QStringLiteral("test_type"));
    QCOMPARE(comboBox->findText(QStringLiteral("scan_list")), -1);
    QCOMPARE(comboBox->maxVisibleItems(), 15);
}

void tst_KeywordCells::wordsOfOtherRowsAreNot()
{
    load("@TEST_ID\ntest_id");
    open(0, 0);
    auto* const comboBox = editor<QComboBox>();
    QCOMPARE(comboBox->findText(QStringLiteral("test_id")), -1);
    QVERIFY(comboBox->findText(QStringLiteral("scribon")) != -1);
    QCOMPARE(comboBox->count(), 32);
}

// A word that another row has taken moves the words behind it away from their help.
void tst_KeywordCells::helpGoesByPosition()
{
    load("@ENABLE\nsome_logical");
    open(0, 0);
    auto* const comboBox = editor<QComboBox>();
    QCOMPARE(comboBox->itemText(3), QStringLiteral("done_event"));
    QCOMPARE(
        comboBox->itemData(3, Qt::ToolTipRole).toString(),
        QStringLiteral("The name of the event that is set when the data collection is complete."));
    for (int i = 4; i < comboBox->count(); ++i)
        QVERIFY2(comboBox->itemData(i, Qt::ToolTipRole).isNull(),
                 qPrintable(comboBox->itemText(i)));
}

void tst_KeywordCells::placeholderShowsAnEmptyLine()
{
    load("@START_EVENT\nevent");
    QVERIFY(
        modelOf(*m_window, 0)->setData(view()->model()->index(1, 1), QStringLiteral("FILLER_TXT")));
    open(1, 1);
    QVERIFY(editor<QLineEdit>() != nullptr);
    QCOMPARE(editor<QLineEdit>()->text(), QString());
}

void tst_KeywordCells::yesOrNo_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<int>("item");
    QTest::newRow("yes") << QStringLiteral("yes") << 0;
    QTest::newRow("no") << QStringLiteral("no") << 1;
    QTest::newRow("in capitals") << QStringLiteral("NO") << 1;
    QTest::newRow("neither") << QStringLiteral("maybe") << -1;
}

// Opening moves the items and ends nothing.
void tst_KeywordCells::yesOrNo()
{
    QFETCH(QString, cell);
    QFETCH(int, item);
    load("@LOG_STATISTICS\nyes");
    modelOf(*m_window, 0)->setData(view()->model()->index(1, 1), cell);
    open(1, 1);
    QVERIFY(editor<QComboBox>() != nullptr);
    QVERIFY(editor<QComboBox>()->isVisible());
    QVERIFY(!editor<QComboBox>()->isEditable());
    QCOMPARE(editor<QComboBox>()->currentIndex(), item);
    QCOMPARE(m_window->uStack()->count(), 0);
}

void tst_KeywordCells::wrongTextIsStoredAndMarked()
{
    load("@FIFO_POST_TRIGGER_INTERVAL\n10[sec]");
    open(1, 1);
    auto* const line = editor<QLineEdit>();
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("10sec"));
    TreeModel* const model = modelOf(*m_window, 0);
    QCOMPARE(model->errorCode(model->index(1, 1)).toInt(), int(DE_SYNTAX_ERR));
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(text(1, 1), QStringLiteral("10sec"));
    m_window->checkErrorCount();
    QCOMPARE(model->errorCode(model->index(1, 1)).toInt(), int(DE_SYNTAX_ERR));
}

void tst_KeywordCells::numbersStayInTheirRange()
{
    load("@MAX_SCANS\n10");
    open(1, 1);
    QCOMPARE(editor<QSpinBox>()->minimum(), 0);
    QCOMPARE(editor<QSpinBox>()->maximum(), 1000000);
}

void tst_KeywordCells::otherModelsHaveNoEditor()
{
    load("@MAX_SCANS\n10");
    TreeModel* const model = modelOf(*m_window, 0);
    const QModelIndex cell = model->index(1, 1);
    const Antlr3_BaseTreeDelegate delegate;
    QWidget parent;
    QSpinBox spinBox;
    spinBox.setValue(77);
    model->setObjectName(QStringLiteral("Model130"));
    QCOMPARE(delegate.createEditor(&parent, QStyleOptionViewItem(), cell), nullptr);
    delegate.setModelData(&spinBox, model, cell);
    QCOMPARE(text(1, 1), QStringLiteral("10"));
    model->setObjectName(QStringLiteral("Model13"));
    QLineEdit notTheEditor(QStringLiteral("5"));
    delegate.setModelData(&notTheEditor, model, cell);
    QCOMPARE(text(1, 1), QStringLiteral("10"));
    delegate.setModelData(&spinBox, model, cell);
    QCOMPARE(text(1, 1), QStringLiteral("77"));
}

void tst_KeywordCells::escapeEndsNothing()
{
    load("@START_EVENT\nevent");
    open(1, 1);
    QTest::keyClick(editor<QLineEdit>(), Qt::Key_Escape);
    QVERIFY(editor<QLineEdit>()->isVisible());
}

void tst_KeywordCells::editorIsNeverSmallerThanItsCell()
{
    load("@START_EVENT\nevent");
    const Antlr3_BaseTreeDelegate delegate;
    QLineEdit small;
    QStyleOptionViewItem option;
    option.rect = QRect(30, 40, 4, 5);
    delegate.updateEditorGeometry(&small, option, QModelIndex());
    QCOMPARE(small.geometry(), QRect(QPoint(30, 40), small.sizeHint()));
    option.rect = QRect(30, 40, 900, 500);
    delegate.updateEditorGeometry(&small, option, QModelIndex());
    QCOMPARE(small.geometry(), option.rect);
}

void tst_KeywordCells::undoWhileAnEditorIsOpen()
{
    load("@START_EVENT\nevent");
    goTo(view(), 0, 0);
    m_window->insertRow();
    QVERIFY(editor<QComboBox>() != nullptr);
    editor<QComboBox>()->setEditText(QStringLiteral("max_scans"));
    m_window->uStack()->undo();
    QCOMPARE(text(1, 0), QStringLiteral("@START_EVENT"));
    m_window->uStack()->redo();
    QCOMPARE(text(1, 0), QStringLiteral(" "));
}

// The stack is carrying the removal out while the editor wants to commit.
void tst_KeywordCells::redoOfARemovalWhileAnEditorIsOpen()
{
    load("@START_EVENT\nevent\n\n@STOP_EVENT\nother");
    goTo(view(), 1, 1);
    m_window->removeRow();
    m_window->uStack()->undo();
    open(1, 1);
    QVERIFY(editor<QLineEdit>() != nullptr);
    editor<QLineEdit>()->setText(QStringLiteral("typed"));
    m_window->uStack()->redo();
    QCOMPARE(text(1, 0), QStringLiteral("@STOP_EVENT"));
    QCOMPARE(text(1, 1), QStringLiteral("other"));
    m_window->uStack()->undo();
    QCOMPARE(text(1, 1), QStringLiteral("event"));
}

void tst_KeywordCells::rowGoesUnderADialog()
{
    load("@ENABLE\nsome_logical\n\n@STOP_EVENT\nother");
    open(1, 1);
    const QPointer<VariableSelectionDialog> dialog =
        m_window->findChild<VariableSelectionDialog*>();
    QVERIFY(dialog != nullptr);
    m_window->removeRow();
    QCOMPARE(text(1, 0), QStringLiteral("@STOP_EVENT"));
    QVERIFY(dialog == nullptr || !dialog->isVisible());
    m_window->uStack()->undo();
    QCOMPARE(text(1, 1), QStringLiteral("some_logical"));
}

void tst_KeywordCells::documentGoesUnderADialog_data()
{
    QTest::addColumn<QByteArray>("next");
    QTest::newRow("for another") << goodSpec();
    QTest::newRow("for one that is refused") << badSpec();
}

void tst_KeywordCells::documentGoesUnderADialog()
{
    QFETCH(QByteArray, next);
    load("@ENABLE\nsome_logical");
    open(1, 1);
    const QPointer<VariableSelectionDialog> dialog =
        m_window->findChild<VariableSelectionDialog*>();
    QVERIFY(dialog != nullptr);
    QVERIFY(writeFile(QStringLiteral("/specs/next"), next));
    m_window->loadFile(QStringLiteral("/specs/next"), false);
    QVERIFY(dialog == nullptr || !dialog->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(dialog == nullptr);
}

QTEST_MAIN(tst_KeywordCells)
#include "tst_keyword_cells.moc"
