// What format prints, tells and writes.

#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "check.h"
#include "document_generator.h"
#include "formatfile.h"
#include "loaded_text.h"
#include "model_text.h"
#include "places.h"
#include "samples.h"
#include "spec_program.h"
#include "unifieddiff.h"

namespace {

constexpr int DOCUMENTS = 150;
constexpr int ENOUGH_SAMPLES = 1000;

const QByteArray UNFORMATTED = "@SCRIBON  x\n@MAX_SCANS 5\n@SCAN_LIST\n";
const QByteArray FORMATTED =
    "@SCRIBON\nx\n\n@MAX_SCANS\n5\n\n@SCAN_LIST\n\n@META_DATA\n\n@SCAN_LIST_AUX_USER\n\n@ECM_"
    "LIST\n";
const QByteArray LOSING = "@SCRIBON x\n@SCAN_LIST\n  5 speed N\n";
const QByteArray NO_SPEC_FILE = "@GROUP x\n";

bool hasFinding(const SpecFile& file, Rule rule)
{
    const FileReport report = checkFile(file, CheckOptions());
    return std::any_of(report.findings.begin(), report.findings.end(),
                       [rule](const Finding& finding) { return finding.rule == rule; });
}

struct stat statusOf(const QString& path)
{
    struct stat status {};
    if (lstat(path.toLocal8Bit().constData(), &status) != 0)
        qFatal("no file %s", qPrintable(path));
    return status;
}

// The files of a spec text and a folder for them.
class Folder {
public:
    QString add(const QString& name, const QByteArray& text) const
    {
        if (!writeFile(path(name), text))
            qFatal("cannot write %s", qPrintable(path(name)));
        return path(name);
    }
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString path() const { return m_dir.path(); }
    QStringList names() const { return QDir(m_dir.path()).entryList(QDir::Files | QDir::Hidden); }

private:
    QTemporaryDir m_dir;
};

}  // namespace

class tst_SpecFormat : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void samplesAreSavedAlike();
    void changesNothingTwice();
    void printsWhatSaveWrites();
    void printsSeveralFiles();
    void keepsLatin1();

    void replacesFiles();
    void keepsModeAndLink_data();
    void keepsModeAndLink();
    void leavesFormattedFilesAlone();
    void refusesLosses_data();
    void refusesLosses();
    void badFileStopsNoOther();
    void fileThatCannotBeReplaced();

    void checkTellsNames();
    void checkTellsOfLosses();
    void diffShowsTheDifference();
    void missingDiffIsTold();
    void textForDiff_data();
    void textForDiff();

    void fullDisk();
    void wrongArguments_data();
    void wrongArguments();
};

// As the models append to the file of a save.
void tst_SpecFormat::samplesAreSavedAlike()
{
    const QDir folder(QStringLiteral(SCRIBON_TESTS "/language/samples"));
    int compared = 0;
    for (const QString& name : folder.entryList(QDir::Files)) {
        for (const Sample& sample : readSamples(folder.filePath(name))) {
            const QByteArray text =
                sample.verdict == 0 ? sample.text : "@SCRIBON x\n" + sample.text;
            resetParseState();
            if (loadText(text) != 0)
                continue;
            const QByteArray saved = savedDocument();
            QCOMPARE(loadedSpec(text).savedBytes(), saved);
            ++compared;
        }
    }
    QVERIFY(compared > ENOUGH_SAMPLES);
}

// Unless check has said that a save of the save differs.
void tst_SpecFormat::changesNothingTwice()
{
    int checked = 0;
    for (unsigned seed = 1; seed <= DOCUMENTS; ++seed) {
        const SpecFile file = loadedSpec(DocumentGenerator(seed).document());
        if (hasFinding(file, Rule::SaveRefused) || hasFinding(file, Rule::SaveUnstable))
            continue;
        const QByteArray once = file.savedBytes();
        QCOMPARE(loadedSpec(once).savedBytes(), once);
        ++checked;
    }
    QVERIFY(checked > DOCUMENTS / 2);
}

void tst_SpecFormat::printsWhatSaveWrites()
{
    for (const QString& path : exampleSpecs()) {
        const SpecRun run = runSpec({"format"_s, path});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.output, SpecFile::read(path).savedBytes());
    }
    QCOMPARE(runSpec({"format"_s, "-"_s}, UNFORMATTED).output, FORMATTED);
    QCOMPARE(runSpec({"format"_s, "-"_s}, LOSING).status, 0);
}

void tst_SpecFormat::printsSeveralFiles()
{
    const Folder folder;
    folder.add("scrib_1"_s, UNFORMATTED);
    folder.add("scrib_2"_s, FORMATTED);
    QCOMPARE(runSpec({"format"_s, folder.path()}).output, FORMATTED + FORMATTED);
}

void tst_SpecFormat::keepsLatin1()
{
    const SpecRun run = runSpec({"format"_s, "-"_s}, "@SCRIBON x\n# gr\xfc\xdf\x65\n");
    QVERIFY(run.output.contains("# gr\xfc\xdf\x65\n"));
}

