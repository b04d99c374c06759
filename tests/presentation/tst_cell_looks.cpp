// Colours, arrows and tool tips of the cells of a loaded file.

#include <QIcon>
#include <QtTest>
#include <array>

#include "window_test.h"

namespace {

// Rows as the models count them: row 0 of a list is the section's keyword.
QByteArray spec()
{
    return "@SCRIBON\ncell\n"
           "# a comment\n"
           "@SCAN_INTERVAL\n1[sec]\n"
           "@ENABLE\nmy_var\n"
           "@LOG_STATISTICS\nyes\n"
           "@OUTPUT_PATH\n/a//b\n"
           "@MAX_SCANS\n12\n"
           "@MAX_SCANS\n13\n"
           "@RUNNING_AVERAGE\n30[sec] a.b\n"
           "@DESCRIPTION\nno_quotes\n"
           "@GROUP\ng\n"
           "@SCAN_LIST\neng_speed .AV N\noil_temp T\n# note\n1bad .AV M\noil_press N\n"
           "@META_DATA\nBORE bore\nBORE 'x'\nA-B c\n"
           "@SCAN_LIST_AUX_USER\nv name\nw name\n"
           "@ECM_LIST\n1 /a:b:1\n1 /a:b:1\n# c\n";
}

enum KeywordRow {
    SCRIBON,
    COMMENT,
    INTERVAL,
    ENABLE,
    STATISTICS,
    PATH,
    SCANS,
    SCANS_AGAIN,
    AVERAGE,
    DESCRIPTION,
    GROUP
};

// The columns with an arrow icon. The decoration of the others is their text.
QVector<int> arrowsOf(const TreeModel& model, int row)
{
    QVector<int> shown;
    for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex index = model.index(row, column);
        const QVariant decoration = index.data(Qt::DecorationRole);
        if (decoration.userType() == QMetaType::QIcon &&
            !decoration.value<QIcon>().availableSizes().isEmpty())
            shown.append(column);
        else if (decoration != index.data(Qt::EditRole))
            shown.append(-1);
    }
    return shown;
}

}  // namespace

class TestCellLooks : public WindowTest {
    Q_OBJECT

public:
    TestCellLooks() { Q_INIT_RESOURCE(scriboneditor); }

private Q_SLOTS:
    void showsArrows_data();
    void showsArrows();
    void colours_data();
    void colours();
    void toolTips_data();
    void toolTips();
    void toolTipOfEveryErrorCode_data();
    void toolTipOfEveryErrorCode();
    void toolTipsAndArrowsDependOnTheModelsName_data();
    void toolTipsAndArrowsDependOnTheModelsName();
    void modelWithAnotherNameHasNoToolTipsAndArrows_data();
    void modelWithAnotherNameHasNoToolTipsAndArrows();
    void blanksBehindAKeywordDoNotHideItsHelp();
    void missingToolTipsAreCached();
    void noToolTipsWhileLoading();
    void fontBackgroundAndAlignmentAreNotSet();
    void noErrorCodeBeforeTheFirstValidation();

private:
    QVariant cell(int tab, int row, int column, int role);
};

QVariant TestCellLooks::cell(int tab, int row, int column, int role)
{
    loadGoodFile(spec());
    m_window->readSettings();
    return modelOf(*m_window, tab)->index(row, column).data(role);
}

