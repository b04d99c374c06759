// Closing the window with unsaved changes, and the contents of the file then.

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_small");
const auto UNSAVED =
    QStringLiteral("The file has been modified.\nDo you want to save your chanages?");

}  // namespace

class tst_Closing : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void unchangedDocumentClosesWithoutAQuestion();
    void withUnsavedWork_data();
    void withUnsavedWork();
    void editingContinuesAfterCancel();

private:
    bool changeAndClose();

    const QByteArray m_before = example(QStringLiteral("scrib_small"));
    const QByteArray m_after =
        savedExample(QStringLiteral("scrib_small")).replace("idle_watch", "night_watch");
};

bool tst_Closing::changeAndClose()
{
    User& user = *m_user;
    if (!provide(QStringLiteral("scrib_small")) || !start({FILE_NAME}) ||
        !user.open({0, QStringLiteral("@SCRIBON"), 0, 1}) ||
        !user.enter(QStringLiteral("night_watch")))
        return false;
    user.askToClose();
    return user.waitUntil([&] { return user.boxText() == UNSAVED; });
}

void tst_Closing::unchangedDocumentClosesWithoutAQuestion()
{
    QVERIFY(provide(QStringLiteral("scrib_small")));
    QVERIFY(start({FILE_NAME}));
    m_user->askToClose();
    QVERIFY(m_user->waitForEnd());
    QCOMPARE(readFile(FILE_NAME), m_before);
}

void tst_Closing::withUnsavedWork_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QByteArray>("file");

    QTest::newRow("saving puts the work into the file") << QStringLiteral("Save") << m_after;
    QTest::newRow("discarding leaves the file as it was") << QStringLiteral("Discard") << m_before;
}

void tst_Closing::withUnsavedWork()
{
    QFETCH(QString, button);
    QFETCH(QByteArray, file);
    QVERIFY(changeAndClose());
    QCOMPARE(readFile(FILE_NAME), m_before);
    QVERIFY(m_user->answerBox(button));
    QVERIFY(m_user->waitForEnd());
    QCOMPARE(linesOf(readFile(FILE_NAME)), linesOf(file));
}

void tst_Closing::editingContinuesAfterCancel()
{
    User& user = *m_user;
    QVERIFY(changeAndClose());
    QVERIFY(user.answerBox(QStringLiteral("Cancel")));
    QCOMPARE(user.table(0).text(0, 1), QStringLiteral("night_watch"));
    QCOMPARE(readFile(FILE_NAME), m_before);

    user.press(QStringLiteral("ctrl+s"));
    QVERIFY(user.waitUntil([&] { return user.news() == QLatin1String("File saved"); }));
    QCOMPARE(linesOf(readFile(FILE_NAME)), linesOf(m_after));
    user.askToClose();
    QVERIFY(user.waitForEnd());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_Closing)

#include "tst_closing.moc"
