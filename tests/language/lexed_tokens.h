// Lexes a text with the generated lexer, whose header's macros (EOL, INT, QUOTE and their kin) stay
// out of the tests this way.
#pragma once

#include <string>
#include <vector>

struct LexedToken {
    int type;
    int channel;
    std::string text;
    int line;    // from 1
    int column;  // of the first character in its line
};

// Every token of the text, off-channel ones included; the end of input is none.
std::vector<LexedToken> lexText(const std::string& text);

// The tokens as one line, each as NAME(text).
std::string printTokens(const std::vector<LexedToken>& tokens);
