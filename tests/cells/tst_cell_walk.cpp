// Edits each kind of cell by keyboard and mouse only, and checks which editor opens, what it shows,
// what a change stores, the undo stack, and the saved file.

#include <QUndoStack>
#include <QtTest>

#include "editing_test.h"
#include "editor_types.h"
#include "golden_keywords.h"

namespace {

// The kind of editor that opens for a cell.
enum Opens {
    NOTHING,
    LINE,
    NUMBER,
    YES_OR_NO,
    KEYWORDS,
    MEMBERS,
    CHANNELS,
    PARAMETERS,
    VARIABLE,            // VariableSelectionDialog without an optional line
    VARIABLE_OR_OPTION,  // with one
    ECM
};

// How the row was added to the document.
enum Origin { FROM_FILE, INSERTED, RENAMED };

struct RowKind {
    QByteArray file;
    int tab = 0;
    int row = 0;
    QByteArray lines;  // the lines of the row in the file, without the last line end
    Origin origin = FROM_FILE;
};

struct CellText {
    int column;
    const char* text;
};

struct CellKind {
    QByteArray name;
    int column = 0;
    Opens opens = NOTHING;
    QByteArray shows = {};
    QByteArray typed = {};
    QVector<CellText> stored = {};  // cells of the row that change
    int steps = 0;
    QByteArray linesAfter = {};  // lines of the row after the change
};

// The file for rows of the Keywords tab: the first statement, then this one.
QByteArray keywordFile(const QByteArray& statement)
{
    return "@SCRIBON\nwalk\n\n" + statement + "\n";
}

QByteArray listFile(const QByteArray& section, const QByteArray& entries)
{
    return "@SCRIBON\nwalk\n\n@" + section + "\n" + entries + "\n";
}

void addCells(const RowKind& row, const QVector<CellKind>& cells)
{
    for (const CellKind& cell : cells)
        QTest::newRow(cell.name.constData()) << row << cell;
}

Opens listOf(const QComboBox& comboBox)
{
    const auto offers = [&comboBox](const char* item) {
        return comboBox.findText(text(item)) != -1;
    };
    if (!comboBox.isEditable())
        return YES_OR_NO;
    if (offers("filename"))
        return KEYWORDS;
    if (offers(".SD"))
        return MEMBERS;
    return offers("N_CAM") ? CHANNELS : PARAMETERS;
}

Opens kindOf(const QWidget* editor)
{
    if (qobject_cast<const QLineEdit*>(editor) != nullptr)
        return LINE;
    if (qobject_cast<const QSpinBox*>(editor) != nullptr)
        return NUMBER;
    if (const auto* const comboBox = qobject_cast<const QComboBox*>(editor))
        return listOf(*comboBox);
    if (const auto* const dialog = qobject_cast<const VariableSelectionDialog*>(editor))
        return dialog->lineEdit()->isVisible() ? VARIABLE_OR_OPTION : VARIABLE;
    return qobject_cast<const asamspecs_select*>(editor) != nullptr ? ECM : NOTHING;
}

// The kind of editor for a value.
Opens editorKind(int editor)
{
    switch (editor) {
        case NOEDITOR:
            return NOTHING;
        case INTEGER_EDITOR:
            return NUMBER;
        case YESNO_EDITOR:
            return YES_OR_NO;
        case LOGICAL_VAR_EDITOR:
        case STRING_VAR_EDITOR:
            return VARIABLE;
        case DIR_PATH_EDITOR:
        case SCAN_INTERVAL_EDITOR:
            return VARIABLE_OR_OPTION;
        default:
            return LINE;
    }
}

// Those of addSpecialKeywordRows(), and those of the lists.
bool hasRowsOfItsOwn(const GoldenKeyword& keyword)
{
    return keyword.isSection() || keyword.statement == Statement::RunningAverage ||
           keyword.statement == Statement::MetaHeaderFilename || keyword.editor == SCRIBON_EDITOR;
}

// The non-empty fields of a dialog, separated by blanks.
QString fieldsOf(QStringList fields)
{
    fields.removeAll(QString());
    return fields.join(QLatin1Char(' '));
}

QString shownBy(const QWidget* editor)
{
    if (const auto* const line = qobject_cast<const QLineEdit*>(editor))
        return line->text();
    if (const auto* const spinBox = qobject_cast<const QSpinBox*>(editor))
        return spinBox->text();
    if (const auto* const comboBox = qobject_cast<const QComboBox*>(editor))
        return comboBox->currentText();
    if (const auto* const dialog = qobject_cast<const VariableSelectionDialog*>(editor))
        return fieldsOf({dialog->lineEdit()->text(), dialog->variableComboBox()->currentText(),
                         dialog->subText(), dialog->unitsComboBox()->currentText()});
    if (const auto* const ecm = qobject_cast<const asamspecs_select*>(editor))
        return fieldsOf({ecm->extSpinBoxEdit()->text(), ecm->fileComboBox()->currentText(),
                         ecm->ecmComboBox()->currentText()});
    return {};
}

QVector<QStringList> withTexts(QVector<QStringList> rows, int row, const QVector<CellText>& texts)
{
    for (const CellText& cell : texts)
        rows[row][cell.column] = text(cell.text);
    return rows;
}

// Replaces these lines of the file, which must occur once.
QByteArray withLines(const QByteArray& file, const QByteArray& lines, const QByteArray& others)
{
    QByteArray result = "\n" + file;
    if (result.count("\n" + lines + "\n") != 1)
        return "it has these lines not once: " + file;
    result.replace("\n" + lines + "\n", "\n" + others + "\n");
    return result.mid(1);
}

bool isOption(const QString& typed)
{
    return !typed.isEmpty() && !typed.at(0).isLetter();
}

}  // namespace

