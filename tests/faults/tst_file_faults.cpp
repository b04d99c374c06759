// The real program with each open, read, write, close and other file call of a load and of a save
// failing, one after the other. After each failure, the document in memory or the file on disk must
// be complete.

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTest>
#include <cerrno>
#include <functional>
#include <memory>

#include "desk_process.h"
#include "editor_process.h"
#include "file_faults.h"
#include "places.h"
#include "preload.h"

namespace {

const auto OPENED = QStringLiteral("/specs/scrib_x");
const auto OTHER = QStringLiteral("/specs/scrib_y");
const auto TITLE = QStringLiteral("Scribon Specification Editor:");
const auto OPEN_TITLE = QStringLiteral("Open File");
const auto NOTHING_OPEN = QStringLiteral("Empty File");
const auto CANNOT_READ = QStringLiteral("Cannot read file %1:\n");
const auto REPLACED_FOLDER = QStringLiteral("/specs/replaced");
const auto SMALL_DISK = QStringLiteral("/specs/disk");
const auto RECOVERY = QStringLiteral("/tmp/state/scriboneditor/recovery");
const auto COPY = RECOVERY + QStringLiteral("/1/scrib_x");
const QByteArray BEFORE("What the file held before.\n");

// Large enough to be written in several pieces.
constexpr int ENTRIES = 600;
const QByteArray LAST_ENTRY("variable_599");
// More calls than any single step of the program makes.
constexpr uint MAX_CALLS = 100;
constexpr int PAGE = 4096;

void addFaults(std::initializer_list<std::pair<const char*, FileFault>> faults)
{
    QTest::addColumn<FileFault>("fault");
    for (const auto& [name, fault] : faults) {
        QTest::addRow("the nth %s", name) << FileFault{fault.call, fault.error, false};
        QTest::addRow("the nth %s and all behind it", name)
            << FileFault{fault.call, fault.error, true};
    }
}

}  // namespace

Q_DECLARE_METATYPE(FileFault)

class tst_FileFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void loadIsCompleteOrFails_data();
    void loadIsCompleteOrFails();
    void loadAtTheStartIsCompleteOrFails_data();
    void loadAtTheStartIsCompleteOrFails();
    void saveKeepsTheDocument_data();
    void saveKeepsTheDocument();
    void fullDiskKeepsTheDocument();
    void recoveryCopyIsNewOrOld_data();
    void recoveryCopyIsNewOrOld();
    void saveWorksWithoutARecoveryCopy_data();
    void saveWorksWithoutARecoveryCopy();

    void qSaveFileLeavesTheNewOrTheOldFile_data();
    void qSaveFileLeavesTheNewOrTheOldFile();
    void simulatedDiskSizeIsRespected();

private:
    // Repeats `deed`. Each time, the next file call below the prefix fails, and then `rule` checks
    // the result and restores the state.
    using Deed = std::function<void()>;
    void forEachCall(const FileFault& fault, const QString& prefix, const Deed& deed,
                     const Deed& rule);

    std::unique_ptr<EditorProcess> newEditor() const;
    void start();
    QJsonValue document() { return m_editor->ask(QStringLiteral("document")); }
    QJsonObject box();
    QString title();
    QString notice();
    void leaveAsSaved();
    void request(const QString& deed);
    void load(const QString& file);
    void save();
    void edit(const QString& name);
    bool isShown(const QString& file, const QJsonValue& expected);
    void checkLoad(const FileFault& fault);
    void checkSave();

    std::unique_ptr<FileFaults> m_faults;
    std::unique_ptr<DeskProcess> m_desk;
    std::unique_ptr<EditorProcess> m_editor;
    QJsonValue m_opened;  // the document that is open before a deed
    QJsonValue m_other;
    QByteArray m_saved;  // the bytes that saving that document writes
};

void tst_FileFaults::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

// One program is used for all rows, unless a failure has changed its state.
void tst_FileFaults::init()
{
    if (m_editor == nullptr || !isShown(OPENED, m_opened))
        start();
    QVERIFY(writeFile(OPENED, BEFORE));
    QVERIFY(writeFile(OTHER, largeSpec(ENTRIES + 1)));
}

void tst_FileFaults::cleanupTestCase()
{
    m_editor.reset();
    m_desk.reset();
}

std::unique_ptr<EditorProcess> tst_FileFaults::newEditor() const
{
    auto editor = std::make_unique<EditorProcess>();
    editor->preload(FileFaults::library());
    editor->setVariable(QLatin1String(PLAN_VARIABLE), m_faults->planFile());
    return editor;
}

