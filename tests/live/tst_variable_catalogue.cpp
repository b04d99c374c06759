// The variable catalogue of a running platform: what it lists of each table, by filter and form.

#include <marvane_headers.h>

#include <QtTest>
#include <memory>

#include "catalogue_groups.h"
#include "live_platform.h"
#include "variablemaplist.h"

namespace {

constexpr int IO_MEM = 1024;
const auto ALL_CONDITIONS = QStringLiteral("RILSTC");

using GroupsByVariable = QMap<QString, QString>;

VariablesByGroup byGroup(int filter)
{
    VariablesByGroup variables;
    const VariableMapList list(&variables, QT_MARVANE_VAR_TYPE(QFlag(filter)), nullptr);
    return variables;
}

GroupsByVariable byVariable(int filter)
{
    GroupsByVariable variables;
    const VariableMapList list(&variables, QT_MARVANE_VAR_TYPE(QFlag(filter)), nullptr);
    return variables;
}

// The numbers of the areas that this process has attached.
QVector<int> attachedAreas()
{
    QVector<int> attached;
    for (SM_AREA_ID area = 0; area < MAX_NUM_SHRD_MEM; ++area) {
        if (shrd_mem_in_use(area) != 0)
            attached.append(area);
    }
    return attached;
}

void addRowForEachGroup()
{
    QTest::addColumn<GroupFacts>("group");
    for (const GroupFacts& group : groups())
        QTest::newRow(group.name) << group;
}

void addRowForEachGroupOf(bool counted)
{
    QTest::addColumn<GroupFacts>("group");
    for (const GroupFacts& group : groups()) {
        if ((group.count != nullptr) == counted)
            QTest::newRow(group.name) << group;
    }
}

void addRowForEachArea()
{
    QTest::addColumn<QString>("area");
    for (const QString& area : areas())
        QTest::newRow(qPrintable(area)) << area;
}

// A client of the platform as a separate process, which ends if there is no platform.
class CatalogueClient {
public:
    CatalogueClient()
    {
        m_process.start(QStringLiteral(CATALOGUE_CLIENT), QStringList());
        m_process.waitForStarted();
    }

    void makeCatalogue() { m_process.write("\n"); }
    QByteArray nextLine()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) {
        }
        return m_process.readLine();
    }
    bool hasExitedWith(int status)
    {
        return m_process.waitForFinished() && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == status;
    }
    QByteArray remainingOutput() { return m_process.readAllStandardOutput(); }
    QByteArray complaints() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
};

}  // namespace

Q_DECLARE_METATYPE(GroupFacts)

class TestVariableCatalogue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void filterValues();
    void labelsOfTheTestCatalogueAreUnique();

    void listsGroup_data();
    void listsGroup();
    void listsByVariable_data();
    void listsByVariable();
    void filters_data();
    void filters();
    void groupsOfStringVariables();
    void readsOnlyAsManyRecordsAsCounted_data();
    void readsOnlyAsManyRecordsAsCounted();
    void readsNotBeyondTheFixedLength_data();
    void readsNotBeyondTheFixedLength();

    void channelsByNumber();
    void channelsByVariable();
    void channelNumbersHaveGapsAndNoAliases();
    void channelsAreListedByNumberAloneOnly_data();
    void channelsAreListedByNumberAloneOnly();

    void groupWithoutAVariableInUse();
    void anyNonzeroValueMarksAVariableAsUsed_data();
    void anyNonzeroValueMarksAVariableAsUsed();
    void aliasesFollowAllLabelsInTableOrder();
    void aliasesAreNotListedInTheFlatForm();
    void manyVariables();

    void missingArea_data();
    void missingArea();
    void emptyPlatform();

    void detachesWhatItAttached_data();
    void detachesWhatItAttached();
    void keepsWhatWasAttached_data();
    void keepsWhatWasAttached();
    void keepsGeneralUseAreasWithoutTheReals();

    void clearsTheTargetMapFirst();
    void isASnapshot();
    void outlivesThePlatform();
    void isAChildOfItsParent();

    void platformNotRunning();
    void platformEnded_data();
    void platformEnded();

    void rebuiltCatalogueIsTheCurrentOne();
    void olderCatalogueIsKeptWhileItIsShown();

private:
    bool restart(const QByteArray& catalogue);

    std::unique_ptr<LivePlatform> m_platform;
};

