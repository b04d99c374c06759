// EditorUndoCommand: edits of cells, inserted and removed rows, undo and redo.

#include <QSet>
#include <QTest>
#include <array>
#include <random>

#include "editorundocommand.h"
#include "model_text.h"
#include "undo_reference.h"
#include "windowless_editing.h"

namespace {

const QStringList ROWS =
    lines({"@SCRIBON | x | FILLER_TXT", "@MODE | m | <unset>", "@GROUP | g | FILLER_TXT"});

// A document, and the undo stack that its edits go through.
class Editing {
public:
    explicit Editing(const QStringList& rows = ROWS, int tab = EDIT_TAB1)
        : m_model(modelOfRows(tab, rows))
    {
    }

    TreeModel* model() { return m_model.get(); }
    QUndoStack* stack() { return m_editing.stack(); }
    QStringList rows() const { return rowLines(*m_model); }
    QString cell(int row, int column) const
    {
        return m_model->index(row, column).data().toString();
    }

    bool edit(int row, int column, const QString& text)
    {
        return m_model->undoredo_setData(m_model->index(row, column), text);
    }

    // Inserts a row below this one, like the window.
    void insertBelow(int row)
    {
        const QModelIndex index = m_model->index(row, 0);
        stack()->push(
            new EditorUndoCommand(model(), index, index.row() + 1, 0, lastColumn(), uaddRow));
    }

    void remove(int row)
    {
        stack()->push(new EditorUndoCommand(model(), m_model->index(row, 1), row, 0, lastColumn(),
                                            uremoveRow));
    }

    void undo(int steps = 1)
    {
        for (int i = 0; i < steps; ++i)
            stack()->undo();
    }
    void redo(int steps = 1)
    {
        for (int i = 0; i < steps; ++i)
            stack()->redo();
    }

private:
    int lastColumn() const { return m_model->columnCount() - 1; }

    WindowlessEditing m_editing;
    std::unique_ptr<TreeModel> m_model;
};

int pick(std::mt19937* random, int count)
{
    return static_cast<int>((*random)() % static_cast<unsigned>(count));
}

// Makes a random change, insertion or removal, or an undo or redo.
void changeSomething(Editing* document, std::mt19937* random)
{
    const int rowCount = document->model()->rowCount();
    const int row = pick(random, rowCount);
    switch (pick(random, 5)) {
        case 0:
            document->insertBelow(row);
            break;
        case 1:
            if (rowCount > 1)
                document->remove(row);
            break;
        case 2:
            document->edit(row, pick(random, 3), QStringLiteral(""));
            break;
        default:
            document->edit(row, pick(random, 3), QString::number(pick(random, 50)));
    }
}

// Two tabs of a document, each with an undo stack. An edit can go to either stack: a dialog stays
// open when the user changes tabs, and is then committed on the visible tab.
class TwoTabs {
public:
    enum Tab { First, Second };

    TwoTabs() : m_models{modelOfRows(EDIT_TAB1, ROWS), modelOfRows(EDIT_TAB3, LIST)} {}

    TreeModel* model(int tab) { return m_models[static_cast<size_t>(tab)].get(); }
    QUndoStack* stack(int tab) { return &m_stacks[static_cast<size_t>(tab)]; }
    int rowCount(int tab) { return model(tab)->rowCount(); }
    QString text(int tab, int row, int column)
    {
        return model(tab)->index(row, column).data().toString();
    }
    QVector<QStringList> texts(int tab)
    {
        QVector<QStringList> rows(rowCount(tab));
        for (int row = 0; row < rows.size(); ++row) {
            for (int column = 0; column < COLUMNS; ++column)
                rows[row].append(text(tab, row, column));
        }
        return rows;
    }

    // Edits with the stack of the tab `shown` as the active one.
    bool edit(int tab, int row, int column, const QString& text, int shown)
    {
        m_editing.setActiveStack(stack(shown));
        return model(tab)->undoredo_setData(model(tab)->index(row, column), text);
    }
    void insertBelow(int tab, int row)
    {
        stack(tab)->push(new EditorUndoCommand(model(tab), model(tab)->index(row, 0), row + 1, 0,
                                               COLUMNS - 1, uaddRow));
    }
    void remove(int tab, int row)
    {
        stack(tab)->push(new EditorUndoCommand(model(tab), model(tab)->index(row, 1), row, 0,
                                               COLUMNS - 1, uremoveRow));
    }

