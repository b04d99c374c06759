// Snapshots of shared memory with invalid contents.

#include <QtTest>
#include <algorithm>
#include <memory>

#include "area_layout.h"
#include "catalogue_groups.h"
#include "live_platform.h"
#include "taken_snapshot.h"

namespace {

qint64 firstLabelAt(const GroupFacts& group)
{
    return group.offset + recordOf(group).labelAt;
}

size_t variablesOf(const marvane::Catalogue& catalogue)
{
    size_t count = 0;
    for (const auto& table : catalogue.tables)
        count += table.size();
    return count;
}

constexpr char KEYWORDS[] = R"({ "areas": {}, "keywords": [
    { "name": "FIRST", "kind": "channel" }, { "name": "LAST", "kind": "parameter" } ] })";

}  // namespace

class TestSnapshotDistrust : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(start(fullCatalogue())); }
    void cleanup() { m_platform.reset(); }

    void labelWithoutATerminatingZero();
    void noLabel();
    void labelThatNoFunctionKnows();
    void labelOfAnotherVariable();
    void otherActiveValues();
    void countsBeyondTheAreas();
    void countOfZero();
    void shortAreas_data();
    void shortAreas();
    void areasFilledWithGarbage_data();
    void areasFilledWithGarbage();
    void keywordsFilledWithGarbage();
    void keywordThatFillsItsField();

private:
    bool start(const QByteArray& catalogue)
    {
        m_platform = std::make_unique<LivePlatform>();
        return m_platform->start(catalogue);
    }

    // A snapshot that marvane-desk takes.
    bool take()
    {
        m_taken = takeSnapshot();
        m_catalogue = acceptedCatalogue(m_taken.text);
        return m_taken.reading == snapshot::Reading::Done && m_catalogue;
    }

    bool overwriteFirstLabels(const QByteArray& bytes)
    {
        return std::all_of(groups().begin(), groups().end(), [&](const GroupFacts& group) {
            return m_platform->overwrite(group.area, firstLabelAt(group), bytes);
        });
    }

    std::unique_ptr<LivePlatform> m_platform;
    TakenSnapshot m_taken;
    std::optional<marvane::Catalogue> m_catalogue;
};

void TestSnapshotDistrust::labelWithoutATerminatingZero()
{
    QVERIFY(take());
    const size_t before = variablesOf(*m_catalogue);
    QCOMPARE(m_taken.omissions, QStringList());
    QVERIFY(overwriteFirstLabels(QByteArray(80, 'x')));
    QVERIFY(take());
    QCOMPARE(m_taken.omissions.filter(QStringLiteral("is longer than 79 bytes")).size(),
             m_taken.omissions.size());
    QCOMPARE(variablesOf(*m_catalogue), before - static_cast<size_t>(m_taken.omissions.size()));
    QCOMPARE(m_taken.omissions.size(), int{marvane::TABLE_LAYOUTS.size()});
}

void TestSnapshotDistrust::noLabel()
{
    QVERIFY(overwriteFirstLabels(QByteArray(1, '\0')));
    QVERIFY(take());
    QCOMPARE(m_taken.omissions.size(), int{marvane::TABLE_LAYOUTS.size()});
    QCOMPARE(m_taken.omissions.filter(QStringLiteral("label \"\": must not be empty")).size(),
             m_taken.omissions.size());
}

// The variable is in the table, so the editor offers it, but its units and alias are unknown.
void TestSnapshotDistrust::labelThatNoFunctionKnows()
{
    const GroupFacts& group = groups().first();
    QVERIFY(m_platform->overwrite(group.area, firstLabelAt(group), QByteArray("unheard_of\0", 11)));
    QVERIFY(take());
    QCOMPARE(m_taken.omissions.size(), 1);
    QVERIFY2(m_taken.omissions.first().contains(
                 QLatin1String("units of \"unheard_of\": no function finds the variable")),
             qPrintable(m_taken.omissions.first()));
    QVERIFY(m_taken.text.contains(R"("label": "unheard_of" })"));
}

void TestSnapshotDistrust::labelOfAnotherVariable()
{
    QVERIFY(overwriteFirstLabels(QByteArray("twin\0", 5)));
    QVERIFY(take());
    QCOMPARE(m_taken.text.count("\"twin\""), 1);
    QVERIFY(!m_taken.omissions.filter(QStringLiteral("the name is there already")).isEmpty());
}

void TestSnapshotDistrust::otherActiveValues()
{
    QVERIFY(take());
    const QByteArray before = m_taken.text;
    for (const GroupFacts& group : groups())
        QVERIFY(m_platform->overwrite(group.area, group.offset + recordOf(group).activeAt,
                                      bytesOf(int16_t{-32768})));
    QVERIFY(take());
    QCOMPARE(m_taken.text, before);
    QCOMPARE(m_taken.omissions, QStringList());
}

