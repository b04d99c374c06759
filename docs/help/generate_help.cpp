// generate_help DOCS_DIR EXAMPLE OUTPUT_DIR
//
// Writes the project file and the pages of the help collection: one for each Markdown file, and one
// for each keyword with a statement from the example.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>
#include <optional>

#include "help_page.h"
#include "keyword_pages.h"

namespace {

constexpr auto FIRST_PAGE = "USER_GUIDE.md";

bool complain(const QString& what)
{
    QTextStream(stderr) << "generate_help: " << what << Qt::endl;
    return false;
}

std::optional<QString> readText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        complain(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    return QString::fromUtf8(file.readAll());
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return written || complain(QStringLiteral("%1: %2").arg(path, file.errorString()));
}

QString pageName(QString markdownName)
{
    if (markdownName == QLatin1String(FIRST_PAGE))
        return QStringLiteral("scriboneditorHelp.htm");
    return markdownName.replace(QStringLiteral(".md"), QStringLiteral(".htm"));
}

class Help {
public:
    Help(const QDir& docs, const QDir& output, const QString& example)
        : m_docs(docs), m_output(output), m_keywords(keywordPages(example))
    {
    }

    bool write() const;

private:
    bool writeGuide() const;
    bool writeKeywords() const;
    bool writeProject() const;
    bool writePage(const QString& markdownName, const QString& markdown) const;
    QString withTables(QString markdown) const;
    QString contents() const;
    QString index() const;

    QDir m_docs;
    QDir m_output;
    QVector<KeywordPage> m_keywords;
};

bool Help::write() const
{
    return writeGuide() && writeKeywords() && writeProject();
}

// Replaces comments in the Markdown by tables that are made of the program's tables.
QString Help::withTables(QString markdown) const
{
    markdown.replace(QStringLiteral("<!-- every keyword -->"), keywordTable(m_keywords));
    return markdown.replace(QStringLiteral("<!-- statistical members -->"), statisticTable());
}

bool Help::writePage(const QString& markdownName, const QString& markdown) const
{
    const QByteArray page = helpPage(markdown);
    if (page.isEmpty())
        return complain(QStringLiteral("no page can be made of %1").arg(markdownName));
    return writeBytes(m_output.filePath(pageName(markdownName)), page);
}

bool Help::writeGuide() const
{
    QStringList names{QLatin1String(FIRST_PAGE)};
    for (const QString& name : QDir(m_docs.filePath(QStringLiteral("help")))
                                   .entryList({QStringLiteral("*.md")}, QDir::Files))
        names.append(QStringLiteral("help/") + name);
    for (const QString& name : names) {
        const std::optional<QString> text = readText(m_docs.filePath(name));
        if (!text || !writePage(QFileInfo(name).fileName(), withTables(*text)))
            return false;
    }
    return true;
}

bool Help::writeKeywords() const
{
    for (const KeywordPage& page : m_keywords) {
        if (page.markdown.isEmpty())
            return complain(
                QStringLiteral("the example has no %1").arg(QLatin1String(page.keyword->spelling)));
        if (!writePage(page.name, page.markdown))
            return false;
    }
    return true;
}

QString Help::contents() const
{
    QString sections;
    for (const KeywordPage& page : m_keywords) {
        sections += QStringLiteral("          <section title=\"%1\" ref=\"%2\"/>\n")
                        .arg(titleOf(page.markdown).toHtmlEscaped(), pageName(page.name));
    }
    return sections;
}

// The index has a keyword by its spelling and by its display name.
QString Help::index() const
{
    QString entries;
    const auto entry = QStringLiteral("      <keyword name=\"%1\" ref=\"%2\"/>\n");
    for (const KeywordPage& page : m_keywords) {
        entries += entry.arg(QLatin1String(page.keyword->spelling), pageName(page.name));
        if (page.keyword->displayName != nullptr)
            entries += entry.arg(page.title, pageName(page.name));
    }
    return entries;
}

bool Help::writeProject() const
{
    const std::optional<QString> project =
        readText(m_docs.filePath(QStringLiteral("help/scriboneditor.qhp.in")));
    if (!project)
        return false;
    QString text = *project;
    text.replace(QStringLiteral("@KEYWORD_CONTENTS@\n"), contents());
    text.replace(QStringLiteral("@KEYWORD_INDEX@\n"), index());
    return writeBytes(m_output.filePath(QStringLiteral("scriboneditor.qhp")), text.toUtf8());
}

}  // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        complain(QStringLiteral("DOCS_DIR EXAMPLE OUTPUT_DIR are to be given"));
        return 2;
    }
    const std::optional<QString> example = readText(arguments.at(2));
    return example && Help(QDir(arguments.at(1)), QDir(arguments.at(3)), *example).write() ? 0 : 1;
}
