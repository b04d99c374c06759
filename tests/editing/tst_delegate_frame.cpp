// How edits begin and end, for all kinds of editors.

#include <QAbstractItemView>
#include <QLabel>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QSlider>
#include <QStandardItemModel>
#include <QUndoStack>
#include <QtTest>
#include <algorithm>
#include <memory>

#include "cell_editors.h"
#include "editing_test.h"

namespace {

constexpr Place REG_NAME{DE_TAB1, 0, "@REG_NAME", 1};
constexpr Place GROUP{DE_TAB1, 0, "@GROUP", 1};
constexpr Place YES{DE_TAB1, 0, "@LOG_STATISTICS", 1};
constexpr Place ECM{DE_TAB5, 1, "1", 2};

// Records the signals that the delegate emits.
class Reports {
public:
    explicit Reports(QAbstractItemDelegate* delegate)
    {
        QObject::connect(delegate, &QAbstractItemDelegate::commitData, &m_context,
                         [this](QWidget* editor) { commits.append(editor); });
        QObject::connect(delegate, &QAbstractItemDelegate::closeEditor, &m_context,
                         [this](QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
                             closes.append(editor);
                             m_stay = m_stay && hint == QAbstractItemDelegate::NoHint;
                         });
    }

    bool none() const { return commits.isEmpty() && closes.isEmpty(); }
    bool stay() const { return m_stay; }

    QVector<QWidget*> commits;
    QVector<QWidget*> closes;

private:
    QObject m_context;
    bool m_stay = true;
};

QString textIn(const QWidget* editor)
{
    if (const auto* const line = qobject_cast<const QLineEdit*>(editor))
        return line->text();
    if (const auto* const comboBox = qobject_cast<const QComboBox*>(editor))
        return comboBox->currentText();
    if (const auto* const spinBox = qobject_cast<const QSpinBox*>(editor))
        return spinBox->text();
    if (const auto* const dialog = qobject_cast<const VariableSelectionDialog*>(editor))
        return dialog->variableComboBox()->currentText();
    if (const auto* const dialog = qobject_cast<const asamspecs_select*>(editor))
        return dialog->fileComboBox()->currentText();
    return {};
}

}  // namespace

class TestDelegateFrame : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void eachTabHasADelegateOfItsOwn();
    void slotsOfTheMetaObject();

    void editorsOpenOnlyForTheTabsModelNames_data();
    void editorsOpenOnlyForTheTabsModelNames();
    void renamedModelIsLeftAlone();
    void modelOfAnotherClassIsLeftAlone_data();
    void modelOfAnotherClassIsLeftAlone();
    void keywordsOfListsHaveNoEditor();

    void opensBothWays_data();
    void opensBothWays();
    void parentsOfEditors_data();
    void parentsOfEditors();
    void openingAnEditorDoesNotCommit_data();
    void openingAnEditorDoesNotCommit();

    void editorOverflowsToTheRightAndDownwards_data();
    void editorOverflowsToTheRightAndDownwards();
    void narrowCellHasAWiderEditor();

    void returnCommitsAndStays_data() { addCellEditors(); }
    void returnCommitsAndStays();
    void returnCommitsOnce_data();
    void returnCommitsOnce();
    void leavingCommits_data() { addCellEditors(); }
    void leavingCommits();
    void keypadsEnterCommits_data() { addCellEditors(); }
    void keypadsEnterCommits();
    void tabKeyOpensNoOtherEditor_data() { addCellEditors(); }
    void tabKeyOpensNoOtherEditor();
    void escapeIsNotHandled_data() { addCellEditors(); }
    void escapeIsNotHandled();

    void returnDoesNothingInADialog_data();
    void returnDoesNothingInADialog();
    void dialogStaysWhenLeft();
    void ecmDialogStaysWhenLeft();
    void dialogEndedOtherwiseStoresNothing_data();
    void dialogEndedOtherwiseStoresNothing();
    void clickOnAnotherCellCommitsTheDialog();

    void otherWidgetsFillNothingAndStoreNothing();
    void slotsTakeTheirOwnSendersOnly_data();
    void slotsTakeTheirOwnSendersOnly();
    void slotsWithoutASenderDoNothing();
    void editorsSignalsEndTheEdit_data();
    void editorsSignalsEndTheEdit();
    void editingFinishedOfTheKeywordLineDoesNotCommit_data();
    void editingFinishedOfTheKeywordLineDoesNotCommit();

    void eventFilterIgnoresObjectsThatAreNoWidgets();
    void eventFilterPassesKeysOn_data();
    void eventFilterPassesKeysOn();
    void eventFilterIgnoresDialogs_data();
    void eventFilterIgnoresDialogs();

