// New, Open and Save As, driven through their dialogs.

#include <QDir>

#include "golden_keywords.h"
#include "window_test.h"

namespace {

const auto GOOD = QStringLiteral("/specs/good");
const auto ENGINE = QStringLiteral("/specs/scrib_engine");

QByteArray newFileText()
{
    return "@SCRIBON\n<new_scribon>\n\n"
           "@DESCRIPTION\n'This is a description of my test'\n\n"
           "@GROUP\nmarvane_str_var\n\n"
           "@MODE\nmarvane_str_var\n\n"
           "@PROGRAM\nmarvane_str_var\n\n"
           "@TEST_ID\nmarvane_str_var\n\n"
           "@TEST_TYPE\nmarvane_str_var\n\n"
           "@SCAN_INTERVAL\n1[sec]\n\n"
           "@META_DATA\ndummy_pam dummy_var\n\n"
           "@SCAN_LIST\ndummy_var dummy_chan\n\n";
}

// Qt's title of a save dialog without a title of its own.
QString saveDialogTitle()
{
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    return dialog.windowTitle();
}

QStringList dialogFilters()
{
    return {QStringLiteral("scrib*"), QStringLiteral("*")};
}

}  // namespace

class tst_WindowDialogs : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void newAsksForAName();
    void newWritesItsTextAndLoadsIt();
    void newFileHasEveryRequiredKeyword();
    void newReplacesAWritableFile();
    void newOnAReadOnlyFileLoadsTheFile();
    void newReportsAnUnwritableDirectory_data();
    void newReportsAnUnwritableDirectory();
    void cancelledNewLeavesTheDocument();

    void openAsksForAName();
    void openLoads();
    void openOfABadFile();
    void cancelledOpenLeavesTheDocument();

    void saveAsAsksForAName();
    void saveAsMovesTheDocument();
    void saveAsAddsNoSuffix();
    void cancelledSaveAsLeavesTheDocument();

    void loadingFileIsSetWhileADialogsFileLoads_data();
    void loadingFileIsSetWhileADialogsFileLoads();
    void columnsFitAfterALoadByDialog();
    void actionsAreConnected_data();
    void actionsAreConnected();
};

void tst_WindowDialogs::newAsksForAName()
{
    m_dialogs->cancel();
    m_window->newFile();
    QCOMPARE(m_dialogs->fileDialogs.size(), 1);
    const SeenFileDialog& dialog = m_dialogs->fileDialogs.first();
    QCOMPARE(dialog.title, QStringLiteral("New File"));
    QCOMPARE(dialog.directory, QStringLiteral("/specs"));
    QCOMPARE(dialog.filters, dialogFilters());
    QCOMPARE(dialog.acceptMode, QFileDialog::AcceptSave);
    QCOMPARE(dialog.parent, m_window.get());
}

void tst_WindowDialogs::newWritesItsTextAndLoadsIt()
{
    m_dialogs->chooseFile(ENGINE);
    m_window->newFile();
    QCOMPARE(readFile(ENGINE), newFileText());
    QCOMPARE(titleOf(*m_window), ENGINE);
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), countKeywords(isRequiredStatement));
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("<new_scribon>"));
    QCOMPARE(rowTexts(*modelOf(*m_window, 2), 1).at(1), QStringLiteral("dummy_pam"));
    QCOMPARE(modelOf(*m_window, 1)->rowCount(), 2);
    QVERIFY(!modelOf(*m_window, 0)->isModified());
    QVERIFY(m_dialogs->boxes.isEmpty());
    QCOMPARE(newsOf(*m_window), QStringLiteral("File loaded"));
}

void tst_WindowDialogs::newFileHasEveryRequiredKeyword()
{
    m_dialogs->chooseFile(ENGINE);
    m_window->newFile();
    const QStringList lines = QString::fromLatin1(readFile(ENGINE)).split(QLatin1Char('\n'));
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QVERIFY2(!keyword.is(MUST_STAY) || lines.count(QLatin1String(keyword.spelling)) == 1,
                 keyword.spelling);
}

void tst_WindowDialogs::newReplacesAWritableFile()
{
    loadGoodFile(largeSpec(1000));
    m_dialogs->chooseFile(GOOD);
    m_dialogs->answerBox(QMessageBox::Yes);
    m_window->newFile();
    QCOMPARE(readFile(GOOD), newFileText());
}

