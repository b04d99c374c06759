// SortedNames searches faster than QSortFilterProxyModel, with the same results.

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QtTest>
#include <algorithm>

#include "sortednames.h"

namespace {

constexpr auto PLAIN = Qt::MatchFlags(Qt::MatchExactly);
constexpr auto EXACT = Qt::MatchExactly | Qt::MatchCaseSensitive;
constexpr auto FIXED = Qt::MatchFixedString | Qt::MatchCaseSensitive;
constexpr auto ANY_CASE = Qt::MatchFlags(Qt::MatchFixedString);
constexpr auto PREFIX = Qt::MatchStartsWith | Qt::MatchCaseSensitive;

QString randomName(QRandomGenerator* random)
{
    QString name;
    for (int i = random->bounded(5); i > 0; --i)
        name +=
            QChar(random->bounded(2) == 0 ? 'a' + random->bounded(3) : 'A' + random->bounded(3));
    return name;
}

QVector<int> rowsOf(const QModelIndexList& indexes)
{
    QVector<int> rows;
    for (const QModelIndex& index : indexes)
        rows.append(index.row());
    return rows;
}

}  // namespace

class tst_SortedNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsWhatAProxyModelFinds_data();
    void findsWhatAProxyModelFinds();
    void findsNothingInAnEmptyModel();
    void searchesAllRowsWhileTheyAreNotSorted();
};

void tst_SortedNames::findsWhatAProxyModelFinds_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("hits");
    QTest::addColumn<int>("startRow");
    for (const int hits : {1, 2, -1}) {
        for (const int start : {0, 7}) {
            QTest::addRow("exactly, %d hits from row %d", hits, start)
                << int(PLAIN) << hits << start;
            QTest::addRow("exactly in case, %d hits from row %d", hits, start)
                << int(EXACT) << hits << start;
            QTest::addRow("as QComboBox, %d hits from row %d", hits, start)
                << int(FIXED) << hits << start;
            QTest::addRow("in any case, %d hits from row %d", hits, start)
                << int(ANY_CASE) << hits << start;
            QTest::addRow("by the beginning, %d hits from row %d", hits, start)
                << int(PREFIX) << hits << start;
        }
    }
}

void tst_SortedNames::findsWhatAProxyModelFinds()
{
    QFETCH(int, flags);
    QFETCH(int, hits);
    QFETCH(int, startRow);
    QRandomGenerator random(1);
    QStringList names;
    for (int i = 0; i < 300; ++i)
        names.append(randomName(&random));
    std::sort(names.begin(), names.end());
    QStandardItemModel source;
    for (const QString& name : qAsConst(names))
        source.appendRow(new QStandardItem(name));
    SortedNames sorted;
    const QAbstractItemModelTester tester(&sorted,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    sorted.setSourceModel(&source);
    sorted.markSorted();
    QVERIFY(sorted.isSorted());
    QSortFilterProxyModel plain;
    plain.setSourceModel(&source);
    for (int i = 0; i < 300; ++i) {
        const QString name = randomName(&random);
        const QModelIndexList expected = plain.match(plain.index(startRow, 0), Qt::DisplayRole,
                                                     name, hits, Qt::MatchFlags(QFlag(flags)));
        const QModelIndexList actual = sorted.match(sorted.index(startRow, 0), Qt::DisplayRole,
                                                    name, hits, Qt::MatchFlags(QFlag(flags)));
        QCOMPARE(rowsOf(actual), rowsOf(expected));
    }
}

void tst_SortedNames::findsNothingInAnEmptyModel()
{
    QStandardItemModel source;
    SortedNames sorted;
    sorted.setSourceModel(&source);
    sorted.markSorted();
    QVERIFY(sorted.match(sorted.index(0, 0), Qt::DisplayRole, QString(), 1, EXACT).isEmpty());
}

void tst_SortedNames::searchesAllRowsWhileTheyAreNotSorted()
{
    QStandardItemModel source;
    for (const char* const name : {"b", "d"})
        source.appendRow(new QStandardItem(QString::fromLatin1(name)));
    SortedNames sorted;
    sorted.setSourceModel(&source);
    sorted.markSorted();
    source.appendRow(new QStandardItem(QStringLiteral("a")));
    QVERIFY(!sorted.isSorted());
    QCOMPARE(
        rowsOf(sorted.match(sorted.index(0, 0), Qt::DisplayRole, QStringLiteral("a"), 1, EXACT)),
        QVector<int>{2});
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SortedNames)
#include "tst_sorted_names.moc"
