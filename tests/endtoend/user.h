// A user of the real program, who looks at its window and has a mouse and a keyboard, and nothing
// else. What is to be done comes back as true once it is seen to be done, and as false when it is
// not in good time.
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
    int code = 0;  // the mark: above 0 for a wrong cell
    QRect place;
};

struct SeenTable {
    QRect viewport;
    QVector<QVector<SeenCell>> rows;

    QString text(int row, int column) const;
    QStringList rowTexts(int row) const;
    // The first row with the text, blanks around it aside, in the column; -1 when there is none.
    int rowOf(const QString& text, int column) const;
    // Whether the cell is seen in the upper half, or as near to it as the table scrolls.
    bool hasRoomBelow(const QRect& cell) const;
};

// A cell by its tab and the first row with a text.
struct CellName {
    int tab;
    QString rowText;
    int rowColumn;
    int column;
};

class User {
public:
    User();

    // Starts the program on the screen, and its window is made to fill it.
    bool start(const Screen& screen, const QStringList& arguments);

    // ---- Looking ----

    QJsonObject look();
    SeenTable table(int tab);
    QString title();
    QString news();
    QString counter();
    int errorsOfTab();
    int allErrors();
    bool seesWindow(const QString& widgetClass);
    QString boxText();
    // The texts of the list that hangs open.
    QStringList offered();
    // Where the keyboard is: an editor's text, or what of it is selected.
    QString editorText();
    QString editorSelection();
    QRect windowPlace(const QString& widgetClass);
    bool waitUntil(const std::function<bool()>& condition);
    bool seesErrors(int ofTab, int all);

    // ---- Moving about ----

    bool goToTab(int tab);
    bool select(int tab, int row, int column);
    void press(const QString& keys);
    void type(const QString& text);
    bool chooseFromMenu(const QString& menu, const QString& action);
    bool chooseFromContextMenu(int tab, int row, int column, const QString& action);
    // Open a menu by the mouse; the right click makes the cell the current one.
    void openMenu(const QString& menu);
    bool openContextMenu(int tab, int row, int column);
    // Whether a menu hangs open that has the action.
    bool seesAction(const QString& action);
    // Closes the menu that has the action by Escape.
    bool leaveMenu(const QString& action);
    // Clicks on the message box's button and sees the box go.
    bool answerBox(const QString& button);
    bool answerFileDialog(const QString& path);
    void undo(int times = 1);
    void redo(int times = 1);
    void askToClose();
    // The same by the button in the title bar.
    void clickCloseButton();
    bool waitForEnd();

    // ---- Editing ----

    // Whether the keyboard is in an editor: one in the table, or a dialog.
    bool isEditing();
    // Opens the editor of a cell, by a double click.
    bool open(int tab, int row, int column);
    bool open(const CellName& cell);
    // Types over what an open editor in the table shows, and ends it by Return.
    bool enter(const QString& text);
    // Opens the list of an open combo box and clicks on the item.
    bool pick(const QString& item);
    // The same for a combo box of an open dialog, by its object name.
    bool pickIn(const QString& comboBox, const QString& item);
    // Types over the line of an open dialog that has the keyboard.
    bool typeVariable(const QString& name);
    bool typeNumber(const QString& spinBox, const QString& number);
    // Clicks on the dialog's button and sees it go.
    bool endDialog(const QString& button);

private:
    Q_DISABLE_COPY(User)

    bool fillScreen();
    bool isReady(const QString& widgetClass);
    // The same of the editor of this cell.
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
