// The formats that the text of a cell can be checked against.
#pragma once

#include <QRegExp>
#include <QRegExpValidator>
#include <array>
#include <memory>

class QRegularExpression;

// A text matches a format if its validator returns QValidator::Acceptable.
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

// The formats as QRegExp patterns in the default syntax, case-sensitive.
extern const std::array<const char*, VALIDATOR_COUNT> ValidatorPatterns;

// The same, compiled once: compiling them takes longer than loading a small file.
const std::array<QRegExp, VALIDATOR_COUNT>& compiledPatterns();

// An expression that matches the same texts, much faster; null for a format without one.
const QRegularExpression* fastPattern(VaidatorFormat format);

using FormatValidators = std::array<std::unique_ptr<QRegExpValidator>, VALIDATOR_COUNT>;
