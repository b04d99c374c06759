// Corrects the broken example, guided by the marks only, until the error counters show 0.

#include <array>

#include "endtoend_test.h"

namespace {

const auto FILE_NAME = QStringLiteral("/specs/scrib_broken");
constexpr int TABS = 5;

enum Remedy { LINE, CHOICE, VARIABLE, ECM, ROW_REMOVED };

// The correction for a marked cell, which is identified by its column and by the first text of its
// row.
struct Mistake {
    int tab = 0;
    int column = 0;
    const char* rowText = "";
    Remedy remedy = LINE;
    const char* value = "";
    const char* number = "";  // extension number, if the cell is one of an ECM list
};

// clang-format off
constexpr std::array<Mistake, 42> MISTAKES{{
    {0, 0, "# This comment is too long: a comment has at most eighty characters, "
           "its number sign included", LINE, "# This comment was too long"},
    {0, 1, "@SCRIBON", LINE, "cell_4_mended"},
    {0, 1, "@DESCRIPTION", LINE, "'Quoted'"},
    {0, 1, "@GROUP", VARIABLE, "test_group"},
    {0, 1, "@PROGRAM", VARIABLE, "test_program"},
    {0, 1, "@SCAN_INTERVAL", VARIABLE, "10[min]"},
    {0, 1, "@MAX_SCANS", LINE, "7200"},
    {0, 0, "@MAX_STATISTICAL_SCANS", ROW_REMOVED, ""},
    {0, 1, "@LOG_STATISTICS", CHOICE, "no"},
    {0, 1, "@START_EVENT", LINE, "start_log"},
    {0, 2, "@RUNNING_AVERAGE", LINE, "take_it"},
    {0, 1, "@ENABLE", VARIABLE, "logging_enable"},
    {0, 0, "FILLER_TXT", ROW_REMOVED, ""},
    {0, 1, "@FIFO_POST_TRIGGER_INTERVAL", LINE, "2[sec]"},
    {0, 1, "@OUTPUT_PATH", VARIABLE, "/data/cell_4/mended"},
    {0, 1, "@FILENAME", LINE, "\"output_file\""},
    {0, 1, "UNKNOWN_KEYWORD", ROW_REMOVED, ""},
    {0, 0, "@META_HEADER_FILENAME", ROW_REMOVED, ""},

    {1, 3, "oil_temp", LINE, "T_OIL_SUMP"},
    {1, 3, "boost_press", CHOICE, "P_BOOST"},
    {1, 1, "2nd_oil_press", VARIABLE, "oil_press_filter_in"},
    {1, 3, "brake_torque", CHOICE, "TRQ_AVG"},
    {1, 3, "TRQ", ROW_REMOVED, ""},
    {1, 3, "brake_power", LINE, "PWR_CORR"},
    {1, 1, "FILLER_TXT", VARIABLE, "oil_temp"},

    {2, 1, "OPERATOR", CHOICE, "ENGINEER"},
    {2, 1, "ENGINE-SERIAL", LINE, "ENGINE_SERIAL"},
    {2, 2, "ENGINE_BUILD", VARIABLE, "eng_build"},
    {2, 2, "FUEL_NAME", VARIABLE, "\"Lot 7\""},
    {2, 2, "BORE", VARIABLE, "bore"},

    {3, 2, "brake_torque", LINE, "shaft_torque"},
    {3, 2, "fuel_flow", LINE, "fuel_rate"},
    {3, 1, "'boost press'", VARIABLE, "boost_press"},
    {3, 2, "nox_out", LINE, "second_nox"},

    {4, 1, "1", LINE, "3"},
    {4, 2, "2", ECM, "/specs/asam3_specs.aftertreatment:NOX_IN:0", "2"},
    {4, 1, "FILLER_TXT", ECM, "/specs/asam3_specs.engine:ECM1:0", "5"},
    {4, 2, "4", ECM, "/specs/asam3_specs.aftertreatment:NOX_OUT:0", "4"},
    {4, 1, "five", LINE, "8"},
    {4, 2, "6", ECM, "/specs/asam3_specs.aftertreatment:ACM0:0", "6"},
    {4, 2, "7", ECM, "/specs/asam3_specs.aftertreatment:ACM0:1", "7"},
}};
// clang-format on

struct Mark {
    int row;
    int column;
    QString rowText;
};

// In reverse order, so that removing a row does not move those that are still to be corrected.
QVector<Mark> marksFromBelow(const SeenTable& table, int tab)
{
    const int textColumn = tab == 0 ? 0 : 1;
    QVector<Mark> marks;
    for (int row = 0; row < table.rows.size(); ++row) {
        for (int column = 0; column < table.rows[row].size(); ++column) {
            if (table.rows[row][column].code > 0)
                marks.prepend({row, column, table.text(row, textColumn)});
        }
    }
    return marks;
}

const Mistake* mistakeAt(const Mark& mark, int tab)
{
    for (const Mistake& mistake : MISTAKES) {
        if (mistake.tab == tab && mistake.column == mark.column &&
            QLatin1String(mistake.rowText) == mark.rowText)
            return &mistake;
    }
    return nullptr;
}

}  // namespace