private:
    QWidget* madeFor(const QModelIndex& cell);
};

QWidget* TestDelegateFrame::madeFor(const QModelIndex& cell)
{
    return delegateAt(cell)->createEditor(viewAt(cell)->viewport(), {}, cell);
}

// ---- The tab of a cell -------------------------------------------------------------------------

void TestDelegateFrame::eachTabHasADelegateOfItsOwn()
{
    show();
    QSet<QAbstractItemDelegate*> delegates;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        auto* const delegate = delegateAt(cell(tab, 0, 0));
        QVERIFY(delegate != nullptr);
        QCOMPARE(delegate->parent(), nullptr);
        delegates.insert(delegate);
    }
    QCOMPARE(delegates.size(), int{TAB_COUNT});
}

void TestDelegateFrame::slotsOfTheMetaObject()
{
    const QMetaObject& meta = Antlr3_BaseTreeDelegate::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    const QStringList expected{QStringLiteral("commitAndCloseEditor()"),
                               QStringLiteral("sbCommitAndCloseEditor()"),
                               QStringLiteral("commitAndCloseEditor(int)"),
                               QStringLiteral("vsCommitAndCloseEditor(int)"),
                               QStringLiteral("cbCommitAndCloseEditor()"),
                               QStringLiteral("asamCommitAndCloseEditor(int)"),
                               QStringLiteral("eventFilter(QObject*,QEvent*)")};
    QCOMPARE(methods, expected);
}

void TestDelegateFrame::editorsOpenOnlyForTheTabsModelNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("opens");
    QTest::newRow("the tab's own") << QStringLiteral("Model13") << true;
    QTest::newRow("beyond the last") << QStringLiteral("Model18") << false;
    QTest::newRow("before the first") << QStringLiteral("Model12") << false;
    QTest::newRow("a longer one") << QStringLiteral("Model130") << false;
    QTest::newRow("a shorter one") << QStringLiteral("Model1") << false;
    QTest::newRow("a blank behind") << QStringLiteral("Model13 ") << false;
    QTest::newRow("in lower case") << QStringLiteral("model13") << false;
    QTest::newRow("none") << QString() << false;
}

void TestDelegateFrame::editorsOpenOnlyForTheTabsModelNames()
{
    QFETCH(QString, name);
    QFETCH(bool, opens);
    show();
    const QModelIndex value = cellAt(REG_NAME);
    modelAt(value)->setObjectName(name);
    QCOMPARE(open(value) != nullptr, opens);
}

void TestDelegateFrame::renamedModelIsLeftAlone()
{
    show();
    const QStringList before = document();
    const QModelIndex value = cellAt(REG_NAME);
    auto* const line = openAs<QLineEdit>(value);
    QVERIFY(line != nullptr);
    modelAt(value)->setObjectName(QStringLiteral("Model18"));
    typeOver(QStringLiteral("other"));
    delegateAt(value)->setEditorData(line, value);
    QCOMPARE(line->text(), QStringLiteral("other"));
    press(Qt::Key_Return);
    QCOMPARE(editorOf(value), nullptr);
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
}

void TestDelegateFrame::modelOfAnotherClassIsLeftAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("key");
    QTest::newRow("keywords") << QStringLiteral("Model13") << 1 << QStringLiteral("@REG_NAME");
    QTest::newRow("scan list") << QStringLiteral("Model14") << 2 << QStringLiteral("speed");
    QTest::newRow("meta data") << QStringLiteral("Model15") << 1 << QStringLiteral("BORE");
    QTest::newRow("aux user") << QStringLiteral("Model16") << 2 << QStringLiteral("speed");
    QTest::newRow("ECM list") << QStringLiteral("Model17") << 1 << QStringLiteral("# note");
}

