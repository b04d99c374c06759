// Uses the dialogs of cells by keyboard, and looks where they stand.

#include <algorithm>

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_full");
const auto DIALOG = QStringLiteral("VariableSelectionDialog");

}  // namespace

class tst_DialogKeys : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void tabReachesEveryField_data();
    void tabReachesEveryField();
    void editedAndUndoneByTheKeyboard();
    void ecmListByTheKeyboard();
    void staysAtItsCell();

private:
    bool openFull();
    bool goesTo(const QString& field, const QString& key);
    QPoint placeInWindow();
};

bool tst_DialogKeys::openFull()
{
    return provide(QStringLiteral("scrib_full")) && provide(QStringLiteral("asam3_specs.engine")) &&
           start({FILE_NAME}) && m_user->seesErrors(1, 1);
}

bool tst_DialogKeys::goesTo(const QString& field, const QString& key)
{
    m_user->press(key);
    return m_user->waitUntil([&] { return m_user->focusName() == field; });
}

// The place of the dialog in the window, without their frames.
QPoint tst_DialogKeys::placeInWindow()
{
    return m_user->contentsPlace(DIALOG).topLeft() -
           m_user->contentsPlace(QStringLiteral("MainWindow")).topLeft();
}

void tst_DialogKeys::tabReachesEveryField_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("rowText");
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("fields");  // from the one that has the focus first
    const auto row = [](const char* name, int tab, const char* rowText, int column,
                        const char* fields) {
        QTest::newRow(name) << tab << QString::fromLatin1(rowText) << column
                            << QString::fromLatin1(fields).split(QLatin1Char(' '));
    };
    row("variable", 0, "@GROUP", 1, "variableComboBox unitsComboBox OkButton Cancel groupComboBox");
    row("interval", 0, "@SCAN_INTERVAL", 1,
        "lineEdit OkButton Cancel groupComboBox variableComboBox unitsComboBox");
    row("path", 0, "@OUTPUT_PATH", 1,
        "lineEdit OkButton Cancel groupComboBox variableComboBox unitsComboBox");
    row("literal", 2, "TEST_TITLE", 2,
        "lineEdit OkButton Cancel groupComboBox variableComboBox unitsComboBox");
}

void tst_DialogKeys::tabReachesEveryField()
{
    QFETCH(int, tab);
    QFETCH(QString, rowText);
    QFETCH(int, column);
    QFETCH(QStringList, fields);
    QVERIFY(openFull());
    const QVector<QStringList> before = m_user->texts();
    QVERIFY(m_user->open({tab, rowText, tab == 0 ? 0 : 1, column}));
    QVERIFY(m_user->waitUntil([&] { return m_user->focusName() == fields.first(); }));
    std::rotate(fields.begin(), fields.begin() + 1, fields.end());
    for (const QString& field : fields)
        QVERIFY2(goesTo(field, QStringLiteral("Tab")), qPrintable(m_user->focusName()));
    std::reverse(fields.begin(), fields.end());
    std::rotate(fields.begin(), fields.begin() + 1, fields.end());
    for (const QString& field : fields)
        QVERIFY2(goesTo(field, QStringLiteral("shift+Tab")), qPrintable(m_user->focusName()));
    m_user->press(QStringLiteral("Escape"));
    QVERIFY(m_user->waitUntil([&] { return !m_user->isEditing(); }));
    QCOMPARE(m_user->texts(), before);
}

// From the line of the interval to the variable, which is used once the line is empty.
void tst_DialogKeys::editedAndUndoneByTheKeyboard()
{
    User& user = *m_user;
    QVERIFY(openFull());
    const QVector<QStringList> before = user.texts();
    const int row = user.table(0).rowOf(QStringLiteral("@SCAN_INTERVAL"), 0);
    const QString interval = user.table(0).text(row, 1);
    QVERIFY(user.open(0, row, 1));
    QVERIFY(user.waitUntil([&] { return user.focusName() == QLatin1String("lineEdit"); }));
    user.press(QStringLiteral("Delete"));
    for (const char* const field : {"OkButton", "Cancel", "groupComboBox", "variableComboBox"})
        QVERIFY(goesTo(QLatin1String(field), QStringLiteral("Tab")));
    QVERIFY(user.typeVariable(QStringLiteral("scan_number")));
    QVERIFY(goesTo(QStringLiteral("unitsComboBox"), QStringLiteral("Tab")));
    QVERIFY(goesTo(QStringLiteral("lineEdit"), QStringLiteral("Tab")));
    QVERIFY(goesTo(QStringLiteral("OkButton"), QStringLiteral("Tab")));
    user.press(QStringLiteral("space"));
    QVERIFY(
        user.waitUntil([&] { return user.table(0).text(row, 1) == QLatin1String("scan_number"); }));
    user.undo();
    QVERIFY(user.waitUntil([&] { return user.table(0).text(row, 1) == interval; }));
    QCOMPARE(user.texts(), before);
}

void tst_DialogKeys::ecmListByTheKeyboard()
{
    User& user = *m_user;
    QVERIFY(openFull());
    const QVector<QStringList> before = user.texts();
    const int row = user.table(4).rowOf(QStringLiteral("2"), 1);
    QVERIFY(user.open(4, row, 2));
    QVERIFY(user.waitUntil([&] { return user.focusName() == QLatin1String("specfiles"); }));
    for (const char* const field : {"cancel_button", "Ok_button", "ecmInstance", "extensionNumber"})
        QVERIFY(goesTo(QLatin1String(field), QStringLiteral("shift+Tab")));
    user.press(QStringLiteral("ctrl+a"));
    user.type(QStringLiteral("17"));
    for (const char* const field : {"ecmInstance", "Ok_button"})
        QVERIFY(goesTo(QLatin1String(field), QStringLiteral("Tab")));
    user.press(QStringLiteral("space"));
    QVERIFY(user.waitUntil([&] { return user.table(4).text(row, 1) == QLatin1String("17"); }));
    user.undo(2);
    QVERIFY(user.waitUntil([&] { return user.texts() == before; }));
}

// The window manager adds the title bar after the dialog was placed. It must not count when the
// table is laid out again.
void tst_DialogKeys::staysAtItsCell()
{
    QVERIFY(openFull());
    QVERIFY(m_user->open({0, QStringLiteral("@GROUP"), 0, 1}));
    QVERIFY(m_user->waitUntil(
        [&] { return m_user->windowPlace(DIALOG) != m_user->contentsPlace(DIALOG); }));
    const QPoint before = placeInWindow();
    QVERIFY(m_user->leaveFullScreen());
    QVERIFY2(m_user->waitUntil([&] { return placeInWindow() == before; }),
             qPrintable(QStringLiteral("%1, not %2").arg(placeInWindow().y()).arg(before.y())));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_DialogKeys)

#include "tst_dialog_keys.moc"
