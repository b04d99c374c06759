#include "user.h"

#include <QJsonArray>
#include <QTest>

namespace {

constexpr int PATIENCE_MS = 10000;
constexpr int MAX_TURNS = 200;
constexpr int RIGHT_BUTTON = 3;
constexpr int WHEEL_UP = 4;
constexpr int WHEEL_DOWN = 5;
constexpr int ARROW_WIDTH = 16;
constexpr int TABS = 5;

QRect rectOf(const QJsonValue& value)
{
    const QJsonArray numbers = value.toArray();
    return {numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt()};
}

QString textIn(const QJsonObject& facts, const char* key)
{
    return facts.value(QLatin1String(key)).toString();
}

// The first object in the list with this value for the key.
QJsonObject firstOf(const QJsonValue& list, const char* key, const QString& value)
{
    for (const QJsonValue entry : list.toArray()) {
        if (entry[QLatin1String(key)].toString() == value)
            return entry.toObject();
    }
    return {};
}

// The bounding rectangle of the items that are not scrolled away.
QRect shownPart(const QJsonValue& items)
{
    QRect place;
    for (const QJsonValue item : items.toArray()) {
        if (item[QLatin1String("shown")].toBool())
            place |= rectOf(item[QLatin1String("rect")]);
    }
    return place;
}

SeenCell seenCell(const QJsonValue& facts)
{
    return {facts[QLatin1String("text")].toString(), facts[QLatin1String("code")].toInt(),
            facts[QLatin1String("current")].toBool(), rectOf(facts[QLatin1String("rect")])};
}

// The point to click on to open the list of a combo box, which may be editable.
QPoint arrowOf(const QRect& place)
{
    return {place.right() - ARROW_WIDTH / 2, place.center().y()};
}

}  // namespace

// ---- Tables ------------------------------------------------------------------------------------

QString SeenTable::text(int row, int column) const
{
    return rows.value(row).value(column).text;
}

QStringList SeenTable::rowTexts(int row) const
{
    QStringList texts;
    for (const SeenCell& cell : rows.value(row))
        texts.append(cell.text);
    return texts;
}

int SeenTable::rowOf(const QString& text, int column) const
{
    for (int row = 0; row < rows.size(); ++row) {
        if (rows[row].value(column).text.trimmed() == text)
            return row;
    }
    return -1;
}

// A dialog opens at its cell, and would be moved if it did not fit on the screen below it.
bool SeenTable::hasRoomBelow(const QRect& cell) const
{
    const bool isAtTheEnd = rows.last().first().place.bottom() <= viewport.bottom();
    const int lowest = isAtTheEnd ? viewport.bottom() : viewport.center().y();
    return cell.top() >= viewport.top() && cell.bottom() <= lowest;
}

// ---- Starting ----------------------------------------------------------------------------------

