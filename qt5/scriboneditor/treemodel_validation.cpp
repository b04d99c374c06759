// Validation of the five tabs: a pass sets the error codes of the cells that it checks; all other
// cells keep theirs.

#include <QSet>
#include <array>

#include "keyword_words.h"
#include "textjudge.h"
#include "treeitem.h"
#include "treemodel.h"
#include "value_kinds.h"

namespace {

// The row that is being validated, and the results of the pass so far.
class RowJudgement {
public:
    explicit RowJudgement(const FormatValidators& validators) : m_validators(validators) {}

    int errors() const { return m_errors; }
    bool changedCodes() const { return m_changedCodes; }

    // Ends the current row and starts the next one.
    void startRow(TreeItem* row) { m_row = row; }
    void endRow() { m_row->clrDirty(); }

    QString text(int column) const { return m_row->data(column).toString(); }

    // Whether the cell passes the test. For a row whose texts have not changed, the error code of
    // the last pass gives the answer.
    template <typename Test>
    bool passes(int column, Test test) const
    {
        return m_row->isDirty() ? test() : code(column) != DE_SYNTAX_ERR;
    }
    bool matches(int column, VaidatorFormat format, const QString& text) const
    {
        return passes(column, [&] { return accepts(format, text); });
    }
    bool accepts(VaidatorFormat format, const QString& text) const
    {
        return textJudge().accepts(format, text, m_validators);
    }

    void clean(int column) { setCode(column, DE_NOERROR); }
    void noField(int column) { setCode(column, DE_NOFIELD); }
    void fault(int column) { count(column, DE_SYNTAX_ERR); }
    void duplicate(int column) { count(column, DE_DUPLICATE_ERR); }
    void faultOrClean(int column, bool good) { good ? clean(column) : fault(column); }

    // For a cell whose text must be unique in the tab, if it is good and the row is an entry: only
    // the first one is without error.
    void unique(int column, bool good, bool entry, const QString& text, QSet<QString>* seen)
    {
        if (!good || !entry) {
            faultOrClean(column, good);
        } else if (seen->contains(text)) {
            duplicate(column);
        } else {
            seen->insert(text);
            clean(column);
        }
    }

private:
    int code(int column) const { return m_row->errorCode(column).toInt(); }

    void setCode(int column, int value)
    {
        const QVariant before = m_row->errorCode(column);
        if (before.isValid() && before.toInt() == value)
            return;
        if (m_row->setErrorCode(column, value))
            m_changedCodes = true;
    }

    void count(int column, int value)
    {
        setCode(column, value);
        ++m_errors;
    }

    const FormatValidators& m_validators;
    TreeItem* m_row = nullptr;
    int m_errors = 0;
    bool m_changedCodes = false;
};

// ---- Keywords tab -------------------------------------------------------------------------------

bool isGoodValue(const RowJudgement& row, int kind, const QString& value)
{
    const ValueKind& facts = valueKind(kind);
    const auto matches = [&](VaidatorFormat format) { return row.accepts(format, value); };
    return facts.value.format == NO_FORMAT || matches(facts.value.format) ||
           (facts.choice.hasOptionalLine() && matches(facts.choice.optionalFormat));
}

// Each word of the list may occur once: it is removed from the list when it is found. Existing
// behaviour, kept for compatibility: a keyword that was never in the list counts as a duplicate.
void judgeKeyword(RowJudgement* row, const QString& keyword, QSet<QString>* words)
{
    if (!keyword.startsWith(QLatin1Char('@')))
        row->fault(KeywordsTab::KEYWORD);
    else if (words->remove(keywordWord(keyword)))
        row->clean(KeywordsTab::KEYWORD);
    else
        row->duplicate(KeywordsTab::KEYWORD);
}

// Existing behaviour, kept for compatibility: a keyword whose value is wrong keeps its old error
// code and stays in the list.
void judgeStatement(RowJudgement* row, int kind, const QString& keyword, QSet<QString>* words)
{
    const int valueColumn = kind == COMMENT_LINE ? KeywordsTab::KEYWORD : KeywordsTab::VALUE;
    const QString value = row->text(valueColumn);
    if (!row->passes(valueColumn, [&] { return isGoodValue(*row, kind, value); })) {
        row->fault(valueColumn);
        return;
    }
    row->clean(valueColumn);
    if (kind != COMMENT_LINE)
        judgeKeyword(row, keyword, words);
}

void judgeSecondValue(RowJudgement* row, int kind)
{
    constexpr int COLUMN = KeywordsTab::SECOND_VALUE;
    const SecondValue& second = valueKind(kind).second;
    const QString value = row->text(COLUMN);
    if (second.use == SecondValueUse::Checked && value != FILLER_TEXT)
        row->faultOrClean(COLUMN, row->matches(COLUMN, second.line.format, value));
    else
        row->noField(COLUMN);
}

void judgeKeywordRow(RowJudgement* row, QSet<QString>* words)
{
    const QString keyword = row->text(KeywordsTab::KEYWORD);
    if (keyword.isEmpty())
        return;
    const int kind = classify(keyword);
    judgeStatement(row, kind, keyword, words);
    judgeSecondValue(row, kind);
}

// ---- List tabs ----------------------------------------------------------------------------------

// Whether a list row is validated, by the kind of column 1: an entry or a comment.
bool isListRow(int kind)
{
    return kind == TEXT_BLOCK || kind == COMMENT_LINE;
}

// The texts of the columns whose texts must be unique, as far as the pass has come.
struct SeenTexts {
    explicit SeenTexts(int rows) { names.reserve(rows); }