void TestCellLooks::showsArrows_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<QVector<int>>("columns");
    QTest::newRow("a keyword that opens no value list") << 0 << int(SCRIBON) << QVector<int>{0};
    QTest::newRow("a comment") << 0 << int(COMMENT) << QVector<int>{};
    QTest::newRow("a scan interval") << 0 << int(INTERVAL) << QVector<int>{0};
    QTest::newRow("a logical variable") << 0 << int(ENABLE) << QVector<int>{0, 1};
    QTest::newRow("yes or no") << 0 << int(STATISTICS) << QVector<int>{0, 1};
    QTest::newRow("a wrong path") << 0 << int(PATH) << QVector<int>{0};
    QTest::newRow("a repeated keyword") << 0 << int(SCANS_AGAIN) << QVector<int>{};
    QTest::newRow("a string variable") << 0 << int(GROUP) << QVector<int>{0, 1};
    QTest::newRow("a scan list entry with a member") << 1 << 1 << QVector<int>{1, 2, 3};
    QTest::newRow("a scan list entry without a member") << 1 << 2 << QVector<int>{1, 3};
    QTest::newRow("a comment on the scan list") << 1 << 3 << QVector<int>{};
    QTest::newRow("a wrong variable on the scan list") << 1 << 4 << QVector<int>{};
    QTest::newRow("a repeated channel keeps its arrow") << 1 << 5 << QVector<int>{1, 3};
    QTest::newRow("a meta data entry") << 2 << 1 << QVector<int>{1, 2};
    QTest::newRow("a repeated parameter") << 2 << 2 << QVector<int>{2};
    QTest::newRow("an alternate name") << 3 << 1 << QVector<int>{1};
    QTest::newRow("an ECM list entry") << 4 << 1 << QVector<int>{2};
    QTest::newRow("a repeated path") << 4 << 2 << QVector<int>{};
    QTest::newRow("a comment on the ECM list") << 4 << 3 << QVector<int>{};
}

void TestCellLooks::showsArrows()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(QVector<int>, columns);
    loadGoodFile(spec());
    QCOMPARE(arrowsOf(*modelOf(*m_window, tab), row), columns);
}

void TestCellLooks::colours_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QColor>("colour");
    const QColor red(Qt::red);
    const QColor black(Qt::black);
    QTest::newRow("a good keyword") << 0 << int(SCRIBON) << 0 << black;
    QTest::newRow("a good value") << 0 << int(SCRIBON) << 1 << black;
    QTest::newRow("a field that does not apply") << 0 << int(SCRIBON) << 2 << red;
    QTest::newRow("a wrong value") << 0 << int(PATH) << 1 << red;
    QTest::newRow("a repeated keyword") << 0 << int(SCANS_AGAIN) << 0 << red;
    QTest::newRow("a cell that is never judged") << 1 << 1 << 0 << black;
    QTest::newRow("a repeated channel") << 1 << 5 << 3 << red;
}

void TestCellLooks::colours()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QTEST(cell(tab, row, column, Qt::ForegroundRole).value<QColor>(), "colour");
}

void TestCellLooks::toolTips_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("tip");
    const auto add = [](const char* name, int tab, int row, int column, const char* tip) {
        QTest::newRow(name) << tab << row << column << QString::fromLatin1(tip);
    };
    add("help on a keyword", 0, INTERVAL, 0, "The time between lines of data in the output file.");
    add("help on a repeated keyword", 0, SCANS_AGAIN, 0,
        "The maximum number of samples in a sampling session.\n<< Duplicate entry found! >>");
    add("no help on a comment", 0, COMMENT, 0, "");
    add("a good interval", 0, INTERVAL, 1, "Scan Interval");
    add("a good logical variable", 0, ENABLE, 1, "Select a logical name");
    add("a wrong path", 0, PATH, 1,
        "Enter the directory path\n<< Syntax Error! <<Invalid chars in directory path>>");
    add("the interval of an average", 0, AVERAGE, 1,
        "Enter a time interval with units\n Example: 10[msec]");
    add("a wrong event of an average", 0, AVERAGE, 2,
        "Enter a event name\n<< Syntax Error! \nInvalid chars in event name>>");
    add("a description without quotes", 0, DESCRIPTION, 1,
        "Enter a computed expression\n<< Syntax Error! \n Computed expression must begin and end "
        "with double-quotes or single-quotes >>\n\nExamples:\n '/data/testfile.dat' \n "
        "\"'Brenno_sim_test' + '.'+ @year_month_day() + '.csv'\" ");
    add("a value without a tip", 0, SCANS, 1, "");
    add("a variable", 1, 1, 1, "Click to select a Marvane Variable");
    add("a wrong variable", 1, 4, 1,
        "Click to select a Marvane Variable\n<< Syntax Error! \nInvalid chars in variable name>>");
    add("a member", 1, 1, 2, "Click to select a statistical member");
    add("a repeated channel", 1, 5, 3,
        "Click to select a Channel Keyword\n<<  Duplicate Channel >>");
    add("a repeated parameter", 2, 2, 1,
        "Click to select a PAM keyword\n<<  Duplicate keyword found!  >>");
    add("a wrong parameter", 2, 3, 1,
        "Click to select a PAM keyword\n<< Syntax Error! \n Invalid chars in PAM keyword>>");
    add("a meta data value", 2, 1, 2, "Click to select a Marvane variable");
    add("an aux user variable", 3, 1, 1, "Click to select a Marvane variable");
    add("a repeated alternate name", 3, 2, 2,
        "Click to enter or modify a alternate name\n<<  Duplicate alternate name>>");
    add("a repeated instance", 4, 2, 1,
        "Click to enter ECM instance\n<< \nDuplicate ECM instance >>");
    add("a repeated path", 4, 2, 2, "Click to Select ASAM3_specs path\n<< \nDuplicate path >>");
}

