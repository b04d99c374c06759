// Saving the five tabs, and the question about unsaved changes.

#include <sys/stat.h>
#include <unistd.h>

#include <QCloseEvent>
#include <QDir>
#include <QTextCodec>
#include <QUndoStack>

#include "editor_antlr3.h"
#include "window_test.h"

namespace {

const auto GOOD = QStringLiteral("/specs/good");
const auto SPECIFICATIONS = QStringLiteral("Scribon Specifications Editor");
const auto ONLY_OK = QMessageBox::StandardButtons(QMessageBox::Ok);

// UTF-8 that notes whether the wait cursor is shown when a text is encoded. Qt owns it.
class CursorWitness : public QTextCodec {
public:
    QByteArray name() const override { return "cursor-witness"; }
    int mibEnum() const override { return -4711; }

    static bool sawWaitCursor;

protected:
    QString convertToUnicode(const char* bytes, int size, ConverterState* state) const override
    {
        return codecForName("UTF-8")->toUnicode(bytes, size, state);
    }

    QByteArray convertFromUnicode(const QChar* text, int size, ConverterState* state) const override
    {
        const QCursor* const cursor = QGuiApplication::overrideCursor();
        sawWaitCursor = sawWaitCursor || (cursor != nullptr && cursor->shape() == Qt::WaitCursor);
        return codecForName("UTF-8")->fromUnicode(text, size, state);
    }
};

bool CursorWitness::sawWaitCursor = false;

}  // namespace

class tst_WindowSaving : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void saveWithNothingLoadedDoesNothing();
    void saveReportsAnInvalidFile();
    void saveAsReportsThatNothingIsLoaded();
    void saveAsReportsAFailedLoad();
    void saveWritesTheTabsInOrder();
    void repeatedSaveGivesTheSameFile();
    void saveShowsAMessageAndClearsTheFlags();
    void waitCursorIsShownDuringASave();
    void documentWithErrorsIsSaved();
    void latin1FileStaysInLatin1();
    void allTabsAreSavedInOneEncoding();
    void saveIsInPlace();
    void saveGoesThroughALink();
    void shorterDocumentReplacesTheWholeFile();
    void saveThatCannotBeWritten_data();
    void saveThatCannotBeWritten();
    void fullDiskIsSilentAndTheDocumentWhole();
    void directoryVanishesBeforeTheSave();

    void closeWithoutChangesAsksNothing();
    void closeWithNothingLoadedAsksNothing();
    void unsavedChangesAreAskedFor_data();
    void unsavedChangesAreAskedFor();
    void closeSavesFirst();
    void closeStaysWhenSavingFails();
    void closeAfterSaveAsksNothing();
    void changeOnAnyTabCounts_data();
    void changeOnAnyTabCounts();
    void failedLoadDiscardsUnsavedChanges();
    void closeFreesTheParser();
};

void tst_WindowSaving::saveWithNothingLoadedDoesNothing()
{
    QDir::setCurrent(QStringLiteral("/specs"));
    QVERIFY(!m_window->save());
    QVERIFY(m_dialogs->boxes.isEmpty());
    QVERIFY(m_dialogs->fileDialogs.isEmpty());
    QVERIFY(QDir(QStringLiteral("/specs")).isEmpty());
}

void tst_WindowSaving::saveReportsAnInvalidFile()
{
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->save());
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, SPECIFICATIONS);
    QCOMPARE(box.text, QStringLiteral("Nothing Loaded cannot save file Invalid scribon_specs file: "
                                      "/specs/bad:\nUnknown error."));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, ONLY_OK);
    QCOMPARE(box.parent, m_window.get());
    QCOMPARE(readFile(QStringLiteral("/specs/bad")), badSpec());
}

void tst_WindowSaving::saveAsReportsThatNothingIsLoaded()
{
    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->saveAs());
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, SPECIFICATIONS);
    QCOMPARE(box.text, QStringLiteral("Nothing Loaded cannot save empty file."));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, ONLY_OK);
    QCOMPARE(box.parent, m_window.get());
    QVERIFY(m_dialogs->fileDialogs.isEmpty());
}