// Starts the program, reads both documents, edits and saves the first one and leaves it open.
void tst_FileFaults::start()
{
    emptyPlaces();
    QVERIFY(writeFile(OPENED, largeSpec(ENTRIES)));
    QVERIFY(writeFile(OTHER, largeSpec(ENTRIES + 1)));
    m_faults = std::make_unique<FileFaults>();
    QVERIFY(m_faults->isUsable());
    m_desk = std::make_unique<DeskProcess>();
    QVERIFY(m_desk->startWith(R"({ "areas": {} })"));
    m_editor = newEditor();
    QVERIFY(m_editor->start({OTHER}));
    QVERIFY(!m_editor->window(TITLE + OTHER).isEmpty());
    m_other = document();
    load(OPENED);
    edit(QStringLiteral("edited_name"));
    save();
    m_saved = readFile(OPENED);
    load(OPENED);
    m_opened = document();
    QVERIFY(m_saved.contains("edited_name") && m_saved.contains(LAST_ENTRY));
    QVERIFY(isShown(OPENED, m_opened) && m_opened != m_other);
}

// ---- The program -------------------------------------------------------------------------------

// The open message box; an empty object if there is none.
QJsonObject tst_FileFaults::box()
{
    const QJsonValue state = m_editor->ask(QStringLiteral("state"));
    for (const QJsonValue window : state[QLatin1String("windows")].toArray()) {
        if (window[QLatin1String("class")] == QLatin1String("QMessageBox") &&
            window[QLatin1String("visible")].toBool())
            return window.toObject();
    }
    return {};
}

QString tst_FileFaults::title()
{
    const QStringList titles = m_editor->titles().filter(TITLE);
    return titles.value(0).mid(TITLE.size());
}

// The notice in the status bar.
QString tst_FileFaults::notice()
{
    return m_editor->window(TITLE + title())[QLatin1String("notice")].toString();
}

// Returns when the deed is done or a dialog has opened.
void tst_FileFaults::request(const QString& deed)
{
    m_editor->ask(deed);
    QTRY_VERIFY(m_editor->ask(QStringLiteral("state"))[QLatin1String("settled")].toBool());
}

void tst_FileFaults::load(const QString& file)
{
    m_editor->ask(QStringLiteral("trigger action_Open"));
    QVERIFY(!m_editor->window(OPEN_TITLE).isEmpty());
    request(QStringLiteral("choose ") + file);
}

void tst_FileFaults::save()
{
    request(QStringLiteral("trigger actionSave"));
}

void tst_FileFaults::edit(const QString& name)
{
    m_editor->ask(QStringLiteral("edit 0 ") + name);
    QTRY_COMPARE(document()[0][0][1].toString(), name);
}

bool tst_FileFaults::isShown(const QString& file, const QJsonValue& expected)
{
    return title() == file && document() == expected;
}

void tst_FileFaults::forEachCall(const FileFault& fault, const QString& prefix, const Deed& deed,
                                 const Deed& rule)
{
    for (uint nth = 1; nth < MAX_CALLS; ++nth) {
        m_faults->failAt(nth, fault, prefix);
        deed();
        const bool hasFailed = m_faults->calls(fault.call) >= nth;
        m_faults->heal();
        if (!hasFailed) {
            QVERIFY2(nth > 1, "there is no such call");
            return;
        }
        rule();
        if (QTest::currentTestFailed()) {
            qWarning("That was with call %u.", nth);
            return;
        }
    }
    QFAIL("there is no end of such calls");
}

// ---- Loading -----------------------------------------------------------------------------------

void tst_FileFaults::loadIsCompleteOrFails_data()
{
    addFaults({{"open", {FileCall::Open, EACCES, false}},
               {"read", {FileCall::Read, EIO, false}},
               {"read that comes back short", {FileCall::Read, 0, false}},
               {"close", {FileCall::Close, EIO, false}}});
}

void tst_FileFaults::loadIsCompleteOrFails()
{
    QFETCH(FileFault, fault);
    forEachCall(
        fault, OTHER, [this] { load(OTHER); }, [this, fault] { checkLoad(fault); });
}

