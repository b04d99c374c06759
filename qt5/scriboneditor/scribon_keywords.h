// The table of keywords, one row each. Everything that the program knows about a keyword is here;
// the other lists of keywords are derived from it.
#pragma once

#include <array>
#include <iterator>

#include "editor_types.h"
#include "scribonspecs_tokens.h"

// Properties of a keyword.
enum ScribonKeywordFlag : unsigned {
    REQUIRED = 1,     // its row cannot be removed
    IN_WORD_LIST = 2  // the Keywords tab offers it, and accepts it only once
};

struct ScribonKeyword {
    const char* spelling;
    int token;
    int editor;  // editor type of the keyword's value
    unsigned flags;
    const char* displayName;  // shown in cells; null shows an empty cell
    const char* help;         // tool tip of its cell; null for none
    const char* choiceHelp;   // tool tip of its combo box item; null for none, or SAME_AS_HELP

    constexpr bool is(ScribonKeywordFlag flag) const { return (flags & flag) != 0; }
};

inline constexpr char SAME_AS_HELP[] = "";

// In the order in which the Keywords tab offers them, then those that it does not offer. SCAN_LIST,
// which it does not offer either, keeps its place, since tool tips are looked up by position.
// clang-format off
inline constexpr ScribonKeyword SCRIBON_KEYWORDS[] = {
    {"@CLEAR_STATISTICS_EVENT", TOKEN_KYWD_CLR_STAT_EVT, EVENT_EDITOR, IN_WORD_LIST, "Clear Statistics Event",
     "This event causes the statistical buffers within scribon to reset to 0.",
     "This event causes the statistical buffers within scribon to be reset to 0."},
    {"@DESCRIPTION", TOKEN_KYWD_DESCRIPTION, DESCRIPTION_EDITOR, REQUIRED | IN_WORD_LIST, "Description",
     "The user configurable description appears at the top of the output file.",
     SAME_AS_HELP},
    {"@SCRIBON", TOKEN_KYWD_SCRIBON, SCRIBON_EDITOR, REQUIRED | IN_WORD_LIST, "Scribon",
     "Keyword to show that this is a scribon spec file.",
     "This is to clarify that the spec file is a scribon spec file."},
    {"@DONE_EVENT", TOKEN_KYWD_DONE_EVT, EVENT_EDITOR, IN_WORD_LIST, "Done Event",
     "Name of event set at completion of data collection. ",
     "The name of the event that is set when the data collection is complete."},
    {"@ENABLE", TOKEN_KYWD_ENABLE, LOGICAL_VAR_EDITOR, IN_WORD_LIST, "Enable",
     "Logical variable that must be TRUE before logging can start.",
     "The enable variable is a logical variable that must be set to TRUE\n"
     "before logging can take place."},
    {"@FIFO_LOG_BUFFER", TOKEN_KYWD_FIFO_LOG_BUF, NOEDITOR, IN_WORD_LIST, "FIFO Log Buffer",
     "Activates First-in First-out (FIFO) logging.",
     SAME_AS_HELP},
    {"@FIFO_POST_TRIGGER_INTERVAL", TOKEN_KYWD_FIFO_PTRG_INTV, FLOAT_UNIT_EDITOR, IN_WORD_LIST, "FIFO Post Trigger Interval",
     "Specify the length of time to obtain scans after the FIFO trigger\n"
     "event (stop or release event) has been received.",
     SAME_AS_HELP},
    {"@FIFO_POST_TRIGGER_SCANS", TOKEN_KYWD_FIFO_PTRG_SCANS, INTEGER_EDITOR, IN_WORD_LIST, "FIFO Post Trigger Scans",
     "Specify the number of scans to obtain after the FIFO trigger event\n"
     "(stop or release event) has been received.",
     SAME_AS_HELP},
    {"@FILENAME", TOKEN_KYWD_FILENAME, DESCRIPTION_EDITOR, IN_WORD_LIST, "Filename",
     nullptr,
     "Process the keyword and evaluate the resulting expression periodically.\n"
     " Do not user the result of the expression to determine the actual filename\n"
     "Look for a change in the result of evaluating the expression and if one is noted\n"
     "close the existing file\n"
     "The file would be compressed and transferred to the server\n"
     "A new file would be opened"},
    {"@FORCE_DIRECT_FILE_WRITE", TOKEN_KYWD_FOR_DFILE_WRITE, YESNO_EDITOR, IN_WORD_LIST, "Force Direct File Write",
     "Indicates that data should be written directly to the output file\n"
     "when high data rates are used.",
     SAME_AS_HELP},
    {"@FTP_EVENT", TOKEN_KYWD_FTP_EVT, EVENT_EDITOR, IN_WORD_LIST, "FTP Event",
     "Event that triggers the output file to be finalized,\n"
     "and initiates transfer of the data file. ",
     "Specifies the Marvane event that will be set to cause the output file\n"
     "to be finalized. This initiates the transfer of the received data file. "},
    {"@GET_NEW_SCAN_INTERVAL", TOKEN_KYWD_GET_NSCAN_INTV, EVENT_EDITOR, IN_WORD_LIST, "Get New Scan Interval",
     "Event used to trigger a re-evaluation\n"
     "of the SCAN_INTERVAL computed expression.",
     "The name of an event that can be used to trigger a re-evaluation\n"
     "of the SCAN_INTERVAL computed expression."},
    {"@GROUP", TOKEN_KYWD_GROUP, STRING_VAR_EDITOR, REQUIRED | IN_WORD_LIST, "Group",
     "String variable that contains the measurement\n"
     "name to include in the output file meta-data GROUP='<value>'.",
     "Label of Marvane string variable that contains the measurement\n"
     "name to include in the output file meta-data GROUP='<value>'."},
    {"@LOG_DIGITAL_DESCRIPTION", TOKEN_KYWD_LOG_DIG_DESC, YESNO_EDITOR, IN_WORD_LIST, "Log Digital Description",
     "This keyword causes the Logical variable descriptions to be\n"
     "logged for all Logical variables in place of the values '0' or '1'.",
     "This keyword causes the LOGICAL_VARIABLE descriptions to be\n"
     "logged for all LOGICAL_VARIABLES in place of the values '0' or '1'."},
    {"@LOG_STATISTICS", TOKEN_KYWD_LOG_STATS, YESNO_EDITOR, IN_WORD_LIST, "Log Statistics",
     "Specifies that statistics should be computed for the variables\n"
     "specified via the @SCAN_LIST keyword.",
     SAME_AS_HELP},
    {"@LOGGING_ACTIVE_LABEL", TOKEN_KYWD_LOG_ACT_LABEL, LOGICAL_VAR_EDITOR, IN_WORD_LIST, "Logging Active Label",
     "The name of a Marvane logical variable that indicates scribon \n"
     "is actively collecting data and logging it.",
     SAME_AS_HELP},
    {"@MAX_SCANS", TOKEN_KYWD_MAX_SCANS, INTEGER_EDITOR, IN_WORD_LIST, "Max Scans",
     "The maximum number of samples in a sampling session.",
     SAME_AS_HELP},
    {"@MAX_STATISTICAL_SCANS", TOKEN_KYWD_MAX_STAT_SCANS, INTEGER_EDITOR, IN_WORD_LIST, "Max Statistical Scans",
     "Specifies the maximum number of scans when the @LOG_STATISTICS\n"
     "keyword is specified.",
     SAME_AS_HELP},
    {"@MODE", TOKEN_KYWD_MODE, STRING_VAR_EDITOR, REQUIRED | IN_WORD_LIST, "Mode",
     "String variable that contains the test mode\n"
     "to include in the output file meta-data MODE='<value>'.",
     "Label of Marvane string variable that contains the test mode\n"
     "to include in the output file meta-data MODE='<value>'."},
    {"@OUTPUT_PATH", TOKEN_KYWD_OUTPUT_PATH, DIR_PATH_EDITOR, IN_WORD_LIST, "Output Path",
     "Directory path to the output file.",
     "The directory path that specifies where the output file should be written."},
    {"@OMBRA_STEADY_STATE", TOKEN_KYWD_OMBRA_STEADY_STATE, NOEDITOR, IN_WORD_LIST, "Ombra Steady State",
     "This keyword's presence causes the inclusion of the ombra_ss_specs file variables "
     "in the scan list. ",
     "Keyword indicates that scribon will log all variables from ombra_ss_specs."},
    {"@PROGRAM", TOKEN_KYWD_PROGRAM, STRING_VAR_EDITOR, REQUIRED | IN_WORD_LIST, "Program",
     "String variable that contains the program\n"
     "name to include in the output file meta-data PROGRAM='<value>'",
     "Label of Marvane string variable that contains the program\n"
     "name to include in the output file meta-data PROGRAM='<value>'"},
    {"@READ_SPEC_FILE_EVENT", TOKEN_KYWD_READ_SFILE_EVT, EVENT_EDITOR, IN_WORD_LIST, "Read Spec File Event",
     "Event that triggers the scribon to re-read the spec file.",
     "The name of an event that, when it is received by scribon,\n"
     "causes scribon to re-read the spec file."},
    {"@REG_NAME", TOKEN_KYWD_REG_NAME, REGNAME_EDITOR, IN_WORD_LIST, "Registered Name",
     "Name that identifies this instance of scribon with the OS.",
     "The name that registers the instance of scribon with the OS."},
    {"@RELEASE_EVENT", TOKEN_KYWD_RELEASE_EVT, EVENT_EDITOR, IN_WORD_LIST, "Release Event",
     "Event that signals the end of a sampling\n"
     "interval, and terminates the scribon task after the data files was written.",
     "The name of the event that signals the end of a sampling\n"
     "interval, and terminates the scribon task after the data files was written."},
    {"@RUNNING_AVERAGE", TOKEN_KYWD_RUNNING_AVE, INTEGER_TIME_INT_EDITOR, IN_WORD_LIST, "Running Average",
     "Specify the window width of a running average and the event\n"
     "that causes the data to be logged.",
     SAME_AS_HELP},
    {"@SCAN_INTERVAL", TOKEN_KYWD_SCAN_INTV, SCAN_INTERVAL_EDITOR, REQUIRED | IN_WORD_LIST, "Scan Interval",
     "The time between lines of data in the output file.",
     "The time between lines of data in the output file or the name of integer variable."},
    {"@SCAN_LIST", TOKEN_KYWD_SCAN_LIST, SCAN_LIST_EDITOR, REQUIRED, "Scan List",
     "This is the list of variables that are to be sampled.",
     SAME_AS_HELP},
    {"@SEND_ON_PATH_CHANGE", TOKEN_KYWD_SEND_ON_PATH_CHANGE, YESNO_EDITOR, IN_WORD_LIST, "Send On Path Change",
     nullptr,
     "Yes/No flag to enable/disable checking program, testid, testmode, and group_id.\n"
     "The default is yes"},
    {"@START_EVENT", TOKEN_KYWD_START_EVT, EVENT_EDITOR, IN_WORD_LIST, "Start Event",
     "The name of an event that signals the start of a sampling interval",
     SAME_AS_HELP},
    {"@STOP_EVENT", TOKEN_KYWD_STOP_EVT, EVENT_EDITOR, IN_WORD_LIST, "Stop Event",
     "The name of an event that signals the end of a sampling interval.",
     SAME_AS_HELP},
    {"@SYNC_EVENT", TOKEN_KYWD_SYNC_EVT, EVENT_EDITOR, IN_WORD_LIST, "Sync Event",
     "Name of event is used to trigger a scan of all channels.",
     "The name of an event that can be used to trigger a scan of all channels."},
    {"@TEST_ID", TOKEN_KYWD_TEST_ID, STRING_VAR_EDITOR, REQUIRED | IN_WORD_LIST, "Test Id",
     "String variable that contains the test_id\n"
     "to be included in the output file meta-data TEST_ID='<value>'.",
     "Label of a Marvane string variable that contains the test ID\n"
     "to include in the output file meta-data TEST_ID='<value>'."},
    {"@TEST_TYPE", TOKEN_KYWD_TEST_TYPE, STRING_VAR_EDITOR, REQUIRED | IN_WORD_LIST, "Test Type",
     "String variable that contains the test name\n"
     "to include in the output file meta-data TEST_TYPE='value>'.",
     "Label of Marvane String variable that contains the test name\n"
     "to include in the output file meta-data TEST_TYPE='<value>'."},
    {"@ECM_LIST", TOKEN_KYWD_ECM_LIST, ECM_LIST_EDITOR, 0, "ECM List",
     nullptr,
     nullptr},
    {"@META_DATA", TOKEN_KYWD_META_DATA, SCAN_LIST_EDITOR, 0, "Meta Data",
     nullptr,
     nullptr},
    {"@META_HEADER_FILENAME", TOKEN_KYWD_META_HDR_FILENAME, DIR_PATH_EDITOR, 0, nullptr,
     nullptr,
     nullptr},
    {"@SCAN_LIST_AUX_USER", TOKEN_KYWD_SCAN_LIST_AUX_USER, SCAN_LIST_EDITOR, 0, "Scan List Aux User",
     nullptr,
     nullptr},
};