// Starts another platform in place of the current one.
bool TestVariableCatalogue::restart(const QByteArray& catalogue)
{
    m_platform = std::make_unique<LivePlatform>();
    return m_platform->start(catalogue);
}

void TestVariableCatalogue::init()
{
    QVERIFY(restart(fullCatalogue()));
}

void TestVariableCatalogue::cleanup()
{
    m_platform.reset();
    Master_variables.reset();
    VMLType = 0;
}

// The numbers are fixed: other programs of the platform use them in their settings.
void TestVariableCatalogue::filterValues()
{
    QCOMPARE(int(QT_MARVANE_LOGICAL), 1);
    QCOMPARE(int(QT_MARVANE_STRING), 2);
    QCOMPARE(int(QT_MARVANE_INTEGER), 4);
    QCOMPARE(int(QT_MARVANE_REAL), 8);
    QCOMPARE(int(QT_MARVANE_STAT), 16);
    QCOMPARE(int(QT_MARVANE_EMIS), 32);
    QCOMPARE(int(QT_MARVANE_COMP), 64);
    QCOMPARE(int(QT_MARVANE_REAL_INTEGER), 128);
    QCOMPARE(int(QT_MARVANE_PROP), 256);
    QCOMPARE(int(QT_MARVANE_ARRAY), 512);
    QCOMPARE(int(QT_MARVANE_ANY), 1023);
    QCOMPARE(int(QT_MARVANE_IO_MEM), 1024);
    QCOMPARE(int(QT_MARVANE_LOGICAL | QT_MARVANE_STAT), 17);
}

void TestVariableCatalogue::labelsOfTheTestCatalogueAreUnique()
{
    QCOMPARE(groups().size(), 33);
    QCOMPARE(areas().size(), 24);
    QCOMPARE(groupsByVariable(ALL_CONDITIONS).size(), 66);
    QCOMPARE(variablesByGroup(ALL_CONDITIONS).size(), 33);
}

// ---- Groups and filters ------------------------------------------------------------------------

void TestVariableCatalogue::listsGroup_data()
{
    addRowForEachGroup();
}

void TestVariableCatalogue::listsGroup()
{
    QFETCH(GroupFacts, group);
    QCOMPARE(byGroup(QT_MARVANE_ANY).value(QString::fromLatin1(group.name)), listOf(group));
}

void TestVariableCatalogue::listsByVariable_data()
{
    addRowForEachGroup();
}

void TestVariableCatalogue::listsByVariable()
{
    QFETCH(GroupFacts, group);
    const GroupsByVariable variables = byVariable(QT_MARVANE_ANY);
    const QString name = QString::fromLatin1(group.name);
    QCOMPARE(variables.value(firstLabel(group)), name);
    QCOMPARE(variables.value(lastLabel(group)), name);
    QCOMPARE(variables.keys(name).size(), 2);
}

void TestVariableCatalogue::filters_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("conditions");
    const auto add = [](const char* row, int filter, const char* conditions) {
        QTest::newRow(row) << filter << QString::fromLatin1(conditions);
    };
    add("no kind", 0, "");
    add("logicals", QT_MARVANE_LOGICAL, "L");
    add("strings", QT_MARVANE_STRING, "S");
    add("integers, and no arrays", QT_MARVANE_INTEGER, "I");
    add("reals, with both kinds of arrays", QT_MARVANE_REAL, "R");
    add("statistics", QT_MARVANE_STAT, "T");
    add("emissions do not list the table of emissions", QT_MARVANE_EMIS, "");
    add("compositions, and all properties with them", QT_MARVANE_COMP, "C");
    add("reals and integers, neither logicals nor strings", QT_MARVANE_REAL_INTEGER, "RI");
    add("properties do not list the table of properties", QT_MARVANE_PROP, "");
    add("arrays do not list any", QT_MARVANE_ARRAY, "");
    add("any", QT_MARVANE_ANY, "RILSTC");
    add("logicals or strings", QT_MARVANE_LOGICAL | QT_MARVANE_STRING, "LS");
    add("integers or reals", QT_MARVANE_INTEGER | QT_MARVANE_REAL, "RI");
    add("reals or statistics", QT_MARVANE_REAL | QT_MARVANE_STAT, "RT");
    add("emissions or properties", QT_MARVANE_EMIS | QT_MARVANE_PROP, "");
    add("compositions or emissions", QT_MARVANE_COMP | QT_MARVANE_EMIS, "C");
    add("reals, integers or strings", QT_MARVANE_REAL_INTEGER | QT_MARVANE_STRING, "RIS");
    add("all but arrays", QT_MARVANE_ANY - QT_MARVANE_ARRAY, "RILSTC");
    add("all kinds alone", 0x7f, "RILSTC");
}