// A call that is repeated may succeed, and a failed close loses nothing. A file that cannot be read
// must be reported.
void tst_FileFaults::checkLoad(const FileFault& fault)
{
    const QString text = box()[QLatin1String("text")].toString();
    if (text.isEmpty()) {
        QVERIFY(isShown(OTHER, m_other));
        QVERIFY(fault.call != FileCall::Read || fault.error == 0);
        QVERIFY(fault.call != FileCall::Open || !fault.persists);
        QVERIFY(writeFile(OPENED, m_saved));
        load(OPENED);
        return;
    }
    QVERIFY2(text.startsWith(CANNOT_READ.arg(OTHER)), qPrintable(text));
    request(QStringLiteral("press ok"));
    QVERIFY(isShown(OPENED, m_opened));
}

// Only a few, since each one starts the program.
void tst_FileFaults::loadAtTheStartIsCompleteOrFails_data()
{
    QTest::addColumn<FileFault>("fault");
    QTest::newRow("the nth open") << FileFault{FileCall::Open, EACCES, true};
    QTest::newRow("the nth read") << FileFault{FileCall::Read, EIO, true};
    QTest::newRow("the nth read is short") << FileFault{FileCall::Read, 0, true};
}

// The file is given on the command line, so there is no document before it.
void tst_FileFaults::loadAtTheStartIsCompleteOrFails()
{
    QFETCH(FileFault, fault);
    const auto startAnew = [this] {
        m_editor = newEditor();
        QVERIFY(m_editor->start({OTHER}));
        QTRY_VERIFY(!box().isEmpty() || !title().isEmpty());
    };
    forEachCall(fault, OTHER, startAnew, [this] {
        if (box().isEmpty()) {
            QVERIFY(isShown(OTHER, m_other));
            return;
        }
        QVERIFY(box()[QLatin1String("text")].toString().startsWith(CANNOT_READ.arg(OTHER)));
        request(QStringLiteral("press ok"));
        QTRY_COMPARE(title(), NOTHING_OPEN);
    });
}

// ---- Saving ------------------------------------------------------------------------------------

void tst_FileFaults::saveKeepsTheDocument_data()
{
    addFaults({{"open", {FileCall::Open, EACCES, false}},
               {"write", {FileCall::Write, EIO, false}},
               {"write that takes half", {FileCall::Write, 0, false}},
               {"close", {FileCall::Close, ENOSPC, false}},
               {"read back", {FileCall::Read, EIO, false}},
               {"read back that comes short", {FileCall::Read, 0, false}}});
}

void tst_FileFaults::saveKeepsTheDocument()
{
    QFETCH(FileFault, fault);
    forEachCall(
        fault, OPENED, [this] { save(); }, [this] { checkSave(); });
}

// If the save is reported as failed, the file is unchanged, and the next save succeeds.
void tst_FileFaults::checkSave()
{
    const QString text = box()[QLatin1String("text")].toString();
    if (!text.isEmpty()) {
        QVERIFY2(text.startsWith(QStringLiteral("Cannot write file %1:\n").arg(OPENED)),
                 qPrintable(text));
        QCOMPARE(readFile(OPENED), BEFORE);
        request(QStringLiteral("press ok"));
    }
    QVERIFY(isShown(OPENED, m_opened));
    save();
    QCOMPARE(readFile(OPENED), m_saved);
    QVERIFY(writeFile(OPENED, BEFORE));
}

void tst_FileFaults::fullDiskKeepsTheDocument()
{
    for (int space = 0; space < m_saved.size(); space += PAGE) {
        m_faults->limitSpace(space, OPENED);
        save();
        m_faults->heal();
        const QByteArray written = readFile(OPENED);
        QVERIFY(written.size() <= space);
        QVERIFY(isShown(OPENED, m_opened));
        save();
        QCOMPARE(readFile(OPENED), m_saved);
    }
}

// ---- The recovery copy -------------------------------------------------------------------------

void tst_FileFaults::recoveryCopyIsNewOrOld_data()
{
    addFaults({{"open", {FileCall::Open, EACCES, false}},
               {"write", {FileCall::Write, EIO, false}},
               {"write that takes half", {FileCall::Write, 0, false}},
               {"flush to the disk", {FileCall::Sync, EIO, false}},
               {"close", {FileCall::Close, EIO, false}},
               {"rename", {FileCall::Rename, EPERM, false}}});
}

