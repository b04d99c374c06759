// The snapshot of a desk platform is the catalogue that the platform runs, and a platform that runs
// the snapshot has the same shared memory.

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QtTest>
#include <array>
#include <map>
#include <set>

#include "desk.h"
#include "desk_process.h"
#include "random_catalogue.h"
#include "taken_snapshot.h"

namespace {

const auto DIRECTORY = QStringLiteral("directory");
const auto KEYWORDS = QStringLiteral("KEYWORD_MEM");

// A platform in this process, which needs less time than a process of its own.
class OwnDesk {
public:
    explicit OwnDesk(const marvane::Catalogue& catalogue)
        : name_(uniqueDeskName()),
          desk_(marvane::Desk::start(name_.toStdString(), catalogue, &complaint_))
    {
    }

    bool isRunning() const { return desk_.has_value(); }
    const QString& name() const { return name_; }

private:
    QString name_;
    std::string complaint_;
    std::optional<marvane::Desk> desk_;
};

TakenSnapshot snapshotOf(const OwnDesk& desk)
{
    qputenv("MARVANE_DESK_NAME", desk.name().toLatin1());
    return takeSnapshot();
}

// A file's size and the blocks of it that have been written to, by their places.
struct Content {
    qint64 size = -1;
    std::map<off_t, std::array<char, 4096>> blocks;

    bool operator==(const Content& other) const
    {
        return size == other.size && blocks == other.blocks;
    }
};

Content contentOf(const QString& path)
{
    QFile file(path);
    Content content;
    if (!file.open(QIODevice::ReadOnly))
        return content;
    content.size = file.size();
    for (off_t at = 0; (at = lseek(file.handle(), at, SEEK_DATA)) >= 0;) {
        auto& block = content.blocks[at];
        if (pread(file.handle(), block.data(), block.size(), at) < 0)
            return {};
        at += static_cast<off_t>(block.size());
    }
    return content;
}

// The shared memory of a platform, by the names of its objects. It must not have been read before:
// that would fill it with zeros.
std::map<QString, Content> memoryOf(const OwnDesk& desk)
{
    std::map<QString, Content> memory;
    for (const QString& object : sharedMemoryOf(desk.name()))
        memory[object] = contentOf(sharedMemoryPath(desk.name(), object));
    return memory;
}

// ---- What a platform does not tell of its catalogue --------------------------------------------

std::set<int32_t> dimensionsInUse(const marvane::Catalogue& catalogue)
{
    std::map<std::string, int32_t> dimensions;
    for (const marvane::CatalogueUnits& units : catalogue.units)
        dimensions[units.name] = units.dimension;
    std::set<int32_t> inUse;
    for (const auto& table : catalogue.tables) {
        for (const marvane::CatalogueVariable& variable : table) {
            if (variable.isActive && !variable.units.empty())
                inUse.insert(dimensions.at(variable.units));
        }
    }
    return inUse;
}

// The units and aliases of variables that are not in use.
void dropWhatIsNotInUse(marvane::Catalogue& catalogue)
{
    for (auto& table : catalogue.tables) {
        for (marvane::CatalogueVariable& variable : table) {
            if (!variable.isActive) {
                variable.alias.clear();
                variable.units.clear();
            }
        }
    }
}

// The units of dimensions of which no variable has units. The others move up. Returns how many
// units of keywords were dropped.
int dropUntoldUnits(marvane::Catalogue& catalogue)
{
    const std::set<int32_t> told = dimensionsInUse(catalogue);
    std::vector<marvane::CatalogueUnits> kept;
    std::map<int32_t, int32_t> newCodes{{0, 0}};
    for (size_t i = 0; i < catalogue.units.size(); ++i) {
        const auto dimension = told.find(catalogue.units[i].dimension);
        if (dimension == told.end())
            continue;
        kept.push_back(catalogue.units[i]);
        kept.back().dimension = static_cast<int32_t>(std::distance(told.begin(), dimension));
        newCodes[static_cast<int32_t>(i) + 1] = static_cast<int32_t>(kept.size());
    }
    int dropped = 0;
    for (marvane::CatalogueKeyword& keyword : catalogue.keywords) {
        const auto code = newCodes.find(keyword.unitsCode);
        dropped += code == newCodes.end() ? 1 : 0;
        keyword.unitsCode = code != newCodes.end() ? code->second : 0;
    }
    catalogue.units = kept;
    return dropped;
}

// How often units that are told follow on units that are not.
int gapsOf(const marvane::Catalogue& catalogue)
{
    const std::set<int32_t> told = dimensionsInUse(catalogue);
    int gaps = 0;
    bool isInGap = false;
    for (const marvane::CatalogueUnits& units : catalogue.units) {
        const bool isTold = told.count(units.dimension) != 0;
        gaps += isTold && isInGap ? 1 : 0;
        isInGap = !isTold;
    }
    return gaps;
}

}  // namespace