User::User()
{
    m_editor.setVariable(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(SCRIBON_FINDER_PLUGINS));
    m_editor.setVariable(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("finder"));
    m_editor.setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // Qt Widgets need no OpenGL, and its drivers start slowly.
    m_editor.setVariable(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
}

bool User::start(const Screen& screen, const QStringList& arguments)
{
    m_screen = &screen;
    m_editor.setVariable(QStringLiteral("DISPLAY"), screen.name());
    return m_editor.start(arguments) && fillScreen();
}

bool User::fillScreen()
{
    const auto widget = QStringLiteral("MainWindow");
    if (!waitUntil([&] { return isReady(widget); }))
        return false;
    const int width = windowPlace(widget).width();
    return clickTitleBarUntil([=] { return windowPlace(widget).width() > width; });
}

// Double-clicks on the window's title bar. Tried several times, since the window manager may miss
// it while it is adding the frame.
bool User::clickTitleBarUntil(const std::function<bool()>& condition)
{
    constexpr int INTO_TITLE_BAR = 8;
    constexpr int MISSED_MS = 1500;
    constexpr int MAX_TRIES = 5;
    for (int i = 0; i < MAX_TRIES; ++i) {
        const QRect place = windowPlace(QStringLiteral("MainWindow"));
        m_screen->click({place.center().x(), place.top() + INTO_TITLE_BAR}, 1, 2);
        if (QTest::qWaitFor(condition, MISSED_MS))
            return true;
    }
    return false;
}

// ---- Looking -----------------------------------------------------------------------------------

QJsonObject User::look()
{
    return m_editor.ask(QStringLiteral("look")).toObject();
}

SeenTable User::table(int tab)
{
    const QJsonValue facts = m_editor.ask(QStringLiteral("table %1").arg(tab));
    SeenTable table{rectOf(facts[QLatin1String("viewport")]), {}};
    for (const QJsonValue row : facts[QLatin1String("rows")].toArray()) {
        table.rows.append(QVector<SeenCell>());
        for (const QJsonValue cell : row.toArray())
            table.rows.last().append(seenCell(cell));
    }
    return table;
}

QVector<QStringList> User::texts()
{
    QVector<QStringList> all;
    for (int tab = 0; tab < TABS; ++tab) {
        const SeenTable seen = table(tab);
        for (int row = 0; row < seen.rows.size(); ++row)
            all.append(seen.rowTexts(row));
    }
    return all;
}

QString User::title()
{
    const QJsonObject window =
        firstOf(look()[QLatin1String("windows")], "class", QStringLiteral("MainWindow"));
    return textIn(window, "window");
}

QString User::news()
{
    return textIn(look(), "news");
}

QString User::counter()
{
    return textIn(look(), "counter");
}

QString User::pageNotice()
{
    return textIn(widget(QStringLiteral("pageNotice")), "text");
}

int User::errorsOfTab()
{
    return look()[QLatin1String("tabErrors")].toInt();
}

int User::allErrors()
{
    return look()[QLatin1String("allErrors")].toInt();
}

bool User::seesErrors(int ofTab, int all)
{
    return waitUntil([=] { return errorsOfTab() == ofTab && allErrors() == all; });
}

bool User::seesWindow(const QString& widgetClass)
{
    return !firstOf(look()[QLatin1String("windows")], "class", widgetClass).isEmpty();
}

// Whether the active window is of this class and has its frame.
bool User::isReady(const QString& widgetClass)
{
    const QJsonObject window = firstOf(look()[QLatin1String("windows")], "class", widgetClass);
    return window[QLatin1String("active")].toBool() &&
           rectOf(window[QLatin1String("frame")]) != rectOf(window[QLatin1String("rect")]);
}

QRect User::windowPlace(const QString& widgetClass)
{
    return rectOf(
        firstOf(look()[QLatin1String("windows")], "class", widgetClass)[QLatin1String("frame")]);
}

QRect User::contentsPlace(const QString& widgetClass)
{
    return rectOf(
        firstOf(look()[QLatin1String("windows")], "class", widgetClass)[QLatin1String("rect")]);
}

QString User::boxText()
{
    return textIn(firstOf(look()[QLatin1String("windows")], "class", QStringLiteral("QMessageBox")),
                  "text");
}

QStringList User::offered()
{
    QStringList texts;
    for (const QJsonValue item : look()[QLatin1String("items")].toArray())
        texts.append(item[QLatin1String("text")].toString());
    return texts;
}

QJsonObject User::focus()
{
    return look()[QLatin1String("focus")].toObject();
}

QString User::editorText()
{
    return textIn(focus(), "text");
}

QString User::focusName()
{
    return textIn(focus(), "name");
}

QString User::editorSelection()
{
    return textIn(focus(), "selection");
}

QJsonObject User::widget(const QString& name)
{
    return firstOf(look()[QLatin1String("widgets")], "name", name);
}

QString User::textOf(const QString& name)
{
    return textIn(widget(name), "text");
}

QRect User::widgetPlace(const QString& name)
{
    return rectOf(widget(name)[QLatin1String("rect")]);
}

bool User::waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, PATIENCE_MS);
}

// ---- Moving about ------------------------------------------------------------------------------

void User::clickOn(const QString& name)
{
    m_screen->click(widgetPlace(name).center());
}