// The recovery copy of a second edit replaces that of the first one, or the status bar reports the
// failure.
void tst_FileFaults::recoveryCopyIsNewOrOld()
{
    QFETCH(FileFault, fault);
    QByteArray before;
    const auto copyFirst = [&] {
        edit(QStringLiteral("first_name"));
        request(QStringLiteral("announce the end"));
        before = readFile(COPY);
        QVERIFY(before.contains("first_name") && before.contains(LAST_ENTRY));
        edit(QStringLiteral("second_name"));
    };
    copyFirst();
    forEachCall(
        fault, RECOVERY, [this] { request(QStringLiteral("announce the end")); },
        [&] {
            // In this order: the editor may write the copy once more at any time.
            const bool told =
                notice().contains(QStringLiteral("No copy of unsaved work can be kept"));
            QByteArray after = readFile(COPY);
            QVERIFY(told || after != before);
            QCOMPARE(after.replace("second_name", "first_name"), before);
            copyFirst();
        });
    leaveAsSaved();
}

void tst_FileFaults::saveWorksWithoutARecoveryCopy_data()
{
    recoveryCopyIsNewOrOld_data();
}

void tst_FileFaults::saveWorksWithoutARecoveryCopy()
{
    QFETCH(FileFault, fault);
    forEachCall(
        fault, RECOVERY, [this] { save(); },
        [this] {
            QCOMPARE(readFile(OPENED), m_saved);
            QVERIFY(isShown(OPENED, m_opened));
            QVERIFY(writeFile(OPENED, BEFORE));
        });
}

// Restores the document that the other tests expect.
void tst_FileFaults::leaveAsSaved()
{
    edit(QStringLiteral("edited_name"));
    save();
    QVERIFY(isShown(OPENED, m_opened));
}

// ---- The preloaded library ---------------------------------------------------------------------

// A check of the tests themselves: QSaveFile leaves the old file or the new one, and reports which.
void tst_FileFaults::qSaveFileLeavesTheNewOrTheOldFile_data()
{
    addFaults({{"open", {FileCall::Open, EACCES, false}},
               {"write", {FileCall::Write, EIO, false}},
               {"write that takes half", {FileCall::Write, 0, false}},
               {"flush to the disk", {FileCall::Sync, EIO, false}},
               {"rename", {FileCall::Rename, EPERM, false}}});
}

void tst_FileFaults::qSaveFileLeavesTheNewOrTheOldFile()
{
    QFETCH(FileFault, fault);
    QVERIFY(QDir().mkpath(REPLACED_FOLDER));
    const QString file = REPLACED_FOLDER + QStringLiteral("/file");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    addPreloaded(&environment, FileFaults::library());
    environment.insert(QLatin1String(PLAN_VARIABLE), m_faults->planFile());
    QProcess program;
    program.setProcessEnvironment(environment);
    const auto replace = [&] {
        QVERIFY(writeFile(file, BEFORE));
        program.start(QStringLiteral(SAVE_FILE_PROGRAM), {file, QStringLiteral("The new text.")});
        QVERIFY(program.waitForFinished());
    };
    forEachCall(fault, REPLACED_FOLDER, replace, [&] {
        QCOMPARE(readFile(file), program.exitCode() == 0 ? QByteArray("The new text.") : BEFORE);
    });
}

// For tests that need a small disk where none can be mounted.
void tst_FileFaults::simulatedDiskSizeIsRespected()
{
    QVERIFY(QDir().mkpath(SMALL_DISK));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    addPreloaded(&environment, FileFaults::library());
    environment.insert(QLatin1String(DISK_VARIABLE), SMALL_DISK);
    environment.insert(QLatin1String(DISK_SIZE_VARIABLE), QString::number(3 * PAGE));
    const auto fill = [&environment](const QString& file, int bytes) {
        QProcess writing;
        writing.setProcessEnvironment(environment);
        writing.start(QStringLiteral("dd"),
                      {QStringLiteral("if=/dev/zero"), QStringLiteral("of=") + file,
                       QStringLiteral("bs=1000"), QStringLiteral("count=%1").arg(bytes / 1000)});
        return writing.waitForFinished() && writing.exitCode() == 0;
    };
    const QString first = SMALL_DISK + QStringLiteral("/first");
    const QString second = SMALL_DISK + QStringLiteral("/second");
    QVERIFY(fill(first, 5000));
    QVERIFY(!fill(second, 5000));
    QCOMPARE(QFileInfo(second).size(), qint64{PAGE});
    QVERIFY(QFile::remove(first));
    QVERIFY(fill(second, 12000));
    QVERIFY(fill(QStringLiteral("/specs/beside"), 50000));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_FileFaults)
#include "tst_file_faults.moc"
