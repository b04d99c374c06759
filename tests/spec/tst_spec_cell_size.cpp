// A check of 10,000 rows against a cell of 20,000 variables.

#include <QtTest>
#include <ctime>

#include "cell_check.h"
#include "desk_process.h"
#include "livefindings.h"
#include "spec_program.h"

namespace {

constexpr int VARIABLES = 20000;
constexpr int ROWS = 10000;
constexpr int WRONG_ROWS = ROWS / 10;

QByteArray variable(int number)
{
    return "channel_" + QByteArray::number(number).rightJustified(5, '0');
}

QByteArray largeCatalogue()
{
    QByteArray text = R"({"units":{"speed":["RPM","HZ"]},"areas":{"GU_REAL_MEM":{"real":[)";
    for (int i = 0; i < VARIABLES; ++i)
        text +=
            (i == 0 ? "" : ",") + QByteArray(R"({"label":")") + variable(i) + R"(","units":"RPM"})";
    return text + R"(]}},"keywords":[{"name":"N_ENG","kind":"channel","units":"RPM"}]})";
}

// Each channel keyword may stand once, so all are this one with a number.
QByteArray largeSpecOfCell()
{
    QByteArray rows = "@SCAN_LIST\n";
    for (int i = 0; i < ROWS; ++i)
        rows += variable(i < WRONG_ROWS ? i + VARIABLES : 2 * i) + "[HZ] N_ENG@" +
                QByteArray::number(i) + '\n';
    return rows;
}

}  // namespace

class tst_SpecCellSize : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void quick();
};

// In processor time, since the machine may be busy.
void tst_SpecCellSize::quick()
{
    DeskProcess desk;
    QVERIFY(desk.startWith(largeCatalogue()));
    const SpecFile file = loadedSpec("@SCRIBON size\n" + largeSpecOfCell());
    const std::clock_t start = std::clock();
    QVERIFY(LiveCell::join());
    const LiveCell cell;
    std::vector<Finding> findings;
    addLiveFindings(file, cell, &findings);
    QCOMPARE(findings.size(), static_cast<size_t>(WRONG_ROWS));
    QVERIFY((std::clock() - start) / CLOCKS_PER_SEC < 5);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCellSize)
#include "tst_spec_cell_size.moc"
