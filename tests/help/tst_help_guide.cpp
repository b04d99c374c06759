// Compares what the help says about a first spec file, about marks, refused files and a platform
// that has stopped with the program.

#include <QComboBox>
#include <QIcon>
#include <QRegularExpression>
#include <QtTest>

#include "asamspecs_select.h"
#include "help_collection.h"
#include "window_test.h"

namespace {

constexpr int VALUE = 1;
constexpr int CHANNEL = 3;

const auto NEW_FILE = QStringLiteral("/specs/scrib_idle");
const auto REFUSED_TITLE = QStringLiteral("Invalid scribon_specs file: ");

bool isWrong(const QModelIndex& index)
{
    return index.data(Qt::UserRole).toInt() > int{DE_NOERROR};
}

// The delegate paints the icon of an error beside every wrong cell that has no icon of its own.
bool hasErrorIcon(const QModelIndex& index)
{
    const QVariant decoration = index.data(Qt::DecorationRole);
    return isWrong(index) && !decoration.isNull() && !decoration.canConvert<QIcon>();
}

// The lines that are not empty, with each run of blanks and tabs as one blank.
QStringList wordsOf(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.simplified();
    lines.removeAll(QString());
    return lines;
}

}  // namespace

class tst_HelpGuide : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void listsOpenEmptyWithoutAPlatform();
    void placeholdersAreMarkedAsTheHelpSays();
    void firstFileIsAsTheHelpSays();
    void wrongCellsHaveIconsAsTheHelpSays_data();
    void wrongCellsHaveIconsAsTheHelpSays();
    void allOtherWrongCellsHaveIcons();
    void refusedFileLeavesRowsAsTheHelpSays();
    void messageNamesTheFileAsGiven();
    void fileAtTheStartIsOpened();
    void savingNothingIsAsTheHelpSays();
    void fileDialogOpensAtOnceWithoutEcmFiles();

private:
    HelpPage page(const char* name);
    QString textOf(const char* name) { return page(name).text; }
    void makeFirstFile();
    bool replace(int tab, const QString& before, const QString& after);
    void insertChannel(const QString& variable, const QString& channel);
    QWidget* openEditor(int tab, const QModelIndex& index);
    int errors();
    QModelIndexList wrongCellsWithoutIcon(int tab);

    HelpCollection m_help;
};

// Empty if the help cannot be opened.
HelpPage tst_HelpGuide::page(const char* name)
{
    return m_help.open() ? m_help.page(QLatin1String(name)) : HelpPage();
}

int tst_HelpGuide::errors()
{
    int count = 0;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        TreeModel* const model = modelOf(*m_window, tab);
        model->setDirty();
        model->validate_model();
        count += model->getErrorCount();
    }
    return count;
}

QWidget* tst_HelpGuide::openEditor(int tab, const QModelIndex& index)
{
    QTreeView* const view = viewOf(*m_window, tab);
    m_window->show();
    tabsOf(*m_window)->setCurrentIndex(tab);
    view->setCurrentIndex(index);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F2);
    return view->indexWidget(index);
}

// ---- Without a platform ------------------------------------------------------------------------

