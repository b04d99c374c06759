#include "lossfindings.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "scribonspecs_tokens.h"

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xef\xbb\xbf";

// A text that a cell holds.
struct HeldText {
    FileRange range;
    int tab;
    bool isKeyword;
};

bool isBlank(char byte)
{
    return std::isspace(static_cast<unsigned char>(byte)) != 0;
}

std::string_view viewOf(const SpecFile& file)
{
    return {file.bytes().constData(), static_cast<size_t>(file.bytes().size())};
}

bool isKeywordCell(std::string_view bytes, FileRange range, int column)
{
    return column == KEYWORD_COLUMN && bytes[range.offset] == '@';
}

// In the order of their places. The same text may be in two cells.
std::vector<HeldText> heldTexts(const SpecFile& file)
{
    std::vector<HeldText> held;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TabOrigins& origins = file.origins(tab);
        for (int row = 0; row < origins.rowCount(); ++row) {
            for (int column = 0; column < origins.columnCount(); ++column) {
                const FileRange range = origins.cell(row, column);
                if (range.size > 0)
                    held.push_back({range, tab, isKeywordCell(viewOf(file), range, column)});
            }
        }
    }
    std::sort(held.begin(), held.end(),
              [](const HeldText& a, const HeldText& b) { return a.range.offset < b.range.offset; });
    return held;
}

// The text between two held ones, without the blanks around it.
FileRange lostIn(std::string_view bytes, size_t begin, size_t end)
{
    if (begin == 0 && bytes.substr(0, BYTE_ORDER_MARK.size()) == BYTE_ORDER_MARK)
        begin = BYTE_ORDER_MARK.size();
    while (begin < end && isBlank(bytes[begin]))
        ++begin;
    while (end > begin && isBlank(bytes[end - 1]))
        --end;
    return {begin, end - begin};
}

std::string_view firstWord(std::string_view text)
{
    const auto* const end = std::find_if(text.begin(), text.end(), isBlank);
    return text.substr(0, static_cast<size_t>(end - text.begin()));
}

int tokenOf(std::string_view word)
{
    int token = 0;
    appGrammerTypeToEditorType(word.data(), static_cast<int>(word.size()), &token);
    return token;
}

struct Cause {
    const char* message;
    const char* hint;
};

constexpr Cause UNKNOWN_KEYWORD{"unknown keyword", "Correct the keyword, or put a # before it."};
constexpr Cause UNCLOSED_QUOTE{"quote without its end", "Close the quote."};
constexpr Cause FOREIGN_CHARACTER{"characters that stand only in quotes and comments",
                                  "Put the text into quotes, or remove it."};
constexpr Cause MEMBER_WITHOUT_CHANNEL{"statistical member without a channel keyword",
                                       "Add the channel keyword behind the member."};
constexpr Cause NUMBER_IN_LIST{"number in place of a name", "Correct the name, or remove it."};
constexpr Cause STRAY_QUOTE{"quoted text where none belongs", "Remove it, or put a # before it."};
constexpr Cause STRAY_TEXT{"text that belongs to no statement", "Remove it, or put a # before it."};

Cause causeOf(std::string_view lost, int tab)
{
    const int token = tokenOf(firstWord(lost));
    const char first = lost.front();
    if (first == '@')
        return UNKNOWN_KEYWORD;
    if (first == '\'' || first == '"')
        return lost.find(first, 1) == std::string_view::npos ? UNCLOSED_QUOTE : STRAY_QUOTE;
    if (token == 0)
        return FOREIGN_CHARACTER;
    if (tab == DE_TAB2 && (token == TOKEN_STAT_MEM || token == TOKEN_LOG_DIGITAL_DESC))
        return MEMBER_WITHOUT_CHANNEL;
    if (tab != DE_TAB1 && token == TOKEN_DIGITS)
        return NUMBER_IN_LIST;
    return STRAY_TEXT;
}

