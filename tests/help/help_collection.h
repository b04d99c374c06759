// The help collection as it is installed, and the contents of its pages.
#pragma once

#include <QHelpEngine>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>

// The directory that the viewer gets, too.
extern const QString HELP_DIR;
extern const QString HELP_NAMESPACE;

// A keyword's spelling in lower case without "@", and the name of the page on it.
QString wordOf(const QString& spelling);
QString pageOf(const QString& spelling);

// The URL of a page; the name may have an anchor.
QUrl helpUrl(const QString& name);

struct HelpPage {
    QString error;  // why it is not well-formed XML; empty if it is
    QString title;
    QString text;      // with white space simplified
    QString examples;  // text of the <pre> elements, each with a line break behind it
    QSet<QString> anchors;
    QStringList targets;  // targets of links, pictures and style sheets
};

HelpPage parseHelpPage(const QByteArray& xhtml);

// The collection. Opens a copy, since QHelpEngine may write to it.
class HelpCollection {
public:
    bool open();  // opens it again if it is open

    QHelpEngine& engine() { return *m_engine; }
    HelpPage page(const QString& name);
    // The sorted names of the pages.
    QStringList pages();
    // Whether the URL is that of a file in the collection, and its anchor exists.
    bool resolves(const QUrl& url);

private:
    std::unique_ptr<QTemporaryDir> m_copy;
    std::unique_ptr<QHelpEngine> m_engine;
};
