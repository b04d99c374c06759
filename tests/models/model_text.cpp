#include "model_text.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QTemporaryDir>

#include "loaded_text.h"
#include "treeitem.h"

namespace {

const auto SEPARATOR = QStringLiteral(" | ");
const auto UNSET = QStringLiteral("<unset>");
const auto EMPTY = QStringLiteral("<empty>");
const auto BLANK = QStringLiteral("\\s");

QString escaped(QString text)
{
    text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    text.replace(QLatin1Char('\t'), QStringLiteral("\\t"));
    if (text.startsWith(QLatin1Char(' ')))
        text.replace(0, 1, BLANK);
    if (text.endsWith(QLatin1Char(' ')))
        text.replace(text.size() - 1, 1, BLANK);
    return text;
}

QString unescaped(QString text)
{
    text.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    text.replace(QStringLiteral("\\t"), QStringLiteral("\t"));
    return text.replace(BLANK, QStringLiteral(" "));
}

QString cellText(const QVariant& cell)
{
    if (!cell.isValid())
        return UNSET;
    const QString text = cell.toString();
    if (text.isNull())
        return QStringLiteral("<null>");
    return text.isEmpty() ? EMPTY : escaped(text);
}

// Sets the items directly, since the model stores no empty text in a cell that was never assigned.
void setRow(TreeModel* model, int row, const QStringList& cells)
{
    auto* const item = static_cast<TreeItem*>(model->index(row, 0).internalPointer());
    for (int column = 0; column < cells.size(); ++column) {
        const QString& cell = cells.at(column);
        if (cell != UNSET)
            item->setData(column, cell == EMPTY ? QStringLiteral("") : unescaped(cell));
    }
}

QByteArray readAll(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    return file.readAll();
}

// A temporary file for dump_to_file().
class OutputFile {
public:
    void add(TreeModel* model) { model->dump_to_file(m_name.data()); }
    QByteArray text() const { return readAll(QFile::decodeName(m_name)); }

private:
    QTemporaryDir m_dir;
    QByteArray m_name = QFile::encodeName(m_dir.filePath(QStringLiteral("saved")));
};

}  // namespace

QStringList lines(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result.append(QString::fromLatin1(text));
    return result;
}

std::unique_ptr<TreeModel> modelOfTree(pANTLR3_BASE_TREE tree, int tab)
{
    auto model = std::make_unique<TreeModel>(headersOf(tab), tree, static_cast<ANTLR3_UINT32>(tab));
    new QAbstractItemModelTester(
        model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, model.get());
    return model;
}

std::unique_ptr<TreeModel> loadedModel(int tab)
{
    return modelOfTree(getTree(), tab);
}

std::unique_ptr<TreeModel> modelOfText(const QByteArray& text, int tab)
{
    resetParseState();
    loadText(text);
    return loadedModel(tab);
}

std::unique_ptr<TreeModel> modelOfRows(int tab, const QStringList& lines)
{
    auto rows = modelOfTree(nullptr, tab);
    rows->insertRows(0, lines.size());
    for (int row = 0; row < lines.size(); ++row)
        setRow(rows.get(), row, lines.at(row).split(SEPARATOR));
    return rows;
}

QStringList rowLines(const TreeModel& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells.append(cellText(model.data(model.index(row, column), Qt::DisplayRole)));
        lines.append(cells.join(SEPARATOR));
    }
    return lines;
}

QByteArray dumpOf(TreeModel* model)
{
    OutputFile file;
    file.add(model);
    return file.text();
}

QByteArray savedDocument()
{
    OutputFile file;
    for (int tab = EDIT_TAB1; tab <= EDIT_TAB5; ++tab) {
        TreeModel model(headersOf(tab), getTree(), static_cast<ANTLR3_UINT32>(tab));
        file.add(&model);
    }
    return file.text();
}
