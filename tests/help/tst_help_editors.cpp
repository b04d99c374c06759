// Compares what the help says about the editors with the editors.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

#include "golden_keywords.h"
#include "help_collection.h"
#include "variableselectiondialog.h"
#include "window_test.h"

namespace {

constexpr int KEYWORD = 0;
constexpr int VALUE = 1;
constexpr int FIRST_LIST_ROW = 1;  // row 0 is the section's keyword
constexpr int FIRST_LIST_COLUMN = 1;

// The page about the editor, with an anchor for the variants of the dialog; empty if there is none.
QString editorPage(const QWidget* editor)
{
    const QHash<QString, QString> pages{
        {QStringLiteral("QSpinBox"), QStringLiteral("editor_number.htm")},
        {QStringLiteral("QLineEdit"), QStringLiteral("editor_text.htm")},
        {QStringLiteral("QComboBox"), QStringLiteral("editor_yes_no.htm")},
        {QStringLiteral("VariableSelectionDialog"), QStringLiteral("editor_variable.htm")}};
    return editor == nullptr ? QString()
                             : pages.value(QString::fromLatin1(editor->metaObject()->className()));
}

QString dialogVariant(const QWidget* editor)
{
    const auto* const label = editor == nullptr
                                  ? nullptr
                                  : editor->findChild<QLabel*>(QStringLiteral("interval_or_path"));
    return label == nullptr || label->text().isEmpty()
               ? QString()
               : QStringLiteral("(-an?-%1)").arg(label->text().toLower());
}

}  // namespace

class tst_HelpEditors : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void keywordPagesNameTheEditorThatOpens_data();
    void keywordPagesNameTheEditorThatOpens();
    void linesAcceptWhatTheHelpSays_data();
    void linesAcceptWhatTheHelpSays();
    void numbersHaveTheLimitsThatTheHelpSays();
    void commentRowsOpenWhatTheHelpSays_data();
    void commentRowsOpenWhatTheHelpSays();
    void listsTakeOverTheirFirstEntryAsTheHelpSays_data();
    void listsTakeOverTheirFirstEntryAsTheHelpSays();
    void dialogsReplaceCommentsAsTheHelpSays_data();
    void dialogsReplaceCommentsAsTheHelpSays();
    void commentIsTypedIntoTheListAsTheHelpSays();
    void literalsAreJudgedAsTheHelpSays_data();
    void literalsAreJudgedAsTheHelpSays();

private:
    void loadFullExample();
    void showComments();
    QWidget* openEditor(const QModelIndex& index);
    void leaveEditor(const QModelIndex& index);
    QString textOfPage(const char* page);
    QModelIndex valueOf(const QString& keyword);
    int codeAfterTyping(const QString& keyword, const QString& text);

    HelpCollection m_help;
};

void tst_HelpEditors::loadFullExample()
{
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_full"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    loadGoodFile(file.readAll());
    QVERIFY(m_help.open());
}

QModelIndex tst_HelpEditors::valueOf(const QString& keyword)
{
    const TreeModel& model = *modelOf(*m_window, DE_TAB1);
    return model.index(columnTexts(model, KEYWORD).indexOf(keyword), VALUE);
}

void tst_HelpEditors::keywordPagesNameTheEditorThatOpens_data()
{
    QTest::addColumn<QString>("keyword");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (isStatement(keyword))
            QTest::newRow(keyword.spelling) << QString::fromLatin1(keyword.spelling);
    }
}

void tst_HelpEditors::keywordPagesNameTheEditorThatOpens()
{
    QFETCH(QString, keyword);
    loadFullExample();
    const QModelIndex index = valueOf(keyword);
    QVERIFY(index.isValid());
    const QTreeView* const view = viewOf(*m_window, DE_TAB1);
    const std::unique_ptr<QWidget> editor(
        view->itemDelegate()->createEditor(view->viewport(), QStyleOptionViewItem(), index));
    const QStringList named =
        m_help.page(pageOf(keyword))
            .targets.filter(
                QRegularExpression(QStringLiteral("^editor_(number|text|yes_no|variable)\\.htm")));
    if (!editor) {
        QCOMPARE(named, QStringList());
        return;
    }
    QVERIFY(!named.isEmpty());
    QCOMPARE(named.first().section(QLatin1Char('#'), 0, 0), editorPage(editor.get()));
    const QString variant = dialogVariant(editor.get());
    if (!variant.isEmpty())
        QVERIFY2(named.first().contains(QRegularExpression(variant)), qPrintable(named.first()));
}

