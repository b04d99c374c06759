#include "savefindings.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "cellfindings.h"
#include "regularrows.h"

namespace {

// The grammar puts a comment that begins behind this column into another cell.
constexpr size_t LAST_LINE_COMMENT_COLUMN = 31;

// Save writes these, empty, where the file does not have them.
constexpr std::array<std::string_view, 3> ADDED_SECTIONS{"@META_DATA", "@SCAN_LIST_AUX_USER",
                                                         "@ECM_LIST"};

bool isBlank(char byte)
{
    return std::isspace(static_cast<unsigned char>(byte)) != 0;
}

// Goes through the lines of a text that are not empty.
class Lines {
public:
    explicit Lines(const QByteArray& text)
        : m_rest(text.constData(), static_cast<size_t>(text.size()))
    {
        next();
    }

    bool atEnd() const { return m_atEnd; }
    std::string_view line() const { return m_line; }
    void next();

private:
    std::string_view m_rest;
    std::string_view m_line;
    bool m_atEnd = false;
};

void Lines::next()
{
    while (!m_rest.empty()) {
        const size_t end = std::min(m_rest.find('\n'), m_rest.size());
        m_line = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        if (!std::all_of(m_line.begin(), m_line.end(), isBlank))
            return;
    }
    m_atEnd = true;
}

std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

bool hasFarComment(std::string_view line)
{
    const size_t comment = line.find('#');
    return comment != std::string_view::npos && comment > LAST_LINE_COMMENT_COLUMN;
}

// Whether the lines differ in the number and kind of blanks only.
bool haveSameWords(std::string_view a, std::string_view b)
{
    for (a = withoutBlanks(a), b = withoutBlanks(b); !a.empty() && !b.empty();) {
        if (isBlank(a.front()) != isBlank(b.front()) ||
            (!isBlank(a.front()) && a.front() != b.front()))
            return withoutBlanks(a).empty() && withoutBlanks(b).empty();
        const bool blank = isBlank(a.front());
        a = blank ? withoutBlanks(a) : a.substr(1);
        b = blank ? withoutBlanks(b) : b.substr(1);
    }
    return withoutBlanks(a).empty() && withoutBlanks(b).empty();
}

bool areAlike(std::string_view a, std::string_view b)
{
    return hasFarComment(a) == hasFarComment(b) && haveSameWords(a, b);
}

bool isAddedSection(std::string_view line)
{
    return std::find(ADDED_SECTIONS.begin(), ADDED_SECTIONS.end(), line) != ADDED_SECTIONS.end();
}

Finding findingOfSave(Rule rule, const char* message)
{
    Finding finding;
    finding.rule = rule;
    finding.message = QString::fromLatin1(message);
    return finding;
}

// ---- Cells that the next load does not find -----------------------------------------------------

// By the bytes in the file: once saved, a file may be read in another encoding.
using TextCounts = QHash<QByteArray, int>;

template <typename Visit>
void visitTexts(const SpecFile& file, Visit visit)
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const TreeModel& table = file.table(tab);
        for (int row = 0; row < table.rowCount(); ++row) {
            for (int column = 0; column < table.columnCount(); ++column) {
                const QString text = file.cellText({tab, row, column});
                if (!text.isEmpty())
                    visit(CellPlace{tab, row, column}, encoded(file.encoding(), text));
            }
        }
    }
}

void addTextsThatAreGone(const SpecFile& file, const SpecFile& again,
                         std::vector<Finding>* findings)
{
    TextCounts found;
    visitTexts(again, [&found](const CellPlace&, const QByteArray& text) { ++found[text]; });
    visitTexts(file, [&](const CellPlace& cell, const QByteArray& text) {
        if (--found[text] < 0)
            findings->push_back(findingInCell(
                file, cell, Rule::LostText,
                QStringLiteral("a save writes this where the next load does not find it")));
    });
}

// ---- Cells that the next load reads elsewhere ---------------------------------------------------

bool isLoss(const Finding& finding)
{
    return finding.rule == Rule::LostText || finding.rule == Rule::ShiftedEntries;
}

// The first cell of the tab whose text differs in the other file; invalid if there is none.
CellPlace firstDifference(const SpecFile& file, const SpecFile& other, int tab)
{
    const TreeModel& table = file.table(tab);
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            if (file.cellText({tab, row, column}) != other.cellText({tab, row, column}))
                return {tab, row, column};
        }
    }
    return {};
}

void addTextsThatMove(const SpecFile& file, const SpecFile& again, std::vector<Finding>* findings)
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const CellPlace cell = firstDifference(file, again, tab);
        if (cell.isValid())
            findings->push_back(findingInCell(
                file, cell, Rule::ShiftedEntries,
                QStringLiteral("after a save, the next load reads what is here in other cells")));
    }
}

}  // namespace

bool isReadAlike(const QByteArray& bytes, const QByteArray& saved)
{
    Lines a(bytes);
    for (Lines b(saved); !b.atEnd(); b.next()) {
        if (!a.atEnd() && areAlike(a.line(), b.line()))
            a.next();
        else if (!isAddedSection(b.line()))
            return false;
    }
    return a.atEnd();
}

void addSaveFindings(const SpecFile& file, std::vector<Finding>* findings)
{
    if (hasRegularRows(file))
        return;
    const QByteArray saved = file.savedBytes();
    if (isReadAlike(file.bytes(), saved))
        return;
    const SpecFile again = SpecFile::fromBytes(saved, file.name());
    if (again.state() != SpecFile::State::Loaded) {
        findings->push_back(findingOfSave(
            Rule::SaveRefused, "the editor would not open its own save of this file again"));
        return;
    }
    addTextsThatAreGone(file, again, findings);
    if (std::none_of(findings->begin(), findings->end(), isLoss))
        addTextsThatMove(file, again, findings);
    if (again.savedBytes() != saved)
        findings->push_back(
            findingOfSave(Rule::SaveUnstable, "a second save would write another file"));
}
