// Validation of the five tabs: a pass sets the error codes of the cells that it checks; all other
// cells keep theirs.

#include <QSet>

#include "keyword_words.h"
#include "treeitem.h"
#include "treemodel.h"

namespace {

// The row that is being validated, and the results of the pass so far.
class RowJudgement {
public:
    explicit RowJudgement(const TextJudge& judge) : m_judge(judge) {}

    int errors() const { return m_errors; }
    bool changedCodes() const { return m_changedCodes; }

    // Ends the current row and starts the next one.
    void startRow(TreeItem* row) { m_row = row; }
    void endRow() { m_row->clrDirty(); }

    QString text(int column) const { return m_row->data(column).toString(); }
    int kindOf(const QString& text) const { return m_judge.editorType(text); }

    // Whether the cell passes the test. For a row whose texts have not changed, the error code of
    // the last pass gives the answer.
    template <typename Test>
    bool passes(int column, Test test) const
    {
        return m_row->isDirty() ? test() : code(column) != DE_SYNTAX_ERR;
    }
    bool matches(int column, VaidatorFormat format, const QString& text) const
    {
        return passes(column, [&] { return m_judge.accepts(format, text); });
    }
    bool accepts(VaidatorFormat format, const QString& text) const
    {
        return m_judge.accepts(format, text);
    }

    void clean(int column) { setCode(column, DE_NOERROR); }
    void noField(int column) { setCode(column, DE_NOFIELD); }
    void fault(int column) { count(column, DE_SYNTAX_ERR); }
    void duplicate(int column) { count(column, DE_DUPLICATE_ERR); }
    void faultOrClean(int column, bool good) { good ? clean(column) : fault(column); }

