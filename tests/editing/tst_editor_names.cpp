// What a screen reader says of the editors in cells.

#include <QtTest>

#include "cell_editors.h"
#include "form_walk.h"

class TestEditorNames : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void editorHasTheNameOfItsField_data();
    void editorHasTheNameOfItsField();
    void wrongTextHasADescription();
};

void TestEditorNames::editorHasTheNameOfItsField_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* name, const Place& place, const char* spoken) {
        QTest::newRow(name) << place << text(spoken);
    };
    row("a line", {DE_TAB1, 0, "@REG_NAME", 1}, "Registered Name");
    row("a second line", {DE_TAB1, 0, "@RUNNING_AVERAGE", 2}, "Running Average");
    row("a number", {DE_TAB1, 0, "@MAX_SCANS", 1}, "Max Scans");
    row("yes or no", {DE_TAB1, 0, "@LOG_STATISTICS", 1}, "Log Statistics");
    row("a keyword", {DE_TAB1, 0, "@REG_NAME", 0}, "Keyword");
    row("a statistical member", {DE_TAB2, 3, "N_ENG_AVG", 2}, "Statistical Member");
    row("a channel keyword", {DE_TAB2, 3, "N_ENG_AVG", 3}, "Channel Keyword");
    row("a parameter keyword", {DE_TAB3, 1, "BORE", 1}, "PAM Keyword");
    row("an alternate name", {DE_TAB4, 1, "eng_speed", 2}, "Alternate Name");
    row("a comment", {DE_TAB5, 1, "# The engine itself", 1}, "Ext. Number");
}

// Of a combo box, Qt tells the text instead as long as there is one.
void TestEditorNames::editorHasTheNameOfItsField()
{
    QFETCH(Place, place);
    show();
    QWidget* const editor = open(cellAt(place));
    QVERIFY(editor != nullptr);
    QTEST(editor->accessibleName(), "name");
    QVERIFY(!accessibleText(editor, QAccessible::Name).isEmpty());
    press(Qt::Key_Escape);
}

void TestEditorNames::wrongTextHasADescription()
{
    show();
    auto* const line = openAs<QLineEdit>(valueOf("@START_EVENT"));
    QVERIFY(line != nullptr);
    const auto description = [line] { return accessibleText(line, QAccessible::Description); };
    QCOMPARE(description(), QString());
    typeOver(text("no event"));
    QCOMPARE(description(), text("Invalid event-name"));
    typeOver(text("an_event"));
    QCOMPARE(description(), QString());
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestEditorNames)
#include "tst_editor_names.moc"