// The first of the functions: the program keeps the platform's keywords once it has them.
void tst_HelpGuide::listsOpenEmptyWithoutAPlatform()
{
    QVERIFY(textOf("troubleshooting.htm")
                .contains(QStringLiteral(
                    "opens empty, unless you opened one before the platform stopped. Leaving the "
                    "empty list leaves the cell as it was. You can still type a keyword.")));
    loadGoodFile();
    QVERIFY(m_desk.kill());
    const QModelIndex index = modelOf(*m_window, DE_TAB2)->index(1, CHANNEL);
    const QString before = index.data().toString();
    auto* const list = qobject_cast<QComboBox*>(openEditor(DE_TAB2, index));
    QVERIFY(list != nullptr);
    QCOMPARE(list->count(), 0);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(index.data().toString(), before);
    QTest::keyClicks(openEditor(DE_TAB2, index), QStringLiteral("TYPED"));
    QTest::keyClick(viewOf(*m_window, DE_TAB2)->indexWidget(index), Qt::Key_Return);
    QCOMPARE(index.data().toString(), QStringLiteral("TYPED"));
    QVERIFY(
        m_desk.start(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json")));
}

// ---- The first spec file -----------------------------------------------------------------------

void tst_HelpGuide::makeFirstFile()
{
    m_dialogs->chooseFile(NEW_FILE);
    actionOf(*m_window, "action_New")->trigger();
    QCOMPARE(titleOf(*m_window), NEW_FILE);
    const QStringList made = wordsOf(QString::fromUtf8(readFile(NEW_FILE)));
    QCOMPARE(wordsOf(page("first_file.htm").examples).mid(0, made.size()), made);
}

// Each placeholder stands in a row of the table of the page, which says whether it is marked.
void tst_HelpGuide::placeholdersAreMarkedAsTheHelpSays()
{
    makeFirstFile();
    QCOMPARE(errors(), 1);
    const QString text = textOf("first_file.htm");
    const TreeModel& keywords = *modelOf(*m_window, DE_TAB1);
    int strings = 0;
    for (int row = 0; row < keywords.rowCount(); ++row) {
        const QModelIndex value = keywords.index(row, VALUE);
        strings += value.data() == QLatin1String("marvane_str_var") ? 1 : 0;
        QVERIFY2(text.contains(QRegularExpression(
                     QStringLiteral("Keywords %1(, five times)? %2 ")
                         .arg(QRegularExpression::escape(value.data().toString()),
                              isWrong(value) ? QStringLiteral("yes") : QStringLiteral("no")))),
                 qPrintable(value.data().toString()));
    }
    QCOMPARE(strings, 5);
    for (const char* const row : {"Scan List dummy_var no", "Scan List dummy_chan no",
                                  "Meta Data List dummy_pam no", "Meta Data List dummy_var no"})
        QVERIFY2(text.contains(QLatin1String(row)), row);
    QCOMPARE(rowTexts(*modelOf(*m_window, DE_TAB2), 1).mid(1),
             (QStringList{QStringLiteral("dummy_var"), QStringLiteral("FILLER_TXT"),
                          QStringLiteral("dummy_chan")}));
    QCOMPARE(rowTexts(*modelOf(*m_window, DE_TAB3), 1).mid(1, 2),
             (QStringList{QStringLiteral("dummy_pam"), QStringLiteral("dummy_var")}));
}

// Replaces the first cell of this text. False if there is none.
bool tst_HelpGuide::replace(int tab, const QString& before, const QString& after)
{
    const TreeModel& model = *modelOf(*m_window, tab);
    for (int row = 0; row < model.rowCount(); ++row) {
        const int column = rowTexts(model, row).indexOf(before);
        if (column < 0)
            continue;
        edit(tab, row, column, after);
        return true;
    }
    return false;
}

void tst_HelpGuide::insertChannel(const QString& variable, const QString& channel)
{
    tabsOf(*m_window)->setCurrentIndex(DE_TAB2);
    const int last = modelOf(*m_window, DE_TAB2)->rowCount() - 1;
    goTo(viewOf(*m_window, DE_TAB2), last, 1);
    actionOf(*m_window, "insertRowAction")->trigger();
    edit(DE_TAB2, last + 1, 1, variable);
    edit(DE_TAB2, last + 1, CHANNEL, channel);
}

void tst_HelpGuide::firstFileIsAsTheHelpSays()
{
    makeFirstFile();
    const QString strings = QStringLiteral("marvane_str_var");
    const QVector<std::tuple<int, QString, QString>> replacements{
        {DE_TAB1, QStringLiteral("<new_scribon>"), QStringLiteral("idle_watch")},
        {DE_TAB1, QStringLiteral("'This is a description of my test'"),
         QStringLiteral("'Oil, coolant and speed at idle'")},
        {DE_TAB1, strings, QStringLiteral("test_group")},
        {DE_TAB1, strings, QStringLiteral("test_mode_name")},
        {DE_TAB1, strings, QStringLiteral("test_program")},
        {DE_TAB1, strings, QStringLiteral("test_id")},
        {DE_TAB1, strings, QStringLiteral("test_type")},
        {DE_TAB1, QStringLiteral("1[sec]"), QStringLiteral("500[msec]")},
        {DE_TAB2, QStringLiteral("dummy_var"), QStringLiteral("oil_temp")},
        {DE_TAB2, QStringLiteral("dummy_chan"), QStringLiteral("T_OIL")},
        {DE_TAB3, QStringLiteral("dummy_pam"), QStringLiteral("OPERATOR")},
        {DE_TAB3, QStringLiteral("dummy_var"), QStringLiteral("operator_name")}};
    for (const auto& [tab, before, after] : replacements) {
        QVERIFY2(textOf("first_file.htm").contains(after), qPrintable(after));
        QVERIFY2(replace(tab, before, after), qPrintable(before));
    }
    insertChannel(QStringLiteral("coolant_temp_out"), QStringLiteral("T_COOL_OUT"));
    insertChannel(QStringLiteral("eng_speed"), QStringLiteral("N_ENG"));
    QCOMPARE(errors(), 0);
    actionOf(*m_window, "actionSave")->trigger();
    const QStringList saved = wordsOf(QString::fromUtf8(readFile(NEW_FILE)));
    const QStringList examples = wordsOf(page("first_file.htm").examples);
    QCOMPARE(saved, examples.mid(examples.size() - saved.size()));
}

// ---- Marks -------------------------------------------------------------------------------------

// The cells of a tab that count as wrong and have no icon.
QModelIndexList tst_HelpGuide::wrongCellsWithoutIcon(int tab)
{
    QModelIndexList cells;
    const TreeModel& model = *modelOf(*m_window, tab);
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex cell = model.index(row, column);
            if (isWrong(cell) && !hasErrorIcon(cell))
                cells.append(cell);
        }
    }
    return cells;
}