void TestVariableCatalogue::filters()
{
    QFETCH(int, filter);
    QFETCH(QString, conditions);
    QCOMPARE(byGroup(filter), variablesByGroup(conditions));
    QCOMPARE(byVariable(filter), groupsByVariable(conditions));
}

void TestVariableCatalogue::groupsOfStringVariables()
{
    QCOMPARE(byGroup(QT_MARVANE_STRING).keys(),
             QStringList(
                 {QStringLiteral("Control (string)"), QStringLiteral("Display (string)"),
                  QStringLiteral("Engine/Cell (string)"), QStringLiteral("Fuel Reading (string)"),
                  QStringLiteral("General Use (string)"), QStringLiteral("String (array)")}));
}

void TestVariableCatalogue::readsOnlyAsManyRecordsAsCounted_data()
{
    addRowForEachGroupOf(true);
}

// Records behind the count are not listed, whatever the other counts are.
void TestVariableCatalogue::readsOnlyAsManyRecordsAsCounted()
{
    QFETCH(GroupFacts, group);
    const QString name = QString::fromLatin1(group.name);
    const auto countOne = bytesOf(uint16_t{1});
    QVERIFY(m_platform->overwrite("SYS_ATTR_MEM", group.countAt, countOne));
    const VariablesByGroup shortened = byGroup(QT_MARVANE_ANY);
    QCOMPARE(shortened.value(name).value(0), firstLabel(group));
    QVERIFY(!shortened.value(name).contains(lastLabel(group)));
    for (const GroupFacts& other : groups()) {
        if (other.countAt != group.countAt)
            QCOMPARE(shortened.value(QString::fromLatin1(other.name)), listOf(other));
    }
}

void TestVariableCatalogue::readsNotBeyondTheFixedLength_data()
{
    addRowForEachGroupOf(false);
}

// An active record behind the last one belongs to another table or to none.
void TestVariableCatalogue::readsNotBeyondTheFixedLength()
{
    QFETCH(GroupFacts, group);
    const RecordFacts& record = recordOf(group);
    const qint64 behind = group.offset + qint64{group.length} * record.size;
    const bool isLastTable =
        groupsOf(QString::fromLatin1(group.area)).last().offset == group.offset;
    if (isLastTable)
        QVERIFY(m_platform->resize(group.area, behind + qint64{2} * record.size));
    QVERIFY(m_platform->overwrite(group.area, behind + record.activeAt, bytesOf(int16_t{1})));
    QVERIFY(m_platform->overwrite(group.area, behind + record.labelAt, "behind"));
    QCOMPARE(byGroup(QT_MARVANE_ANY).value(QString::fromLatin1(group.name)), listOf(group));
}

// ---- Channels by number ------------------------------------------------------------------------

void TestVariableCatalogue::channelsByNumber()
{
    const auto ends = [](int last) {
        return QStringList{QStringLiteral("0"), QString::number(last)};
    };
    const VariablesByGroup expected{
        {QStringLiteral("Analog Inputs"), ends(30)},
        {QStringLiteral("Frequency Inputs (engineering units)"), ends(31)},
        {QStringLiteral("Counter Inputs (engineering units)"), ends(32)},
        {QStringLiteral("Counter Inputs (counts)"), ends(32)},
        {QStringLiteral("Digital Input (logical) "), ends(33)},
        {QStringLiteral("Digital Output (logical)"), ends(34)},
    };
    QCOMPARE(byGroup(IO_MEM), expected);
}

