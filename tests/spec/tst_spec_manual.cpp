// The manual page tells the commands, options and rules that the program has.

#include <QRegularExpression>
#include <QTest>

#include "commands.h"
#include "places.h"
#include "rules.h"
#include "spec_program.h"

namespace {

// The source of the manual page, with the characters that it escapes as they are.
QString manual()
{
    QString text = QString::fromUtf8(readFile(QStringLiteral(SCRIBON_SPEC_MANUAL)));
    return text.replace("\\-"_s, "-"_s);
}

// What is below the heading, up to the next one of the page.
QString below(const QString& heading)
{
    const QString rest = manual().section(heading + QLatin1Char('\n'), 1);
    return rest.section(QRegularExpression("^\\.S[HS] "_s, QRegularExpression::MultilineOption), 0,
                        0);
}

// The first groups of all matches, and the second ones behind a blank where there are.
QStringList found(const QString& pattern, const QString& text)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    QStringList names;
    for (auto matches = expression.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        names.append((match.captured(1) + QLatin1Char(' ') + match.captured(2)).trimmed());
    }
    return names;
}

// The lines behind .TP.
QString headsOfEntries(const QString& section)
{
    return found("^\\.TP\n(.*)$"_s, section).join(QLatin1Char('\n'));
}

QString helpOf(const QString& command)
{
    return QString::fromUtf8(runSpec({command, "--help"_s}).output);
}

}  // namespace

class tst_SpecManual : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void options_data();
    void options();
    void commands();
    void rules();
};

void tst_SpecManual::options_data()
{
    QTest::addColumn<QString>("command");
    for (const Command& command : COMMANDS)
        QTest::newRow(command.name) << QString::fromLatin1(command.name);
}

void tst_SpecManual::options()
{
    QFETCH(QString, command);
    const QStringList inHelp =
        found("^  (?:-h, )?(--[a-z-]+)(?: <([A-Z]+)>)?  "_s, helpOf(command));
    QCOMPARE(found(R"(^\.BR? (?:-h ", " )?(--[a-z-]+)(?: " \\fI([A-Z]+)\\fR")?$)"_s,
                   headsOfEntries(below(".SS "_s + command))),
             inHelp);
    QVERIFY(inHelp.contains("--help"_s));
}

void tst_SpecManual::commands()
{
    QStringList names;
    for (const Command& command : COMMANDS)
        names.append(QString::fromLatin1(command.name));
    QCOMPARE(found("^\\.SS (.*)$"_s, manual()), names);
    for (const QString& name : qAsConst(names))
        QVERIFY2(below(".SH SYNOPSIS"_s).contains("scribon-spec "_s + name), qPrintable(name));
}

void tst_SpecManual::rules()
{
    QString entries;
    for (const RuleFacts& facts : RULES) {
        entries += ".TP\n.BR %1 \" (%2)\"\n%3\n"_s.arg(QString::fromLatin1(facts.name),
                                                       QString::fromLatin1(nameOf(facts.severity)),
                                                       QString::fromLatin1(facts.meaning));
    }
    const QString page = below(".SH RULES"_s);
    QCOMPARE(page.mid(page.indexOf(".TP\n"_s)).section(".PP\n"_s, 0, 0), entries);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecManual)
#include "tst_spec_manual.moc"
