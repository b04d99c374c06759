#include "editing_test.h"

#include <QAbstractItemView>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

namespace {

QWidget* const WHO_HAS_THE_KEYBOARD = nullptr;

void makeCurrent(const QModelIndex& cell, QTreeView* view)
{
    view->setCurrentIndex(cell);
    view->scrollTo(cell);
    view->setFocus();
}

void doubleClick(const QModelIndex& cell, const QTreeView* view)
{
    const QPoint place = view->visualRect(cell).topLeft() + QPoint(8, 8);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
}

bool hasKeyboard(QWidget* editor)
{
    return QTest::qWaitFor([editor] {
        const QWidget* const focus = QApplication::focusWidget();
        return QApplication::activeWindow() == editor->window() && focus != nullptr &&
               (focus == editor || editor->isAncestorOf(focus));
    });
}

}  // namespace

void EditingTest::show(const QByteArray& text)
{
    m_dialogs.reset();
    QVERIFY(writeFile(QStringLiteral("/specs/asam3_specs.engine"), engineSpecs()));
    loadGoodFile(text);
    m_window->resize(1200, 900);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QModelIndex EditingTest::cell(int tab, int row, int column) const
{
    return modelOf(*m_window, tab)->index(row, column);
}

QModelIndex EditingTest::cellAt(const Place& place) const
{
    const TreeModel* const model = modelOf(*m_window, place.tab);
    const int row = columnTexts(*model, place.keyColumn).indexOf(QLatin1String(place.key));
    return row == -1 ? QModelIndex() : model->index(row, place.column);
}

QModelIndex EditingTest::valueOf(const char* keyword, int column) const
{
    return cellAt({DE_TAB1, 0, keyword, column});
}

QStringList EditingTest::document() const
{
    QStringList texts;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(*m_window, tab);
        for (int row = 0; row < model->rowCount(); ++row)
            texts.append(rowTexts(*model, row).join(QLatin1Char('|')));
    }
    return texts;
}

QTreeView* EditingTest::viewAt(const QModelIndex& cell)
{
    const auto views = EditorMainWindow->findChildren<QTreeView*>();
    for (QTreeView* const view : views) {
        if (view->model() == cell.model())
            return view;
    }
    qFatal("no view shows this cell");
}

TreeModel* EditingTest::modelAt(const QModelIndex& cell)
{
    return qobject_cast<TreeModel*>(viewAt(cell)->model());
}

Antlr3_BaseTreeDelegate* EditingTest::delegateAt(const QModelIndex& cell) const
{
    return qobject_cast<Antlr3_BaseTreeDelegate*>(viewAt(cell)->itemDelegate());
}

QWidget* EditingTest::open(const QModelIndex& cell, Way way)
{
    if (!cell.isValid())
        qFatal("there is no such cell");
    QTreeView* const view = viewAt(cell);
    m_window->activateWindow();
    if (!QTest::qWaitFor([this] { return QApplication::activeWindow() == m_window.get(); }))
        qFatal("the window did not become active");
    tabsOf(*m_window)->setCurrentWidget(view->parentWidget());
    makeCurrent(cell, view);
    if (way == Way::DoubleClick)
        doubleClick(cell, view);
    else
        press(Qt::Key_F2);
    QWidget* const editor = editorOf(cell);
    if (editor != nullptr && !hasKeyboard(editor))
        qFatal("the editor did not get the keyboard");
    return editor;
}

QModelIndex EditingTest::openFetchedAndType()
{
    const auto fetched = [](const char* column, int type) { return QTest::qData(column, type); };
    const QModelIndex index = cellAt(*static_cast<Place*>(fetched("place", qMetaTypeId<Place>())));
    if (open(index) == nullptr)
        qFatal("no editor opened");
    typeOver(*static_cast<QString*>(fetched("typed", QMetaType::QString)));
    return index;
}

QWidget* EditingTest::editorOf(const QModelIndex& cell)
{
    return viewAt(cell)->indexWidget(cell);
}

int EditingTest::openEditors() const
{
    int count = 0;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel* const model = modelOf(*m_window, tab);
        for (int row = 0; row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column)
                count += editorOf(model->index(row, column)) == nullptr ? 0 : 1;
        }
    }
    return count;
}

// No release without a focus window: the press may have closed the window.
void EditingTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyPress(WHO_HAS_THE_KEYBOARD, key, modifiers);
    if (QGuiApplication::focusWindow() != nullptr)
        QTest::keyRelease(WHO_HAS_THE_KEYBOARD, key, modifiers);
}

void EditingTest::typeOver(const QString& text)
{
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    QTest::keyClicks(WHO_HAS_THE_KEYBOARD, text);
}

void EditingTest::pick(QComboBox* comboBox, const QString& item)
{
    const int wanted = comboBox->findText(item, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (wanted == -1)
        qFatal("there is no such item");
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Home);
    for (int i = 0; i < wanted; ++i)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
}

void EditingTest::typeVariable(VariableSelectionDialog* dialog, const QString& name)
{
    dialog->variableComboBox()->setFocus();
    typeOver(name);
    if (QApplication::activePopupWidget() != nullptr)
        press(Qt::Key_Escape);
    dialog->activateWindow();
    if (!QTest::qWaitFor(
            [dialog] { return QGuiApplication::focusWindow() == dialog->windowHandle(); }))
        qFatal("the dialog did not get the keyboard back");
}

QUndoStack* EditingTest::stack() const
{
    return m_window->undoGroup->activeStack();
}

QByteArray EditingTest::saved()
{
    if (!m_window->save())
        qFatal("the document was not saved");
    return readFile(QStringLiteral("/specs/good"));
}

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

namespace {

void clickButton(const QDialog* dialog, const char* ofAsam, const char* ofVariable)
{
    const bool asam = qobject_cast<const asamspecs_select*>(dialog) != nullptr;
    QTest::mouseClick(partOf<QPushButton>(dialog, asam ? ofAsam : ofVariable), Qt::LeftButton);
}

}  // namespace

void acceptDialog(QDialog* dialog)
{
    clickButton(dialog, "Ok_button", "OkButton");
}

void cancelDialog(QDialog* dialog)
{
    clickButton(dialog, "cancel_button", "Cancel");
}

QString toolTipOf(const QComboBox* comboBox, const QString& item)
{
    return comboBox->itemData(comboBox->findText(item), Qt::ToolTipRole).toString();
}