// Channels are not numbered then, but the group of digital inputs is that of the channels.
void TestVariableCatalogue::channelsByVariable()
{
    GroupsByVariable expected;
    for (const GroupFacts& group : groups()) {
        const QString area = QString::fromLatin1(group.area);
        if (!QStringList({QStringLiteral("AI_REAL_MEM"), QStringLiteral("FI_REAL_MEM"),
                          QStringLiteral("CI_REAL_MEM"), QStringLiteral("CI_INTG_MEM"),
                          QStringLiteral("DI_LOGI_MEM"), QStringLiteral("DO_LOGI_MEM")})
                 .contains(area))
            continue;
        const bool digitalInputs = area == QLatin1String("DI_LOGI_MEM");
        const QString name =
            QString::fromLatin1(group.name) + (digitalInputs ? QStringLiteral(" ") : QString());
        expected.insert(firstLabel(group), name);
        expected.insert(lastLabel(group), name);
    }
    QCOMPARE(expected.size(), 12);
    QCOMPARE(byVariable(IO_MEM), expected);
}

void TestVariableCatalogue::channelNumbersHaveGapsAndNoAliases()
{
    QVERIFY(restart(R"({ "counts": { "analog_inputs": 9 }, "areas": {
        "AI_REAL_MEM": { "real": [ { "label": "a", "alias": "x" }, { "label": "b", "index": 3 },
                                   { "label": "c", "index": 5, "active": false },
                                   { "label": "d", "index": 7 } ] },
        "FI_REAL_MEM": { "real": [ { "label": "e", "active": false } ] } } })"));
    const VariablesByGroup expected{
        {QStringLiteral("Analog Inputs"),
         {QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("7")}}};
    QCOMPARE(byGroup(IO_MEM), expected);
}

void TestVariableCatalogue::channelsAreListedByNumberAloneOnly_data()
{
    QTest::addColumn<int>("with");
    QTest::addColumn<QString>("conditions");
    QTest::newRow("with reals") << int{QT_MARVANE_REAL} << QStringLiteral("R");
    QTest::newRow("with emissions") << int{QT_MARVANE_EMIS} << QString();
    QTest::newRow("with any") << int{QT_MARVANE_ANY} << ALL_CONDITIONS;
}

void TestVariableCatalogue::channelsAreListedByNumberAloneOnly()
{
    QFETCH(int, with);
    QFETCH(QString, conditions);
    QCOMPARE(byGroup(IO_MEM | with), variablesByGroup(conditions));
}

// ---- Variables ---------------------------------------------------------------------------------

void TestVariableCatalogue::groupWithoutAVariableInUse()
{
    const GroupFacts& group = groups().at(0);
    for (const int index : {0, group.length - 1})
        QVERIFY(m_platform->overwrite(group.area, qint64{index} * 390 + 50, bytesOf(int16_t{0})));
    QVERIFY(!byGroup(QT_MARVANE_ANY).contains(QString::fromLatin1(group.name)));
    QVERIFY(!byVariable(QT_MARVANE_ANY).values().contains(QString::fromLatin1(group.name)));
}

void TestVariableCatalogue::anyNonzeroValueMarksAVariableAsUsed_data()
{
    QTest::addColumn<short>("active");
    QTest::newRow("the least") << short{-32768};
    QTest::newRow("minus one") << short{-1};
    QTest::newRow("zero in the lower byte") << short{0x100};
    QTest::newRow("the most") << short{32767};
}

void TestVariableCatalogue::anyNonzeroValueMarksAVariableAsUsed()
{
    QFETCH(short, active);
    for (const GroupFacts& group : groups())
        QVERIFY(m_platform->overwrite(group.area, group.offset + recordOf(group).activeAt,
                                      bytesOf(active)));
    QCOMPARE(byGroup(QT_MARVANE_ANY), variablesByGroup(ALL_CONDITIONS));
}

void TestVariableCatalogue::aliasesFollowAllLabelsInTableOrder()
{
    QVERIFY(restart(R"({ "areas": { "GU_REAL_MEM": { "real": [
        { "label": "z", "alias": "fourth" }, { "label": "b" }, { "label": "a", "alias": "first" },
        { "label": "off", "alias": "hidden", "active": false }, { "label": "last" } ] } } })"));
    QCOMPARE(
        byGroup(QT_MARVANE_REAL).value(QStringLiteral("General Use (real)")).join(QLatin1Char(' ')),
        QStringLiteral("z b a last fourth first"));
}

void TestVariableCatalogue::aliasesAreNotListedInTheFlatForm()
{
    for (const QString& variable : byVariable(QT_MARVANE_ANY).keys())
        QVERIFY2(!variable.startsWith(QStringLiteral("alias")), qPrintable(variable));
}

