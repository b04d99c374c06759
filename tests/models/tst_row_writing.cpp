// The text that is written for rows, byte by byte.

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "editor_access.h"
#include "model_text.h"

namespace {

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& fileName, const QByteArray& text)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

}  // namespace

class tst_RowWriting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keywordsTab_data();
    void keywordsTab() { checkText(EDIT_TAB1); }
    void valuesInOddPlaces_data();
    void valuesInOddPlaces() { checkText(EDIT_TAB1); }
    void scanList_data();
    void scanList() { checkText(EDIT_TAB2); }
    void otherLists_data();
    void otherLists() { checkText(EDIT_TAB3); }

    void limitOfValuesAppliesToLaterRows();
    void cellsAreTrimmedWhenWritten();
    void writingChangesNothing();
    void writingIgnoresErrorCodes();
    void writingWorksWhileLoading();
    void appends();
    void modelWithoutRowsKeepsTheFile();
    void createsTheFile();
    void fileThatCannotBeOpened_data();
    void fileThatCannotBeOpened();
    void fullDisk();
    void fileNameWithABlank();
    void manyRows();

private:
    static void checkText(int tab);
};

void tst_RowWriting::checkText(int tab)
{
    QFETCH(QStringList, rows);
    const auto model = modelOfRows(tab, rows);
    QTEST(dumpOf(model.get()), "text");
}

void tst_RowWriting::keywordsTab_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("no rows") << QStringList() << QByteArray();
    QTest::newRow("the first keyword has no blank line before it")
        << lines({"@SCRIBON | x | FILLER_TXT"}) << QByteArray("@SCRIBON\nx\n");
    QTest::newRow("a later keyword has one")
        << lines({"@SCRIBON | x | FILLER_TXT", "@MODE | m | FILLER_TXT"})
        << QByteArray("@SCRIBON\nx\n\n@MODE\nm\n");
    QTest::newRow("a second value stands behind the first")
        << lines({"@RUNNING_AVERAGE | 1[sec] | ev"})
        << QByteArray("@RUNNING_AVERAGE\n1[sec]\t\tev\n");
    QTest::newRow("a keyword without values")
        << lines({"# c | FILLER_TXT | FILLER_TXT", "@FIFO_LOG_BUFFER | FILLER_TXT | FILLER_TXT"})
        << QByteArray("# c\n\n@FIFO_LOG_BUFFER\n");
    QTest::newRow("a keyword with an empty value")
        << lines({"@MODE | <empty> | FILLER_TXT"}) << QByteArray("@MODE\n");
    QTest::newRow("a keyword with an unset value")
        << lines({"@MODE | <unset> | <unset>"}) << QByteArray("@MODE\n");
    QTest::newRow("a comment has no blank line before it")
        << lines({"@MODE | m | FILLER_TXT", "# c | FILLER_TXT | FILLER_TXT"})
        << QByteArray("@MODE\nm\n# c\n");
    QTest::newRow("a commented-out keyword has one")
        << lines({"@MODE | m | FILLER_TXT", "#@GROUP g | FILLER_TXT | FILLER_TXT"})
        << QByteArray("@MODE\nm\n\n#@GROUP g\n");
    QTest::newRow("a commented-out keyword in the first row has one too")
        << lines({"#@GROUP | FILLER_TXT | FILLER_TXT"}) << QByteArray("\n#@GROUP\n");
    QTest::newRow("a number sign alone is a comment")
        << lines({"# | FILLER_TXT | FILLER_TXT"}) << QByteArray("#\n");
    QTest::newRow("an at sign alone is a keyword")
        << lines({"x | <unset> | <unset>", "@ | v | FILLER_TXT"}) << QByteArray("x\n\n@\nv\n");
    QTest::newRow("fillers alone are an empty line")
        << lines({"FILLER_TXT | FILLER_TXT | FILLER_TXT"}) << QByteArray("\n");
    QTest::newRow("an inserted row left empty is an empty line")
        << lines({"\\s | \\s | \\s"}) << QByteArray("\n");
    QTest::newRow("an unset row is an empty line")
        << lines({"<unset> | <unset> | <unset>"}) << QByteArray("\n");
}

