// The host functions that read lines of text.

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "marvane_headers.h"

namespace {

constexpr std::string_view BLANKS = " \t";

struct Token {
    std::string_view text;
    TOKEN_TYPE type;
};

// Whether the whole text is a number of this type, even if it is out of range.
template <typename Number>
bool isNumber(std::string_view text)
{
    Number number{};
    const char* end = text.data() + text.size();
    return std::from_chars(text.data(), end, number).ptr == end;
}

TOKEN_TYPE typeOfWord(std::string_view word)
{
    constexpr std::string_view NUMBER_STARTS = ".0123456789";
    const std::string_view digits = word.substr(word.front() == '-' ? 1 : 0);
    if (digits.empty() || NUMBER_STARTS.find(digits.front()) == std::string_view::npos)
        return PARSED_WORD;
    if (isNumber<int64_t>(word))
        return PARSED_INTEGER;
    return isNumber<double>(word) ? PARSED_REAL : PARSED_WORD;
}

void removeUpTo(std::string_view& rest, size_t position)
{
    rest.remove_prefix(std::min(position, rest.size()));
}

// The functions below remove what they return or skip from the start of `rest`.

// Without a closing quote, the text reaches to the end of the line.
Token takeQuoted(std::string_view& rest)
{
    const char quote = rest.front();
    rest.remove_prefix(1);
    const size_t end = std::min(rest.find(quote), rest.size());
    const Token token{rest.substr(0, end), PARSED_QUOTED};
    removeUpTo(rest, end + 1);
    return token;
}

Token takeWord(std::string_view& rest)
{
    const size_t end = std::min(rest.find_first_of(BLANKS), rest.size());
    const std::string_view word = rest.substr(0, end);
    removeUpTo(rest, end);
    return {word, typeOfWord(word)};
}

Token takeToken(std::string_view& rest, bool quotes)
{
    const bool isQuoted = quotes && (rest.front() == '"' || rest.front() == '\'');
    return isQuoted ? takeQuoted(rest) : takeWord(rest);
}

void skipBlanks(std::string_view& rest)
{
    removeUpTo(rest, rest.find_first_not_of(BLANKS));
}

void storeText(std::string_view text, char* row, size_t size)
{
    const size_t length = std::min(text.size(), size - 1);
    std::memcpy(row, text.data(), length);
    row[length] = '\0';
}

// Appends the character if it fits into the line, and increments the length in any case.
void appendTo(char* line, size_t& length, int character)
{
    if (length < MARVANE_LINE_SIZE - 1)
        line[length] = static_cast<char>(character);
    ++length;
}

}  // namespace

int16_t get_next_line(FILE* file, char* line)
{
    size_t length = 0;
    int character = getc_unlocked(file);
    if (character == EOF)
        return -1;
    for (; character != EOF && character != '\n'; character = getc_unlocked(file))
        appendTo(line, length, character);
    length = std::min(length, size_t{MARVANE_LINE_SIZE - 1});
    if (length > 0 && line[length - 1] == '\r')
        --length;
    line[length] = '\0';
    return 0;
}

int16_t parse_line(const char* line, int16_t max_tokens, int16_t token_size, int16_t quotes,
                   char* token, TOKEN_TYPE* token_type)
{
    if (token_size <= 0)
        return 0;
    const auto rowSize = static_cast<size_t>(token_size);
    int16_t count = 0;
    std::string_view rest(line);
    for (skipBlanks(rest); !rest.empty() && count < max_tokens; skipBlanks(rest)) {
        const Token next = takeToken(rest, quotes != 0);
        storeText(next.text, token + static_cast<size_t>(count) * rowSize, rowSize);
        token_type[count++] = next.type;
    }
    return count;
}
