#include "texttables.h"

#include <array>

#include "finding.h"
#include "tablerows.h"
#include "terminaltext.h"

namespace {

const auto INDENT = QStringLiteral("  ");

// Of the columns but the last one: wide enough for common names.
constexpr std::array<std::array<int, 2>, TAB_COUNT> WIDTHS{
    {{32, 24}, {32, 24}, {32, 0}, {32, 0}, {16, 0}}};

QString tableText(const SpecFile& file, int tab)
{
    const QString header = alignedTexts(tab, fieldsOf(file, tab));
    QString text = tabTitle(tab) + QLatin1Char('\n');
    text += INDENT + header + QLatin1Char('\n');
    text += INDENT + QString(header.size(), QLatin1Char('-')) + QLatin1Char('\n');
    for (const TableRow& row : rowsOf(file, tab))
        text += INDENT + alignedTexts(tab, row.texts) + QLatin1Char('\n');
    return text;
}

QString withoutBlanksAtEnd(QString line)
{
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

}  // namespace

QString alignedTexts(int tab, const QStringList& texts)
{
    const auto& widths = WIDTHS[static_cast<size_t>(tab)];
    QString line;
    for (int column = 0; column + 1 < texts.size(); ++column)
        line += paddedTo(widths[static_cast<size_t>(column)], visibleText(texts.at(column)));
    return withoutBlanksAtEnd(line + visibleText(texts.constLast()));
}

QByteArray TextTables::file(const SpecFile& file) const
{
    QStringList tables;
    for (int tab = 0; tab < TAB_COUNT; ++tab)
        tables.append(tableText(file, tab));
    const QString title =
        m_namesFiles ? QStringLiteral("==> %1 <==\n").arg(visibleText(file.name())) : QString();
    return (title + tables.join(QLatin1Char('\n'))).toUtf8();
}
