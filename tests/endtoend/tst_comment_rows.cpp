// Uses the comments of the Keywords tab, each of which is one cell across all columns, by mouse and
// keyboard, and takes everything back.

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_broken");
constexpr int LAST_OF_THE_FIRST = 2;  // comments at the top
constexpr int SCRIBON = 3;
constexpr int SECOND = 4;  // comment

}  // namespace

class tst_CommentRows : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void valuesAreInSight();
    void editedByTheMouse();
    void passedByTheKeyboard();
    void rowBecomesACommentAndBack();

private:
    bool openBroken();
    bool isSpan(int row);
    bool isCurrent(int row, int column);
    bool goesTo(const QString& key, int row, int column);
    bool save();
    bool undoneAndSaved(int times);

    QByteArray m_saved;
};

// Saves first, since a save writes the example in a form of its own.
bool tst_CommentRows::openBroken()
{
    const bool opened = provide(QStringLiteral("scrib_broken")) && start({FILE_NAME}) &&
                        m_user->seesErrors(19, 42) && save();
    m_saved = readFile(FILE_NAME);
    return opened;
}

bool tst_CommentRows::save()
{
    m_user->press(QStringLiteral("ctrl+s"));
    return m_user->waitUntil([&] { return m_user->news() == QLatin1String("File saved"); });
}

bool tst_CommentRows::isSpan(int row)
{
    const QVector<SeenCell> cells = m_user->table(0).rows.value(row);
    return cells[0].place == cells[1].place && cells[1].place == cells[2].place;
}

bool tst_CommentRows::isCurrent(int row, int column)
{
    return m_user->waitUntil([=] { return m_user->table(0).rows[row][column].isCurrent; });
}

bool tst_CommentRows::goesTo(const QString& key, int row, int column)
{
    m_user->press(key);
    return isCurrent(row, column);
}

// Undoes that many steps and saves: the file is as it was.
bool tst_CommentRows::undoneAndSaved(int times)
{
    m_user->undo(times);
    const bool gone =
        m_user->waitUntil([&] { return m_user->news() != QLatin1String("File saved"); });
    return gone && m_user->seesErrors(19, 42) && save() && readFile(FILE_NAME) == m_saved;
}

void tst_CommentRows::valuesAreInSight()
{
    QVERIFY(openBroken());
    const SeenTable table = m_user->table(0);
    QVERIFY(isSpan(0));
    QVERIFY(!isSpan(SCRIBON));
    const QRect value = table.rows[SCRIBON][1].place;
    QVERIFY(value.left() < table.viewport.center().x());
    QVERIFY(table.viewport.contains(value.topLeft()));
}

// A double click where other rows have their value opens the comment's editor.
void tst_CommentRows::editedByTheMouse()
{
    QVERIFY(openBroken());
    User& user = *m_user;
    QVERIFY(user.open(0, 0, 0));
    QVERIFY(user.editorText().startsWith(QLatin1String("# A file to mend.")));
    QVERIFY(user.enter(QStringLiteral("# Mended")));
    QCOMPARE(user.table(0).text(0, 0), QStringLiteral("# Mended"));
    QVERIFY(isSpan(0));
    QVERIFY(undoneAndSaved(1));
}

void tst_CommentRows::passedByTheKeyboard()
{
    QVERIFY(openBroken());
    User& user = *m_user;
    QVERIFY(user.select(0, SCRIBON, 1));
    QVERIFY(goesTo(QStringLiteral("Down"), SECOND, 0));
    QVERIFY(goesTo(QStringLiteral("Down"), SECOND + 1, 1));
    QVERIFY(goesTo(QStringLiteral("Up"), SECOND, 0));
    QVERIFY(goesTo(QStringLiteral("Up"), SCRIBON, 1));
    QVERIFY(goesTo(QStringLiteral("Up"), LAST_OF_THE_FIRST, 0));
    user.press(QStringLiteral("Right"));
    QVERIFY(goesTo(QStringLiteral("F8"), SCRIBON, 1));
    QVERIFY(goesTo(QStringLiteral("shift+F8"), LAST_OF_THE_FIRST, 0));
    user.press(QStringLiteral("F2"));
    QVERIFY(user.waitUntil([&] { return user.isEditing(); }));
    QVERIFY(user.enter(QStringLiteral("# Short")));
    QVERIFY(user.seesErrors(18, 41));
    QVERIFY(isSpan(LAST_OF_THE_FIRST));
    QVERIFY(undoneAndSaved(1));
}

void tst_CommentRows::rowBecomesACommentAndBack()
{
    QVERIFY(openBroken());
    User& user = *m_user;
    const int rows = user.table(0).rows.size();
    QVERIFY(user.select(0, SCRIBON, 0));
    user.press(QStringLiteral("ctrl+i"));
    QVERIFY(user.waitUntil([&] { return user.isEditing(); }));
    QVERIFY(!isSpan(SCRIBON + 1));
    QVERIFY(user.enter(QStringLiteral("# New")));
    QVERIFY(isSpan(SCRIBON + 1));
    QVERIFY(isSpan(SECOND + 1));
    QVERIFY(user.open(0, SCRIBON + 1, 0));
    QVERIFY(user.enter(QStringLiteral("max_scans")));
    QVERIFY(!isSpan(SCRIBON + 1));
    user.undo();
    QVERIFY(user.waitUntil([&] { return isSpan(SCRIBON + 1); }));
    user.press(QStringLiteral("ctrl+r"));
    QVERIFY(user.waitUntil([&] { return user.table(0).rows.size() == rows; }));
    QVERIFY(isSpan(SECOND));
    QVERIFY(!isSpan(SECOND + 1));
    user.undo();
    QVERIFY(user.waitUntil([&] { return user.table(0).rows.size() == rows + 1; }));
    QVERIFY(isSpan(SCRIBON + 1));
    QVERIFY(undoneAndSaved(2));
    QCOMPARE(user.table(0).rows.size(), rows);
    QVERIFY(isSpan(SECOND));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_CommentRows)

#include "tst_comment_rows.moc"
