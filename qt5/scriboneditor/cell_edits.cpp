#include "cell_edits.h"

#include <array>

#include "cell_text.h"
#include "line_breaks.h"
#include "scribon_keywords.h"
#include "treeitem.h"
#include "value_kinds.h"

const ValueKind& valueKindOf(const QModelIndex& index)
{
    return valueKind(editorTypeOf(index.siblingAtColumn(KeywordsTab::KEYWORD)));
}

bool takesValue(const ValueKind& kind, int column)
{
    if (column == KeywordsTab::VALUE)
        return kind.widget != ValueWidget::None;
    return column == KeywordsTab::SECOND_VALUE && kind.second.use >= SecondValueUse::Edited;
}

// ---- Which cells have an editor ----------------------------------------------------------------

namespace {

bool opensOnKeywordsTab(const QModelIndex& index)
{
    return index.column() == KeywordsTab::KEYWORD || takesValue(valueKindOf(index), index.column());
}

bool opensOnScanList(const QModelIndex& index)
{
    if (index.column() == ScanListTab::CHANNEL)
        return !textOf(index.siblingAtColumn(ScanListTab::VARIABLE)).isEmpty();
    return index.column() == ScanListTab::VARIABLE || index.column() == ScanListTab::MEMBER;
}

bool opensOnMetaDataList(const QModelIndex& index)
{
    if (index.column() == MetaDataTab::PARAMETER)
        return !textOf(index).isEmpty();
    return index.column() == MetaDataTab::VARIABLE;
}

bool opensOnAuxUserList(const QModelIndex& index)
{
    return index.column() == AuxUserTab::VARIABLE || index.column() == AuxUserTab::ALTERNATE_NAME;
}

bool opensOnEcmList(const QModelIndex& index)
{
    if (index.column() == EcmListTab::INSTANCE)
        return isFreeText(editorTypeOf(index));
    return index.column() == EcmListTab::PATH &&
           editorTypeOf(index.siblingAtColumn(EcmListTab::INSTANCE)) != COMMENT_LINE;
}

}  // namespace

bool opensEditor(const QModelIndex& index)
{
    static constexpr std::array<bool (*)(const QModelIndex&), TAB_COUNT> CONDITIONS{
        opensOnKeywordsTab, opensOnScanList, opensOnMetaDataList, opensOnAuxUserList,
        opensOnEcmList};
    const int tab = tabOfModel(index.model());
    return tab != 0 && CONDITIONS[static_cast<size_t>(tab - EDIT_TAB1)](index);
}

// ---- Texts -------------------------------------------------------------------------------------

QString freeTextOrKeyword(const QString& value, int editorType)
{
    QString value2 = value;
    if (!value.isEmpty() && !value.startsWith(QLatin1Char('#')))
        value2 = QLatin1Char('@') + value.toUpper();
    int tok_type = 0;
    const int type = classify(value2, &tok_type);
    return type != editorType && tok_type != TOKEN_KYWD_DEFAULT ? value2.toUpper() : value;
}

namespace {

// The values that may be a text in quotes, in which the file can have line breaks.
bool takesQuotes(int tab, int column, const ValueKind& kind)
{
    if (tab == EDIT_TAB1 && column == KeywordsTab::VALUE)
        return kind.widget == ValueWidget::Line || kind.choice.hasOptionalLine();
    return tab == EDIT_TAB3 && column == MetaDataTab::VARIABLE;
}

QString withoutFiller(const QString& text)
{
    const QString trimmed = text.trimmed();
    return trimmed == FILLER_TEXT ? QString() : trimmed;
}

// A text over several lines has lost its quotes on the clipboard, or never had any in the
// spreadsheet.
QString withQuotes(const QString& text)
{
    const bool plain = text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('"'));
    return plain && !isQuoted(text) ? QLatin1Char('"') + text + QLatin1Char('"') : text;
}

// Unlike in the editor, a text may have its "@", and a comment may replace a keyword.
QString keywordText(const QString& text, int editorType)
{
    QString word = withoutLineBreaks(withoutFiller(text));
    if (word.isEmpty() || word.startsWith(QLatin1Char('#')))
        return word;
    if (word.startsWith(QLatin1Char('@')))
        return word.toUpper();
    return isFreeText(editorType) ? freeTextOrKeyword(word, editorType)
                                  : (QLatin1Char('@') + word).toUpper();
}

}  // namespace

QString pastedValue(int tab, int column, const ValueKind& kind, const QString& text)
{
    const QString value = withoutFiller(text);
    if (!takesQuotes(tab, column, kind))
        return withoutLineBreaks(value);
    const QString literal = withQuotes(value);
    return isQuoted(literal) ? literal : withoutLineBreaks(literal);
}

QString pastedKeyword(const QString& text)
{
    return keywordText(text, TEXT_BLOCK);
}

QString pastedText(const QModelIndex& index, const QString& text)
{
    const int tab = tabOfModel(index.model());
    if (tab == EDIT_TAB1 && index.column() == KeywordsTab::KEYWORD)
        return keywordText(text, editorTypeOf(index));
    return pastedValue(tab, index.column(), valueKindOf(index), text);
}