// The order in which Antlr3_BaseTreeDelegate::convertKeywordText() looks a text up: the beginning
// of a keyword is shown as the first keyword here that begins with it.
inline constexpr int DISPLAY_ORDER[] = {
    TOKEN_KYWD_SCRIBON, TOKEN_KYWD_TEST_ID, TOKEN_KYWD_TEST_TYPE, TOKEN_KYWD_MODE,
    TOKEN_KYWD_GROUP, TOKEN_KYWD_PROGRAM, TOKEN_KYWD_DESCRIPTION, TOKEN_KYWD_SCAN_INTV,
    TOKEN_KYWD_SYNC_EVT, TOKEN_KYWD_START_EVT, TOKEN_KYWD_STOP_EVT, TOKEN_KYWD_CLR_STAT_EVT,
    TOKEN_KYWD_ENABLE, TOKEN_KYWD_LOG_ACT_LABEL, TOKEN_KYWD_RELEASE_EVT, TOKEN_KYWD_FTP_EVT,
    TOKEN_KYWD_LOG_DIG_DESC, TOKEN_KYWD_LOG_STATS, TOKEN_KYWD_DONE_EVT, TOKEN_KYWD_FIFO_LOG_BUF,
    TOKEN_KYWD_FIFO_PTRG_INTV, TOKEN_KYWD_FIFO_PTRG_SCANS, TOKEN_KYWD_FILENAME,
    TOKEN_KYWD_FOR_DFILE_WRITE, TOKEN_KYWD_GET_NSCAN_INTV, TOKEN_KYWD_MAX_SCANS,
    TOKEN_KYWD_MAX_STAT_SCANS, TOKEN_KYWD_OUTPUT_PATH, TOKEN_KYWD_READ_SFILE_EVT,
    TOKEN_KYWD_REG_NAME, TOKEN_KYWD_RUNNING_AVE, TOKEN_KYWD_SEND_ON_PATH_CHANGE,
    TOKEN_KYWD_SCAN_LIST, TOKEN_KYWD_SCAN_LIST_AUX_USER, TOKEN_KYWD_ECM_LIST,
    TOKEN_KYWD_META_DATA, TOKEN_KYWD_OMBRA_STEADY_STATE,
};
// clang-format on

// Null for a token that is not a keyword of the table.
constexpr const ScribonKeyword* scribonKeyword(int token)
{
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        if (keyword.token == token)
            return &keyword;
    }
    return nullptr;
}

constexpr std::array<const ScribonKeyword*, std::size(DISPLAY_ORDER)> keywordsInDisplayOrder()
{
    std::array<const ScribonKeyword*, std::size(DISPLAY_ORDER)> keywords{};
    for (size_t i = 0; i < std::size(DISPLAY_ORDER); ++i)
        keywords[i] = scribonKeyword(DISPLAY_ORDER[i]);
    return keywords;
}