Q_DECLARE_METATYPE(RowKind)
Q_DECLARE_METATYPE(CellKind)

class tst_CellWalk : public EditingTest {
    Q_OBJECT

private Q_SLOTS:
    void editEachKindOfCell_data();
    void editEachKindOfCell();

private:
    static void addKeywordRows();
    static void addKeyword(const GoldenKeyword& keyword);
    static CellKind valueCell(const GoldenKeyword& keyword);
    static void addSpecialKeywordRows();
    static void addRowsWithoutKeyword();
    static void addScanListRows();
    static void addMetaDataRows();
    static void addAuxUserRows();
    static void addEcmRows();

    QModelIndex prepare(const RowKind& row, int column);
    QWidget* openCell(const QModelIndex& index);
    static void change(QWidget* editor, const QString& typed);
    static void changeVariable(VariableSelectionDialog* dialog, const QString& typed);
    static void changeEcm(asamspecs_select* dialog, const QString& typed);
    QVector<QStringList> rowsOf(int tab) const;
};

// ---- The kinds of cells ------------------------------------------------------------------------

void tst_CellWalk::editEachKindOfCell_data()
{
    QTest::addColumn<RowKind>("row");
    QTest::addColumn<CellKind>("cell");
    addKeywordRows();
    addSpecialKeywordRows();
    addRowsWithoutKeyword();
    addScanListRows();
    addMetaDataRows();
    addAuxUserRows();
    addEcmRows();
}

void tst_CellWalk::addKeywordRows()
{
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (!hasRowsOfItsOwn(keyword))
            addKeyword(keyword);
    }
}

// clang-format off

void tst_CellWalk::addKeyword(const GoldenKeyword& keyword)
{
    const QByteArray spelling = keyword.spelling;
    const QByteArray name = spelling.mid(1);
    const QByteArray value = keyword.values.saved;
    const QByteArray valueLine = value.isEmpty() ? value : "\n" + value;
    addCells({keywordFile(spelling + valueLine), DE_TAB1, 1, spelling + valueLine}, {
        {"the keyword " + name, 0, KEYWORDS, name.toLower(), "Nonsense", {{0, "@NONSENSE"}}, 1, "@NONSENSE" + valueLine},
        valueCell(keyword),
        {"no second value of " + name, 2},
    });
}

CellKind tst_CellWalk::valueCell(const GoldenKeyword& keyword)
{
    const QByteArray spelling = keyword.spelling;
    const QByteArray title = "the value of " + spelling.mid(1);
    const QByteArray value = keyword.values.saved;
    const char* const typed = keyword.values.typed;
    const Opens opens = editorKind(keyword.editor);
    if (opens == NOTHING)
        return {title, 1};
    const QByteArray shown = opens == YES_OR_NO ? value.toLower() : value;
    return {title, 1, opens, shown, typed, {{1, typed}}, 1, spelling + "\n" + typed};
}

