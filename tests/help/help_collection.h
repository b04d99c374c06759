// The help collection as the program's user gets it, and what its pages hold.
#pragma once

#include <QHelpEngine>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>

// The same directory as the viewer is given.
extern const QString HELP_DIR;
extern const QString HELP_NAMESPACE;

// A page's address from its name, which may have an anchor.
QUrl helpUrl(const QString& name);

struct HelpPage {
    QString error;  // why it is no well-formed XML; empty when it is
    QString title;
    QString text;      // in one line
    QString examples;  // of the <pre> elements, as they stand
    QSet<QString> anchors;
    QStringList targets;  // of links, pictures and style sheets
};

HelpPage parseHelpPage(const QByteArray& xhtml);

// The collection, opened as a copy, since a reader may write into it.
class HelpCollection {
public:
    bool open();  // anew if it is open

    QHelpEngine& engine() { return *m_engine; }
    HelpPage page(const QString& name);
    // Their names, sorted.
    QStringList pages();
    // Whether the address is that of a file of the collection, with its anchor if it has one.
    bool resolves(const QUrl& url);

private:
    std::unique_ptr<QTemporaryDir> m_copy;
    std::unique_ptr<QHelpEngine> m_engine;
};
