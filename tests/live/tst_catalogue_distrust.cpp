// The variable catalogue with invalid contents of shared memory, and how much of it the catalogue
// reads.

#include <marvane_headers.h>
#include <unistd.h>

#include <QtTest>
#include <memory>
#include <numeric>

#include "catalogue_groups.h"
#include "live_platform.h"
#include "variablemaplist.h"

namespace {

const auto ALL_CONDITIONS = QStringLiteral("RILSTC");

VariablesByGroup byGroup(QT_MARVANE_FLAGS filter = QT_MARVANE_ANY)
{
    VariablesByGroup variables;
    const VariableMapList list(&variables, filter, nullptr);
    return variables;
}

QMap<QString, QString> byVariable()
{
    QMap<QString, QString> variables;
    const VariableMapList list(&variables, QT_MARVANE_ANY, nullptr);
    return variables;
}

QString nameOf(const GroupFacts& group)
{
    return QString::fromLatin1(group.name);
}

qint64 firstLabelAt(const GroupFacts& group)
{
    return group.offset + recordOf(group).labelAt;
}

void addRowForEachGroup()
{
    QTest::addColumn<GroupFacts>("group");
    for (const GroupFacts& group : groups())
        QTest::newRow(group.name) << group;
}

// Reads every byte. The result does not matter.
int sumOf(const void* begin, size_t size)
{
    const auto* const bytes = static_cast<const unsigned char*>(begin);
    return std::accumulate(bytes, bytes + size, 0);
}

}  // namespace

Q_DECLARE_METATYPE(GroupFacts)

class TestCatalogueDistrust : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(start(fullCatalogue())); }
    void cleanup() { m_platform.reset(); }

    void labelWithoutATerminatingZero_data();
    void labelWithoutATerminatingZero();
    void labelOfAnyBytes_data();
    void labelOfAnyBytes();
    void labelOfTwoGroups();

    void countsBeyondTheAreas();
    void countIsUnsigned();
    void countOfZero();
    void shortArea_data();
    void shortArea();
    void areasFilledWithGarbage();

    void leavesArraysAlone();
    void looksAtOnePageOfAnArrayNotInUse();

private:
    bool start(const QByteArray& catalogue)
    {
        m_platform = std::make_unique<LivePlatform>();
        return m_platform->start(catalogue);
    }

    std::unique_ptr<LivePlatform> m_platform;
};

void TestCatalogueDistrust::labelWithoutATerminatingZero_data()
{
    addRowForEachGroup();
}

void TestCatalogueDistrust::labelWithoutATerminatingZero()
{
    QFETCH(GroupFacts, group);
    QVERIFY(m_platform->overwrite(group.area, firstLabelAt(group), QByteArray(80, 'x') + "yyyy"));
    // In some records the label is in front of the active flag, which is nonzero in both cases.
    const QString full(80, QLatin1Char('x'));
    const QStringList list = byGroup().value(nameOf(group));
    QCOMPARE(list.value(0), full);
    QCOMPARE(list.value(1), lastLabel(group));
    QCOMPARE(byVariable().value(full), nameOf(group));
}

void TestCatalogueDistrust::labelOfAnyBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("label");
    const QString unknown(QChar::ReplacementCharacter);
    QTest::newRow("none") << QByteArray(1, '\0') << QString();
    QTest::newRow("of two bytes a letter")
        << QByteArray("\xc3\xa4x\0", 4) << QStringLiteral("\u00e4x");
    QTest::newRow("a lone byte") << QByteArray("a\xffz\0", 4)
                                 << QStringLiteral("a%1z").arg(unknown);
    QTest::newRow("cut in a letter by its end")
        << QByteArray(79, 'x') + '\xc3' << QString(79, QLatin1Char('x')) + unknown;
    QTest::newRow("line feeds and blanks")
        << QByteArray(" a\n\t \0", 6) << QStringLiteral(" a\n\t ");
}

