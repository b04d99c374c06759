// Checks that generated files have the requested size and shape, load without errors, and have the
// form that a save writes.

#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <algorithm>

#include "documents.h"
#include "golden_keywords.h"
#include "spec_generator.h"

Q_DECLARE_METATYPE(SpecShape)

namespace {

QByteArray generated(const SpecShape& shape)
{
    return QByteArray::fromStdString(generateSpec(shape));
}

SpecShape distinctShape(int scanRows, int metaRows)
{
    SpecShape shape;
    shape.scanRows = scanRows;
    shape.metaRows = metaRows;
    shape.distinct = true;
    shape.withUnits = true;
    return shape;
}

int keywordCount(KeywordSet set)
{
    if (set == KeywordSet::Required)
        return countKeywords(isRequiredStatement);
    return countKeywords(set == KeywordSet::Offered ? isOffered : isStatement);
}

// All names in the lists that are made up by the generator.
QStringList names(const Document& document)
{
    struct Column {
        int tab;
        int column;
    };
    QStringList names;
    for (const Column& place : {Column{EDIT_TAB2, 1}, Column{EDIT_TAB2, 3}, Column{EDIT_TAB3, 1},
                                Column{EDIT_TAB3, 2}, Column{EDIT_TAB4, 1}, Column{EDIT_TAB4, 2}}) {
        const TreeModel& tab = document.tab(place.tab);
        for (int row = 1; row < tab.rowCount(); ++row)
            names.append(cell(tab, row, place.column));
    }
    return names;
}

struct Run {
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

Run run(const QStringList& arguments, const QString& outputFile = QString())
{
    QProcess process;
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    process.start(QStringLiteral(GENERATE_SPEC), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

}  // namespace

class TestSpecGenerator : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void loadsWithExactCounts_data();
    void loadsWithExactCounts();
    void sameShapeGivesTheSameText();
    void anotherSeedGivesOtherNames();
    void generatedNamesAreDistinct();
    void lengthsOfGeneratedNamesAreEvenlyDistributed_data();
    void lengthsOfGeneratedNamesAreEvenlyDistributed();
    void everyFifthNameHasASpecialForm();
    void withoutUnitsAllNamesArePlain_data();
    void withoutUnitsAllNamesArePlain();
    void channelsOfTheDemoCellAreUnique();
    void programAcceptsOptions_data();
    void programAcceptsOptions();
    void programRejectsInvalidOptions_data();
    void programRejectsInvalidOptions();
    void programReportsAFullDisk();
};

void TestSpecGenerator::loadsWithExactCounts_data()
{
    QTest::addColumn<SpecShape>("shape");

    SpecShape shape;
    QTest::newRow("the default shape") << shape;
    shape.scanRows = 0;
    QTest::newRow("lists without rows") << shape;
    shape = SpecShape();
    shape.keywords = KeywordSet::Offered;
    QTest::newRow("the keywords that the tab offers") << shape;
    shape.keywords = KeywordSet::All;
    shape.scanRows = shape.metaRows = shape.auxRows = shape.ecmRows = 1;
    QTest::newRow("all keywords, one row each") << shape;
    shape = SpecShape();
    shape.scanRows = 7000;
    shape.metaRows = 300;
    shape.auxRows = 200;
    shape.ecmRows = 100;
    shape.withUnits = true;
    QTest::newRow("the demo cell more than twice over, with units") << shape;
    shape = distinctShape(10000, 2000);
    shape.keywords = KeywordSet::All;
    QTest::newRow("10,000 rows of generated names of all forms") << shape;
    shape = distinctShape(500, 500);
    shape.auxRows = 500;
    shape.maxName = SpecShape::MIN_NAME_LENGTH;
    QTest::newRow("shortest names") << shape;
    shape.maxName = 12;
    QTest::newRow("names too short for some forms") << shape;
    shape = distinctShape(100000, 0);
    shape.withUnits = false;
    shape.maxName = 20;
    QTest::newRow("100,000 rows") << shape;
}

void TestSpecGenerator::loadsWithExactCounts()
{
    QFETCH(SpecShape, shape);
    const QByteArray text = generated(shape);
    const Document document(text);
    QCOMPARE(document.verdict, 0);
    const QList<int> rows{keywordCount(shape.keywords), shape.scanRows + 1, shape.metaRows + 1,
                          shape.auxRows + 1, shape.ecmRows + 1};
    QCOMPARE(document.rowCounts(), rows);
    const QList<int> errors{shape.keywords == KeywordSet::All ? 1 : 0, 0, 0, 0, 0};
    QCOMPARE(document.errorCounts(), errors);
    QVERIFY2(document.saved() == text, "a save changes the text");
}

void TestSpecGenerator::sameShapeGivesTheSameText()
{
    const SpecShape shape = distinctShape(200, 50);
    QCOMPARE(generated(shape), generated(shape));
    // Checks the text itself, which must not depend on the standard library or the machine.
    QVERIFY(generated(shape).contains(
        "\n@SCAN_LIST\n"
        "crank_boost_demand_rail_piston_exhaust_manifold_eng_0[PCT]\t\t.MD\t\t"
        "crank_compressor_cylinder_torque_turb_1\n"
        "coole_2\t\t.RN\t\texhaust_cooler_inlet_3\n"));
}

void TestSpecGenerator::anotherSeedGivesOtherNames()
{
    SpecShape shape = distinctShape(200, 50);
    const QByteArray text = generated(shape);
    ++shape.seed;
    QVERIFY(generated(shape) != text);
}

void TestSpecGenerator::generatedNamesAreDistinct()
{
    SpecShape shape = distinctShape(10000, 2000);
    shape.auxRows = 1000;
    const QStringList all = names(Document(generated(shape)));
    QCOMPARE(all.size(), 2 * 13000);
    QCOMPARE(QSet<QString>(all.cbegin(), all.cend()).size(), all.size());
}

void TestSpecGenerator::lengthsOfGeneratedNamesAreEvenlyDistributed_data()
{
    QTest::addColumn<int>("longest");
    QTest::newRow("6 characters") << 6;
    QTest::newRow("6 to 30 characters") << 30;
    QTest::newRow("6 to 79 characters") << 79;
}

void TestSpecGenerator::lengthsOfGeneratedNamesAreEvenlyDistributed()
{
    QFETCH(int, longest);
    SpecShape shape = distinctShape(5000, 1000);
    shape.maxName = longest;
    const int lengths = longest - SpecShape::MIN_NAME_LENGTH + 1;
    QVector<int> counts(lengths);
    const QStringList all = names(Document(generated(shape)));
    for (const QString& name : all) {
        QVERIFY2(name.size() >= SpecShape::MIN_NAME_LENGTH && name.size() <= longest,
                 qPrintable(name));
        ++counts[name.size() - SpecShape::MIN_NAME_LENGTH];
    }
    const auto [rarest, commonest] = std::minmax_element(counts.cbegin(), counts.cend());
    QVERIFY(*rarest * 3 > all.size() / lengths);
    QVERIFY(*commonest < all.size() / lengths * 2);
}

void TestSpecGenerator::everyFifthNameHasASpecialForm()
{
    const QStringList all = names(Document(generated(distinctShape(10000, 2000))));
    const QRegularExpression plain(QStringLiteral("^[A-Za-z_0-9]+$"));
    QCOMPARE(all.size() - all.filter(plain).size(), all.size() / 5);
    for (const char* piece : {"[RPM]", "'", "\"", "@", "(12)"})
        QVERIFY2(all.filter(QString::fromLatin1(piece)).size() > 20, piece);
}

void TestSpecGenerator::withoutUnitsAllNamesArePlain_data()
{
    QTest::addColumn<bool>("distinct");
    QTest::newRow("generated names") << true;
    QTest::newRow("the demo cell") << false;
}

void TestSpecGenerator::withoutUnitsAllNamesArePlain()
{
    QFETCH(bool, distinct);
    SpecShape shape;
    shape.metaRows = 20;
    shape.auxRows = 20;
    shape.distinct = distinct;
    const QStringList all = names(Document(generated(shape)));
    const QRegularExpression plain(QStringLiteral("^[A-Za-z_0-9]+$"));
    QCOMPARE(all.filter(plain).size(), all.size());
}

void TestSpecGenerator::channelsOfTheDemoCellAreUnique()
{
    SpecShape shape;
    shape.scanRows = 10000;
    const Document document(generated(shape));
    const TreeModel& tab = document.tab(EDIT_TAB2);
    QSet<QString> variables;
    QSet<QString> channels;
    for (int row = 1; row < tab.rowCount(); ++row) {
        variables.insert(cell(tab, row, 1));
        channels.insert(cell(tab, row, 3));
    }
    QCOMPARE(channels.size(), shape.scanRows);
    QVERIFY(variables.size() < 200);
}

void TestSpecGenerator::programAcceptsOptions_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<SpecShape>("shape");

