// Writes the rows of a tab as spec file text.

#include <QFile>
#include <QTextStream>

#include "treeitem.h"
#include "treemodel.h"

namespace {

// Writes rows as spec file text. The maximum number of values in a line depends on the last keyword
// that was written, so one writer is used for all rows of a tab.
class RowWriter {
public:
    explicit RowWriter(QTextStream* out) : m_out(out) {}

    void write(const TreeItem& row, int rowNumber);

private:
    // Writes one cell; returns false if the rest of the row is not to be written.
    bool writeCell(const QString& text, int rowNumber, int column);
    bool writeLine(const QString& text, int rowNumber);
    void writeValue(const QString& text, int column);

    QTextStream* m_out;
    int m_fieldLimit = 2;
    int m_fieldCount = 0;
    bool m_skipEol = false;
};

bool isSectionKeyword(const QString& text)
{
    return text == QLatin1String("@SCAN_LIST_AUX_USER") || text == QLatin1String("@SCAN_LIST") ||
           text == QLatin1String("@META_DATA") || text == QLatin1String("@ECM_LIST");
}

void RowWriter::write(const TreeItem& row, int rowNumber)
{
    m_fieldCount = 0;
    m_skipEol = false;
    for (int column = 0; column < row.columnCount(); ++column) {
        if (!writeCell(row.data(column).toString().trimmed(), rowNumber, column))
            break;
    }
    if (!m_skipEol)
        *m_out << '\n';
}

bool RowWriter::writeCell(const QString& text, int rowNumber, int column)
{
    if (text == FILLER_TEXT) {
        ++m_fieldCount;
        return true;
    }
    if (text.isEmpty())
        return true;
    if (text.at(0) == QLatin1Char('@') || text.at(0) == QLatin1Char('#'))
        return writeLine(text, rowNumber);
    writeValue(text, column);
    return true;
}

// Writes a keyword or comment as a line. A blank line precedes each keyword, except in the first
// row, and each commented-out keyword.
bool RowWriter::writeLine(const QString& text, int rowNumber)
{
    const bool keyword = text.at(0) == QLatin1Char('@');
    const bool commentedKeyword = text.startsWith(QLatin1String("#@"));
    const bool section = isSectionKeyword(text);
    if (keyword && rowNumber >= 1)
        *m_out << '\n';
    if (section || commentedKeyword)
        *m_out << '\n';
    *m_out << text << '\n';
    if (keyword) {
        const bool threeValues =
            text == QLatin1String("@SCAN_LIST_AUX_USER") || text == QLatin1String("@SCAN_LIST");
        m_fieldCount = 0;
        m_fieldLimit = threeValues ? 3 : 2;
    }
    m_skipEol = true;
    return keyword && !section;
}

void RowWriter::writeValue(const QString& text, int column)
{
    if (m_fieldCount == m_fieldLimit) {
        *m_out << '\n';
        m_fieldCount = 0;
    }
    if (column > ENTRY_COLUMN)
        *m_out << "\t\t";
    *m_out << text;
    ++m_fieldCount;
    m_skipEol = false;
}

}  // namespace

QString TreeModel::specText() const
{
    QString text;
    QTextStream out(&text);
    RowWriter writer(&out);
    for (int i = 0; i < rootItem->childCount(); ++i)
        writer.write(*rootItem->child(i), i);
    return text;
}

SpecEncoding TreeModel::encoding() const
{
    return specEncoding;
}

void TreeModel::setEncoding(SpecEncoding encoding)
{
    specEncoding = encoding;
}

void TreeModel::dump_to_file(char* filename)
{
    QFile file(QFile::decodeName(filename));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    const QString text = specText();
    file.write(encoded(encodingFor(text, specEncoding), text));
}
