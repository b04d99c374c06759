#include "get_asam3_lists.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>

#include "marvane_headers.h"

namespace {

constexpr auto REGISTER_MARK = "@REG_NAME";
constexpr char END_OF_PART = '$';
constexpr int MAX_PREAMBLE_LINES = 5;
constexpr int16_t HEAD_TOKENS = 3;
constexpr int16_t MAX_TOKENS = 6;
constexpr int16_t WITH_QUOTES = 1;
constexpr size_t MAX_NAME_SIZE = ASAM3_LIST_SIZE - sizeof(":0");

// One more than is stored: the head line behind the last stored section is checked, too.
constexpr int MAX_SECTIONS = MAX_ASAM3_LISTS + 1;

using File = std::unique_ptr<FILE, int (*)(FILE*)>;
using Line = std::array<char, MARVANE_LINE_SIZE>;

bool isRegularFile(int descriptor)
{
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// Null if the file cannot be opened. Opening a FIFO does not block.
File openFile(const char* filename)
{
    const int descriptor = open(filename, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor == -1)
        return {nullptr, fclose};
    FILE* const stream = fdopen(descriptor, "r");
    if (stream == nullptr)
        close(descriptor);
    return {stream, fclose};
}

// False at the end of the file. Terminates the line, in case the platform's function did not.
bool readLine(FILE* file, Line& line)
{
    const bool read = get_next_line(file, line.data()) != -1;
    line.back() = '\0';
    return read;
}

bool endsPart(const Line& line)
{
    return line[0] == END_OF_PART;
}

bool readOpeningLines(FILE* file)
{
    Line line{};
    return readLine(file, line) && std::strstr(line.data(), REGISTER_MARK) != nullptr &&
           readLine(file, line) && readLine(file, line);
}

bool skipPreamble(FILE* file)
{
    Line line{};
    for (int i = 0; i < MAX_PREAMBLE_LINES; ++i) {
        if (!readLine(file, line))
            return false;
        if (endsPart(line))
            return true;
    }
    return false;
}

void skipSection(FILE* file)
{
    Line line{};
    while (readLine(file, line) && !endsPart(line)) {
    }
}

// Stores the ECM's name in name. False if the line is not the head line of a section.
bool parseHead(const Line& line, Line& name)
{
    std::array<Line, MAX_TOKENS> token{};
    std::array<TOKEN_TYPE, MAX_TOKENS> token_type{};
    const int16_t tokens = parse_line(line.data(), MAX_TOKENS, MARVANE_LINE_SIZE, WITH_QUOTES,
                                      token.front().data(), token_type.data());
    name = token.front();
    name.back() = '\0';
    return tokens == HEAD_TOKENS;
}

void appendEntry(const Line& name, char (*ecmLists)[ASAM3_LIST_SIZE], int* numLists)
{
    const size_t token_size = std::min(std::strlen(name.data()), MAX_NAME_SIZE);
    const auto count = std::count_if(ecmLists, ecmLists + *numLists, [&](const char* entry) {
        return std::strncmp(entry, name.data(), token_size) == 0;
    });
    std::snprintf(ecmLists[*numLists], ASAM3_LIST_SIZE, "%.*s:%1d", static_cast<int>(token_size),
                  name.data(), static_cast<int>(count));
    ++*numLists;
}

short readSections(FILE* file, char (*ecmLists)[ASAM3_LIST_SIZE], int* numLists)
{
    Line line{};
    Line name{};
    for (int i = 0; i < MAX_SECTIONS; ++i) {
        if (!readLine(file, line) || endsPart(line))
            return *numLists != 0 ? ASAM3_READ : ASAM3_WRONG_FORM;
        if (!parseHead(line, name))
            return ASAM3_WRONG_FORM;
        if (i < MAX_ASAM3_LISTS) {
            appendEntry(name, ecmLists, numLists);
            skipSection(file);
        }
    }
    return ASAM3_READ;
}

}  // namespace

short get_asam3_lists(const char* filename, char (*ecmLists)[ASAM3_LIST_SIZE], int* numLists)
{
    *numLists = 0;
    const File file = openFile(filename);
    if (file == nullptr)
        return ASAM3_NO_FILE;
    if (!isRegularFile(fileno(file.get())) || !readOpeningLines(file.get()) ||
        !skipPreamble(file.get()))
        return ASAM3_WRONG_FORM;
    return readSections(file.get(), ecmLists, numLists);
}
