#include "documents.h"

#include <QDir>
#include <QFile>

#include "loaded_text.h"
#include "model_text.h"

QByteArray example(const QString& name)
{
    QFile file(QDir(qEnvironmentVariable("SCRIBON_EXAMPLES")).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

Document::Document(const QByteArray& text)
{
    resetParseState();
    verdict = loadText(text);
    if (verdict == 0) {
        for (int number = EDIT_TAB1; number <= EDIT_TAB5; ++number)
            tabs.push_back(loadedModel(number));
    }
    free_resources();
}

TreeModel& Document::tab(int number) const
{
    return *tabs.at(static_cast<size_t>(number - EDIT_TAB1));
}

QList<int> Document::rowCounts() const
{
    QList<int> counts;
    for (const auto& tab : tabs)
        counts.append(tab->rowCount());
    return counts;
}

QList<int> Document::errorCounts() const
{
    QList<int> counts;
    for (const auto& tab : tabs)
        counts.append(judge(*tab));
    return counts;
}

QStringList Document::visibleRows() const
{
    QStringList rows;
    for (const auto& tab : tabs) {
        for (int row = 0; row < tab->rowCount(); ++row)
            rows.append(visibleRow(*tab, row));
    }
    rows.removeAll(QString());
    return rows;
}

QByteArray Document::saved() const
{
    QByteArray text;
    for (const auto& tab : tabs)
        text += dumpOf(tab.get());
    return text;
}

int judge(TreeModel& tab)
{
    tab.setDirty();
    tab.validate_model();
    return tab.getErrorCount();
}

QString cell(const TreeModel& tab, int row, int column)
{
    return tab.data(tab.index(row, column), Qt::EditRole).toString();
}

QString visibleRow(const TreeModel& tab, int row)
{
    QStringList cells;
    for (int column = 0; column < tab.columnCount(); ++column)
        cells.append(cell(tab, row, column));
    cells.removeAll(QString());
    cells.removeAll(QStringLiteral("FILLER_TXT"));
    return cells.join(QStringLiteral(" | "));
}