    static constexpr int COLUMNS = 3;

private:
    static const QStringList LIST;

    WindowlessEditing m_editing;
    std::array<std::unique_ptr<TreeModel>, 2> m_models;
    std::array<QUndoStack, 2> m_stacks;
};

const QStringList TwoTabs::LIST =
    lines({"@META_DATA | FILLER_TXT | FILLER_TXT", "<unset> | BORE | b", "<unset> | TITLE | t",
           "<unset> | CELL | c"});

// Makes the same changes in two tabs and in their reference, and compares them.
class ComparedTabs {
public:
    explicit ComparedTabs(unsigned seed) : m_random(seed) {}

    void randomAction();
    void compare();

private:
    void changeRows(int tab);
    void editCell(int tab, int shown);
    void goBackAndForth(int tab);

    std::mt19937 m_random;
    TwoTabs m_tabs;
    std::array<ReferenceTab, 2> m_reference{
        {ReferenceTab(m_tabs.texts(0)), ReferenceTab(m_tabs.texts(1))}};
    std::array<ReferenceStack, 2> m_stacks;
};

void ComparedTabs::randomAction()
{
    const int tab = pick(&m_random, 2);
    switch (pick(&m_random, 6)) {
        case 0:
        case 1:
            changeRows(tab);
            break;
        case 2:
            editCell(tab, tab);
            break;
        case 3:
            editCell(tab, 1 - tab);
            break;
        default:
            goBackAndForth(tab);
    }
}

void ComparedTabs::changeRows(int tab)
{
    const auto slot = static_cast<size_t>(tab);
    const int row = pick(&m_random, m_tabs.rowCount(tab));
    if (pick(&m_random, 2) == 0) {
        m_tabs.insertBelow(tab, row);
        m_stacks[slot].insertBelow(&m_reference[slot], row);
    } else if (row > 0) {
        m_tabs.remove(tab, row);
        m_stacks[slot].remove(&m_reference[slot], row);
    }
}

void ComparedTabs::editCell(int tab, int shown)
{
    const int row = pick(&m_random, m_tabs.rowCount(tab));
    const int column = pick(&m_random, TwoTabs::COLUMNS);
    const int number = pick(&m_random, 1000);
    const QString text = number < 50 ? QStringLiteral("") : QString::number(number);
    const bool edited = m_stacks[static_cast<size_t>(shown)].edit(
        &m_reference[static_cast<size_t>(tab)], row, column, text);
    QCOMPARE(m_tabs.edit(tab, row, column, text, shown), edited);
}

void ComparedTabs::goBackAndForth(int tab)
{
    QUndoStack* const stack = m_tabs.stack(tab);
    ReferenceStack& reference = m_stacks[static_cast<size_t>(tab)];
    const bool back = pick(&m_random, 2) == 0;
    for (int steps = pick(&m_random, 6); steps > 0; --steps) {
        back ? stack->undo() : stack->redo();
        back ? reference.undo() : reference.redo();
    }
    QCOMPARE(stack->index(), reference.index());
}

void ComparedTabs::compare()
{
    for (int tab = 0; tab < 2; ++tab)
        QCOMPARE(m_tabs.texts(tab), m_reference[static_cast<size_t>(tab)].texts());
}

}  // namespace

class tst_EditorUndoCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void editOfACell();
    void everyEditIsAnUndoCommand();
    void editToAnEmptyText();
    void editFromAnEmptyText();
    void editFollowsItsRow();

    void insertedRow();
    void undoRemovesAnInsertedRow();
    void redoRestoresAnInsertedRow();
    void insertIntoNoRows();
    void insertWithAnIndexAndARowThatDoesNotExist();
    void redoRestoresTheTextsOfTheFirstUndo();
    void redoRestoresATypedValue();
    void redoRestoresTypedValuesOfSeveralRows();

    void removedRow();
    void undoRestoresARemovedRow_data();
    void undoRestoresARemovedRow();
    void undoDoesNotRestoreErrorCodes();
    void columnsBeyondTheLastAreIgnored();
    void editOfARemovedRowComesBack();
    void removalOfTheOnlyRow();
    void removalOfARowThatDoesNotExist();
    void removalWithoutACell();

    void modifiedStays();
    void commandChangesItsOwnModel();
    void commandsHaveNoText();
    void modelWorksAfterTheStackIsCleared();
    void longHistories_data();
    void longHistories();

    void editFromAnotherTabSparesOtherRows();
    void editFromAnotherTabFollowsItsRow();
    void editFromAnotherTabFindsAnInsertedRowAgain();
    void editOfAPermanentlyRemovedRow();
    void everyRowHasAUniqueId();
    void randomHistoriesOfTwoTabs_data();
    void randomHistoriesOfTwoTabs();
};

