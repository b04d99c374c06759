// scribon-spec format prints what the window's Save writes.

#include <QDir>

#include "samples.h"
#include "specfile.h"
#include "window_test.h"

namespace {

const auto SPEC = QStringLiteral("/specs/spec");

QByteArray savedByTheWindow(MainWindow* window, const QByteArray& text)
{
    if (!writeFile(SPEC, text))
        return "not written";
    window->loadFile(SPEC, false);
    if (!window->save())
        return "not saved";
    return readFile(SPEC);
}

QByteArray formatted(const QByteArray& text)
{
    return SpecFile::fromBytes(text, SPEC).savedBytes();
}

}  // namespace

class tst_WindowFormat : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void examples();
    void samples_data();
    void samples();
    void lettersBeyondAscii();

private:
    void compare(const QByteArray& text);
};

void tst_WindowFormat::compare(const QByteArray& text)
{
    if (SpecFile::fromBytes(text, SPEC).state() == SpecFile::State::Loaded)
        QCOMPARE(formatted(text), savedByTheWindow(m_window.get(), text));
}

void tst_WindowFormat::examples()
{
    const QDir folder(qEnvironmentVariable("SCRIBON_EXAMPLES"));
    const QStringList names = folder.entryList({QStringLiteral("scrib_*")}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString& name : names)
        compare(readFile(folder.filePath(name)));
}

void tst_WindowFormat::samples_data()
{
    QTest::addColumn<QString>("path");
    const QDir samples(QStringLiteral(SCRIBON_TESTS "/models/samples"));
    for (const QString& name : samples.entryList(QDir::Files))
        QTest::newRow(qPrintable(name)) << samples.filePath(name);
}

// Samples that the editor refuses, mostly for want of @SCRIBON, get one.
void tst_WindowFormat::samples()
{
    QFETCH(QString, path);
    for (const Sample& sample : readSamples(path))
        compare(sample.verdict == 0 ? sample.text : "@SCRIBON x\n" + sample.text);
}

void tst_WindowFormat::lettersBeyondAscii()
{
    compare("@SCRIBON x\n# gr\xc3\xbc\xc3\x9f\n@SCAN_LIST\n# \xe6\xb8\xa9\na A\n");
    compare("@SCRIBON x\n# gr\xfc\xdf\n@SCAN_LIST\n# \xfc\na A\n");
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowFormat)
#include "tst_window_format.moc"
