// Classifies texts and matches them against formats, for validation and painting. The results are
// those of the generated lexer and of the regular expressions. Both depend on the text alone and
// are slow (a lexer is made for each text, a match takes up to half a millisecond), so results are
// cached, and common kinds of text are decided by equivalent code.
#pragma once

#include <QHash>
#include <QString>
#include <array>

#include "validatorformat.h"

class TextJudge {
public:
    // The validators must outlive the object and be set before the first call of accepts().
    explicit TextJudge(const FormatValidators& validators) : m_validators(validators) {}

    // The same result as appGrammerTypeToEditorType().
    int editorType(const QString& text) const;

    // Whether the format's validator answers Acceptable.
    bool accepts(VaidatorFormat format, const QString& text) const;

private:
    using Answers = QHash<QString, int>;

    const FormatValidators& m_validators;
    mutable Answers m_editorTypes;
    mutable std::array<Answers, VALIDATOR_COUNT> m_acceptance;
};