void TestVariableCatalogue::manyVariables()
{
    constexpr int COUNT = 20000;
    QStringList expected;
    QStringList aliases;
    QByteArray variables;
    for (int i = 0; i < COUNT; ++i) {
        const QByteArray number = QByteArray::number(i);
        expected.append(QStringLiteral("v%1").arg(i));
        aliases.append(QStringLiteral("a%1").arg(i));
        variables += (i > 0 ? R"(, {"label": "v)" : R"({"label": "v)") + number +
                     R"(", "alias": "a)" + number + R"("})";
    }
    QVERIFY(restart(R"({ "areas": { "GU_REAL_MEM": { "real": [)" + variables + "] } } }"));
    const QStringList list = byGroup(QT_MARVANE_ANY).value(QStringLiteral("General Use (real)"));
    QCOMPARE(list.size(), 2 * COUNT);
    QVERIFY(list == expected + aliases);
    QCOMPARE(byVariable(QT_MARVANE_ANY).size(), COUNT);
}

// ---- Areas -------------------------------------------------------------------------------------

void TestVariableCatalogue::missingArea_data()
{
    addRowForEachArea();
}

// All general-use groups depend on the area of the reals.
void TestVariableCatalogue::missingArea()
{
    QFETCH(QString, area);
    QVERIFY(restart(catalogueWithout({area})));
    VariablesByGroup expected = variablesByGroup(ALL_CONDITIONS);
    for (const GroupFacts& group : groupsOf(area))
        QCOMPARE(expected.remove(QString::fromLatin1(group.name)), 1);
    if (area == QLatin1String("GU_REAL_MEM")) {
        for (const char* const rest : {"integer", "logical", "string"})
            expected.remove(QStringLiteral("General Use (%1)").arg(QLatin1String(rest)));
    }
    QCOMPARE(byGroup(QT_MARVANE_ANY), expected);
    for (const QString& group : byVariable(QT_MARVANE_ANY))
        QVERIFY2(expected.contains(group), qPrintable(group));
}

void TestVariableCatalogue::emptyPlatform()
{
    QVERIFY(restart(R"({ "areas": {} })"));
    QVERIFY(byGroup(QT_MARVANE_ANY).isEmpty());
    QVERIFY(byGroup(IO_MEM).isEmpty());
    QVERIFY(byVariable(QT_MARVANE_ANY).isEmpty());
}

void TestVariableCatalogue::detachesWhatItAttached_data()
{
    QTest::addColumn<int>("filter");
    QTest::newRow("of any kind") << int{QT_MARVANE_ANY};
    QTest::newRow("of one kind") << int{QT_MARVANE_STRING};
    QTest::newRow("of channels") << IO_MEM;
    QTest::newRow("of no kind") << 0;
}

// The area with the counts stays attached.
void TestVariableCatalogue::detachesWhatItAttached()
{
    QFETCH(int, filter);
    QCOMPARE(attachedAreas(), QVector<int>());
    byGroup(filter);
    QCOMPARE(attachedAreas(), QVector<int>({SYS_ATTR_MEM}));
    byVariable(filter);
    QCOMPARE(attachedAreas(), QVector<int>({SYS_ATTR_MEM}));
}

void TestVariableCatalogue::keepsWhatWasAttached_data()
{
    addRowForEachArea();
}

void TestVariableCatalogue::keepsWhatWasAttached()
{
    QFETCH(QString, area);
    const int number = groupsOf(area).first().areaNumber;
    const void* const address = get_shrd_mem(static_cast<SM_AREA_ID>(number), 0);
    QVERIFY(address != nullptr);
    for (const int filter : {int{QT_MARVANE_ANY}, IO_MEM, 0}) {
        byGroup(filter);
        QCOMPARE(attachedAreas(), QVector<int>({SYS_ATTR_MEM, number}));
    }
    QCOMPARE(get_shrd_mem(static_cast<SM_AREA_ID>(number), 0), address);
}

// They are attached and not used, but stay attached. Existing behaviour, kept for compatibility.
void TestVariableCatalogue::keepsGeneralUseAreasWithoutTheReals()
{
    QVERIFY(restart(catalogueWithout({QStringLiteral("GU_REAL_MEM")})));
    byGroup(QT_MARVANE_ANY);
    QCOMPARE(attachedAreas(),
             QVector<int>({SYS_ATTR_MEM, GU_INTEGER_MEM, GU_LOGICAL_MEM, GU_STRING_MEM}));
}