void tst_WindowDialogs::newOnAReadOnlyFileLoadsTheFile()
{
    QVERIFY(writeFile(ENGINE, goodSpec()));
    QVERIFY(QFile::setPermissions(ENGINE, QFileDevice::ReadOwner));
    m_dialogs->chooseFile(ENGINE);
    m_dialogs->answerBox(QMessageBox::Yes);
    m_window->newFile();
    QCOMPARE(readFile(ENGINE), goodSpec());
    QCOMPARE(titleOf(*m_window), ENGINE);
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("engine_log"));
    QCOMPARE(m_dialogs->boxes.size(), 1);
}

void tst_WindowDialogs::newReportsAnUnwritableDirectory_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no such directory")
        << QStringLiteral("/specs/gone/engine") << QStringLiteral("No such file or directory");
    QTest::newRow("a pipe") << QStringLiteral("/specs/pipe")
                            << QStringLiteral("Not a regular file");
    QTest::newRow("a directory that may not be written")
        << QStringLiteral("/specs/locked/engine") << QStringLiteral("No such file or directory");
}

void tst_WindowDialogs::newReportsAnUnwritableDirectory()
{
    QFETCH(QString, name);
    loadGoodFile();
    QVERIFY(makePipe(QStringLiteral("/specs/pipe")));
    QVERIFY(QDir().mkpath(QStringLiteral("/specs/locked")));
    QVERIFY(QFile::setPermissions(QStringLiteral("/specs/locked"),
                                  QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    m_dialogs->chooseFile(name);
    if (QFileInfo::exists(name))
        m_dialogs->answerBox(QMessageBox::Yes);
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->newFile();
    QVERIFY(!m_dialogs->boxes.isEmpty());
    QFETCH(QString, reason);
    QCOMPARE(m_dialogs->boxes.last().text,
             QStringLiteral("Cannot read file %1:\n%2.").arg(name, reason));
    QCOMPARE(titleOf(*m_window), GOOD);
    QCOMPARE(LoadingFile, 0);
}

void tst_WindowDialogs::cancelledNewLeavesTheDocument()
{
    loadGoodFile();
    m_dialogs->cancel();
    m_window->newFile();
    QCOMPARE(titleOf(*m_window), GOOD);
    QCOMPARE(QDir(QStringLiteral("/specs")).entryList(QDir::Files).size(), 1);
}

void tst_WindowDialogs::openAsksForAName()
{
    m_dialogs->cancel();
    m_window->open();
    QCOMPARE(m_dialogs->fileDialogs.size(), 1);
    const SeenFileDialog& dialog = m_dialogs->fileDialogs.first();
    QCOMPARE(dialog.title, QStringLiteral("Open File"));
    QCOMPARE(dialog.directory, QStringLiteral("/specs"));
    QCOMPARE(dialog.filters, dialogFilters());
    QCOMPARE(dialog.acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(dialog.parent, m_window.get());
}

void tst_WindowDialogs::openLoads()
{
    QVERIFY(writeFile(ENGINE, goodSpec()));
    m_dialogs->chooseFile(ENGINE);
    m_window->open();
    QCOMPARE(titleOf(*m_window), ENGINE);
    QCOMPARE(rowTexts(*modelOf(*m_window, 0), 0).at(1), QStringLiteral("engine_log"));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDialogs::openOfABadFile()
{
    QVERIFY(writeFile(ENGINE, badSpec()));
    m_dialogs->chooseFile(ENGINE);
    m_window->open();
    QCOMPARE(titleOf(*m_window), QStringLiteral("Invalid scribon_specs file: ") + ENGINE);
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_WindowDialogs::cancelledOpenLeavesTheDocument()
{
    loadGoodFile();
    m_dialogs->cancel();
    m_window->open();
    QCOMPARE(titleOf(*m_window), GOOD);
    QCOMPARE(modelOf(*m_window, 0)->rowCount(), 9);
}

void tst_WindowDialogs::saveAsAsksForAName()
{
    loadGoodFile();
    m_dialogs->cancel();
    QVERIFY(!m_window->saveAs());
    QCOMPARE(m_dialogs->fileDialogs.size(), 1);
    const SeenFileDialog& dialog = m_dialogs->fileDialogs.first();
    QCOMPARE(dialog.acceptMode, QFileDialog::AcceptSave);
    QCOMPARE(dialog.modality, Qt::WindowModal);
    QCOMPARE(dialog.title, saveDialogTitle());
    QCOMPARE(dialog.filters, QFileDialog().nameFilters());
    QCOMPARE(dialog.defaultSuffix, QString());
    QCOMPARE(dialog.parent, m_window.get());
}

void tst_WindowDialogs::saveAsMovesTheDocument()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    m_dialogs->chooseFile(QStringLiteral("/tmp/elsewhere"));
    QVERIFY(m_window->saveAs());
    QCOMPARE(titleOf(*m_window), QStringLiteral("/tmp/elsewhere"));
    QCOMPARE(newsOf(*m_window), QStringLiteral("File saved"));
    QVERIFY(readFile(QStringLiteral("/tmp/elsewhere")).startsWith("@SCRIBON\nnew_name\n"));
    QCOMPARE(readFile(GOOD), goodSpec());
    edit(0, 0, 1, QStringLiteral("newer_name"));
    QVERIFY(m_window->save());
    QVERIFY(readFile(QStringLiteral("/tmp/elsewhere")).startsWith("@SCRIBON\nnewer_name\n"));
    QCOMPARE(m_dialogs->fileDialogs.size(), 1);
}

void tst_WindowDialogs::saveAsAddsNoSuffix()
{
    loadGoodFile();
    m_dialogs->chooseFile(QStringLiteral("/specs/plain"));
    QVERIFY(m_window->saveAs());
    QCOMPARE(QDir(QStringLiteral("/specs")).entryList(QDir::Files),
             QStringList({QStringLiteral("good"), QStringLiteral("plain")}));
}

void tst_WindowDialogs::cancelledSaveAsLeavesTheDocument()
{
    loadGoodFile();
    edit(0, 0, 1, QStringLiteral("new_name"));
    m_dialogs->cancel();
    QVERIFY(!m_window->saveAs());
    QVERIFY(modelOf(*m_window, 0)->isModified());
    QCOMPARE(titleOf(*m_window), GOOD);
}

void tst_WindowDialogs::loadingFileIsSetWhileADialogsFileLoads_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("new") << true << QByteArray();
    QTest::newRow("open") << false << goodSpec();
    QTest::newRow("open of a bad file") << false << badSpec();
}

void tst_WindowDialogs::loadingFileIsSetWhileADialogsFileLoads()
{
    QFETCH(bool, isNew);
    QFETCH(QByteArray, text);
    if (!isNew)
        QVERIFY(writeFile(ENGINE, text));
    QVector<int> flags;
    connect(m_window.get(), &QWidget::windowTitleChanged, m_window.get(),
            [&flags] { flags.append(LoadingFile); });
    m_dialogs->chooseFile(ENGINE);
    if (isNew)
        m_window->newFile();
    else
        m_window->open();
    QVERIFY(!flags.isEmpty());
    QCOMPARE(flags.count(1), flags.size());
    QCOMPARE(LoadingFile, 0);
}

// The cells have no data while the file is loading, so the columns are fitted again afterwards.
void tst_WindowDialogs::columnsFitAfterALoadByDialog()
{
    const QByteArray longName(120, 'x');
    QVERIFY(writeFile(ENGINE, goodSpec().replace("engine_log", longName)));
    m_window->show();
    m_dialogs->chooseFile(ENGINE);
    m_window->open();
    const QFontMetrics metrics(viewOf(*m_window, 0)->font());
    QVERIFY(viewOf(*m_window, 0)->columnWidth(1) >=
            metrics.horizontalAdvance(QString::fromLatin1(longName)));
}

void tst_WindowDialogs::actionsAreConnected_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("action_New") << QStringLiteral("New File");
    QTest::newRow("action_Open") << QStringLiteral("Open File");
    QTest::newRow("actionSave_As") << saveDialogTitle();
}

void tst_WindowDialogs::actionsAreConnected()
{
    QFETCH(QString, title);
    loadGoodFile();
    m_dialogs->cancel();
    actionOf(*m_window, QTest::currentDataTag())->trigger();
    QCOMPARE(m_dialogs->fileDialogs.size(), 1);
    QCOMPARE(m_dialogs->fileDialogs.first().title, title);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_WindowDialogs)
#include "tst_window_dialogs.moc"
