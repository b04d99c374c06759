// The message that each line edit has for an invalid text.

#include <QtTest>
#include <array>

#include "editing_test.h"
#include "editor_types.h"
#include "golden_keywords.h"

namespace {

struct Line {
    const char* name;
    Place place;
    const char* newKey;  // replaces the key first; null keeps it
    const char* message;
};

constexpr Place afterKeyword(const char* keyword, int column = 1)
{
    return {DE_TAB1, 0, keyword, column};
}

// The message for the value of a keyword; null if its editor is not a line edit.
const char* messageOf(int editor)
{
    switch (editor) {
        case EVENT_EDITOR:
            return "Invalid event-name";
        case FLOAT_UNIT_EDITOR:
        case INTEGER_TIME_INT_EDITOR:
            return "Invalid interval";
        case DESCRIPTION_EDITOR:
            return "Invalid description";
        case REGNAME_EDITOR:
            return "Invalid registered-name";
        case SCRIBON_EDITOR:
            return "Invalid scribon identifier";
        default:
            return nullptr;
    }
}

// Lines that are not the value of a keyword.
// clang-format off
constexpr std::array<Line, 11> LINES{{
    {"the event of a running average", afterKeyword("@RUNNING_AVERAGE", 2), nullptr, "Invalid event-name"},
    {"the value of an unknown keyword", afterKeyword("@FILENAME"), "@NONSENSE", "Invalid description"},
    {"the value of a text", afterKeyword("@REG_NAME"), "Some text", "Invalid input"},
    {"the value of a placeholder", afterKeyword("@REG_NAME"), "FILLER_TXT", "Invalid input"},
    {"the value of a list without a dialog", afterKeyword("@REG_NAME"), "@ECM_LIST", "Invalid input"},
    {"the value of a number", afterKeyword("@REG_NAME"), "12", "Invalid input"},
    {"the value of an interval", afterKeyword("@REG_NAME"), "10[sec]", "Invalid input"},
    {"the second value of a text", afterKeyword("@REG_NAME", 2), "Some text", "Invalid input"},
    {"an alternate name", {DE_TAB4, 1, "eng_speed", 2}, nullptr, "Invalid Variable Name"},
    {"a comment of the ECM list", {DE_TAB5, 1, "# The engine itself", 1}, nullptr, "Invalid Comment"},
    {"a text of the ECM list", {DE_TAB5, 1, "# The engine itself", 1}, "Some text", "Invalid Comment"},
}};
// clang-format on

}  // namespace

class TestLineMessages : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void lineHasItsMessage_data();
    void lineHasItsMessage();
};

void TestLineMessages::lineHasItsMessage_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("newKey");
    QTest::addColumn<QString>("message");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (const char* const message = messageOf(keyword.editor))
            QTest::newRow(keyword.spelling)
                << afterKeyword(keyword.spelling) << QString() << QString::fromLatin1(message);
    }
    for (const Line& line : LINES)
        QTest::newRow(line.name) << line.place << QString::fromLatin1(line.newKey)
                                 << QString::fromLatin1(line.message);
}

void TestLineMessages::lineHasItsMessage()
{
    QFETCH(Place, place);
    QFETCH(QString, newKey);
    show();
    const QModelIndex cell = cellAt(place);
    if (!newKey.isNull())
        edit(place.tab, cell.row(), place.keyColumn, newKey);
    const auto* const line = openAs<QLineEdit>(cell);
    QVERIFY(line != nullptr);
    QTEST(line->property("errortip").toString(), "message");
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestLineMessages)
#include "tst_line_messages.moc"