// ---- Target ------------------------------------------------------------------------------------

void TestVariableCatalogue::clearsTheTargetMapFirst()
{
    VariablesByGroup lists{{QStringLiteral("old"), {QStringLiteral("x")}}};
    const VariableMapList byGroups(&lists, QT_MARVANE_LOGICAL, nullptr);
    QCOMPARE(lists, variablesByGroup(QStringLiteral("L")));
    GroupsByVariable names{{QStringLiteral("x"), QStringLiteral("old")}};
    const VariableMapList byNames(&names, QT_MARVANE_LOGICAL, nullptr);
    QCOMPARE(names, groupsByVariable(QStringLiteral("L")));
}

void TestVariableCatalogue::isASnapshot()
{
    const GroupFacts& group = groups().at(0);
    const QString name = QString::fromLatin1(group.name);
    const VariablesByGroup before = byGroup(QT_MARVANE_REAL);
    QVERIFY(m_platform->overwrite(group.area, 5 * 390 + 50, bytesOf(int16_t{1})));
    QVERIFY(m_platform->overwrite(group.area, 5 * 390 + 64, "late"));
    QCOMPARE(before.value(name), listOf(group));
    QCOMPARE(byGroup(QT_MARVANE_REAL).value(name).value(1), QStringLiteral("late"));
}

void TestVariableCatalogue::outlivesThePlatform()
{
    const VariablesByGroup variables = byGroup(QT_MARVANE_ANY);
    m_platform.reset();
    QCOMPARE(variables, variablesByGroup(ALL_CONDITIONS));
}

void TestVariableCatalogue::isAChildOfItsParent()
{
    VariablesByGroup lists;
    GroupsByVariable names;
    QObject parent;
    auto* const byGroups = new VariableMapList(&lists, QT_MARVANE_ANY, &parent);
    auto* const byNames = new VariableMapList(&names, QT_MARVANE_ANY, &parent);
    QCOMPARE(parent.children(), QObjectList({byGroups, byNames}));
}

// ---- Without a platform ------------------------------------------------------------------------

void TestVariableCatalogue::platformNotRunning()
{
    m_platform.reset();
    CatalogueClient client;
    client.makeCatalogue();
    QVERIFY(client.hasExitedWith(0));
    QCOMPARE(client.remainingOutput(),
             QByteArray("\n Marvane must be running to use this command\n"));
    QCOMPARE(client.complaints(), QByteArray());
}

void TestVariableCatalogue::platformEnded_data()
{
    QTest::addColumn<bool>("killed");
    QTest::newRow("told to end") << false;
    QTest::newRow("killed") << true;
}

void TestVariableCatalogue::platformEnded()
{
    QFETCH(bool, killed);
    CatalogueClient client;
    client.makeCatalogue();
    QCOMPARE(client.nextLine(), QByteArray("33 groups\n"));
    QVERIFY(killed ? m_platform->kill() : m_platform->terminate());
    client.makeCatalogue();
    QVERIFY(client.hasExitedWith(0));
    QCOMPARE(client.remainingOutput(),
             QByteArray("\n Marvane must be running to use this command\n"));
    QCOMPARE(client.complaints(), QByteArray());
}

// ---- The current catalogue ---------------------------------------------------------------------

void TestVariableCatalogue::rebuiltCatalogueIsTheCurrentOne()
{
    rebuildMasterVariables(QT_MARVANE_STRING);
    QCOMPARE(VMLType, 2);
    QCOMPARE(*Master_variables, variablesByGroup(QStringLiteral("S")));
    rebuildMasterVariables(QT_MARVANE_ANY);
    QCOMPARE(VMLType, 1023);
    QCOMPARE(*Master_variables, variablesByGroup(ALL_CONDITIONS));
}

void TestVariableCatalogue::olderCatalogueIsKeptWhileItIsShown()
{
    rebuildMasterVariables(QT_MARVANE_STRING);
    const auto shown = Master_variables;
    rebuildMasterVariables(QT_MARVANE_LOGICAL);
    QCOMPARE(*shown, variablesByGroup(QStringLiteral("S")));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestVariableCatalogue)
#include "tst_variable_catalogue.moc"