// Keywords whose rows differ from the others.
void tst_CellWalk::addSpecialKeywordRows()
{
    addCells({"@SCRIBON\nwalk\n", DE_TAB1, 0, "@SCRIBON\nwalk"}, {
        {"the keyword SCRIBON", 0, KEYWORDS, "scribon", "enable", {{0, "@ENABLE"}}, 1, "@ENABLE\nwalk"},
        {"the value of SCRIBON", 1, LINE, "walk", "walk_2", {{1, "walk_2"}}, 1, "@SCRIBON\nwalk_2"},
        {"no second value of SCRIBON", 2},
    });
    const QByteArray average = "@RUNNING_AVERAGE\n30[sec]\t\tevent_1";
    addCells({keywordFile(average), DE_TAB1, 1, average}, {
        {"the keyword RUNNING_AVERAGE", 0, KEYWORDS, "running_average", "enable", {{0, "@ENABLE"}}, 1, "@ENABLE\n30[sec]\t\tevent_1"},
        {"the value of RUNNING_AVERAGE", 1, LINE, "30[sec]", "40[sec]", {{1, "40[sec]"}}, 1, "@RUNNING_AVERAGE\n40[sec]\t\tevent_1"},
        {"the second value of RUNNING_AVERAGE", 2, LINE, "event_1", "event_9", {{2, "event_9"}}, 1, "@RUNNING_AVERAGE\n30[sec]\t\tevent_9"},
    });
    const QByteArray header = "@META_HEADER_FILENAME\n/data/head";
    addCells({keywordFile(header), DE_TAB1, 1, header}, {
        {"the keyword META_HEADER_FILENAME, which is not on offer", 0, KEYWORDS, "clear_statistics_event", "enable", {{0, "@ENABLE"}}, 1, "@ENABLE\n/data/head"},
        {"the value of META_HEADER_FILENAME", 1, VARIABLE_OR_OPTION, "/data/head", "/data/foot", {{1, "/data/foot"}}, 1, "@META_HEADER_FILENAME\n/data/foot"},
        {"no second value of META_HEADER_FILENAME", 2},
    });
    addCells({keywordFile("@SCAN_INTERVAL\nscan_ms"), DE_TAB1, 1, "@SCAN_INTERVAL\nscan_ms"}, {
        {"a variable in place of an interval", 1, VARIABLE_OR_OPTION, "scan_ms", "scan_s", {{1, "scan_s"}}, 1, "@SCAN_INTERVAL\nscan_s"},
    });
    addCells({keywordFile("@OUTPUT_PATH\ncell_name"), DE_TAB1, 1, "@OUTPUT_PATH\ncell_name"}, {
        {"a variable in place of a path, which is not shown", 1, VARIABLE_OR_OPTION, "", "cell_id", {{1, "cell_id"}}, 1, "@OUTPUT_PATH\ncell_id"},
    });
    addCells({keywordFile("@MAX_SCANS\n10"), DE_TAB1, 1, "@MAX_SCANS\n10"}, {
        {"a number that is typed again", 1, NUMBER, "10", "10"},
    });
}

