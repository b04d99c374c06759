// Which areas the variable catalogue attaches and detaches, and when. Wrappers log all calls of the
// host library.

#include <marvane_headers.h>

#include <QtTest>
#include <memory>

#include "catalogue_groups.h"
#include "live_platform.h"
#include "memory_areas.h"
#include "variablemaplist.h"

namespace {

const auto ALL_CONDITIONS = QStringLiteral("RILSTC");

// Lines like "attach 54".
QStringList calls;

void log(const char* call, int area)
{
    calls.append(QStringLiteral("%1 %2").arg(QLatin1String(call)).arg(area));
}

}  // namespace

extern "C" {
int16_t __real_link_to_memory(SM_AREA_ID area, void** address);
int16_t __wrap_link_to_memory(SM_AREA_ID area, void** address);
int16_t __real_shrd_mem_in_use(SM_AREA_ID area);
int16_t __wrap_shrd_mem_in_use(SM_AREA_ID area);
void* __real_get_shrd_mem(SM_AREA_ID area, int16_t mode);
void* __wrap_get_shrd_mem(SM_AREA_ID area, int16_t mode);
int16_t __real_fre_shrd_mem(SM_AREA_ID area);
int16_t __wrap_fre_shrd_mem(SM_AREA_ID area);
int16_t __real_find_alias_of_target(const char* label, SHARED_MEMORY* mem, char** alias);
int16_t __wrap_find_alias_of_target(const char* label, SHARED_MEMORY* mem, char** alias);

int16_t __wrap_link_to_memory(SM_AREA_ID area, void** address)
{
    log("link", area);
    return __real_link_to_memory(area, address);
}

int16_t __wrap_shrd_mem_in_use(SM_AREA_ID area)
{
    log("ask", area);
    return __real_shrd_mem_in_use(area);
}

void* __wrap_get_shrd_mem(SM_AREA_ID area, int16_t mode)
{
    log(mode == 0 ? "attach" : "attach in another mode", area);
    return __real_get_shrd_mem(area, mode);
}

int16_t __wrap_fre_shrd_mem(SM_AREA_ID area)
{
    log("free", area);
    return __real_fre_shrd_mem(area);
}

int16_t __wrap_find_alias_of_target(const char* label, SHARED_MEMORY* mem, char** alias)
{
    calls.append(QStringLiteral("alias ") + QLatin1String(label));
    return __real_find_alias_of_target(label, mem, alias);
}
}

namespace {

QStringList callsOf(int filter)
{
    calls.clear();
    VariablesByGroup variables;
    const VariableMapList list(&variables, QT_MARVANE_VAR_TYPE(QFlag(filter)), nullptr);
    return calls;
}

QStringList flatFormCallsOf(int filter)
{
    calls.clear();
    QMap<QString, QString> variables;
    const VariableMapList list(&variables, QT_MARVANE_VAR_TYPE(QFlag(filter)), nullptr);
    return calls;
}

QStringList without(const QStringList& lines, const char* call)
{
    QStringList rest;
    for (const QString& line : lines) {
        if (!line.startsWith(QLatin1String(call)))
            rest.append(line);
    }
    return rest;
}

// Makes the protected functions accessible.
class Areas : public MemoryAreas {
public:
    using MemoryAreas::local_fre_shrd_mem;
    using MemoryAreas::local_link_to_memory;
};

// Only the calls that attach and free areas.
QString areaCallsOf(int filter)
{
    return without(without(callsOf(filter), "ask "), "alias ").join(QStringLiteral(", "));
}

QStringList attachCalls(int area)
{
    return {QStringLiteral("ask %1").arg(area), QStringLiteral("attach %1").arg(area)};
}

QStringList aliasCalls(const GroupFacts& group)
{
    if (recordOf(group).structured)
        return {};
    return {QStringLiteral("alias ") + firstLabel(group),
            QStringLiteral("alias ") + lastLabel(group)};
}

QStringList callsForGeneralUse()
{
    QStringList expected;
    for (const int area : {55, 56, 57, 54})
        expected += attachCalls(area);
    for (int i = 0; i < 4; ++i)
        expected += aliasCalls(groups().at(i));
    for (const int area : {54, 55, 56, 57})
        expected += QStringLiteral("free %1").arg(area);
    return expected;
}

QStringList callsForArea(const QString& area)
{
    const int number = groupsOf(area).first().areaNumber;
    QStringList expected = attachCalls(number);
    for (const GroupFacts& group : groupsOf(area))
        expected += aliasCalls(group);
    return expected + QStringList(QStringLiteral("free %1").arg(number));
}

// The calls for a catalogue of all kinds.
QStringList allCalls()
{
    QStringList expected{QStringLiteral("link 1")};
    expected += callsForGeneralUse();
    for (const QString& area : areas().mid(4))
        expected += callsForArea(area);
    return expected;
}

}  // namespace

class TestCatalogueHostCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(start(fullCatalogue())); }
    void cleanup() { m_platform.reset(); }

    void everything();
    void everythingInTheFlatForm();
    void areasByFilter_data();
    void areasByFilter();
    void countsStayAttached();
    void areaInUseIsNotFreed_data();
    void areaInUseIsNotFreed();
    void generalUseWithoutTheReals();
    void generalUseWithoutAnother_data();
    void generalUseWithoutAnother();
    void missingAreaIsNotFreed();
    void nowhereToStoreTheAddress();
    void eachAreaForItself();

private:
    bool start(const QByteArray& catalogue)
    {
        m_platform = std::make_unique<LivePlatform>();
        return m_platform->start(catalogue);
    }

    std::unique_ptr<LivePlatform> m_platform;
};

void TestCatalogueHostCalls::everything()
{
    QCOMPARE(callsOf(QT_MARVANE_ANY), allCalls());
}

void TestCatalogueHostCalls::everythingInTheFlatForm()
{
    QCOMPARE(flatFormCallsOf(QT_MARVANE_ANY), allCalls());
}

// The general-use areas, and those with tables of several kinds, are always attached.
void TestCatalogueHostCalls::areasByFilter_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QVector<int>>("before");
    QTest::addColumn<QVector<int>>("behind");
    using Areas = QVector<int>;
    QTest::newRow("none") << 0 << Areas() << Areas();
    QTest::newRow("logicals") << int{QT_MARVANE_LOGICAL} << Areas() << Areas{19, 27, 28, 42, 67};
    QTest::newRow("strings") << int{QT_MARVANE_STRING} << Areas() << Areas{31, 66};
    QTest::newRow("integers") << int{QT_MARVANE_INTEGER} << Areas{8} << Areas();
    QTest::newRow("reals") << int{QT_MARVANE_REAL} << Areas{6, 22, 24, 64, 65} << Areas();
    QTest::newRow("reals and integers")
        << int{QT_MARVANE_REAL_INTEGER} << Areas{6, 22, 24, 64, 65, 8} << Areas();
    QTest::newRow("statistics") << int{QT_MARVANE_STAT} << Areas() << Areas{58, 70};
    QTest::newRow("compositions") << int{QT_MARVANE_COMP} << Areas() << Areas{53};
    QTest::newRow("emissions") << int{QT_MARVANE_EMIS} << Areas() << Areas();
    QTest::newRow("properties") << int{QT_MARVANE_PROP} << Areas() << Areas();
    QTest::newRow("arrays") << int{QT_MARVANE_ARRAY} << Areas() << Areas();
    QTest::newRow("channels") << int{QT_MARVANE_IO_MEM} << Areas() << Areas{6, 22, 24, 8, 27, 28};
}

void TestCatalogueHostCalls::areasByFilter()
{
    QFETCH(int, filter);
    QFETCH(QVector<int>, before);
    QFETCH(QVector<int>, behind);
    QStringList expected = without(without(callsForGeneralUse(), "ask "), "alias ");
    for (const int area : before + QVector<int>{11, 10, 33, 9} + behind)
        expected += {QStringLiteral("attach %1").arg(area), QStringLiteral("free %1").arg(area)};
    QCOMPARE(areaCallsOf(filter), QStringLiteral("link 1, ") + expected.join(QStringLiteral(", ")));
}

void TestCatalogueHostCalls::countsStayAttached()
{
    QVERIFY(!callsOf(QT_MARVANE_ANY).contains(QStringLiteral("free 1")));
    QVERIFY(__real_shrd_mem_in_use(SYS_ATTR_MEM) != 0);
}

