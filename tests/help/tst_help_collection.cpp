// The help collection: its links and contents are valid, and the pages of the keywords agree with
// the golden table.

#include <QFile>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QRegularExpression>
#include <QTest>

#include "golden_keywords.h"
#include "help_collection.h"
#include "stat_members.h"

Q_DECLARE_METATYPE(const GoldenKeyword*)

namespace {

constexpr int CREATION_MS = 30000;

struct Entry {
    QString title;
    QUrl url;
};

void collectEntries(QHelpContentModel* model, const QModelIndex& parent, QVector<Entry>* entries)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QHelpContentItem* const item = model->contentItemAt(index);
        entries->append({item->title(), item->url()});
        collectEntries(model, index, entries);
    }
}

QString spellingOf(const GoldenKeyword* keyword)
{
    return QString::fromLatin1(keyword->spelling);
}

QString nameOf(const GoldenKeyword* keyword)
{
    return keyword->displayName == nullptr ? spellingOf(keyword)
                                           : QString::fromLatin1(keyword->displayName);
}

QString helpOf(const GoldenKeyword* keyword)
{
    return QString::fromLatin1(keyword->choiceHelp()).simplified();
}

}  // namespace

class tst_HelpCollection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void namespaceAndFolder();
    void pageRequestedByTheProgramExists();
    void firstPageIsTheHomePage();
    void pagesAreWellFormed_data() { addPages(); }
    void pagesAreWellFormed();
    void linksAreValid_data() { addPages(); }
    void linksAreValid();
    void everyPageIsReachedByALink();
    void contentsNameEveryPageOnce();
    void indexLinksAreValid();
    void linesOfExamplesAreApart();

    void everyKeywordIsDescribed_data() { addKeywords(); }
    void everyKeywordIsDescribed();
    void linesOfAToolTipAreLinesOfThePage_data() { addKeywords(); }
    void linesOfAToolTipAreLinesOfThePage();
    void everyKeywordHasAnExampleOfAGoodFile_data() { addKeywords(); }
    void everyKeywordHasAnExampleOfAGoodFile();
    void everyKeywordIsFoundInTheIndex_data() { addKeywords(); }
    void everyKeywordIsFoundInTheIndex();
    void everyStatisticalMemberIsDescribed();

private:
    void addPages();
    static void addKeywords();

    HelpCollection m_help;
};

void tst_HelpCollection::initTestCase()
{
    QVERIFY2(m_help.open(), "run this through scripts/in-namespace --help-from");
}

void tst_HelpCollection::addPages()
{
    QTest::addColumn<QString>("page");
    for (const QString& page : m_help.pages())
        QTest::newRow(qPrintable(page)) << page;
}

void tst_HelpCollection::addKeywords()
{
    QTest::addColumn<const GoldenKeyword*>("keyword");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QTest::newRow(keyword.spelling) << &keyword;
}

void tst_HelpCollection::namespaceAndFolder()
{
    QCOMPARE(m_help.engine().registeredDocumentations(), QStringList{HELP_NAMESPACE});
    for (const QUrl& url : m_help.engine().files(HELP_NAMESPACE, QString()))
        QVERIFY2(url.path().startsWith(QLatin1String("/doc/")), qPrintable(url.toString()));
}

void tst_HelpCollection::pageRequestedByTheProgramExists()
{
    const QUrl url(QStringLiteral("qthelp://marvane.scriboneditor.1.0/doc/scriboneditorHelp.htm"));
    QCOMPARE(parseHelpPage(m_help.engine().fileData(url)).title,
             QStringLiteral("Scribon Specification Editor"));
}

void tst_HelpCollection::firstPageIsTheHomePage()
{
    const QString firstPage = helpUrl(QStringLiteral("scriboneditorHelp.htm")).toString();
    for (const char* const key : {"defaultHomepage", "LastShownPages"})
        QCOMPARE(m_help.engine().customValue(QLatin1String(key)).toString(), firstPage);
}

void tst_HelpCollection::pagesAreWellFormed()
{
    QFETCH(QString, page);
    const HelpPage parsed = m_help.page(page);
    QCOMPARE(parsed.error, QString());
    QVERIFY(!parsed.title.isEmpty());
    QVERIFY2(!parsed.text.contains(QLatin1String("<!--")), "a table has not taken its place");
}

void tst_HelpCollection::linksAreValid()
{
    QFETCH(QString, page);
    for (const QString& target : m_help.page(page).targets) {
        const QUrl url = helpUrl(page).resolved(QUrl(target));
        QVERIFY2(m_help.resolves(url), qPrintable(target));
    }
}

void tst_HelpCollection::everyPageIsReachedByALink()
{
    QStringList reached{QStringLiteral("scriboneditorHelp.htm")};
    for (int i = 0; i < reached.size(); ++i) {
        for (const QString& target : m_help.page(reached.at(i)).targets) {
            const QString page = target.section(QLatin1Char('#'), 0, 0);
            if (page.endsWith(QLatin1String(".htm")) && !reached.contains(page))
                reached.append(page);
        }
    }
    reached.sort();
    QCOMPARE(reached, m_help.pages());
}

