// "Did you mean": the nearest name, against a plain edit distance.

#include <QtTest>
#include <ctime>
#include <numeric>
#include <random>

#include "nearestname.h"

namespace {

const QStringList& names()
{
    static const QStringList names{
        QStringLiteral("eng_speed"),   QStringLiteral("dyno_speed"), QStringLiteral("oil_temp"),
        QStringLiteral("oil_temp_in"), QStringLiteral("Oil_Press"),  QStringLiteral("boost"),
        QStringLiteral("roost"),       QStringLiteral("AV"),         QStringLiteral("intake.")};
    return names;
}

// The differences of the first letters of a from the first letters of b, letter by letter.
int distance(const QString& a, const QString& b)
{
    QVector<QVector<int>> table(a.size() + 1, QVector<int>(b.size() + 1));
    std::iota(table[0].begin(), table[0].end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        table[i][0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            table[i][j] = std::min({table[i - 1][j] + 1, table[i][j - 1] + 1,
                                    table[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
        }
    }
    return table[a.size()][b.size()];
}

// By the distance from all names, which are in alphabetical order.
QString nearestOfAll(const QStringList& names, const QString& text)
{
    const int most = text.size() <= 4 ? 1 : 2;
    for (int limit = 0; limit <= most; ++limit) {
        for (const QString& name : names) {
            if (distance(name, text) <= limit)
                return name;
        }
    }
    return {};
}

QString randomText(std::mt19937* random, int mostLetters)
{
    QString text;
    for (auto letters = 1 + (*random)() % static_cast<unsigned>(mostLetters); letters > 0;
         --letters)
        text += QLatin1Char(static_cast<char>('a' + (*random)() % 3));
    return text;
}

}  // namespace

class tst_SpecNearestName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nearest_data();
    void nearest();
    void noNamesAtAll();
    void asByComparisonWithAllNames();
    void quickAmongThousandsOfNames();
    void question();
};

void tst_SpecNearestName::nearest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("nearest");
    const auto row = [](const char* name, const char* text, const char* nearest) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(nearest);
    };
    row("the same", "eng_speed", "eng_speed");
    row("letter left out", "eng_sped", "eng_speed");
    row("letter added", "eng_sspeed", "eng_speed");
    row("letter changed", "eng_spaed", "eng_speed");
    row("letters swapped", "egn_speed", "eng_speed");
    row("first letter left out", "ng_speed", "eng_speed");
    row("last letter left out", "eng_spee", "eng_speed");
    row("two differences", "eg_sped", "eng_speed");
    row("two swaps", "egn_spede", "eng_speed");
    row("three differences", "eg_spd", "");
    row("other case", "ENG_SPEED", "eng_speed");
    row("other case of the name", "oil_press", "Oil_Press");
    row("the nearer one", "oil_temp_", "oil_temp");
    row("the first of two", "xoost", "boost");
    row("a short text, one difference", "AX", "AV");
    row("a short text, two differences", "XX", "");
    row("a full stop left out", "intake", "intake.");
    row("empty", "", "");
    row("far longer", "eng_speed_of_the_engine", "");
    row("letters beyond ASCII",
        "eng_sp\xc3\xa9"
        "ed",
        "eng_speed");
}

void tst_SpecNearestName::nearest()
{
    QFETCH(QString, text);
    QTEST(NearestName(names()).nearestTo(text), "nearest");
}

void tst_SpecNearestName::noNamesAtAll()
{
    QCOMPARE(NearestName().nearestTo(QStringLiteral("eng_speed")), QString());
}

void tst_SpecNearestName::asByComparisonWithAllNames()
{
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        QStringList some;
        for (int i = 0; i < 30; ++i)
            some.append(randomText(&random, 9));
        some.sort();
        const NearestName nearest(some);
        for (int i = 0; i < 40; ++i) {
            const QString text = randomText(&random, 9);
            QCOMPARE(nearest.nearestTo(text), nearestOfAll(some, text));
        }
    }
}

// Comparing each with all takes minutes.
void tst_SpecNearestName::quickAmongThousandsOfNames()
{
    QStringList many;
    for (int i = 0; i < 20000; ++i)
        many.append(QStringLiteral("channel_%1").arg(i, 5, 10, QLatin1Char('0')));
    const NearestName nearest(many);
    const std::clock_t start = std::clock();
    for (int i = 20000; i < 30000; ++i) {
        QVERIFY(!nearest.nearestTo(QStringLiteral("channel_%1").arg(i)).isEmpty());
        QVERIFY(nearest.nearestTo(QStringLiteral("chxnnel%1xx").arg(i)).isEmpty());
    }
    QVERIFY((std::clock() - start) / CLOCKS_PER_SEC < 10);
}

void tst_SpecNearestName::question()
{
    QCOMPARE(didYouMean(QStringLiteral("eng_speed")), QStringLiteral("Did you mean eng_speed?"));
    QCOMPARE(didYouMean({}), QString());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecNearestName)
#include "tst_spec_nearest_name.moc"