void TestDelegateFrame::modelOfAnotherClassIsLeftAlone()
{
    QFETCH(QString, name);
    QFETCH(int, column);
    QFETCH(QString, key);
    show();
    QStandardItemModel model(1, 4);
    model.setObjectName(name);
    for (int i = 0; i < model.columnCount(); ++i)
        model.setItem(0, i, new QStandardItem(key));
    QTreeView view;
    Antlr3_BaseTreeDelegate delegate;
    view.setItemDelegate(&delegate);
    view.setModel(&model);
    view.show();
    const QModelIndex index = model.index(0, column);
    view.edit(index);
    QWidget* const editor = view.indexWidget(index);
    QVERIFY(editor != nullptr);
    QTest::keyClicks(editor, QStringLiteral("x"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(view.indexWidget(index), nullptr);
    QCOMPARE(rowTexts(model, 0), QStringList({key, key, key, key}));
    QCOMPARE(stack()->count(), 0);
}

void TestDelegateFrame::keywordsOfListsHaveNoEditor()
{
    show();
    for (int tab = DE_TAB2; tab <= DE_TAB5; ++tab) {
        for (int row = 0; row < modelOf(*m_window, tab)->rowCount(); ++row)
            QCOMPARE(madeFor(cell(tab, row, 0)), nullptr);
    }
}

// ---- Opening -----------------------------------------------------------------------------------

void TestDelegateFrame::opensBothWays_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<Way>("way");
    const auto add = [](const char* name, const Place& place) {
        QTest::addRow("%s by double click", name) << place << Way::DoubleClick;
        QTest::addRow("%s by F2", name) << place << Way::EditKey;
    };
    for (const CellEditor& editor : CELL_EDITORS)
        add(editor.name, editor.place);
    add("yes or no", YES);
    add("a variable", GROUP);
    add("an ECM list", ECM);
}

void TestDelegateFrame::opensBothWays()
{
    QFETCH(Place, place);
    QFETCH(Way, way);
    show();
    QVERIFY(open(cellAt(place), way) != nullptr);
    QCOMPARE(openEditors(), 1);
}

void TestDelegateFrame::parentsOfEditors_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("isDialog");
    for (const CellEditor& editor : CELL_EDITORS)
        QTest::newRow(editor.name) << editor.place << false;
    QTest::newRow("yes or no") << YES << false;
    QTest::newRow("a variable") << GROUP << true;
    QTest::newRow("an ECM list") << ECM << true;
}

void TestDelegateFrame::parentsOfEditors()
{
    QFETCH(Place, place);
    QFETCH(bool, isDialog);
    show();
    const QModelIndex index = cellAt(place);
    const QWidget* const editor = open(index);
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->parentWidget(), isDialog ? m_window.get() : viewAt(index)->viewport());
    QCOMPARE(editor->isWindow(), isDialog);
}

void TestDelegateFrame::openingAnEditorDoesNotCommit_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("shown");
    const auto add = [](const char* name, const Place& place, const char* shown) {
        QTest::newRow(name) << place << QString::fromLatin1(shown);
    };
    add("no", {DE_TAB1, 0, "@LOG_DIGITAL_DESCRIPTION", 1}, "no");
    add("yes in upper case", {DE_TAB1, 0, "@SEND_ON_PATH_CHANGE", 1}, "yes");
    add("a keyword", {DE_TAB1, 0, "@REG_NAME", 0}, "reg_name");
    add("a number", {DE_TAB1, 0, "@MAX_SCANS", 1}, "72000");
    add("a line", REG_NAME, "scribon_4");
    add("a variable", GROUP, "test_group");
    add("a statistical member", {DE_TAB2, 3, "N_ENG_AVG", 2}, ".AV");
    add("no statistical member", {DE_TAB2, 3, "N_ENG", 2}, "LOG_DIGITAL_DESCP");
    add("a channel keyword", {DE_TAB2, 3, "N_ENG_AVG", 3}, "N_ENG_AVG");
    add("a parameter keyword", {DE_TAB3, 1, "BORE", 1}, "BORE");
    add("an ECM list", ECM, "/specs/asam3_specs.engine");
}

void TestDelegateFrame::openingAnEditorDoesNotCommit()
{
    QFETCH(Place, place);
    QFETCH(QString, shown);
    show();
    const QStringList before = document();
    const QModelIndex index = cellAt(place);
    const QWidget* const editor = open(index);
    QCOMPARE(textIn(editor), shown);
    QCoreApplication::processEvents();
    QCOMPARE(editorOf(index), editor);
    QVERIFY(editor->isVisible());
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
}

// ---- Geometry ----------------------------------------------------------------------------------

