#include "keyword_pages.h"

#include <QRegularExpression>
#include <QStringList>

#include "keyword_words.h"
#include "stat_members.h"

namespace {

constexpr int EXAMPLE_LINES = 8;

// Markdown about a kind of value and its editor.
struct ValueFacts {
    int editor;
    const char* value;
    const char* editing;
};

// clang-format off
constexpr std::array<ValueFacts, 13> VALUE_FACTS{{
    {EVENT_EDITOR, "the name of an event: [one word](keywords_tab.md#a-value-that-is-no-word)",
     "a [line](editor_text.md#event-names), which accepts letters, digits and `_`, 62 at most"},
    {YESNO_EDITOR, "`yes` or `no`",
     "a [list](editor_yes_no.md) with these two words"},
    {FLOAT_UNIT_EDITOR, "an interval: a number and its unit in square brackets",
     "a [line](editor_text.md#intervals), which accepts the units `msec`, `sec`, `min` and `hr`"},
    {INTEGER_EDITOR, "a count of scans",
     "a [number](editor_number.md) from 0 to 1000000"},
    {NOEDITOR, "none. What the file has after the keyword stays in the file",
     "none"},
    {LOGICAL_VAR_EDITOR, "the name of a logical variable: [one word](keywords_tab.md#a-value-that-is-no-word)",
     "the [variable dialog](editor_variable.md) with the logical variables"},
    {STRING_VAR_EDITOR, "the name of a string variable",
     "the [variable dialog](editor_variable.md) with the string variables"},
    {DESCRIPTION_EDITOR, "a text or an expression in quotes",
     "a [line](editor_text.md#descriptions-and-expressions), which accepts anything within double "
     "or single quotes"},
    {REGNAME_EDITOR, "a name",
     "a [line](editor_text.md#registered-names), which accepts a letter or `_`, then letters, "
     "digits and `_`"},
    {INTEGER_TIME_INT_EDITOR, "an interval, and after it the name of an event",
     "a [line](editor_text.md#intervals) for the interval, which accepts the units `msec`, "
     "`sec`, `min` and `hr`, and in the third column a [line](editor_text.md#event-names) for the "
     "event"},
    {SCAN_INTERVAL_EDITOR, "an interval, or the name of an integer variable",
     "the [variable dialog](editor_variable.md#with-an-interval) with the integer variables and a "
     "line for the interval"},
    {DIR_PATH_EDITOR, "a path, or the name of a string variable: [one word](keywords_tab.md#a-value-that-is-no-word), with [a line end after it](keywords_tab.md#a-path-without-a-line-end)",
     "the [variable dialog](editor_variable.md#with-a-path) with the string variables and a line "
     "for the path"},
    {SCRIBON_EDITOR, "an identifier",
     "a [line](editor_text.md#scribon-identifiers), which accepts letters, digits and `_`, 79 at "
     "most"},
}};

// The tab of a list.
struct ListTab {
    int token;
    const char* page;
    const char* name;
};

constexpr std::array<ListTab, 4> LIST_TABS{{
    {TOKEN_KYWD_SCAN_LIST, "scan_list_tab.md", "Scan List"},
    {TOKEN_KYWD_META_DATA, "meta_data_list_tab.md", "Meta Data List"},
    {TOKEN_KYWD_SCAN_LIST_AUX_USER, "scan_list_aux_user_tab.md", "Scan List Aux User"},
    {TOKEN_KYWD_ECM_LIST, "ecm_list_tab.md", "ECM List"},
}};
// clang-format on

QString spellingOf(const ScribonKeyword& keyword)
{
    return QString::fromLatin1(keyword.spelling);
}

QString code(const QString& text)
{
    return QStringLiteral("`%1`").arg(text);
}

QString escaped(QString text)
{
    return text.replace(QRegularExpression(QStringLiteral("([!-/:-@\\[-`{-~])")),
                        QStringLiteral("\\\\1"));
}

// A text of the program without its line breaks.
QString prose(const char* text)
{
    return escaped(QString::fromUtf8(text).simplified());
}

// A text of the program with its line breaks, each as a backslash at the end of the line.
QString proseLines(const char* text)
{
    QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = escaped(line.simplified());
    return lines.join(QStringLiteral("\\\n"));
}

constexpr const ListTab* listTabOf(const ScribonKeyword& keyword)
{
    for (const ListTab& tab : LIST_TABS) {
        if (tab.token == keyword.token)
            return &tab;
    }
    return nullptr;
}

constexpr const ValueFacts* valueFactsOf(const ScribonKeyword& keyword)
{
    for (const ValueFacts& facts : VALUE_FACTS) {
        if (facts.editor == keyword.editor)
            return &facts;
    }
    return nullptr;
}

constexpr bool everyValueIsTold()
{
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        if (listTabOf(keyword) == nullptr && valueFactsOf(keyword) == nullptr)
            return false;
    }
    return true;
}
static_assert(everyValueIsTold());

