// What `scribon-spec check` can find. The names are stable: build servers and baselines use them.
#pragma once

#include <array>
#include <optional>

class QString;

enum class Rule {
    Unreadable,
    Refused,
    Syntax,
    Duplicate,
    LostText,
    ShiftedEntries,
    SaveRefused,
    SaveUnstable,
    Encoding,
    MissingKeyword,
    UnknownVariable,
    WrongKind,
    UnknownMember,
    UnknownUnits,
    WrongUnits,
    UnknownChannel,
    UnknownParameter,
    UnknownList
};

enum class Severity { Off, Warning, Error };

struct RuleFacts {
    Rule rule;
    const char* name;
    Severity severity;    // unless an option changes it
    const char* meaning;  // one line
    const char* remedy;   // one line
};

// In the order of Rule.
// clang-format off
inline constexpr std::array<RuleFacts, 18> RULES{{
    {Rule::Unreadable, "unreadable", Severity::Error, "The file cannot be read.", "Correct the name, or the permissions of the file."},
    {Rule::Refused, "refused", Severity::Error, "The editor does not open the file: its first statement is not @SCRIBON.", "Let the file begin with @SCRIBON and its value."},
    {Rule::Syntax, "syntax", Severity::Error, "The text of a cell is wrong; the editor marks and counts it.", "Correct the cell. In the editor, F8 goes to it."},
    {Rule::Duplicate, "duplicate", Severity::Error, "Another row has the same text in this column; the editor marks and counts it.", "Remove one of the rows, or change its text."},
    {Rule::LostText, "lost-text", Severity::Error, "No cell holds this text, and the first save loses it.", "Correct the text, or put a # before it."},
    {Rule::ShiftedEntries, "shifted-entries", Severity::Error, "An entry without its second value shifts all entries behind it.", "Complete the entry, or remove it."},
    {Rule::SaveRefused, "save-refused", Severity::Error, "The editor would not open the file any more after its own save.", "Correct the file with a text editor."},
    {Rule::SaveUnstable, "save-unstable", Severity::Warning, "A second save writes another file than the first.", "Correct the file with a text editor. scribon-spec format shows what a save writes."},
    {Rule::Encoding, "encoding", Severity::Warning, "The file has bytes that are not UTF-8; the editor reads it as Latin-1.", "Save the file as UTF-8."},
    {Rule::MissingKeyword, "missing-keyword", Severity::Error, "A required keyword is missing.", "Add the keyword and its value."},
    {Rule::UnknownVariable, "unknown-variable", Severity::Error, "The cell has no variable of this name.", "Correct the name, or check against the right cell."},
    {Rule::WrongKind, "wrong-kind", Severity::Error, "The variable is of another kind than the keyword needs.", "Choose a variable of the kind that the keyword needs."},
    {Rule::UnknownMember, "unknown-member", Severity::Error, "The variable does not have this member.", "Choose a member that the variable has."},
    {Rule::UnknownUnits, "unknown-units", Severity::Error, "The cell does not know these units.", "Choose units that the cell knows."},
    {Rule::WrongUnits, "wrong-units", Severity::Error, "The units are of another dimension than the variable's.", "Choose units of the variable's dimension."},
    {Rule::UnknownChannel, "unknown-channel", Severity::Error, "The cell has no channel keyword of this name.", "Choose one of the cell's channel keywords."},
    {Rule::UnknownParameter, "unknown-parameter", Severity::Error, "The cell has no parameter keyword of this name.", "Choose one of the cell's parameter keywords."},
    {Rule::UnknownList, "unknown-list", Severity::Error, "No asam3_specs file offers this list.", "Correct the path, or add the asam3_specs file."},
}};
// clang-format on

constexpr const RuleFacts& factsOf(Rule rule)
{
    return RULES[static_cast<size_t>(rule)];
}

std::optional<Rule> ruleOfName(const QString& name);

// "error" or "warning".
const char* nameOf(Severity severity);