void TestCatalogueDistrust::labelOfAnyBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, label);
    for (const GroupFacts& group : groups())
        QVERIFY(m_platform->overwrite(group.area, firstLabelAt(group), bytes));
    const VariablesByGroup variables = byGroup();
    for (const GroupFacts& group : groups()) {
        QCOMPARE(variables.value(nameOf(group)).value(0), label);
        QCOMPARE(variables.value(nameOf(group)).value(1), lastLabel(group));
    }
    QVERIFY(byVariable().contains(label));
}

// In the catalogue by variable, the later group wins; by group, both list it.
void TestCatalogueDistrust::labelOfTwoGroups()
{
    const GroupFacts& before = groups().at(4);
    const GroupFacts& later = groups().at(5);
    const QByteArray twin("twin\0", 5);
    for (const GroupFacts* const group : {&before, &later})
        QVERIFY(m_platform->overwrite(group->area, firstLabelAt(*group), twin));
    QCOMPARE(byVariable().value(QStringLiteral("twin")), nameOf(later));
    const VariablesByGroup variables = byGroup();
    QCOMPARE(variables.value(nameOf(before)).value(0), QStringLiteral("twin"));
    QCOMPARE(variables.value(nameOf(later)).value(0), QStringLiteral("twin"));
}

void TestCatalogueDistrust::countsBeyondTheAreas()
{
    for (const GroupFacts& group : groups()) {
        if (group.count != nullptr)
            QVERIFY(m_platform->overwrite("SYS_ATTR_MEM", group.countAt, bytesOf(uint16_t{65535})));
    }
    QCOMPARE(byGroup(), variablesByGroup(ALL_CONDITIONS));
    QCOMPARE(byVariable(), groupsByVariable(ALL_CONDITIONS));
    QCOMPARE(byGroup(QT_MARVANE_IO_MEM).value(QStringLiteral("Analog Inputs")),
             QStringList({QStringLiteral("0"), QStringLiteral("30")}));
}

// A count above 32767 would be negative as int16_t.
void TestCatalogueDistrust::countIsUnsigned()
{
    constexpr int LAST = 65534;
    QVERIFY(start(R"({ "areas": {
        "GU_REAL_MEM": { "real": [ { "label": "a", "index": 65534, "alias": "b" } ] },
        "AI_REAL_MEM": { "real": [ { "label": "c", "index": 65534 } ] },
        "GU_STAT_MEM": { "statistic": [ { "label": "d.", "index": 65534 } ] } } })"));
    const VariablesByGroup expected{
        {QStringLiteral("General Use (real)"), {QStringLiteral("a"), QStringLiteral("b")}},
        {QStringLiteral("Analog Inputs"), {QStringLiteral("c")}},
        {QStringLiteral("General Use (statistical)"), {QStringLiteral("d.")}}};
    QCOMPARE(byGroup(), expected);
    QCOMPARE(byGroup(QT_MARVANE_IO_MEM).value(QStringLiteral("Analog Inputs")),
             QStringList(QString::number(LAST)));
}

void TestCatalogueDistrust::countOfZero()
{
    VariablesByGroup expected = variablesByGroup(ALL_CONDITIONS);
    for (const GroupFacts& group : groups()) {
        if (group.count == nullptr)
            continue;
        QVERIFY(m_platform->overwrite("SYS_ATTR_MEM", group.countAt, bytesOf(uint16_t{0})));
        expected.remove(nameOf(group));
    }
    QCOMPARE(byGroup(), expected);
}

void TestCatalogueDistrust::shortArea_data()
{
    QTest::addColumn<qlonglong>("size");
    QTest::newRow("empty") << 0LL;
    QTest::newRow("of one byte") << 1LL;
    QTest::newRow("cut in the label of its first record") << 70LL;
    QTest::newRow("cut in a page") << 5000LL;
    QTest::newRow("cut at a page") << 8192LL;
    QTest::newRow("cut in an array") << 400000LL;
}

