// Editors that are open when their row is removed or another document is loaded.

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QUndoStack>

#include "variableselectiondialog.h"
#include "window_test.h"

class tst_OpenCells : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void undoWhileAnEditorIsOpen();
    void redoOfARemovalWhileAnEditorIsOpen();
    void rowRemovedWhileADialogIsOpen();
    void loadWhileADialogIsOpen_data();
    void loadWhileADialogIsOpen();

private:
    void load(const QByteArray& statements);
    void open(int row, int column);
    template <typename T>
    T* editor() const;
    QTreeView* view() const { return viewOf(*m_window, 0); }
    QString text(int row, int column) const;
};

void tst_OpenCells::load(const QByteArray& statements)
{
    loadGoodFile("@SCRIBON\nx\n\n" + statements + "\n\n");
    m_window->show();
}

void tst_OpenCells::open(int row, int column)
{
    view()->setFocus();
    goTo(view(), row, column);
    QTest::keyClick(view(), Qt::Key_F2);
}

template <typename T>
T* tst_OpenCells::editor() const
{
    return view()->viewport()->findChild<T*>(QString(), Qt::FindDirectChildrenOnly);
}

QString tst_OpenCells::text(int row, int column) const
{
    return view()->model()->index(row, column).data(Qt::EditRole).toString();
}

void tst_OpenCells::undoWhileAnEditorIsOpen()
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

// The editor commits while the undo stack executes the removal.
void tst_OpenCells::redoOfARemovalWhileAnEditorIsOpen()
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

void tst_OpenCells::rowRemovedWhileADialogIsOpen()
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

void tst_OpenCells::loadWhileADialogIsOpen_data()
{
    QTest::addColumn<QByteArray>("next");
    QTest::newRow("for another") << goodSpec();
    QTest::newRow("for one that is refused") << badSpec();
}

void tst_OpenCells::loadWhileADialogIsOpen()
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

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_OpenCells)
#include "tst_open_cells.moc"
