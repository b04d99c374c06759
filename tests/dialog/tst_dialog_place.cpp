// Where a dialog goes that does not fit on the screen of its cell.

#include <QtTest>

#include "dialog_place.h"

namespace {

const QRect LEFT(0, 0, 1000, 800);
const QRect RIGHT(1000, 200, 1200, 900);

}  // namespace

class TestDialogPlace : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void screenOfAPoint_data();
    void screenOfAPoint();
    void noScreen();
    void movesIntoTheArea_data();
    void movesIntoTheArea();
};

void TestDialogPlace::screenOfAPoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("screen");
    QTest::newRow("on the left one") << QPoint(999, 500) << 0;
    QTest::newRow("on the right one") << QPoint(1000, 500) << 1;
    QTest::newRow("above the right one") << QPoint(1300, 150) << 1;
    QTest::newRow("beside the left one, above the right one") << QPoint(1010, 20) << 0;
    QTest::newRow("below the left one") << QPoint(100, 850) << 0;
    QTest::newRow("left of all") << QPoint(-300, -20) << 0;
    QTest::newRow("right of all") << QPoint(5000, 5000) << 1;
}

void TestDialogPlace::screenOfAPoint()
{
    QFETCH(QPoint, point);
    QFETCH(int, screen);
    QCOMPARE(nearestTo(point, {LEFT, RIGHT}), screen);
    QCOMPARE(nearestTo(point, {RIGHT, LEFT}), 1 - screen);
}

void TestDialogPlace::noScreen()
{
    QCOMPARE(nearestTo(QPoint(1, 1), {}), -1);
}

void TestDialogPlace::movesIntoTheArea_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("inside") << QRect(1100, 300, 400, 200) << QPoint(1100, 300);
    QTest::newRow("at the upper left") << QRect(1000, 200, 400, 200) << QPoint(1000, 200);
    QTest::newRow("at the lower right") << QRect(1800, 900, 400, 200) << QPoint(1800, 900);
    QTest::newRow("beyond the left") << QRect(900, 300, 400, 200) << QPoint(1000, 300);
    QTest::newRow("beyond the top") << QRect(1100, 150, 400, 200) << QPoint(1100, 200);
    QTest::newRow("beyond the lower right") << QRect(2000, 1000, 400, 200) << QPoint(1800, 900);
    QTest::newRow("too large") << QRect(1100, 300, 1300, 1000) << QPoint(1000, 200);
}

void TestDialogPlace::movesIntoTheArea()
{
    QFETCH(QRect, place);
    QFETCH(QPoint, corner);
    QCOMPARE(movedInto(RIGHT, place), QRect(corner, place.size()));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestDialogPlace)
#include "tst_dialog_place.moc"