void tst_HelpEditors::linesAcceptWhatTheHelpSays_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("accepted");
    QTest::addColumn<QString>("refused");

    const QString a(62, QLatin1Char('a'));
    QTest::newRow("events have 62 characters at most")
        << QStringLiteral("@STOP_EVENT") << QStringLiteral("digits and _, 62 at most") << a
        << a + QLatin1Char('a');
    QTest::newRow("events have no blanks")
        << QStringLiteral("@STOP_EVENT") << QStringLiteral("accepts letters, digits and _")
        << QStringLiteral("2_Stop") << QStringLiteral("2 Stop");
    const QString b(79, QLatin1Char('b'));
    QTest::newRow("identifiers have 79 characters at most")
        << QStringLiteral("@SCRIBON") << QStringLiteral("digits and _, 79 at most") << b
        << b + QLatin1Char('b');
    for (const char* const unit : {"msec", "sec", "min", "hr", "MSEC", "SEC", "MIN", "HR"}) {
        const QString text = QStringLiteral("2.5[%1]").arg(QLatin1String(unit));
        QTest::newRow(qPrintable(text)) << QStringLiteral("@FIFO_POST_TRIGGER_INTERVAL")
                                        << QStringLiteral("accepts the units msec, sec, min and hr")
                                        << text << QStringLiteral("2.5") + QLatin1String(unit);
    }
    QTest::newRow("units are not spelt in both cases")
        << QStringLiteral("@RUNNING_AVERAGE") << QStringLiteral("accepts the units msec")
        << QStringLiteral("30[sec]") << QStringLiteral("30[Sec]");
    QTest::newRow("descriptions have double quotes")
        << QStringLiteral("@DESCRIPTION") << QStringLiteral("within double or single quotes")
        << QStringLiteral("\"a - b\"") << QStringLiteral("a - b");
    QTest::newRow("descriptions have single quotes")
        << QStringLiteral("@FILENAME") << QStringLiteral("within double or single quotes")
        << QStringLiteral("'a - b'") << QStringLiteral("'a - b");
    QTest::newRow("registered names begin with no digit")
        << QStringLiteral("@REG_NAME")
        << QStringLiteral("a letter or _, then letters, digits and _") << QStringLiteral("_4")
        << QStringLiteral("4_");
}

int tst_HelpEditors::codeAfterTyping(const QString& keyword, const QString& text)
{
    QTreeView* const view = viewOf(*m_window, DE_TAB1);
    const QModelIndex index = valueOf(keyword);
    view->edit(index);
    auto* const line = view->viewport()->findChild<QLineEdit*>();
    if (line == nullptr)
        return DE_NOFIELD;
    line->selectAll();
    QTest::keyClicks(line, text);
    const int code = index.data(Qt::UserRole).toInt();
    delete line;
    return code;
}

void tst_HelpEditors::linesAcceptWhatTheHelpSays()
{
    QFETCH(QString, keyword);
    QFETCH(QString, said);
    QFETCH(QString, accepted);
    QFETCH(QString, refused);
    loadFullExample();
    const QString text = m_help.page(pageOf(keyword)).text;
    QVERIFY2(text.contains(said), qPrintable(text));
    QCOMPARE(codeAfterTyping(keyword, accepted), int(DE_NOERROR));
    QCOMPARE(codeAfterTyping(keyword, refused), int(DE_SYNTAX_ERR));
}

void tst_HelpEditors::numbersHaveTheLimitsThatTheHelpSays()
{
    loadFullExample();
    QTreeView* const view = viewOf(*m_window, DE_TAB1);
    view->edit(valueOf(QStringLiteral("@MAX_SCANS")));
    const auto* const number = view->viewport()->findChild<QSpinBox*>();
    QVERIFY(number != nullptr);
    const QString said =
        QStringLiteral("from %1 to %2").arg(number->minimum()).arg(number->maximum());
    for (const char* const page : {"keyword_max_scans.htm", "editor_number.htm"}) {
        const QString text = m_help.page(QLatin1String(page)).text;
        QVERIFY2(text.contains(said), qPrintable(text));
    }
}