QString row(const QString& what, const QString& fact)
{
    return QStringLiteral("| %1 | %2 |\n").arg(what, fact);
}

QString valueRows(const ScribonKeyword& keyword)
{
    if (const ListTab* const tab = listTabOf(keyword)) {
        const auto link = QStringLiteral("[%2 tab](%1)");
        return row(QStringLiteral("Value"), QStringLiteral("a list, with a row on each line")) +
               row(QStringLiteral("Edited by"),
                   QStringLiteral("the rows of the ") +
                       link.arg(QLatin1String(tab->page), QLatin1String(tab->name)));
    }
    const ValueFacts* const facts = valueFactsOf(keyword);
    return row(QStringLiteral("Value"), QString::fromLatin1(facts->value)) +
           row(QStringLiteral("Edited by"), QString::fromLatin1(facts->editing));
}

QString offer(const ScribonKeyword& keyword)
{
    if (keyword.is(IN_WORD_LIST))
        return QStringLiteral("as %1 in the [list of keywords](editor_keyword.md)")
            .arg(code(keywordWord(keyword)));
    return listTabOf(keyword) == nullptr
               ? QStringLiteral("no, and [always marked](wrong_cells.md#marks-that-stay)")
               : QStringLiteral("no: it has a tab of its own");
}

QString factTable(const ScribonKeyword& keyword)
{
    const bool required = keyword.is(REQUIRED);
    return row(QStringLiteral("In the file"), code(spellingOf(keyword))) +
           QStringLiteral("|---|---|\n") +
           row(QStringLiteral("In the table"), keyword.displayName == nullptr
                                                   ? QStringLiteral("an empty cell")
                                                   : prose(keyword.displayName)) +
           row(QStringLiteral("Required"),
               required ? QStringLiteral("yes: it [cannot be removed](rows.md#remove-row)")
                        : QStringLiteral("no")) +
           row(QStringLiteral("Offered"), offer(keyword)) + valueRows(keyword);
}

// The tool tip of its combo box item, which is the longer text.
QString purpose(const ScribonKeyword& keyword)
{
    const char* const help = keyword.choiceHelp == SAME_AS_HELP ? keyword.help : keyword.choiceHelp;
    if (help == nullptr)
        return {};
    return QStringLiteral("## What it is for\n\n%1\n\n").arg(proseLines(help));
}

// The keyword's line and those behind it, up to a blank one.
QStringList statementOf(const ScribonKeyword& keyword, const QStringList& lines)
{
    const int first = lines.indexOf(spellingOf(keyword));
    if (first < 0)
        return {};
    QStringList statement = lines.mid(first, EXAMPLE_LINES);
    const int blank = statement.indexOf(QString());
    return blank < 0 ? statement : statement.mid(0, blank);
}

QString pageOf(const ScribonKeyword& keyword, const QString& title, const QStringList& exampleLines)
{
    const QStringList statement = statementOf(keyword, exampleLines);
    if (statement.isEmpty())
        return {};
    return QStringLiteral("# %1\n\n%2\n%3## Example\n\n```\n%4\n```\n")
        .arg(title, factTable(keyword), purpose(keyword), statement.join(QLatin1Char('\n')));
}

}  // namespace

QVector<KeywordPage> keywordPages(const QString& example)
{
    const QStringList lines = example.split(QLatin1Char('\n'));
    QVector<KeywordPage> pages;
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        const QString title = keyword.displayName == nullptr
                                  ? code(spellingOf(keyword))
                                  : QString::fromLatin1(keyword.displayName);
        pages.append({&keyword, QStringLiteral("keyword_%1.md").arg(keywordWord(keyword)), title,
                      pageOf(keyword, title, lines)});
    }
    return pages;
}

QString keywordTable(const QVector<KeywordPage>& pages)
{
    auto table = QStringLiteral("| In the table | In the file | Required |\n|---|---|---|\n");
    for (const KeywordPage& page : pages) {
        table += QStringLiteral("| [%1](%2) | %3 | %4 |\n")
                     .arg(page.title, page.name, code(spellingOf(*page.keyword)),
                          page.keyword->is(REQUIRED) ? QStringLiteral("yes") : QString());
    }
    return table;
}

QString statisticTable()
{
    auto table = QStringLiteral("| Member | Logs |\n|---|---|\n");
    for (const StatMember& member : SCAN_LIST_MEMBERS)
        table += row(code(QLatin1String(member.name)), prose(member.help));
    return table;
}
