#include "cellfindings.h"

#include <QSet>
#include <QTextCodec>

#include "scribon_keywords.h"

namespace {

Finding cellFinding(const SpecFile& file, const CellPlace& cell)
{
    const QModelIndex index = file.table(cell.tab).index(cell.row, cell.column);
    const bool duplicate = file.table(cell.tab).errorCode(index).toInt() == DE_DUPLICATE_ERR;
    Finding finding = findingInCell(file, cell, duplicate ? Rule::Duplicate : Rule::Syntax,
                                    file.table(cell.tab).errorText(index));
    if (finding.text.isEmpty())
        finding.hint =
            QStringLiteral("%1 is empty.").arg(fieldName(file.table(cell.tab), cell.column));
    return finding;
}

// The texts of the keywords that the file has. A section that it does not have has a row, too, but
// without a place in the file.
QSet<QString> keywordsOf(const SpecFile& file)
{
    QSet<QString> keywords;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (int row = 0; row < file.origins(tab).rowCount(); ++row) {
            if (file.origins(tab).cell(row, KEYWORD_COLUMN).size > 0)
                keywords.insert(file.cellText({tab, row, KEYWORD_COLUMN}));
        }
    }
    return keywords;
}

}  // namespace

FileRange rangeOfCell(const SpecFile& file, const CellPlace& cell)
{
    const TabOrigins& origins = file.origins(cell.tab);
    const FileRange own = origins.cell(cell.row, cell.column);
    if (own.size > 0)
        return own;
    for (int column = 0; column < origins.columnCount(); ++column) {
        const FileRange range = origins.cell(cell.row, column);
        if (range.size > 0)
            return {range.offset, 0};
    }
    return {origins.statement(cell.row).offset, 0};
}

Finding findingInCell(const SpecFile& file, const CellPlace& cell, Rule rule,
                      const QString& message)
{
    Finding finding;
    finding.rule = rule;
    finding.range = rangeOfCell(file, cell);
    finding.cell = cell;
    finding.text = file.cellText(cell);
    finding.message = message;
    return finding;
}

void addCellFindings(const SpecFile& file, std::vector<Finding>* findings)
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        file.table(tab).visitErrors([&file, tab, findings](int row, int column) {
            findings->push_back(cellFinding(file, {tab, row, column}));
        });
    }
}

void addMissingKeywords(const SpecFile& file, std::vector<Finding>* findings)
{
    const QSet<QString> keywords = keywordsOf(file);
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        const QString spelling = QString::fromLatin1(keyword.spelling);
        if (!keyword.is(REQUIRED) || keywords.contains(spelling))
            continue;
        Finding finding;
        finding.rule = Rule::MissingKeyword;
        finding.message = QStringLiteral("required keyword %1 is missing").arg(spelling);
        findings->push_back(finding);
    }
}

size_t firstByteOutsideUtf8(const QByteArray& bytes)
{
    QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    int valid = 0;
    int invalid = bytes.size();
    int begun = 0;  // bytes of a character that is not complete
    while (valid < invalid) {
        const int middle = valid + (invalid - valid + 1) / 2;
        QTextCodec::ConverterState state;
        utf8->toUnicode(bytes.constData(), middle, &state);
        if (state.invalidChars == 0) {
            valid = middle;
            begun = state.remainingChars;
        } else {
            invalid = middle - 1;
        }
    }
    return static_cast<size_t>(valid - begun);
}
