// What a user sees and can do while no document is open: at the start, and after a file was refused
// over an open one.

#include "endtoend_test.h"

namespace {

const auto HINT = QStringLiteral("Ctrl+O opens a spec file, Ctrl+N starts a new one");
const auto REFUSED = QStringLiteral("/specs/scrib_refused_notes");
const auto REFUSAL = QStringLiteral("Invalid scribon_specs file: ") + REFUSED +
                     QStringLiteral("\nIts first statement is not @SCRIBON.\n") + HINT;
const auto GOOD = QStringLiteral("/specs/scrib_small");
const auto TITLE = QStringLiteral("Scribon Specification Editor:");

}  // namespace

class tst_NothingOpen : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void startWithoutAFile();
    void startWithARefusedFile();
    void refusedFileOverAnOpenOne();

private:
    bool opens(const QString& name);
    QVector<QStringList> rows(int tab);
};

bool tst_NothingOpen::opens(const QString& name)
{
    m_user->press(QStringLiteral("ctrl+o"));
    return m_user->answerFileDialog(name) && m_user->waitUntil([&] {
        return m_user->title().startsWith(TITLE) && m_user->title().endsWith(name);
    });
}

QVector<QStringList> tst_NothingOpen::rows(int tab)
{
    const SeenTable table = m_user->table(tab);
    QVector<QStringList> texts;
    for (int row = 0; row < table.rows.size(); ++row)
        texts.append(table.rowTexts(row));
    return texts;
}

void tst_NothingOpen::startWithoutAFile()
{
    QVERIFY(provide(QStringLiteral("scrib_small")));
    QVERIFY(start());
    QCOMPARE(m_user->title(), TITLE + QStringLiteral("Empty File"));
    QCOMPARE(m_user->pageNotice(), HINT);
    QVERIFY(m_user->goToTab(3));
    QCOMPARE(m_user->pageNotice(), HINT);
    QVERIFY(opens(GOOD));
    QCOMPARE(m_user->pageNotice(), QString());
}

void tst_NothingOpen::startWithARefusedFile()
{
    QVERIFY(provide(QStringLiteral("scrib_refused_notes")));
    QVERIFY(start({REFUSED}));
    QCOMPARE(m_user->pageNotice(), REFUSAL);
}

void tst_NothingOpen::refusedFileOverAnOpenOne()
{
    QVERIFY(provide(QStringLiteral("scrib_small")) &&
            provide(QStringLiteral("scrib_refused_notes")));
    QVERIFY(start({GOOD}));
    User& user = *m_user;
    const QVector<QStringList> before = rows(0);
    QVERIFY(opens(REFUSED));
    QCOMPARE(user.title(), TITLE + QStringLiteral("Invalid scribon_specs file: ") + REFUSED);
    QCOMPARE(user.pageNotice(), REFUSAL);
    for (const int column : {0, 1}) {
        QVERIFY(user.select(0, 0, column));
        const QPoint cell = user.table(0).rows[0][column].place.center();
        m_screen.click(cell);
        m_screen.click(cell);
        for (const char* const key : {"F2", "Return", "ctrl+i", "ctrl+r", "ctrl+v", "ctrl+z", "F8"})
            user.press(QString::fromLatin1(key));
        user.type(QStringLiteral("x"));
        QVERIFY(!user.isEditing());
    }
    QCOMPARE(rows(0), before);
    QCOMPARE(user.pageNotice(), REFUSAL);

    QVERIFY(opens(GOOD));
    QCOMPARE(user.pageNotice(), QString());
    QVERIFY(user.open({0, QStringLiteral("@SCRIBON"), 0, 1}));
    QVERIFY(user.enter(QStringLiteral("night_watch")));
    QVERIFY(rows(0) != before);
    user.undo();
    QVERIFY(user.waitUntil([&] { return rows(0) == before; }));
    user.press(QStringLiteral("ctrl+s"));
    QVERIFY(user.waitUntil([&] { return user.news() == QLatin1String("File saved"); }));
    QCOMPARE(linesOf(readFile(GOOD)), linesOf(savedExample(QStringLiteral("scrib_small"))));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_NothingOpen)

#include "tst_nothing_open.moc"