void TestSnapshotDistrust::countsBeyondTheAreas()
{
    QVERIFY(take());
    const auto before = m_catalogue->tables;
    for (const GroupFacts& group : groups()) {
        if (group.count != nullptr)
            QVERIFY(m_platform->overwrite("SYS_ATTR_MEM", group.countAt, bytesOf(uint16_t{65535})));
    }
    QVERIFY(take());
    QCOMPARE(m_taken.omissions, QStringList());
    for (const uint16_t count : m_catalogue->counts)
        QCOMPARE(count, uint16_t{65535});
    for (size_t i = 0; i < before.size(); ++i)
        QCOMPARE(m_catalogue->tables[i].size(), before[i].size());
}

void TestSnapshotDistrust::countOfZero()
{
    QVERIFY(m_platform->overwrite("SYS_ATTR_MEM", 1400, QByteArray(374, '\0')));
    QVERIFY(take());
    for (size_t i = 0; i < marvane::TABLE_LAYOUTS.size(); ++i)
        QCOMPARE(m_catalogue->tables[i].empty(), marvane::isCounted(marvane::TABLE_LAYOUTS[i]));
}

void TestSnapshotDistrust::shortAreas_data()
{
    QTest::addColumn<qlonglong>("size");
    QTest::newRow("empty") << 0LL;
    QTest::newRow("of one byte") << 1LL;
    QTest::newRow("cut in the label of its first record") << 70LL;
    QTest::newRow("cut at a page") << 8192LL;
}

void TestSnapshotDistrust::shortAreas()
{
    QFETCH(qlonglong, size);
    QVERIFY(take());
    const size_t before = variablesOf(*m_catalogue);
    for (const QString& area : areas())
        QVERIFY(m_platform->resize(qPrintable(area), size));
    QVERIFY(take());
    QVERIFY(variablesOf(*m_catalogue) < before);
    QCOMPARE(m_catalogue->areas.size(), size_t{25});
}

void TestSnapshotDistrust::areasFilledWithGarbage_data()
{
    QTest::addColumn<char>("byte");
    QTest::newRow("letters") << 'x';
    QTest::newRow("no text") << '\xfe';
}

// All records are in use then, and no label has a terminating zero.
void TestSnapshotDistrust::areasFilledWithGarbage()
{
    QFETCH(char, byte);
    QVERIFY(start(
        catalogueWithout({QStringLiteral("REAL_ARRAY_MEM"), QStringLiteral("INT_ARRAY_MEM"),
                          QStringLiteral("STRING_ARRAY_MEM"), QStringLiteral("LOGI_ARRAY_MEM")})));
    size_t records = 0;
    for (const GroupFacts& group : groups()) {
        const int size = group.length * recordOf(group).size;
        const bool isArray = QByteArray(group.kind).endsWith("_array");
        if (!isArray)
            QVERIFY(m_platform->overwrite(group.area, group.offset, QByteArray(size, byte)));
        records += isArray ? 0 : static_cast<size_t>(group.length);
    }
    QVERIFY(take());
    QCOMPARE(variablesOf(*m_catalogue), size_t{0});
    QCOMPARE(static_cast<size_t>(m_taken.omissions.size()), records);
}

void TestSnapshotDistrust::keywordsFilledWithGarbage()
{
    QVERIFY(start(KEYWORDS));
    QVERIFY(
        m_platform->overwrite("KEYWORD_MEM", sizeof(PAM_KEYWORD),
                              QByteArray((MAX_PAM_KEYWORDS - 1) * sizeof(PAM_KEYWORD), '\xfe')));
    QVERIFY(take());
    QCOMPARE(m_catalogue->keywords.size(), size_t{1});
    QCOMPARE(m_taken.omissions.size(), MAX_PAM_KEYWORDS - 1);
}

void TestSnapshotDistrust::keywordThatFillsItsField()
{
    QVERIFY(start(KEYWORDS));
    QVERIFY(m_platform->overwrite("KEYWORD_MEM", 0, QByteArray(80, 'K')));
    QVERIFY(take());
    QCOMPARE(m_taken.omissions,
             QStringList(QStringLiteral("KEYWORD_MEM 0: name \"%1\": is longer than 79 bytes")
                             .arg(QString(80, QLatin1Char('K')))));
    QCOMPARE(m_catalogue->keywords.size(), size_t{1});
    QCOMPARE(m_catalogue->keywords.front().index, uint16_t{1});
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestSnapshotDistrust)
#include "tst_snapshot_distrust.moc"