class TestSnapshotRoundTrip : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void exampleCell();
    void randomCatalogues();
};

void TestSnapshotRoundTrip::exampleCell()
{
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    auto catalogue = acceptedCatalogue(file.readAll());
    QVERIFY(catalogue);
    const OwnDesk desk(*catalogue);
    const auto memory = memoryOf(desk);
    QCOMPARE(memory.size(), size_t{27});
    const TakenSnapshot taken = snapshotOf(desk);
    QCOMPARE(taken.reading, snapshot::Reading::Done);
    QCOMPARE(taken.omissions, QStringList());
    const auto again = acceptedCatalogue(taken.text);
    QVERIFY(again);
    dropWhatIsNotInUse(*catalogue);
    QCOMPARE(described(*again), described(*catalogue));
    const OwnDesk second(*again);
    QVERIFY(memoryOf(second) == memory);
    QCOMPARE(snapshotOf(second).text, taken.text);
}

void TestSnapshotRoundTrip::randomCatalogues()
{
    constexpr uint32_t CATALOGUES = 2000;
    uint32_t complete = 0;
    for (uint32_t seed = 0; seed < CATALOGUES; ++seed) {
        auto catalogue = loadedCatalogue(randomCatalogue(seed));
        QVERIFY(catalogue);
        const OwnDesk desk(*catalogue);
        QVERIFY(desk.isRunning());
        auto memory = memoryOf(desk);
        const TakenSnapshot taken = snapshotOf(desk);
        QCOMPARE(taken.reading, snapshot::Reading::Done);
        // Checking the schema takes longer than all the rest.
        const auto again =
            seed % 20 == 0 ? acceptedCatalogue(taken.text) : loadedCatalogue(taken.text);
        QVERIFY2(again, taken.text);

        const size_t unitsBefore = catalogue->units.size();
        const int gaps = gapsOf(*catalogue);
        dropWhatIsNotInUse(*catalogue);
        const int untold = dropUntoldUnits(*catalogue);
        QCOMPARE(described(*again), described(*catalogue));
        QCOMPARE(taken.omissions.size(), gaps + untold);
        auto memoryAgain = memoryOf(OwnDesk(*again));
        const bool isComplete = catalogue->units.size() == unitsBefore;
        complete += isComplete ? 1 : 0;
        // The directory has all units, and the keywords have their codes.
        if (!isComplete)
            memory[DIRECTORY] = memoryAgain[DIRECTORY] = {};
        if (!taken.omissions.isEmpty())
            memory[KEYWORDS] = memoryAgain[KEYWORDS] = {};
        QVERIFY2(memoryAgain == memory, qPrintable(QString::number(seed)));
    }
    QVERIFY2(complete > CATALOGUES / 3 && complete < CATALOGUES, "both kinds are there");
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestSnapshotRoundTrip)
#include "tst_snapshot_round_trip.moc"
