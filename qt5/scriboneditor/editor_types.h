// The numbers and flags that the layers of the editor share. Free of Qt, so that the
// language layer can use them too.
#pragma once

// The kind of editor that a text calls for. It is worked out from a text whenever it is needed
// (appGrammerTypeToEditorType) and never stored. EDIT_TAB1 to EDIT_TAB5 double as the tabs'
// numbers and equal the parse tree's node types EDITOR_TAB1 to EDITOR_TAB5.
enum _marvane_qt_editor {
    DUMMY1_EDITOR = 0,
    DUMMY2_EDITOR = 1,
    EVENT_EDITOR = 2,
    LINE_EDITOR = 3,
    YESNO_EDITOR = 4,
    INTEGER_UNIT_EDITOR = 5,
    FLOAT_UNIT_EDITOR = 6,
    INTEGER_EDITOR = 7,
    SCANLIST_PAM_EDITOR = 8,
    SCANLIST_VAR_EDITOR = 9,
    SCANLIST_STAT_MEM_EDITOR = 10,
    ECM_LIST_EDITOR = 11,
    EDIT_TAB1 = 13,
    EDIT_TAB2 = 14,
    EDIT_TAB3 = 15,
    EDIT_TAB4 = 16,
    EDIT_TAB5 = 17,
    MARVANE_VAR_EDITOR = 18,
    TEXT_BLOCK = 19,
    COMMENT_LINE = 20,
    LOG_DIG_DESCRIPTION = 21,
    STAT_MEM_EDITOR = 22,
    NOEDITOR = 23,
    LOGICAL_VAR_EDITOR = 24,
    DESCRIPTION_EDITOR = 25,
    STRING_VAR_EDITOR = 26,
    REGNAME_EDITOR = 27,
    INTEGER_TIME_INT_EDITOR = 28,
    FLOAT_TIME_INT_EDITOR = 29,
    SCAN_INTERVAL_EDITOR = 30,
    SCAN_LIST_EDITOR = 31,
    DIR_PATH_EDITOR = 32,
    SCRIBON_EDITOR = 33,
    FILLER_DATA = 34,
    EOL_FLAG = 35
};
using MARVANE_QT_EDITOR = _marvane_qt_editor;

// Indices of the tabs in the window.
enum { DE_TAB1 = 0, DE_TAB2 = 1, DE_TAB3 = 2, DE_TAB4 = 3, DE_TAB5 = 4 };

// Tabs in use, and the slots of the arrays by tab (the last one stays empty).
constexpr int TAB_COUNT = 5;
constexpr int TAB_SLOTS = 6;

// A cell's error code, stored as an int in a QVariant.
enum {
    DE_NOFIELD = -1,  // the column does not apply to this row
    DE_NOERROR = 0,
    DE_SYNTAX_ERR = 1,
    DE_DUPLICATE_ERR = 2,
    DE_MISSING_ERR = 3  // declared for completeness; no check gives it
};
