// The help text of each keyword.
#pragma once

#include <array>

struct KeywordHelpRow {
    const char* keyword;
    const char* text;
};

constexpr std::array<KeywordHelpRow, 32> KEYWORD_HELP_ROWS{{
    {"clear_statistics_event",
     "This event causes the statistical buffers within scribon to reset to 0."},
    {"description", "The user configurable description appears at the top of the output file."},
    {"scribon", "Keyword to show that this is a scribon spec file."},
    {"done_event", "Name of event set at completion of data collection. "},
    {"enable", "Logical variable that must be TRUE before logging can start."},
    {"fifo_log_buffer", "Activates First-in First-out (FIFO) logging."},
    {"fifo_post_trigger_interval",
     "Specify the length of time to obtain scans after the FIFO trigger\n"
     "event (stop or release event) has been received."},
    {"fifo_post_trigger_scans",
     "Specify the number of scans to obtain after the FIFO trigger event\n"
     "(stop or release event) has been received."},
    {"force_direct_file_write",
     "Indicates that data should be written directly to the output file\n"
     "when high data rates are used."},
    {"ftp_event",
     "Event that triggers the output file to be finalized,\n"
     "and initiates transfer of the data file. "},
    {"get_new_scan_interval",
     "Event used to trigger a re-evaluation\n"
     "of the SCAN_INTERVAL computed expression."},
    {"group",
     "String variable that contains the measurement\n"
     "name to include in the output file meta-data GROUP='<value>'."},
    {"log_digital_description",
     "This keyword causes the Logical variable descriptions to be\n"
     "logged for all Logical variables in place of the values '0' or '1'."},
    {"log_statistics",
     "Specifies that statistics should be computed for the variables\n"
     "specified via the @SCAN_LIST keyword."},
    {"logging_active_label",
     "The name of a Marvane logical variable that indicates scribon \n"
     "is actively collecting data and logging it."},
    {"max_scans", "The maximum number of samples in a sampling session."},
    {"max_statistical_scans",
     "Specifies the maximum number of scans when the @LOG_STATISTICS\n"
     "keyword is specified."},
    {"mode",
     "String variable that contains the test mode\n"
     "to include in the output file meta-data MODE='<value>'."},
    {"output_path", "Directory path to the output file."},
    {"program",
     "String variable that contains the program\n"
     "name to include in the output file meta-data PROGRAM='<value>'"},
    {"read_spec_file_event", "Event that triggers the scribon to re-read the spec file."},
    {"reg_name", "Name that identifies this instance of scribon with the OS."},
    {"release_event",
     "Event that signals the end of a sampling\n"
     "interval, and terminates the scribon task after the data files was written."},
    {"running_average",
     "Specify the window width of a running average and the event\n"
     "that causes the data to be logged."},
    {"scan_interval", "The time between lines of data in the output file."},
    {"scan_list", "This is the list of variables that are to be sampled."},
    {"start_event", "The name of an event that signals the start of a sampling interval"},
    {"stop_event", "The name of an event that signals the end of a sampling interval."},
    {"sync_event", "Name of event is used to trigger a scan of all channels."},
    {"test_id",
     "String variable that contains the test_id\n"
     "to be included in the output file meta-data TEST_ID='<value>'."},
    {"test_type",
     "String variable that contains the test name\n"
     "to include in the output file meta-data TEST_TYPE='value>'."},
    {"ombra_steady_state",
     "This keyword's presence causes the inclusion of the ombra_ss_specs file variables in "
     "the scan list. "},
}};