void User::press(const QString& keys)
{
    m_screen->press(keys);
}

void User::type(const QString& text)
{
    m_screen->type(text);
}

int User::currentTab()
{
    return look()[QLatin1String("tab")].toInt();
}

bool User::seesCell(int tab, int row, int column)
{
    const SeenTable seen = table(tab);
    const QRect place = seen.rows.value(row).value(column).place;
    return currentTab() == tab && !place.isEmpty() && seen.viewport.contains(place.topLeft()) &&
           place.bottom() <= seen.viewport.bottom();
}

bool User::goToTab(int tab)
{
    const QJsonObject seen = look();
    if (seen[QLatin1String("tab")].toInt() != tab)
        m_screen->click(rectOf(seen[QLatin1String("tabs")][tab]).center());
    return waitUntil([=] { return currentTab() == tab; });
}

// Turns the wheel by one step. Returns whether the table scrolled.
bool User::scrollOnce(int tab, int row, int column, const QRect& viewport)
{
    const QRect before = table(tab).rows[row][column].place;
    m_screen->click(viewport.center(), before.top() < viewport.top() ? WHEEL_UP : WHEEL_DOWN);
    return waitUntil([&] { return table(tab).rows[row][column].place != before; });
}

bool User::scrollTo(int tab, int row, int column)
{
    for (int turn = 0; turn < MAX_TURNS; ++turn) {
        const SeenTable seen = table(tab);
        const QRect place = seen.rows.value(row).value(column).place;
        if (place.isEmpty())
            return false;
        if (seen.hasRoomBelow(place))
            return place.left() < seen.viewport.right();
        if (!scrollOnce(tab, row, column, seen.viewport))
            return false;
    }
    return false;
}

// The centre of the visible part of a cell.
QPoint User::placeOf(int tab, int row, int column)
{
    const SeenTable seen = table(tab);
    return (seen.rows.value(row).value(column).place & seen.viewport).center();
}

bool User::select(int tab, int row, int column)
{
    if (!goToTab(tab) || !scrollTo(tab, row, column))
        return false;
    m_screen->click(placeOf(tab, row, column));
    return waitUntil([&] {
        const QJsonValue facts = m_editor.ask(QStringLiteral("table %1").arg(tab));
        return facts[QLatin1String("rows")][row][column][QLatin1String("current")].toBool();
    });
}

QRect User::actionPlace(const QString& text)
{
    const QJsonObject action = firstOf(look()[QLatin1String("actions")], "text", text);
    return action.isEmpty() ? QRect() : rectOf(action[QLatin1String("rect")]);
}

void User::openMenu(const QString& menu)
{
    m_screen->click(actionPlace(menu).center());
}

bool User::openContextMenu(int tab, int row, int column)
{
    if (!goToTab(tab) || !scrollTo(tab, row, column))
        return false;
    m_screen->click(placeOf(tab, row, column), RIGHT_BUTTON);
    return true;
}

bool User::seesAction(const QString& action)
{
    return waitUntil([&] { return !actionPlace(action).isEmpty(); });
}

bool User::leaveMenu(const QString& action)
{
    press(QStringLiteral("Escape"));
    return waitUntil([&] { return actionPlace(action).isEmpty(); });
}

// Clicks on the action in the open menu.
bool User::chooseAction(const QString& action)
{
    if (!seesAction(action))
        return false;
    m_screen->click(actionPlace(action).center());
    return waitUntil([&] { return actionPlace(action).isEmpty(); });
}

bool User::chooseFromMenu(const QString& menu, const QString& action)
{
    openMenu(menu);
    return chooseAction(action);
}

bool User::chooseFromContextMenu(int tab, int row, int column, const QString& action)
{
    return openContextMenu(tab, row, column) && chooseAction(action);
}

