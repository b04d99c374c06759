// What a snapshot makes of whatever was read from a platform: what a catalogue cannot say is left
// out and told, and the rest is a catalogue that marvane-desk takes.

#include <QtTest>
#include <algorithm>
#include <random>

#include "taken_snapshot.h"

namespace {

using snapshot::Platform;
using snapshot::Units;
using snapshot::Variable;

std::vector<Variable>& tableOf(Platform& platform, SM_AREA_ID area, marvane::RecordKind kind)
{
    const auto index = marvane::findTable(area, kind) - marvane::TABLE_LAYOUTS.data();
    platform.areas.insert(area);
    return platform.tables[static_cast<size_t>(index)];
}

std::vector<Variable>& inputs(Platform& platform)
{
    return tableOf(platform, AI_REAL_MEM, marvane::RecordKind::Real);
}

std::vector<Variable>& statistics(Platform& platform)
{
    return tableOf(platform, GU_STAT_MEM, marvane::RecordKind::Statistic);
}

Variable variable(uint16_t index, const std::string& label, const std::string& units = "",
                  const std::string& alias = "")
{
    return {index, true, true, label, alias, units};
}

Variable notInUse(uint16_t index, const std::string& label)
{
    return {index, false, false, label, "", ""};
}

// Two analog inputs and a dimension of two units.
Platform soundPlatform()
{
    Platform platform;
    platform.counts.fill(10);
    platform.dimensions = {{{"RPM", 1}, {"HZ", 2}}};
    inputs(platform) = {variable(0, "speed", "RPM", "n"), variable(3, "free")};
    return platform;
}

using Change = void (*)(Platform&);

// A change of the sound platform and all that is told about it.
void addOmission(const char* title, Change change, const char* omission)
{
    QTest::newRow(title) << change << QString::fromLatin1(omission);
}

void addVariables()
{
    addOmission(
        "no label", [](Platform& p) { inputs(p).push_back(variable(4, "")); },
        "AI_REAL_MEM real 4: label \"\": must not be empty");
    addOmission(
        "a label that fills its field",
        [](Platform& p) { inputs(p).push_back(variable(4, std::string(80, 'x'))); },
        ("AI_REAL_MEM real 4: label \"" + std::string(80, 'x') + "\": is longer than 79 bytes")
            .c_str());
    addOmission(
        "a label of any bytes", [](Platform& p) { inputs(p).push_back(variable(4, "a\n\xff\"")); },
        "AI_REAL_MEM real 4: label \"a\\x0a\\xff\"\": must be a letter, then letters, digits and "
        "underscores");
    addOmission(
        "a bad label that is not in use",
        [](Platform& p) { inputs(p).push_back(notInUse(4, "1st")); },
        "AI_REAL_MEM real 4: label \"1st\": must be a letter, then letters, digits and "
        "underscores");
    addOmission(
        "a full stop too many", [](Platform& p) { inputs(p).push_back(variable(4, "stat.")); },
        "AI_REAL_MEM real 4: label \"stat.\": the label must not end in a full stop");
    addOmission(
        "a full stop that is missing",
        [](Platform& p) { statistics(p).push_back(variable(0, "stat")); },
        "GU_STAT_MEM statistic 0: label \"stat\": a structured variable's label ends in a full "
        "stop");
    addOmission(
        "a variable that no function finds", [](Platform& p) { inputs(p)[1].isKnown = false; },
        "AI_REAL_MEM real 3: units of \"free\": no function finds the variable");
    addOmission(
        "an alias that is none", [](Platform& p) { inputs(p)[1].alias = "a b"; },
        "AI_REAL_MEM real 3: alias \"a b\": must be a letter, then letters, digits and "
        "underscores");
}

void addNamesThatOccurTwice()
{
    addOmission(
        "two labels", [](Platform& p) { inputs(p).push_back(variable(4, "free")); },
        "AI_REAL_MEM real 4: label \"free\": the name is there already, at AI_REAL_MEM real 3");
    addOmission(
        "a label in use behind one that is not",
        [](Platform& p) { inputs(p).insert(inputs(p).begin() + 1, notInUse(1, "free")); },
        "AI_REAL_MEM real 1: label \"free\": the name is there already, at AI_REAL_MEM real 3");
    addOmission(
        "a structured variable and another",
        [](Platform& p) { statistics(p).push_back(variable(0, "free.")); },
        "GU_STAT_MEM statistic 0: label \"free.\": the name is there already, at AI_REAL_MEM real "
        "3");
    addOmission(
        "an alias and a later label", [](Platform& p) { inputs(p)[0].alias = "free"; },
        "AI_REAL_MEM real 0: alias \"free\": the name is there already, at AI_REAL_MEM real 3");
    addOmission(
        "two aliases", [](Platform& p) { inputs(p)[1].alias = "n"; },
        "AI_REAL_MEM real 3: alias \"n\": the name is there already, at AI_REAL_MEM real 0");
}

void addUnits()
{
    addOmission(
        "units of no dimension", [](Platform& p) { inputs(p)[1].units = "KG"; },
        "AI_REAL_MEM real 3: units of \"free\": no function tells the dimension of \"KG\"");
    addOmission(
        "units in brackets",
        [](Platform& p) {
            p.dimensions[0].push_back({"[S]", 3});
        },
        "units \"[S]\": must be one printable ASCII word without brackets");
    addOmission(
        "units of 16 bytes",
        [](Platform& p) {
            p.dimensions[0].push_back({"ABCDEFGHIJKLMNOP", 3});
        },
        "units \"ABCDEFGHIJKLMNOP\": is longer than 15 bytes");
    addOmission(
        "units of two dimensions",
        [](Platform& p) {
            p.dimensions.push_back({{"hz", 3}});
        },
        "units \"hz\": they are there already");
    addOmission(
        "codes from 3 on",
        [](Platform& p) {
            p.dimensions[0] = {{"HZ", 4}, {"RPM", 3}};
        },
        "units of the codes 1 to 2: no function tells them");
    addOmission(
        "a gap between codes",
        [](Platform& p) {
            p.dimensions.push_back({{"KG", INT32_MAX}});
        },
        "units of the codes 3 to 2147483646: no function tells them");
}

void addKeywords()
{
    addOmission(
        "a keyword with a blank",
        [](Platform& p) {
            p.areas.insert(KEYWORD_MEM);
            p.keywords = {{7, CHANNEL_KEYWORD, 0, "A B"}};
        },
        "KEYWORD_MEM 7: name \"A B\": must be one printable ASCII word");
    addOmission(
        "a keyword that occurs twice",
        [](Platform& p) {
            p.areas.insert(KEYWORD_MEM);
            p.keywords = {{0, CHANNEL_KEYWORD, 0, "free"}, {1, PARAMETER_KEYWORD, 0, "free"}};
        },
        "KEYWORD_MEM 1: name \"free\": the name is there already, at KEYWORD_MEM 0");
    addOmission(
        "a keyword of no kind",
        [](Platform& p) {
            p.areas.insert(KEYWORD_MEM);
            p.keywords = {{0, -3, 0, "N"}};
        },
        "KEYWORD_MEM 0: name \"N\": there is no kind -3");
    addOmission(
        "a keyword of unknown units",
        [](Platform& p) {
            p.areas.insert(KEYWORD_MEM);
            p.keywords = {{0, CHANNEL_KEYWORD, -3, "N"}};
        },
        "KEYWORD_MEM 0: units of \"N\": no function tells those of the code -3");
}

// A platform of random bytes, with some names that occur twice.
class Garbage {
public:
    explicit Garbage(uint32_t seed) : random_(seed) {}