// ---- Comment rows and texts that are not on offer ----------------------------------------------

// Loads the full example, with a comment as the first row of each list.
void tst_HelpEditors::showComments()
{
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_full"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray text = file.readAll();
    for (const char* const list : {"@META_DATA\n", "@SCAN_LIST_AUX_USER\n", "@ECM_LIST\n"})
        text.replace(list, QByteArray(list) + "# A note\n");
    loadGoodFile(text);
    QVERIFY(m_help.open());
    m_window->resize(1200, 900);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

// Null if no editor opens.
QWidget* tst_HelpEditors::openEditor(const QModelIndex& index)
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QTreeView* const view = viewOf(*m_window, tab);
        if (view->model() != index.model())
            continue;
        tabsOf(*m_window)->setCurrentIndex(tab);
        view->setCurrentIndex(index);
        view->setFocus();
        QTest::keyClick(view, Qt::Key_F2);
        return view->indexWidget(index);
    }
    return nullptr;
}

// Closes the editor by a click on the row below.
void tst_HelpEditors::leaveEditor(const QModelIndex& index)
{
    QTreeView* const view = viewOf(*m_window, tabsOf(*m_window)->currentIndex());
    const QRect below = view->visualRect(index.siblingAtRow(index.row() + 1));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, below.center());
    QTRY_VERIFY(view->indexWidget(index) == nullptr);
}

QString tst_HelpEditors::textOfPage(const char* page)
{
    return m_help.page(QLatin1String(page)).text;
}

void tst_HelpEditors::commentRowsOpenWhatTheHelpSays_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("editor");
    const auto add = [](const char* name, int tab, int column, const char* page, const char* said,
                        const char* editor) {
        QTest::newRow(name) << tab << (tab == DE_TAB1 ? 0 : FIRST_LIST_ROW) << column
                            << QString::fromLatin1(page) << QString::fromLatin1(said)
                            << QString::fromLatin1(editor);
    };
    const char* const closed = "on the Keywords tab and the ECM List the other cells of a comment";
    add("a comment of the Keywords tab", DE_TAB1, 0, "editor_keyword.htm",
        "In a comment row the field holds the comment", "QComboBox");
    add("the value beside a comment", DE_TAB1, 1, "cell_editors.htm", closed, "");
    add("the second value beside a comment", DE_TAB1, 2, "cell_editors.htm", closed, "");
    add("a comment of the Scan List", DE_TAB2, 1, "scan_list_tab.htm",
        "Marvane Variable the variable dialog with an empty line", "VariableSelectionDialog");
    add("the member beside a comment", DE_TAB2, 2, "scan_list_tab.htm",
        "Statistical Member the list on its first entry", "QComboBox");
    add("the channel beside a comment", DE_TAB2, 3, "scan_list_tab.htm",
        "Channel Keyword the list of all channel keywords", "QComboBox");
    add("a comment of the Meta Data List", DE_TAB3, 1, "meta_data_list_tab.htm",
        "PAM Keyword the list of all PAM keywords", "QComboBox");
    add("the variable beside a comment", DE_TAB3, 2, "meta_data_list_tab.htm",
        "Marvane Variable the variable dialog with empty lines", "VariableSelectionDialog");
    add("a comment of the Scan List Aux User", DE_TAB4, 1, "scan_list_aux_user_tab.htm",
        "Marvane Variable the variable dialog with an empty line", "VariableSelectionDialog");
    add("the name beside a comment", DE_TAB4, 2, "scan_list_aux_user_tab.htm",
        "Alternate Name the line.", "QLineEdit");
    add("a comment of the ECM List", DE_TAB5, 1, "ecm_list_tab.htm",
        "this is its one cell: a double click opens the line", "QLineEdit");
    add("the path beside a comment", DE_TAB5, 2, "cell_editors.htm", closed, "");
}