    QSet<QString> names;  // channels, parameters, alternate names, instances
    QSet<QString> paths;
};

void judgeChannel(RowJudgement* row, QSet<QString>* channels)
{
    constexpr int COLUMN = ScanListTab::CHANNEL;
    const QString channel = row->text(COLUMN).trimmed();
    const int kind = classify(channel);
    if (!isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const bool good = row->passes(COLUMN, [&] {
        return row->accepts(entry ? ChannelName_VF : Comment_VF, channel) && channel != FILLER_TEXT;
    });
    row->unique(COLUMN, good, entry, channel, channels);
}

void judgeVariable(RowJudgement* row, int column, VaidatorFormat format, const QString& variable)
{
    row->faultOrClean(column, row->passes(column, [&] {
        return row->accepts(format, variable) && variable != FILLER_TEXT;
    }));
}

void judgeScanListRow(RowJudgement* row, SeenTexts* seen)
{
    const QString variable = row->text(ScanListTab::VARIABLE);
    const int kind = classify(variable);
    if (variable.isEmpty() || !isListRow(kind))
        return;
    if (kind == COMMENT_LINE) {
        row->faultOrClean(ScanListTab::VARIABLE,
                          row->matches(ScanListTab::VARIABLE, Comment_VF, variable));
        return;
    }
    judgeVariable(row, ScanListTab::VARIABLE, VarName_VF, variable);
    const QString member = row->text(ScanListTab::MEMBER).trimmed();
    row->faultOrClean(ScanListTab::MEMBER,
                      member.isEmpty() || row->matches(ScanListTab::MEMBER, StatMem_VF, member));
    judgeChannel(row, &seen->names);
}

bool isMetaDataValue(const RowJudgement& row, const QString& value)
{
    return row.accepts(VarName_VF, value) || row.accepts(VarName_sq_VF, value) ||
           row.accepts(VarName_dblq_VF, value);
}

// The second value is validated on comment rows too; their filler is a valid variable name.
void judgeMetaDataRow(RowJudgement* row, SeenTexts* seen)
{
    const QString keyword = row->text(MetaDataTab::PARAMETER);
    const int kind = classify(keyword);
    if (keyword.isEmpty() || !isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const auto format = entry ? ParameterName_VF : Comment_VF;
    row->unique(MetaDataTab::PARAMETER, row->matches(MetaDataTab::PARAMETER, format, keyword),
                entry, keyword, &seen->names);
    const QString value = row->text(MetaDataTab::VARIABLE);
    row->faultOrClean(MetaDataTab::VARIABLE, row->passes(MetaDataTab::VARIABLE, [&] {
        return isMetaDataValue(*row, value);
    }));
}

void judgeAuxUserRow(RowJudgement* row, SeenTexts* seen)
{
    const QString variable = row->text(AuxUserTab::VARIABLE);
    const int kind = classify(variable);
    if (variable.isEmpty() || !isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    judgeVariable(row, AuxUserTab::VARIABLE, entry ? VarName_VF : Comment_VF, variable);
    const QString name = row->text(AuxUserTab::ALTERNATE_NAME);
    const bool good = row->passes(AuxUserTab::ALTERNATE_NAME, [&] {
        return row->accepts(VarName_VF, name) && !(entry && name == FILLER_TEXT);
    });
    row->unique(AuxUserTab::ALTERNATE_NAME, good, entry, name, &seen->names);
}

// A path on a comment row is never marked as a duplicate, but makes later ones duplicates.
void judgeEcmPath(RowJudgement* row, bool entry, QSet<QString>* paths)
{
    const QString path = row->text(EcmListTab::PATH);
    if (!entry && path == FILLER_TEXT)
        return;
    const bool good = row->matches(EcmListTab::PATH, ECMFilepath_VF, path);
    row->unique(EcmListTab::PATH, good, entry, path, paths);
    if (good)
        paths->insert(path);
}

void judgeEcmRow(RowJudgement* row, SeenTexts* seen)
{
    const QString instance = row->text(EcmListTab::INSTANCE);
    const int kind = classify(instance);
    if (!isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const auto format = entry ? Integer_VF : Comment_VF;
    row->unique(EcmListTab::INSTANCE, row->matches(EcmListTab::INSTANCE, format, instance), entry,
                instance, &seen->names);
    judgeEcmPath(row, entry, &seen->paths);
}

}  // namespace

void TreeModel::validate_model()
{
    static constexpr std::array<void (TreeModel::*)(), TAB_COUNT> PASSES{
        &TreeModel::validate_tab1, &TreeModel::validate_tab2, &TreeModel::validate_tab3,
        &TreeModel::validate_tab4, &TreeModel::validate_tab5};
    if (tabIndexNumber >= EDIT_TAB1 && tabIndexNumber <= EDIT_TAB5)
        (this->*PASSES[tabIndexNumber - EDIT_TAB1])();
}

// Skips a pass if no row or code has changed since the last one: the timer requests one twice a
// second while a tab has errors.
bool TreeModel::startPass()
{
    const bool due = dirty && touched;
    dirty = false;
    if (!due)
        return false;
    touched = false;
    errorCount = 0;
    return true;
}

// A list is validated only if its first row holds the section's keyword.
bool TreeModel::startListPass(int keywordEditor)
{
    if (!startPass() || rootItem->childCount() == 0)
        return false;
    const QString keyword = rootItem->child(0)->data(KEYWORD_COLUMN).toString();
    return !keyword.isEmpty() && classify(keyword) == keywordEditor;
}

template <typename JudgeRow>
void TreeModel::validateRows(int first, JudgeRow judgeRow)
{
    RowJudgement judgement(de_validator);
    for (int i = first; i < rootItem->childCount(); ++i) {
        judgement.startRow(rootItem->child(i));
        judgeRow(&judgement);
        judgement.endRow();
    }
    errorCount = judgement.errors();
    if (judgement.changedCodes())
        Q_EMIT codesChanged();
}

template <typename JudgeEntry>
void TreeModel::validateList(int keywordEditor, JudgeEntry judgeEntry)
{
    if (!startListPass(keywordEditor))
        return;
    SeenTexts seen(rootItem->childCount());
    validateRows(1, [&](RowJudgement* row) { judgeEntry(row, &seen); });
}

void TreeModel::validate_tab1()
{
    if (!startPass())
        return;
    const QStringList offered = wordList();
    QSet<QString> words(offered.begin(), offered.end());
    validateRows(0, [&words](RowJudgement* row) { judgeKeywordRow(row, &words); });
}

void TreeModel::validate_tab2()
{
    validateList(SCAN_LIST_EDITOR, judgeScanListRow);
}

void TreeModel::validate_tab3()
{
    validateList(SCAN_LIST_EDITOR, judgeMetaDataRow);
}

void TreeModel::validate_tab4()
{
    validateList(SCAN_LIST_EDITOR, judgeAuxUserRow);
}

void TreeModel::validate_tab5()
{
    validateList(ECM_LIST_EDITOR, judgeEcmRow);
}