void tst_EditorUndoCommand::editOfACell()
{
    Editing document;
    QVERIFY(document.edit(1, 1, QStringLiteral("n")));
    QCOMPARE(document.cell(1, 1), QStringLiteral("n"));
    QCOMPARE(document.stack()->count(), 1);
    document.undo();
    QCOMPARE(document.rows(), ROWS);
    document.redo();
    QCOMPARE(document.cell(1, 1), QStringLiteral("n"));
}

void tst_EditorUndoCommand::everyEditIsAnUndoCommand()
{
    Editing document;
    document.edit(1, 1, QStringLiteral("n"));
    document.edit(1, 1, QStringLiteral("o"));
    QCOMPARE(document.stack()->count(), 2);
    document.undo();
    QCOMPARE(document.cell(1, 1), QStringLiteral("n"));
    document.undo();
    QCOMPARE(document.cell(1, 1), QStringLiteral("m"));
    document.redo(2);
    QCOMPARE(document.cell(1, 1), QStringLiteral("o"));
}

void tst_EditorUndoCommand::editToAnEmptyText()
{
    Editing document;
    document.model()->clrModified();
    QVERIFY(document.edit(1, 1, QStringLiteral("")));
    QCOMPARE(document.stack()->count(), 1);
    QCOMPARE(document.rows(), ROWS);
    document.undo();
    QCOMPARE(document.rows(), ROWS);
    document.redo();
    QCOMPARE(document.rows(), ROWS);
}

void tst_EditorUndoCommand::editFromAnEmptyText()
{
    const QStringList rows = lines({"@ECM_LIST | <empty> | <empty>"});
    Editing document(rows, EDIT_TAB5);
    QVERIFY(document.edit(0, 1, QStringLiteral("1")));
    QCOMPARE(document.cell(0, 1), QStringLiteral("1"));
    document.undo();
    QCOMPARE(document.rows(), rows);
}

void tst_EditorUndoCommand::editFollowsItsRow()
{
    Editing document;
    document.edit(2, 1, QStringLiteral("h"));
    document.model()->insertRows(0, 2);
    document.undo();
    QCOMPARE(document.cell(4, 1), QStringLiteral("g"));
}

void tst_EditorUndoCommand::insertedRow()
{
    Editing document;
    document.insertBelow(0);
    QStringList rows = ROWS;
    rows.insert(1, QStringLiteral("\\s | \\s | \\s"));
    QCOMPARE(document.rows(), rows);
    QVERIFY2(document.edit(1, 1, QStringLiteral("v")), "a blank cell takes edits");
}

void tst_EditorUndoCommand::undoRemovesAnInsertedRow()
{
    Editing document;
    document.insertBelow(2);
    QCOMPARE(document.model()->rowCount(), 4);
    document.undo();
    QCOMPARE(document.rows(), ROWS);
}

void tst_EditorUndoCommand::redoRestoresAnInsertedRow()
{
    Editing document;
    document.insertBelow(1);
    const QStringList rows = document.rows();
    for (int i = 0; i < 3; ++i) {
        document.undo();
        QCOMPARE(document.rows(), ROWS);
        document.redo();
        QCOMPARE(document.rows(), rows);
    }
}

void tst_EditorUndoCommand::insertIntoNoRows()
{
    Editing document(QStringList{});
    document.insertBelow(0);
    QCOMPARE(document.stack()->count(), 1);
    QCOMPARE(document.model()->rowCount(), 0);
    document.undo();
    QCOMPARE(document.model()->rowCount(), 0);
    document.redo();
    QCOMPARE(document.model()->rowCount(), 0);
}