    Platform platform()
    {
        Platform platform;
        platform.counts.fill(5);
        for (auto& dimension : platform.dimensions = std::vector<std::vector<Units>>(4)) {
            dimension.resize(number(4));
            for (Units& units : dimension)
                units = {text(16), static_cast<int32_t>(number(8)) - 1};
        }
        for (size_t i = 0; i < platform.tables.size(); ++i) {
            if (number(2) == 0)
                fill(platform, i);
        }
        platform.areas.insert(KEYWORD_MEM);
        for (uint16_t i = 0; i < 20; ++i)
            platform.keywords.push_back(
                {i, static_cast<char>(number(4)), static_cast<int32_t>(number(9)) - 1, text(80)});
        return platform;
    }

private:
    size_t number(size_t limit) { return random_() % limit; }

    // Bytes, or one of a few words.
    std::string text(size_t longest)
    {
        static const std::vector<std::string> WORDS{"a", "b.", "c", "", "d-e", "A", "a.", "c."};
        if (number(3) != 0)
            return WORDS[number(WORDS.size())];
        std::string bytes(number(longest + 1), ' ');
        for (char& c : bytes)
            c = static_cast<char>(1 + number(255));
        return bytes;
    }

    void fill(Platform& platform, size_t table)
    {
        platform.areas.insert(marvane::TABLE_LAYOUTS[table].area);
        for (uint16_t i = 0; i < 4; ++i)
            platform.tables[table].push_back(
                {i, number(3) != 0, number(3) != 0, text(80), text(80), text(16)});
    }

