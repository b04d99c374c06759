// A day of editing: editors, dialogs, charms and validators go when their edit ends, whether it was
// taken over or given up, and only the undo steps stay.

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QUndoStack>

#include "variableselectiondialog.h"
#include "window_test.h"

namespace {

constexpr int EDITS = 250;

// Editors and dialogs are deleted when the event loop comes round.
void deleteWhatHasEnded()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

}  // namespace

class tst_CellGrowth : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void editsLeaveNothing_data();
    void editsLeaveNothing();

private:
    void edit(int tab, int column, const QString& text);
};

void tst_CellGrowth::editsLeaveNothing_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("column");
    QTest::newRow("lines") << 0 << 1;
    QTest::newRow("keywords") << 0 << 0;
    QTest::newRow("dialogs") << 1 << 1;
    QTest::newRow("lists") << 1 << 2;
}

// An empty text gives the edit up where the editor can be given up.
void tst_CellGrowth::edit(int tab, int column, const QString& text)
{
    QTreeView* const view = viewOf(*m_window, tab);
    view->setFocus();
    goTo(view, 1, column);
    QTest::keyClick(view, Qt::Key_F2);
    if (auto* const dialog = m_window->findChild<VariableSelectionDialog*>()) {
        dialog->variableComboBox()->setEditText(text);
        if (text.isEmpty())
            dialog->reject();
        else
            dialog->accept();
    } else {
        auto* const editor = view->viewport()->findChild<QWidget*>();
        QVERIFY(editor != nullptr);
        auto* line = qobject_cast<QLineEdit*>(editor);
        if (line == nullptr)
            line = qobject_cast<QComboBox*>(editor)->lineEdit();
        line->setText(text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
    deleteWhatHasEnded();
}

void tst_CellGrowth::editsLeaveNothing()
{
    QFETCH(int, tab);
    QFETCH(int, column);
    QVERIFY(writeFile(QStringLiteral("/specs/growth"),
                      "@SCRIBON\nx\n\n@START_EVENT\nevent\n\n@SCAN_LIST\neng_speed .AV N_ENG\n\n"));
    m_window->loadFile(QStringLiteral("/specs/growth"), false);
    m_window->show();
    tabsOf(*m_window)->setCurrentIndex(tab);
    edit(tab, column, QStringLiteral("first"));
    const auto objects = m_window->findChildren<QObject*>().size();
    const auto widgets = QApplication::allWidgets().size();
    const int steps = m_window->uStack()->count();
    for (int i = 0; i < EDITS; ++i)
        edit(tab, column, QStringLiteral("text_%1").arg(i));
    QCOMPARE(m_window->uStack()->count(), steps + EDITS);
    QVERIFY(m_window->findChildren<QObject*>().size() <= objects);
    QVERIFY(QApplication::allWidgets().size() <= widgets);
    if (tab == 1 && column == 1)
        edit(tab, column, QString());
    QVERIFY(m_window->findChildren<QObject*>().size() <= objects);
}

QTEST_MAIN(tst_CellGrowth)
#include "tst_cell_growth.moc"