// The values of an unknown keyword cannot be edited.
void tst_CellWalk::addRowsWithoutKeyword()
{
    addCells({keywordFile("# a note"), DE_TAB1, 1, "walk\n# a note"}, {
        {"a comment", 0, KEYWORDS, "# a note", "# Another", {{0, "# Another"}}, 1, "walk\n# Another"},
        {"a comment that becomes a keyword", 0, KEYWORDS, "# a note", "enable", {{0, "@ENABLE"}}, 1, "walk\n\n@ENABLE"},
        {"a comment that becomes a keyword with two at signs", 0, KEYWORDS, "# a note", "@mode", {{0, "@@MODE"}}, 1, "walk\n\n@@MODE"},
        {"no value of a comment", 1},
        {"no second value of a comment", 2},
    });
    addCells({keywordFile("@NONSENSE\n'x'"), DE_TAB1, 1, "walk\nUNKNOWN_KEYWORD"}, {
        {"an unknown keyword", 0, KEYWORDS, "UNKNOWN_KEYWORD", "enable", {{0, "@ENABLE"}}, 1, "walk\n\n@ENABLE"},
        {"an unknown keyword that stays unknown", 0, KEYWORDS, "UNKNOWN_KEYWORD", "Nonsense", {{0, "Nonsense"}}, 1, "walk\nNonsense"},
        {"the value of an unknown keyword", 1, LINE, "", "text"},
        {"the second value of an unknown keyword", 2, LINE, "", "text"},
    });
    addCells({keywordFile("@MAX_SCANS\n10"), DE_TAB1, 1, "@NONSENSE\n10", RENAMED}, {
        {"an unknown keyword that was typed", 0, KEYWORDS, "clear_statistics_event", "enable", {{0, "@ENABLE"}}, 1, "@ENABLE\n10"},
        {"the value of an unknown keyword that was typed", 1, LINE, "10", "'text'", {{1, "'text'"}}, 1, "@NONSENSE\n'text'"},
        {"no second value of an unknown keyword that was typed", 2},
    });
    addCells({"@SCRIBON\nwalk\nloose\n", DE_TAB1, 1, "walk\nloose"}, {
        {"the keyword of a free text", 0, KEYWORDS, "FILLER_TXT", "enable", {{0, "@ENABLE"}}, 1, "walk\n\n@ENABLE\nloose"},
        {"a comment over a free text", 0, KEYWORDS, "FILLER_TXT", "# Note", {{0, "# NOTE"}}, 1, "walk\n# NOTE"},
        {"a free text", 1, LINE, "loose", "free", {{1, "free"}}, 1, "walk\nfree"},
        {"a second free text", 2, LINE, "", "free", {{2, "free"}}, 1, "walk\nloose\n\t\tfree"},
    });
    addCells({keywordFile("@MAX_SCANS\n10"), DE_TAB1, 1, "walk\n", INSERTED}, {
        {"an inserted keyword", 0, KEYWORDS, " ", "enable", {{0, "@ENABLE"}}, 1, "walk\n\n@ENABLE"},
        {"an inserted comment", 0, KEYWORDS, " ", "# Note", {{0, "# NOTE"}}, 1, "walk\n# NOTE"},
        {"an inserted text", 0, KEYWORDS, " ", "Nonsense", {{0, "Nonsense"}}, 1, "walk\nNonsense"},
        {"the value of an inserted row", 1, LINE, " ", "free", {{1, "free"}}, 1, "walk\nfree"},
        {"the second value of an inserted row", 2, LINE, "", "free", {{2, "free"}}, 1, "walk\n\t\tfree"},
    });
}

// A comment is the last text of its line, whatever the cells behind it hold.
void tst_CellWalk::addScanListRows()
{
    const QByteArray entry = "eng_speed\t\t.SD\t\tN_ENG_AVG";
    const QByteArray scan = listFile("SCAN_LIST", entry);
    addCells({scan, DE_TAB2, 1, entry}, {
        {"no keyword in the Scan List", 0},
        {"a scanned variable", 1, VARIABLE, "eng_speed RPM", "oil_press", {{1, "oil_press"}}, 1, "oil_press\t\t.SD\t\tN_ENG_AVG"},
        {"a scanned variable that the platform does not know", 1, VARIABLE, "eng_speed RPM", "no_such", {{1, "no_such"}}, 1, "no_such\t\t.SD\t\tN_ENG_AVG"},
        {"a scanned statistic with its member", 1, VARIABLE, "eng_speed RPM", "eng_speed_stat.", {{1, "eng_speed_stat."}, {2, ".AV"}}, 2, "eng_speed_stat.\t\t.AV\t\tN_ENG_AVG"},
        {"a scanned variable that is emptied", 1, VARIABLE, "eng_speed RPM", "", {}, 1},
        {"a statistical member", 2, MEMBERS, ".SD", ".AV", {{2, "  .AV"}}, 1, "eng_speed\t\t.AV\t\tN_ENG_AVG"},
        {"an unknown statistical member", 2, MEMBERS, ".SD", ".XY", {{2, "  .XY"}}, 1, "eng_speed\t\t.XY\t\tN_ENG_AVG"},
        {"a channel keyword", 3, CHANNELS, "N_ENG_AVG", "N_DYNO", {{3, "N_DYNO"}}, 1, "eng_speed\t\t.SD\t\tN_DYNO"},
    });
    addCells({listFile("SCAN_LIST", "# a note"), DE_TAB2, 1, "# a note"}, {
        {"no keyword of a comment in the Scan List", 0},
        {"a comment in the Scan List", 1, VARIABLE, "", "oil_press", {{1, "oil_press"}}, 1, "oil_press"},
        {"the member of a comment in the Scan List", 2, MEMBERS, "LOG_DIGITAL_DESCP", ".SD", {{2, "  .SD"}}, 1, "# a note"},
        {"the channel keyword of a comment in the Scan List", 3, CHANNELS, "N_ENG", "N_DYNO", {{3, "N_DYNO"}}, 1, "# a note"},
    });
    addCells({scan, DE_TAB2, 1, "@SCAN_LIST\n", INSERTED}, {
        {"no keyword of an inserted row in the Scan List", 0},
        {"an inserted variable in the Scan List", 1, VARIABLE, " ", "oil_press", {{1, "oil_press"}}, 1, "@SCAN_LIST\noil_press"},
        {"an inserted statistic in the Scan List", 1, VARIABLE, " ", "eng_speed_stat.", {{1, "eng_speed_stat."}, {2, ".AV"}}, 2, "@SCAN_LIST\neng_speed_stat.\t\t.AV"},
        {"an inserted member in the Scan List", 2, MEMBERS, "", ".SD", {{2, "  .SD"}}, 1, "@SCAN_LIST\n\t\t.SD"},
        {"an inserted channel keyword in the Scan List", 3, CHANNELS, "N_ENG", "N_DYNO", {{3, "N_DYNO"}}, 1, "@SCAN_LIST\n\t\tN_DYNO"},
    });
}

