// Validation of the five tabs: a pass sets the error codes of the cells that it checks; all other
// cells keep theirs.

#include <QHash>
#include <QSet>
#include <QtMath>
#include <array>
#include <limits>
#include <vector>

#include "keyword_words.h"
#include "textjudge.h"
#include "treeitem.h"
#include "treemodel.h"
#include "value_kinds.h"

namespace {

// Numbers of the texts of a row that must be unique.
enum UniqueSlot { NAME = 0, PATH = 1 };  // channel, parameter, alternate name, instance; ECM path

// The code of a text before it is compared with the others.
constexpr qint16 NOT_COMPARED = std::numeric_limits<qint16>::min();

// The row that is being validated, and the results of the pass so far.
class RowJudgement {
public:
    explicit RowJudgement(const FormatValidators& validators) : m_validators(validators) {}

    int errors() const { return m_errors; }
    bool changedCodes() const { return m_changedCodes; }

    void startRow(TreeItem* row) { m_row = row; }

    QString text(int column) const { return m_row->data(column).toString(); }

    bool accepts(VaidatorFormat format, const QString& text) const
    {
        return textJudge().accepts(format, text, m_validators);
    }

    void clean(int column) { setCode(column, DE_NOERROR); }
    void noField(int column) { setCode(column, DE_NOFIELD); }
    void fault(int column)
    {
        setCode(column, DE_SYNTAX_ERR);
        ++m_row->verdict().faults;
    }
    void faultOrClean(int column, bool good) { good ? clean(column) : fault(column); }

    // The text of the cell is good; whether it is a duplicate is up to compareTexts().
    void mustBeUnique(int column, const QString& text, UniqueSlot slot = NAME, bool isMarked = true)
    {
        m_row->verdict().uniqueTexts[slot] = {qHash(text), static_cast<qint16>(column),
                                              NOT_COMPARED, isMarked};
    }

    // For a cell whose text must be unique if the row is an entry.
    void uniqueOrFault(int column, bool good, bool entry, const QString& text)
    {
        if (good && entry)
            mustBeUnique(column, text);
        else
            faultOrClean(column, good);
    }

    // Judges the row if it has changed since the last pass.
    template <typename JudgeRow>
    void judgeIfChanged(JudgeRow judgeRow)
    {
        if (!m_row->isDirty())
            return;
        m_row->verdict() = {};
        judgeRow(this);
        m_row->clrDirty();
    }

    // Counts the errors of the row. Whether a text is a duplicate depends on the other rows.
    template <typename IsDuplicate>
    void compareTexts(IsDuplicate isDuplicate)
    {
        RowVerdict& verdict = m_row->verdict();
        m_errors += verdict.faults;
        for (int slot : {NAME, PATH}) {
            RowVerdict::UniqueText& unique = verdict.uniqueTexts[static_cast<size_t>(slot)];
            if (unique.column >= 0 && isDuplicate(slot, unique.hash))
                mark(&unique, DE_DUPLICATE_ERR);
            else if (unique.column >= 0)
                mark(&unique, DE_NOERROR);
        }
    }

private:
    void mark(RowVerdict::UniqueText* unique, int code)
    {
        if (!unique->isMarked)
            return;
        if (unique->code != code)
            setCode(unique->column, code);
        unique->code = static_cast<qint16>(code);
        m_errors += code == DE_DUPLICATE_ERR ? 1 : 0;
    }

