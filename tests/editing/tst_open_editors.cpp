// Text in an open editor when the document is saved or closed, or when rows change.

#include <QAbstractItemView>
#include <QMenu>
#include <QMessageBox>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

#include "cell_editors.h"
#include "editing_test.h"

namespace {

constexpr Place REG_NAME{DE_TAB1, 0, "@REG_NAME", 1};
constexpr Place GROUP{DE_TAB1, 0, "@GROUP", 1};
constexpr Place ECM{DE_TAB5, 1, "1", 2};
constexpr Place ALTERNATE_NAME{DE_TAB4, 1, "eng_speed", 2};

// A cell whose editor is opened and closed without typing.
struct Untouched {
    const char* name;
    Place place;
    int steps;  // number of steps that closing the editor adds to the undo stack
};

// A combo box without the cell's text selects its first item, which is stored when it is closed.
constexpr std::array<Untouched, 12> UNTOUCHED{{
    {"a line", REG_NAME, 0},
    {"a keyword's second line", {DE_TAB1, 0, "@RUNNING_AVERAGE", 2}, 0},
    {"a keyword", {DE_TAB1, 0, "@REG_NAME", 0}, 0},
    {"a keyword that is not on offer", {DE_TAB1, 0, "@META_HEADER_FILENAME", 0}, 1},
    {"a comment", {DE_TAB1, 0, "# Everything that can be edited", 0}, 0},
    {"a number", {DE_TAB1, 0, "@MAX_SCANS", 1}, 0},
    {"yes or no", {DE_TAB1, 0, "@LOG_STATISTICS", 1}, 0},
    {"yes in capital letters", {DE_TAB1, 0, "@SEND_ON_PATH_CHANGE", 1}, 1},
    {"a channel keyword", {DE_TAB2, 3, "N_ENG_AVG", 3}, 0},
    {"a parameter keyword", {DE_TAB3, 1, "BORE", 1}, 0},
    {"an alternate name", ALTERNATE_NAME, 0},
    {"a comment of the ECM list", {DE_TAB5, 1, "# The engine itself", 1}, 0},
}};

struct Way {
    const char* name;
    void (*go)(MainWindow*);
};

void openEditMenu(MainWindow* window)
{
    Q_EMIT window->findChild<QMenu*>(QStringLiteral("actionsMenu"))->aboutToShow();
}

const std::array<Way, 6> WAYS{{
    {"Save", [](MainWindow* window) { window->save(); }},
    {"Save As", [](MainWindow* window) { window->saveAs(); }},
    {"New", [](MainWindow* window) { window->newFile(); }},
    {"Open", [](MainWindow* window) { window->open(); }},
    {"closing", [](MainWindow* window) { window->close(); }},
    {"the Edit menu", openEditMenu},
}};

}  // namespace

class TestOpenEditors : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void saveWritesTheText_data() { addCellEditors(); }
    void saveWritesTheText();
    void saveAsWritesTheText_data() { addCellEditors(); }
    void saveAsWritesTheText();
    void unsavedTextIsAskedFor_data() { addCellEditors(); }
    void unsavedTextIsAskedFor();
    void textOfAnOpenEditorCanBeSavedOnClose();
    void insertRowKeepsTheText_data() { addCellEditors(); }
    void insertRowKeepsTheText();
    void removedRowComesBackWithTheText_data() { addCellEditors(); }
    void removedRowComesBackWithTheText();
    void newRowIsRemovedFromItsOpenEditor();
    void rowThatBecomesRequiredStays();
    void editMenuCommitsTheOpenEditor_data() { addCellEditors(); }
    void editMenuCommitsTheOpenEditor();
    void redoRestoresTheLatestText_data() { addCellEditors(); }
    void redoRestoresTheLatestText();

    void secondSaveChangesNothing();
    void retypingTheSameTextIsNoChange();
    void editMenuStoresWhatFocusOutStores_data();
    void editMenuStoresWhatFocusOutStores();
    void popupClosesWithItsEditor();

    void variableDialogStaysOpenAndUncommitted();
    void ecmDialogStaysOpenAndUncommitted();
    void editMenuClosesAKeywordsDialogWithoutCommit();
    void actionsWithoutADocumentDoNothing();

private:
    // Starts answering modal dialogs again, which show() has stopped.
    ModalDialogs* answering();
};

ModalDialogs* TestOpenEditors::answering()
{
    m_dialogs = std::make_unique<ModalDialogs>();
    return m_dialogs.get();
}

// ---- Saving and closing ------------------------------------------------------------------------

void TestOpenEditors::saveWritesTheText()
{
    QFETCH(QString, stored);
    show();
    const QModelIndex index = openFetchedAndType();
    press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(newsOf(*m_window), QStringLiteral("File saved"));
    QVERIFY(readFile(QStringLiteral("/specs/good")).contains(stored.trimmed().toUtf8()));
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(QApplication::focusWidget(), viewAt(index));
    QVERIFY(!modelAt(index)->isModified());
}

