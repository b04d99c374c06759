// The message that each line edit has for an invalid text.

#include <QtTest>
#include <array>

#include "editing_test.h"

namespace {

struct Line {
    const char* name;
    Place place;
    const char* ruledBy;  // replaces the key first; null keeps it
    const char* message;
};

constexpr Place afterKeyword(const char* keyword, int column = 1)
{
    return {DE_TAB1, 0, keyword, column};
}

// clang-format off
constexpr std::array<Line, 26> LINES{{
    {"when statistics are cleared", afterKeyword("@CLEAR_STATISTICS_EVENT"), nullptr, "Invalid event-name"},
    {"when all is done", afterKeyword("@DONE_EVENT"), nullptr, "Invalid event-name"},
    {"when the file is sent", afterKeyword("@FTP_EVENT"), nullptr, "Invalid event-name"},
    {"when the interval is new", afterKeyword("@GET_NEW_SCAN_INTERVAL"), nullptr, "Invalid event-name"},
    {"when the spec file is read", afterKeyword("@READ_SPEC_FILE_EVENT"), nullptr, "Invalid event-name"},
    {"the release", afterKeyword("@RELEASE_EVENT"), nullptr, "Invalid event-name"},
    {"the start", afterKeyword("@START_EVENT"), nullptr, "Invalid event-name"},
    {"the stop", afterKeyword("@STOP_EVENT"), nullptr, "Invalid event-name"},
    {"the scan", afterKeyword("@SYNC_EVENT"), nullptr, "Invalid event-name"},
    {"the event of an average", afterKeyword("@RUNNING_AVERAGE", 2), nullptr, "Invalid event-name"},
    {"the width of an average", afterKeyword("@RUNNING_AVERAGE"), nullptr, "Invalid interval"},
    {"the time after a trigger", afterKeyword("@FIFO_POST_TRIGGER_INTERVAL"), nullptr, "Invalid interval"},
    {"a description", afterKeyword("@DESCRIPTION"), nullptr, "Invalid description"},
    {"a file name", afterKeyword("@FILENAME"), nullptr, "Invalid description"},
    {"the value of an unknown keyword", afterKeyword("@FILENAME"), "@NONSENSE", "Invalid description"},
    {"a registered name", afterKeyword("@REG_NAME"), nullptr, "Invalid registered-name"},
    {"the spec file's name", afterKeyword("@SCRIBON"), nullptr, "Invalid scribon identifier"},
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
    QTest::addColumn<QString>("ruledBy");
    QTest::addColumn<QString>("message");
    for (const Line& line : LINES)
        QTest::newRow(line.name) << line.place << QString::fromLatin1(line.ruledBy)
                                 << QString::fromLatin1(line.message);
}

void TestLineMessages::lineHasItsMessage()
{
    QFETCH(Place, place);
    QFETCH(QString, ruledBy);
    show();
    const QModelIndex cell = cellAt(place);
    if (!ruledBy.isNull())
        edit(place.tab, cell.row(), place.keyColumn, ruledBy);
    const auto* const line = openAs<QLineEdit>(cell);
    QVERIFY(line != nullptr);
    QTEST(line->property("errortip").toString(), "message");
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestLineMessages)
#include "tst_line_messages.moc"
