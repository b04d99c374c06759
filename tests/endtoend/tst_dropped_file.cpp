// Drags files from another program to the window of the editor.

#include "endtoend_test.h"
#include "neighbour_process.h"

namespace {

const auto FULL = QStringLiteral("/specs/scrib_full");
const auto SMALL = QStringLiteral("/specs/scrib_small");

QString urlOf(const QString& path)
{
    return QStringLiteral("file://") + path;
}

}  // namespace

class tst_DroppedFile : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void fileIsOpened_data();
    void fileIsOpened();
    void unsavedWorkIsAskedFor();
    void refused_data();
    void refused();

private:
    bool openFull();
    QPoint overTheTable() { return m_user->table(0).viewport.center(); }
    bool showsTitle(const QString& file);
};

bool tst_DroppedFile::openFull()
{
    return provide(QStringLiteral("scrib_full")) && provide(QStringLiteral("scrib_small")) &&
           start({FULL}) && m_user->seesErrors(1, 1);
}

bool tst_DroppedFile::showsTitle(const QString& file)
{
    return m_user->waitUntil([&] { return m_user->title().endsWith(QLatin1Char(':') + file); });
}

void tst_DroppedFile::fileIsOpened_data()
{
    QTest::addColumn<bool>("overTable");
    QTest::newRow("over the table") << true;
    QTest::newRow("over a counter") << false;
}

void tst_DroppedFile::fileIsOpened()
{
    QFETCH(bool, overTable);
    QVERIFY(openFull());
    NeighbourProcess files(m_screen);
    const QPoint place =
        overTable ? overTheTable() : m_user->widgetPlace(QStringLiteral("errors")).center();
    QVERIFY(files.drag({urlOf(SMALL)}, place));
    QVERIFY(files.isTaken());
    QVERIFY(files.drop());
    QVERIFY(showsTitle(SMALL));
    QVERIFY(m_user->waitUntil([&] { return m_user->table(0).rows.size() == 8; }));
    QCOMPARE(readFile(SMALL), example(QStringLiteral("scrib_small")));
}

void tst_DroppedFile::unsavedWorkIsAskedFor()
{
    QVERIFY(openFull());
    User& user = *m_user;
    QVERIFY(user.select(0, user.table(0).rowOf(QStringLiteral("@FTP_EVENT"), 0), 1));
    user.press(QStringLiteral("ctrl+r"));
    const auto dropAndAnswer = [&](const QString& button) {
        NeighbourProcess files(m_screen);
        return files.drag({urlOf(SMALL)}, overTheTable()) && files.isTaken() && files.drop() &&
               user.waitUntil([&] { return user.seesWindow(QStringLiteral("QMessageBox")); }) &&
               user.answerBox(button);
    };
    QVERIFY(dropAndAnswer(QStringLiteral("Cancel")));
    QVERIFY(showsTitle(FULL));
    QVERIFY(dropAndAnswer(QStringLiteral("Save")));
    QVERIFY(showsTitle(SMALL));
    QVERIFY(!readFile(FULL).contains("@FTP_EVENT"));
}

void tst_DroppedFile::refused_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<QString>("news");
    QTest::newRow("two files") << QStringList{urlOf(SMALL), urlOf(FULL)}
                               << QStringLiteral("One file at a time");
    QTest::newRow("folder") << QStringList{urlOf(QStringLiteral("/specs"))}
                            << QStringLiteral("A folder cannot be opened");
    QTest::newRow("web page") << QStringList{QStringLiteral("http://localhost/specs/scrib_small")}
                              << QStringLiteral("Not on this computer");
    QTest::newRow("text") << QStringList() << QStringLiteral("Drop a file to open it");
}

// The message stays when the button is released.
void tst_DroppedFile::refused()
{
    QFETCH(QStringList, urls);
    QFETCH(QString, news);
    QVERIFY(openFull());
    NeighbourProcess files(m_screen);
    QVERIFY(urls.isEmpty() ? files.dragText(SMALL, overTheTable())
                           : files.drag(urls, overTheTable()));
    QVERIFY(m_user->waitUntil([&] { return m_user->news() == news; }));
    QVERIFY(files.drop());
    QCOMPARE(m_user->news(), news);
    QVERIFY(showsTitle(FULL));
    QVERIFY(m_user->seesErrors(1, 1));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_DroppedFile)

#include "tst_dropped_file.moc"