void tst_EditorUndoCommand::insertWithAnIndexAndARowThatDoesNotExist()
{
    Editing document;
    document.stack()->push(
        new EditorUndoCommand(document.model(), document.model()->index(0, 0), 9, 0, 2, uaddRow));
    QCOMPARE(document.rows(), ROWS);
    document.undo();
    QCOMPARE(document.rows(), ROWS);
    document.redo();
    QCOMPARE(document.rows(), ROWS);
}

// An undo appends the texts that it saves, and a redo reads from the front.
void tst_EditorUndoCommand::redoRestoresTheTextsOfTheFirstUndo()
{
    Editing document;
    document.insertBelow(0);
    document.model()->setData(document.model()->index(1, 1), QStringLiteral("first"));
    document.undo();
    document.redo();
    QCOMPARE(document.cell(1, 1), QStringLiteral("first"));
    document.model()->setData(document.model()->index(1, 1), QStringLiteral("second"));
    document.undo();
    document.redo();
    QCOMPARE(document.cell(1, 1), QStringLiteral("first"));
}

void tst_EditorUndoCommand::redoRestoresATypedValue()
{
    Editing document;
    document.insertBelow(0);
    document.edit(1, 1, QStringLiteral("typed"));
    const QStringList rows = document.rows();
    document.undo(2);
    QCOMPARE(document.rows(), ROWS);
    document.redo(2);
    QCOMPARE(document.rows(), rows);
    document.undo(2);
    QCOMPARE(document.rows(), ROWS);
    document.redo(2);
    QCOMPARE(document.rows(), rows);
}

// Edits of rows below others that are inserted and removed.
void tst_EditorUndoCommand::redoRestoresTypedValuesOfSeveralRows()
{
    Editing document;
    document.insertBelow(0);
    document.edit(1, 0, QStringLiteral("@ENABLE"));
    document.insertBelow(1);
    document.edit(2, 0, QStringLiteral("@TEST_ID"));
    document.insertBelow(1);
    document.edit(2, 1, QStringLiteral("between"));
    document.edit(3, 1, QStringLiteral("below"));
    const QStringList rows = document.rows();
    document.undo(7);
    QCOMPARE(document.rows(), ROWS);
    document.redo(7);
    QCOMPARE(document.rows(), rows);
}

void tst_EditorUndoCommand::removedRow()
{
    Editing document;
    document.remove(1);
    QCOMPARE(document.rows(), lines({"@SCRIBON | x | FILLER_TXT", "@GROUP | g | FILLER_TXT"}));
    QVERIFY(document.model()->isModified());
}

void tst_EditorUndoCommand::undoRestoresARemovedRow_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("the first") << 0;
    QTest::newRow("one with an unset cell") << 1;
    QTest::newRow("the last") << 2;
}

void tst_EditorUndoCommand::undoRestoresARemovedRow()
{
    QFETCH(int, row);
    Editing document;
    QStringList rest = ROWS;
    rest.removeAt(row);
    document.remove(row);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(document.rows(), rest);
        document.undo();
        QCOMPARE(document.rows(), ROWS);
        document.redo();
    }
}

void tst_EditorUndoCommand::undoDoesNotRestoreErrorCodes()
{
    Editing document;
    document.model()->setErrorCode(document.model()->index(1, 1), DE_SYNTAX_ERR);
    document.remove(1);
    document.undo();
    QVERIFY(!document.model()->errorCode(document.model()->index(1, 1)).isValid());
    QVERIFY2(document.model()->isDirty(), "the next validation gives it one");
}

void tst_EditorUndoCommand::columnsBeyondTheLastAreIgnored()
{
    const QStringList rows = lines({"@META_DATA | FILLER_TXT | FILLER_TXT", "<unset> | k | v"});
    Editing document(rows, EDIT_TAB3);
    document.stack()->push(new EditorUndoCommand(document.model(), document.model()->index(1, 1), 1,
                                                 0, 3, uremoveRow));
    QCOMPARE(document.model()->rowCount(), 1);
    document.undo();
    QCOMPARE(document.rows(), rows);
    document.redo();
    document.undo();
    QCOMPARE(document.rows(), rows);
}

void tst_EditorUndoCommand::editOfARemovedRowComesBack()
{
    Editing document;
    document.edit(2, 1, QStringLiteral("h"));
    document.remove(2);
    document.undo(2);
    QCOMPARE(document.rows(), ROWS);
    document.redo();
    QCOMPARE(document.cell(2, 1), QStringLiteral("h"));
    document.redo();
    QCOMPARE(document.model()->rowCount(), 2);
    document.undo(2);
    QCOMPARE(document.rows(), ROWS);
}

