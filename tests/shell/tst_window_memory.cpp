// The memory of the process follows the size of the open document.

#include <QFile>
#include <QtTest>

#include "mainwindow.h"
#include "window_test.h"

namespace {

constexpr qint64 MEBIBYTE = 1 << 20;

// The memory of the process that is in RAM, in bytes.
qint64 residentMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

QByteArray specOfRows(int rows)
{
    QByteArray text = "@SCRIBON\ntest\n@SCAN_LIST\n";
    for (int i = 0; i < rows; ++i)
        text +=
            "variable_" + QByteArray::number(i) + "\t.AV\tCHANNEL_" + QByteArray::number(i) + '\n';
    return text;
}

// AddressSanitizer keeps freed memory.
constexpr bool isSanitized()
{
#ifdef __SANITIZE_ADDRESS__
    return true;
#else
    return false;
#endif
}

}  // namespace

class tst_WindowMemory : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void smallDocumentTakesTheMemoryOfASmallOne();
    void repeatedLoadsTakeNoMoreMemory();

private:
    void loadRepeatedly(int count);
};

// Qt deletes the selection models of the replaced views in the event loop.
void tst_WindowMemory::loadRepeatedly(int count)
{
    for (int i = 0; i < count; ++i) {
        loadGoodFile();
        QTest::qWait(0);
    }
}

void tst_WindowMemory::smallDocumentTakesTheMemoryOfASmallOne()
{
    if (isSanitized())
        QSKIP("AddressSanitizer keeps freed memory");
    loadGoodFile();
    const qint64 small = residentMemory();
    loadGoodFile(specOfRows(30000));
    const qint64 large = residentMemory();
    QVERIFY(large > small + 60 * MEBIBYTE);
    loadGoodFile();
    const qint64 again = residentMemory();
    QVERIFY2(again < small + (large - small) / 4,
             qPrintable(QStringLiteral("%1, %2, %3").arg(small).arg(large).arg(again)));
}

void tst_WindowMemory::repeatedLoadsTakeNoMoreMemory()
{
    if (isSanitized())
        QSKIP("AddressSanitizer keeps freed memory");
    loadRepeatedly(10);
    const qint64 before = residentMemory();
    loadRepeatedly(1000);
    const qint64 after = residentMemory();
    QVERIFY2(after < before + MEBIBYTE / 2,
             qPrintable(QStringLiteral("%1, %2").arg(before).arg(after)));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowMemory)
#include "tst_window_memory.moc"
