// Classifies texts and matches them against formats, for validation, painting and editing. The
// results are those of the generated lexer and of the regular expressions. Both depend on the text
// alone and are slow (a lexer is made for each text, a match takes up to half a millisecond), so
// results are cached; most texts are classified by their first character, and some formats have a
// faster expression.
#pragma once

#include <QHash>
#include <QString>
#include <array>

#include "validatorformat.h"

class TextJudge {
public:
    // The editor type of a text, as appGrammerTypeToEditorType() tells it. Stores the type of the
    // first token in *tokenType unless that is null.
    int classify(const QString& text, int* tokenType = nullptr) const;

    // Whether the text matches the format. The validators are those of the formats.
    bool accepts(VaidatorFormat format, const QString& text,
                 const FormatValidators& validators) const;

private:
    using Answers = QHash<QString, int>;

    mutable Answers m_editorTypes;
    mutable std::array<Answers, VALIDATOR_COUNT> m_acceptance;
};

// The one that all documents share, so that a load finds the results of the last one.
const TextJudge& textJudge();

// Classifies by the shared judge.
int classify(const QString& text, int* tokenType = nullptr);
