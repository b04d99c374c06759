// The example files against the demo cell and its asam3_specs files: each name exists and fits,
// but for those told here.

#include <QFileInfo>
#include <QtTest>
#include <optional>

#include "cell_check.h"
#include "desk_process.h"
#include "ecmoffers.h"
#include "spec_program.h"

class tst_SpecCellExamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void examples_data();
    void examples();
    void largeExampleHasItsVariables();

private:
    DeskProcess m_desk;
    std::optional<LiveCell> m_cell;
    std::optional<EcmOffers> m_offers;
};

void tst_SpecCellExamples::initTestCase()
{
    QVERIFY(m_desk.start(demoCatalogue()));
    QVERIFY(LiveCell::join());
    m_cell.emplace();
    m_offers.emplace(qEnvironmentVariable("SCRIBON_EXAMPLES"));
}

void tst_SpecCellExamples::examples_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("expected");
    const QMap<QString, QString> known{
        {QStringLiteral("scrib_commented"),
         QStringLiteral("51:15 unknown-channel: the test cell has no channel keyword P_OIL_MIN")},
        {QStringLiteral("scrib_ecm"),
         QStringLiteral("72:5 unknown-list: no asam3_specs file offers the list "
                        "/specs/hybrid/asam3_specs.drive:BMS0:99 "
                        "Did you mean /specs/hybrid/asam3_specs.drive:BMS0:0?")},
        {QStringLiteral("scrib_event_triggered"),
         QStringLiteral("27:1 wrong-kind: log_interval is not an integer variable, which "
                        "@SCAN_INTERVAL needs")}};
    for (const QString& path : exampleSpecs()) {
        const QString name = QFileInfo(path).fileName();
        if (name == QLatin1String("scrib_broken") || name == QLatin1String("scrib_large"))
            continue;
        const QString finding = known.value(name);
        QTest::newRow(qPrintable(name))
            << path << (finding.isEmpty() ? QStringList() : QStringList{finding});
    }
}

void tst_SpecCellExamples::examples()
{
    QFETCH(QString, path);
    QTEST(cellFindings(SpecFile::read(path), &*m_cell, &*m_offers), "expected");
}

// Its channel keywords and lists are made up by the generator.
void tst_SpecCellExamples::largeExampleHasItsVariables()
{
    const QString path = qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_large");
    for (const QString& finding : cellFindings(SpecFile::read(path), &*m_cell, &*m_offers)) {
        QVERIFY2(finding.contains(QLatin1String(" unknown-channel: ")) ||
                     finding.contains(QLatin1String(" unknown-list: ")),
                 qPrintable(finding));
    }
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCellExamples)
#include "tst_spec_cell_examples.moc"