class tst_Mending : public EndToEndTest {
    Q_OBJECT

private Q_SLOTS:
    void correctingAllErrorsGivesAValidFile();

private:
    void mendTab(int tab);
    bool mend(const Mark& mark, const Mistake& mistake);
    bool mendEcm(const Mark& mark, const Mistake& mistake);
    bool removeRow(const Mark& mark, int tab);
    void saveAndReopen();
};

bool tst_Mending::removeRow(const Mark& mark, int tab)
{
    User& user = *m_user;
    const int rows = user.table(tab).rows.size();
    if (!user.select(tab, mark.row, tab == 0 ? 0 : 1))
        return false;
    user.press(QStringLiteral("ctrl+r"));
    return user.waitUntil([&] { return user.table(tab).rows.size() == rows - 1; });
}

// The dialog belongs to the cell with the path and also sets the number.
bool tst_Mending::mendEcm(const Mark& mark, const Mistake& mistake)
{
    User& user = *m_user;
    const QString value = QLatin1String(mistake.value);
    return user.open(mistake.tab, mark.row, 2) &&
           user.pickIn(QStringLiteral("specfiles"), value.section(QLatin1Char(':'), 0, 0)) &&
           user.pickIn(QStringLiteral("ecmInstance"), value.section(QLatin1Char(':'), 1)) &&
           user.typeNumber(QStringLiteral("extensionNumber"), QLatin1String(mistake.number)) &&
           user.endDialog(QStringLiteral("OK"));
}

bool tst_Mending::mend(const Mark& mark, const Mistake& mistake)
{
    User& user = *m_user;
    const QString value = QLatin1String(mistake.value);
    switch (mistake.remedy) {
        case LINE:
            return user.open(mistake.tab, mark.row, mark.column) && user.enter(value);
        case CHOICE:
            return user.open(mistake.tab, mark.row, mark.column) && user.pick(value);
        case VARIABLE:
            return user.open(mistake.tab, mark.row, mark.column) && user.typeVariable(value) &&
                   user.endDialog(QStringLiteral("Ok"));
        case ECM:
            return mendEcm(mark, mistake);
        case ROW_REMOVED:
            return removeRow(mark, mistake.tab);
    }
    return false;
}

// Each mark counts as one error of the tab.
void tst_Mending::mendTab(int tab)
{
    User& user = *m_user;
    QVERIFY(user.goToTab(tab));
    const QVector<Mark> marks = marksFromBelow(user.table(tab), tab);
    const int others = user.allErrors() - marks.size();
    QVERIFY(user.seesErrors(marks.size(), user.allErrors()));
    for (const Mark& mark : marks) {
        const Mistake* const mistake = mistakeAt(mark, tab);
        if (mistake == nullptr)
            QFAIL(qPrintable(mark.rowText));
        QVERIFY2(mend(mark, *mistake), mistake->rowText);
    }
    QVERIFY(user.seesErrors(0, others));
    QVERIFY(marksFromBelow(user.table(tab), tab).isEmpty());
}

void tst_Mending::saveAndReopen()
{
    User& user = *m_user;
    const auto saved = QStringLiteral("File saved");
    const auto loaded = QStringLiteral("File loaded");
    user.press(QStringLiteral("ctrl+s"));
    QVERIFY(user.waitUntil([&] { return user.news() == saved; }));
    user.press(QStringLiteral("ctrl+o"));
    QVERIFY(user.answerFileDialog(FILE_NAME));
    QVERIFY(user.waitUntil([&] { return user.news() == loaded; }));
}

void tst_Mending::correctingAllErrorsGivesAValidFile()
{
    for (const char* const name :
         {"scrib_broken", "asam3_specs.engine", "asam3_specs.aftertreatment"})
        QVERIFY(provide(QLatin1String(name)));
    QVERIFY(start({FILE_NAME}));
    QVERIFY(m_user->seesErrors(19, 42));
    for (int tab = 0; tab < TABS; ++tab) {
        mendTab(tab);
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(m_user->seesErrors(0, 0));

    const QVector<QStringList> mended = m_user->texts();
    saveAndReopen();
    QCOMPARE(m_user->texts(), mended);
    QVERIFY(m_user->seesErrors(0, 0));
    const QByteArray file = readFile(FILE_NAME);
    saveAndReopen();
    QCOMPARE(linesOf(readFile(FILE_NAME)), linesOf(file));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_Mending)

#include "tst_mending.moc"