// ---- In place -----------------------------------------------------------------------------------

void tst_SpecFormat::replacesFiles()
{
    const Folder folder;
    const QString first = folder.add("scrib_1"_s, UNFORMATTED);
    const QString second = folder.add("scrib_2"_s, UNFORMATTED);
    const SpecRun run = runSpec({"format"_s, "--in-place"_s, folder.path()});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.complaints, QByteArray());
    QCOMPARE(readFile(first), FORMATTED);
    QCOMPARE(readFile(second), FORMATTED);
    QCOMPARE(folder.names(), (QStringList{"scrib_1"_s, "scrib_2"_s}));
}

void tst_SpecFormat::keepsModeAndLink_data()
{
    QTest::addColumn<unsigned>("mode");

    QTest::newRow("owner only") << 0600U;
    QTest::newRow("group") << 0660U;
    QTest::newRow("all") << 0666U;
    QTest::newRow("can be run") << 0755U;
    QTest::newRow("bit of the group") << 02664U;
}

void tst_SpecFormat::keepsModeAndLink()
{
    QFETCH(unsigned, mode);
    const Folder folder;
    const QString file = folder.add("below/file"_s, UNFORMATTED);
    QCOMPARE(chmod(file.toLocal8Bit().constData(), mode), 0);
    QVERIFY(QFile::link("below/file"_s, folder.path("link"_s)));
    QVERIFY(QFile::link("link"_s, folder.path("link_to_link"_s)));
    QCOMPARE(runSpec({"format"_s, "--in-place"_s, folder.path("link_to_link"_s)}).status, 0);
    QCOMPARE(readFile(file), FORMATTED);
    QCOMPARE(statusOf(file).st_mode, S_IFREG | mode);
    QVERIFY(S_ISLNK(statusOf(folder.path("link"_s)).st_mode));
    QVERIFY(S_ISLNK(statusOf(folder.path("link_to_link"_s)).st_mode));
}

void tst_SpecFormat::leavesFormattedFilesAlone()
{
    const Folder folder;
    const QString file = folder.add("file"_s, FORMATTED);
    const auto before = statusOf(file).st_ino;
    QCOMPARE(runSpec({"format"_s, "--in-place"_s, file}).status, 0);
    QCOMPARE(statusOf(file).st_ino, before);
    folder.add("file"_s, UNFORMATTED);
    QCOMPARE(runSpec({"format"_s, "--in-place"_s, file}).status, 0);
    QVERIFY(statusOf(file).st_ino != before);
}

void tst_SpecFormat::refusesLosses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("complaint");

    QTest::newRow("lost text") << LOSING
                               << QByteArray(
                                      "file:3:3: not formatted: number in place of a name; a "
                                      "save loses it [lost-text]\n");
    QTest::newRow("shifted entries")
        << QByteArray("@SCRIBON x\n@META_DATA\nA\nB b\n") << QByteArray("[shifted-entries]\n");
    QTest::newRow("save is refused")
        << QByteArray("@SCRIBON x\n@LOG_STATISTICS 1e+5\n") << QByteArray("[save-refused]\n");
}

void tst_SpecFormat::refusesLosses()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, complaint);
    const Folder folder;
    const QString file = folder.add("file"_s, text);
    const SpecRun run = runSpec({"format"_s, "--in-place"_s, file});
    QVERIFY2(run.complaints.contains(complaint), run.complaints.constData());
    QCOMPARE(run.status, 2);
    QCOMPARE(readFile(file), text);
    QCOMPARE(runSpec({"format"_s, "--in-place"_s, "--force"_s, file}).status, 0);
    QCOMPARE(readFile(file), loadedSpec(text).savedBytes());
}

void tst_SpecFormat::badFileStopsNoOther()
{
    const Folder folder;
    const QString file = folder.add("file"_s, UNFORMATTED);
    const SpecRun run =
        runSpec({"format"_s, "--in-place"_s, folder.path("none"_s),
                 folder.add("refused"_s, NO_SPEC_FILE), folder.add("losing"_s, LOSING), file});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.complaints.count('\n'), 3);
    QCOMPARE(readFile(file), FORMATTED);
}

void tst_SpecFormat::fileThatCannotBeReplaced()
{
    const Folder folder;
    const QString file = folder.add("below/file"_s, UNFORMATTED);
    QCOMPARE(chmod(folder.path("below"_s).toLocal8Bit().constData(), 0555), 0);
    const SpecRun run = runSpec({"format"_s, "--in-place"_s, file});
    QCOMPARE(chmod(folder.path("below"_s).toLocal8Bit().constData(), 0755), 0);
    QCOMPARE(run.status, 2);
    QVERIFY2(run.complaints.contains("file: "), run.complaints.constData());
    QCOMPARE(readFile(file), UNFORMATTED);
}

