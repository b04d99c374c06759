// The real program is killed: afterwards the disk has the complete document, at most five seconds
// old.

#include <QFileInfo>
#include <QJsonObject>
#include <QTest>
#include <csignal>
#include <memory>

#include "desk_process.h"
#include "editor_process.h"
#include "file_faults.h"
#include "places.h"

namespace {

constexpr int FIVE_SECONDS = 5000;

const auto FILE_NAME = QStringLiteral("/specs/scrib_x");
const auto TITLE = QStringLiteral("Scribon Specification Editor:") + FILE_NAME;
const auto RECOVERY = QStringLiteral("/tmp/state/scriboneditor/recovery");
const auto COPY = RECOVERY + QStringLiteral("/1/scrib_x");
const auto FIRST = QStringLiteral("first_name");
const auto SECOND = QStringLiteral("second_name");

// Large enough to be written in several pieces.
constexpr int ENTRIES = 600;

// The row whose value is edited in a dialog for variables of another kind.
constexpr int ENABLE_ROW = 9;

QByteArray spec()
{
    QByteArray text = largeSpec(ENTRIES);
    return text.replace("@SCAN_LIST\n", "@ENABLE\nlog_enable\n\n@SCAN_LIST\n");
}

}  // namespace

Q_DECLARE_METATYPE(FileCall)

class tst_KilledEditor : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace"); }
    void init();
    void cleanup();

    void workIsKept_data();
    void workIsKept();
    void workIsKeptBeforeThePlainExit();
    void killedInTheMiddleOfASave_data();
    void killedInTheMiddleOfASave();
    void killedInTheMiddleOfACopy_data();
    void killedInTheMiddleOfACopy();

private:
    void start();
    void request(const QString& deed);
    void edit(const QString& name);
    QByteArray saved(const QString& name) const;
    bool endsAt(uint nth, FileCall call, const QString& prefix, const QString& deed);

    std::unique_ptr<FileFaults> m_faults;
    std::unique_ptr<DeskProcess> m_desk;
    std::unique_ptr<EditorProcess> m_editor;
    QByteArray m_saved;  // what Save writes for the document with the first name
};

void tst_KilledEditor::init()
{
    emptyPlaces();
    m_faults = std::make_unique<FileFaults>();
    QVERIFY(m_faults->isUsable());
    m_desk = std::make_unique<DeskProcess>();
    QVERIFY(m_desk->startWith(R"({ "areas": {} })"));
    QVERIFY(writeFile(FILE_NAME, spec()));
    start();
    edit(FIRST);
    request(QStringLiteral("trigger actionSave"));
    m_saved = readFile(FILE_NAME);
    QVERIFY(m_saved.contains("first_name") && m_saved.contains("variable_599"));
}

void tst_KilledEditor::cleanup()
{
    m_editor.reset();
    m_desk.reset();
}

void tst_KilledEditor::start()
{
    m_editor = std::make_unique<EditorProcess>();
    // A program that is cut off in the middle has released nothing.
    m_editor->setVariable(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    m_editor->preload(FileFaults::library());
    m_editor->setVariable(QLatin1String(PLAN_VARIABLE), m_faults->planFile());
    QVERIFY(m_editor->start({FILE_NAME}));
    QVERIFY(!m_editor->window(TITLE).isEmpty());
}

void tst_KilledEditor::request(const QString& deed)
{
    m_editor->ask(deed);
    QTRY_VERIFY(m_editor->ask(QStringLiteral("state"))[QLatin1String("settled")].toBool());
}

void tst_KilledEditor::edit(const QString& name)
{
    m_editor->ask(QStringLiteral("edit 0 ") + name);
    QTRY_COMPARE(m_editor->ask(QStringLiteral("document"))[0][0][1].toString(), name);
}

QByteArray tst_KilledEditor::saved(const QString& name) const
{
    QByteArray text = m_saved;
    return text.replace(FIRST.toLatin1(), name.toLatin1());
}

void tst_KilledEditor::workIsKept_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGKILL") << SIGKILL;
    QTest::newRow("SIGBUS") << SIGBUS;
}