void tst_RowWriting::valuesInOddPlaces_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("unknown text") << lines({"FILLER_TXT | stray | FILLER_TXT"})
                                  << QByteArray("stray\n");
    QTest::newRow("a value beside an inserted keyword cell has no tabs")
        << lines({"\\s | v | \\s"}) << QByteArray("v\n");
    QTest::newRow("a value in the keyword's place")
        << lines({"word | v | w"}) << QByteArray("wordv\n\t\tw\n");
    QTest::newRow("two fillers use up the line")
        << lines({"FILLER_TXT | FILLER_TXT | v"}) << QByteArray("\n\t\tv\n");
    QTest::newRow("an empty cell uses up nothing")
        << lines({"FILLER_TXT | <empty> | v"}) << QByteArray("\t\tv\n");
    QTest::newRow("three values are two lines")
        << lines({"a | b | c"}) << QByteArray("ab\n\t\tc\n");
    QTest::newRow("a value that begins as a keyword is a line of its own")
        << lines({"@MODE | @m | w"}) << QByteArray("@MODE\n@m\n\t\tw\n");
    QTest::newRow("in a later row with a blank line each")
        << lines({"# c | <unset> | <unset>", "@MODE | @m | FILLER_TXT"})
        << QByteArray("# c\n\n@MODE\n\n@m\n");
    QTest::newRow("a value that begins as a comment ends the row")
        << lines({"@MODE | # c | lost"}) << QByteArray("@MODE\n# c\n");
    QTest::newRow("a section keyword ends the row")
        << lines({"@META_DATA | lost | lost"}) << QByteArray("\n@META_DATA\n");
    QTest::newRow("a line's value behind a line of its own")
        << lines({"v | @MODE | w"}) << QByteArray("v@MODE\n\t\tw\n");
    QTest::newRow("a quoted text is written as it stands")
        << lines({"@DESCRIPTION | \"a\\n b\\tc\" | FILLER_TXT"})
        << QByteArray("@DESCRIPTION\n\"a\n b\tc\"\n");
    QTest::newRow("a filler within a text is a text")
        << lines({"@MODE | FILLER_TXTS | filler_txt"})
        << QByteArray("@MODE\nFILLER_TXTS\t\tfiller_txt\n");
    QTest::newRow("a filler with blanks is a filler")
        << lines({"@MODE | \\sFILLER_TXT\\s | v"}) << QByteArray("@MODE\n\t\tv\n");
}

void tst_RowWriting::scanList_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QByteArray>("text");

    const char* const keyword = "@SCAN_LIST | FILLER_TXT | FILLER_TXT | FILLER_TXT";
    QTest::newRow("a section in the first row has one blank line")
        << lines({keyword}) << QByteArray("\n@SCAN_LIST\n");
    QTest::newRow("a section in a later row has two")
        << lines({keyword, keyword}) << QByteArray("\n@SCAN_LIST\n\n\n@SCAN_LIST\n");
    QTest::newRow("three fields") << lines({keyword, "<unset> | a | .AV | c"})
                                  << QByteArray("\n@SCAN_LIST\na\t\t.AV\t\tc\n");
    QTest::newRow("a filler goes with its tabs")
        << lines({keyword, "<unset> | a | FILLER_TXT | c"}) << QByteArray("\n@SCAN_LIST\na\t\tc\n");
    QTest::newRow("so does an empty field")
        << lines({keyword, "<unset> | a | <empty> | c"}) << QByteArray("\n@SCAN_LIST\na\t\tc\n");
    QTest::newRow("and an unset one")
        << lines({keyword, "<unset> | a | <unset> | c"}) << QByteArray("\n@SCAN_LIST\na\t\tc\n");
    QTest::newRow("a variable alone") << lines({keyword, "<unset> | a | FILLER_TXT | FILLER_TXT"})
                                      << QByteArray("\n@SCAN_LIST\na\n");
    QTest::newRow("an entry without its variable begins with tabs")
        << lines({keyword, "<unset> | \\s | .AV | c"})
        << QByteArray("\n@SCAN_LIST\n\t\t.AV\t\tc\n");
    QTest::newRow("a comment ends its row")
        << lines({keyword, "<unset> | # c | lost | lost"}) << QByteArray("\n@SCAN_LIST\n# c\n");
    QTest::newRow("a comment in the last field is a line of its own")
        << lines({keyword, "<unset> | a | .AV | # c"}) << QByteArray("\n@SCAN_LIST\na\t\t.AV# c\n");
    QTest::newRow("a channel that begins as a keyword is a line of its own")
        << lines({keyword, "<unset> | a | .AV | @c"}) << QByteArray("\n@SCAN_LIST\na\t\t.AV\n@c\n");
    QTest::newRow("an inserted row left empty")
        << lines({keyword, "\\s | \\s | \\s | \\s"}) << QByteArray("\n@SCAN_LIST\n\n");
    QTest::newRow("values are counted anew behind a keyword")
        << lines({"FILLER_TXT | FILLER_TXT | @k | v"}) << QByteArray("@k\n\t\tv\n");
    QTest::newRow("a fourth value starts a line")
        << lines({keyword, "k | a | b | c"}) << QByteArray("\n@SCAN_LIST\nka\t\tb\n\t\tc\n");
}