// The first variable is complete as far as its bytes exist; the last one of a long table is
// missing.
void TestCatalogueDistrust::shortArea()
{
    QFETCH(qlonglong, size);
    for (const QString& area : areas()) {
        if (groupsOf(area).last().offset +
                qint64{groupsOf(area).last().length} * recordOf(groupsOf(area).last()).size >
            size)
            QVERIFY(m_platform->resize(qPrintable(area), size));
    }
    const VariablesByGroup variables = byGroup();
    for (const GroupFacts& group : groups()) {
        const RecordFacts& record = recordOf(group);
        const qint64 last = group.offset + qint64{group.length - 1} * record.size;
        const QStringList list = variables.value(nameOf(group));
        QCOMPARE(list.contains(firstLabel(group)),
                 group.offset + qMax(record.activeAt + 2, record.labelAt + 80) <= size);
        QCOMPARE(list.contains(lastLabel(group)),
                 last + qMax(record.activeAt + 2, record.labelAt + 80) <= size);
    }
}

// All records are active then, and no label has a terminating zero.
void TestCatalogueDistrust::areasFilledWithGarbage()
{
    QVERIFY(start(
        catalogueWithout({QStringLiteral("REAL_ARRAY_MEM"), QStringLiteral("INT_ARRAY_MEM"),
                          QStringLiteral("STRING_ARRAY_MEM"), QStringLiteral("LOGI_ARRAY_MEM")})));
    for (const QString& area : areas()) {
        const GroupFacts last = groupsOf(area).last();
        const int size = last.offset + last.length * recordOf(last).size;
        if (size < 1000000)
            QVERIFY(m_platform->overwrite(qPrintable(area), 0, QByteArray(size, '\xfe')));
    }
    const VariablesByGroup variables = byGroup();
    QCOMPARE(variables.size(), 29);
    for (const GroupFacts& group : groups()) {
        if (variables.contains(nameOf(group)))
            QCOMPARE(variables.value(nameOf(group)).size(), group.length);
    }
    QCOMPARE(byVariable().size(), 1);
}

// ---- How much is touched -----------------------------------------------------------------------

// Unwritten pages of an array take no memory until they are read.
void TestCatalogueDistrust::leavesArraysAlone()
{
    constexpr int COUNT = 100;
    QByteArray arrays = R"({"label": "a0"})";
    for (int i = 1; i < COUNT; ++i)
        arrays += R"(, {"label": "a)" + QByteArray::number(i) + R"("})";
    QVERIFY(start(R"({ "areas": { "REAL_ARRAY_MEM": { "real_array": [)" + arrays + "] } } }"));
    const qint64 before = m_platform->memoryOf("REAL_ARRAY_MEM");
    QCOMPARE(byGroup().value(QStringLiteral("Real (array)")).size(), COUNT);
    QCOMPARE(byVariable().size(), COUNT);
    QCOMPARE(m_platform->memoryOf("REAL_ARRAY_MEM"), before);

    QVERIFY(sumOf(get_shrd_mem(REAL_ARRAY_MEM, 0), sizeof(_real_array_variable)) > 0);
    QVERIFY2(m_platform->memoryOf("REAL_ARRAY_MEM") > before, "had it read them, it would show");
}

void TestCatalogueDistrust::looksAtOnePageOfAnArrayNotInUse()
{
    constexpr int COUNT = 100;
    QVERIFY(start(R"({ "counts": { "real_arrays": 100 }, "areas": {
        "REAL_ARRAY_MEM": { "real_array": [ { "label": "a" } ] } } })"));
    const qint64 before = m_platform->memoryOf("REAL_ARRAY_MEM");
    QCOMPARE(byGroup().value(QStringLiteral("Real (array)")).size(), 1);
    const qint64 pageSize = sysconf(_SC_PAGESIZE);
    const qint64 read = m_platform->memoryOf("REAL_ARRAY_MEM") - before;
    QVERIFY2(read <= COUNT * pageSize, qPrintable(QString::number(read)));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestCatalogueDistrust)
#include "tst_catalogue_distrust.moc"