    QTest::newRow("none") << QString() << SpecShape();
    SpecShape shape;
    shape.scanRows = 12;
    shape.metaRows = 3;
    shape.auxRows = 4;
    shape.ecmRows = 5;
    QTest::newRow("rows") << QStringLiteral(
                                 "--scan-rows 12 --meta-rows 3 --aux-rows=4 --ecm-rows=5")
                          << shape;
    shape = SpecShape();
    shape.keywords = KeywordSet::Offered;
    QTest::newRow("offered keywords") << QStringLiteral("--keywords offered") << shape;
    shape.keywords = KeywordSet::All;
    QTest::newRow("all keywords") << QStringLiteral("--keywords all") << shape;
    QTest::newRow("required keywords") << QStringLiteral("--keywords required") << SpecShape();
    shape = distinctShape(100, 0);
    shape.maxName = 20;
    shape.seed = 4000000000U;
    QTest::newRow("names") << QStringLiteral(
                                  "--distinct --with-units --max-name 20 --seed 4000000000")
                           << shape;
}

void TestSpecGenerator::programAcceptsOptions()
{
    QFETCH(QString, options);
    QFETCH(SpecShape, shape);
    const Run result = run(options.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, generated(shape));
    QCOMPARE(result.errors, QByteArray());
}

void TestSpecGenerator::programRejectsInvalidOptions_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("a negative number of rows")
        << QStringLiteral("--scan-rows=-1") << QStringLiteral("--scan-rows does not take '-1'");
    QTest::newRow("too many rows") << QStringLiteral("--meta-rows 250001")
                                   << QStringLiteral("--meta-rows does not take '250001'");
    QTest::newRow("rows that are not a number")
        << QStringLiteral("--aux-rows 10k") << QStringLiteral("--aux-rows does not take '10k'");
    QTest::newRow("an empty number of rows")
        << QStringLiteral("--ecm-rows=") << QStringLiteral("--ecm-rows does not take ''");
    QTest::newRow("names too short")
        << QStringLiteral("--max-name 5") << QStringLiteral("--max-name does not take '5'");
    QTest::newRow("names too long")
        << QStringLiteral("--max-name 80") << QStringLiteral("--max-name does not take '80'");
    QTest::newRow("an unknown set of keywords")
        << QStringLiteral("--keywords most") << QStringLiteral("--keywords does not take 'most'");
    QTest::newRow("a seed too large") << QStringLiteral("--seed 4294967296")
                                      << QStringLiteral("--seed does not take '4294967296'");
    QTest::newRow("an option without its value")
        << QStringLiteral("--seed") << QStringLiteral("requires an argument");
    QTest::newRow("an unknown option")
        << QStringLiteral("--rows 5") << QStringLiteral("unrecognized option");
    QTest::newRow("a file name") << QStringLiteral("scrib_out") << QStringLiteral("Usage:");
}

void TestSpecGenerator::programRejectsInvalidOptions()
{
    QFETCH(QString, options);
    QFETCH(QString, complaint);
    const Run result = run(options.split(QLatin1Char(' ')));
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QByteArray());
    QVERIFY2(result.errors.contains(complaint.toLatin1()), result.errors.constData());
}

void TestSpecGenerator::programReportsAFullDisk()
{
    const Run result = run({}, QStringLiteral("/dev/full"));
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.startsWith("generate_spec: "));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestSpecGenerator)
#include "tst_spec_generator.moc"
