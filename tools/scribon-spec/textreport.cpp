#include "textreport.h"

#include <QStringList>

#include "terminaltext.h"

namespace {

constexpr char BOLD[] = "\x1b[1m";
constexpr char RED[] = "\x1b[1;31m";
constexpr char MAGENTA[] = "\x1b[1;35m";
constexpr char GREEN[] = "\x1b[1;32m";
constexpr char PLAIN[] = "\x1b[0m";

// Of a long line, on each side of the place.
constexpr int MOST_SHOWN = 100;
const QChar ELLIPSIS(0x2026);

// Blanks as wide as the text, and tabs where it has them.
QString blanksFor(const QString& text)
{
    QStringList parts = text.split(QLatin1Char('\t'));
    for (QString& part : parts)
        part = QString(displayWidth(part), QLatin1Char(' '));
    return parts.join(QLatin1Char('\t'));
}

// The line of the file around the place, and the mark below it.
QString marked(const SpecFile& file, const Finding& finding, const QString& mark)
{
    QString line = file.lineOf(finding.range.offset);
    if (line.endsWith(QLatin1Char('\r')))
        line.chop(1);
    QString before = withoutControls(line.left(finding.place.column - 1));
    QString after = withoutControls(line.mid(finding.place.column - 1));
    if (before.size() > MOST_SHOWN)
        before = ELLIPSIS + before.right(MOST_SHOWN);
    if (after.size() > MOST_SHOWN)
        after = after.left(MOST_SHOWN) + ELLIPSIS;
    return before + after + QLatin1Char('\n') + blanksFor(before) + mark + QLatin1Char('\n');
}

QString underline(const Finding& finding)
{
    const QString text = finding.text.section(QLatin1Char('\n'), 0, 0);
    const int tail = finding.range.size == 0 ? 0 : qBound(0, displayWidth(text) - 1, MOST_SHOWN);
    return QLatin1Char('^') + QString(tail, QLatin1Char('~'));
}

}  // namespace

QString TextReport::coloured(const char* colour, const QString& text) const
{
    return m_target == TextTarget::ColourTerminal
               ? QLatin1String(colour) + text + QLatin1String(PLAIN)
               : text;
}

QString TextReport::line(const SpecFile& file, const Finding& finding) const
{
    QString place = withoutControls(file.name()) + QLatin1Char(':');
    if (finding.hasPlace())
        place += QStringLiteral("%1:%2:").arg(finding.place.line).arg(finding.place.column);
    const char* const colour = finding.severity == Severity::Warning ? MAGENTA : RED;
    return coloured(BOLD, place) + QLatin1Char(' ') +
           coloured(colour, QLatin1String(nameOf(finding.severity)) + QLatin1Char(':')) +
           QLatin1Char(' ') + withoutControls(messageWithHint(finding)) +
           QStringLiteral(" [%1]\n").arg(QLatin1String(factsOf(finding.rule).name));
}

QByteArray TextReport::file(const SpecFile& file, const FileReport& report) const
{
    QString text;
    for (const Finding& finding : report.findings) {
        text += line(file, finding);
        if (m_target != TextTarget::File && finding.hasPlace())
            text += marked(file, finding, coloured(GREEN, underline(finding)));
    }
    return text.toUtf8();
}

QByteArray TextReport::foot(const Totals& totals) const
{
    return summaryOf(totals).toUtf8() + '\n';
}