void tst_CellWalk::addMetaDataRows()
{
    const QByteArray entry = "TEST_TITLE\t\tcell_name";
    const QByteArray meta = listFile("META_DATA", entry);
    addCells({meta, DE_TAB3, 1, entry}, {
        {"no keyword in the Meta Data List", 0},
        {"a parameter keyword", 1, PARAMETERS, "TEST_TITLE", "ENGINEER", {{1, "ENGINEER"}}, 1, "ENGINEER\t\tcell_name"},
        {"a described variable", 2, VARIABLE_OR_OPTION, "cell_name", "cell_id", {{2, "cell_id"}}, 1, "TEST_TITLE\t\tcell_id"},
        {"a described variable that is emptied", 2, VARIABLE_OR_OPTION, "cell_name", ""},
        {"a literal over a described variable", 2, VARIABLE_OR_OPTION, "cell_name", "\"two\"", {{2, "\"two\""}}, 1, "TEST_TITLE\t\t\"two\""},
    });
    addCells({listFile("META_DATA", "TEST_TITLE\t\t'one'"), DE_TAB3, 1, "TEST_TITLE\t\t'one'"}, {
        {"a literal", 2, VARIABLE_OR_OPTION, "'one'", "\"two\"", {{2, "\"two\""}}, 1, "TEST_TITLE\t\t\"two\""},
    });
    addCells({listFile("META_DATA", "# a note"), DE_TAB3, 1, "# a note"}, {
        {"no keyword of a comment in the Meta Data List", 0},
        {"a comment in the Meta Data List", 1, PARAMETERS, "BORE", "ENGINEER", {{1, "ENGINEER"}}, 1, "ENGINEER"},
        {"the variable of a comment in the Meta Data List", 2, VARIABLE_OR_OPTION, "", "cell_id", {{2, "cell_id"}}, 1, "# a note"},
    });
    addCells({meta, DE_TAB3, 1, "@META_DATA\n", INSERTED}, {
        {"no keyword of an inserted row in the Meta Data List", 0},
        {"an inserted parameter keyword", 1, PARAMETERS, "BORE", "ENGINEER", {{1, "ENGINEER"}}, 1, "@META_DATA\nENGINEER"},
        {"an inserted variable in the Meta Data List", 2, VARIABLE_OR_OPTION, " ", "cell_id", {{2, "cell_id"}}, 1, "@META_DATA\n\t\tcell_id"},
        {"an inserted literal", 2, VARIABLE_OR_OPTION, " ", "'two'", {{2, "'two'"}}, 1, "@META_DATA\n\t\t'two'"},
    });
}

