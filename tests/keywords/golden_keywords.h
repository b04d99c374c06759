// What the tests expect of each keyword. The table is independent of the program's own,
// scribon_keywords.h, so that a mistake there makes tests fail: it is not derived from it and does
// not include it. A new keyword is a row here; the tests take their rows and counts from the table.
#pragma once

#include <cstddef>
#include <iterator>

#include "editor_types.h"

// The rule of the grammar that a keyword's statement belongs to. From ScanList on a statement is a
// section: a list that has a tab of its own.
enum class Statement {
    String,
    Scans,
    Label,
    YesNo,
    Event,
    Interval,
    Description,
    OutputPath,
    MetaHeaderFilename,
    RunningAverage,
    OmbraSteadyState,
    ScanList,
    MetaData,
    AuxUser,
    EcmList
};

enum GoldenFlag : unsigned {
    NO_FLAGS = 0,
    MUST_STAY = 1,  // required: its row cannot be removed
    ON_OFFER = 2    // the Keywords tab offers it, and accepts it only once
};

struct GoldenValues {
    const char* good;   // validates
    const char* bad;    // does not; null if every value validates
    const char* saved;  // as in a saved file: without errors, empty if there is no value
    const char* typed;  // replaces the saved value in its editor, and is stored as it is typed
};

struct GoldenKeyword {
    const char* spelling;
    const char* tokenName;
    int token;
    Statement statement;
    int editor;  // editor type of the value
    unsigned flags;
    const char* displayName;    // null: its cell is empty
    const char* help;           // tool tip of its cell; null for none
    const char* ownChoiceHelp;  // tool tip of its combo box item; null for none, or SAME
    GoldenValues values;

    constexpr bool is(GoldenFlag flag) const { return (flags & flag) != 0; }
    constexpr bool isSection() const { return statement >= Statement::ScanList; }
    constexpr const char* choiceHelp() const;
};

inline constexpr char SAME[] = "the same as the cell's tool tip";
inline constexpr GoldenValues NO_VALUES{nullptr, nullptr, nullptr, nullptr};

constexpr const char* GoldenKeyword::choiceHelp() const
{
    return ownChoiceHelp == SAME ? help : ownChoiceHelp;
}

