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

// The columns of each tab.
namespace KeywordsTab {
enum Column { KEYWORD, VALUE, SECOND_VALUE, COLUMN_COUNT };
}
namespace ScanListTab {
enum Column { KEYWORD, VARIABLE, MEMBER, CHANNEL, COLUMN_COUNT };
}
namespace MetaDataTab {
enum Column { KEYWORD, PARAMETER, VARIABLE, COLUMN_COUNT };
}
namespace AuxUserTab {
enum Column { KEYWORD, VARIABLE, ALTERNATE_NAME, COLUMN_COUNT };
}
namespace EcmListTab {
enum Column { KEYWORD, INSTANCE, PATH, COLUMN_COUNT };
}

// The keyword's column of all tabs, and the first two columns of an entry of the list tabs. A
// comment of a list is in the first.
constexpr int KEYWORD_COLUMN = 0;
constexpr int ENTRY_COLUMN = 1;
constexpr int SECOND_ENTRY_COLUMN = 2;

// The kinds of variables that can be offered.
enum QT_MARVANE_FLAGS {
    QT_MARVANE_LOGICAL = 1,
    QT_MARVANE_STRING = 2,
    QT_MARVANE_INTEGER = 4,
    QT_MARVANE_REAL = 8,
    QT_MARVANE_STAT = 16,
    QT_MARVANE_EMIS = 32,
    QT_MARVANE_COMP = 64,
    QT_MARVANE_REAL_INTEGER = 128,
    QT_MARVANE_PROP = 256,
    QT_MARVANE_ARRAY = 512,
    QT_MARVANE_ANY = 1023,
    QT_MARVANE_IO_MEM = 1024  // physical channels, listed by number; only by itself
};

// A cell's error code, stored as an int in a QVariant.
enum {
    DE_NOFIELD = -1,  // the column does not apply to this row
    DE_NOERROR = 0,
    DE_SYNTAX_ERR = 1,
    DE_DUPLICATE_ERR = 2,
    DE_MISSING_ERR = 3  // declared for completeness; no check gives it
};