void tst_EditorUndoCommand::removalOfTheOnlyRow()
{
    const QStringList rows = lines({"@SCRIBON | x | FILLER_TXT"});
    Editing document(rows);
    document.remove(0);
    QCOMPARE(document.model()->rowCount(), 0);
    document.undo();
    QCOMPARE(document.rows(), rows);
    document.redo();
    QCOMPARE(document.model()->rowCount(), 0);
}

void tst_EditorUndoCommand::removalOfARowThatDoesNotExist()
{
    Editing document;
    for (const int row : {3, 9, -1}) {
        document.stack()->push(new EditorUndoCommand(
            document.model(), document.model()->index(0, 0), row, 0, 2, uremoveRow));
        QCOMPARE(document.rows(), ROWS);
        document.undo();
        QCOMPARE(document.rows(), ROWS);
    }
}

void tst_EditorUndoCommand::removalWithoutACell()
{
    Editing document;
    document.stack()->push(
        new EditorUndoCommand(document.model(), QModelIndex(), 1, 0, 2, uremoveRow));
    QCOMPARE(document.rows(), ROWS);
    document.undo();
    QCOMPARE(document.rows(), ROWS);
}

void tst_EditorUndoCommand::modifiedStays()
{
    Editing document;
    document.model()->clrModified();
    document.edit(1, 1, QStringLiteral("n"));
    document.undo();
    QVERIFY(document.model()->isModified());
    QVERIFY(document.model()->isDirty());
}

void tst_EditorUndoCommand::commandChangesItsOwnModel()
{
    Editing document;
    const auto other = modelOfRows(EDIT_TAB1, ROWS);
    other->undoredo_setData(other->index(1, 1), QStringLiteral("n"));
    document.edit(1, 1, QStringLiteral("o"));
    document.undo(2);
    QCOMPARE(document.rows(), ROWS);
    QCOMPARE(rowLines(*other), ROWS);
    document.redo();
    QCOMPARE(other->index(1, 1).data().toString(), QStringLiteral("n"));
    QCOMPARE(document.rows(), ROWS);
    document.stack()->clear();
}

void tst_EditorUndoCommand::commandsHaveNoText()
{
    Editing document;
    document.edit(1, 1, QStringLiteral("n"));
    document.insertBelow(1);
    document.remove(1);
    for (int i = 0; i < document.stack()->count(); ++i) {
        QVERIFY(document.stack()->text(i).isEmpty());
        QCOMPARE(document.stack()->command(i)->id(), -1);
    }
}

void tst_EditorUndoCommand::modelWorksAfterTheStackIsCleared()
{
    Editing document;
    document.insertBelow(1);
    document.edit(2, 1, QStringLiteral("n"));
    document.undo();
    document.stack()->clear();
    QCOMPARE(document.model()->rowCount(), 4);
    QVERIFY(document.edit(2, 1, QStringLiteral("o")));
}

void tst_EditorUndoCommand::longHistories_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 5; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

// Thousands of random edits, insertions, removals, undos and redos, compared with a plain list of
// all states.
void tst_EditorUndoCommand::longHistories()
{
    QFETCH(unsigned, seed);
    std::mt19937 random(seed);
    Editing document;
    QVector<QStringList> states{document.rows()};
    for (int step = 0; step < 2000; ++step) {
        const int before = document.stack()->index();
        if (pick(&random, 3) > 0) {
            changeSomething(&document, &random);
            if (document.stack()->index() > before) {
                states.resize(before + 1);
                states.append(document.rows());
            }
        } else if (pick(&random, 2) == 0) {
            document.undo(pick(&random, 8));
        } else {
            document.redo(pick(&random, 8));
        }
        QCOMPARE(document.rows(), states.at(document.stack()->index()));
    }
}

void tst_EditorUndoCommand::editFromAnotherTabSparesOtherRows()
{
    TwoTabs tabs;
    QVERIFY(tabs.edit(TwoTabs::Second, 1, 2, QStringLiteral("new"), TwoTabs::First));
    tabs.remove(TwoTabs::Second, 1);
    const QVector<QStringList> rest = tabs.texts(TwoTabs::Second);
    tabs.stack(TwoTabs::First)->undo();
    QCOMPARE(tabs.texts(TwoTabs::Second), rest);
    tabs.stack(TwoTabs::First)->redo();
    QCOMPARE(tabs.texts(TwoTabs::Second), rest);
}