void TestDelegateFrame::editorOverflowsToTheRightAndDownwards_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("too small") << QRect(10, 20, 50, 10) << QRect(10, 20, 100, 30);
    QTest::newRow("too narrow") << QRect(10, 20, 50, 60) << QRect(10, 20, 100, 60);
    QTest::newRow("too low") << QRect(10, 20, 200, 10) << QRect(10, 20, 200, 30);
    QTest::newRow("as wanted") << QRect(10, 20, 100, 30) << QRect(10, 20, 100, 30);
    QTest::newRow("large enough") << QRect(10, 20, 200, 60) << QRect(10, 20, 200, 60);
    QTest::newRow("left of and above the table")
        << QRect(-40, -5, 50, 10) << QRect(-40, -5, 100, 30);
    QTest::newRow("empty") << QRect(10, 20, 0, 0) << QRect(10, 20, 100, 30);
}

void TestDelegateFrame::editorOverflowsToTheRightAndDownwards()
{
    class Hinting : public QWidget {
    public:
        QSize sizeHint() const override { return {100, 30}; }
    };
    QFETCH(QRect, place);
    QFETCH(QRect, expected);
    QWidget window;
    Hinting editor;
    editor.setParent(&window);
    QStyleOptionViewItem option;
    option.rect = place;
    const Antlr3_BaseTreeDelegate delegate;
    delegate.updateEditorGeometry(&editor, option, QModelIndex());
    QCOMPARE(editor.geometry(), expected);
}

void TestDelegateFrame::narrowCellHasAWiderEditor()
{
    show();
    const QModelIndex value = cellAt(YES);
    viewAt(value)->setColumnWidth(1, 12);
    const QWidget* const editor = open(value);
    QVERIFY(editor != nullptr);
    const QRect place = viewAt(value)->visualRect(value);
    QCOMPARE(editor->pos(), place.topLeft());
    QCOMPARE(editor->width(), editor->sizeHint().width());
    QCOMPARE(editor->height(), place.height());
    QVERIFY(editor->width() > place.width());
}

// ---- Keys in a cell's editor -------------------------------------------------------------------

void TestDelegateFrame::returnCommitsAndStays()
{
    QFETCH(QString, stored);
    show();
    const QModelIndex index = openFetchedAndType();
    const Reports reports(delegateAt(index));
    press(Qt::Key_Return);
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(viewAt(index)->currentIndex(), index);
    QVERIFY(!reports.closes.isEmpty() && reports.stay());
}

void TestDelegateFrame::returnCommitsOnce_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("typed");
    for (const CellEditor& editor : CELL_EDITORS) {
        const bool adds = QLatin1String(editor.typed) != QLatin1String(editor.stored);
        if (!adds && qstrcmp(editor.typed, "7") != 0)
            QTest::newRow(editor.name) << editor.place << QString();
    }
}

// A second commit would add a step to the undo stack even if it changed nothing.
void TestDelegateFrame::returnCommitsOnce()
{
    show();
    const QStringList before = document();
    openFetchedAndType();
    press(Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(openEditors(), 0);
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 1);
}

void TestDelegateFrame::leavingCommits()
{
    QFETCH(QString, stored);
    show();
    const QModelIndex index = openFetchedAndType();
    const Reports reports(delegateAt(index));
    tabsOf(*m_window)->setFocus();
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
    QVERIFY(!reports.closes.isEmpty() && reports.stay());
}

void TestDelegateFrame::keypadsEnterCommits()
{
    QFETCH(QString, stored);
    show();
    const QModelIndex index = openFetchedAndType();
    press(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(index.data().toString(), stored);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(openEditors(), 0);
}

void TestDelegateFrame::tabKeyOpensNoOtherEditor()
{
    QFETCH(QString, stored);
    show();
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        const QModelIndex index = openFetchedAndType();
        press(key);
        QCOMPARE(openEditors(), 0);
        QCOMPARE(index.data().toString(), stored);
        QCOMPARE(stack()->count(), 1);
        stack()->undo();
        stack()->clear();
    }
}

// The editor stays open with the typed text.
void TestDelegateFrame::escapeIsNotHandled()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    show();
    const QStringList before = document();
    const QModelIndex index = openFetchedAndType();
    const QWidget* const editor = editorOf(index);
    const Reports reports(delegateAt(index));
    press(Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCOMPARE(editorOf(index), editor);
    QCOMPARE(textIn(editor), typed);
    QVERIFY(reports.none());
    QCOMPARE(document(), before);
    press(Qt::Key_Return);
    QCOMPARE(index.data().toString(), stored);
}

