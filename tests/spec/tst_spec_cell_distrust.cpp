// A test cell whose shared memory is incomplete or holds nonsense, and one that stops.

#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QtTest>
#include <cstdlib>
#include <memory>

#include "cell_check.h"
#include "commands.h"
#include "desk_process.h"
#include "platformkeywords.h"

namespace {

const QByteArray& wrongNames()
{
    static const QByteArray spec =
        cellSpec("@SCAN_LIST\neng_sped NENG\n@META_DATA\nTEST_CEL no_name");
    return spec;
}

const auto NO_VARIABLE = QStringLiteral(
    "10:1 unknown-variable: the test cell has no variable eng_sped "
    "Did you mean eng_speed?");

}  // namespace

class tst_SpecCellDistrust : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    // First, since the area stays attached.
    void noKeywordArea();
    void nonsenseInKeywords();
    void keywordWithoutATerminatingZero();
    void nonsenseInVariables();
    void variableThatIsNotListed();
    void endsWithThePlatform();
    void noPlatform();

private:
    bool overwrite(const char* area, qint64 at, const QByteArray& bytes);

    std::unique_ptr<DeskProcess> m_desk;
};

void tst_SpecCellDistrust::init()
{
    m_desk = std::make_unique<DeskProcess>();
    QVERIFY(m_desk->start(demoCatalogue()));
}

bool tst_SpecCellDistrust::overwrite(const char* area, qint64 at, const QByteArray& bytes)
{
    QFile file(sharedMemoryPath(m_desk->name(), QString::fromLatin1(area)));
    return file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(bytes) == bytes.size();
}

void tst_SpecCellDistrust::noKeywordArea()
{
    QVERIFY(QFile::remove(sharedMemoryPath(m_desk->name(), QStringLiteral("KEYWORD_MEM"))));
    QVERIFY(LiveCell::join());
    const LiveCell cell;
    QVERIFY(!cell.hasKeywords());
    QCOMPARE(
        cellFindings(wrongNames(), &cell),
        (QStringList{NO_VARIABLE, QStringLiteral("12:10 unknown-variable: the test cell has no "
                                                 "variable no_name")}));
}

void tst_SpecCellDistrust::nonsenseInKeywords()
{
    QVERIFY(overwrite("KEYWORD_MEM", 0, QByteArray(704060, '\xff')));
    QVERIFY(LiveCell::join());
    const LiveCell cell;
    QVERIFY(cell.hasKeywords());
    QVERIFY(cellFindings(wrongNames(), &cell)
                .contains(QStringLiteral(
                    "10:10 unknown-channel: the test cell has no channel keyword NENG")));
}

// Such a keyword would run on into the code of its units.
void tst_SpecCellDistrust::keywordWithoutATerminatingZero()
{
    QByteArray entry = QByteArray(80, 'K') + QByteArray("AAAA") + '\0';
    QVERIFY(overwrite("KEYWORD_MEM", 0, entry));
    QVERIFY(LiveCell::join());
    Keyword_memory = nullptr;
    const LiveCell cell;
    const QString name(80, QLatin1Char('K'));
    QCOMPARE(cell.unitsOfKeyword(name, CHANNEL_KEYWORD), QList<int>{0x41414141});
}

void tst_SpecCellDistrust::nonsenseInVariables()
{
    QVERIFY(overwrite("AI_REAL_MEM", 0, QByteArray(160 * 390, '\xff')));
    QVERIFY(overwrite("GU_STRING_MEM", 0, QByteArray(410, '\x80')));
    QVERIFY(LiveCell::join());
    const LiveCell cell;
    QVERIFY(cellFindings(wrongNames(), &cell).contains(NO_VARIABLE));
}

// Without the area of general reals the editor lists no general variable, but the platform finds
// it. Nobody knows of which kind it is.
void tst_SpecCellDistrust::variableThatIsNotListed()
{
    DeskProcess desk;
    QVERIFY(desk.startWith(R"({"areas":{"GU_LOGICAL_MEM":{"logical":[{"label":"flag"}]}}})"));
    QVERIFY(LiveCell::join());
    const LiveCell cell;
    QCOMPARE(
        cellFindings("@SCRIBON x\n@GROUP flag\n@MODE flug\n", &cell),
        QStringList{QStringLiteral("3:7 unknown-variable: the test cell has no variable flug")});
}

// The editor would end with status 0.
void tst_SpecCellDistrust::endsWithThePlatform()
{
    QVERIFY(LiveCell::join());
    QVERIFY(m_desk->terminate());
    const pid_t child = fork();
    if (child == 0) {
        const LiveCell cell;
        std::_Exit(EXIT_CLEAN);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), EXIT_TROUBLE);
}

void tst_SpecCellDistrust::noPlatform()
{
    QVERIFY(m_desk->terminate());
    QVERIFY(!LiveCell::join());
    QVERIFY(!LiveCell::isRunning());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCellDistrust)
#include "tst_spec_cell_distrust.moc"