    void setCode(int column, int value)
    {
        const QVariant before = m_row->errorCode(column);
        if (before.isValid() && before.toInt() == value)
            return;
        if (m_row->setErrorCode(column, value))
            m_changedCodes = true;
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

// Existing behaviour, kept for compatibility: a keyword whose value is wrong keeps its old error
// code and may occur again.
void judgeStatement(RowJudgement* row, int kind, const QString& keyword)
{
    const int valueColumn = kind == COMMENT_LINE ? KeywordsTab::KEYWORD : KeywordsTab::VALUE;
    if (!isGoodValue(*row, kind, row->text(valueColumn))) {
        row->fault(valueColumn);
        return;
    }
    row->clean(valueColumn);
    if (kind == COMMENT_LINE)
        return;
    if (keyword.startsWith(QLatin1Char('@')))
        row->mustBeUnique(KeywordsTab::KEYWORD, keyword);
    else
        row->fault(KeywordsTab::KEYWORD);
}

void judgeSecondValue(RowJudgement* row, int kind)
{
    constexpr int COLUMN = KeywordsTab::SECOND_VALUE;
    const SecondValue& second = valueKind(kind).second;
    const QString value = row->text(COLUMN);
    if (second.use == SecondValueUse::Checked && value != FILLER_TEXT)
        row->faultOrClean(COLUMN, row->accepts(second.line.format, value));
    else
        row->noField(COLUMN);
}

void judgeKeywordRow(RowJudgement* row)
{
    const QString keyword = row->text(KeywordsTab::KEYWORD);
    if (keyword.isEmpty())
        return;
    const int kind = classify(keyword);
    judgeStatement(row, kind, keyword);
    judgeSecondValue(row, kind);
}

// ---- List tabs ----------------------------------------------------------------------------------

// Whether a list row is validated, by the kind of column 1: an entry or a comment.
bool isListRow(int kind)
{
    return kind == TEXT_BLOCK || kind == COMMENT_LINE;
}

void judgeChannel(RowJudgement* row)
{
    const QString channel = row->text(ScanListTab::CHANNEL).trimmed();
    const int kind = classify(channel);
    if (!isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const bool good =
        row->accepts(entry ? ChannelName_VF : Comment_VF, channel) && channel != FILLER_TEXT;
    row->uniqueOrFault(ScanListTab::CHANNEL, good, entry, channel);
}

void judgeVariable(RowJudgement* row, int column, VaidatorFormat format, const QString& variable)
{
    row->faultOrClean(column, row->accepts(format, variable) && variable != FILLER_TEXT);
}

void judgeScanListRow(RowJudgement* row)
{
    const QString variable = row->text(ScanListTab::VARIABLE);
    const int kind = classify(variable);
    if (variable.isEmpty() || !isListRow(kind))
        return;
    if (kind == COMMENT_LINE) {
        row->faultOrClean(ScanListTab::VARIABLE, row->accepts(Comment_VF, variable));
        return;
    }
    judgeVariable(row, ScanListTab::VARIABLE, VarName_VF, variable);
    const QString member = row->text(ScanListTab::MEMBER).trimmed();
    row->faultOrClean(ScanListTab::MEMBER, member.isEmpty() || row->accepts(StatMem_VF, member));
    judgeChannel(row);
}

bool isMetaDataValue(const RowJudgement& row, const QString& value)
{
    return row.accepts(VarName_VF, value) || row.accepts(VarName_sq_VF, value) ||
           row.accepts(VarName_dblq_VF, value);
}

// The second value is validated on comment rows too; their filler is a valid variable name.
void judgeMetaDataRow(RowJudgement* row)
{
    const QString keyword = row->text(MetaDataTab::PARAMETER);
    const int kind = classify(keyword);
    if (keyword.isEmpty() || !isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const bool good = row->accepts(entry ? ParameterName_VF : Comment_VF, keyword);
    row->uniqueOrFault(MetaDataTab::PARAMETER, good, entry, keyword);
    row->faultOrClean(MetaDataTab::VARIABLE,
                      isMetaDataValue(*row, row->text(MetaDataTab::VARIABLE)));
}

void judgeAuxUserRow(RowJudgement* row)
{
    const QString variable = row->text(AuxUserTab::VARIABLE);
    const int kind = classify(variable);
    if (variable.isEmpty() || !isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    judgeVariable(row, AuxUserTab::VARIABLE, entry ? VarName_VF : Comment_VF, variable);
    const QString name = row->text(AuxUserTab::ALTERNATE_NAME);
    const bool good = row->accepts(VarName_VF, name) && !(entry && name == FILLER_TEXT);
    row->uniqueOrFault(AuxUserTab::ALTERNATE_NAME, good, entry, name);
}

// A path on a comment row is never marked as a duplicate, but makes later ones duplicates.
void judgeEcmPath(RowJudgement* row, bool entry)
{
    const QString path = row->text(EcmListTab::PATH);
    if (!entry && path == FILLER_TEXT)
        return;
    const bool good = row->accepts(ECMFilepath_VF, path);
    if (!good || !entry)
        row->faultOrClean(EcmListTab::PATH, good);
    if (good)
        row->mustBeUnique(EcmListTab::PATH, path, PATH, entry);
}

void judgeEcmRow(RowJudgement* row)
{
    const QString instance = row->text(EcmListTab::INSTANCE);
    const int kind = classify(instance);
    if (!isListRow(kind))
        return;
    const bool entry = kind == TEXT_BLOCK;
    const bool good = row->accepts(entry ? Integer_VF : Comment_VF, instance);
    row->uniqueOrFault(EcmListTab::INSTANCE, good, entry, instance);
    judgeEcmPath(row, entry);
}

// The unique texts of a list in the rows that the pass has seen, as a hash table of the rows'
// numbers: the hashes come from the verdicts, and the texts are read only where two are equal.
class SeenTexts {
public:
    explicit SeenTexts(TreeItem* root) : m_root(root) {}

    // Whether an earlier row has the text that this row has in this slot, and its hash.
    bool isRepeated(int row, int slot, uint hash)
    {
        std::vector<Place>& table = tableOf(slot);
        for (size_t i = hash;; ++i) {
            Place& place = table[i & (table.size() - 1)];
            if (place.row == NO_ROW) {
                place = {hash, row};
                return false;
            }
            if (place.hash == hash && stringOf(place.row, slot) == stringOf(row, slot))
                return true;
        }
    }

private:
    static constexpr int NO_ROW = 0;  // row 0 holds the keyword of the list

    struct Place {
        uint hash = 0;
        int row = NO_ROW;
    };

    std::vector<Place>& tableOf(int slot)
    {
        std::vector<Place>& table = m_tables[static_cast<size_t>(slot)];
        if (table.empty())
            table.resize(qNextPowerOfTwo(2U * static_cast<uint>(m_root->childCount())));
        return table;
    }

    // Blanks around a channel keyword do not count; the other texts have none, since no format
    // accepts them.
    QString stringOf(int row, int slot) const
    {
        TreeItem* const item = m_root->child(row);
        const int column = item->verdict().uniqueTexts[static_cast<size_t>(slot)].column;
        return item->data(column).toString().trimmed();
    }

    TreeItem* m_root;
    std::array<std::vector<Place>, 2> m_tables;
};

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

// Rows are single objects in memory: waiting for them would take most of a pass.
constexpr int PREFETCHED_ROWS = 8;

template <typename JudgeRow, typename IsDuplicate>
void TreeModel::validateRows(int first, JudgeRow judgeRow, IsDuplicate isDuplicate)
{
    RowJudgement judgement(de_validator);
    const int rows = rootItem->childCount();
    for (int i = first; i < rows; ++i) {
        TreeItem* const row = rootItem->child(i);
        __builtin_prefetch(rootItem->child(i + PREFETCHED_ROWS));
        judgement.startRow(row);
        judgement.judgeIfChanged(judgeRow);
        judgement.compareTexts([&](int slot, uint hash) { return isDuplicate(i, slot, hash); });
    }
    errorCount = judgement.errors();
    if (judgement.changedCodes())
        Q_EMIT codesChanged();
}

void TreeModel::visitErrors(const std::function<void(int row, int column)>& visit) const
{
    const int rows = rootItem->childCount();
    for (int i = 0; i < rows; ++i) {
        TreeItem* const row = rootItem->child(i);
        __builtin_prefetch(rootItem->child(i + PREFETCHED_ROWS));
        if (!row->verdict().hasErrors())
            continue;
        for (int column = 0; column < rootItem->columnCount(); ++column) {
            if (row->isWrong(column))
                visit(i, column);
        }
    }
}

template <typename JudgeEntry>
void TreeModel::validateList(int keywordEditor, JudgeEntry judgeEntry)
{
    if (!startListPass(keywordEditor))
        return;
    SeenTexts seen(rootItem.get());
    validateRows(1, judgeEntry, [&seen](int row, int slot, uint hash) {
        return seen.isRepeated(row, slot, hash);
    });
}

// Each word may occur once: it is removed from the list when it is found. Existing behaviour, kept
// for compatibility: a keyword that was never in the list counts as a duplicate.
void TreeModel::validate_tab1()
{
    if (!startPass())
        return;
    const QStringList offered = wordList();
    QSet<QString> words(offered.begin(), offered.end());
    validateRows(0, judgeKeywordRow, [&](int row, int /*slot*/, uint /*hash*/) {
        const TreeItem* const item = rootItem->child(row);
        return !words.remove(keywordWord(item->data(KeywordsTab::KEYWORD).toString()));
    });
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
