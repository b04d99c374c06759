// Answers the two questions that validation and painting ask about texts: what kind of thing is it,
// and does it match a format? The generated lexer and the patterns are the judges; this class only
// sees to it that they are asked seldom, since a lexer is made for each text and a pattern takes up
// to half a millisecond. Both are pure functions of the text, so their answers are remembered, and
// plain words and the like are answered at once where that is known to be the same.
#pragma once

#include <QHash>
#include <QString>
#include <array>

#include "validatorformat.h"

class TextJudge {
public:
    // The validators must outlive the judge, and be there when it is first asked.
    explicit TextJudge(const FormatValidators& validators) : m_validators(validators) {}

    // The editor type of the text, as appGrammerTypeToEditorType gives it.
    int editorType(const QString& text) const;

    // Whether the format's validator answers Acceptable.
    bool accepts(VaidatorFormat format, const QString& text) const;

private:
    using Answers = QHash<QString, int>;

    const FormatValidators& m_validators;
    mutable Answers m_editorTypes;
    mutable std::array<Answers, VALIDATOR_COUNT> m_acceptance;
};