void tst_RowWriting::otherLists_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("meta data") << lines({"@META_DATA | FILLER_TXT | FILLER_TXT",
                                         "<unset> | k | 'a b'", "<unset> | k | .AV"})
                               << QByteArray("\n@META_DATA\nk\t\t'a b'\nk\t\t.AV\n");
    QTest::newRow("aux user") << lines({"@SCAN_LIST_AUX_USER | FILLER_TXT | FILLER_TXT",
                                        "<unset> | a | FILLER_TXT", "<unset> | b | c"})
                              << QByteArray("\n@SCAN_LIST_AUX_USER\na\nb\t\tc\n");
    QTest::newRow("ECM list") << lines({"@ECM_LIST | FILLER_TXT | FILLER_TXT",
                                        "<unset> | 1 | /p:n:1", "<unset> | FILLER_TXT | /p"})
                              << QByteArray("\n@ECM_LIST\n1\t\t/p:n:1\n\t\t/p\n");
    QTest::newRow("a made-up section")
        << lines({"@ECM_LIST | <empty> | <empty>"}) << QByteArray("\n@ECM_LIST\n");
    QTest::newRow("a comment ends its row")
        << lines({"@META_DATA | FILLER_TXT | FILLER_TXT", "<unset> | # c | lost"})
        << QByteArray("\n@META_DATA\n# c\n");
    QTest::newRow("a commented-out row that begins as a keyword")
        << lines({"@META_DATA | FILLER_TXT | FILLER_TXT", "<unset> | #@k v | FILLER_TXT"})
        << QByteArray("\n@META_DATA\n\n#@k v\n");
}

// A keyword sets the maximum number of values for a line, up to the next keyword; it is two at
// first.
void tst_RowWriting::limitOfValuesAppliesToLaterRows()
{
    const auto model = modelOfRows(
        EDIT_TAB2, lines({"a | b | c | d", "@SCAN_LIST_AUX_USER", "a | b | c | d", "@ECM_LIST",
                          "a | b | c | d", "# no keyword", "@SCAN_LIST", "a | b | c | d"}));
    QCOMPARE(dumpOf(model.get()), QByteArray("ab\n\t\tc\t\td\n"
                                             "\n\n@SCAN_LIST_AUX_USER\n"
                                             "ab\t\tc\n\t\td\n"
                                             "\n\n@ECM_LIST\n"
                                             "ab\n\t\tc\t\td\n"
                                             "# no keyword\n"
                                             "\n\n@SCAN_LIST\n"
                                             "ab\t\tc\n\t\td\n"));
}

void tst_RowWriting::cellsAreTrimmedWhenWritten()
{
    const auto model =
        modelOfRows(EDIT_TAB1, lines({"\\s@MODE\\s | \\tm\\n | \\sw\\s", "\\s# c\\s | x | y"}));
    QCOMPARE(dumpOf(model.get()), QByteArray("@MODE\nm\t\tw\n# c\n"));
}

void tst_RowWriting::writingChangesNothing()
{
    const QStringList rows = lines({"\\s@MODE | m | \\s"});
    const auto model = modelOfRows(EDIT_TAB1, rows);
    dumpOf(model.get());
    QVERIFY(!model->isModified());
    QVERIFY(!model->isDirty());
    model->setModified();
    model->setDirty();
    dumpOf(model.get());
    QVERIFY(model->isModified());
    QVERIFY(model->isDirty());
    QCOMPARE(rowLines(*model), rows);
}

