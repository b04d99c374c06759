// DocumentGuard: unsaved changes, their recovery copies, changes of the file on disk, and the
// notices in the status bar.

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>
#include <QUndoStack>

#include "recoverycopy.h"
#include "variablemaplist.h"
#include "window_test.h"

namespace {

constexpr int FIVE_SECONDS = 5000;

const auto GOOD = QStringLiteral("/specs/good");
const auto ELSEWHERE = QStringLiteral("/specs/elsewhere");
const auto FULL = QStringLiteral("/small-disk/engine");
const auto FOLDER = QStringLiteral("/tmp/state/scriboneditor/recovery");
const auto COPY = FOLDER + QStringLiteral("/1/good");
const auto NEW_NAME = QStringLiteral("new_name");

const auto CHANGED =
    QStringLiteral("/specs/good was changed by another program; Save overwrites that");
const auto GONE = QStringLiteral("/specs/good is gone from the disk; Save makes it anew");

QStringList copies()
{
    return QDir(FOLDER).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

}  // namespace

class tst_DocumentGuard : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void copyFollowsAnEdit_data();
    void copyFollowsAnEdit();
    void copyFollowsEveryEdit();
    void copyOpensAsASpecFile();
    void copyKeepsTheEncoding();
    void copyIsRemovedBySave();
    void copyIsRemovedByDiscard();
    void copyIsKeptWhenClosingIsCancelled();
    void copyIsKeptUntilAnotherDocumentIsOpen();
    void copyIsKeptWhenTheOtherFileCannotBeRead();
    void copyIsRemovedWhenAnInvalidFileIsLoaded();
    void noCopyAfterTheWindowIsClosed();
    void failedSaveKeepsACopyOfUnsavedChangesOnly_data();
    void failedSaveKeepsACopyOfUnsavedChangesOnly();
    void missingCopyIsReported();

    void fullDiskIsReported();
    void fullDiskAndMissingHomeAreReported();
    void closingAfterAFullDiskKeepsTheCopy();
    void openingAfterAFullDiskKeepsTheCopy();

    void changeByOthersIsReported();
    void saveEndsTheReportOfAChangeByOthers();
    void loadEndsTheReportOfAChangeByOthers();
    void removedFileIsReported();
    void windowActivationChecksTheFile();
    void noticesWaitForStatusMessages();
    void messageOfARefusedRowActionStays();

    void abandonedCopyIsReportedAtTheStart();
    void severalAbandonedCopiesAreReported();
    void openedCopyIsNotReported();
    void openedCopyIsRemovedAfterSaveAs();
    void openedCopyIsKeptAfterSave();

private:
    void startAnew();
    void editName();
    void editAndCopy();
    void endTheNews() { m_window->statusBar()->clearMessage(); }
    QString message() const { return m_window->statusBar()->currentMessage(); }
    QString notice() const;
    QByteArray savedText();
};

void tst_DocumentGuard::startAnew()
{
    m_window.reset();
    m_window = std::make_unique<MainWindow>(nullptr);
}

void tst_DocumentGuard::editName()
{
    edit(0, 0, 1, NEW_NAME);
}

// Writes the copy at once, as before the process ends.
void tst_DocumentGuard::editAndCopy()
{
    editName();
    beforePlainExit();
    QVERIFY(QFileInfo::exists(COPY));
}

QString tst_DocumentGuard::notice() const
{
    const auto* const label =
        m_window->statusBar()->findChild<QLabel*>(QStringLiteral("noticeLabel"));
    return label->isHidden() ? QString() : label->text();
}

// The bytes that Save would write.
QByteArray tst_DocumentGuard::savedText()
{
    m_window->save();
    return readFile(GOOD);
}