void tst_HelpGuide::wrongCellsHaveIconsAsTheHelpSays_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("statements");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("said");
    const auto channel =
        QStringLiteral("a channel keyword of the Scan List whose variable is right");
    QTest::newRow("a channel keyword") << int{DE_TAB2} << QByteArray("@SCAN_LIST\noil_temp P-OIL\n")
                                       << CHANNEL << QStringLiteral("P-OIL") << channel;
    QTest::newRow("no channel keyword") << int{DE_TAB2} << QByteArray("@SCAN_LIST\noil_temp\n")
                                        << CHANNEL << QStringLiteral("FILLER_TXT") << channel;
    QTest::newRow("an unknown keyword") << int{DE_TAB1} << QByteArray("@OPERATOR smith\n") << VALUE
                                        << QString() << QStringLiteral("the row UNKNOWN_KEYWORD");
    QTest::newRow("no variable") << int{DE_TAB3} << QByteArray("@META_DATA\nENGINE\n") << 2
                                 << QString()
                                 << QStringLiteral(
                                        "the variable of the last row of the Meta Data List");
}

void tst_HelpGuide::wrongCellsHaveIconsAsTheHelpSays()
{
    QFETCH(int, tab);
    QFETCH(QByteArray, statements);
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, said);
    QVERIFY(textOf("wrong_cells.htm").contains(said));
    loadGoodFile("@SCRIBON x\n" + statements);
    QCOMPARE(errors(), 1);
    const QModelIndexList cells = wrongCellsWithoutIcon(tab);
    QCOMPARE(cells.size(), 1);
    QCOMPARE(cells.first().column(), column);
    QCOMPARE(cells.first().data().toString(), text);
}

void tst_HelpGuide::allOtherWrongCellsHaveIcons()
{
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_broken"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    loadGoodFile(file.readAll());
    QVERIFY(errors() > 20);
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        for (const QModelIndex& cell : wrongCellsWithoutIcon(tab)) {
            const bool channel = tab == DE_TAB2 && cell.column() == CHANNEL;
            QVERIFY2(
                channel || cell.siblingAtColumn(0).data() == QLatin1String("UNKNOWN_KEYWORD"),
                qPrintable(rowTexts(*modelOf(*m_window, tab), cell.row()).join(QLatin1Char('|'))));
        }
    }
}