// The text is committed before the file dialog opens, which would take the focus from the editor,
// too.
void TestOpenEditors::saveAsWritesTheText()
{
    QFETCH(QString, stored);
    show();
    answering()->chooseFile(QStringLiteral("/specs/other_file"));
    openFetchedAndType();
    bool beforeTheDialog = false;
    const auto watch = connect(stack(), &QUndoStack::indexChanged, m_dialogs.get(), [&] {
        beforeTheDialog = m_window->findChild<QFileDialog*>() == nullptr;
    });
    actionOf(*m_window, "actionSave_As")->trigger();
    disconnect(watch);
    QVERIFY(beforeTheDialog);
    QVERIFY(readFile(QStringLiteral("/specs/other_file")).contains(stored.trimmed().toUtf8()));
    QCOMPARE(readFile(QStringLiteral("/specs/good")), fullSpec());
}

void TestOpenEditors::unsavedTextIsAskedFor()
{
    QFETCH(QString, stored);
    show();
    ModalDialogs* const dialogs = answering();
    const QModelIndex index = openFetchedAndType();
    QString seen;
    dialogs->answer([&](QDialog* box) {
        seen = index.data().toString();
        qobject_cast<QMessageBox*>(box)->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!m_window->close());
    QCOMPARE(seen, stored);
    QCOMPARE(stack()->count(), 1);
    for (const auto key : {Qt::Key_N, Qt::Key_O}) {
        stack()->undo();
        QVERIFY(m_window->save());
        openFetchedAndType();
        dialogs->answerBox(QMessageBox::Cancel);
        press(key, Qt::ControlModifier);
        QCOMPARE(index.data().toString(), stored);
    }
    QCOMPARE(dialogs->boxes.size(), 3);
    QVERIFY(dialogs->fileDialogs.isEmpty());
}

void TestOpenEditors::textOfAnOpenEditorCanBeSavedOnClose()
{
    show();
    answering()->answerBox(QMessageBox::Save);
    QVERIFY(open(cellAt(REG_NAME)) != nullptr);
    typeOver(QStringLiteral("typed_last"));
    QVERIFY(m_window->close());
    QVERIFY(readFile(QStringLiteral("/specs/good")).contains("@REG_NAME\ntyped_last\n"));
}

// ---- Rows --------------------------------------------------------------------------------------

void TestOpenEditors::insertRowKeepsTheText()
{
    QFETCH(QString, stored);
    show();
    const QPersistentModelIndex index = openFetchedAndType();
    press(Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(viewAt(index)->currentIndex(), index.sibling(index.row() + 1, 0));
    QCOMPARE(stack()->count(), 2);
    stack()->undo();
    QCOMPARE(index.data().toString(), stored);
}

void TestOpenEditors::removedRowComesBackWithTheText()
{
    QFETCH(QString, stored);
    show();
    const QStringList before = document();
    const QModelIndex index = openFetchedAndType();
    const int rows = modelAt(index)->rowCount();
    press(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(modelAt(index)->rowCount(), rows - 1);
    QCOMPARE(openEditors(), 0);
    stack()->undo();
    const QModelIndex back = modelAt(index)->index(index.row(), index.column());
    QCOMPARE(back.data().toString(), stored);
    QCOMPARE(stack()->index(), 1);
    stack()->undo();
    QCOMPARE(document(), before);
}

// Undo restores the row with the keyword that was chosen for it.
void TestOpenEditors::newRowIsRemovedFromItsOpenEditor()
{
    show();
    const int rows = modelOf(*m_window, DE_TAB1)->rowCount();
    open(cellAt(REG_NAME));
    press(Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(openEditors(), 1);
    const QModelIndex index = viewOf(*m_window, DE_TAB1)->currentIndex();
    typeOver(QStringLiteral("my_word"));
    press(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(modelOf(*m_window, DE_TAB1)->rowCount(), rows);
    stack()->undo();
    QCOMPARE(cell(DE_TAB1, index.row(), 0).data().toString(), QStringLiteral("my_word"));
}

// The typed keyword is committed before removal checks whether the row is required.
void TestOpenEditors::rowThatBecomesRequiredStays()
{
    show();
    const QModelIndex index = cellAt({DE_TAB1, 0, "@REG_NAME", 0});
    const int rows = modelAt(index)->rowCount();
    QVERIFY(open(index) != nullptr);
    typeOver(QStringLiteral("mode"));
    press(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(modelAt(index)->rowCount(), rows);
    QCOMPARE(index.data().toString(), QStringLiteral("@MODE"));
    QCOMPARE(newsOf(*m_window), QStringLiteral("Unable to remove a required keyword  (mode)"));
}

// ---- The Edit menu -----------------------------------------------------------------------------

void TestOpenEditors::editMenuCommitsTheOpenEditor()
{
    QFETCH(QString, stored);
    show();
    const QModelIndex index = openFetchedAndType();
    openEditMenu(m_window.get());
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(viewAt(index)->currentIndex(), index);
}

// Undo reverts what was typed last, and Redo applies it again.
void TestOpenEditors::redoRestoresTheLatestText()
{
    QFETCH(QString, stored);
    show();
    const QModelIndex index = openFetchedAndType();
    press(Qt::Key_Return);
    QVERIFY(open(index) != nullptr);
    typeOver(QStringLiteral("3"));
    openEditMenu(m_window.get());
    const QString last = index.data().toString();
    QVERIFY(last.endsWith(QLatin1Char('3')));
    m_window->undoGroup->undo();
    QCOMPARE(index.data().toString(), stored);
    m_window->undoGroup->redo();
    QCOMPARE(index.data().toString(), last);
}

// ---- No more than leaving the editor -----------------------------------------------------------

void TestOpenEditors::secondSaveChangesNothing()
{
    show();
    QVERIFY(open(cellAt(REG_NAME)) != nullptr);
    typeOver(QStringLiteral("typed_last"));
    press(Qt::Key_S, Qt::ControlModifier);
    const QByteArray first = readFile(QStringLiteral("/specs/good"));
    press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(readFile(QStringLiteral("/specs/good")), first);
    QCOMPARE(stack()->count(), 1);
}

void TestOpenEditors::retypingTheSameTextIsNoChange()
{
    show();
    const ModalDialogs* const dialogs = answering();
    QVERIFY(open(cellAt(REG_NAME)) != nullptr);
    typeOver(cellAt(REG_NAME).data().toString());
    QVERIFY(m_window->close());
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestOpenEditors::editMenuStoresWhatFocusOutStores_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("way");
    for (const Untouched& editor : UNTOUCHED) {
        for (size_t way = 0; way < WAYS.size(); ++way)
            QTest::addRow("%s, %s", editor.name, WAYS[way].name)
                << editor.place << editor.steps << int(way);
    }
}

void TestOpenEditors::editMenuStoresWhatFocusOutStores()
{
    QFETCH(Place, place);
    QFETCH(int, steps);
    QFETCH(int, way);
    show();
    answering();
    const QModelIndex index = cellAt(place);
    QVERIFY(open(index) != nullptr);
    tabsOf(*m_window)->setFocus();
    QCOMPARE(stack()->count(), steps);
    const QStringList left = document();
    loadGoodFile(fullSpec());
    const QModelIndex again = cellAt(place);
    QVERIFY(open(again) != nullptr);
    WAYS[static_cast<size_t>(way)].go(m_window.get());
    QCOMPARE(stack()->count(), steps);
    QCOMPARE(document(), left);
    QCOMPARE(openEditors(), 0);
}

// The program may be asked to end while a popup list is open.
void TestOpenEditors::popupClosesWithItsEditor()
{
    show();
    answering()->answerBox(QMessageBox::Cancel);
    const QModelIndex index = cellAt({DE_TAB2, 3, "N_ENG_AVG", 3});
    auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    typeOver(QStringLiteral("OTHER"));
    comboBox->showPopup();
    QVERIFY(comboBox->view()->isVisible());
    QVERIFY(!m_window->close());
    QCOMPARE(index.data().toString(), QStringLiteral("OTHER"));
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
}

// ---- Dialogs over cells ------------------------------------------------------------------------

void TestOpenEditors::variableDialogStaysOpenAndUncommitted()
{
    show();
    const QModelIndex index = cellAt(GROUP);
    auto* const dialog = openAs<VariableSelectionDialog>(index);
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, QStringLiteral("another"));
    m_window->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_window.get());
    press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(newsOf(*m_window), QStringLiteral("File saved"));
    QCOMPARE(readFile(QStringLiteral("/specs/good")), fullSpec());
    QCOMPARE(stack()->count(), 0);
    QVERIFY(dialog->isVisible());
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), QStringLiteral("another"));
}

// The dialog is modal, so only the end of the session saves while it is open.
void TestOpenEditors::ecmDialogStaysOpenAndUncommitted()
{
    show();
    const QModelIndex index = cellAt(ECM);
    auto* const dialog = openAs<asamspecs_select>(index);
    QVERIFY(dialog != nullptr);
    dialog->ecmComboBox()->setFocus();
    pick(dialog->ecmComboBox(), QStringLiteral("ECM1:0"));
    QVERIFY(m_window->save());
    QCOMPARE(readFile(QStringLiteral("/specs/good")), fullSpec());
    QCOMPARE(stack()->count(), 0);
    QVERIFY(dialog->isVisible());
    acceptDialog(dialog);
    QCOMPARE(index.data().toString(), QStringLiteral("/specs/asam3_specs.engine:ECM1:0"));
}

void TestOpenEditors::editMenuClosesAKeywordsDialogWithoutCommit()
{
    show();
    const QStringList before = document();
    QVERIFY(openAs<QDialog>(cellAt(GROUP)) != nullptr);
    typeOver(QStringLiteral("another"));
    openEditMenu(m_window.get());
    QCOMPARE(openEditors(), 0);
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
}

void TestOpenEditors::actionsWithoutADocumentDoNothing()
{
    QVERIFY(!m_window->save());
    m_window->updateActions();
    m_window->insertRow();
    m_window->removeRow();
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestOpenEditors)
#include "tst_open_editors.moc"