void TestCellLooks::toolTips()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QTEST(cell(tab, row, column, Qt::ToolTipRole).toString(), "tip");
}

namespace {

// A row for each kind of keyword with tool tips of its own, and one for a kind without.
const QByteArray KINDS =
    "@SCRIBON\ncell\n"
    "@DESCRIPTION\n'd'\n@OUTPUT_PATH\n/a\n@START_EVENT\ne\n@SCAN_INTERVAL\n1[sec]\n"
    "@ENABLE\nv\n@GROUP\ng\n@RUNNING_AVERAGE\n30[sec] e\n@MAX_SCANS\n1\n"
    "@SCAN_LIST\nv .AV N\n@META_DATA\nBORE bore\n@SCAN_LIST_AUX_USER\nv name\n"
    "@ECM_LIST\n1 /a:b:1\n";

// The tool tip of a valid cell, and what is added for a wrong and for a repeated one.
struct CellTips {
    const char* name;
    int tab;
    int row;
    int firstColumn;
    int lastColumn;
    const char* good;
    const char* wrong;
    const char* repeated;
};

// clang-format off
constexpr std::array<CellTips, 24> CELL_TIPS{{
    {"keyword", 0, 0, 0, 0, "Keyword to show that this is a scribon spec file.",
     "\nInvalid keyword found! >>", "\n<< Duplicate entry found! >>"},
    {"other keyword", 0, 8, 0, 0, "The maximum number of samples in a sampling session.",
     "\nInvalid keyword found! >>", "\n<< Duplicate entry found! >>"},
    {"section keyword", 1, 0, 0, 0, "This is the list of variables that are to be sampled.",
     "\nInvalid keyword found! >>", "\n<< Duplicate entry found! >>"},
    {"entry's unset cell", 1, 1, 0, 0, "", "\n<< Syntax Error! ", "\n<< "},
    {"kind without a tip", 0, 0, 1, 2, "", "\n<< Syntax Error! ", "\n<< "},
    {"number", 0, 8, 1, 2, "", "\n<< Syntax Error! ", "\n<< "},
    {"description", 0, 1, 1, 2, "Enter a computed expression",
     "\n<< Syntax Error! \n Computed expression must begin and end with double-quotes or single-quotes >>"
     "\n\nExamples:\n '/data/testfile.dat' \n \"'Brenno_sim_test' + '.'+ @year_month_day() + '.csv'\" ", "\n<< "},
    {"path", 0, 2, 1, 2, "Enter the directory path",
     "\n<< Syntax Error! <<Invalid chars in directory path>>", "\n<< "},
    {"event", 0, 3, 1, 2, "Enter a event name",
     "\n<< Syntax Error! << Invalid chars in event name\nValid chars: A-Z,a-z,_,0-9: Max Length 32>>", "\n<< "},
    {"interval", 0, 4, 1, 2, "Scan Interval",
     "\n<< Syntax Error! \nInvalid Scan Interval or Integer variable>>", "\n<< "},
    {"logical variable", 0, 5, 1, 2, "Select a logical name",
     "\n<< Syntax Error! \nInvalid chars in variable name>>", "\n<< "},
    {"string variable", 0, 6, 1, 2, "Select a string variable",
     "\n<< Syntax Error! \nInvalid chars in variable name>>", "\n<< "},
    {"width of an average", 0, 7, 1, 1, "Enter a time interval with units\n Example: 10[msec]",
     "\n<< Syntax Error! \nInvalid chars in variable name >>", "\n<< "},
    {"event of an average", 0, 7, 2, 2, "Enter a event name",
     "\n<< Syntax Error! \nInvalid chars in event name>>", "\n<< "},
    {"scanned variable", 1, 1, 1, 1, "Click to select a Marvane Variable",
     "\n<< Syntax Error! \nInvalid chars in variable name>>", "\n<< "},
    {"member", 1, 1, 2, 2, "Click to select a statistical member",
     "\n<< Syntax Error! \nInvalid statistical member>>", "\n<< "},
    {"channel", 1, 1, 3, 3, "Click to select a Channel Keyword",
     "\n<< Syntax Error! \n Invalid chars in keyword>>", "\n<<  Duplicate Channel >>"},
    {"parameter", 2, 1, 1, 1, "Click to select a PAM keyword",
     "\n<< Syntax Error! \n Invalid chars in PAM keyword>>", "\n<<  Duplicate keyword found!  >>"},
    {"meta data value", 2, 1, 2, 2, "Click to select a Marvane variable",
     "\n<< Syntax Error! \nInvalid chars in variable name>>", "\n<< "},
    {"aux user variable", 3, 1, 1, 1, "Click to select a Marvane variable",
     "\n<< Syntax Error! \nInvalid chars in variable name >>", "\n<< "},
    {"alternate name", 3, 1, 2, 2, "Click to enter or modify a alternate name",
     "\n<< Syntax Error! \nInvalid chars in variable name>>", "\n<<  Duplicate alternate name>>"},
    {"ECM instance", 4, 1, 1, 1, "Click to enter ECM instance",
     "\n<< Syntax Error! \nInvalid chars in ECM instance >>", "\n<< \nDuplicate ECM instance >>"},
    {"ECM path", 4, 1, 2, 2, "Click to Select ASAM3_specs path",
     "\n<< Syntax Error! \nInvalid chars in path>>", "\n<< \nDuplicate path >>"},
    {"cells of another section keyword", 4, 0, 1, 1, "Click to enter ECM instance",
     "\n<< Syntax Error! \nInvalid chars in ECM instance >>", "\n<< \nDuplicate ECM instance >>"},
}};
// clang-format on

QString tipFor(const CellTips& cell, int code)
{
    const char* const addition = code == 1 ? cell.wrong : code == 2 ? cell.repeated : "";
    return QString::fromLatin1(cell.good) + QString::fromLatin1(addition);
}

}  // namespace