void tst_EditorUndoCommand::editFromAnotherTabFollowsItsRow()
{
    TwoTabs tabs;
    const QVector<QStringList> before = tabs.texts(TwoTabs::Second);
    QVERIFY(tabs.edit(TwoTabs::Second, 2, 2, QStringLiteral("new"), TwoTabs::First));
    tabs.insertBelow(TwoTabs::Second, 0);
    tabs.remove(TwoTabs::Second, 3);
    tabs.stack(TwoTabs::Second)->undo();
    tabs.stack(TwoTabs::First)->undo();
    QCOMPARE(tabs.text(TwoTabs::Second, 3, 2), QStringLiteral("t"));
    tabs.stack(TwoTabs::First)->redo();
    QCOMPARE(tabs.text(TwoTabs::Second, 3, 2), QStringLiteral("new"));
    tabs.stack(TwoTabs::First)->undo();
    tabs.stack(TwoTabs::Second)->undo();
    QCOMPARE(tabs.texts(TwoTabs::Second), before);
}

void tst_EditorUndoCommand::editFromAnotherTabFindsAnInsertedRowAgain()
{
    TwoTabs tabs;
    tabs.insertBelow(TwoTabs::Second, 1);
    QVERIFY(tabs.edit(TwoTabs::Second, 2, 2, QStringLiteral("new"), TwoTabs::First));
    for (int round = 0; round < 2; ++round) {
        tabs.stack(TwoTabs::Second)->undo();
        QCOMPARE(tabs.rowCount(TwoTabs::Second), 4);
        tabs.stack(TwoTabs::Second)->redo();
        QCOMPARE(tabs.text(TwoTabs::Second, 2, 2), QStringLiteral("new"));
        tabs.stack(TwoTabs::First)->undo();
        QCOMPARE(tabs.text(TwoTabs::Second, 2, 2), QStringLiteral(" "));
        tabs.stack(TwoTabs::First)->redo();
    }
}

// Another row is inserted in its place, so redo cannot restore it.
void tst_EditorUndoCommand::editOfAPermanentlyRemovedRow()
{
    TwoTabs tabs;
    tabs.insertBelow(TwoTabs::Second, 1);
    QVERIFY(tabs.edit(TwoTabs::Second, 2, 2, QStringLiteral("new"), TwoTabs::First));
    tabs.stack(TwoTabs::Second)->undo();
    tabs.insertBelow(TwoTabs::Second, 1);
    for (int round = 0; round < 2; ++round) {
        tabs.stack(TwoTabs::First)->undo();
        QCOMPARE(tabs.text(TwoTabs::Second, 2, 2), QStringLiteral(" "));
        tabs.stack(TwoTabs::First)->redo();
        QCOMPARE(tabs.text(TwoTabs::Second, 2, 2), QStringLiteral(" "));
    }
}

void tst_EditorUndoCommand::everyRowHasAUniqueId()
{
    const auto model = modelOfRows(EDIT_TAB1, ROWS);
    model->insertRows(1, 2);
    QSet<quint64> identities;
    for (int row = 0; row < model->rowCount(); ++row) {
        const quint64 identity = model->rowIdentity(model->index(row, 0));
        identities.insert(identity);
        for (const int expected : {row, 0, 99, -1})
            QCOMPARE(model->cellOfRow(identity, 2, expected), model->index(row, 2));
    }
    QCOMPARE(identities.size(), 5);
    QVERIFY(!identities.contains(0));
    QCOMPARE(model->rowIdentity(QModelIndex()), quint64{0});
    QVERIFY(!model->cellOfRow(0, 0, 0).isValid());
}

void tst_EditorUndoCommand::randomHistoriesOfTwoTabs_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void tst_EditorUndoCommand::randomHistoriesOfTwoTabs()
{
    QFETCH(unsigned, seed);
    ComparedTabs tabs(seed);
    for (int step = 0; step < 400 && !QTest::currentTestFailed(); ++step) {
        tabs.randomAction();
        tabs.compare();
    }
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_EditorUndoCommand)
#include "tst_editorundocommand.moc"