class LossSearch {
public:
    LossSearch(const SpecFile& file, std::vector<Finding>* findings)
        : m_file(file), m_bytes(viewOf(file)), m_findings(findings)
    {
    }

    void run();

private:
    void look(size_t end);
    void lose(FileRange range);
    void tellOfAll();

    const SpecFile& m_file;
    std::string_view m_bytes;
    std::vector<Finding>* m_findings;
    size_t m_position = 0;  // the end of the held text before
    int m_tab = DE_TAB1;    // of the keyword before
    FileRange m_first;      // what is lost since then; size 0: nothing
    size_t m_end = 0;       // of the last that is lost
    int m_lostTab = DE_TAB1;
};

void LossSearch::run()
{
    for (const HeldText& held : heldTexts(m_file)) {
        look(held.range.offset);
        if (held.isKeyword) {
            tellOfAll();
            m_tab = held.tab;
        }
        m_position = std::max(m_position, held.range.offset + held.range.size);
    }
    look(m_bytes.size());
    tellOfAll();
}

void LossSearch::look(size_t end)
{
    if (end <= m_position)
        return;
    const FileRange lost = lostIn(m_bytes, m_position, end);
    if (lost.size > 0)
        lose(lost);
}

void LossSearch::lose(FileRange range)
{
    if (m_first.size == 0) {
        m_first = range;
        m_lostTab = m_tab;
    }
    m_end = range.offset + range.size;
}

void LossSearch::tellOfAll()
{
    if (m_first.size == 0)
        return;
    const std::string_view lost = m_bytes.substr(m_first.offset, m_first.size);
    const Cause cause = causeOf(lost, m_lostTab);
    const int lastLine = m_file.lineNumberOf(m_end - 1);
    Finding finding;
    finding.rule = Rule::LostText;
    finding.range = {m_first.offset, firstWord(lost).size()};
    finding.text = m_file.textOf(finding.range);
    finding.message = QString::fromLatin1(cause.message);
    finding.message +=
        lastLine > m_file.lineNumberOf(m_first.offset)
            ? QStringLiteral("; a save loses text from here to line %1").arg(lastLine)
            : QStringLiteral("; a save loses it");
    finding.hint = QString::fromLatin1(cause.hint);
    m_findings->push_back(finding);
    m_first = {};
}

// ---- Shifted entries ----------------------------------------------------------------------------

// The texts of an entry are on one line, so a row of two lines holds the texts of two entries.
bool isOfTwoLines(const SpecFile& file, int tab, int row)
{
    const FileRange first = file.origins(tab).cell(row, ENTRY_COLUMN);
    const FileRange second = file.origins(tab).cell(row, SECOND_ENTRY_COLUMN);
    if (first.size == 0 || second.size == 0)
        return false;
    const auto [from, to] = std::minmax(first.offset, second.offset);
    return viewOf(file).substr(from, to - from).find('\n') != std::string_view::npos;
}

void addShiftedEntries(const SpecFile& file, int tab, std::vector<Finding>* findings)
{
    for (int row = 1; row < file.origins(tab).rowCount(); ++row) {
        if (!isOfTwoLines(file, tab, row))
            continue;
        Finding finding;
        finding.rule = Rule::ShiftedEntries;
        finding.cell = {tab, row, ENTRY_COLUMN};
        finding.range = file.origins(tab).cell(row, ENTRY_COLUMN);
        finding.text = file.textOf(finding.range);
        finding.message = QStringLiteral(
            "entry without a second value; what follows is read in the wrong columns");
        finding.hint = QStringLiteral("Complete the entry, or remove it.");
        findings->push_back(finding);
        return;
    }
}

}  // namespace

void addLosses(const SpecFile& file, std::vector<Finding>* findings)
{
    LossSearch(file, findings).run();
    for (int tab = DE_TAB2; tab <= DE_TAB5; ++tab)
        addShiftedEntries(file, tab, findings);
}