// ---- Dialogs -----------------------------------------------------------------------------------

void TestDelegateFrame::returnDoesNothingInADialog_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("field");
    const Place literal{DE_TAB3, 1, "TEST_TITLE", 2};
    const auto add = [](const char* name, const Place& place, const char* field) {
        QTest::newRow(name) << place << QString::fromLatin1(field);
    };
    add("nowhere in a variable's", GROUP, "");
    add("group of a variable's", GROUP, "groupComboBox");
    add("variable of a variable's", GROUP, "variableComboBox");
    add("units of a variable's", {DE_TAB2, 3, "N_ENG", 1}, "unitsComboBox");
    add("literal of a variable's", literal, "lineEdit");
    add("nowhere in an ECM list's", ECM, "");
    add("file of an ECM list's", ECM, "specfiles");
    add("number of an ECM list's", ECM, "extensionNumber");
    add("instance of an ECM list's", ECM, "ecmInstance");
}

void TestDelegateFrame::returnDoesNothingInADialog()
{
    QFETCH(Place, place);
    QFETCH(QString, field);
    show();
    const QStringList before = document();
    const QModelIndex index = cellAt(place);
    auto* const dialog = openAs<QDialog>(index);
    QVERIFY(dialog != nullptr);
    if (!field.isEmpty())
        dialog->findChild<QWidget*>(field)->setFocus();
    const QSignalSpy finished(dialog, &QDialog::finished);
    press(Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(finished.isEmpty());
    QVERIFY(dialog->isVisible());
    QCOMPARE(editorOf(index), dialog);
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
}

void TestDelegateFrame::dialogStaysWhenLeft()
{
    show();
    const QModelIndex index = cellAt(GROUP);
    auto* const dialog = openAs<QDialog>(index);
    QVERIFY(dialog != nullptr);
    const Reports reports(delegateAt(index));
    m_window->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_window.get());
    tabsOf(*m_window)->setFocus();
    QTest::mouseClick(viewAt(index)->viewport(), Qt::LeftButton, {},
                      viewAt(index)->visualRect(index).center());
    QVERIFY(dialog->isVisible());
    QCOMPARE(editorOf(index), dialog);
    QVERIFY(reports.none());
}

// The dialog is modal: the window below gets no clicks, so only the focus-out event is sent.
void TestDelegateFrame::ecmDialogStaysWhenLeft()
{
    show();
    const QModelIndex index = cellAt(ECM);
    auto* const dialog = openAs<QDialog>(index);
    QVERIFY(dialog != nullptr);
    const Reports reports(delegateAt(index));
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    QFocusEvent leaving(QEvent::FocusOut, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(dialog, &leaving);
    QVERIFY(dialog->isVisible());
    QCOMPARE(editorOf(index), dialog);
    QVERIFY(reports.none());
}

namespace {

struct Ending {
    const char* name;
    void (*end)(QDialog*);
};

const std::array<Ending, 6> ENDINGS{{
    {"cancelled", cancelDialog},
    {"by Escape", [](QDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }},
    {"by its window's close", [](QDialog* dialog) { dialog->close(); }},
    {"with a result of 2", [](QDialog* dialog) { dialog->done(2); }},
    {"with a result of -1", [](QDialog* dialog) { dialog->done(-1); }},
    {"hidden", [](QDialog* dialog) { dialog->hide(); }},
}};

}  // namespace

// Hiding the dialog of an ECM list does not close it.
void TestDelegateFrame::dialogEndedOtherwiseStoresNothing_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<int>("ending");
    for (int i = 0; i < int(ENDINGS.size()); ++i) {
        const Ending& ending = ENDINGS[static_cast<size_t>(i)];
        QTest::addRow("a variable's, %s", ending.name) << GROUP << i;
        if (i < 5)
            QTest::addRow("an ECM list's, %s", ending.name) << ECM << i;
    }
}

void TestDelegateFrame::dialogEndedOtherwiseStoresNothing()
{
    QFETCH(Place, place);
    QFETCH(int, ending);
    show();
    const QStringList before = document();
    const QModelIndex index = cellAt(place);
    auto* const dialog = openAs<QDialog>(index);
    QVERIFY(dialog != nullptr);
    if (auto* const variable = qobject_cast<VariableSelectionDialog*>(dialog))
        typeVariable(variable, QStringLiteral("another"));
    else
        partOf<QSpinBox>(dialog, "extensionNumber")->setValue(42);
    ENDINGS[static_cast<size_t>(ending)].end(dialog);
    QCOMPARE(openEditors(), 0);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
}

