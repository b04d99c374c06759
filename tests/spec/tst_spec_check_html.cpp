// The page: well-formed for any input, with links that lead somewhere and a note in each wrong
// cell.

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTest>
#include <QTextCodec>
#include <QXmlStreamReader>

#include "checked_texts.h"
#include "places.h"
#include "spec_program.h"

namespace {

struct Page {
    QString fault;
    QStringList ids;
    QStringList links;         // to places in the page
    QStringList outsideLinks;  // to anything else
    QHash<QString, QString> cells;
    QStringList wrongCells;
    QString text;
};

void addElement(const QXmlStreamReader& reader, Page* page)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    const QString id = attributes.value("id"_s).toString();
    if (!id.isEmpty())
        page->ids.append(id);
    for (const QString& name : {"href"_s, "src"_s}) {
        const QString link = attributes.value(name).toString();
        if (!link.isEmpty())
            (link.startsWith(QLatin1Char('#')) ? page->links : page->outsideLinks)
                .append(link.mid(1));
    }
    if (attributes.value("class"_s).toString().split(QLatin1Char(' ')).contains("wrong"_s))
        page->wrongCells.append(id);
}

// A page that uses the syntax that HTML and XML share.
Page pageOf(const QByteArray& html)
{
    Page page;
    QString cell;
    QXmlStreamReader reader(html);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement())
            addElement(reader, &page);
        if (reader.isStartElement() && reader.name() == "td"_s)
            cell = reader.attributes().value("id"_s).toString();
        if (reader.isCharacters()) {
            page.cells[cell] += reader.text();
            page.text += reader.text();
        }
    }
    page.fault = reader.hasError() ? reader.errorString() : QString();
    return page;
}

QByteArray broken()
{
    return readFile(qEnvironmentVariable("SCRIBON_EXAMPLES") + "/scrib_broken"_s);
}

}  // namespace

class tst_SpecCheckHtml : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }

    void isWellFormedAndLinked();
    void isValid();
    void wrongCellsSayWhy();
    void findingsLeadToTheirCells();
    void summaryComesFirst();
    void namesAndTextsAreEscaped();
};

void tst_SpecCheckHtml::isWellFormedAndLinked()
{
    const QVector<NamedText> texts = manyTexts();
    const Page page = pageOf(reportOf("html", texts));
    QCOMPARE(page.fault, QString());
    const QSet<QString> ids(page.ids.begin(), page.ids.end());
    QCOMPARE(ids.size(), page.ids.size());
    QVERIFY(page.links.size() > texts.size());
    for (const QString& link : page.links)
        QVERIFY2(ids.contains(link), qPrintable(link));
    QCOMPARE(page.outsideLinks, QStringList());
}

void tst_SpecCheckHtml::isValid()
{
    const QString tidy = QStandardPaths::findExecutable("tidy"_s);
    if (tidy.isEmpty())
        QSKIP("tidy, which validates HTML, is not installed");
    QProcess validator;
    validator.start(tidy, {"-q"_s, "-e"_s, "--drop-empty-elements"_s, "no"_s});
    validator.write(reportOf("html", manyTexts()));
    validator.closeWriteChannel();
    QVERIFY(validator.waitForFinished());
    QCOMPARE(QString::fromUtf8(validator.readAllStandardError()), QString());
    QCOMPARE(validator.exitCode(), 0);
}

void tst_SpecCheckHtml::wrongCellsSayWhy()
{
    const Page page = pageOf(reportOf("html", {{"scrib_broken"_s, broken()}}));
    QCOMPARE(page.wrongCells.size(), 42);
    for (const QString& cell : page.wrongCells)
        QVERIFY2(page.cells[cell].contains("error "_s), qPrintable(cell));
    QVERIFY(page.cells["f1t1r7c2"_s].startsWith("7th_group"_s));
    QVERIFY(page.cells["f1t1r7c2"_s].endsWith(": Invalid chars in variable name"_s));
}

void tst_SpecCheckHtml::findingsLeadToTheirCells()
{
    const NamedText file{"scrib_broken"_s, broken()};
    const Page page = pageOf(reportOf("html", {file}));
    const auto json = QJsonDocument::fromJson(reportOf("json", {file}));
    int cells = 0;
    for (const QJsonValue finding : json["files"_s][0]["findings"_s].toArray())
        cells += finding.toObject().contains("tab"_s) ? 1 : 0;
    int toCells = 0;
    int toFindings = 0;
    for (const QString& link : page.links) {
        toCells += link.startsWith("f1t"_s) ? 1 : 0;
        toFindings += link.startsWith("f1n"_s) ? 1 : 0;
    }
    QVERIFY(cells > 0);
    QCOMPARE(toCells, cells);
    QCOMPARE(toFindings, cells);
}

void tst_SpecCheckHtml::summaryComesFirst()
{
    const Page page =
        pageOf(reportOf("html", {{"a"_s, broken()}, {"b"_s, smallSpec()}, {"c"_s, "x"}}));
    QVERIFY(page.text.simplified().contains(
        "Check of spec files 3 files checked: 51 errors, 1 warning. File"_s));
    QVERIFY(page.text.contains("\nayes431\nbyes70\ncrefused10\n"_s));
    QCOMPARE(page.links.mid(0, 3), QStringList({"f1"_s, "f2"_s, "f3"_s}));
}

void tst_SpecCheckHtml::namesAndTextsAreEscaped()
{
    const QByteArray html = reportOf("html", {{"<b>&\x01\"x"_s, "@SCRIBON x\n@MODE '<i>&amp;'\n"}});
    const Page page = pageOf(html);
    QCOMPARE(page.fault, QString());
    QVERIFY(page.text.contains("<b>&\ufffd\"x"_s));
    QVERIFY(page.text.contains("'<i>&amp;'"_s));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCheckHtml)
#include "tst_spec_check_html.moc"
