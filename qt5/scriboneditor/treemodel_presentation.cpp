// How cells look: their colour, the arrow that says that a list can be opened there, their tool
// tips, and which of them are comments.

#include <QColor>
#include <array>

#include "editor_access.h"
#include "keyword_words.h"
#include "shown_text.h"
#include "textjudge.h"
#include "treemodel.h"
#include "value_kinds.h"

namespace {

constexpr int ANY_COLUMN = -1;

// The tool tip of a cell, and what is appended for a syntax error or a duplicate.
struct CellTip {
    int kind;  // editor type of the keyword (Keywords tab) or number of the tab (list tabs)
    int column;
    const char* tip;
    const char* syntaxMsg;
    const char* duplicateMsg;
};

// clang-format off
constexpr std::array<CellTip, 18> CELL_TIPS{{
    {DESCRIPTION_EDITOR, ANY_COLUMN, "Enter a computed expression",
     "\n Computed expression must begin and end with double-quotes or single-quotes >>\n\n"
     "Examples:\n '/data/testfile.dat' \n \"'Brenno_sim_test' + '.'+ @year_month_day() + '.csv'\" ", ""},
    {DIR_PATH_EDITOR, ANY_COLUMN, "Enter the directory path",
     "<<Invalid chars in directory path>>", ""},
    {EVENT_EDITOR, ANY_COLUMN, "Enter a event name",
     "<< Invalid chars in event name\nValid chars: A-Z,a-z,_,0-9: Max Length 32>>", ""},
    {SCAN_INTERVAL_EDITOR, ANY_COLUMN, "Scan Interval",
     "\nInvalid Scan Interval or Integer variable>>", ""},
    {MARVANE_VAR_EDITOR, ANY_COLUMN, "Select a variable name",
     "\nInvalid chars in variable name>>", ""},
    {LOGICAL_VAR_EDITOR, ANY_COLUMN, "Select a logical name",
     "\nInvalid chars in variable name>>", ""},
    {STRING_VAR_EDITOR, ANY_COLUMN, "Select a string variable",
     "\nInvalid chars in variable name>>", ""},
    {INTEGER_TIME_INT_EDITOR, KeywordsTab::VALUE, "Enter a time interval with units\n Example: 10[msec]",
     "\nInvalid chars in variable name >>", ""},
    {INTEGER_TIME_INT_EDITOR, KeywordsTab::SECOND_VALUE, "Enter a event name",
     "\nInvalid chars in event name>>", ""},

    {EDIT_TAB2, ScanListTab::VARIABLE, "Click to select a Marvane Variable",
     "\nInvalid chars in variable name>>", ""},
    {EDIT_TAB2, ScanListTab::MEMBER, "Click to select a statistical member",
     "\nInvalid statistical member>>", ""},
    {EDIT_TAB2, ScanListTab::CHANNEL, "Click to select a Channel Keyword",
     "\n Invalid chars in keyword>>", " Duplicate Channel >>"},
    {EDIT_TAB3, MetaDataTab::PARAMETER, "Click to select a PAM keyword",
     "\n Invalid chars in PAM keyword>>", " Duplicate keyword found!  >>"},
    {EDIT_TAB3, MetaDataTab::VARIABLE, "Click to select a Marvane variable",
     "\nInvalid chars in variable name>>", ""},
    {EDIT_TAB4, AuxUserTab::VARIABLE, "Click to select a Marvane variable",
     "\nInvalid chars in variable name >>", ""},
    {EDIT_TAB4, AuxUserTab::ALTERNATE_NAME, "Click to enter or modify a alternate name",
     "\nInvalid chars in variable name>>", " Duplicate alternate name>>"},
    {EDIT_TAB5, EcmListTab::INSTANCE, "Click to enter ECM instance",
     "\nInvalid chars in ECM instance >>", "\nDuplicate ECM instance >>"},
    {EDIT_TAB5, EcmListTab::PATH, "Click to Select ASAM3_specs path",
     "\nInvalid chars in path>>", "\nDuplicate path >>"},
}};
// clang-format on

constexpr CellTip NO_TIP{0, ANY_COLUMN, "", "", ""};

// What is appended to the help on a keyword.
constexpr const char* INVALID_KEYWORD = "\nInvalid keyword found! >>";
constexpr const char* DUPLICATE_KEYWORD = "\n<< Duplicate entry found! >>";

const CellTip& cellTip(int kind, int column)
{
    for (const CellTip& row : CELL_TIPS) {
        if (row.kind == kind && (row.column == ANY_COLUMN || row.column == column))
            return row;
    }
    return NO_TIP;
}

QString textAt(const QModelIndex& index, int column)
{
    return index.siblingAtColumn(column).data(Qt::DisplayRole).toString();
}

// The tip of a cell that is not in column 0.
const CellTip& valueTip(const QModelIndex& index, int tab)
{
    const int kind = tab == EDIT_TAB1 ? classify(textAt(index, KEYWORD_COLUMN)) : tab;
    return cellTip(kind, index.column());
}

// What a tool tip appends for this error code.
QString errorPart(const QModelIndex& index, int tab, int code)
{
    const bool syntax = code == DE_SYNTAX_ERR;
    if (index.column() == KEYWORD_COLUMN)
        return QString::fromLatin1(syntax ? INVALID_KEYWORD : DUPLICATE_KEYWORD);
    const CellTip& row = valueTip(index, tab);
    return QString::fromLatin1(syntax ? row.syntaxMsg : row.duplicateMsg);
}

bool beginsWith(const QString& text, const QString& typed)
{
    return text != FILLER_TEXT && (text.startsWith(typed, Qt::CaseInsensitive) ||
                                   shownText(text).startsWith(typed, Qt::CaseInsensitive));
}

QString firstLineWithoutBrackets(QString text)
{
    text.remove(QLatin1String("<<")).remove(QLatin1String(">>"));
    return text.trimmed().section(QLatin1Char('\n'), 0, 0).trimmed();
}

}  // namespace

