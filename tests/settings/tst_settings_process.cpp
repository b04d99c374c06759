// The settings file of the real program: when it is read and written, and what happens if it is not
// a regular file.

#include <QColor>
#include <QFile>
#include <QPoint>
#include <QSize>
#include <QTest>
#include <memory>

#include "desk_process.h"
#include "editor_process.h"
#include "places.h"
#include "settings_file.h"

namespace {

const auto EMPTY = QStringLiteral("Scribon Specification Editor:Empty File");
const auto CANNOT_READ = QStringLiteral("Scribon Specification Editor");

bool writeSomeSettings()
{
    return writeSettingsLines(
        "pos=@Point(31 47)\n"
        "size=@Size(812 723)\n"
        "syntaxfgcolor=#0000ff\n"
        "editorFont=DejaVu Serif\n"
        "editorFontSize=15\n");
}

// The bytes of the settings file; empty if there is none.
QByteArray settings()
{
    return QFile::exists(settingsPath()) ? readFile(settingsPath()) : QByteArray();
}

}  // namespace

class tst_SettingsProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void windowIsRestored();
    void fileOfTheCommandLineComesFirst();
    void fifoIsNotRead_data();
    void fifoIsNotRead();
    void fifoIsNotWritten_data();
    void fifoIsNotWritten();

private:
    bool isShown();
    bool closes();
    void compareWithStoredSettings();

    std::unique_ptr<DeskProcess> m_desk;
    std::unique_ptr<EditorProcess> m_editor;
};

void tst_SettingsProcess::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_SettingsProcess::init()
{
    emptyPlaces();
    m_desk = std::make_unique<DeskProcess>();
    QVERIFY(m_desk->start(qEnvironmentVariable("SCRIBON_EXAMPLES") +
                          QStringLiteral("/catalogue.json")));
    m_editor = std::make_unique<EditorProcess>();
}

void tst_SettingsProcess::cleanup()
{
    m_editor.reset();
    m_desk.reset();
}

bool tst_SettingsProcess::isShown()
{
    return !m_editor->window(EMPTY).isEmpty();
}

bool tst_SettingsProcess::closes()
{
    m_editor->ask(QStringLiteral("close"));
    return m_editor->waitForEnd() && m_editor->endedHow() == QProcess::NormalExit;
}

// The file is removed before the window closes, so that the new one has only what the window wrote.
void tst_SettingsProcess::compareWithStoredSettings()
{
    QVERIFY(QFile::remove(settingsPath()));
    QVERIFY(closes());
    QCOMPARE(stored(QStringLiteral("pos")).toPoint(), QPoint(31, 47));
    QCOMPARE(stored(QStringLiteral("size")).toSize(), QSize(812, 723));
    QCOMPARE(stored(QStringLiteral("syntaxfgcolor")).value<QColor>(), QColor(Qt::blue));
    QCOMPARE(stored(QStringLiteral("editorFont")).toString(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(stored(QStringLiteral("editorFontSize")).toInt(), 15);
}

void tst_SettingsProcess::windowIsRestored()
{
    QVERIFY(writeSomeSettings());
    QVERIFY(m_editor->start());
    QVERIFY(isShown());
    compareWithStoredSettings();
}

// The settings are read after the message box about the unreadable file.
void tst_SettingsProcess::fileOfTheCommandLineComesFirst()
{
    QVERIFY(m_editor->start({QStringLiteral("none")}));
    const QJsonObject box = m_editor->window(CANNOT_READ);
    QVERIFY(box.value(QLatin1String("text")).toString().startsWith(QLatin1String("Cannot read")));
    QVERIFY(writeSomeSettings());
    m_editor->ask(QStringLiteral("press ok"));
    QVERIFY(isShown());
    compareWithStoredSettings();
}

void tst_SettingsProcess::fifoIsNotRead_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("for the settings") << settingsPath();
    QTest::newRow("for Qt's fallback settings") << QStringLiteral("/specs/qt/ScribonUI.conf");
    QTest::newRow("for the lock") << settingsPath() + QStringLiteral(".lock");
}

// Opening a FIFO would block.
void tst_SettingsProcess::fifoIsNotRead()
{
    QFETCH(QString, path);
    QVERIFY(writeSomeSettings());
    QFile::remove(path);
    QVERIFY(makePipe(path));
    QVERIFY(m_editor->start());
    QVERIFY(isShown());
}

void tst_SettingsProcess::fifoIsNotWritten_data()
{
    fifoIsNotRead_data();
}

void tst_SettingsProcess::fifoIsNotWritten()
{
    QFETCH(QString, path);
    QVERIFY(m_editor->start());
    QVERIFY(isShown());
    QVERIFY(writeSomeSettings());
    QFile::remove(path);
    const QByteArray before = settings();
    QVERIFY(makePipe(path));
    QVERIFY(closes());
    QVERIFY(QFile::remove(path));
    QCOMPARE(settings(), before);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SettingsProcess)
#include "tst_settings_process.moc"
