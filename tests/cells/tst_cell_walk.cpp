// A walk through every kind of cell: what opens for it, what the editor shows, what a change
// stores, what the undo stack holds and gives back, and what the file says after a save. The cells
// are opened by key, changed by keys and clicks, and nothing else.

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QUndoStack>

#include "asamspecs_select.h"
#include "variableselectiondialog.h"
#include "window_test.h"

namespace {

// What opens for a cell.
enum Opens { NOTHING, LINE, KEYWORDS, CHOICE, NUMBER, LIST, VARIABLE, OPTION, ECM };

const auto FILE_NAME = QStringLiteral("/specs/walk");

// The file of the Keywords tab's rows: its first statement, then the one in question.
QByteArray keywordFile(const QByteArray& statement)
{
    return "@SCRIBON\nwalk\n\n" + statement + "\n\n";
}

QByteArray listFile(const QByteArray& section, const QByteArray& entries)
{
    return "@SCRIBON\nwalk\n\n@" + section + "\n" + entries + "\n\n";
}

QByteArray asamFile()
{
    return "@REG_NAME asam\nx\ny\n$\nECM0 a b\n$\nECM1 a b\n$\nECM0 a b\n$\n";
}

template <typename T>
T* visibleChild(QWidget* parent)
{
    for (T* const child : parent->findChildren<T*>()) {
        if (child->isVisible())
            return child;
    }
    return nullptr;
}

// The editor in a cell of the view: its viewport's own child.
template <typename T>
T* editorIn(QTreeView* view)
{
    for (T* const child :
         view->viewport()->findChildren<T*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible())
            return child;
    }
    return nullptr;
}

QPushButton* button(QDialog* dialog, const QString& text)
{
    for (QPushButton* const candidate : dialog->findChildren<QPushButton*>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

void retype(QLineEdit* line, const QString& text)
{
    line->setFocus();
    line->selectAll();
    if (text.isEmpty())
        QTest::keyClick(line, Qt::Key_Delete);
    else
        QTest::keyClicks(line, text);
}

}  // namespace

Q_DECLARE_METATYPE(Opens)

class tst_CellWalk : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void walk_data();
    void walk();
    void anInsertedRowOpensOnItsKeyword();

private:
    void addKeywordRows();
    void addListRows();
    void open(int tab, int row, int column);
    QString shown(Opens opens, QTreeView* view);
    void change(Opens opens, QTreeView* view, const QString& text);
    bool hasEditor(QTreeView* view);
};

void tst_CellWalk::walk_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<Opens>("opens");
    QTest::addColumn<QString>("shows");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    addKeywordRows();
    addListRows();
}