void tst_KilledEditor::workIsKept()
{
    QFETCH(int, signal);
    edit(SECOND);
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(COPY), FIVE_SECONDS);
    QVERIFY(m_editor->endBy(signal));
    QCOMPARE(readFile(COPY), saved(SECOND));
    QCOMPARE(readFile(FILE_NAME), m_saved);
    start();
    QTRY_COMPARE(m_editor->window(TITLE)[QLatin1String("notice")].toString(),
                 QStringLiteral("Unsaved work on /specs/scrib_x is kept in ") + COPY);
}

// The platform has ended, and a dialog for another kind rebuilds the catalogue, which ends the
// program: changes of the last two seconds are kept, too.
void tst_KilledEditor::workIsKeptBeforeThePlainExit()
{
    QVERIFY(m_desk->kill());
    edit(SECOND);
    m_editor->ask(QStringLiteral("open %1").arg(ENABLE_ROW));
    QVERIFY(m_editor->waitForEnd());
    QCOMPARE(m_editor->endedHow(), QProcess::NormalExit);
    QCOMPARE(m_editor->status(), 0);
    QCOMPARE(readFile(COPY), saved(SECOND));
}

// False if the program does not end, since it makes fewer such calls.
bool tst_KilledEditor::endsAt(uint nth, FileCall call, const QString& prefix, const QString& deed)
{
    m_faults->endAt(nth, call, SIGKILL, prefix);
    m_editor->ask(deed);
    QJsonValue state = m_editor->ask(QStringLiteral("state"));
    while (!state.isUndefined() && !state[QLatin1String("settled")].toBool())
        state = m_editor->ask(QStringLiteral("state"));
    const bool ended = m_faults->calls(call) >= nth;
    m_faults->heal();
    return ended;
}

void tst_KilledEditor::killedInTheMiddleOfASave_data()
{
    QTest::addColumn<FileCall>("call");
    QTest::newRow("at each open") << FileCall::Open;
    QTest::newRow("at each write") << FileCall::Write;
    QTest::newRow("at each close") << FileCall::Close;
}

// Save truncates the file first; the recovery copy exists until all of it is written.
void tst_KilledEditor::killedInTheMiddleOfASave()
{
    QFETCH(FileCall, call);
    for (uint nth = 1;; ++nth) {
        edit(SECOND);
        if (!endsAt(nth, call, FILE_NAME, QStringLiteral("trigger actionSave"))) {
            QVERIFY(nth > 1);
            QCOMPARE(readFile(FILE_NAME), saved(SECOND));
            return;
        }
        const bool inFile = readFile(FILE_NAME) == saved(SECOND);
        QVERIFY2(inFile || readFile(COPY) == saved(SECOND), qPrintable(QString::number(nth)));
        emptyPlaces();
        QVERIFY(writeFile(FILE_NAME, m_saved));
        start();
    }
}

void tst_KilledEditor::killedInTheMiddleOfACopy_data()
{
    QTest::addColumn<FileCall>("call");
    QTest::newRow("at each open") << FileCall::Open;
    QTest::newRow("at each write") << FileCall::Write;
    QTest::newRow("at each flush to the disk") << FileCall::Sync;
    QTest::newRow("at each rename") << FileCall::Rename;
}

// The copy has the last edit or the one before, and the file is unchanged.
void tst_KilledEditor::killedInTheMiddleOfACopy()
{
    QFETCH(FileCall, call);
    const auto third = QStringLiteral("third_name");
    const auto copy = QStringLiteral("announce the end");
    for (uint nth = 1;; ++nth) {
        edit(SECOND);
        request(copy);
        QCOMPARE(readFile(COPY), saved(SECOND));
        edit(third);
        if (!endsAt(nth, call, RECOVERY, copy)) {
            QVERIFY(nth > 1);
            QCOMPARE(readFile(COPY), saved(third));
            return;
        }
        const QByteArray kept = readFile(COPY);
        QVERIFY2(kept == saved(SECOND) || kept == saved(third), qPrintable(QString::number(nth)));
        QCOMPARE(readFile(FILE_NAME), m_saved);
        emptyPlaces();
        QVERIFY(writeFile(FILE_NAME, m_saved));
        start();
    }
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_KilledEditor)
#include "tst_killed_editor.moc"