void tst_WindowSaving::saveAsReportsAFailedLoad()
{
    failOverLoadedDocument();
    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->saveAs());
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(m_dialogs->fileDialogs.isEmpty());
}

void tst_WindowSaving::saveWritesTheTabsInOrder()
{
    loadGoodFile(
        "@ECM_LIST\n/specs/a:b:1\n\n@SCAN_LIST_AUX_USER\naux_var other\n\n@META_DATA\npam var\n\n"
        "@SCAN_LIST\nspeed .AV chan\n\n@SCRIBON\nname\n");
    edit(0, 0, 1, QStringLiteral("new_name"));
    QVERIFY(m_window->save());
    const QByteArray text = readFile(GOOD);
    const std::array<int, 5> places{text.indexOf("@SCRIBON\nnew_name\n"),
                                    text.indexOf("@SCAN_LIST\n"), text.indexOf("@META_DATA\n"),
                                    text.indexOf("@SCAN_LIST_AUX_USER\n"),
                                    text.indexOf("@ECM_LIST\n")};
    QCOMPARE(places.front(), 0);
    QVERIFY2(std::is_sorted(places.begin(), places.end()), text.constData());
    QVERIFY2(text.contains("@SCAN_LIST\nspeed\t\t.AV\t\tchan\n"), text.constData());
}

void tst_WindowSaving::repeatedSaveGivesTheSameFile()
{
    loadGoodFile();
    QVERIFY(m_window->save());
    const QByteArray first = readFile(GOOD);
    m_window->loadFile(GOOD, false);
    QVERIFY(m_window->save());
    QCOMPARE(readFile(GOOD), first);
}

void tst_WindowSaving::saveShowsAMessageAndClearsTheFlags()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    tabsOf(*m_window)->setCurrentIndex(1);
    edit(1, 1, 1, QStringLiteral("new_variable"));
    QVERIFY(m_window->save());
    for (int tab = 0; tab < 5; ++tab)
        QVERIFY(!modelOf(*m_window, tab)->isModified());
    QCOMPARE(newsOf(*m_window), QStringLiteral("File saved"));
    QCOMPARE(titleOf(*m_window), GOOD);
    QVERIFY(m_window->uStack()->canUndo());
    QVERIFY(m_dialogs->boxes.isEmpty());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void tst_WindowSaving::waitCursorIsShownDuringASave()
{
    loadGoodFile();
    QTextCodec* const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(new CursorWitness);
    CursorWitness::sawWaitCursor = false;
    const bool saved = m_window->save();
    QTextCodec::setCodecForLocale(before);
    QVERIFY(saved);
    QVERIFY(CursorWitness::sawWaitCursor);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void tst_WindowSaving::documentWithErrorsIsSaved()
{
    loadGoodFile("@SCRIBON\n? ? ?\n@GROUP\n%%%\n@NO_SUCH_KEYWORD\nvalue\n");
    QVERIFY(m_window->save());
    QVERIFY(m_dialogs->boxes.isEmpty());
    QVERIFY(readFile(GOOD).contains("@GROUP\n%%%\n"));
}

void tst_WindowSaving::latin1FileStaysInLatin1()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const QByteArray comment = "#\xd6ltemperatur\n";
    loadGoodFile(comment + goodSpec());
    edit(0, 1, 1, QStringLiteral("new_name"));
    QVERIFY(m_window->save());
    QVERIFY(readFile(GOOD).startsWith(comment));
    QVERIFY(readFile(GOOD).contains("@SCRIBON\nnew_name\n"));
}

// A character of one tab that Latin-1 does not have, and the file stays as it is then.
void tst_WindowSaving::allTabsAreSavedInOneEncoding()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    loadGoodFile("#\xd6ltemperatur\n" + goodSpec());
    tabsOf(*m_window)->setCurrentIndex(2);
    edit(2, 1, 2, QStringLiteral("'\u20ac'"));
    QVERIFY(m_window->save());
    const QByteArray inUtf8 = "#\xc3\x96ltemperatur\n";
    QVERIFY(readFile(GOOD).startsWith(inUtf8));
    QVERIFY(readFile(GOOD).contains("'\xe2\x82\xac'"));
    m_window->uStack()->undo();
    QVERIFY(m_window->save());
    QVERIFY(readFile(GOOD).startsWith(inUtf8));
    m_window->loadFile(GOOD, false);
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).first(), QStringLiteral("#\u00d6ltemperatur"));
}

