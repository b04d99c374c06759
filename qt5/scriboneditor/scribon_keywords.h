// The keywords of the language, one row each: everything that the language layer knows about a
// keyword is told here once, and the tables that differ on purpose are derived from it.
#pragma once

#include <array>

#include "editor_types.h"
#include "scribonspecs_tokens.h"

struct ScribonKeyword {
    const char* spelling;
    int token;
    int editor;     // the kind of editor that the keyword's value calls for
    bool required;  // every spec file must keep it: its row cannot be removed
};

// clang-format off
// In the order of the lexer's rules.
constexpr std::array<ScribonKeyword, 38> SCRIBON_KEYWORDS{{
    {"@FIFO_POST_TRIGGER_SCANS",    TOKEN_KYWD_FIFO_PTRG_SCANS,     INTEGER_EDITOR,          false},
    {"@MAX_SCANS",                  TOKEN_KYWD_MAX_SCANS,           INTEGER_EDITOR,          false},
    {"@MAX_STATISTICAL_SCANS",      TOKEN_KYWD_MAX_STAT_SCANS,      INTEGER_EDITOR,          false},
    {"@FIFO_POST_TRIGGER_INTERVAL", TOKEN_KYWD_FIFO_PTRG_INTV,      FLOAT_UNIT_EDITOR,       false},
    {"@RUNNING_AVERAGE",            TOKEN_KYWD_RUNNING_AVE,         INTEGER_TIME_INT_EDITOR, false},
    {"@SCAN_INTERVAL",              TOKEN_KYWD_SCAN_INTV,           SCAN_INTERVAL_EDITOR,    true},
    {"@SCRIBON",                    TOKEN_KYWD_SCRIBON,             SCRIBON_EDITOR,          true},
    {"@TEST_ID",                    TOKEN_KYWD_TEST_ID,             STRING_VAR_EDITOR,       true},
    {"@TEST_TYPE",                  TOKEN_KYWD_TEST_TYPE,           STRING_VAR_EDITOR,       true},
    {"@MODE",                       TOKEN_KYWD_MODE,                STRING_VAR_EDITOR,       true},
    {"@GROUP",                      TOKEN_KYWD_GROUP,               STRING_VAR_EDITOR,       true},
    {"@PROGRAM",                    TOKEN_KYWD_PROGRAM,             STRING_VAR_EDITOR,       true},
    {"@REG_NAME",                   TOKEN_KYWD_REG_NAME,            REGNAME_EDITOR,          false},
    {"@FORCE_DIRECT_FILE_WRITE",    TOKEN_KYWD_FOR_DFILE_WRITE,     YESNO_EDITOR,            false},
    {"@FIFO_LOG_BUFFER",            TOKEN_KYWD_FIFO_LOG_BUF,        NOEDITOR,                false},
    {"@LOG_DIGITAL_DESCRIPTION",    TOKEN_KYWD_LOG_DIG_DESC,        YESNO_EDITOR,            false},
    {"@LOG_STATISTICS",             TOKEN_KYWD_LOG_STATS,           YESNO_EDITOR,            false},
    {"@ENABLE",                     TOKEN_KYWD_ENABLE,              LOGICAL_VAR_EDITOR,      false},
    {"@LOGGING_ACTIVE_LABEL",       TOKEN_KYWD_LOG_ACT_LABEL,       LOGICAL_VAR_EDITOR,      false},
    {"@DESCRIPTION",                TOKEN_KYWD_DESCRIPTION,         DESCRIPTION_EDITOR,      true},
    {"@SCAN_LIST",                  TOKEN_KYWD_SCAN_LIST,           SCAN_LIST_EDITOR,        true},
    {"@OUTPUT_PATH",                TOKEN_KYWD_OUTPUT_PATH,         DIR_PATH_EDITOR,         false},
    {"@META_HEADER_FILENAME",       TOKEN_KYWD_META_HDR_FILENAME,   DIR_PATH_EDITOR,         false},
    {"@CLEAR_STATISTICS_EVENT",     TOKEN_KYWD_CLR_STAT_EVT,        EVENT_EDITOR,            false},
    {"@READ_SPEC_FILE_EVENT",       TOKEN_KYWD_READ_SFILE_EVT,      EVENT_EDITOR,            false},
    {"@START_EVENT",                TOKEN_KYWD_START_EVT,           EVENT_EDITOR,            false},
    {"@SYNC_EVENT",                 TOKEN_KYWD_SYNC_EVT,            EVENT_EDITOR,            false},
    {"@STOP_EVENT",                 TOKEN_KYWD_STOP_EVT,            EVENT_EDITOR,            false},
    {"@DONE_EVENT",                 TOKEN_KYWD_DONE_EVT,            EVENT_EDITOR,            false},
    {"@FTP_EVENT",                  TOKEN_KYWD_FTP_EVT,             EVENT_EDITOR,            false},
    {"@RELEASE_EVENT",              TOKEN_KYWD_RELEASE_EVT,         EVENT_EDITOR,            false},
    {"@GET_NEW_SCAN_INTERVAL",      TOKEN_KYWD_GET_NSCAN_INTV,      EVENT_EDITOR,            false},
    {"@META_DATA",                  TOKEN_KYWD_META_DATA,           SCAN_LIST_EDITOR,        false},
    {"@ECM_LIST",                   TOKEN_KYWD_ECM_LIST,            ECM_LIST_EDITOR,         false},
    {"@SCAN_LIST_AUX_USER",         TOKEN_KYWD_SCAN_LIST_AUX_USER,  SCAN_LIST_EDITOR,        false},
    {"@OMBRA_STEADY_STATE",         TOKEN_KYWD_OMBRA_STEADY_STATE,  NOEDITOR,                false},
    {"@SEND_ON_PATH_CHANGE",        TOKEN_KYWD_SEND_ON_PATH_CHANGE, YESNO_EDITOR,            false},
    {"@FILENAME",                   TOKEN_KYWD_FILENAME,            DESCRIPTION_EDITOR,      false},
}};
// clang-format on