void tst_HelpCollection::contentsNameEveryPageOnce()
{
    QHelpContentModel* const model = m_help.engine().contentModel();
    model->createContents(QString());
    QTRY_VERIFY_WITH_TIMEOUT(!model->isCreatingContents() && model->rowCount() > 0, CREATION_MS);
    QCOMPARE(model->rowCount(), 1);
    QVector<Entry> entries;
    collectEntries(model, {}, &entries);
    QStringList pages;
    for (const Entry& entry : entries) {
        QCOMPARE(entry.title, m_help.page(entry.url.fileName()).title);
        pages.append(entry.url.fileName());
    }
    pages.sort();
    QCOMPARE(pages, m_help.pages());
}

void tst_HelpCollection::indexLinksAreValid()
{
    QHelpIndexModel* const model = m_help.engine().indexModel();
    model->createIndex(QString());
    QTRY_VERIFY_WITH_TIMEOUT(!model->isCreatingIndex() && model->rowCount() > 0, CREATION_MS);
    for (const QString& entry : model->stringList()) {
        const QList<QHelpLink> links = m_help.engine().documentsForKeyword(entry);
        QVERIFY2(!links.isEmpty(), qPrintable(entry));
        for (const QHelpLink& link : links)
            QVERIFY2(m_help.resolves(link.url), qPrintable(entry + link.url.toString()));
    }
}

void tst_HelpCollection::everyKeywordIsDescribed()
{
    QFETCH(const GoldenKeyword*, keyword);
    const HelpPage page = m_help.page(pageOf(spellingOf(keyword)));
    const auto says = [&page](const QString& text) {
        return page.text.contains(text) ? QString() : page.text;
    };
    QCOMPARE(page.title, nameOf(keyword));
    QCOMPARE(says(QStringLiteral("In the file ") + spellingOf(keyword)), QString());
    QCOMPARE(
        says(QStringLiteral("In the table ") +
             (keyword->displayName == nullptr ? QStringLiteral("an empty cell") : nameOf(keyword))),
        QString());
    QCOMPARE(says(keyword->is(MUST_STAY) ? QStringLiteral("Required yes")
                                         : QStringLiteral("Required no")),
             QString());
    QCOMPARE(says(keyword->is(ON_OFFER)
                      ? QStringLiteral("Offered as %1 in").arg(wordOf(spellingOf(keyword)))
                      : QStringLiteral("Offered no")),
             QString());
    QCOMPARE(says(helpOf(keyword)), QString());
}

void tst_HelpCollection::linesOfAToolTipAreLinesOfThePage()
{
    QFETCH(const GoldenKeyword*, keyword);
    QStringList lines = QString::fromLatin1(keyword->choiceHelp()).split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.simplified().toHtmlEscaped();
    const QString page =
        QString::fromUtf8(m_help.engine().fileData(helpUrl(pageOf(spellingOf(keyword)))));
    QVERIFY2(page.contains(lines.join(QStringLiteral("<br />\n"))), qPrintable(page));
}

// The viewer paints the background of each line over the one above. Without room between the lines,
// it covers the underscores there.
void tst_HelpCollection::linesOfExamplesAreApart()
{
    const QString style =
        QString::fromUtf8(m_help.engine().fileData(helpUrl(QStringLiteral("help.css"))));
    const auto height = QRegularExpression(QStringLiteral("\npre \\{.*line-height: (\\d+)%"))
                            .match(style)
                            .captured(1);
    QVERIFY2(height.toInt() >= 120, qPrintable(style));
    QVERIFY(style.contains(QLatin1String("\npre code { background-color: transparent;")));
}

void tst_HelpCollection::everyKeywordHasAnExampleOfAGoodFile()
{
    QFETCH(const GoldenKeyword*, keyword);
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_full"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString example = m_help.page(pageOf(spellingOf(keyword))).examples;
    QVERIFY(example.startsWith(spellingOf(keyword) + QLatin1Char('\n')));
    QVERIFY2(QString::fromUtf8(file.readAll()).contains(QLatin1Char('\n') + example),
             qPrintable(example));
}

void tst_HelpCollection::everyKeywordIsFoundInTheIndex()
{
    QFETCH(const GoldenKeyword*, keyword);
    for (const QString& entry : {spellingOf(keyword), nameOf(keyword)}) {
        bool found = false;
        for (const QHelpLink& link : m_help.engine().documentsForKeyword(entry))
            found = found || link.url == helpUrl(pageOf(spellingOf(keyword)));
        QVERIFY2(found, qPrintable(entry));
    }
}

void tst_HelpCollection::everyStatisticalMemberIsDescribed()
{
    const QString text = m_help.page(QStringLiteral("editor_choice.htm")).text;
    for (const StatMember& member : SCAN_LIST_MEMBERS) {
        const QString row = QLatin1String(member.name) + QLatin1Char(' ') +
                            QString::fromLatin1(member.help).simplified();
        QVERIFY2(text.contains(row), qPrintable(row));
    }
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_HelpCollection)
#include "tst_help_collection.moc"