// The file is truncated and written again, so hard links to it have the new text.
void tst_WindowSaving::saveIsInPlace()
{
    loadGoodFile();
    QCOMPARE(link("/specs/good", "/specs/other name"), 0);
    QVERIFY(QFile::setPermissions(GOOD, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    edit(0, 0, 1, QStringLiteral("new_name"));
    QVERIFY(m_window->save());
    QVERIFY(readFile(QStringLiteral("/specs/other name")).startsWith("@SCRIBON\nnew_name\n"));
    QCOMPARE(QDir(QStringLiteral("/specs")).entryList(QDir::Files).size(), 2);
}

void tst_WindowSaving::saveGoesThroughALink()
{
    QVERIFY(writeFile(QStringLiteral("/specs/real"), goodSpec()));
    QVERIFY(QFile::link(QStringLiteral("/specs/real"), QStringLiteral("/specs/link")));
    m_window->loadFile(QStringLiteral("/specs/link"), false);
    edit(0, 0, 1, QStringLiteral("new_name"));
    QVERIFY(m_window->save());
    QVERIFY(QFileInfo(QStringLiteral("/specs/link")).isSymLink());
    QVERIFY(readFile(QStringLiteral("/specs/real")).startsWith("@SCRIBON\nnew_name\n"));
}

void tst_WindowSaving::shorterDocumentReplacesTheWholeFile()
{
    loadGoodFile(largeSpec(500));
    const QByteArray text = "@SCRIBON\nshort\n";
    QVERIFY(writeFile(QStringLiteral("/specs/short"), text));
    m_window->loadFile(QStringLiteral("/specs/short"), false);
    m_dialogs->chooseFile(GOOD);
    m_dialogs->answerBox(QMessageBox::Yes);
    QVERIFY(m_window->saveAs());
    QVERIFY(!readFile(GOOD).contains("variable_1"));
    QVERIFY(readFile(GOOD).startsWith(text));
}

void tst_WindowSaving::saveThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a file that may not be written")
        << QStringLiteral("locked") << QStringLiteral("Permission denied");
    QTest::newRow("a directory has taken its place")
        << QStringLiteral("directory") << QStringLiteral("Not a regular file");
    QTest::newRow("a pipe has taken its place")
        << QStringLiteral("pipe") << QStringLiteral("Not a regular file");
    QTest::newRow("its directory is gone")
        << QStringLiteral("gone") << QStringLiteral("No such file or directory");
}

void tst_WindowSaving::saveThatCannotBeWritten()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    const auto name = QStringLiteral("/specs/cell/engine");
    QVERIFY(writeFile(name, goodSpec()));
    m_window->loadFile(name, false);
    edit(0, 0, 1, QStringLiteral("new_name"));
    if (kind == QLatin1String("locked"))
        QVERIFY(QFile::setPermissions(name, QFileDevice::ReadOwner));
    else
        QVERIFY(QFile::remove(name));
    if (kind == QLatin1String("directory"))
        QVERIFY(QDir().mkpath(name));
    if (kind == QLatin1String("pipe"))
        QVERIFY(makePipe(name));
    if (kind == QLatin1String("gone"))
        QVERIFY(QDir().rmdir(QStringLiteral("/specs/cell")));

    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->save());
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, SPECIFICATIONS);
    QCOMPARE(box.text, QStringLiteral("Cannot write file %1:\n%2.").arg(name, reason));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, ONLY_OK);
    QVERIFY(modelOf(*m_window, 0)->isModified());
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("new_name"));
    QCOMPARE(titleOf(*m_window), name);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    QFile::setPermissions(name, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

void tst_WindowSaving::fullDiskIsSilentAndTheDocumentWhole()
{
    loadGoodFile(largeSpec(5000));
    QVERIFY(m_window->save());
    const QByteArray whole = readFile(GOOD);
    m_dialogs->chooseFile(QStringLiteral("/small-disk/engine"));
    QVERIFY(m_window->saveAs());
    QVERIFY(m_dialogs->boxes.isEmpty());
    QCOMPARE(titleOf(*m_window), QStringLiteral("/small-disk/engine"));
    const QByteArray cut = readFile(QStringLiteral("/small-disk/engine"));
    QVERIFY(cut.size() < whole.size());
    QVERIFY(cut.size() <= 65536);
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 5001);
    m_dialogs->chooseFile(QStringLiteral("/specs/elsewhere"));
    QVERIFY(m_window->saveAs());
    QCOMPARE(readFile(QStringLiteral("/specs/elsewhere")), whole);
}