void tst_DocumentGuard::copyFollowsAnEdit_data()
{
    QTest::addColumn<QString>("change");
    for (const char* const change : {"edit", "insert", "remove", "undo"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void tst_DocumentGuard::copyFollowsAnEdit()
{
    QFETCH(QString, change);
    loadGoodFile();
    QVERIFY(!QFileInfo::exists(FOLDER));
    goTo(viewOf(*m_window, 0), 8, 0);
    if (change == QLatin1String("insert"))
        m_window->insertRow();
    else if (change == QLatin1String("remove"))
        m_window->removeRow();
    else
        editName();
    if (change == QLatin1String("undo"))
        m_window->uStack()->undo();
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(COPY), FIVE_SECONDS);
    const QByteArray copied = readFile(COPY);
    QCOMPARE(copied, savedText());
}

void tst_DocumentGuard::copyFollowsEveryEdit()
{
    loadGoodFile();
    editAndCopy();
    edit(0, 0, 1, QStringLiteral("newer_name"));
    QTRY_VERIFY_WITH_TIMEOUT(readFile(COPY).contains("newer_name"), FIVE_SECONDS);
    QCOMPARE(copies().size(), 1);
}

void tst_DocumentGuard::copyOpensAsASpecFile()
{
    loadGoodFile();
    editAndCopy();
    const QByteArray copied = readFile(COPY);
    QVERIFY(writeFile(ELSEWHERE, copied));
    m_window->loadFile(ELSEWHERE, false);
    QCOMPARE(titleOf(*m_window), ELSEWHERE);
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), NEW_NAME);
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 3);
}

void tst_DocumentGuard::copyKeepsTheEncoding()
{
    loadGoodFile(goodSpec() + "#\xd6l\n");
    editAndCopy();
    QVERIFY(readFile(COPY).contains("#\xd6l\n"));
}

void tst_DocumentGuard::copyIsRemovedBySave()
{
    loadGoodFile();
    editAndCopy();
    QVERIFY(m_window->save());
    QVERIFY(copies().isEmpty());
    QCOMPARE(message(), QStringLiteral("File saved"));
}

void tst_DocumentGuard::copyIsRemovedByDiscard()
{
    loadGoodFile();
    editAndCopy();
    m_dialogs->answerBox(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QVERIFY(copies().isEmpty());
}

void tst_DocumentGuard::copyIsKeptWhenClosingIsCancelled()
{
    loadGoodFile();
    editAndCopy();
    m_dialogs->answerBox(QMessageBox::Cancel);
    QVERIFY(!m_window->close());
    QVERIFY(QFileInfo::exists(COPY));
}

// After Discard, the document is still open if the file dialog is cancelled.
void tst_DocumentGuard::copyIsKeptUntilAnotherDocumentIsOpen()
{
    QVERIFY(writeFile(ELSEWHERE, goodSpec()));
    loadGoodFile();
    editAndCopy();
    m_dialogs->answerBox(QMessageBox::Discard);
    m_dialogs->cancel();
    m_window->open();
    QVERIFY(QFileInfo::exists(COPY));
    m_window->loadFile(ELSEWHERE, false);
    QCOMPARE(titleOf(*m_window), ELSEWHERE);
    QVERIFY(copies().isEmpty());
}

void tst_DocumentGuard::copyIsKeptWhenTheOtherFileCannotBeRead()
{
    loadGoodFile();
    editAndCopy();
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(QStringLiteral("/specs/no such file"), false);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(QFileInfo::exists(COPY));
    QCOMPARE(titleOf(*m_window), GOOD);
}

void tst_DocumentGuard::copyIsRemovedWhenAnInvalidFileIsLoaded()
{
    loadGoodFile();
    editAndCopy();
    QVERIFY(writeFile(ELSEWHERE, badSpec()));
    m_window->loadFile(ELSEWHERE, false);
    QVERIFY(copies().isEmpty());
    endTheNews();
    QVERIFY(writeFile(GOOD, "changed"));
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_window.get(), &activated);
    QVERIFY(notice().isEmpty());
}

