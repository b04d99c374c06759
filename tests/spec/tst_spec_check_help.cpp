// The help page on checking tells the rules, formats and options that the program has.

#include <QRegularExpression>
#include <QTest>

#include "places.h"
#include "report.h"
#include "rules.h"
#include "spec_program.h"

namespace {

QString page()
{
    return QString::fromUtf8(readFile(QStringLiteral(SCRIBON_HELP "/spec_check.md")));
}

// The rows of the table with this head.
QStringList tableBelow(const QString& head)
{
    const QString rest = page().section(head + QLatin1Char('\n'), 1);
    return rest.section("\n\n"_s, 0, 0).split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
}

}  // namespace

class tst_SpecCheckHelp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rules();
    void formats();
    void options();
};

void tst_SpecCheckHelp::rules()
{
    QStringList rows;
    for (const RuleFacts& facts : RULES)
        rows.append("| `%1` | %2 | %3 | %4 |"_s.arg(
            QString::fromLatin1(facts.name), QString::fromLatin1(nameOf(facts.severity)),
            QString::fromLatin1(facts.meaning), QString::fromLatin1(facts.remedy)));
    QCOMPARE(tableBelow("| Rule | Severity | What it means | The way out |"_s), rows);
}

void tst_SpecCheckHelp::formats()
{
    const QStringList rows = tableBelow("| Form | You get |"_s);
    QCOMPARE(rows.size(), 4);
    for (const QString& row : rows) {
        const QString name = row.section(QLatin1Char('`'), 1, 1);
        QVERIFY2(reportOfName(name, TextTarget::File) != nullptr, qPrintable(name));
    }
}

// All that --help lists is on the page, but for help itself.
void tst_SpecCheckHelp::options()
{
    const QString help = QString::fromUtf8(runSpec({"check"_s, "--help"_s}).output);
    auto names = QRegularExpression("--[a-z-]+"_s).globalMatch(help);
    int count = 0;
    while (names.hasNext()) {
        const QString name = names.next().captured();
        if (name == "--help"_s)
            continue;
        QVERIFY2(page().contains(QLatin1Char('`') + name), qPrintable(name));
        ++count;
    }
    QVERIFY(count >= 6);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCheckHelp)
#include "tst_spec_check_help.moc"
