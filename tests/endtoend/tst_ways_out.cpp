// Every way to leave an editor with uncommitted text: the text is stored in the cell, and in the
// file after the next save.

#include <array>

#include "endtoend_test.h"

namespace {

const auto EDIT = QStringLiteral("Edit");
const auto INSERT = QStringLiteral("Insert Row");
const auto UNSAVED =
    QStringLiteral("The file has been modified.\nDo you want to save your chanages?");

}  // namespace

class tst_WaysOut : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void textOfAnOpenEditorIsSaved_data();
    void textOfAnOpenEditorIsSaved();

private:
    struct Way {
        const char* name;
        bool (tst_WaysOut::*leave)();
    };
    static const std::array<Way, 13> WAYS;

    bool typeAnew();
    QString cellText();
    bool hasTyped();
    bool hasRows(int rows);
    bool fileHasTyped();
    bool isAsked();
    bool save();
    bool saveAs();
    bool makeNew();
    bool openAnother();
    bool closeByKey();
    bool closeByButton();
    bool insertRow();
    bool removeRow();
    bool openEditMenu();
    bool openEditMenuByKey();
    bool openContextMenu();
    bool goToAnotherTab();
    bool undoFromMenu();

    int m_tab = 0;
    int m_row = 0;
    int m_column = 0;
    QString m_file;
    QString m_typed;
    QString m_stored;
    QString m_pattern;  // typed text, with "%1" for a number
    int m_edits = 0;
};

const std::array<tst_WaysOut::Way, 13> tst_WaysOut::WAYS{{
    {"Ctrl+S", &tst_WaysOut::save},
    {"Save As", &tst_WaysOut::saveAs},
    {"Ctrl+N", &tst_WaysOut::makeNew},
    {"Ctrl+O", &tst_WaysOut::openAnother},
    {"Alt+F4", &tst_WaysOut::closeByKey},
    {"the title bar's close button", &tst_WaysOut::closeByButton},
    {"Ctrl+I", &tst_WaysOut::insertRow},
    {"Ctrl+R", &tst_WaysOut::removeRow},
    {"the Edit menu by the mouse", &tst_WaysOut::openEditMenu},
    {"the Edit menu by Alt+E", &tst_WaysOut::openEditMenuByKey},
    {"the context menu", &tst_WaysOut::openContextMenu},
    {"another tab", &tst_WaysOut::goToAnotherTab},
    {"Undo from the menu", &tst_WaysOut::undoFromMenu},
}};

// A keyword is stored in upper case, with "@".
bool tst_WaysOut::typeAnew()
{
    m_typed = m_pattern.arg(++m_edits);
    const bool isKeyword = m_tab == 0 && m_column == 0;
    m_stored = isKeyword ? QLatin1Char('@') + m_typed.toUpper() : m_typed;
    if (!m_user->open(m_tab, m_row, m_column))
        return false;
    m_user->type(m_typed);
    return m_user->waitUntil([this] { return m_user->editorText() == m_typed; });
}

QString tst_WaysOut::cellText()
{
    return m_user->table(m_tab).text(m_row, m_column).trimmed();
}

bool tst_WaysOut::hasTyped()
{
    return m_user->waitUntil([this] { return cellText() == m_stored; });
}

bool tst_WaysOut::hasRows(int rows)
{
    return m_user->waitUntil([=] { return m_user->table(m_tab).rows.size() == rows; });
}

bool tst_WaysOut::fileHasTyped()
{
    return m_user->waitUntil([this] { return readFile(m_file).contains(m_stored.toUtf8()); });
}

// Checks for the question about unsaved changes: the edit is the only change.
bool tst_WaysOut::isAsked()
{
    return m_user->waitUntil([this] { return m_user->boxText() == UNSAVED; }) && hasTyped() &&
           m_user->answerBox(QStringLiteral("Cancel"));
}

bool tst_WaysOut::save()
{
    m_user->press(QStringLiteral("ctrl+s"));
    return fileHasTyped();
}

bool tst_WaysOut::saveAs()
{
    m_file += QLatin1Char('2');
    return m_user->chooseFromMenu(QStringLiteral("File"), QStringLiteral("Save As")) &&
           m_user->answerFileDialog(m_file) && fileHasTyped();
}