// Like every editor of a view.
void TestDelegateFrame::clickOnAnotherCellCommitsTheDialog()
{
    show();
    const QModelIndex index = cellAt(GROUP);
    auto* const dialog = openAs<VariableSelectionDialog>(index);
    QVERIFY(dialog != nullptr);
    typeVariable(dialog, QStringLiteral("another"));
    goTo(viewAt(index), 0, 0);
    QCOMPARE(openEditors(), 0);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(index.data().toString(), QStringLiteral("another"));
    QCOMPARE(stack()->count(), 1);
}

// ---- Widgets and senders of another class ------------------------------------------------------

void TestDelegateFrame::otherWidgetsFillNothingAndStoreNothing()
{
    show();
    const QStringList before = document();
    QLineEdit line(QStringLiteral("x"));
    QComboBox comboBox;
    comboBox.addItem(QStringLiteral("x"));
    QSpinBox spinBox;
    QLabel label(QStringLiteral("x"));
    for (const Place& place : {REG_NAME, GROUP, YES, ECM, CELL_EDITORS[2].place,
                               CELL_EDITORS[4].place, CELL_EDITORS[5].place, CELL_EDITORS[6].place,
                               CELL_EDITORS[7].place, CELL_EDITORS[8].place}) {
        const QModelIndex index = cellAt(place);
        const std::unique_ptr<QWidget> right(madeFor(index));
        for (QWidget* const widget :
             std::initializer_list<QWidget*>{&line, &comboBox, &spinBox, &label}) {
            if (right->metaObject() == widget->metaObject())
                continue;
            delegateAt(index)->setEditorData(widget, index);
            delegateAt(index)->setModelData(widget, modelAt(index), index);
        }
    }
    QCOMPARE(document(), before);
    QCOMPARE(stack()->count(), 0);
    QCOMPARE(line.text(), QStringLiteral("x"));
    QCOMPARE(comboBox.currentText(), QStringLiteral("x"));
    QCOMPARE(spinBox.value(), 0);
}

namespace {

// An object whose signal has an int argument, which some slots take as a dialog's result.
struct Sender {
    const char* name;
    QWidget* (*make)(QWidget* window);
    const char* signal;
    void (*send)(QWidget* sender, int result);
};

template <typename Widget>
QWidget* makeWidget(QWidget* /*window*/)
{
    return new Widget;
}

void sendFinished(QWidget* sender, int result)
{
    QMetaObject::invokeMethod(sender, "finished", Q_ARG(int, result));
}

void sendValue(QWidget* sender, int result)
{
    QMetaObject::invokeMethod(sender, "valueChanged", Q_ARG(int, result));
}

const std::array<Sender, 6> SENDERS{{
    {"line", makeWidget<QLineEdit>, SIGNAL(cursorPositionChanged(int, int)),
     [](QWidget* sender, int result) {
         QMetaObject::invokeMethod(sender, "cursorPositionChanged", Q_ARG(int, result),
                                   Q_ARG(int, result));
     }},
    {"number", makeWidget<QSpinBox>, SIGNAL(valueChanged(int)), sendValue},
    {"combo box", makeWidget<QComboBox>, SIGNAL(highlighted(int)),
     [](QWidget* sender, int result) {
         QMetaObject::invokeMethod(sender, "highlighted", Q_ARG(int, result));
     }},
    {"variable's dialog",
     [](QWidget* window) -> QWidget* {
         return new VariableSelectionDialog({}, window, QT_MARVANE_ANY, QString(), QString());
     },
     SIGNAL(finished(int)), sendFinished},
    {"ECM list's dialog",
     [](QWidget* window) -> QWidget* { return new asamspecs_select({}, window); },
     SIGNAL(finished(int)), sendFinished},
    {"slider", makeWidget<QSlider>, SIGNAL(valueChanged(int)), sendValue},
}};

struct Slot {
    const char* slot = nullptr;
    QStringList senders;
    bool isOfDialog = false;
};

const std::array<Slot, 6> EDITOR_SLOTS{{
    {SLOT(commitAndCloseEditor()), {QStringLiteral("line"), QStringLiteral("combo box")}, false},
    {SLOT(sbCommitAndCloseEditor()), {QStringLiteral("number")}, false},
    {SLOT(commitAndCloseEditor(int)), {QStringLiteral("combo box")}, false},
    {SLOT(vsCommitAndCloseEditor(int)), {QStringLiteral("variable's dialog")}, true},
    {SLOT(cbCommitAndCloseEditor()), {QStringLiteral("combo box")}, false},
    {SLOT(asamCommitAndCloseEditor(int)), {QStringLiteral("ECM list's dialog")}, true},
}};

}  // namespace