void tst_HelpEditors::commentRowsOpenWhatTheHelpSays()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, page);
    QFETCH(QString, said);
    QFETCH(QString, editor);
    showComments();
    QVERIFY2(m_help.page(page).text.contains(said), qPrintable(m_help.page(page).text));
    const QModelIndex index = modelOf(*m_window, tab)->index(row, column);
    const QWidget* const opened = openEditor(index);
    QCOMPARE(opened == nullptr ? QString() : QLatin1String(opened->metaObject()->className()),
             editor);
    const auto* const dialog = qobject_cast<const VariableSelectionDialog*>(opened);
    if (dialog != nullptr)
        QCOMPARE(dialog->variableComboBox()->currentText(), QString());
}

void tst_HelpEditors::listsTakeOverTheirFirstEntryAsTheHelpSays_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("page");
    const auto add = [](const char* name, int tab, int row, int column, const char* text,
                        const char* page) {
        QTest::newRow(name) << tab << row << column << QString::fromLatin1(text)
                            << QString::fromLatin1(page);
    };
    const char* const choices = "editor_choice.htm";
    add("a comment of the Meta Data List", DE_TAB3, 1, 1, "# A note", choices);
    add("an empty member", DE_TAB2, 2, 2, "FILLER_TXT", choices);
    add("an unknown member", DE_TAB2, 2, 2, ".XY", choices);
    add("a channel keyword of one's own", DE_TAB2, 2, 3, "MY_CHANNEL", choices);
    add("a channel keyword of other units", DE_TAB2, 2, 3, "T_OIL_SUMP", choices);
    add("no channel keyword beside a comment", DE_TAB2, 1, 3, "FILLER_TXT", choices);
    add("a PAM keyword of one's own", DE_TAB3, 2, 1, "MY_PARAMETER", choices);
    add("a keyword that stands twice", DE_TAB1, 3, 0, "@SCRIBON", "editor_keyword.htm");
    add("a list's keyword", DE_TAB1, 3, 0, "@SCAN_LIST", "editor_keyword.htm");
    add("the one keyword that is never offered", DE_TAB1, 3, 0, "@META_HEADER_FILENAME",
        "editor_keyword.htm");
}

void tst_HelpEditors::listsTakeOverTheirFirstEntryAsTheHelpSays()
{
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, page);
    showComments();
    QVERIFY(m_help.page(page).text.contains(
        QRegularExpression(QStringLiteral("opens on (its|the) first .*Escape does nothing.*Undo "
                                          "restores the old \\w+"))));
    const QModelIndex index = modelOf(*m_window, tab)->index(row, column);
    modelOf(*m_window, tab)->setData(index, text);
    auto* const list = qobject_cast<QComboBox*>(openEditor(index));
    QVERIFY(list != nullptr);
    const QString first = list->itemText(0);
    QCOMPARE(list->currentText(), first);
    QTest::keyClick(list, Qt::Key_Escape);
    QCOMPARE(index.data().toString(), text);
    leaveEditor(index);
    QCOMPARE(index.data().toString().remove(QLatin1Char('@')).trimmed().toLower(), first.toLower());
    m_window->undoGroup->activeStack()->undo();
    QCOMPARE(index.data().toString(), text);
}

void tst_HelpEditors::dialogsReplaceCommentsAsTheHelpSays_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("besideIt");
    QTest::addColumn<int>("changes");
    QTest::newRow("on the Scan List")
        << int(DE_TAB2) << QStringLiteral("scan_list_tab.htm")
        << QStringLiteral("the comment becomes that variable") << QStringLiteral("FILLER_TXT") << 1;
    QTest::newRow("on the Scan List Aux User")
        << int(DE_TAB4) << QStringLiteral("scan_list_aux_user_tab.htm")
        << QStringLiteral("becomes that variable, under an alternate name of the same text")
        << QStringLiteral("oil_temp") << 2;
}

