#include "help_page.h"

#include <md4c-html.h>
#include <md4c.h>

#include <QRegularExpression>
#include <functional>

namespace {

constexpr auto PAGE =
    "<!DOCTYPE html>\n"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\">\n"
    "<head>\n"
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\" />\n"
    "<title>%1</title>\n"
    "<link rel=\"stylesheet\" type=\"text/css\" href=\"help.css\" />\n"
    "</head>\n"
    "<body>\n"
    "%2"
    "</body>\n"
    "</html>\n";

void appendTo(const char* text, MD_SIZE size, void* html)
{
    static_cast<QByteArray*>(html)->append(text, static_cast<int>(size));
}

QString toHtml(const QString& markdown)
{
    const QByteArray text = markdown.toUtf8();
    QByteArray html;
    if (md_html(text.constData(), static_cast<MD_SIZE>(text.size()), appendTo, &html,
                MD_FLAG_TABLES | MD_FLAG_NOHTML, MD_HTML_FLAG_XHTML) != 0)
        return {};
    // Some viewers show the last line break of a code block as an empty line.
    return QString::fromUtf8(html).replace(QStringLiteral("\n</code></pre>"),
                                           QStringLiteral("</code></pre>"));
}

using Match = QRegularExpressionMatch;

QString replaced(const QString& text, const QString& pattern,
                 const std::function<QString(const Match&)>& replacement)
{
    QString result;
    int end = 0;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext()) {
        const Match match = matches.next();
        result += text.midRef(end, match.capturedStart() - end) + replacement(match);
        end = match.capturedEnd();
    }
    return result + text.midRef(end);
}

// The anchor of a heading, in the form of the usual Markdown viewers.
QString anchorOf(QString heading)
{
    heading.remove(QRegularExpression(QStringLiteral("<[^>]*>|&[a-z]+;")));
    heading.remove(QRegularExpression(QStringLiteral("[^\\w -]")));
    return heading.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

QString withAnchors(const QString& html)
{
    return replaced(html, QStringLiteral("<(h[1-6])>(.*?)</h"), [](const Match& match) {
        return QStringLiteral("<%1 id=\"%2\">%3</h")
            .arg(match.captured(1), anchorOf(match.captured(2)), match.captured(2));
    });
}

// All pages are in one directory, next to that of the pictures.
QString pageTarget(QString target)
{
    target.remove(QRegularExpression(QStringLiteral("^(help/|\\.\\./)")));
    target.replace(QRegularExpression(QStringLiteral("^USER_GUIDE\\.md")),
                   QStringLiteral("scriboneditorHelp.htm"));
    return target.replace(QRegularExpression(QStringLiteral("\\.md(?=$|#)")),
                          QStringLiteral(".htm"));
}

QString withPageTargets(const QString& html)
{
    return replaced(html, QStringLiteral("(href|src)=\"([^\"]*)\""), [](const Match& match) {
        return QStringLiteral("%1=\"%2\"").arg(match.captured(1), pageTarget(match.captured(2)));
    });
}

}  // namespace

QString titleOf(const QString& markdown)
{
    return QRegularExpression(QStringLiteral("^# (.*)$"), QRegularExpression::MultilineOption)
        .match(markdown)
        .captured(1)
        .remove(QLatin1Char('`'));
}

QByteArray helpPage(const QString& markdown)
{
    const QString html = toHtml(markdown);
    if (html.isEmpty())
        return {};
    return QString::fromLatin1(PAGE)
        .arg(titleOf(markdown).toHtmlEscaped(), withPageTargets(withAnchors(html)))
        .toUtf8();
}