void tst_DocumentGuard::noCopyAfterTheWindowIsClosed()
{
    loadGoodFile();
    editName();
    m_dialogs->answerBox(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QMetaObject::invokeMethod(qApp, "aboutToQuit", Qt::DirectConnection);
    beforePlainExit();
    QVERIFY(copies().isEmpty());
}

void tst_DocumentGuard::failedSaveKeepsACopyOfUnsavedChangesOnly_data()
{
    QTest::addColumn<bool>("unsaved");
    QTest::newRow("unsaved work") << true;
    QTest::newRow("none") << false;
}

void tst_DocumentGuard::failedSaveKeepsACopyOfUnsavedChangesOnly()
{
    QFETCH(bool, unsaved);
    loadGoodFile();
    if (unsaved)
        editName();
    m_dialogs->chooseFile(QStringLiteral("/specs/no such directory/engine"));
    m_dialogs->answerBox(QMessageBox::Ok);
    QVERIFY(!m_window->saveAs());
    QCOMPARE(!copies().isEmpty(), unsaved);
}

void tst_DocumentGuard::missingCopyIsReported()
{
    loadGoodFile();
    endTheNews();
    QVERIFY(writeFile(QStringLiteral("/tmp/state"), "no directory"));
    editName();
    beforePlainExit();
    QVERIFY(
        notice().startsWith(QStringLiteral("No copy of unsaved work can be kept in "
                                           "/tmp/state/scriboneditor/recovery: ")));
    QVERIFY(QFile::remove(QStringLiteral("/tmp/state")));
    beforePlainExit();
    QVERIFY(QFileInfo::exists(COPY));
    QVERIFY(notice().isEmpty());
}

void tst_DocumentGuard::fullDiskIsReported()
{
    loadGoodFile(largeSpec(5000));
    const QByteArray whole = savedText();
    m_dialogs->chooseFile(FULL);
    QVERIFY(m_window->saveAs());
    QCOMPARE(message(), QStringLiteral("File saved"));
    endTheNews();
    const auto expected = QStringLiteral(
                              "Not all of the document is in /small-disk/engine; "
                              "it is kept whole in ") +
                          COPY;
    QTRY_COMPARE(notice(), expected);
    QCOMPARE(readFile(COPY), whole);

    m_dialogs->chooseFile(ELSEWHERE);
    QVERIFY(m_window->saveAs());
    QCOMPARE(readFile(ELSEWHERE), whole);
    QVERIFY(copies().isEmpty());
    endTheNews();
    QCoreApplication::processEvents();
    QVERIFY(notice().isEmpty());
}

void tst_DocumentGuard::fullDiskAndMissingHomeAreReported()
{
    loadGoodFile(largeSpec(5000));
    QVERIFY(writeFile(QStringLiteral("/tmp/state"), "no directory"));
    m_dialogs->chooseFile(FULL);
    QVERIFY(m_window->saveAs());
    endTheNews();
    const QStringList told = notice().split(QLatin1Char('\n'));
    QCOMPARE(told.size(), 2);
    QCOMPARE(told.first(), QStringLiteral("Not all of the document is in /small-disk/engine; "
                                          "save it elsewhere"));
    QVERIFY(told.last().startsWith(QStringLiteral("No copy of unsaved work can be kept in ")));
}

// Save has cleared the modified flags, so there is no question.
void tst_DocumentGuard::closingAfterAFullDiskKeepsTheCopy()
{
    loadGoodFile(largeSpec(5000));
    const QByteArray whole = savedText();
    m_dialogs->chooseFile(FULL);
    QVERIFY(m_window->saveAs());
    QVERIFY(m_window->close());
    QCOMPARE(m_dialogs->boxes.size(), 0);
    QCOMPARE(readFile(COPY), whole);
    startAnew();
    QVERIFY(notice().contains(COPY));
}

void tst_DocumentGuard::openingAfterAFullDiskKeepsTheCopy()
{
    loadGoodFile(largeSpec(5000));
    const QByteArray whole = savedText();
    m_dialogs->chooseFile(FULL);
    QVERIFY(m_window->saveAs());
    m_window->loadFile(GOOD, false);
    QCOMPARE(readFile(COPY), whole);
    endTheNews();
    QTRY_VERIFY(notice().contains(COPY));
    editName();
    beforePlainExit();
    QCOMPARE(copies().size(), 2);
    QVERIFY(m_window->save());
    QCOMPARE(copies(), QStringList{QStringLiteral("1")});
}

void tst_DocumentGuard::changeByOthersIsReported()
{
    loadGoodFile();
    endTheNews();
    QVERIFY(writeFile(GOOD, goodSpec() + "\n"));
    QTRY_COMPARE(notice(), CHANGED);
    QVERIFY(writeFile(GOOD, goodSpec()));
    QTRY_VERIFY(notice().isEmpty());
}

void tst_DocumentGuard::saveEndsTheReportOfAChangeByOthers()
{
    loadGoodFile();
    endTheNews();
    QVERIFY(writeFile(GOOD, goodSpec() + "\n"));
    QTRY_COMPARE(notice(), CHANGED);
    QVERIFY(m_window->save());
    endTheNews();
    QCoreApplication::processEvents();
    QVERIFY(notice().isEmpty());
}

void tst_DocumentGuard::loadEndsTheReportOfAChangeByOthers()
{
    loadGoodFile();
    endTheNews();
    QVERIFY(writeFile(GOOD, goodSpec() + "\n"));
    QTRY_COMPARE(notice(), CHANGED);
    m_window->loadFile(GOOD, false);
    endTheNews();
    QCoreApplication::processEvents();
    QVERIFY(notice().isEmpty());
}

void tst_DocumentGuard::removedFileIsReported()
{
    loadGoodFile();
    endTheNews();
    QVERIFY(QFile::remove(GOOD));
    QTRY_COMPARE(notice(), GONE);
    QVERIFY(m_window->save());
    endTheNews();
    QCoreApplication::processEvents();
    QVERIFY(notice().isEmpty());
}

// Without the event loop, so that no event of QFileSystemWatcher is delivered.
void tst_DocumentGuard::windowActivationChecksTheFile()
{
    loadGoodFile();
    m_window->statusBar()->clearMessage();
    QVERIFY(writeFile(GOOD, goodSpec() + "\n"));
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_window.get(), &activated);
    QCOMPARE(notice(), CHANGED);
}