bool User::clickButton(const QString& text)
{
    QJsonObject button;
    const bool there = waitUntil([&] {
        for (const QJsonValue facts : look()[QLatin1String("widgets")].toArray()) {
            const QString shown = facts[QLatin1String("text")].toString();
            if (facts[QLatin1String("class")].toString() == QLatin1String("QPushButton") &&
                QString(shown).remove(QLatin1Char('&')) == text)
                button = facts.toObject();
        }
        return !button.isEmpty();
    });
    if (there)
        m_screen->click(rectOf(button[QLatin1String("rect")]).center());
    return there;
}

// Tried several times: the window manager may still move a new message box.
bool User::answerBox(const QString& button)
{
    constexpr int MISSED_MS = 1500;
    constexpr int MAX_TRIES = 5;
    const auto isGone = [this] { return !seesWindow(QStringLiteral("QMessageBox")); };
    for (int i = 0; i < MAX_TRIES; ++i) {
        if (!clickButton(button))
            return isGone();
        if (QTest::qWaitFor(isGone, MISSED_MS))
            return true;
    }
    return false;
}

// Return may be needed twice: the first one may only close the completer's popup list.
bool User::answerFileDialog(const QString& path)
{
    constexpr int SECOND_RETURN_MS = 1000;
    constexpr int MAX_RETURNS = 3;
    const auto dialog = QStringLiteral("QFileDialog");
    if (!waitUntil([&] { return textIn(focus(), "name") == QLatin1String("fileNameEdit"); }))
        return false;
    type(path);
    if (!waitUntil([&] { return editorText() == path; }))
        return false;
    for (int i = 0; i < MAX_RETURNS; ++i) {
        press(QStringLiteral("Return"));
        if (QTest::qWaitFor([&] { return !seesWindow(dialog); }, SECOND_RETURN_MS))
            return true;
    }
    return false;
}

void User::undo(int times)
{
    for (int i = 0; i < times; ++i)
        press(QStringLiteral("ctrl+z"));
}

void User::redo(int times)
{
    for (int i = 0; i < times; ++i)
        press(QStringLiteral("ctrl+shift+z"));
}

// Sends the window manager's shortcut. Tried several times, since it may miss one while it is
// adding the frame.
void User::askToClose()
{
    constexpr int MISSED_MS = 3000;
    constexpr int MAX_TRIES = 3;
    const auto isAnswered = [this] {
        return !seesWindow(QStringLiteral("MainWindow")) ||
               seesWindow(QStringLiteral("QMessageBox"));
    };
    for (int i = 0; i < MAX_TRIES; ++i) {
        press(QStringLiteral("alt+F4"));
        if (QTest::qWaitFor(isAnswered, MISSED_MS))
            return;
    }
}

// The last button of the title bar, assumed to be as wide as the bar is high.
void User::clickCloseButton()
{
    const QJsonObject window =
        firstOf(look()[QLatin1String("windows")], "class", QStringLiteral("MainWindow"));
    const QRect frame = rectOf(window[QLatin1String("frame")]);
    const int height = rectOf(window[QLatin1String("rect")]).top() - frame.top();
    m_screen->click({frame.right() - height / 2, frame.top() + height / 2});
}

bool User::leaveFullScreen()
{
    const int width = windowPlace(QStringLiteral("MainWindow")).width();
    return clickTitleBarUntil(
        [=] { return windowPlace(QStringLiteral("MainWindow")).width() < width; });
}

bool User::waitForEnd()
{
    return m_editor.waitForEnd() && m_editor.endedHow() == QProcess::NormalExit &&
           m_editor.status() == 0;
}

// ---- Editing -----------------------------------------------------------------------------------

bool User::isEditing()
{
    const QJsonObject where = focus();
    const QString window = textIn(where, "window");
    return where[QLatin1String("inTable")].toBool() ||
           window == QLatin1String("Variable Selection") ||
           window == QLatin1String("ASAM3 Spec File Selection");
}

// Compares the cell, since until the click is handled, the editor of another cell may have the
// focus.
bool User::isEditing(int tab, int row, int column)
{
    const QJsonObject where = focus();
    if (!where[QLatin1String("inTable")].toBool())
        return isEditing();
    const QRect editor = rectOf(where[QLatin1String("rect")]);
    const QRect cell = table(tab).rows.value(row).value(column).place;
    return cell.contains(editor.left() + 1, editor.center().y());
}