void TestCellLooks::toolTipOfEveryErrorCode_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("tip");
    for (const CellTips& cell : CELL_TIPS) {
        for (int column = cell.firstColumn; column <= cell.lastColumn; ++column) {
            for (int code = -1; code <= 3; ++code)
                QTest::addRow("%s, column %d, code %d", cell.name, column, code)
                    << cell.tab << cell.row << column << code << tipFor(cell, code);
        }
    }
}

// Without a text there is no tool tip.
void TestCellLooks::toolTipOfEveryErrorCode()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, code);
    QFETCH(QString, tip);
    loadGoodFile(KINDS);
    const TreeModel* const model = modelOf(*m_window, tab);
    const QModelIndex index = model->index(row, column);
    QVERIFY(model->setErrorCode(index, code));
    QCOMPARE(index.data(Qt::ToolTipRole), tip.isEmpty() ? QVariant() : tip);
}

void TestCellLooks::toolTipsAndArrowsDependOnTheModelsName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QVector<int>>("arrows");
    QTest::newRow("scan list") << "Model14"
                               << "Click to select a statistical member" << QVector<int>{1, 2, 3};
    QTest::newRow("meta data") << "Model15"
                               << "Click to select a Marvane variable" << QVector<int>{1, 2};
    QTest::newRow("aux user") << "Model16"
                              << "Click to enter or modify a alternate name" << QVector<int>{1};
    QTest::newRow("ECM list") << "Model17"
                              << "Click to Select ASAM3_specs path" << QVector<int>{2};
    QTest::newRow("keywords") << "Model13" << QString() << QVector<int>{0};
}