void tst_DocumentGuard::noticesWaitForStatusMessages()
{
    loadGoodFile();
    QCOMPARE(message(), QStringLiteral("File loaded"));
    QVERIFY(writeFile(GOOD, goodSpec() + "\n"));
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_window.get(), &activated);
    QCOMPARE(message(), QStringLiteral("File loaded"));
    QTRY_COMPARE(notice(), CHANGED);
}

void tst_DocumentGuard::messageOfARefusedRowActionStays()
{
    loadGoodFile();
    goTo(viewOf(*m_window, 0), 0, 0);
    m_window->removeRow();
    const auto refusal = QStringLiteral("Unable to remove a required keyword  (scribon)");
    QCOMPARE(message(), refusal);
    QVERIFY(writeFile(GOOD, goodSpec() + "\n"));
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_window.get(), &activated);
    QCoreApplication::processEvents();
    QCOMPARE(message(), refusal);
    m_window->statusBar()->clearMessage();
    QTRY_COMPARE(notice(), CHANGED);
}

void tst_DocumentGuard::abandonedCopyIsReportedAtTheStart()
{
    loadGoodFile();
    editAndCopy();
    startAnew();
    QCOMPARE(notice(), QStringLiteral("Unsaved work on /specs/good is kept in ") + COPY);
    QVERIFY(m_dialogs->boxes.isEmpty());
    QCOMPARE(readFile(GOOD), goodSpec());
}

void tst_DocumentGuard::severalAbandonedCopiesAreReported()
{
    for (int i = 0; i < 3; ++i) {
        loadGoodFile();
        editName();
        beforePlainExit();
        startAnew();
    }
    QCOMPARE(notice(),
             QStringLiteral("Unsaved work on /specs/good and 2 more is kept in ") + FOLDER);
}

void tst_DocumentGuard::openedCopyIsNotReported()
{
    loadGoodFile();
    editAndCopy();
    startAnew();
    m_window->loadFile(COPY, false);
    QCOMPARE(titleOf(*m_window), COPY);
    endTheNews();
    QCoreApplication::processEvents();
    QVERIFY(notice().isEmpty());
    QVERIFY(QFileInfo::exists(COPY));
}

void tst_DocumentGuard::openedCopyIsRemovedAfterSaveAs()
{
    loadGoodFile();
    editAndCopy();
    startAnew();
    m_window->loadFile(COPY, false);
    m_dialogs->chooseFile(ELSEWHERE);
    QVERIFY(m_window->saveAs());
    QVERIFY(readFile(ELSEWHERE).contains("new_name"));
    QVERIFY(copies().isEmpty());
    startAnew();
    QVERIFY(notice().isEmpty());
}

void tst_DocumentGuard::openedCopyIsKeptAfterSave()
{
    loadGoodFile();
    editAndCopy();
    startAnew();
    m_window->loadFile(COPY, false);
    QVERIFY(m_window->save());
    QVERIFY(readFile(COPY).contains("new_name"));
    startAnew();
    QVERIFY(notice().contains(COPY));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_DocumentGuard)
#include "tst_document_guard.moc"