void tst_HelpEditors::dialogsReplaceCommentsAsTheHelpSays()
{
    QFETCH(int, tab);
    QFETCH(QString, page);
    QFETCH(QString, said);
    QFETCH(QString, besideIt);
    QFETCH(int, changes);
    showComments();
    QVERIFY(m_help.page(page).text.contains(said));
    const QModelIndex index = modelOf(*m_window, tab)->index(FIRST_LIST_ROW, FIRST_LIST_COLUMN);
    const QString comment = index.data().toString();
    auto* dialog = qobject_cast<VariableSelectionDialog*>(openEditor(index));
    QVERIFY(dialog != nullptr);
    dialog->accept();
    QCOMPARE(index.data().toString(), comment);
    QTRY_VERIFY(viewOf(*m_window, tab)->indexWidget(index) == nullptr);
    dialog = qobject_cast<VariableSelectionDialog*>(openEditor(index));
    QVERIFY(dialog != nullptr);
    dialog->variableComboBox()->setCurrentText(QStringLiteral("oil_temp"));
    dialog->accept();
    QCOMPARE(index.data().toString(), QStringLiteral("oil_temp"));
    QCOMPARE(index.siblingAtColumn(2).data().toString(), besideIt);
    for (int i = 0; i < changes; ++i)
        m_window->undoGroup->activeStack()->undo();
    QCOMPARE(index.data().toString(), comment);
}

void tst_HelpEditors::commentIsTypedIntoTheListAsTheHelpSays()
{
    showComments();
    QVERIFY(textOfPage("meta_data_list_tab.htm")
                .contains(QStringLiteral("type it into the list, # first, and press Return")));
    const QModelIndex index = modelOf(*m_window, DE_TAB3)->index(FIRST_LIST_ROW, FIRST_LIST_COLUMN);
    QWidget* const list = openEditor(index);
    QVERIFY(list != nullptr);
    QTest::keyClicks(list, QStringLiteral("# Another"));
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(index.data().toString(), QStringLiteral("# Another"));
}

// ---- Literals ----------------------------------------------------------------------------------

void tst_HelpEditors::literalsAreJudgedAsTheHelpSays_data()
{
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("good");
    QTest::addColumn<QString>("marked");
    const auto add = [](const char* name, const char* good, const char* marked) {
        QTest::newRow(name) << QStringLiteral("%1 %2").arg(QLatin1String(good),
                                                           QLatin1String(marked))
                            << QString::fromLatin1(good) << QString::fromLatin1(marked);
    };
    add("a sign that stands nowhere", "\"Lot 7\"", "\"Lot #7\"");
    add("signs that stand at the end", "\"Reference diesel (EN590)\"", "\"Diesel (EN590) lot 7\"");
    add("single quotes", "\"Driver's choice\"", "'Driver's choice'");
    for (const char sign : QByteArray("%()*+,-/:;<=>?@[\\]^")) {
        const QString text = QStringLiteral("'Lot 7%1'");
        const auto name = QStringLiteral("a text with %1").arg(QLatin1Char(sign));
        QTest::newRow(qPrintable(name))
            << QStringLiteral(" %1 ").arg(QLatin1Char(sign)) << text.arg(QLatin1Char(sign))
            << text.arg(QLatin1Char(sign) + QStringLiteral(" 8"));
    }
    const QString signs(32, QLatin1Char('+'));
    QTest::newRow("32 characters at the end")
        << QStringLiteral("at most 32 characters") << QStringLiteral("'Lot %1'").arg(signs)
        << QStringLiteral("'Lot %1+'").arg(signs);
}

void tst_HelpEditors::literalsAreJudgedAsTheHelpSays()
{
    QFETCH(QString, said);
    QFETCH(QString, good);
    QFETCH(QString, marked);
    showComments();
    QVERIFY2(textOfPage("editor_variable.htm").contains(said), qPrintable(said));
    TreeModel* const model = modelOf(*m_window, DE_TAB3);
    const QModelIndex value = model->index(FIRST_LIST_ROW + 1, 2);
    model->setData(value, good);
    model->validate_model();
    QCOMPARE(value.data(Qt::UserRole).toInt(), int(DE_NOERROR));
    model->setData(value, marked);
    model->validate_model();
    QCOMPARE(value.data(Qt::UserRole).toInt(), int(DE_SYNTAX_ERR));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_HelpEditors)
#include "tst_help_editors.moc"
