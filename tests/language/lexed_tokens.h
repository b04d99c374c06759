// Lexes a text with the generated lexer. The macros of its header (EOL, INT, QUOTE ...) are not
// visible to tests this way.
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

// All tokens of the text, those of hidden channels included, without the end of input.
std::vector<LexedToken> lexText(const std::string& text);

// The tokens as one line, each as NAME(text).
std::string printTokens(const std::vector<LexedToken>& tokens);
