// How the value of a keyword is edited and checked, by the editor type of the keyword: all that
// the editors, the validation and the painting of values know about a type.
#pragma once

#include <array>

#include "editor_types.h"
#include "validatorformat.h"

enum class ValueWidget { None, YesNo, Number, Line, Dialog };

// Accepts any text.
constexpr VaidatorFormat NO_FORMAT = VALIDATOR_COUNT;

// What a value must match; length and message are for a line edit. The length has no effect.
struct LineFormat {
    VaidatorFormat format = NO_FORMAT;
    unsigned int length = 0;
    const char* message = nullptr;
};

// What the dialog offers: variables of these kinds (QT_MARVANE_FLAGS), and an optional line for
// another text of its own format. An empty label is no line.
struct VariableChoice {
    int variables = 0;
    const char* optionalLabel = "";
    VaidatorFormat optionalFormat = NO_FORMAT;

    constexpr bool hasOptionalLine() const { return optionalLabel[0] != '\0'; }
};

// The value in the third column. Stored: a text set by Antlr3_BaseTreeDelegate::setModelData() is
// stored. Edited: there is an editor, too. Checked: the text is validated, too.
enum class SecondValueUse { None, Stored, Edited, Checked };

struct SecondValue {
    SecondValueUse use = SecondValueUse::None;
    LineFormat line;
};

struct ValueKind {
    int editor = NOEDITOR;
    ValueWidget widget = ValueWidget::None;
    bool hasArrow = false;
    LineFormat value;
    VariableChoice choice;
    SecondValue second;
};

// clang-format off
inline constexpr LineFormat EVENT_LINE{Event_Name_VF, 32, "Invalid event-name"};
inline constexpr LineFormat INTERVAL_LINE{Interval_VF, 32, "Invalid interval"};
inline constexpr LineFormat ANY_LINE{Default_VF, 80, "Invalid input"};

inline constexpr std::array<ValueKind, 17> VALUE_KINDS{{
    {EVENT_EDITOR, ValueWidget::Line, false, EVENT_LINE, {}, {}},
    {FLOAT_UNIT_EDITOR, ValueWidget::Line, false, INTERVAL_LINE, {}, {}},
    {INTEGER_TIME_INT_EDITOR, ValueWidget::Line, false, INTERVAL_LINE, {}, {SecondValueUse::Checked, EVENT_LINE}},
    {DESCRIPTION_EDITOR, ValueWidget::Line, false, {Descript_VF, 128, "Invalid description"}, {}, {}},
    {REGNAME_EDITOR, ValueWidget::Line, false, {RegName_VF, 32, "Invalid registered-name"}, {}, {}},
    {SCRIBON_EDITOR, ValueWidget::Line, false, {Scribonid_VF, 80, "Invalid scribon identifier"}, {}, {}},
    {TEXT_BLOCK, ValueWidget::Line, false, ANY_LINE, {}, {SecondValueUse::Edited, ANY_LINE}},
    {FILLER_DATA, ValueWidget::Line, false, ANY_LINE, {}, {}},
    {COMMENT_LINE, ValueWidget::None, false, {Comment_VF}, {}, {SecondValueUse::Stored, {}}},
    {NOEDITOR, ValueWidget::None, false, {NO_FORMAT}, {}, {}},
    {YESNO_EDITOR, ValueWidget::YesNo, true, {Yesno_VF}, {}, {}},
    {INTEGER_EDITOR, ValueWidget::Number, false, {Integer_VF}, {}, {}},
    {LOGICAL_VAR_EDITOR, ValueWidget::Dialog, true, {VarName_VF}, {QT_MARVANE_LOGICAL}, {}},
    {STRING_VAR_EDITOR, ValueWidget::Dialog, true, {VarName_VF}, {QT_MARVANE_STRING}, {}},
    {SCAN_INTERVAL_EDITOR, ValueWidget::Dialog, false, {VarName_VF}, {QT_MARVANE_INTEGER, "Interval", Interval_VF}, {}},
    {SCAN_LIST_EDITOR, ValueWidget::Dialog, false, {VarName_VF}, {QT_MARVANE_ANY}, {}},
    {DIR_PATH_EDITOR, ValueWidget::Dialog, true, {VarName_VF}, {QT_MARVANE_STRING, "Path", FilePath_VF}, {}},
}};

// All other types.
inline constexpr ValueKind OTHER_VALUE_KIND{LINE_EDITOR, ValueWidget::Line, false, ANY_LINE, {}, {}};
// clang-format on

constexpr const ValueKind& valueKind(int editorType)
{
    for (const ValueKind& kind : VALUE_KINDS) {
        if (kind.editor == editorType)
            return kind;
    }
    return OTHER_VALUE_KIND;
}