// In the order in which the Keywords tab offers them, then those that it does not offer; SCAN_LIST
// has its place among the former.
// clang-format off
inline constexpr GoldenKeyword GOLDEN_KEYWORDS[] = {
    {"@CLEAR_STATISTICS_EVENT", "KYWD_CLR_STAT_EVT", 27, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Clear Statistics Event",
     "This event causes the statistical buffers within scribon to reset to 0.",
     "This event causes the statistical buffers within scribon to be reset to 0.",
     {"event_1", "no-event", "clear_stats", "event_2"}},
    {"@DESCRIPTION", "KYWD_DESCRIPTION", 30, Statement::Description, DESCRIPTION_EDITOR,
     MUST_STAY | ON_OFFER, "Description",
     "The user configurable description appears at the top of the output file.",
     SAME,
     {"'a text'", "a text", "'Everything'", "'other text'"}},
    {"@SCRIBON", "KYWD_SCRIBON", 31, Statement::String, SCRIBON_EDITOR,
     MUST_STAY | ON_OFFER, "Scribon",
     "Keyword to show that this is a scribon spec file.",
     "This is to clarify that the spec file is a scribon spec file.",
     {"cell_7", "<new_scribon>", "full_log", "walk_2"}},
    {"@DONE_EVENT", "KYWD_DONE_EVT", 32, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Done Event",
     "Name of event set at completion of data collection. ",
     "The name of the event that is set when the data collection is complete.",
     {"done", "a b", "done_log", "event_2"}},
    {"@ENABLE", "KYWD_ENABLE", 34, Statement::Label, LOGICAL_VAR_EDITOR,
     ON_OFFER, "Enable",
     "Logical variable that must be TRUE before logging can start.",
     "The enable variable is a logical variable that must be set to TRUE\n"
     "before logging can take place.",
     {"my_var", "7th", "take_data", "other_logical"}},
    {"@FIFO_LOG_BUFFER", "KYWD_FIFO_LOG_BUF", 35, Statement::YesNo, NOEDITOR,
     ON_OFFER, "FIFO Log Buffer",
     "Activates First-in First-out (FIFO) logging.",
     SAME,
     {"maybe", nullptr, "", ""}},
    {"@FIFO_POST_TRIGGER_INTERVAL", "KYWD_FIFO_PTRG_INTV", 36, Statement::Interval, FLOAT_UNIT_EDITOR,
     ON_OFFER, "FIFO Post Trigger Interval",
     "Specify the length of time to obtain scans after the FIFO trigger\n"
     "event (stop or release event) has been received.",
     SAME,
     {"1.5[min]", "5", "2.5[min]", "20[min]"}},
    {"@FIFO_POST_TRIGGER_SCANS", "KYWD_FIFO_PTRG_SCANS", 37, Statement::Scans, INTEGER_EDITOR,
     ON_OFFER, "FIFO Post Trigger Scans",
     "Specify the number of scans to obtain after the FIFO trigger event\n"
     "(stop or release event) has been received.",
     SAME,
     {"12", "12a", "300", "77"}},
    {"@FILENAME", "KYWD_FILENAME", 38, Statement::Description, DESCRIPTION_EDITOR,
     ON_OFFER, "Filename",
     nullptr,
     "Process the keyword and evaluate the resulting expression periodically.\n"
     " Do not user the result of the expression to determine the actual filename\n"
     "Look for a change in the result of evaluating the expression and if one is noted\n"
     "close the existing file\n"
     "The file would be compressed and transferred to the server\n"
     "A new file would be opened",
     {"\"x\" + 'y\"", "x", "\"output_file\"", "'other'"}},
    {"@FORCE_DIRECT_FILE_WRITE", "KYWD_FOR_DFILE_WRITE", 39, Statement::YesNo, YESNO_EDITOR,
     ON_OFFER, "Force Direct File Write",
     "Indicates that data should be written directly to the output file\n"
     "when high data rates are used.",
     SAME,
     {"YES", "yEs", "no", "yes"}},
    {"@FTP_EVENT", "KYWD_FTP_EVT", 40, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "FTP Event",
     "Event that triggers the output file to be finalized,\n"
     "and initiates transfer of the data file. ",
     "Specifies the Marvane event that will be set to cause the output file\n"
     "to be finalized. This initiates the transfer of the received data file. ",
     {"0", "a.b", "ftp_log", "event_2"}},
    {"@GET_NEW_SCAN_INTERVAL", "KYWD_GET_NSCAN_INTV", 41, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Get New Scan Interval",
     "Event used to trigger a re-evaluation\n"
     "of the SCAN_INTERVAL computed expression.",
     "The name of an event that can be used to trigger a re-evaluation\n"
     "of the SCAN_INTERVAL computed expression.",
     {"e", "a%", "new_interval", "event_2"}},
    {"@GROUP", "KYWD_GROUP", 42, Statement::String, STRING_VAR_EDITOR,
     MUST_STAY | ON_OFFER, "Group",
     "String variable that contains the measurement\n"
     "name to include in the output file meta-data GROUP='<value>'.",
     "Label of Marvane string variable that contains the measurement\n"
     "name to include in the output file meta-data GROUP='<value>'.",
     {"name[3]", "'name'", "test_group", "cell_name"}},
    {"@LOG_DIGITAL_DESCRIPTION", "KYWD_LOG_DIG_DESC", 44, Statement::YesNo, YESNO_EDITOR,
     ON_OFFER, "Log Digital Description",
     "This keyword causes the Logical variable descriptions to be\n"
     "logged for all Logical variables in place of the values '0' or '1'.",
     "This keyword causes the LOGICAL_VARIABLE descriptions to be\n"
     "logged for all LOGICAL_VARIABLES in place of the values '0' or '1'.",
     {"no", "maybe", "no", "yes"}},
    {"@LOG_STATISTICS", "KYWD_LOG_STATS", 45, Statement::YesNo, YESNO_EDITOR,
     ON_OFFER, "Log Statistics",
     "Specifies that statistics should be computed for the variables\n"
     "specified via the @SCAN_LIST keyword.",
     SAME,
     {"Yes", "1", "yes", "no"}},
    {"@LOGGING_ACTIVE_LABEL", "KYWD_LOG_ACT_LABEL", 43, Statement::Label, LOGICAL_VAR_EDITOR,
     ON_OFFER, "Logging Active Label",
     "The name of a Marvane logical variable that indicates scribon \n"
     "is actively collecting data and logging it.",
     SAME,
     {"active", "_x", "point_taken", "other_logical"}},
    {"@MAX_SCANS", "KYWD_MAX_SCANS", 46, Statement::Scans, INTEGER_EDITOR,
     ON_OFFER, "Max Scans",
     "The maximum number of samples in a sampling session.",
     SAME,
     {"0", "many", "72000", "1000000"}},
    {"@MAX_STATISTICAL_SCANS", "KYWD_MAX_STAT_SCANS", 47, Statement::Scans, INTEGER_EDITOR,
     ON_OFFER, "Max Statistical Scans",
     "Specifies the maximum number of scans when the @LOG_STATISTICS\n"
     "keyword is specified.",
     SAME,
     {"1000000", "-1", "600", "0"}},
    {"@MODE", "KYWD_MODE", 50, Statement::String, STRING_VAR_EDITOR,
     MUST_STAY | ON_OFFER, "Mode",
     "String variable that contains the test mode\n"
     "to include in the output file meta-data MODE='<value>'.",
     "Label of Marvane string variable that contains the test mode\n"
     "to include in the output file meta-data MODE='<value>'.",
     {"m", "9", "test_mode_name", "cell_name"}},
    {"@OUTPUT_PATH", "KYWD_OUTPUT_PATH", 51, Statement::OutputPath, DIR_PATH_EDITOR,
     ON_OFFER, "Output Path",
     "Directory path to the output file.",
     "The directory path that specifies where the output file should be written.",
     {"/data/log", "/data//log", "/data/cell_4", "/data/two"}},
    {"@OMBRA_STEADY_STATE", "KYWD_OMBRA_STEADY_STATE", 28, Statement::OmbraSteadyState, NOEDITOR,
     ON_OFFER, "Ombra Steady State",
     "This keyword's presence causes the inclusion of the ombra_ss_specs file variables "
     "in the scan list. ",
     "Keyword indicates that scribon will log all variables from ombra_ss_specs.",
     {"anything at all !", nullptr, "", ""}},
    {"@PROGRAM", "KYWD_PROGRAM", 52, Statement::String, STRING_VAR_EDITOR,
     MUST_STAY | ON_OFFER, "Program",
     "String variable that contains the program\n"
     "name to include in the output file meta-data PROGRAM='<value>'",
     "Label of Marvane string variable that contains the program\n"
     "name to include in the output file meta-data PROGRAM='<value>'",
     {"p", "a b", "test_program", "cell_name"}},
    {"@READ_SPEC_FILE_EVENT", "KYWD_READ_SFILE_EVT", 53, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Read Spec File Event",
     "Event that triggers the scribon to re-read the spec file.",
     "The name of an event that, when it is received by scribon,\n"
     "causes scribon to re-read the spec file.",
     {"e", "(e)", "read_spec", "event_2"}},
    {"@REG_NAME", "KYWD_REG_NAME", 54, Statement::String, REGNAME_EDITOR,
     ON_OFFER, "Registered Name",
     "Name that identifies this instance of scribon with the OS.",
     "The name that registers the instance of scribon with the OS.",
     {"_reg", "1reg", "scribon_4", "reg_two"}},
    {"@RELEASE_EVENT", "KYWD_RELEASE_EVT", 55, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Release Event",
     "Event that signals the end of a sampling\n"
     "interval, and terminates the scribon task after the data files was written.",
     "The name of the event that signals the end of a sampling\n"
     "interval, and terminates the scribon task after the data files was written.",
     {"e", "'e'", "release_log", "event_2"}},
    {"@RUNNING_AVERAGE", "KYWD_RUNNING_AVE", 56, Statement::RunningAverage, INTEGER_TIME_INT_EDITOR,
     ON_OFFER, "Running Average",
     "Specify the window width of a running average and the event\n"
     "that causes the data to be logged.",
     SAME,
     {"30[sec]", "30", "30[sec]\t\tsnapshot", "40[sec]"}},
    {"@SCAN_INTERVAL", "KYWD_SCAN_INTV", 57, Statement::Interval, SCAN_INTERVAL_EDITOR,
     MUST_STAY | ON_OFFER, "Scan Interval",
     "The time between lines of data in the output file.",
     "The time between lines of data in the output file or the name of integer variable.",
     {"10[sec]", "10[day]", "10[msec]", "200[msec]"}},
    {"@SCAN_LIST", "KYWD_SCAN_LIST", 58, Statement::ScanList, SCAN_LIST_EDITOR,
     MUST_STAY, "Scan List",
     "This is the list of variables that are to be sampled.",
     SAME,
     NO_VALUES},
    {"@SEND_ON_PATH_CHANGE", "KYWD_SEND_ON_PATH_CHANGE", 60, Statement::YesNo, YESNO_EDITOR,
     ON_OFFER, "Send On Path Change",
     nullptr,
     "Yes/No flag to enable/disable checking program, testid, testmode, and group_id.\n"
     "The default is yes",
     {"No", "nO", "YES", "no"}},
    {"@START_EVENT", "KYWD_START_EVT", 61, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Start Event",
     "The name of an event that signals the start of a sampling interval",
     SAME,
     {"e", "e/", "start_log", "event_2"}},
    {"@STOP_EVENT", "KYWD_STOP_EVT", 62, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Stop Event",
     "The name of an event that signals the end of a sampling interval.",
     SAME,
     {"e", "e:", "stop_log", "event_2"}},
    {"@SYNC_EVENT", "KYWD_SYNC_EVT", 63, Statement::Event, EVENT_EDITOR,
     ON_OFFER, "Sync Event",
     "Name of event is used to trigger a scan of all channels.",
     "The name of an event that can be used to trigger a scan of all channels.",
     {"e", "$e", "sync_log", "event_2"}},
    {"@TEST_ID", "KYWD_TEST_ID", 64, Statement::String, STRING_VAR_EDITOR,
     MUST_STAY | ON_OFFER, "Test Id",
     "String variable that contains the test_id\n"
     "to be included in the output file meta-data TEST_ID='<value>'.",
     "Label of a Marvane string variable that contains the test ID\n"
     "to include in the output file meta-data TEST_ID='<value>'.",
     {"t", "/t", "test_id", "cell_name"}},
    {"@TEST_TYPE", "KYWD_TEST_TYPE", 65, Statement::String, STRING_VAR_EDITOR,
     MUST_STAY | ON_OFFER, "Test Type",
     "String variable that contains the test name\n"
     "to include in the output file meta-data TEST_TYPE='value>'.",
     "Label of Marvane String variable that contains the test name\n"
     "to include in the output file meta-data TEST_TYPE='<value>'.",
     {"t", "-t", "test_type", "cell_name"}},
    {"@ECM_LIST", "KYWD_ECM_LIST", 33, Statement::EcmList, ECM_LIST_EDITOR,
     NO_FLAGS, "ECM List",
     nullptr, nullptr,
     NO_VALUES},
    {"@META_DATA", "KYWD_META_DATA", 48, Statement::MetaData, SCAN_LIST_EDITOR,
     NO_FLAGS, "Meta Data",
     nullptr, nullptr,
     NO_VALUES},
    {"@META_HEADER_FILENAME", "KYWD_META_HDR_FILENAME", 49, Statement::MetaHeaderFilename, DIR_PATH_EDITOR,
     NO_FLAGS, nullptr,
     nullptr, nullptr,
     {"/a/b", "1/data", "/data/header.txt", "/data/foot"}},
    {"@SCAN_LIST_AUX_USER", "KYWD_SCAN_LIST_AUX_USER", 59, Statement::AuxUser, SCAN_LIST_EDITOR,
     NO_FLAGS, "Scan List Aux User",
     nullptr, nullptr,
     NO_VALUES},
};