// ---- Opening and saving ------------------------------------------------------------------------

void tst_HelpGuide::refusedFileLeavesRowsAsTheHelpSays()
{
    QVERIFY(textOf("troubleshooting.htm")
                .contains(QStringLiteral("Its rows and its error counts stay in the window, but "
                                         "you can neither edit nor save them.")));
    failOverLoadedDocument();
    QCOMPARE(titleOf(*m_window), REFUSED_TITLE + QStringLiteral("/specs/bad"));
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const QTreeView* const view = viewOf(*m_window, tab);
        QVERIFY(view->model()->rowCount() > 0);
        QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    }
    const QByteArray before = readFile(QStringLiteral("/specs/good"));
    m_dialogs->answerBox(QMessageBox::Ok);
    actionOf(*m_window, "actionSave")->trigger();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(m_dialogs->boxes.first().text.startsWith(QLatin1String("Nothing Loaded cannot save")));
    QCOMPARE(readFile(QStringLiteral("/specs/good")), before);
}

void tst_HelpGuide::messageNamesTheFileAsGiven()
{
    QVERIFY(textOf("troubleshooting.htm")
                .contains(QStringLiteral("The message names the file as you named it")));
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(QStringLiteral("no_such_file"), false);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(m_dialogs->boxes.first().text.startsWith(
        QLatin1String("Cannot read file no_such_file:\n")));
}

void tst_HelpGuide::fileAtTheStartIsOpened()
{
    const auto scratch = QStringLiteral("/tmp/untitled.txt");
    QVERIFY(
        textOf("files.htm")
            .contains(QStringLiteral("At its start the editor opens %1, if there is such a file")
                          .arg(scratch)));
    QVERIFY(writeFile(scratch, goodSpec()));
    m_window = std::make_unique<MainWindow>(nullptr);
    QCOMPARE(titleOf(*m_window), scratch);
    m_dialogs->answerBox(QMessageBox::Ok);
    m_window->loadFile(QStringLiteral("no_such_file"), false);
    QCOMPARE(titleOf(*m_window), scratch);
}

void tst_HelpGuide::savingNothingIsAsTheHelpSays()
{
    QVERIFY(textOf("troubleshooting.htm")
                .contains(QStringLiteral("While the title says \"Empty File\", only Save As shows "
                                         "this message; Save does nothing.")));
    QCOMPARE(titleOf(*m_window), QStringLiteral("Empty File"));
    actionOf(*m_window, "actionSave")->trigger();
    QCOMPARE(m_dialogs->boxes.size(), 0);
    m_dialogs->answerBox(QMessageBox::Ok);
    actionOf(*m_window, "actionSave_As")->trigger();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(m_dialogs->boxes.first().text.startsWith(QLatin1String("Nothing Loaded cannot save")));
}

void tst_HelpGuide::fileDialogOpensAtOnceWithoutEcmFiles()
{
    QVERIFY(textOf("editor_ecm.htm")
                .contains(QStringLiteral("the file dialog opens at once, before the dialog "
                                         "itself. Choose a file, or press Cancel to get to the "
                                         "dialog.")));
    loadGoodFile(goodSpec());
    tabsOf(*m_window)->setCurrentIndex(DE_TAB5);
    goTo(viewOf(*m_window, DE_TAB5), 1, 1);
    actionOf(*m_window, "insertRowAction")->trigger();
    m_dialogs->cancel();
    auto* const dialog = qobject_cast<asamspecs_select*>(
        openEditor(DE_TAB5, modelOf(*m_window, DE_TAB5)->index(2, 2)));
    QVERIFY(dialog != nullptr);
    QCOMPARE(m_dialogs->fileDialogs.size(), 1);
    QVERIFY(dialog->isVisible());
    dialog->reject();
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_HelpGuide)
#include "tst_help_guide.moc"