void tst_WindowSaving::directoryVanishesBeforeTheSave()
{
    loadGoodFile();
    m_dialogs->chooseFile(QStringLiteral("/specs/no such directory/engine"));
    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->saveAs());
    QCOMPARE(titleOf(*m_window), GOOD);
}

void tst_WindowSaving::closeWithoutChangesAsksNothing()
{
    loadGoodFile();
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowSaving::closeWithNothingLoadedAsksNothing()
{
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowSaving::unsavedChangesAreAskedFor_data()
{
    QTest::addColumn<QString>("way");
    for (const char* const way : {"close", "open", "new"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_WindowSaving::unsavedChangesAreAskedFor()
{
    QFETCH(QString, way);
    const auto go = [this, way] {
        if (way == QLatin1String("close"))
            m_window->close();
        else if (way == QLatin1String("open"))
            m_window->open();
        else
            m_window->newFile();
    };
    m_window->show();
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    m_dialogs->answerBox(QMessageBox::Cancel);
    go();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    const SeenBox& box = m_dialogs->boxes.first();
    QCOMPARE(box.title, SPECIFICATIONS);
    QCOMPARE(box.text,
             QStringLiteral("The file has been modified.\nDo you want to save your chanages?"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QCOMPARE(box.parent, m_window.get());
    QVERIFY(m_window->isVisible());
    QVERIFY(m_dialogs->fileDialogs.isEmpty());
    QCOMPARE(readFile(GOOD), goodSpec());

    m_dialogs->answerBox(QMessageBox::Discard);
    m_dialogs->cancel();
    go();
    QCOMPARE(m_window->isVisible(), way != QLatin1String("close"));
    QCOMPARE(m_dialogs->fileDialogs.size(), way == QLatin1String("close") ? 0 : 1);
    QCOMPARE(readFile(GOOD), goodSpec());
}

void tst_WindowSaving::closeSavesFirst()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    m_dialogs->answerBox(QMessageBox::Save);
    QVERIFY(m_window->close());
    QVERIFY(readFile(GOOD).startsWith("@SCRIBON\nnew_name\n"));
}

void tst_WindowSaving::closeStaysWhenSavingFails()
{
    m_window->show();
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    QVERIFY(QFile::remove(GOOD));
    QVERIFY(QDir().mkpath(GOOD));
    m_dialogs->answerBox(QMessageBox::Save);
    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->close());
    QCOMPARE(m_dialogs->boxes.size(), 2);
    QVERIFY(m_window->isVisible());
    QVERIFY(getTree() != nullptr);
}

void tst_WindowSaving::closeAfterSaveAsksNothing()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    QVERIFY(m_window->save());
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowSaving::changeOnAnyTabCounts_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < 5; ++tab)
        QTest::addRow("tab %d", tab) << tab;
}

void tst_WindowSaving::changeOnAnyTabCounts()
{
    QFETCH(int, tab);
    loadGoodFile();
    tabsOf(*m_window)->setCurrentIndex(tab);
    edit(tab, 1, 1, QStringLiteral("changed"));
    m_dialogs->answerBox(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QCOMPARE(m_dialogs->boxes.size(), 1);
}

// Without a document there is no question, whatever the old models' flags are.
void tst_WindowSaving::failedLoadDiscardsUnsavedChanges()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    QVERIFY(writeFile(QStringLiteral("/specs/bad"), badSpec()));
    m_window->loadFile(QStringLiteral("/specs/bad"), false);
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowSaving::closeFreesTheParser()
{
    loadGoodFile();
    QVERIFY(getTree() != nullptr);
    QVERIFY(m_window->close());
    QVERIFY(getTree() == nullptr);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowSaving)
#include "tst_window_saving.moc"
