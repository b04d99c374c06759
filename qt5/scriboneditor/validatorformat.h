// The formats that a cell's text can be held against.
#pragma once

#include <QRegExpValidator>
#include <array>
#include <memory>

// What a cell's text can be held against. A text passes when the validator answers Acceptable.
enum VaidatorFormat {
    Event_Name_VF,
    RegName_VF,
    FilePath_VF,
    Descript_VF,
    Interval_VF,
    VarName_VF,
    Integer_VF,
    Yesno_VF,
    Comment_VF,
    Default_VF,
    Scribonid_VF,
    StatMem_VF,
    ChannelName_VF,
    ParameterName_VF,
    ECMFilepath_VF,
    VarName_dblq_VF,
    VarName_sq_VF,
    VALIDATOR_COUNT
};

// The formats as patterns of the toolkit's default syntax, case-sensitive.
extern const std::array<const char*, VALIDATOR_COUNT> ValidatorPatterns;

using FormatValidators = std::array<std::unique_ptr<QRegExpValidator>, VALIDATOR_COUNT>;
