// The SARIF report: its form for any input, regions, and fingerprints that survive edits elsewhere.

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QTest>
#include <QTextCodec>
#include <QUrl>

#include "checked_texts.h"
#include "json_schema.h"
#include "places.h"
#include "rules.h"
#include "spec_program.h"

namespace {

// Two faults in lists, one in a keyword's value, a text that is lost, and keywords that are
// missing.
const QByteArray FAULTY =
    "@SCRIBON a-b\n"
    "@SCAN_LIST\n"
    "eng_speed N_ENG\n"
    "oil_temp T-OIL\n"
    "oil_press N_ENG\n"
    "@META_DATA\n"
    "ENGINE eng\n"
    "@MISTAKE here\n";

QJsonObject runOf(const QVector<NamedText>& texts)
{
    return QJsonDocument::fromJson(reportOf("sarif", texts))["runs"_s][0].toObject();
}

QJsonArray resultsOf(const QByteArray& text)
{
    return runOf({{"scrib_x"_s, text}})["results"_s].toArray();
}

QJsonValue physicalLocation(const QJsonValue& result)
{
    return result["locations"_s][0]["physicalLocation"_s];
}

// The text of a region, by its lines and columns.
QString textOfRegion(const QString& text, const QJsonObject& region)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    const int first = region["startLine"_s].toInt() - 1;
    const int last = region["endLine"_s].toInt() - 1;
    QString found = lines.mid(first, last - first).join(QLatin1Char('\n'));
    found += (last > first ? "\n"_s : QString()) +
             lines.value(last).left(region["endColumn"_s].toInt() - 1);
    return found.mid(region["startColumn"_s].toInt() - 1);
}

QSet<QString> fingerprints(const QByteArray& text)
{
    QSet<QString> prints;
    for (const QJsonValue result : resultsOf(text))
        prints.insert(result["partialFingerprints"_s]["scribonSpecFinding/v1"_s].toString());
    return prints;
}

QString uriOf(const QString& name)
{
    const QJsonArray results = runOf({{name, "no spec"}})["results"_s].toArray();
    return physicalLocation(results.at(0))["artifactLocation"_s]["uri"_s].toString();
}

}  // namespace

class tst_SpecCheckSarif : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }

    void fitsItsSchema();
    void rulesAreThoseOfTheProgram();
    void regionsHaveTheirTexts();
    void columnsCountUtf16();
    void cellsAreLogicalLocations();
    void uris_data();
    void uris();
    void fingerprintsDiffer();
    void fingerprintsSurviveEdits_data();
    void fingerprintsSurviveEdits();
};

void tst_SpecCheckSarif::fitsItsSchema()
{
    const auto schema = QJsonDocument::fromJson(readFile(QStringLiteral(SARIF_SCHEMA)));
    const auto report = QJsonDocument::fromJson(reportOf("sarif", manyTexts()));
    QVERIFY(report["runs"_s][0]["results"_s].toArray().size() > 100);
    QCOMPARE(JsonSchema(schema.object()).faultIn(report.object()), QString());
    const auto empty = QJsonDocument::fromJson(reportOf("sarif", {}));
    QCOMPARE(JsonSchema(schema.object()).faultIn(empty.object()), QString());
}

void tst_SpecCheckSarif::rulesAreThoseOfTheProgram()
{
    const QJsonObject run = runOf(manyTexts());
    const QJsonArray rules = run["tool"_s]["driver"_s]["rules"_s].toArray();
    QCOMPARE(rules.size(), static_cast<int>(RULES.size()));
    for (int i = 0; i < rules.size(); ++i) {
        const RuleFacts& facts = RULES[static_cast<size_t>(i)];
        QCOMPARE(rules.at(i)["id"_s].toString(), QString::fromLatin1(facts.name));
        QCOMPARE(rules.at(i)["shortDescription"_s]["text"_s].toString(),
                 QString::fromUtf8(facts.meaning));
        QCOMPARE(rules.at(i)["help"_s]["text"_s].toString(), QString::fromUtf8(facts.remedy));
        QCOMPARE(rules.at(i)["defaultConfiguration"_s]["level"_s].toString(),
                 QString::fromLatin1(nameOf(facts.severity)));
    }
    for (const QJsonValue result : run["results"_s].toArray())
        QCOMPARE(rules.at(result["ruleIndex"_s].toInt())["id"_s], result["ruleId"_s]);
}

