// What --help of each command prints.

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "commands.h"
#include "spec_program.h"

namespace {

QString helpOf(const QString& command)
{
    return QString::fromUtf8(runSpec({command, "--help"_s}).output);
}

void addCommands()
{
    QTest::addColumn<QString>("command");
    for (const Command& command : COMMANDS)
        QTest::newRow(command.name) << QString::fromLatin1(command.name);
}

}  // namespace

class tst_SpecCommandHelp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void usages_data() { addCommands(); }
    void usages();
    void helpIsNotThatOfQt_data() { addCommands(); }
    void helpIsNotThatOfQt();
    void helpOfALink();
};

void tst_SpecCommandHelp::usages()
{
    QFETCH(QString, command);
    const QString usage = helpOf(command).section(QLatin1Char('\n'), 0, 0);
    const QString start = "Usage: scribon-spec %1 [options]"_s.arg(command);
    QVERIFY2(usage == start || usage.startsWith(start + QLatin1Char(' ')), qPrintable(usage));
}

void tst_SpecCommandHelp::helpIsNotThatOfQt()
{
    QFETCH(QString, command);
    QVERIFY(!helpOf(command).contains("--help-all"_s));
    const SpecRun all = runSpec({command, "--help-all"_s});
    QCOMPARE(all.status, 2);
    QCOMPARE(all.complaints, QByteArray("scribon-spec: Unknown option 'help-all'.\n"));
    QCOMPARE(runSpec({command, "-h"_s}).output, helpOf(command).toUtf8());
}

// The usage does not depend on how the program was called.
void tst_SpecCommandHelp::helpOfALink()
{
    QTemporaryDir folder;
    const QString link = folder.filePath("a name"_s);
    QVERIFY(QFile::link(specProgram(), link));
    QProcess program;
    program.start(link, {"diff"_s, "--help"_s});
    QVERIFY(program.waitForFinished());
    QCOMPARE(QString::fromUtf8(program.readAllStandardOutput()), helpOf("diff"_s));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecCommandHelp)
#include "tst_spec_command_help.moc"