void tst_CellWalk::addAuxUserRows()
{
    const QByteArray entry = "eng_speed\t\tother_speed";
    const QByteArray aux = listFile("SCAN_LIST_AUX_USER", entry);
    addCells({aux, DE_TAB4, 1, entry}, {
        {"no keyword in the Aux User list", 0},
        {"an aux user's variable", 1, VARIABLE, "eng_speed RPM", "oil_press", {{1, "oil_press"}}, 1, "oil_press\t\tother_speed"},
        {"an aux user's statistic", 1, VARIABLE, "eng_speed RPM", "eng_speed_stat.", {{1, "eng_speed_stat.AV"}}, 1, "eng_speed_stat.AV\t\tother_speed"},
        {"an aux user's variable that is emptied", 1, VARIABLE, "eng_speed RPM", ""},
        {"an alternate name", 2, LINE, "other_speed", "third_speed", {{2, "third_speed"}}, 1, "eng_speed\t\tthird_speed"},
    });
    addCells({listFile("SCAN_LIST_AUX_USER", "eng_speed"), DE_TAB4, 1, "eng_speed"}, {
        {"an aux user's variable that its alternate name follows", 1, VARIABLE, "eng_speed RPM", "oil_press", {{1, "oil_press"}, {2, "oil_press"}}, 2, "oil_press\t\toil_press"},
        {"an aux user's variable without an alternate name that is emptied", 1, VARIABLE, "eng_speed RPM", "", {}, 1},
        {"a missing alternate name", 2, LINE, "FILLER_TXT", "third_speed", {{2, "third_speed"}}, 1, "eng_speed\t\tthird_speed"},
    });
    addCells({listFile("SCAN_LIST_AUX_USER", "# a note"), DE_TAB4, 1, "# a note"}, {
        {"no keyword of a comment in the Aux User list", 0},
        {"a comment in the Aux User list", 1, VARIABLE, "", "oil_press", {{1, "oil_press"}, {2, "oil_press"}}, 2, "oil_press\t\toil_press"},
        {"the alternate name of a comment in the Aux User list", 2, LINE, "FILLER_TXT", "other", {{2, "other"}}, 1, "# a note"},
    });
    addCells({aux, DE_TAB4, 1, "@SCAN_LIST_AUX_USER\n", INSERTED}, {
        {"no keyword of an inserted row in the Aux User list", 0},
        {"an inserted variable in the Aux User list", 1, VARIABLE, " ", "oil_press", {{1, "oil_press"}, {2, "oil_press"}}, 2, "@SCAN_LIST_AUX_USER\noil_press\t\toil_press"},
        {"an inserted alternate name", 2, LINE, " ", "third_speed", {{2, "third_speed"}}, 1, "@SCAN_LIST_AUX_USER\n\t\tthird_speed"},
    });
}

void tst_CellWalk::addEcmRows()
{
    const QByteArray entry = "1\t\t/specs/asam3_specs.engine:ECM0:0";
    const QByteArray ecm = listFile("ECM_LIST", entry);
    const QByteArray shown = "1 /specs/asam3_specs.engine ECM0:0";
    const char* const other = "/specs/asam3_specs.engine:ECM1:0";
    addCells({ecm, DE_TAB5, 1, entry}, {
        {"no keyword in the ECM List", 0},
        {"an extension number", 1, LINE, "1", "# a note", {{1, "# a note"}}, 1, "# a note"},
        {"an ECM's list", 2, ECM, shown, "1 ECM1:0", {{2, other}}, 1, "1\t\t/specs/asam3_specs.engine:ECM1:0"},
        {"the number in an ECM's dialog", 2, ECM, shown, "42 ECM0:0", {{1, "42"}}, 1, "42\t\t/specs/asam3_specs.engine:ECM0:0"},
        {"an ECM's list and number", 2, ECM, shown, "42 ECM1:0", {{1, "42"}, {2, other}}, 2, "42\t\t/specs/asam3_specs.engine:ECM1:0"},
    });
    addCells({listFile("ECM_LIST", "# a note"), DE_TAB5, 1, "# a note"}, {
        {"no keyword of a comment in the ECM List", 0},
        {"a comment in the ECM List", 1, LINE, "# a note", "# another", {{1, "# another"}}, 1, "# another"},
        {"no list of a comment in the ECM List", 2},
    });
    addCells({ecm, DE_TAB5, 1, "@ECM_LIST\n", INSERTED}, {
        {"no keyword of an inserted row in the ECM List", 0},
        {"an inserted extension number", 1, LINE, " ", "7", {{1, "7"}}, 1, "@ECM_LIST\n7"},
        {"an inserted ECM's list", 2, ECM, "0 /specs/asam3_specs.engine ECM0:0", "2 ECM1:0", {{1, "2"}, {2, other}}, 2, "@ECM_LIST\n2\t\t/specs/asam3_specs.engine:ECM1:0"},
    });
}

