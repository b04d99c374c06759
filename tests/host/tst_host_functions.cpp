// All host functions on a running desk platform, with the expected results from the catalogue file.

#include <marvane_headers.h>

#include <QtTest>
#include <array>
#include <cstring>

#include "desk_process.h"

extern "C" size_t handleSizeInC();

namespace {

constexpr char CATALOGUE[] = R"({
  "units": {
    "temperature": ["DEGC", "DEGF", "K"],
    "speed": ["RPM", "HZ"],
    "wide": ["ABCDEFGHIJKLMNO"]
  },
  "counts": { "digital_inputs": 5 },
  "areas": {
    "AI_REAL_MEM": { "real": [
      { "label": "oil_temp", "units": "degc", "alias": "T_oil" },
      { "label": "spare", "active": false, "alias": "spare_alias", "units": "K" },
      { "index": 7, "label": "late", "units": "DEGF" },
      { "label": "bare" },
      { "index": 3, "label": "early", "units": "K" } ] },
    "CONTROL_MEM": {
      "integer": [ { "index": 3, "label": "control_mode", "units": "RPM" } ],
      "string": [ { "index": 297, "label": "control_text", "alias": "c_text" } ] },
    "DI_LOGI_MEM": { "logical": [ { "label": "door_closed" } ] },
    "GU_STAT_MEM": { "statistic": [ { "label": "speed_stat.", "units": "HZ" } ] },
    "PROPERTIES_MEM": {
      "composition": [ { "label": "exhaust." } ],
      "property": [ { "label": "air_prop." }, { "label": "off_prop.", "active": false } ],
      "emission": [ { "label": "tail.", "units": "ABCDEFGHIJKLMNO" } ] },
    "REAL_ARRAY_MEM": { "real_array": [ { "label": "curve", "alias": "arc" } ] }
  },
  "keywords": [
    { "name": "T_OIL", "kind": "channel", "units": "DEGC" },
    { "name": "SERIAL", "kind": "parameter" },
    { "index": 7999, "name": "T_AMB", "kind": "channel_or_parameter", "units": "k" }
  ]
})";

QString text(const char* bytes)
{
    return QString::fromLatin1(bytes);
}

QStringList unitsLike(const char* name, int16_t capacity = 30)
{
    std::array<UNITS_NAME, 30> names{};
    int16_t count = capacity;
    LV_get_units2(name, &count, names.data());
    QStringList list;
    for (int16_t i = 0; i < count; ++i)
        list << text(names[static_cast<size_t>(i)]);
    return list;
}

}  // namespace

class TestHostFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(desk_.startWith(CATALOGUE));
        QCOMPARE(marvane_init_fn(1), int16_t{0});
        QCOMPARE(join_layer(5), int16_t{0});
    }

    void init()
    {
        for (SM_AREA_ID area = 0; area < MAX_NUM_SHRD_MEM; ++area)
            fre_shrd_mem(area);
    }

    void versionHasTheFormThatTheEditorReads()
    {
        const QRegularExpression form(QStringLiteral("^\\$Version: [^ ]+ +\\$$"));
        QVERIFY(form.match(text(MARVANE_VER)).hasMatch());
    }

    void handleHasTheSameSizeInCAndCpp() { QCOMPARE(handleSizeInC(), sizeof(SHARED_MEMORY)); }

    void linkStoresTheAddressOfTheCounts()
    {
        void* address = nullptr;
        QVERIFY(link_to_memory(SYS_ATTR_MEM, &address) != 0);
        const auto* attributes = static_cast<const SYSTEM_ATTRIBUTES*>(address);
        QCOMPARE(attributes->analog_inputs, uint16_t{9});   // up to the last variable in the file
        QCOMPARE(attributes->digital_inputs, uint16_t{5});  // the count in the file
        QCOMPARE(attributes->frequency_inputs, uint16_t{0});
        QCOMPARE(attributes->general_use_statistics, uint16_t{1});
        QCOMPARE(attributes->real_arrays, uint16_t{1});
    }

    void areaThatThePlatformDoesNotHave_data()
    {
        QTest::addColumn<int>("area");
        QTest::newRow("an area that the catalogue leaves out") << int{GU_REAL_MEM};
        QTest::newRow("a number between the areas") << 7;
        QTest::newRow("a number above all areas") << int{MAX_NUM_SHRD_MEM};
        QTest::newRow("a negative number") << -1;
        QTest::newRow("the largest number") << int{INT16_MAX};
    }
    void areaThatThePlatformDoesNotHave()
    {
        QFETCH(int, area);
        const auto code = static_cast<SM_AREA_ID>(area);
        void* address = this;
        QCOMPARE(link_to_memory(code, &address), int16_t{0});
        QVERIFY(address == nullptr);
        QVERIFY(get_shrd_mem(code, 0) == nullptr);
        QCOMPARE(shrd_mem_in_use(code), int16_t{0});
        QVERIFY(fre_shrd_mem(code) != 0);
    }

    void recordsStandAtTheirPlaces()
    {
        const auto* inputs = static_cast<const _real_variable*>(get_shrd_mem(AI_REAL_MEM, 0));
        QVERIFY(inputs != nullptr);
        QCOMPARE(text(inputs[0].label), QStringLiteral("oil_temp"));
        QVERIFY(inputs[0].active != 0);
        QCOMPARE(text(inputs[1].label), QStringLiteral("spare"));
        QVERIFY(inputs[1].active == 0);
        QCOMPARE(text(inputs[2].label), QString());
        QCOMPARE(text(inputs[7].label), QStringLiteral("late"));
        const auto* control = static_cast<const char*>(get_shrd_mem(CONTROL_MEM, 0));
        const auto* integers = reinterpret_cast<const integer_variable*>(control + 495760);
        QCOMPARE(text(integers[3].label), QStringLiteral("control_mode"));
        const auto* strings = reinterpret_cast<const _string_variable*>(control + 497080);
        QCOMPARE(text(strings[297].label), QStringLiteral("control_text"));
    }

    void attachmentsAreNotCounted()
    {
        QCOMPARE(shrd_mem_in_use(AI_REAL_MEM), int16_t{0});
        void* first = get_shrd_mem(AI_REAL_MEM, 0);
        QVERIFY(first != nullptr);
        QVERIFY(shrd_mem_in_use(AI_REAL_MEM) != 0);
        QCOMPARE(get_shrd_mem(AI_REAL_MEM, 0), first);
        void* linked = nullptr;
        QVERIFY(link_to_memory(AI_REAL_MEM, &linked) != 0);
        QCOMPARE(linked, first);
        QCOMPARE(fre_shrd_mem(AI_REAL_MEM), int16_t{0});
        QCOMPARE(shrd_mem_in_use(AI_REAL_MEM), int16_t{0});
        QVERIFY(fre_shrd_mem(AI_REAL_MEM) != 0);
    }

    void linkedAreaCountsAsInUse()
    {
        void* address = nullptr;
        QVERIFY(link_to_memory(KEYWORD_MEM, &address) != 0);
        QVERIFY(shrd_mem_in_use(KEYWORD_MEM) != 0);
        QCOMPARE(shrd_mem_in_use(CONTROL_MEM), int16_t{0});
    }

    void variablesAreFoundByTheirNames_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("found");
        QTest::addColumn<int>("area");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("units");
        QTest::newRow("a label") << QByteArray("oil_temp") << true << int{AI_REAL_MEM} << 0
                                 << "DEGC";
        QTest::newRow("an alias") << QByteArray("T_oil") << true << int{AI_REAL_MEM} << 0 << "DEGC";
        QTest::newRow("a label at a given index")
            << QByteArray("late") << true << int{AI_REAL_MEM} << 7 << "DEGF";
        QTest::newRow("a label that stands behind higher indices in the file")
            << QByteArray("early") << true << int{AI_REAL_MEM} << 3 << "K";
        QTest::newRow("a variable without units")
            << QByteArray("bare") << true << int{AI_REAL_MEM} << 8 << "";
        QTest::newRow("a record in a later table of its area")
            << QByteArray("control_mode") << true << int{CONTROL_MEM} << 3 << "RPM";
        QTest::newRow("an array") << QByteArray("arc") << true << int{REAL_ARRAY_MEM} << 0 << "";
        QTest::newRow("a structured variable with its full stop")
            << QByteArray("speed_stat.") << true << int{GU_STAT_MEM} << 0 << "HZ";
        QTest::newRow("a structured variable without it")
            << QByteArray("speed_stat") << true << int{GU_STAT_MEM} << 0 << "HZ";
        QTest::newRow("units of the greatest length")
            << QByteArray("tail") << true << int{PROPERTIES_MEM} << 0 << "ABCDEFGHIJKLMNO";
        QTest::newRow("a plain variable with a full stop") << QByteArray("oil_temp.") << false;
        QTest::newRow("a member of a structured variable") << QByteArray("speed_stat.AV") << false;
        QTest::newRow("an inactive variable") << QByteArray("spare") << false;
        QTest::newRow("the alias of an inactive variable") << QByteArray("spare_alias") << false;
        QTest::newRow("another case") << QByteArray("OIL_TEMP") << false;
        QTest::newRow("the start of a name") << QByteArray("oil_tem") << false;
        QTest::newRow("a name with something behind it") << QByteArray("oil_temp ") << false;
        QTest::newRow("an empty name") << QByteArray("") << false;
        QTest::newRow("a full stop alone") << QByteArray(".") << false;
        QTest::newRow("a very long name") << QByteArray(100000, 'x') << false;
    }
    void variablesAreFoundByTheirNames()
    {
        QFETCH(QByteArray, name);
        QFETCH(bool, found);
        SHARED_MEMORY handle;
        QCOMPARE(find_variable(name.constData(), &handle) == 0, found);
        if (!found)
            return;
        QTEST(int{handle.code}, "area");
        QTEST(int{handle.index}, "index");
        QTEST(text(get_variable_units(handle)), "units");
    }

    void kindsOfStructuredVariables_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("kinds");
        QTest::newRow("a statistic") << QByteArray("speed_stat") << "s";
        QTest::newRow("a statistic with its full stop") << QByteArray("speed_stat.") << "s";
        QTest::newRow("a composition") << QByteArray("exhaust.") << "c";
        QTest::newRow("a property") << QByteArray("air_prop") << "p";
        QTest::newRow("an emission") << QByteArray("tail.") << "e";
        QTest::newRow("an inactive one") << QByteArray("off_prop.") << "";
        QTest::newRow("a plain variable") << QByteArray("oil_temp") << "";
        QTest::newRow("an array") << QByteArray("curve") << "";
        QTest::newRow("a member") << QByteArray("speed_stat.AV") << "";
        QTest::newRow("two full stops") << QByteArray("speed_stat..") << "";
        QTest::newRow("an unknown name") << QByteArray("nothing") << "";
    }
    void kindsOfStructuredVariables()
    {
        QFETCH(QByteArray, name);
        using Find = int16_t (*)(const char*, SHARED_MEMORY*);
        const std::array<std::pair<char, Find>, 4> finders{{{'s', find_stat_label},
                                                            {'c', find_comp_label},
                                                            {'p', find_prop_label},
                                                            {'e', find_emis_label}}};
        QString kinds;
        for (const auto& [kind, find] : finders) {
            SHARED_MEMORY handle;
            if (find(name.constData(), &handle) == 0)
                kinds += QLatin1Char(kind);
        }
        QTEST(kinds, "kinds");
    }

    void aliases_data()
    {
        QTest::addColumn<QByteArray>("label");
        QTest::addColumn<QString>("alias");
        QTest::newRow("a variable with an alias") << QByteArray("oil_temp") << "T_oil";
        QTest::newRow("an array with an alias") << QByteArray("curve") << "arc";
        QTest::newRow("a variable without an alias") << QByteArray("late") << "";
        QTest::newRow("an alias itself") << QByteArray("T_oil") << "";
        QTest::newRow("an inactive variable") << QByteArray("spare") << "";
        QTest::newRow("an unknown name") << QByteArray("nothing") << "";
    }
    void aliases()
    {
        QFETCH(QByteArray, label);
        SHARED_MEMORY handle;
        char none[] = "";
        char* alias = none;
        const bool found = find_alias_of_target(label.constData(), &handle, &alias) == 0;
        QTEST(text(alias), "alias");
        QCOMPARE(found, alias != none);
        SHARED_MEMORY target;
        if (found) {
            QCOMPARE(find_variable(label.constData(), &target), int16_t{0});
            QVERIFY(std::memcmp(&handle, &target, sizeof handle) == 0);
        }
    }

    void unitsOfAHandleThatNoVariableHas()
    {
        SHARED_MEMORY handle{};
        QCOMPARE(text(get_variable_units(handle)), QString());
        handle.code = AI_REAL_MEM;
        handle.index = -1;
        QCOMPARE(text(get_variable_units(handle)), QString());
    }

    void unitsOfTheSameDimension()
    {
        const QStringList temperatures{QStringLiteral("DEGC"), QStringLiteral("DEGF"),
                                       QStringLiteral("K")};
        QCOMPARE(unitsLike("DEGF"), temperatures);
        QCOMPARE(unitsLike("k"), temperatures);
        QCOMPARE(unitsLike("rpm"), QStringList({QStringLiteral("RPM"), QStringLiteral("HZ")}));
        QCOMPARE(unitsLike("abcdefghijklmno"), QStringList(QStringLiteral("ABCDEFGHIJKLMNO")));
        QCOMPARE(unitsLike("DEGF", 2), temperatures.mid(0, 2));
        QCOMPARE(unitsLike("DEGF", 0), QStringList());
        QCOMPARE(unitsLike("DEGF", -1), QStringList());
        QCOMPARE(unitsLike("nothing"), QStringList());
        QCOMPARE(unitsLike(""), QStringList());
    }

    void unknownUnitsFillNothing()
    {
        UNITS_NAME names[2] = {"before", "before"};
        int16_t count = 2;
        LV_get_units2("nothing", &count, names);
        QCOMPARE(count, int16_t{0});
        QCOMPARE(text(names[0]), QStringLiteral("before"));
    }

    void codesOfUnits()
    {
        int32_t code = 77;
        QCOMPARE(units_keyword_to_code("DEGC", &code), int16_t{0});
        QCOMPARE(code, 1);
        QCOMPARE(units_keyword_to_code("hz", &code), int16_t{0});
        QCOMPARE(code, 5);
        for (const char* unknown : {"nothing", "", "DEG", "DEGCC"}) {
            code = 77;
            QVERIFY(units_keyword_to_code(unknown, &code) != 0);
            QCOMPARE(code, 77);
        }
    }

    void keywordsStandInTheirTable()
    {
        void* address = nullptr;
        QVERIFY(link_to_memory(KEYWORD_MEM, &address) != 0);
        const auto* table = static_cast<const KEYWORD_MEMORY*>(address)->keyword_table;
        QCOMPARE(text(table[0].keyword), QStringLiteral("T_OIL"));
        QCOMPARE(table[0].unitscode, 1);
        QCOMPARE(text(table[1].keyword), QStringLiteral("SERIAL"));
        QCOMPARE(table[1].unitscode, 0);
        QCOMPARE(text(table[2].keyword), QString());
        QCOMPARE(text(table[7999].keyword), QStringLiteral("T_AMB"));
        QCOMPARE(table[7999].unitscode, 3);
        QVERIFY(check_keyword(&table[0], CHANNEL_KEYWORD) == 0);
        QVERIFY(check_keyword(&table[0], PARAMETER_KEYWORD) != 0);
        QVERIFY(check_keyword(&table[1], CHANNEL_KEYWORD) != 0);
        QVERIFY(check_keyword(&table[1], PARAMETER_KEYWORD) == 0);
        QVERIFY(check_keyword(&table[7999], CHANNEL_KEYWORD) == 0);
        QVERIFY(check_keyword(&table[7999], PARAMETER_KEYWORD) == 0);
    }

private:
    DeskProcess desk_;
};

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestHostFunctions)
#include "tst_host_functions.moc"