QVariant TreeModel::colour(const QModelIndex& index) const
{
    if (errorCode(index).toInt() != DE_NOERROR)
        return editorAccess().preferences().syntaxColor;
    return QColor(Qt::black);
}

// The arrow marks a cell without error whose editor is a list or a dialog.
bool TreeModel::hasArrow(const QModelIndex& index) const
{
    const int tab = tabOfModel(this);
    if (tab == 0)
        return false;
    return tab == EDIT_TAB1 ? keywordHasArrow(index) : entryHasArrow(index, tab);
}

bool TreeModel::keywordHasArrow(const QModelIndex& index) const
{
    const int column = index.column();
    const int keywordKind = classify(textAt(index, KeywordsTab::KEYWORD));
    return keywordKind != COMMENT_LINE && errorCode(index).toInt() == DE_NOERROR &&
           (column == KeywordsTab::KEYWORD ||
            (column == KeywordsTab::VALUE && valueKind(keywordKind).hasArrow));
}

// On the Scan List the error code of the variable decides for all cells of the row.
bool TreeModel::entryHasArrow(const QModelIndex& index, int tab) const
{
    const int column = index.column();
    const bool scanList = tab == EDIT_TAB2;
    const QModelIndex judged = scanList ? index.siblingAtColumn(ScanListTab::VARIABLE) : index;
    if (!index.data(Qt::DisplayRole).isValid() || errorCode(judged).toInt() != DE_NOERROR ||
        classify(textAt(index, ENTRY_COLUMN)) == COMMENT_LINE)
        return false;
    if (tab == EDIT_TAB5)
        return column == EcmListTab::PATH;
    const int ownKind = classify(textAt(index, column));
    if (ownKind == COMMENT_LINE)
        return false;
    if (scanList)
        return column == ScanListTab::VARIABLE || column == ScanListTab::CHANNEL ||
               (column == ScanListTab::MEMBER && ownKind == STAT_MEM_EDITOR);
    return column == ENTRY_COLUMN || (column == MetaDataTab::VARIABLE && tab == EDIT_TAB3);
}