// ---- Telling only -------------------------------------------------------------------------------

void tst_SpecFormat::checkTellsNames()
{
    const Folder folder;
    const QString changed = folder.add("scrib_1"_s, UNFORMATTED);
    const QString same = folder.add("scrib_2"_s, FORMATTED);
    const SpecRun run = runSpec({"format"_s, "--check"_s, folder.path()});
    QCOMPARE(run.status, 1);
    QCOMPARE(run.output, changed.toUtf8() + '\n');
    QCOMPARE(readFile(changed), UNFORMATTED);
    QCOMPARE(runSpec({"format"_s, "--check"_s, same}).status, 0);
}

void tst_SpecFormat::checkTellsOfLosses()
{
    for (const QString& option : {"--check"_s, "--diff"_s}) {
        SpecRun run = runSpec({"format"_s, option, "-"_s}, LOSING);
        QCOMPARE(run.status, 1);
        QVERIFY(run.output.contains("<stdin>"));
        QCOMPARE(run.complaints,
                 QByteArray("scribon-spec: <stdin>:3:3: number in place of a name; a save loses it "
                            "[lost-text]\n"));
        run = runSpec({"format"_s, option, "--force"_s, "-"_s}, LOSING);
        QCOMPARE(run.status, 1);
        QVERIFY(run.output.contains("<stdin>"));
        QCOMPARE(run.complaints, QByteArray());
    }
}

void tst_SpecFormat::diffShowsTheDifference()
{
    const Folder folder;
    const QString file = folder.add("file"_s, "@SCRIBON x" + FORMATTED.mid(10));
    const SpecRun run = runSpec({"format"_s, "--diff"_s, "--check"_s, file});
    QCOMPARE(run.status, 1);
    const QByteArray name = file.toUtf8();
    QCOMPARE(run.output, "--- " + name + "\n+++ " + name +
                             "\tformatted\n@@ -1,4 +1,5 @@\n-@SCRIBON x\n+@SCRIBON\n+x\n \n "
                             "@MAX_SCANS\n 5\n");
    const QString same = folder.add("same"_s, FORMATTED);
    QCOMPARE(runSpec({"format"_s, "--diff"_s, same}).output, QByteArray());
    QCOMPARE(runSpec({"format"_s, "--diff"_s, same}).status, 0);
}

void tst_SpecFormat::missingDiffIsTold()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH"_s, "/nonexistent"_s);
    const SpecRun run = runSpec({"format"_s, "--diff"_s, "-"_s}, UNFORMATTED, environment);
    QCOMPARE(run.status, 2);
    QVERIFY(run.complaints.contains("the program diff cannot be run"));
}

void tst_SpecFormat::textForDiff_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QByteArray>("lines");

    QTest::newRow("no end of line") << QByteArray("a") << QByteArray("a\n")
                                    << QByteArray("-a\n\\ No newline at end of file\n+a\n");
    QTest::newRow("zero byte") << QByteArray("a\0\n", 3) << QByteArray("b\n")
                               << QByteArray("-a\0\n+b\n", 7);
    QTest::newRow("much text") << QByteArray(500000, 'a') + '\n'
                               << QByteArray("b\n") << '-' + QByteArray(500000, 'a') + "\n+b\n";
}

void tst_SpecFormat::textForDiff()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QByteArray, lines);
    const UnifiedDiff diff = unifiedDiff("-n a"_s, before, after);
    QCOMPARE(diff.problem, QString());
    QCOMPARE(diff.text, "--- -n a\n+++ -n a\tformatted\n@@ -1 +1 @@\n" + lines);
}

void tst_SpecFormat::fullDisk()
{
    QProcess shell;
    shell.start("/bin/sh"_s, {"-c"_s, "exec \"$0\" format \"$1\" > /dev/full"_s, specProgram(),
                              exampleSpecs().first()});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), 2);
    QVERIFY(shell.readAllStandardError().contains("cannot write to standard output"));
}

void tst_SpecFormat::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("complaint");

    QTest::newRow("no file") << QStringList{} << QByteArray("no files to format");
    QTest::newRow("standard input in place")
        << QStringList{"--in-place"_s, "-"_s} << QByteArray("cannot replace standard input");
    QTest::newRow("in place and check")
        << QStringList{"--in-place"_s, "--check"_s, "x"_s} << QByteArray("neither");
    QTest::newRow("in place and diff")
        << QStringList{"--in-place"_s, "--diff"_s, "x"_s} << QByteArray("neither");
    QTest::newRow("option") << QStringList{"--inplace"_s} << QByteArray("Unknown option");
}

void tst_SpecFormat::wrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, complaint);
    const SpecRun run = runSpec(QStringList{"format"_s} + arguments, UNFORMATTED);
    QCOMPARE(run.status, 2);
    QVERIFY2(run.complaints.contains(complaint), run.complaints.constData());
    QCOMPARE(run.output, QByteArray());
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecFormat)
#include "tst_spec_format.moc"