// The text has all edits since the load, valid or not.
void tst_RowWriting::writingIgnoresErrorCodes()
{
    const auto model = modelOfText("@SCRIBON x\n@SCAN_LIST\na .AV c\nd e\n", EDIT_TAB2);
    model->setData(model->index(1, 1), QStringLiteral("not ok!"));
    model->setErrorCode(model->index(1, 1), DE_SYNTAX_ERR);
    model->removeRows(2, 1);
    model->insertRows(2, 1);
    model->setData(model->index(2, 1), QStringLiteral("n"));
    QCOMPARE(dumpOf(model.get()), QByteArray("\n@SCAN_LIST\nnot ok!\t\t.AV\t\tc\nn\n"));
}

void tst_RowWriting::writingWorksWhileLoading()
{
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MODE | m | FILLER_TXT"}));
    LoadingFile = 1;
    const QByteArray text = dumpOf(model.get());
    LoadingFile = 0;
    QCOMPARE(text, QByteArray("@MODE\nm\n"));
}

void tst_RowWriting::appends()
{
    const QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("spec"));
    writeFile(name, "before");
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MODE | m | FILLER_TXT"}));
    QByteArray encoded = QFile::encodeName(name);
    model->dump_to_file(encoded.data());
    model->dump_to_file(encoded.data());
    QCOMPARE(contentOf(name), QByteArray("before@MODE\nm\n@MODE\nm\n"));
}

void tst_RowWriting::modelWithoutRowsKeepsTheFile()
{
    const QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("spec"));
    writeFile(name, "before");
    const auto model = modelOfRows(EDIT_TAB1, {});
    model->dump_to_file(QFile::encodeName(name).data());
    QCOMPARE(contentOf(name), QByteArray("before"));
}

void tst_RowWriting::createsTheFile()
{
    const QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("spec"));
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MODE | m | FILLER_TXT"}));
    model->dump_to_file(QFile::encodeName(name).data());
    QCOMPARE(contentOf(name), QByteArray("@MODE\nm\n"));
}

void tst_RowWriting::fileThatCannotBeOpened_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("a directory") << QByteArray("/tmp");
    QTest::newRow("below what is no directory") << QByteArray("/dev/null/spec");
    QTest::newRow("no name") << QByteArray("");
}

void tst_RowWriting::fileThatCannotBeOpened()
{
    QFETCH(QByteArray, name);
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MODE | m | FILLER_TXT"}));
    model->dump_to_file(name.data());
    QVERIFY(!model->isModified());
    QCOMPARE(model->rowCount(), 1);
}

// Reports nothing. The document in memory is unchanged.
void tst_RowWriting::fullDisk()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("there is no device that is always full");
    const QStringList rows = lines({"@MODE | m | FILLER_TXT"});
    const auto model = modelOfRows(EDIT_TAB1, rows);
    QByteArray name = "/dev/full";
    model->dump_to_file(name.data());
    QCOMPARE(rowLines(*model), rows);
    QCOMPARE(dumpOf(model.get()), QByteArray("@MODE\nm\n"));
}

void tst_RowWriting::fileNameWithABlank()
{
    const QTemporaryDir dir;
    const QByteArray name = QFile::encodeName(dir.path()) + "/with blank";
    const auto model = modelOfRows(EDIT_TAB1, lines({"@MODE | m | FILLER_TXT"}));
    model->dump_to_file(QByteArray(name).data());
    QCOMPARE(contentOf(QString::fromLocal8Bit(name)), QByteArray("@MODE\nm\n"));
}

// More than the size of any buffer.
void tst_RowWriting::manyRows()
{
    constexpr int COUNT = 20000;
    QStringList rows = lines({"@SCAN_LIST | FILLER_TXT | FILLER_TXT | FILLER_TXT"});
    QByteArray text = "\n@SCAN_LIST\n";
    for (int i = 0; i < COUNT; ++i) {
        rows.append(QStringLiteral("<unset> | v%1 | FILLER_TXT | c%1").arg(i));
        text += "v" + QByteArray::number(i) + "\t\tc" + QByteArray::number(i) + "\n";
    }
    const auto model = modelOfRows(EDIT_TAB2, rows);
    QVERIFY(dumpOf(model.get()) == text);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_RowWriting)
#include "tst_row_writing.moc"