// clang-format on

// ---- The user's hands --------------------------------------------------------------------------

// Prepares the document for the edit of this cell. For a new row of the Keywords tab, its keyword's
// editor is open already.
QModelIndex tst_CellWalk::prepare(const RowKind& row, int column)
{
    show(row.file);
    tabsOf(*m_window)->setCurrentIndex(row.tab);
    if (row.origin == RENAMED)
        edit(row.tab, row.row, 0, text("@NONSENSE"));
    if (row.origin == INSERTED) {
        goTo(viewOf(*m_window, row.tab), row.row - 1, 0);
        actionOf(*m_window, "insertRowAction")->trigger();
        if (column > 0 && openEditors() > 0)
            press(Qt::Key_Return);
    }
    return cell(row.tab, row.row, column);
}

QWidget* tst_CellWalk::openCell(const QModelIndex& index)
{
    QWidget* const editor = editorOf(index);
    return editor != nullptr ? editor : open(index, Way::EditKey);
}

void tst_CellWalk::changeVariable(VariableSelectionDialog* dialog, const QString& typed)
{
    if (isOption(typed)) {
        dialog->lineEdit()->setFocus();
        typeOver(typed);
    } else {
        typeVariable(dialog, typed);
    }
    acceptDialog(dialog);
}

// Types a text of the form "NUMBER INSTANCE" into the dialog.
void tst_CellWalk::changeEcm(asamspecs_select* dialog, const QString& typed)
{
    dialog->extSpinBoxEdit()->setFocus();
    typeOver(typed.section(QLatin1Char(' '), 0, 0));
    dialog->ecmComboBox()->setFocus();
    pick(dialog->ecmComboBox(), typed.section(QLatin1Char(' '), 1));
    acceptDialog(dialog);
}

void tst_CellWalk::change(QWidget* editor, const QString& typed)
{
    auto* const comboBox = qobject_cast<QComboBox*>(editor);
    if (auto* const dialog = qobject_cast<VariableSelectionDialog*>(editor)) {
        changeVariable(dialog, typed);
    } else if (auto* const ecm = qobject_cast<asamspecs_select*>(editor)) {
        changeEcm(ecm, typed);
    } else if (comboBox != nullptr && !comboBox->isEditable()) {
        pick(comboBox, typed);
    } else {
        typeOver(typed);
        press(Qt::Key_Return);
    }
}

// ---- The walk ----------------------------------------------------------------------------------

QVector<QStringList> tst_CellWalk::rowsOf(int tab) const
{
    QVector<QStringList> rows;
    const TreeModel* const model = modelOf(*m_window, tab);
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(rowTexts(*model, row));
    return rows;
}

void tst_CellWalk::editEachKindOfCell()
{
    QFETCH(RowKind, row);
    QFETCH(CellKind, cell);
    const QPersistentModelIndex index = prepare(row, cell.column);
    const QVector<QStringList> before = rowsOf(row.tab);
    const QByteArray fileBefore = saved();
    const int steps = stack()->count();

    QWidget* const editor = openCell(index);
    QCOMPARE(kindOf(editor), cell.opens);
    QCOMPARE(shownBy(editor), QString::fromLatin1(cell.shows));
    QCOMPARE(stack()->count(), steps);
    QCOMPARE(rowsOf(row.tab), before);
    if (editor != nullptr)
        change(editor, QString::fromLatin1(cell.typed));

    const QVector<QStringList> after = withTexts(before, row.row, cell.stored);
    const QByteArray fileAfter =
        cell.stored.isEmpty() ? fileBefore : withLines(fileBefore, row.lines, cell.linesAfter);
    QCOMPARE(openEditors(), 0);
    QCOMPARE(rowsOf(row.tab), after);
    QCOMPARE(stack()->count(), steps + cell.steps);
    QCOMPARE(saved(), fileAfter);

    for (int i = 0; i < cell.steps; ++i)
        stack()->undo();
    QCOMPARE(rowsOf(row.tab), before);
    QCOMPARE(saved(), fileBefore);
    for (int i = 0; i < cell.steps; ++i)
        stack()->redo();
    QCOMPARE(rowsOf(row.tab), after);
    QCOMPARE(saved(), fileAfter);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_CellWalk)
#include "tst_cell_walk.moc"
