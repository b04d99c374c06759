// Checks that the example asam3_specs files have the ECM lists of the table below, and that the
// example spec files only name existing lists.

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <array>

#include "asam_files.h"

namespace {

constexpr int READ = 0;
constexpr int WRONG_FORM = 76;

struct Example {
    const char* name;
    int result;
    const char* offers;
};

// clang-format off
constexpr std::array<Example, 11> EXAMPLES{{
    {"asam3_specs.engine",            READ,       "ECM0:0 ECM0:1 ECM1:0 ECM1:1"},
    {"asam3_specs.aftertreatment",    READ,       "ACM0:0 ACM0:1 NOX_IN:0 NOX_OUT:0"},
    {"hybrid/asam3_specs.drive",      READ,       "INV0:0 BMS0:0 BMS0:1"},
    {"asam3_specs.five_sections",     READ,       "GCU10:0 GCU1:1 TCU:0 TCU:1"},
    {"asam3_specs.bad_register",      WRONG_FORM, ""},
    {"asam3_specs.bad_end",           WRONG_FORM, ""},
    {"asam3_specs.bad_preamble",      WRONG_FORM, ""},
    {"asam3_specs.bad_open_preamble", WRONG_FORM, ""},
    {"asam3_specs.bad_no_sections",   WRONG_FORM, ""},
    {"asam3_specs.bad_head",          WRONG_FORM, ""},
    {"asam3_specs.bad_fifth_head",    WRONG_FORM, "ECM0:0 ECM1:0 ECM0:1 ECM0:2"},
}};
// clang-format on

QString examples()
{
    return qEnvironmentVariable("SCRIBON_EXAMPLES") + QLatin1Char('/');
}

QString textOf(const QString& name)
{
    QFile file(examples() + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

class tst_AsamExamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsTheListsNamedInTheReadme_data();
    void readsTheListsNamedInTheReadme();
    void everyFileIsTested();
    void listsOfTheExampleSpecFilesAreOffered_data();
    void listsOfTheExampleSpecFilesAreOffered();
};

void tst_AsamExamples::readsTheListsNamedInTheReadme_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("offers");
    for (const Example& example : EXAMPLES)
        QTest::newRow(example.name) << QString::fromLatin1(example.name) << example.result
                                    << QString::fromLatin1(example.offers);
}

void tst_AsamExamples::readsTheListsNamedInTheReadme()
{
    QFETCH(QString, name);
    const AsamLists lists = readLists(examples() + name);
    QTEST(lists.result, "result");
    QTEST(lists.entries.join(QLatin1Char(' ')), "offers");
    const QString told = lists.result == READ ? lists.entries.join(QStringLiteral("`, `"))
                                              : QStringLiteral("nothing: ");
    const QString row = QStringLiteral("| `%1` | %2")
                            .arg(name, lists.result == READ ? QStringLiteral("`") : QString());
    QVERIFY2(textOf(QStringLiteral("README.md")).contains(row + told), qPrintable(row + told));
}

void tst_AsamExamples::everyFileIsTested()
{
    QSet<QString> told;
    for (const Example& example : EXAMPLES)
        told.insert(QString::fromLatin1(example.name));
    QSet<QString> there;
    QDirIterator files(examples(), {QStringLiteral("asam3_specs*")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        there.insert(files.next().mid(examples().size()));
    QCOMPARE(there, told);
}

void tst_AsamExamples::listsOfTheExampleSpecFilesAreOffered_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("scrib_ecm") << 12;
    QTest::newRow("scrib_full") << 3;
    QTest::newRow("scrib_commented") << 2;
    QTest::newRow("scrib_crlf") << 1;
}

void tst_AsamExamples::listsOfTheExampleSpecFilesAreOffered()
{
    QFETCH(int, count);
    const QRegularExpression entry(QStringLiteral("/specs/(\\S*asam3_specs[^:\\s]*):(\\S+:\\d+)"));
    auto entries = entry.globalMatch(textOf(QString::fromLatin1(QTest::currentDataTag())));
    int offered = 0;
    while (entries.hasNext()) {
        const QRegularExpressionMatch match = entries.next();
        QVERIFY2(readLists(examples() + match.captured(1)).entries.contains(match.captured(2)),
                 qPrintable(match.captured()));
        ++offered;
    }
    QCOMPARE(offered, count);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_AsamExamples)

#include "tst_asam_examples.moc"