void tst_SpecCheckSarif::regionsHaveTheirTexts()
{
    int regions = 0;
    for (const NamedText& text : manyTexts()) {
        const QString decoded = QTextCodec::codecForName("UTF-8")->toUnicode(text.bytes);
        if (decoded.toUtf8() != text.bytes)
            continue;
        for (const QJsonValue result : resultsOf(text.bytes)) {
            const QJsonObject region = physicalLocation(result)["region"_s].toObject();
            if (region.isEmpty())
                continue;
            QCOMPARE(textOfRegion(decoded, region), region["snippet"_s]["text"_s].toString());
            ++regions;
        }
    }
    QVERIFY(regions > 100);
}

void tst_SpecCheckSarif::columnsCountUtf16()
{
    const QByteArray text = "@SCRIBON x\n@DESCRIPTION '\xf0\x9f\x94\xa7\xc3\xa4' @MISTAKE\n";
    for (const QJsonValue result : resultsOf(text)) {
        if (result["ruleId"_s] == "lost-text"_s) {
            const QJsonObject region = physicalLocation(result)["region"_s].toObject();
            QCOMPARE(region["startColumn"_s].toInt(), 20);
            QCOMPARE(region["endColumn"_s].toInt(), 28);
            return;
        }
    }
    QFAIL("nothing is lost");
}

void tst_SpecCheckSarif::cellsAreLogicalLocations()
{
    QStringList names;
    for (const QJsonValue result : resultsOf(FAULTY)) {
        const QJsonValue cell = result["locations"_s][0]["logicalLocations"_s][0];
        if (cell.isObject())
            names.append(cell["fullyQualifiedName"_s].toString());
    }
    QVERIFY(names.contains("Keywords/1/Value"_s));
    QVERIFY(names.contains("Scan List/2/Channel Keyword"_s));
    QVERIFY(names.contains("Scan List/3/Channel Keyword"_s));
}

void tst_SpecCheckSarif::uris_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("uri");
    const QString here = QDir::currentPath();
    QTest::newRow("a plain name") << "scrib_a"_s
                                  << "scrib_a"_s;
    QTest::newRow("a name in a folder") << "cell 4/scrib_a"_s
                                        << "cell%204/scrib_a"_s;
    QTest::newRow("from this folder") << "./b/../scrib_a"_s
                                      << "scrib_a"_s;
    QTest::newRow("above this folder") << "../scrib_a"_s
                                       << "../scrib_a"_s;
    QTest::newRow("absolute, below") << here + "/b/scrib_a"_s
                                     << "b/scrib_a"_s;
    QTest::newRow("absolute, elsewhere") << "/data/scrib a"_s
                                         << "file:///data/scrib%20a"_s;
    QTest::newRow("signs") << "a:b?c#d%e"_s
                           << "a%3Ab%3Fc%23d%25e"_s;
    QTest::newRow("letters") << "pr\u00fcfung"_s
                             << "pr%C3%BCfung"_s;
    QTest::newRow("standard input") << "<stdin>"_s
                                    << "%3Cstdin%3E"_s;
}

void tst_SpecCheckSarif::uris()
{
    QFETCH(QString, name);
    QTEST(uriOf(name), "uri");
}

void tst_SpecCheckSarif::fingerprintsDiffer()
{
    for (const NamedText& text : manyTexts())
        QCOMPARE(fingerprints(text.bytes).size(), resultsOf(text.bytes).size());
}

void tst_SpecCheckSarif::fingerprintsSurviveEdits_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const QByteArray list = "@SCAN_LIST\n";
    QTest::newRow("blank lines") << list << "\n\n\n" + list;
    QTest::newRow("a comment") << QByteArray("@SCRIBON") << QByteArray("# comment\n@SCRIBON");
    QTest::newRow("a row") << list << list + "first FIRST\n";
    QTest::newRow("indentation") << QByteArray("oil_temp ") << QByteArray("  oil_temp   ");
    QTest::newRow("a longer loss") << QByteArray("here") << QByteArray("\nhere");
}

void tst_SpecCheckSarif::fingerprintsSurviveEdits()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray edited = FAULTY;
    edited.replace(from, to);
    QVERIFY(edited != FAULTY);
    QVERIFY(fingerprints(FAULTY).size() > 8);
    QCOMPARE(fingerprints(edited), fingerprints(FAULTY));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCheckSarif)
#include "tst_spec_check_sarif.moc"
