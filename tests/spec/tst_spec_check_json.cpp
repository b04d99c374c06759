// The JSON report: its form for any input.

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>
#include <QTextCodec>
#include <ctime>

#include "checked_texts.h"
#include "json_schema.h"
#include "places.h"
#include "rules.h"
#include "spec_program.h"

namespace {

QJsonObject schema()
{
    const QString path = QStringLiteral(SCRIBON_SPEC_SCHEMAS "/check-report.schema.json");
    return QJsonDocument::fromJson(readFile(path)).object();
}

QJsonObject reportObject(const QVector<NamedText>& texts)
{
    return QJsonDocument::fromJson(reportOf("json", texts)).object();
}

QJsonObject firstFinding(const QJsonObject& report)
{
    return report["files"_s][0]["findings"_s][0].toObject();
}

}  // namespace

class tst_SpecCheckJson : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }

    void oneFinding();
    void fitsItsSchema();
    void schemaKnowsTheRules();
    void schemaRefusesOtherForms_data();
    void schemaRefusesOtherForms();
    void cellsHaveTabRowAndField();
    void emptyCellsAreTold();
    void columnsOfOneLine();
    void longLinesTakeNoLonger();
};

void tst_SpecCheckJson::oneFinding()
{
    const QByteArray text =
        "@SCRIBON x\n@DESCRIPTION 'd'\n@GROUP g\n@MODE m\n@PROGRAM p\n@TEST_ID i\n@TEST_TYPE t\n"
        "@SCAN_INTERVAL 1[sec]\n@SCAN_LIST\nspeed N\ntorque N-ENG\n";
    QCOMPARE(QString::fromUtf8(reportOf("json", {{"scrib_\"x\""_s, text}})),
             R"({"version":1,"files":[
{"file":"scrib_\"x\"","loads":true,"errors":{"Keywords":0,"Scan List":1,"Meta Data List":0,"Scan List Aux User":0,"ECM List":0},"findings":[{"rule":"syntax","severity":"error","line":11,"column":8,"tab":"Scan List","row":2,"field":"Channel Keyword","text":"N-ENG","message":"Invalid chars in keyword"}]}
]}
)"_s);
}

void tst_SpecCheckJson::fitsItsSchema()
{
    const QVector<NamedText> texts = manyTexts();
    const QJsonObject report = reportObject(texts);
    QCOMPARE(report["files"_s].toArray().size(), texts.size());
    QCOMPARE(JsonSchema(schema()).faultIn(report), QString());
}

void tst_SpecCheckJson::schemaKnowsTheRules()
{
    QJsonArray names;
    for (const RuleFacts& facts : RULES)
        names.append(QLatin1String(facts.name));
    const QJsonObject finding = schema().value("$defs"_s).toObject().value("finding"_s).toObject();
    QCOMPARE(finding.value("properties"_s)
                 .toObject()
                 .value("rule"_s)
                 .toObject()
                 .value("enum"_s)
                 .toArray(),
             names);
}

void tst_SpecCheckJson::schemaRefusesOtherForms_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("another version") << QByteArray("\"version\":1") << QByteArray("\"version\":2");
    QTest::newRow("an unknown rule") << QByteArray("\"refused\"") << QByteArray("\"other\"");
    QTest::newRow("a tab without a count") << QByteArray("\"ECM List\":0") << QByteArray("\"x\":0");
    QTest::newRow("a line before the first")
        << QByteArray("\"line\":1") << QByteArray("\"line\":0");
    QTest::newRow("a text for a number")
        << QByteArray("\"column\":1") << QByteArray("\"column\":\"1\"");
    QTest::newRow("no name") << QByteArray("\"file\":\"x\"") << QByteArray("\"file\":\"\"");
}

void tst_SpecCheckJson::schemaRefusesOtherForms()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray json = reportOf("json", {{"x"_s, "no spec"}});
    QVERIFY(json.contains(from));
    const QJsonObject report = QJsonDocument::fromJson(json.replace(from, to)).object();
    QVERIFY(!report.isEmpty());
    QVERIFY(!JsonSchema(schema()).faultIn(report).isEmpty());
}

void tst_SpecCheckJson::cellsHaveTabRowAndField()
{
    const QJsonObject whole = firstFinding(reportObject({{"x"_s, "no spec"}}));
    QVERIFY(!whole.contains("tab"_s) && !whole.contains("row"_s) && !whole.contains("field"_s));
    const QJsonObject report = reportObject({{"x"_s, "@SCRIBON a-b\n"}});
    int cells = 0;
    for (const QJsonValue finding : report["files"_s][0]["findings"_s].toArray()) {
        const QJsonObject object = finding.toObject();
        QCOMPARE(object.contains("tab"_s), object.contains("row"_s));
        QCOMPARE(object.contains("tab"_s), object.contains("field"_s));
        cells += object.contains("tab"_s) ? 1 : 0;
    }
    QCOMPARE(cells, 1);
}

void tst_SpecCheckJson::emptyCellsAreTold()
{
    const QJsonObject report = reportObject({{"x"_s, "@SCRIBON x\n@SCAN_LIST\nspeed\n"}});
    const QJsonObject finding = report["files"_s][0]["findings"_s].toArray().last().toObject();
    QCOMPARE(finding["field"_s].toString(), "Channel Keyword"_s);
    QCOMPARE(finding["hint"_s].toString(), "Channel Keyword is empty."_s);
}

// Behind characters of two, three and four bytes, and a byte order mark.
void tst_SpecCheckJson::columnsOfOneLine()
{
    const QString line =
        "@SCRIBON 9 @DESCRIPTION '\u00e4\u6f22\U0001f600' @MODE 7 "
        "@DESCRIPTION '\u00e4' @MODE 8\n"_s;
    const QJsonObject report = reportObject({{"x"_s, "\xef\xbb\xbf" + line.toUtf8()}});
    QList<int> columns;
    for (const QJsonValue finding : report["files"_s][0]["findings"_s].toArray()) {
        if (finding["hint"_s].toString() == "Keyword is empty."_s)
            columns.append(finding["column"_s].toInt());
    }
    QCOMPARE(columns, QList<int>({line.indexOf("9"_s) + 1, line.indexOf("7"_s) + 1,
                                  line.indexOf("8"_s) + 1}));
}

// The column of each finding is counted from the one before.
void tst_SpecCheckJson::longLinesTakeNoLonger()
{
    const auto processorTime = [](const QByteArray& separator) {
        const std::clock_t start = std::clock();
        reportOf("json", {{"x"_s, "@SCRIBON x" + (separator + "@GROUP \xc3\xa4").repeated(8000)}});
        return std::clock() - start;
    };
    QVERIFY(processorTime(" ") < 3 * processorTime("\n"));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCheckJson)
#include "tst_spec_check_json.moc"