// Return the text: it sets HasDecoration, which reserves space for the delegate's error icon.
QVariant TreeModel::decoration(const QModelIndex& index) const
{
    if (!hasArrow(index))
        return getItem(index)->data(index.column());
    if (arrowIcon.isNull()) {
        const bool keywords = tabOfModel(this) == EDIT_TAB1;
        arrowIcon = QIcon(keywords ? QStringLiteral(":/resources/arrow-down.png")
                                   : QStringLiteral(":resources/arrow-down.png"));
    }
    return arrowIcon;
}

// Help on the keyword, and what is wrong with it.
QVariant TreeModel::keywordToolTip(const QModelIndex& index) const
{
    const QString text = textAt(index, KEYWORD_COLUMN);
    const QString key = text.startsWith(QLatin1Char('@')) ? keywordWord(text).trimmed() : text;
    QString help = editorAccess().keywordHelp(key);
    const int code = errorCode(index).toInt();
    if (code == DE_DUPLICATE_ERR)
        help += QString::fromLatin1(DUPLICATE_KEYWORD);
    if (code == DE_SYNTAX_ERR)
        help += QString::fromLatin1(INVALID_KEYWORD);
    return help;
}

QVariant TreeModel::toolTip(const QModelIndex& index) const
{
    const int tab = tabOfModel(this);
    if (tab == 0)
        return {};
    const int column = index.column();
    if (column == KEYWORD_COLUMN && index.data(Qt::DisplayRole).canConvert<QString>())
        return keywordToolTip(index);
    const CellTip& row = column == KEYWORD_COLUMN ? NO_TIP : valueTip(index, tab);
    QString tip = QString::fromLatin1(row.tip);
    const int code = errorCode(index).toInt();
    if (code == DE_SYNTAX_ERR)
        tip += QStringLiteral("\n<< Syntax Error! ") + QString::fromLatin1(row.syntaxMsg);
    if (code == DE_DUPLICATE_ERR)
        tip += QStringLiteral("\n<< ") + QString::fromLatin1(row.duplicateMsg);
    return tip.isEmpty() ? QVariant() : tip;
}

QString TreeModel::errorText(const QModelIndex& index) const
{
    const int code = errorCode(index).toInt();
    if (code != DE_SYNTAX_ERR && code != DE_DUPLICATE_ERR)
        return {};
    const QString text = firstLineWithoutBrackets(errorPart(index, tabOfModel(this), code));
    return text.isEmpty() ? QStringLiteral("Syntax Error!") : text;
}

// QTreeView::keyboardSearch() asks for one cell of the current column by these flags.
QModelIndexList TreeModel::match(const QModelIndex& start, int role, const QVariant& value,
                                 int hits, Qt::MatchFlags flags) const
{
    if (role != Qt::DisplayRole || hits != 1 || flags != (Qt::MatchStartsWith | Qt::MatchWrap))
        return QAbstractItemModel::match(start, role, value, hits, flags);
    const QString typed = value.toString();
    const int rows = rowCount();
    for (int i = 0; i < rows; ++i) {
        const QModelIndex cell = index((start.row() + i) % rows, start.column());
        if (beginsWith(cell.data(role).toString(), typed))
            return {cell};
    }
    return {};
}

void TreeModel::visitTexts(
    const std::function<void(int row, int column, const QString& text)>& visit) const
{
    const int rows = rootItem->childCount();
    const int columns = rootItem->columnCount();
    for (int i = 0; i < rows; ++i) {
        const TreeItem* const row = rootItem->child(i);
        for (int column = 0; column < columns; ++column)
            visit(i, column, row->data(column).toString());
    }
}

bool TreeModel::isComment(int row) const
{
    const TreeItem* const item = rootItem->child(row);
    return tabIndexNumber == EDIT_TAB1 && item != nullptr &&
           classify(item->data(KeywordsTab::KEYWORD).toString()) == COMMENT_LINE;
}
