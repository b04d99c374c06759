// Goes from one wrong cell of the broken example to the next, by keys and by clicks on the
// counters, and corrects one of them without the mouse.

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_broken");

}  // namespace

class tst_NextError : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void keysVisitEveryWrongCell();
    void clicksOnTheCounters();
    void correctedAndUndoneByTheKeyboard();

private:
    bool openBroken();
    bool goes(const QString& keys, const QString& place);
    bool isOnWrongCell();
};

bool tst_NextError::openBroken()
{
    return provide(QStringLiteral("scrib_broken")) && start({FILE_NAME}) &&
           m_user->seesErrors(19, 42);
}

// Presses the keys and waits until the status bar tells the place, such as "3 of 42".
bool tst_NextError::goes(const QString& keys, const QString& place)
{
    m_user->press(keys);
    return m_user->waitUntil([&] { return m_user->news().startsWith(place + QLatin1Char(':')); });
}

bool tst_NextError::isOnWrongCell()
{
    const int tab = m_user->currentTab();
    const SeenTable table = m_user->table(tab);
    for (int row = 0; row < table.rows.size(); ++row) {
        for (int column = 0; column < table.rows[row].size(); ++column) {
            const SeenCell& cell = table.rows[row][column];
            if (cell.isCurrent)
                return cell.code > 0 && m_user->seesCell(tab, row, column);
        }
    }
    return false;
}

void tst_NextError::keysVisitEveryWrongCell()
{
    QVERIFY(openBroken());
    for (int number = 1; number <= 42; ++number) {
        QVERIFY(goes(QStringLiteral("F8"), QStringLiteral("%1 of 42").arg(number)));
        QVERIFY2(isOnWrongCell(), qPrintable(m_user->news()));
    }
    QVERIFY(goes(QStringLiteral("F8"), QStringLiteral("1 of 42")));
    QVERIFY(goes(QStringLiteral("shift+F8"), QStringLiteral("42 of 42")));
    QCOMPARE(m_user->currentTab(), 4);
    QVERIFY(isOnWrongCell());
}

void tst_NextError::clicksOnTheCounters()
{
    QVERIFY(openBroken());
    User& user = *m_user;
    const auto clicking = [&](const QString& name, const QString& place) {
        user.clickOn(name);
        return user.waitUntil([&] { return user.news().startsWith(place + QLatin1Char(':')); });
    };
    QVERIFY(user.goToTab(4));
    for (int step = 0; step < 8; ++step) {
        QVERIFY(clicking(QStringLiteral("tabErrs"), QStringLiteral("%1 of 7").arg(step % 7 + 1)));
        QCOMPARE(user.currentTab(), 4);
        QVERIFY(isOnWrongCell());
    }
    QVERIFY(goes(QStringLiteral("shift+F8"), QStringLiteral("35 of 42")));
    QVERIFY(clicking(QStringLiteral("errors"), QStringLiteral("36 of 42")));
    QCOMPARE(user.currentTab(), 4);
}

// The undone cell comes into view, and the current cell stays.
void tst_NextError::correctedAndUndoneByTheKeyboard()
{
    QVERIFY(openBroken());
    User& user = *m_user;
    const QVector<QStringList> before = user.texts();
    QVERIFY(goes(QStringLiteral("F8"), QStringLiteral("1 of 42")));
    QVERIFY(goes(QStringLiteral("F8"), QStringLiteral("2 of 42")));
    const int row = user.table(0).rowOf(QStringLiteral("@SCRIBON"), 0);
    QVERIFY(user.table(0).rows[row][1].isCurrent);
    user.press(QStringLiteral("F2"));
    QVERIFY(user.waitUntil([&] { return user.isEditing(); }));
    QVERIFY(user.enter(QStringLiteral("cell_4_mended")));
    QVERIFY(user.seesErrors(18, 41));

    QVERIFY(goes(QStringLiteral("F8"), QStringLiteral("2 of 41")));
    for (int number = 3; number <= 18; ++number)
        QVERIFY(goes(QStringLiteral("F8"), QStringLiteral("%1 of 41").arg(number)));
    QCOMPARE(user.currentTab(), 0);
    QVERIFY(!user.seesCell(0, row, 1));
    const auto currentRow = [&] {
        const SeenTable table = user.table(0);
        for (int i = 0; i < table.rows.size(); ++i) {
            if (table.rows[i][0].isCurrent || table.rows[i][1].isCurrent)
                return i;
        }
        return -1;
    };
    const int current = currentRow();
    QVERIFY(current > row);
    user.undo();
    QVERIFY(user.waitUntil([&] { return user.seesCell(0, row, 1); }));
    QCOMPARE(currentRow(), current);
    QVERIFY(user.seesErrors(19, 42));
    QCOMPARE(user.texts(), before);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_NextError)

#include "tst_next_error.moc"