void TestCellLooks::toolTipsAndArrowsDependOnTheModelsName()
{
    QFETCH(QString, name);
    loadGoodFile(KINDS);
    TreeModel* const model = modelOf(*m_window, 1);
    model->setObjectName(name);
    QTEST(model->index(1, 2).data(Qt::ToolTipRole).toString(), "tip");
    QTEST(arrowsOf(*model, 1), "arrows");
}

void TestCellLooks::modelWithAnotherNameHasNoToolTipsAndArrows_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name : {"", "Model12", "Model18", "Model130", "Model1", "model13"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestCellLooks::modelWithAnotherNameHasNoToolTipsAndArrows()
{
    QFETCH(QString, name);
    loadGoodFile(KINDS);
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        TreeModel* const model = modelOf(*m_window, tab);
        model->setObjectName(name);
        for (int row = 0; row < model->rowCount(); ++row) {
            QCOMPARE(arrowsOf(*model, row), QVector<int>());
            for (int column = 0; column < model->columnCount(); ++column) {
                QVERIFY(model->setErrorCode(model->index(row, column), DE_SYNTAX_ERR));
                QVERIFY(!model->index(row, column).data(Qt::ToolTipRole).isValid());
            }
        }
    }
}

void TestCellLooks::blanksBehindAKeywordDoNotHideItsHelp()
{
    loadGoodFile(spec());
    TreeModel* const model = modelOf(*m_window, 0);
    const QModelIndex keyword = model->index(GROUP, 0);
    const QVariant help = keyword.data(Qt::ToolTipRole);
    QVERIFY(!help.toString().isEmpty());
    QVERIFY(model->setData(keyword, QStringLiteral("@GROUP ")));
    QCOMPARE(keyword.data(Qt::ToolTipRole), help);
}

void TestCellLooks::missingToolTipsAreCached()
{
    const int before = m_window->hash.size();
    QCOMPARE(cell(0, COMMENT, 0, Qt::ToolTipRole), QVariant(QString()));
    QCOMPARE(m_window->hash.size(), before + 1);
    QVERIFY(m_window->hash.contains(QStringLiteral("# a comment")));
}

void TestCellLooks::noToolTipsWhileLoading()
{
    loadGoodFile(spec());
    LoadingFile = 1;
    for (const int role : {Qt::DisplayRole, Qt::EditRole, Qt::UserRole, Qt::ForegroundRole,
                           Qt::DecorationRole, Qt::ToolTipRole})
        QVERIFY(!modelOf(*m_window, 0)->index(0, 0).data(role).isValid());
}

void TestCellLooks::fontBackgroundAndAlignmentAreNotSet()
{
    for (const int role : {Qt::FontRole, Qt::BackgroundRole, Qt::TextAlignmentRole})
        QVERIFY(!cell(0, SCRIBON, 0, role).isValid());
}

void TestCellLooks::noErrorCodeBeforeTheFirstValidation()
{
    QVERIFY(!cell(1, 0, 1, Qt::UserRole).isValid());
    QCOMPARE(cell(1, 1, 1, Qt::UserRole), QVariant(int(DE_NOERROR)));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestCellLooks)
#include "tst_cell_looks.moc"
