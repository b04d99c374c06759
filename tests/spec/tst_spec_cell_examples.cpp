// The example files against the demo cell and its asam3_specs files: nothing is wrong with those
// that are not made to show it.

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
    // It has every keyword, and this one cannot be set without a mark.
    const QString markOfFull = "102:1 duplicate: Duplicate entry found!"_s;
    for (const QString& path : exampleSpecs()) {
        const QString name = QFileInfo(path).fileName();
        if (name == "scrib_broken"_s || name == "scrib_large"_s)
            continue;
        QTest::newRow(qPrintable(name))
            << path << (name == "scrib_full"_s ? QStringList{markOfFull} : QStringList());
    }
}

void tst_SpecCellExamples::examples()
{
    QFETCH(QString, path);
    QTEST(allFindings(SpecFile::read(path), &*m_cell, &*m_offers), "expected");
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