bool tst_WaysOut::makeNew()
{
    m_user->press(QStringLiteral("ctrl+n"));
    return isAsked();
}

bool tst_WaysOut::openAnother()
{
    m_user->press(QStringLiteral("ctrl+o"));
    return isAsked();
}

bool tst_WaysOut::closeByKey()
{
    m_user->askToClose();
    return isAsked();
}

bool tst_WaysOut::closeByButton()
{
    m_user->clickCloseButton();
    return isAsked();
}

// The new row is removed while its editor is open.
bool tst_WaysOut::insertRow()
{
    const int rows = m_user->table(m_tab).rows.size();
    m_user->press(QStringLiteral("ctrl+i"));
    if (!hasRows(rows + 1) || !hasTyped())
        return false;
    m_user->press(QStringLiteral("ctrl+r"));
    return hasRows(rows);
}

bool tst_WaysOut::removeRow()
{
    const int rows = m_user->table(m_tab).rows.size();
    m_user->press(QStringLiteral("ctrl+r"));
    if (!hasRows(rows - 1))
        return false;
    m_user->undo();
    return hasRows(rows);
}

bool tst_WaysOut::openEditMenu()
{
    m_user->openMenu(EDIT);
    return m_user->seesAction(INSERT) && hasTyped() && m_user->leaveMenu(INSERT);
}

bool tst_WaysOut::openEditMenuByKey()
{
    m_user->press(QStringLiteral("alt+e"));
    return m_user->seesAction(INSERT) && hasTyped() && m_user->leaveMenu(INSERT);
}

bool tst_WaysOut::openContextMenu()
{
    return m_user->openContextMenu(m_tab, m_row - 1, 1) && m_user->seesAction(INSERT) &&
           hasTyped() && m_user->leaveMenu(INSERT);
}

bool tst_WaysOut::goToAnotherTab()
{
    return m_user->goToTab(m_tab == 4 ? 0 : 4) && hasTyped() && m_user->goToTab(m_tab);
}

bool tst_WaysOut::undoFromMenu()
{
    const QString before = cellText();
    if (!m_user->chooseFromMenu(EDIT, QStringLiteral("Undo")) ||
        !m_user->waitUntil([&] { return cellText() == before; }))
        return false;
    m_user->redo();
    return hasTyped();
}

void tst_WaysOut::textOfAnOpenEditorIsSaved_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("rowText");
    QTest::addColumn<int>("rowColumn");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("pattern");

    const auto row = [](const char* name, int tab, const char* rowText, int rowColumn, int column,
                        const char* pattern) {
        QTest::newRow(name) << tab << QString(QLatin1String(rowText)) << rowColumn << column
                            << QString(QLatin1String(pattern));
    };
    row("line", 0, "@START_EVENT", 0, 1, "typed_%1_");
    row("combo box", 0, "start_log", 1, 0, "typed_%1_");
    row("spin box", 0, "@MAX_SCANS", 0, 1, "54%10");
    row("line of a list", 3, "nox_out", 1, 2, "typed_%1_");
    row("combo box of a list", 1, "boost_press", 1, 3, "typed_%1_");
}

// The window manager and menus leave the focus in the editor.
void tst_WaysOut::textOfAnOpenEditorIsSaved()
{
    QFETCH(int, tab);
    QFETCH(QString, rowText);
    QFETCH(int, rowColumn);
    QFETCH(int, column);
    QFETCH(QString, pattern);
    m_file = QStringLiteral("/specs/scrib_full");
    QVERIFY(provide(QStringLiteral("scrib_full")) && start({m_file}));
    m_tab = tab;
    m_row = m_user->table(tab).rowOf(rowText, rowColumn);
    m_column = column;
    m_pattern = pattern;
    for (const Way& way : WAYS) {
        QVERIFY2(typeAnew(), way.name);
        QVERIFY2((this->*way.leave)(), way.name);
        QVERIFY2(hasTyped(), way.name);
        QVERIFY2(save(), way.name);
    }
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_WaysOut)

#include "tst_ways_out.moc"