void tst_CellWalk::addKeywordRows()
{
    struct Kind {
        const char* keyword;
        const char* value;
        Opens opens;
        const char* typed;
        const char* stored;
    };
    const QVector<Kind> kinds{
        {"CLEAR_STATISTICS_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"DESCRIPTION", "'text'", LINE, "'other text'", "'other text'"},
        {"DONE_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"ENABLE", "dyno_enabled", VARIABLE, "other_logical", "other_logical"},
        {"FIFO_LOG_BUFFER", "", NOTHING, "", ""},
        {"FIFO_POST_TRIGGER_INTERVAL", "10[sec]", LINE, "20[min]", "20[min]"},
        {"FIFO_POST_TRIGGER_SCANS", "10", NUMBER, "77", "77"},
        {"FILENAME", "'name'", LINE, "'other'", "'other'"},
        {"FORCE_DIRECT_FILE_WRITE", "yes", CHOICE, "no", "no"},
        {"FTP_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"GET_NEW_SCAN_INTERVAL", "event_1", LINE, "event_2", "event_2"},
        {"GROUP", "test_group", VARIABLE, "cell_name", "cell_name"},
        {"LOG_DIGITAL_DESCRIPTION", "no", CHOICE, "yes", "yes"},
        {"LOG_STATISTICS", "yes", CHOICE, "no", "no"},
        {"LOGGING_ACTIVE_LABEL", "dyno_enabled", VARIABLE, "other_logical", "other_logical"},
        {"MAX_SCANS", "10", NUMBER, "1000000", "1000000"},
        {"MAX_STATISTICAL_SCANS", "10", NUMBER, "0", "0"},
        {"MODE", "test_mode_name", VARIABLE, "cell_name", "cell_name"},
        {"OUTPUT_PATH", "/data/one", OPTION, "/data/two", "/data/two"},
        {"OMBRA_STEADY_STATE", "", NOTHING, "", ""},
        {"PROGRAM", "test_program", VARIABLE, "cell_name", "cell_name"},
        {"READ_SPEC_FILE_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"REG_NAME", "reg_one", LINE, "reg_two", "reg_two"},
        {"RELEASE_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"RUNNING_AVERAGE", "30[sec] event_1", LINE, "40[sec]", "40[sec]"},
        {"SCAN_INTERVAL", "100[msec]", OPTION, "200[msec]", "200[msec]"},
        {"SEND_ON_PATH_CHANGE", "yes", CHOICE, "no", "no"},
        {"START_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"STOP_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"SYNC_EVENT", "event_1", LINE, "event_2", "event_2"},
        {"TEST_ID", "test_id", VARIABLE, "cell_name", "cell_name"},
        {"TEST_TYPE", "test_type", VARIABLE, "cell_name", "cell_name"},
        {"META_HEADER_FILENAME", "/data/head", OPTION, "/data/foot", "/data/foot"},
    };
    for (const Kind& kind : kinds) {
        const QByteArray keyword = kind.keyword;
        const QByteArray file = keywordFile("@" + keyword + "\n" + kind.value);
        const QString text = QString::fromLatin1(kind.value).section(QLatin1Char(' '), 0, 0);
        const bool isOffered = keyword != "META_HEADER_FILENAME";
        QTest::newRow(("the keyword " + keyword).constData())
            << file << 0 << 1 << 0 << KEYWORDS
            << (isOffered ? QString::fromLatin1(keyword).toLower()
                          : QStringLiteral("clear_statistics_event"))
            << QStringLiteral("Sync_event_x") << QStringLiteral("@SYNC_EVENT_X");
        QTest::newRow(("the value of " + keyword).constData())
            << file << 0 << 1 << 1 << kind.opens << text << QString::fromLatin1(kind.typed)
            << QString::fromLatin1(kind.stored);
        QTest::newRow(("the second value of " + keyword).constData())
            << file << 0 << 1 << 2 << (keyword == "RUNNING_AVERAGE" ? LINE : NOTHING)
            << QStringLiteral("event_1") << QStringLiteral("event_9") << QStringLiteral("event_9");
    }
    const QByteArray first = keywordFile("");
    QTest::newRow("the keyword SCRIBON")
        << first << 0 << 0 << 0 << KEYWORDS << QStringLiteral("scribon") << QStringLiteral("enable")
        << QStringLiteral("@ENABLE");
    QTest::newRow("the value of SCRIBON") << first << 0 << 0 << 1 << LINE << QStringLiteral("walk")
                                          << QStringLiteral("walk_2") << QStringLiteral("walk_2");
    QTest::newRow("the value of an interval from a variable")
        << keywordFile("@SCAN_INTERVAL\nscan_ms") << 0 << 1 << 1 << VARIABLE
        << QStringLiteral("scan_ms") << QStringLiteral("scan_s") << QStringLiteral("scan_s");
    QTest::newRow("a variable in place of a path is not shown")
        << keywordFile("@OUTPUT_PATH\ncell_name") << 0 << 1 << 1 << VARIABLE << QString()
        << QStringLiteral("cell_id") << QStringLiteral("cell_id");
    const QByteArray comment = keywordFile("# a note");
    QTest::newRow("a comment stays one")
        << comment << 0 << 1 << 0 << KEYWORDS << QStringLiteral("# a note")
        << QStringLiteral("# Another") << QStringLiteral("# Another");
    QTest::newRow("a comment becomes a keyword")
        << comment << 0 << 1 << 0 << KEYWORDS << QStringLiteral("# a note")
        << QStringLiteral("enable") << QStringLiteral("@ENABLE");
    QTest::newRow("a keyword with its own at sign gets a second one in a comment's row")
        << comment << 0 << 1 << 0 << KEYWORDS << QStringLiteral("# a note")
        << QStringLiteral("@mode") << QStringLiteral("@@MODE");
    QTest::newRow("a comment has no value")
        << comment << 0 << 1 << 1 << NOTHING << QString() << QString() << QString();
    QTest::newRow("a comment has no second value")
        << comment << 0 << 1 << 2 << NOTHING << QString() << QString() << QString();
}

void tst_CellWalk::addListRows()
{
    const auto row = [](const char* name, const QByteArray& file, int tab, int column, Opens opens,
                        const char* shows, const char* typed, const char* stored) {
        QTest::newRow(name) << file << tab << 1 << column << opens << QString::fromLatin1(shows)
                            << QString::fromLatin1(typed) << QString::fromLatin1(stored);
    };
    const QByteArray scan = listFile("SCAN_LIST", "eng_speed .AV N_ENG_AVG");
    row("a section's keyword", scan, 1, 0, NOTHING, "", "", "");
    row("a scanned variable", scan, 1, 1, VARIABLE, "eng_speed", "oil_press", "oil_press");
    row("a scanned variable that the platform does not know", scan, 1, 1, VARIABLE, "eng_speed",
        "no_such", "no_such");
    row("a statistical member", scan, 1, 2, LIST, ".AV", ".SD", "  .SD");
    row("a channel keyword", scan, 1, 3, LIST, "N_ENG_AVG", "N_DYNO", "N_DYNO");
    const QByteArray meta = listFile("META_DATA", "TEST_TITLE cell_name");
    row("a parameter keyword", meta, 2, 1, LIST, "TEST_TITLE", "ENGINEER", "ENGINEER");
    row("a described variable", meta, 2, 2, VARIABLE, "cell_name", "cell_id", "cell_id");
    row("a literal", listFile("META_DATA", "TEST_TITLE 'one'"), 2, 2, OPTION, "'one'", "\"two\"",
        "\"two\"");
    const QByteArray aux = listFile("SCAN_LIST_AUX_USER", "eng_speed other_speed");
    row("an aux user's variable", aux, 3, 1, VARIABLE, "eng_speed", "oil_press", "oil_press");
    row("an alternate name", aux, 3, 2, LINE, "other_speed", "third_speed", "third_speed");
    const QByteArray ecm = listFile("ECM_LIST", "1 /specs/asam3_specs.walk:ECM0:0");
    row("an extension number", ecm, 4, 1, LINE, "1", "# a note", "# a note");
    row("an ECM's list", ecm, 4, 2, ECM, "/specs/asam3_specs.walk|ECM0:0|1", "ECM1:0",
        "/specs/asam3_specs.walk:ECM1:0");
    const QByteArray note = listFile("ECM_LIST", "# a note");
    row("a note in the ECM list", note, 4, 1, LINE, "# a note", "# another", "# another");
    row("nothing beside a note in the ECM list", note, 4, 2, NOTHING, "", "", "");
}

void tst_CellWalk::open(int tab, int row, int column)
{
    tabsOf(*m_window)->setCurrentIndex(tab);
    QTreeView* const view = viewOf(*m_window, tab);
    view->setFocus();
    goTo(view, row, column);
    QTest::keyClick(view, Qt::Key_F2);
}

bool tst_CellWalk::hasEditor(QTreeView* view)
{
    return editorIn<QLineEdit>(view) != nullptr || editorIn<QComboBox>(view) != nullptr ||
           editorIn<QSpinBox>(view) != nullptr ||
           visibleChild<VariableSelectionDialog>(m_window.get()) != nullptr ||
           visibleChild<asamspecs_select>(m_window.get()) != nullptr;
}

// What the open editor shows; null when it is none of the kind.
QString tst_CellWalk::shown(Opens opens, QTreeView* view)
{
    auto* const dialog = visibleChild<VariableSelectionDialog>(m_window.get());
    auto* const ecm = visibleChild<asamspecs_select>(m_window.get());
    auto* const comboBox = editorIn<QComboBox>(view);
    auto* const line = editorIn<QLineEdit>(view);
    auto* const spinBox = editorIn<QSpinBox>(view);
    switch (opens) {
        case LINE:
            return line != nullptr ? line->text() : QString();
        case KEYWORDS:
        case CHOICE:
        case LIST:
            return comboBox != nullptr ? comboBox->currentText() : QString();
        case NUMBER:
            return spinBox != nullptr ? spinBox->text() : QString();
        case VARIABLE:
            return dialog != nullptr ? dialog->variableComboBox()->currentText() : QString();
        case OPTION:
            return dialog != nullptr ? dialog->lineEdit()->text() : QString();
        case ECM:
            return ecm == nullptr ? QString()
                                  : ecm->fileComboBox()->currentText() + QLatin1Char('|') +
                                        ecm->ecmComboBox()->currentText() + QLatin1Char('|') +
                                        ecm->extSpinBoxEdit()->text();
        case NOTHING:
            break;
    }
    return {};
}

void tst_CellWalk::change(Opens opens, QTreeView* view, const QString& text)
{
    auto* const dialog = visibleChild<VariableSelectionDialog>(m_window.get());
    auto* const ecm = visibleChild<asamspecs_select>(m_window.get());
    switch (opens) {
        case LINE:
            retype(editorIn<QLineEdit>(view), text);
            QTest::keyClick(editorIn<QLineEdit>(view), Qt::Key_Return);
            break;
        case KEYWORDS:
        case LIST:
            retype(editorIn<QComboBox>(view)->lineEdit(), text);
            QTest::keyClick(editorIn<QComboBox>(view), Qt::Key_Return);
            break;
        case CHOICE:
            QTest::keyClicks(editorIn<QComboBox>(view), text);
            break;
        case NUMBER: {
            auto* const spinBox = editorIn<QSpinBox>(view);
            spinBox->selectAll();
            QTest::keyClicks(spinBox, text);
            QTest::keyClick(spinBox, Qt::Key_Return);
            break;
        }
        case VARIABLE:
            retype(dialog->variableComboBox()->lineEdit(), text);
            QTest::mouseClick(button(dialog, QStringLiteral("Ok")), Qt::LeftButton);
            break;
        case OPTION:
            retype(dialog->lineEdit(), text);
            QTest::mouseClick(button(dialog, QStringLiteral("Ok")), Qt::LeftButton);
            break;
        case ECM:
            QTest::keyClicks(ecm->ecmComboBox(), text);
            QTest::mouseClick(button(ecm, QStringLiteral("OK")), Qt::LeftButton);
            break;
        case NOTHING:
            break;
    }
}

void tst_CellWalk::walk()
{
    QFETCH(QByteArray, file);
    QFETCH(int, tab);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(Opens, opens);
    QFETCH(QString, shows);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    QVERIFY(writeFile(QStringLiteral("/specs/asam3_specs.walk"), asamFile()));
    QVERIFY(writeFile(FILE_NAME, file));
    m_window->loadFile(FILE_NAME, false);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QTreeView* const view = viewOf(*m_window, tab);
    const QPersistentModelIndex cell = modelOf(*m_window, tab)->index(row, column);
    const QString before = cell.data(Qt::EditRole).toString();

    open(tab, row, column);
    QCOMPARE(hasEditor(view), opens != NOTHING);
    if (opens == NOTHING)
        return;
    QCOMPARE(shown(opens, view), shows);
    QCOMPARE(m_window->uStack()->count(), 0);

    change(opens, view, typed);
    QVERIFY(!hasEditor(view));
    QCOMPARE(view->currentIndex(), QModelIndex(cell));
    QCOMPARE(cell.data(Qt::EditRole).toString(), stored);
    QCOMPARE(m_window->uStack()->count(), 1);

    m_window->uStack()->undo();
    QCOMPARE(cell.data(Qt::EditRole).toString(), before);
    m_window->uStack()->redo();
    QCOMPARE(cell.data(Qt::EditRole).toString(), stored);
    QVERIFY(m_window->save());
    QVERIFY(readFile(FILE_NAME).contains(stored.trimmed().toLatin1()));
}

void tst_CellWalk::anInsertedRowOpensOnItsKeyword()
{
    loadGoodFile();
    m_window->show();
    QTreeView* const view = viewOf(*m_window, 0);
    goTo(view, 0, 0);
    m_window->insertRow();
    auto* const comboBox = editorIn<QComboBox>(view);
    QVERIFY(comboBox != nullptr);
    QCOMPARE(comboBox->currentText(), QStringLiteral(" "));
    QTest::keyClicks(comboBox, QStringLiteral("max_scans"));
    QTest::keyClick(comboBox, Qt::Key_Return);
    QCOMPARE(view->model()->index(1, 0).data(Qt::EditRole).toString(),
             QStringLiteral("@MAX_SCANS"));
    QCOMPARE(m_window->uStack()->count(), 2);
}

QTEST_MAIN(tst_CellWalk)
#include "tst_cell_walk.moc"
