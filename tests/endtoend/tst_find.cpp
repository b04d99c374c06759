// Finds texts by the keyboard: in the line that Ctrl+F opens, on one tab and the others, and by
// typing in a table.

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_full");

}  // namespace

class tst_Find : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void speedIsFoundOnAllTabs();
    void foundCellIsEditedAndUndone();
    void changesAreCountedWhileTheLineIsOpen();
    void typingInTheTableFindsKeywords_data();
    void typingInTheTableFindsKeywords();

private:
    bool openFull();
    bool opensLine();
    bool tells(const QString& news);
    bool isOn(int tab, const QString& text);
    bool goes(const QString& keys, int tab, const QString& text, const QString& news);
    bool saves();
};

bool tst_Find::openFull()
{
    return provide(QStringLiteral("scrib_full")) && start({FILE_NAME}) && m_user->seesErrors(1, 1);
}

bool tst_Find::opensLine()
{
    m_user->press(QStringLiteral("ctrl+f"));
    return m_user->waitUntil(
        [this] { return !m_user->widgetPlace(QStringLiteral("findText")).isEmpty(); });
}

bool tst_Find::tells(const QString& news)
{
    return m_user->waitUntil([&] { return m_user->textOf(QStringLiteral("findNews")) == news; });
}

// Whether the current cell has this text and is in view, beside the line.
bool tst_Find::isOn(int tab, const QString& text)
{
    const SeenTable table = m_user->table(tab);
    for (int row = 0; row < table.rows.size(); ++row) {
        for (int column = 0; column < table.rows[row].size(); ++column) {
            const SeenCell& cell = table.rows[row][column];
            if (cell.isCurrent)
                return cell.text == text && m_user->seesCell(tab, row, column) &&
                       !cell.place.intersects(m_user->widgetPlace(QStringLiteral("findLine")));
        }
    }
    return false;
}

bool tst_Find::goes(const QString& keys, int tab, const QString& text, const QString& news)
{
    m_user->press(keys);
    return tells(news) && m_user->waitUntil([=] { return isOn(tab, text); });
}

bool tst_Find::saves()
{
    m_user->press(QStringLiteral("ctrl+s"));
    if (!m_user->waitUntil([&] { return m_user->news() == QLatin1String("File saved"); }))
        return false;
    return linesOf(readFile(FILE_NAME)) == linesOf(savedExample(QStringLiteral("scrib_full")));
}

void tst_Find::speedIsFoundOnAllTabs()
{
    QVERIFY(openFull());
    User& user = *m_user;
    QVERIFY(opensLine());
    user.type(QStringLiteral("speed"));
    QVERIFY(tells(QStringLiteral("No match here, 10 on other tabs")));
    const auto forth = QStringLiteral("Return");
    const auto back = QStringLiteral("shift+Return");
    const auto toTab = QStringLiteral("ctrl+Return");
    const auto ofSix = QStringLiteral("%1 of 6, 4 on other tabs");
    const auto ofTwo = QStringLiteral("%1 of 2, 8 on other tabs");
    QVERIFY(goes(toTab, 1, QStringLiteral("# Speed and torque"), ofSix.arg(1)));
    QVERIFY(goes(forth, 1, QStringLiteral("eng_speed"), ofSix.arg(2)));
    QVERIFY(goes(back, 1, QStringLiteral("# Speed and torque"), ofSix.arg(1)));
    QVERIFY(goes(back, 1, QStringLiteral("dyno_speed[RPM]"), ofSix.arg(6)));
    QVERIFY(goes(toTab, 2, QStringLiteral("RATED_SPEED"), ofTwo.arg(1)));
    QVERIFY(goes(forth, 2, QStringLiteral("rated_speed"), ofTwo.arg(2)));
    QVERIFY(goes(toTab, 3, QStringLiteral("eng_speed"), ofTwo.arg(1)));
    QVERIFY(goes(toTab, 1, QStringLiteral("# Speed and torque"), ofSix.arg(1)));

    user.clickOn(QStringLiteral("findClose"));
    QVERIFY(user.waitUntil([&] { return user.widgetPlace(QStringLiteral("findLine")).isEmpty(); }));
    QVERIFY(saves());
}

// From the found cell F2 and undo go on without the mouse.
void tst_Find::foundCellIsEditedAndUndone()
{
    QVERIFY(openFull());
    User& user = *m_user;
    QVERIFY(opensLine());
    user.type(QStringLiteral("crank_sp"));
    QVERIFY(goes(QStringLiteral("ctrl+Return"), 3, QStringLiteral("crank_speed"),
                 QStringLiteral("1 of 1")));
    user.press(QStringLiteral("Escape"));
    QVERIFY(user.waitUntil([&] { return user.widgetPlace(QStringLiteral("findLine")).isEmpty(); }));
    user.press(QStringLiteral("F2"));
    QVERIFY(user.waitUntil([&] { return user.isEditing(); }));
    QVERIFY(user.enter(QStringLiteral("turns")));
    QVERIFY(isOn(3, QStringLiteral("turns")));
    user.undo();
    QVERIFY(user.waitUntil([&] { return isOn(3, QStringLiteral("crank_speed")); }));
    QVERIFY(saves());
}

void tst_Find::changesAreCountedWhileTheLineIsOpen()
{
    QVERIFY(openFull());
    User& user = *m_user;
    const int row = user.table(3).rowOf(QStringLiteral("fuel_flow"), 1);
    QVERIFY(user.select(3, 1, 1));
    QVERIFY(opensLine());
    user.type(QStringLiteral("speed"));
    QVERIFY(tells(QStringLiteral("1 of 2, 8 on other tabs")));
    QVERIFY(user.open(3, row, 2));
    QVERIFY(user.enter(QStringLiteral("flow_speed")));
    QVERIFY(tells(QStringLiteral("3 of 3, 8 on other tabs")));
    user.undo();
    QVERIFY(tells(QStringLiteral("2 found, 8 on other tabs")));
    user.redo();
    QVERIFY(tells(QStringLiteral("3 of 3, 8 on other tabs")));
    user.undo();
    QVERIFY(tells(QStringLiteral("2 found, 8 on other tabs")));
    QVERIFY(saves());
}

void tst_Find::typingInTheTableFindsKeywords_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("shown name") << QStringLiteral("max st");
    QTest::newRow("text of the file") << QStringLiteral("@max_st");
}

void tst_Find::typingInTheTableFindsKeywords()
{
    QFETCH(QString, typed);
    QVERIFY(openFull());
    QVERIFY(m_user->select(0, 3, 0));
    m_user->type(typed);
    QVERIFY(
        m_user->waitUntil([this] { return isOn(0, QStringLiteral("@MAX_STATISTICAL_SCANS")); }));
    QVERIFY(saves());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_Find)

#include "tst_find.moc"
