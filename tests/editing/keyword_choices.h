// The keywords that the Keywords tab offers, in their order, with the tool tips of the full list.
// From "send_on_path_change" on there are no tool tips: SCRIBON_KEYWORDS has SCAN_LIST before it,
// which is not offered, and tool tips are looked up by position.
#pragma once

#include <array>

struct KeywordChoice {
    const char* name;
    const char* toolTip;  // if all keywords are offered; null for none
};

// clang-format off
constexpr std::array<KeywordChoice, 33> KEYWORD_CHOICES{{
    {"clear_statistics_event",
     "This event causes the statistical buffers within scribon to be reset to 0."},
    {"description",
     "The user configurable description appears at the top of the output file."},
    {"scribon",
     "This is to clarify that the spec file is a scribon spec file."},
    {"done_event",
     "The name of the event that is set when the data collection is complete."},
    {"enable",
     "The enable variable is a logical variable that must be set to TRUE\n"
     "before logging can take place."},
    {"fifo_log_buffer",
     "Activates First-in First-out (FIFO) logging."},
    {"fifo_post_trigger_interval",
     "Specify the length of time to obtain scans after the FIFO trigger\n"
     "event (stop or release event) has been received."},
    {"fifo_post_trigger_scans",
     "Specify the number of scans to obtain after the FIFO trigger event\n"
     "(stop or release event) has been received."},
    {"filename",
     "Process the keyword and evaluate the resulting expression periodically.\n"
     " Do not user the result of the expression to determine the actual filename\n"
     "Look for a change in the result of evaluating the expression and if one is noted\n"
     "close the existing file\n"
     "The file would be compressed and transferred to the server\n"
     "A new file would be opened"},
    {"force_direct_file_write",
     "Indicates that data should be written directly to the output file\n"
     "when high data rates are used."},
    {"ftp_event",
     "Specifies the Marvane event that will be set to cause the output file\n"
     "to be finalized. This initiates the transfer of the received data file. "},
    {"get_new_scan_interval",
     "The name of an event that can be used to trigger a re-evaluation\n"
     "of the SCAN_INTERVAL computed expression."},
    {"group",
     "Label of Marvane string variable that contains the measurement\n"
     "name to include in the output file meta-data GROUP='<value>'."},
    {"log_digital_description",
     "This keyword causes the LOGICAL_VARIABLE descriptions to be\n"
     "logged for all LOGICAL_VARIABLES in place of the values '0' or '1'."},
    {"log_statistics",
     "Specifies that statistics should be computed for the variables\n"
     "specified via the @SCAN_LIST keyword."},
    {"logging_active_label",
     "The name of a Marvane logical variable that indicates scribon \n"
     "is actively collecting data and logging it."},
    {"max_scans",
     "The maximum number of samples in a sampling session."},
    {"max_statistical_scans",
     "Specifies the maximum number of scans when the @LOG_STATISTICS\n"
     "keyword is specified."},
    {"mode",
     "Label of Marvane string variable that contains the test mode\n"
     "to include in the output file meta-data MODE='<value>'."},
    {"output_path",
     "The directory path that specifies where the output file should be written."},
    {"ombra_steady_state",
     "Keyword indicates that scribon will log all variables from ombra_ss_specs."},
    {"program",
     "Label of Marvane string variable that contains the program\n"
     "name to include in the output file meta-data PROGRAM='<value>'"},
    {"read_spec_file_event",
     "The name of an event that, when it is received by scribon,\n"
     "causes scribon to re-read the spec file."},
    {"reg_name",
     "The name that registers the instance of scribon with the OS."},
    {"release_event",
     "The name of the event that signals the end of a sampling\n"
     "interval, and terminates the scribon task after the data files was written."},
    {"running_average",
     "Specify the window width of a running average and the event\n"
     "that causes the data to be logged."},
    {"scan_interval",
     "The time between lines of data in the output file or the name of integer variable."},
    {"send_on_path_change", nullptr},
    {"start_event", nullptr},
    {"stop_event", nullptr},
    {"sync_event", nullptr},
    {"test_id", nullptr},
    {"test_type", nullptr},
}};
// clang-format on