void TestDelegateFrame::slotsTakeTheirOwnSendersOnly_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("sender");
    QTest::addColumn<int>("result");
    for (int slot = 0; slot < int(EDITOR_SLOTS.size()); ++slot) {
        for (int sender = 0; sender < int(SENDERS.size()); ++sender) {
            for (const int result : {-1, 0, 1, 2}) {
                QTest::addRow("%s, %s, %d", EDITOR_SLOTS[size_t(slot)].slot + 1,
                              SENDERS[size_t(sender)].name, result)
                    << slot << sender << result;
            }
        }
    }
}

void TestDelegateFrame::slotsTakeTheirOwnSendersOnly()
{
    QFETCH(int, slot);
    QFETCH(int, sender);
    QFETCH(int, result);
    const Slot& receiving = EDITOR_SLOTS[size_t(slot)];
    const Sender& sending = SENDERS[size_t(sender)];
    const std::unique_ptr<QWidget> widget(sending.make(m_window.get()));
    Antlr3_BaseTreeDelegate delegate;
    QVERIFY(connect(widget.get(), sending.signal, &delegate, receiving.slot));
    const Reports reports(&delegate);
    sending.send(widget.get(), result);
    const bool taken = receiving.senders.contains(QLatin1String(sending.name));
    const bool commits = taken && (!receiving.isOfDialog || result == QDialog::Accepted);
    QCOMPARE(reports.closes.size(), taken ? 1 : 0);
    QCOMPARE(reports.commits.size(), commits ? 1 : 0);
    QVERIFY(reports.stay());
    if (taken)
        QCOMPARE(reports.closes.at(0), widget.get());
}

void TestDelegateFrame::slotsWithoutASenderDoNothing()
{
    Antlr3_BaseTreeDelegate delegate;
    const Reports reports(&delegate);
    delegate.commitAndCloseEditor();
    delegate.sbCommitAndCloseEditor();
    delegate.commitAndCloseEditor(0);
    delegate.vsCommitAndCloseEditor(QDialog::Accepted);
    delegate.cbCommitAndCloseEditor();
    delegate.asamCommitAndCloseEditor(QDialog::Accepted);
    QVERIFY(reports.none());
}

void TestDelegateFrame::editorsSignalsEndTheEdit_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("commits");
    for (const CellEditor& editor : CELL_EDITORS) {
        const bool isCombo =
            editor.place.column == 0 || editor.place.tab == DE_TAB2 || editor.place.tab == DE_TAB3;
        QTest::newRow(editor.name)
            << editor.place << QByteArray(isCombo ? "currentIndexChanged" : "editingFinished") << 0
            << 1;
    }
    QTest::newRow("yes or no") << YES << QByteArray("currentIndexChanged") << 0 << 1;
    QTest::newRow("a variable, accepted") << GROUP << QByteArray("finished") << 1 << 1;
    QTest::newRow("a variable, rejected") << GROUP << QByteArray("finished") << 0 << 0;
    QTest::newRow("an ECM list, accepted") << ECM << QByteArray("finished") << 1 << 1;
    QTest::newRow("an ECM list, rejected") << ECM << QByteArray("finished") << 0 << 0;
}

void TestDelegateFrame::editorsSignalsEndTheEdit()
{
    QFETCH(Place, place);
    QFETCH(QByteArray, signal);
    QFETCH(int, number);
    QFETCH(int, commits);
    show();
    const QModelIndex index = cellAt(place);
    const std::unique_ptr<QWidget> editor(madeFor(index));
    QVERIFY(editor != nullptr);
    const Reports reports(delegateAt(index));
    if (signal == "editingFinished")
        QVERIFY(QMetaObject::invokeMethod(editor.get(), signal.constData()));
    else
        QVERIFY(QMetaObject::invokeMethod(editor.get(), signal.constData(), Q_ARG(int, number)));
    QCOMPARE(reports.commits.size(), commits);
    QCOMPARE(reports.closes.size(), 1);
}

