// Snapshots by host functions that answer with anything, and of a platform that ends or is replaced
// while it is read.

#include <dlfcn.h>
#include <marvane_headers.h>

#include <QtTest>
#include <cstring>
#include <functional>
#include <memory>

#include "desk_process.h"
#include "taken_snapshot.h"

namespace {

constexpr char CATALOGUE[] = R"({ "units": { "speed": ["RPM", "HZ"] }, "areas": {
    "AI_REAL_MEM": { "real": [ { "label": "speed", "units": "RPM", "alias": "n" } ] },
    "DP_STAT_MEM": { "statistic": [ { "label": "speed_stat.", "units": "HZ" } ] } } })";

// What a test puts in place of a function of the library.
struct Answers {
    std::function<int16_t(char**)> alias;
    std::function<const char*()> units;
    std::function<int16_t(int16_t*, UNITS_NAME*)> unitsOfDimension;
    std::function<int16_t(int32_t*)> code;
};

Answers answers;

template <typename Function>
Function* ofTheLibrary(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

int16_t find_alias_of_target(const char* label, SHARED_MEMORY* mem, char** alias)
{
    const auto next =
        ofTheLibrary<int16_t(const char*, SHARED_MEMORY*, char**)>("find_alias_of_target");
    return answers.alias ? answers.alias(alias) : next(label, mem, alias);
}

const char* get_variable_units(SHARED_MEMORY mem)
{
    const auto next = ofTheLibrary<const char*(SHARED_MEMORY)>("get_variable_units");
    return answers.units ? answers.units() : next(mem);
}

int16_t LV_get_units2(const char* name, int16_t* count, UNITS_NAME* units)
{
    const auto next = ofTheLibrary<int16_t(const char*, int16_t*, UNITS_NAME*)>("LV_get_units2");
    return answers.unitsOfDimension ? answers.unitsOfDimension(count, units)
                                    : next(name, count, units);
}

int16_t units_keyword_to_code(const char* text, int32_t* code)
{
    const auto next = ofTheLibrary<int16_t(const char*, int32_t*)>("units_keyword_to_code");
    return answers.code ? answers.code(code) : next(text, code);
}

class TestSnapshotHostFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<DeskProcess>();
        QVERIFY(m_desk->startWith(CATALOGUE));
    }
    void cleanup()
    {
        answers = {};
        m_desk.reset();
    }

    void noAddressOfAnAlias();
    void aliasWithoutAnEnd();
    void unitsWithoutAnEnd();
    void noAddressOfUnits();
    void countOfUnits_data();
    void countOfUnits();
    void unitsWithoutCodes();
    void otherCase();

    void noPlatform();
    void platformEnds();
    void platformIsReplaced();

private:
    std::unique_ptr<DeskProcess> m_desk;
};

void TestSnapshotHostFunctions::noAddressOfAnAlias()
{
    answers.alias = [](char** alias) {
        *alias = nullptr;
        return int16_t{0};
    };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions, QStringList());
    QVERIFY(acceptedCatalogue(taken.text));
    QVERIFY(!taken.text.contains("alias"));
}

void TestSnapshotHostFunctions::aliasWithoutAnEnd()
{
    static QByteArray text(MARVANE_LABEL_SIZE, 'y');
    answers.alias = [](char** alias) {
        *alias = text.data();
        return int16_t{0};
    };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions.size(), 1);
    QVERIFY2(taken.omissions.first().endsWith(QLatin1String("y\": is longer than 79 bytes")),
             qPrintable(taken.omissions.first()));
    QVERIFY(acceptedCatalogue(taken.text));
}

void TestSnapshotHostFunctions::unitsWithoutAnEnd()
{
    // No zero follows within the array.
    static const QByteArray units(sizeof(UNITS_NAME), 'U');
    answers.units = [] { return units.constData(); };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions.size(), 2);
    QVERIFY2(taken.omissions.first().endsWith(
                 QLatin1String("no function tells the dimension of \"UUUUUUUUUUUUUUUU\"")),
             qPrintable(taken.omissions.first()));
    QVERIFY(acceptedCatalogue(taken.text));
}

void TestSnapshotHostFunctions::noAddressOfUnits()
{
    answers.units = []() -> const char* { return nullptr; };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions, QStringList());
    QVERIFY(acceptedCatalogue(taken.text));
    QVERIFY(!taken.text.contains("units"));
}

void TestSnapshotHostFunctions::countOfUnits_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -5;
}

// Both variables' units are without a dimension then.
void TestSnapshotHostFunctions::countOfUnits()
{
    QFETCH(int, count);
    answers.unitsOfDimension = [count](int16_t* found, UNITS_NAME* /*units*/) {
        *found = static_cast<int16_t>(count);
        return int16_t{0};
    };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions.size(), 2);
    QVERIFY(acceptedCatalogue(taken.text));
}

void TestSnapshotHostFunctions::unitsWithoutCodes()
{
    answers.code = [](int32_t* code) {
        *code = 17;
        return int16_t{-1};
    };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions, QStringList());
    QVERIFY(taken.text.contains("\"RPM\": [\"RPM\", \"HZ\"]"));
}

void TestSnapshotHostFunctions::otherCase()
{
    answers.units = [] { return "rpm"; };
    const TakenSnapshot taken = takeSnapshot();
    QCOMPARE(taken.omissions, QStringList());
    QVERIFY(taken.text.contains(R"("label": "speed", "units": "RPM")"));
}

void TestSnapshotHostFunctions::noPlatform()
{
    QVERIFY(m_desk->terminate());
    QCOMPARE(takeSnapshot().reading, snapshot::Reading::NoPlatform);
}

void TestSnapshotHostFunctions::platformEnds()
{
    answers.units = [this] {
        m_desk->kill();
        return "";
    };
    QCOMPARE(takeSnapshot().reading, snapshot::Reading::Stopped);
}

void TestSnapshotHostFunctions::platformIsReplaced()
{
    bool isReplaced = false;
    answers.units = [this, &isReplaced] {
        if (!isReplaced)
            isReplaced = m_desk->terminate() && m_desk->startWith(CATALOGUE);
        return "";
    };
    QCOMPARE(takeSnapshot().reading, snapshot::Reading::Stopped);
    QVERIFY(isReplaced);
    QCOMPARE(takeSnapshot().reading, snapshot::Reading::Done);
}

QTEST_GUILESS_MAIN(TestSnapshotHostFunctions)
#include "tst_snapshot_host_functions.moc"