// Tried several times: on a busy machine the clicks may be too far apart for a double click.
bool User::open(int tab, int row, int column)
{
    constexpr int MISSED_MS = 3000;
    constexpr int MAX_TRIES = 5;
    if (!goToTab(tab) || !scrollTo(tab, row, column))
        return false;
    for (int i = 0; i < MAX_TRIES; ++i) {
        m_screen->click(placeOf(tab, row, column), 1, 2);
        if (QTest::qWaitFor([=] { return isEditing(tab, row, column); }, MISSED_MS))
            return true;
    }
    return false;
}

bool User::open(const CellName& cell)
{
    return open(cell.tab, table(cell.tab).rowOf(cell.rowText, cell.rowColumn), cell.column);
}

// Deletes what a combo box has completed behind the typed text.
bool User::enter(const QString& text)
{
    type(text);
    press(QStringLiteral("Delete"));
    if (!waitUntil([&] { return editorText() == text; }))
        return false;
    press(QStringLiteral("Return"));
    return waitUntil([this] { return !isEditing(); });
}

QJsonObject User::item(const QString& text)
{
    return firstOf(look()[QLatin1String("items")], "text", text);
}

// Turns the wheel over the popup list until the item is visible.
bool User::scrollListTo(const QString& text)
{
    for (int turn = 0; turn < MAX_TURNS; ++turn) {
        const QJsonObject seen = look();
        const QJsonObject found = firstOf(seen[QLatin1String("items")], "text", text);
        if (found.isEmpty() || found[QLatin1String("shown")].toBool())
            return !found.isEmpty();
        const QRect before = rectOf(found[QLatin1String("rect")]);
        const QRect list = shownPart(seen[QLatin1String("items")]);
        m_screen->click(list.center(), before.top() < list.top() ? WHEEL_UP : WHEEL_DOWN);
        if (!waitUntil([&] { return rectOf(item(text)[QLatin1String("rect")]) != before; }))
            return false;
    }
    return false;
}

// Tried several times: QComboBox ignores a click that comes too soon after its popup list was
// opened.
bool User::clickItem(const QString& text)
{
    constexpr int IGNORED_MS = 500;
    constexpr int MAX_TRIES = 5;
    for (int i = 0; i < MAX_TRIES && scrollListTo(text); ++i) {
        m_screen->click(rectOf(item(text)[QLatin1String("rect")]).center());
        if (QTest::qWaitFor([this] { return offered().isEmpty(); }, IGNORED_MS))
            return true;
    }
    return false;
}

bool User::pick(const QString& item)
{
    m_screen->click(arrowOf(rectOf(focus()[QLatin1String("rect")])));
    return waitUntil([&] { return offered().contains(item); }) && clickItem(item) &&
           waitUntil([this] { return !isEditing(); });
}

bool User::pickIn(const QString& comboBox, const QString& item)
{
    m_screen->click(arrowOf(rectOf(widget(comboBox)[QLatin1String("rect")])));
    return waitUntil([&] { return offered().contains(item); }) && clickItem(item) &&
           waitUntil([&] { return textIn(widget(comboBox), "text") == item; });
}

// Return closes the completer's popup list.
bool User::typeVariable(const QString& name)
{
    type(name);
    if (!waitUntil([&] { return editorText() == name; }))
        return false;
    press(QStringLiteral("Return"));
    return waitUntil([this] { return offered().isEmpty(); });
}

bool User::typeNumber(const QString& spinBox, const QString& number)
{
    const QRect place = rectOf(widget(spinBox)[QLatin1String("rect")]);
    m_screen->click({place.left() + ARROW_WIDTH / 2, place.center().y()});
    if (!waitUntil([&] { return textIn(focus(), "name") == spinBox; }))
        return false;
    press(QStringLiteral("ctrl+a"));
    type(number);
    return waitUntil([&] { return editorText() == number; });
}

bool User::endDialog(const QString& button)
{
    return clickButton(button) && waitUntil([this] { return !isEditing(); });
}
