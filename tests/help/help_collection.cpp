#include "help_collection.h"

#include <QFile>
#include <QXmlStreamReader>

const QString HELP_DIR = QStringLiteral("/usr/local/share/doc/marvane/qt/scriboneditor/");
const QString HELP_NAMESPACE = QStringLiteral("marvane.scriboneditor.1.0");

QString wordOf(const QString& spelling)
{
    return spelling.mid(1).toLower();
}

QString pageOf(const QString& spelling)
{
    return QStringLiteral("keyword_%1.htm").arg(wordOf(spelling));
}

QUrl helpUrl(const QString& name)
{
    return QUrl(QStringLiteral("qthelp://%1/doc/%2").arg(HELP_NAMESPACE, name));
}

HelpPage parseHelpPage(const QByteArray& xhtml)
{
    HelpPage page;
    QXmlStreamReader reader(xhtml);
    bool preformatted = false;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (reader.name() == QLatin1String("title") && token == QXmlStreamReader::StartElement)
            page.title = reader.readElementText();
        if (reader.name() == QLatin1String("pre")) {
            preformatted = token == QXmlStreamReader::StartElement;
            page.examples += preformatted ? QString() : QStringLiteral("\n");
        }
        if (token == QXmlStreamReader::Characters) {
            page.text += reader.text();
            if (preformatted)
                page.examples += reader.text();
        }
        for (const QXmlStreamAttribute& attribute : reader.attributes()) {
            if (attribute.name() == QLatin1String("id"))
                page.anchors.insert(attribute.value().toString());
            if (attribute.name() == QLatin1String("href") ||
                attribute.name() == QLatin1String("src"))
                page.targets.append(attribute.value().toString());
        }
    }
    if (reader.hasError())
        page.error = reader.errorString();
    page.text = page.text.simplified();
    return page;
}

bool HelpCollection::open()
{
    const auto name = QStringLiteral("scriboneditor.");
    m_engine.reset();
    m_copy = std::make_unique<QTemporaryDir>();
    for (const QString& suffix : {QStringLiteral("qhc"), QStringLiteral("qch")}) {
        if (!QFile::copy(HELP_DIR + name + suffix, m_copy->filePath(name + suffix)))
            return false;
    }
    m_engine = std::make_unique<QHelpEngine>(m_copy->filePath(name + QStringLiteral("qhc")));
    return m_engine->setupData();
}

HelpPage HelpCollection::page(const QString& name)
{
    return parseHelpPage(m_engine->fileData(helpUrl(name)));
}

QStringList HelpCollection::pages()
{
    QStringList names;
    for (const QUrl& url : m_engine->files(HELP_NAMESPACE, QString(), QStringLiteral("htm")))
        names.append(url.fileName());
    names.sort();
    return names;
}

bool HelpCollection::resolves(const QUrl& url)
{
    const QByteArray file = m_engine->fileData(url.adjusted(QUrl::RemoveFragment));
    return !file.isEmpty() &&
           (!url.hasFragment() || parseHelpPage(file).anchors.contains(url.fragment()));
}