void TestCatalogueHostCalls::areaInUseIsNotFreed_data()
{
    QTest::addColumn<int>("area");
    for (const GroupFacts& group : groups()) {
        if (groupsOf(QString::fromLatin1(group.area)).first().offset == group.offset)
            QTest::newRow(group.area) << group.areaNumber;
    }
}

void TestCatalogueHostCalls::areaInUseIsNotFreed()
{
    QFETCH(int, area);
    QVERIFY(__real_get_shrd_mem(static_cast<SM_AREA_ID>(area), 0) != nullptr);
    QStringList expected = allCalls();
    QCOMPARE(expected.removeAll(QStringLiteral("free %1").arg(area)), 1);
    QCOMPARE(callsOf(QT_MARVANE_ANY), expected);
}

void TestCatalogueHostCalls::generalUseWithoutTheReals()
{
    QVERIFY(start(catalogueWithout({QStringLiteral("GU_REAL_MEM")})));
    const QStringList begin = callsOf(QT_MARVANE_ANY).mid(0, 10);
    QCOMPARE(begin.join(QStringLiteral(", ")),
             QStringLiteral("link 1, ask 55, attach 55, ask 56, attach 56, ask 57, attach 57, "
                            "ask 54, attach 54, ask 6"));
    for (const int area : {54, 55, 56, 57})
        QVERIFY(!calls.contains(QStringLiteral("free %1").arg(area)));
}

void TestCatalogueHostCalls::generalUseWithoutAnother_data()
{
    QTest::addColumn<int>("row");
    for (int row = 1; row < 4; ++row)
        QTest::newRow(groups().at(row).area) << row;
}

// The calls are the same except those for the variables of the area.
void TestCatalogueHostCalls::generalUseWithoutAnother()
{
    QFETCH(int, row);
    const GroupFacts& group = groups().at(row);
    QVERIFY(start(catalogueWithout({QString::fromLatin1(group.area)})));
    QStringList expected = allCalls();
    for (const QString& call : aliasCalls(group))
        QCOMPARE(expected.removeAll(call), 1);
    QCOMPARE(callsOf(QT_MARVANE_ANY), expected);
}

void TestCatalogueHostCalls::missingAreaIsNotFreed()
{
    QStringList missing = areas();
    for (const char* const there :
         {"GU_REAL_MEM", "GU_INTEGER_MEM", "GU_LOGICAL_MEM", "GU_STRING_MEM"})
        missing.removeAll(QString::fromLatin1(there));
    QVERIFY(start(catalogueWithout(missing)));
    QStringList expected{QStringLiteral("link 1")};
    expected += callsForGeneralUse();
    for (const QString& area : missing)
        expected += attachCalls(groupsOf(area).first().areaNumber);
    QCOMPARE(callsOf(QT_MARVANE_ANY), expected);
}

void TestCatalogueHostCalls::nowhereToStoreTheAddress()
{
    Areas areas;
    calls.clear();
    QVERIFY(!areas.local_link_to_memory(GU_REAL_MEM, nullptr));
    QCOMPARE(calls, QStringList());
}

// An area that was attached again in between was in use then.
void TestCatalogueHostCalls::eachAreaForItself()
{
    Areas areas;
    void* inputs = nullptr;
    void* reals = nullptr;
    QVERIFY(areas.local_link_to_memory(AI_REAL_MEM, &inputs));
    QVERIFY(areas.local_link_to_memory(GU_REAL_MEM, &reals));
    QVERIFY(areas.local_link_to_memory(GU_REAL_MEM, &reals));
    QCOMPARE(inputs, __real_get_shrd_mem(AI_REAL_MEM, 0));
    QCOMPARE(reals, __real_get_shrd_mem(GU_REAL_MEM, 0));
    calls.clear();
    areas.local_fre_shrd_mem(GU_REAL_MEM);
    areas.local_fre_shrd_mem(AI_REAL_MEM);
    QCOMPARE(calls, QStringList(QStringLiteral("free 6")));
    QVERIFY(!areas.local_link_to_memory(KEYWORD_MEM, &reals));
    QVERIFY(reals == nullptr);
}

QTEST_GUILESS_MAIN(TestCatalogueHostCalls)
#include "tst_catalogue_host_calls.moc"