// The beginning of a keyword is displayed as the first keyword here that begins with it.
inline constexpr const char* GOLDEN_DISPLAY_ORDER[] = {
    "@SCRIBON", "@TEST_ID", "@TEST_TYPE", "@MODE", "@GROUP", "@PROGRAM", "@DESCRIPTION",
    "@SCAN_INTERVAL", "@SYNC_EVENT", "@START_EVENT", "@STOP_EVENT", "@CLEAR_STATISTICS_EVENT",
    "@ENABLE", "@LOGGING_ACTIVE_LABEL", "@RELEASE_EVENT", "@FTP_EVENT",
    "@LOG_DIGITAL_DESCRIPTION", "@LOG_STATISTICS", "@DONE_EVENT", "@FIFO_LOG_BUFFER",
    "@FIFO_POST_TRIGGER_INTERVAL", "@FIFO_POST_TRIGGER_SCANS", "@FILENAME",
    "@FORCE_DIRECT_FILE_WRITE", "@GET_NEW_SCAN_INTERVAL", "@MAX_SCANS", "@MAX_STATISTICAL_SCANS",
    "@OUTPUT_PATH", "@READ_SPEC_FILE_EVENT", "@REG_NAME", "@RUNNING_AVERAGE",
    "@SEND_ON_PATH_CHANGE", "@SCAN_LIST", "@SCAN_LIST_AUX_USER", "@ECM_LIST", "@META_DATA",
    "@OMBRA_STEADY_STATE",
};
// clang-format on