    // For a valid cell whose text must be unique in the tab: only the first one is without error.
    void unique(int column, const QString& text, QSet<QString>* seen)
    {
        if (seen->contains(text)) {
            duplicate(column);
            return;
        }
        seen->insert(text);
        clean(column);
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

    const TextJudge& m_judge;
    TreeItem* m_row = nullptr;
    int m_errors = 0;
    bool m_changedCodes = false;
};

// ---- Keywords tab -------------------------------------------------------------------------------

bool isGoodValue(const RowJudgement& row, int kind, const QString& value)
{
    switch (kind) {
        case EVENT_EDITOR:
            return row.accepts(Event_Name_VF, value);
        case YESNO_EDITOR:
            return row.accepts(Yesno_VF, value);
        case FLOAT_UNIT_EDITOR:
        case INTEGER_TIME_INT_EDITOR:
            return row.accepts(Interval_VF, value);
        case INTEGER_EDITOR:
            return row.accepts(Integer_VF, value);
        case COMMENT_LINE:
            return row.accepts(Comment_VF, value);
        case NOEDITOR:
            return true;
        case LOGICAL_VAR_EDITOR:
        case STRING_VAR_EDITOR:
        case SCAN_LIST_EDITOR:
            return row.accepts(VarName_VF, value);
        case DESCRIPTION_EDITOR:
            return row.accepts(Descript_VF, value);
        case REGNAME_EDITOR:
            return row.accepts(RegName_VF, value);
        case SCAN_INTERVAL_EDITOR:
            return row.accepts(VarName_VF, value) || row.accepts(Interval_VF, value);
        case DIR_PATH_EDITOR:
            return row.accepts(VarName_VF, value) || row.accepts(FilePath_VF, value);
        case SCRIBON_EDITOR:
            return row.accepts(Scribonid_VF, value);
        default:
            return row.accepts(Default_VF, value);
    }
}

// Each word of the list may occur once: it is removed from the list when it is found. Existing
// behaviour, kept for compatibility: a keyword that was never in the list counts as a duplicate.
void judgeKeyword(RowJudgement* row, const QString& keyword, QSet<QString>* words)
{
    if (!keyword.startsWith(QLatin1Char('@')))
        row->fault(0);
    else if (words->remove(keywordWord(keyword)))
        row->clean(0);
    else
        row->duplicate(0);
}

// Existing behaviour, kept for compatibility: a keyword whose value is wrong keeps its old error
// code and stays in the list.
void judgeStatement(RowJudgement* row, int kind, const QString& keyword, QSet<QString>* words)
{
    const int valueColumn = kind == COMMENT_LINE ? 0 : 1;
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
    const QString value = row->text(2);
    if (kind == INTEGER_TIME_INT_EDITOR && value != FILLER_TEXT)
        row->faultOrClean(2, row->matches(2, Event_Name_VF, value));
    else
        row->noField(2);
}

void judgeKeywordRow(RowJudgement* row, QSet<QString>* words)
{
    const QString keyword = row->text(0);
    if (keyword.isEmpty())
        return;
    const int kind = row->kindOf(keyword);
    judgeStatement(row, kind, keyword, words);
    judgeSecondValue(row, kind);
}

// ---- List tabs ----------------------------------------------------------------------------------

// Whether a list row is validated, by the kind of column 1: an entry or a comment.
bool isListRow(int kind)
{
    return kind == TEXT_BLOCK || kind == COMMENT_LINE;
}

void judgeChannel(RowJudgement* row, QSet<QString>* channels)
{
    const QString channel = row->text(3).trimmed();
    const int kind = row->kindOf(channel);
    if (!isListRow(kind))
        return;
    const auto format = kind == TEXT_BLOCK ? ChannelName_VF : Comment_VF;
    const bool good =
        row->passes(3, [&] { return row->accepts(format, channel) && channel != FILLER_TEXT; });
    if (good && kind == TEXT_BLOCK)
        row->unique(3, channel, channels);
    else
        row->faultOrClean(3, good);
}

void judgeScanListRow(RowJudgement* row, QSet<QString>* channels)
{
    const QString variable = row->text(1);
    const int kind = row->kindOf(variable);
    if (variable.isEmpty() || !isListRow(kind))
        return;
    if (kind == COMMENT_LINE) {
        row->faultOrClean(1, row->matches(1, Comment_VF, variable));
        return;
    }
    row->faultOrClean(1, row->passes(1, [&] {
        return row->accepts(VarName_VF, variable) && variable != FILLER_TEXT;
    }));
    const QString member = row->text(2).trimmed();
    row->faultOrClean(2, member.isEmpty() || row->matches(2, StatMem_VF, member));
    judgeChannel(row, channels);
}

bool isMetaDataValue(const RowJudgement& row, const QString& value)
{
    return row.accepts(VarName_VF, value) || row.accepts(VarName_sq_VF, value) ||
           row.accepts(VarName_dblq_VF, value);
}

// The second value is validated on comment rows too; their filler is a valid variable name.
void judgeMetaDataRow(RowJudgement* row, QSet<QString>* keywords)
{
    const QString keyword = row->text(1);
    const int kind = row->kindOf(keyword);
    if (keyword.isEmpty() || !isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const bool good = row->matches(1, entry ? ParameterName_VF : Comment_VF, keyword);
    if (good && entry)
        row->unique(1, keyword, keywords);
    else
        row->faultOrClean(1, good);
    const QString value = row->text(2);
    row->faultOrClean(2, row->passes(2, [&] { return isMetaDataValue(*row, value); }));
}

void judgeAuxUserRow(RowJudgement* row, QSet<QString>* names)
{
    const QString variable = row->text(1);
    const int kind = row->kindOf(variable);
    if (variable.isEmpty() || !isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    row->faultOrClean(1, row->passes(1, [&] {
        return row->accepts(entry ? VarName_VF : Comment_VF, variable) && variable != FILLER_TEXT;
    }));
    const QString name = row->text(2);
    const bool good = row->passes(
        2, [&] { return row->accepts(VarName_VF, name) && !(entry && name == FILLER_TEXT); });
    if (good && entry)
        row->unique(2, name, names);
    else
        row->faultOrClean(2, good);
}

// A path on a comment row is never marked as a duplicate, but makes later ones duplicates.
void judgeEcmPath(RowJudgement* row, bool entry, QSet<QString>* paths)
{
    const QString path = row->text(2);
    if (!entry && path == FILLER_TEXT)
        return;
    const bool good = row->matches(2, ECMFilepath_VF, path);
    if (good && entry)
        row->unique(2, path, paths);
    else
        row->faultOrClean(2, good);
    if (good)
        paths->insert(path);
}

void judgeEcmRow(RowJudgement* row, QSet<QString>* instances, QSet<QString>* paths)
{
    const QString instance = row->text(1);
    const int kind = row->kindOf(instance);
    if (!isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const bool good = row->matches(1, entry ? Integer_VF : Comment_VF, instance);
    if (good && entry)
        row->unique(1, instance, instances);
    else
        row->faultOrClean(1, good);
    judgeEcmPath(row, entry, paths);
}

// Validates the root's rows from `first` on.
template <typename JudgeRow>
RowJudgement judgeRows(TreeItem* root, const TextJudge& judge, int first, JudgeRow judgeRow)
{
    RowJudgement judgement(judge);
    for (int i = first; i < root->childCount(); ++i) {
        judgement.startRow(root->child(i));
        judgeRow(&judgement);
        judgement.endRow();
    }
    return judgement;
}

QSet<QString> emptySet(const TreeItem& root)
{
    QSet<QString> set;
    set.reserve(root.childCount());
    return set;
}

}  // namespace

void TreeModel::validate_model()
{
    switch (tabIndexNumber) {
        case EDIT_TAB1:
            validate_tab1();
            break;
        case EDIT_TAB2:
            validate_tab2();
            break;
        case EDIT_TAB3:
            validate_tab3();
            break;
        case EDIT_TAB4:
            validate_tab4();
            break;
        case EDIT_TAB5:
            validate_tab5();
            break;
        default:
            break;
    }
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
    const QString keyword = rootItem->child(0)->data(0).toString();
    return !keyword.isEmpty() && judge.editorType(keyword) == keywordEditor;
}

void TreeModel::endPass(const int errors, const bool changedCodes)
{
    errorCount = errors;
    if (changedCodes)
        Q_EMIT codesChanged();
}

void TreeModel::validate_tab1()
{
    if (!startPass())
        return;
    const QStringList offered = wordList();
    QSet<QString> words(offered.begin(), offered.end());
    const auto pass = judgeRows(rootItem.get(), judge, 0,
                                [&words](RowJudgement* row) { judgeKeywordRow(row, &words); });
    endPass(pass.errors(), pass.changedCodes());
}

void TreeModel::validate_tab2()
{
    if (!startListPass(SCAN_LIST_EDITOR))
        return;
    QSet<QString> channels = emptySet(*rootItem);
    const auto pass = judgeRows(rootItem.get(), judge, 1, [&channels](RowJudgement* row) {
        judgeScanListRow(row, &channels);
    });
    endPass(pass.errors(), pass.changedCodes());
}

void TreeModel::validate_tab3()
{
    if (!startListPass(SCAN_LIST_EDITOR))
        return;
    QSet<QString> keywords = emptySet(*rootItem);
    const auto pass = judgeRows(rootItem.get(), judge, 1, [&keywords](RowJudgement* row) {
        judgeMetaDataRow(row, &keywords);
    });
    endPass(pass.errors(), pass.changedCodes());
}

void TreeModel::validate_tab4()
{
    if (!startListPass(SCAN_LIST_EDITOR))
        return;
    QSet<QString> names = emptySet(*rootItem);
    const auto pass = judgeRows(rootItem.get(), judge, 1,
                                [&names](RowJudgement* row) { judgeAuxUserRow(row, &names); });
    endPass(pass.errors(), pass.changedCodes());
}

void TreeModel::validate_tab5()
{
    if (!startListPass(ECM_LIST_EDITOR))
        return;
    QSet<QString> instances = emptySet(*rootItem);
    QSet<QString> paths = emptySet(*rootItem);
    const auto pass = judgeRows(rootItem.get(), judge, 1, [&instances, &paths](RowJudgement* row) {
        judgeEcmRow(row, &instances, &paths);
    });
    endPass(pass.errors(), pass.changedCodes());
}