    std::mt19937 random_;
};

}  // namespace

Q_DECLARE_METATYPE(Change)

class TestSnapshotCatalogue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void soundPlatformIsComplete();
    void omission_data();
    void omission();
    void unitsInTheOrderOfTheirCodes();
    void tooManyUnits();
    void anythingMakesACatalogue();
};

void TestSnapshotCatalogue::soundPlatformIsComplete()
{
    Platform platform = soundPlatform();
    inputs(platform).push_back(notInUse(4, "spare"));
    inputs(platform).push_back(variable(5, "other", "hz"));
    platform.areas.insert(KEYWORD_MEM);
    platform.keywords = {{0, CHANNEL_KEYWORD, 2, "N"},
                         {7999, CHANNEL_OR_PARAMETER_KEYWORD, 0, "free"}};
    const TakenSnapshot taken = textOf(platform);
    QCOMPARE(taken.omissions, QStringList());
    QVERIFY(acceptedCatalogue(taken.text));
    const QByteArray counts = taken.text.mid(taken.text.indexOf("\"areas\""));
    QCOMPARE(counts, QByteArray(R"("areas": {
    "AI_REAL_MEM": {
      "real": [
        { "label": "speed", "units": "RPM", "alias": "n" },
        { "index": 3, "label": "free" },
        { "label": "spare", "active": false },
        { "label": "other", "units": "HZ" }
      ]
    }
  },
  "keywords": [
    { "name": "N", "kind": "channel", "units": "HZ" },
    { "index": 7999, "name": "free", "kind": "channel_or_parameter" }
  ]
}
)"));
    QVERIFY2(taken.text.startsWith("{\n  \"units\": {\n    \"RPM\": [\"RPM\", \"HZ\"]\n  },\n"),
             taken.text);
}

void TestSnapshotCatalogue::omission_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("omission");
    addVariables();
    addNamesThatOccurTwice();
    addUnits();
    addKeywords();
}

// Nothing else is left out: the sound part stays.
void TestSnapshotCatalogue::omission()
{
    QFETCH(Change, change);
    QFETCH(QString, omission);
    Platform platform = soundPlatform();
    change(platform);
    const TakenSnapshot taken = textOf(platform);
    QCOMPARE(taken.omissions, QStringList(omission));
    const auto catalogue = acceptedCatalogue(taken.text);
    QVERIFY2(catalogue, taken.text);
    QVERIFY2(taken.text.contains(R"({ "label": "speed", "units": "RPM")"), taken.text);
    QVERIFY2(taken.text.contains(R"({ "index": 3, "label": "free" })"), taken.text);
}

void TestSnapshotCatalogue::unitsInTheOrderOfTheirCodes()
{
    Platform platform = soundPlatform();
    platform.dimensions = {{{"HZ", 4}, {"RPM", 3}}, {}, {{"G", 0}}, {{"S", 2}, {"MS", 1}}};
    const TakenSnapshot taken = textOf(platform);
    const auto catalogue = acceptedCatalogue(taken.text);
    QVERIFY(catalogue);
    QStringList names;
    for (const marvane::CatalogueUnits& units : catalogue->units)
        names.append(QString::fromStdString(units.name));
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("MS S RPM HZ G"));
    QCOMPARE(taken.omissions, QStringList());
}

void TestSnapshotCatalogue::tooManyUnits()
{
    Platform platform = soundPlatform();
    std::vector<Units>& dimension = platform.dimensions[0];
    for (int i = 3; i <= 32768; ++i)
        dimension.push_back({"U" + std::to_string(i), i});
    const TakenSnapshot taken = textOf(platform);
    QCOMPARE(taken.omissions,
             QStringList(QStringLiteral("units \"U32768\": there are too many units")));
    QVERIFY(loadedCatalogue(taken.text));
}

void TestSnapshotCatalogue::anythingMakesACatalogue()
{
    constexpr uint32_t PLATFORMS = 200;
    for (uint32_t seed = 0; seed < PLATFORMS; ++seed) {
        const TakenSnapshot taken = textOf(Garbage(seed).platform());
        QVERIFY2(acceptedCatalogue(taken.text), taken.text);
        const QString lines = taken.omissions.join(QString());
        QVERIFY2(std::all_of(lines.begin(), lines.end(),
                             [](QChar c) { return c.unicode() >= 32 && c.unicode() < 127; }),
                 qPrintable(lines));
    }
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, TestSnapshotCatalogue)
#include "tst_snapshot_catalogue.moc"