// The token and node types that are not in the table have the numbers up to this one.
inline constexpr int LAST_TYPE_WITHOUT_ROW = 86;

template <typename Predicate>
constexpr int countKeywords(Predicate predicate)
{
    int count = 0;
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        count += predicate(keyword) ? 1 : 0;
    return count;
}

constexpr bool isOffered(const GoldenKeyword& keyword)
{
    return keyword.is(ON_OFFER);
}

constexpr bool isStatement(const GoldenKeyword& keyword)
{
    return !keyword.isSection();
}

constexpr bool isRequiredStatement(const GoldenKeyword& keyword)
{
    return keyword.is(MUST_STAY) && isStatement(keyword);
}

constexpr bool isDisplayed(const GoldenKeyword& keyword)
{
    return keyword.displayName != nullptr;
}

constexpr bool hasHelp(const GoldenKeyword& keyword)
{
    return keyword.help != nullptr;
}

constexpr int highestType()
{
    int highest = LAST_TYPE_WITHOUT_ROW;
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        highest = keyword.token > highest ? keyword.token : highest;
    return highest;
}

// Any value is good where none is edited.
constexpr bool hasItsValues(const GoldenKeyword& keyword)
{
    const GoldenValues& values = keyword.values;
    if (keyword.isSection())
        return values.good == nullptr && values.saved == nullptr;
    return values.good != nullptr && values.saved != nullptr && values.typed != nullptr &&
           (values.bad == nullptr) == (keyword.editor == NOEDITOR);
}

static_assert(std::size(GOLDEN_DISPLAY_ORDER) == std::size_t(countKeywords(isDisplayed)));
static_assert(std::size(GOLDEN_KEYWORDS) == std::size_t(countKeywords(hasItsValues)));
