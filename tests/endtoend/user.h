// Acts like a user of the real program: sees its window and uses mouse and keyboard only. Functions
// return true once the effect is visible, and false if it is not in time.
#pragma once

#include <QJsonObject>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

#include "editor_process.h"
#include "screen.h"

struct SeenCell {
    QString text;
    int code = 0;  // error code: above 0 for a wrong cell
    bool isCurrent = false;
    QRect place;
};

struct SeenTable {
    QRect viewport;
    QVector<QVector<SeenCell>> rows;

    QString text(int row, int column) const;
    QStringList rowTexts(int row) const;
    // The first row whose trimmed text in this column is `text`; -1 if there is none.
    int rowOf(const QString& text, int column) const;
    // Whether the cell is in the upper half of the view, or as near to it as the view scrolls.
    bool hasRoomBelow(const QRect& cell) const;
};

// A column of the first row of a tab that has a text.
struct CellName {
    int tab;
    QString rowText;
    int rowColumn;
    int column;
};

class User {
public:
    User();

    // Starts the program on the display and maximizes its window.
    bool start(const Screen& screen, const QStringList& arguments);

    // ---- Looking ----

    QJsonObject look();
    SeenTable table(int tab);
    // The texts of all rows of all tabs.
    QVector<QStringList> texts();
    QString title();
    QString news();
    QString counter();
    // What the page says while nothing is open; empty otherwise.
    QString pageNotice();
    int errorsOfTab();
    int allErrors();
    bool seesWindow(const QString& widgetClass);
    QString boxText();
    // The items of the open popup list.
    QStringList offered();
    // The text of the editor that has the focus, or its selected part.
    QString editorText();
    QString editorSelection();
    // The text of the visible widget with this object name, and its rectangle.
    QString textOf(const QString& name);
    QRect widgetPlace(const QString& name);
    // The object name of the widget that has the focus.
    QString focusName();
    // The place of a window with its frame, or without.
    QRect windowPlace(const QString& widgetClass);
    QRect contentsPlace(const QString& widgetClass);
    bool waitUntil(const std::function<bool()>& condition);
    bool seesErrors(int ofTab, int all);
    int currentTab();
    // Whether the cell, or the left end of one that is wider than the table, is in view.
    bool seesCell(int tab, int row, int column);

    // ---- Moving about ----

    bool goToTab(int tab);
    bool select(int tab, int row, int column);
    void press(const QString& keys);
    void type(const QString& text);
    // Clicks on the visible widget with this object name.
    void clickOn(const QString& name);
    bool chooseFromMenu(const QString& menu, const QString& action);
    bool chooseFromContextMenu(int tab, int row, int column, const QString& action);
    // Open a menu by the mouse. The right click also makes the cell current.
    void openMenu(const QString& menu);
    bool openContextMenu(int tab, int row, int column);
    // Whether an open menu has the action.
    bool seesAction(const QString& action);
    // Closes the menu that has the action, by Escape.
    bool leaveMenu(const QString& action);
    // Clicks on a button of the message box and waits until the box is closed.
    bool answerBox(const QString& button);
    bool answerFileDialog(const QString& path);
    void undo(int times = 1);
    void redo(int times = 1);
    void askToClose();
    // The same, by the button in the title bar.
    void clickCloseButton();
    bool waitForEnd();
    // Makes the maximized window small again, by a double click on its title bar.
    bool leaveFullScreen();

    // ---- Editing ----

    // Whether an editor has the focus: one in a cell, or a dialog.
    bool isEditing();
    // Opens the editor of a cell, by a double click.
    bool open(int tab, int row, int column);
    bool open(const CellName& cell);
    // Replaces the text of an open editor in a cell and presses Return.
    bool enter(const QString& text);
    // Opens the popup list of the combo box that is the open editor, and clicks on the item.
    bool pick(const QString& item);
    // The same for a combo box of an open dialog, given by its object name.
    bool pickIn(const QString& comboBox, const QString& item);
    // Replaces the text of the line edit that has the focus in an open dialog.
    bool typeVariable(const QString& name);
    bool typeNumber(const QString& spinBox, const QString& number);
    // Clicks on a button of the dialog and waits until the dialog is closed.
    bool endDialog(const QString& button);

private:
    Q_DISABLE_COPY(User)

    bool fillScreen();
    bool clickTitleBarUntil(const std::function<bool()>& condition);
    bool isReady(const QString& widgetClass);
    // The same for the editor of this cell.
    bool isEditing(int tab, int row, int column);
    bool scrollTo(int tab, int row, int column);
    bool scrollOnce(int tab, int row, int column, const QRect& viewport);
    QJsonObject focus();
    QJsonObject widget(const QString& name);
    QJsonObject item(const QString& text);
    bool scrollListTo(const QString& text);
    bool clickItem(const QString& text);
    bool clickButton(const QString& text);
    QPoint placeOf(int tab, int row, int column);
    bool chooseAction(const QString& action);
    QRect actionPlace(const QString& text);

    const Screen* m_screen = nullptr;
    EditorProcess m_editor;
};