void TestDelegateFrame::editingFinishedOfTheKeywordLineDoesNotCommit_data()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("a keyword's") << Place{DE_TAB1, 0, "@MAX_SCANS", 0};
    QTest::newRow("a comment's") << Place{DE_TAB1, 0, "# note", 0};
}

// Opening the popup list of keywords also emits editingFinished() of the line edit.
void TestDelegateFrame::editingFinishedOfTheKeywordLineDoesNotCommit()
{
    QFETCH(Place, place);
    show("# note\n" + goodSpec());
    const QStringList before = document();
    const QModelIndex index = cellAt(place);
    auto* const comboBox = openAs<QComboBox>(index);
    QVERIFY(comboBox != nullptr);
    typeOver(QStringLiteral("x"));
    const Reports reports(delegateAt(index));
    const QSignalSpy ended(comboBox->lineEdit(), &QLineEdit::editingFinished);
    press(Qt::Key_Down, Qt::AltModifier);
    QVERIFY(comboBox->view()->isVisible());
    QVERIFY(!ended.isEmpty());
    press(Qt::Key_Escape);
    QVERIFY(reports.none());
    QCOMPARE(editorOf(index), comboBox);
    QCOMPARE(comboBox->currentText(), QStringLiteral("x"));
    QCOMPARE(document(), before);
}

// ---- The event filter --------------------------------------------------------------------------

void TestDelegateFrame::eventFilterIgnoresObjectsThatAreNoWidgets()
{
    Antlr3_BaseTreeDelegate delegate;
    const Reports reports(&delegate);
    QObject object;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QFocusEvent leaving(QEvent::FocusOut);
    for (QObject* const watched : {static_cast<QObject*>(nullptr), &object}) {
        QVERIFY(!delegate.eventFilter(watched, &key));
        QVERIFY(!delegate.eventFilter(watched, &leaving));
    }
    QVERIFY(reports.none());
}

void TestDelegateFrame::eventFilterPassesKeysOn_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("ends");
    QTest::newRow("Return") << int{Qt::Key_Return} << true;
    QTest::newRow("the keypad's Enter") << int{Qt::Key_Enter} << false;
    QTest::newRow("Escape") << int{Qt::Key_Escape} << false;
    QTest::newRow("Tab") << int{Qt::Key_Tab} << false;
    QTest::newRow("Backtab") << int{Qt::Key_Backtab} << false;
    QTest::newRow("a letter") << int{Qt::Key_A} << false;
}

void TestDelegateFrame::eventFilterPassesKeysOn()
{
    QFETCH(int, key);
    QFETCH(bool, ends);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    Antlr3_BaseTreeDelegate delegate;
    QLineEdit line;
    QComboBox comboBox;
    QSpinBox spinBox;
    for (QWidget* const editor : std::initializer_list<QWidget*>{&line, &comboBox, &spinBox}) {
        const Reports reports(&delegate);
        QVERIFY(!delegate.eventFilter(editor, &event));
        QCOMPARE(reports.commits.size(), ends ? 1 : 0);
        QCOMPARE(reports.closes.size(), ends ? 1 : 0);
        QVERIFY(reports.stay());
    }
    const Reports reports(&delegate);
    QLabel other;
    QCOMPARE(delegate.eventFilter(&other, &event), ends);
    QVERIFY(reports.none());
}

void TestDelegateFrame::eventFilterIgnoresDialogs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("spared");
    QTest::newRow("a variable's") << QStringLiteral("VariableSelectionDialog") << true;
    QTest::newRow("an ECM list's") << QStringLiteral("asamspecs_select") << true;
    QTest::newRow("a longer name") << QStringLiteral("VariableSelectionDialog2") << false;
    QTest::newRow("upper case") << QStringLiteral("ASAMSPECS_SELECT") << false;
    QTest::newRow("no name") << QString() << false;
}

void TestDelegateFrame::eventFilterIgnoresDialogs()
{
    QFETCH(QString, name);
    QFETCH(bool, spared);
    Antlr3_BaseTreeDelegate delegate;
    QWidget window;
    window.setObjectName(name);
    QFocusEvent leaving(QEvent::FocusOut);
    QHideEvent hiding;
    for (QEvent* const event : std::initializer_list<QEvent*>{&leaving, &hiding}) {
        const Reports reports(&delegate);
        QVERIFY(!delegate.eventFilter(&window, event));
        QCOMPARE(reports.none(), spared);
    }
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestDelegateFrame)
#include "tst_delegate_frame.moc"
