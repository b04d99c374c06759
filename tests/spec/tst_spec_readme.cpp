// The README's commands of scribon-spec print what stands below them there.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "places.h"
#include "spec_program.h"

namespace {

struct Example {
    QString command;
    QString output;
};

QVector<Example> examplesOfTheReadme()
{
    const QString readme = QString::fromUtf8(readFile(QStringLiteral(SCRIBON_README)));
    const QString section = readme.section("### Spec files without the window\n"_s, 1);
    QVector<Example> examples;
    for (const QString& text : section.section("```\n"_s, 1, 1).split("$ "_s).mid(1))
        examples.append(
            {text.section(QLatin1Char('\n'), 0, 0), text.section(QLatin1Char('\n'), 1)});
    return examples;
}

}  // namespace

class tst_SpecReadme : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void commandsPrintWhatTheReadmeSays();

private:
    QString run(const QString& command) const;

    QTemporaryDir m_folder;
};

// As in the folder of the sources.
QString tst_SpecReadme::run(const QString& command) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH"_s, QFileInfo(specProgram()).path() + ":"_s +
                                     QStringLiteral(MARVANE_DESK_DIR) + ":"_s +
                                     environment.value("PATH"_s));
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.setWorkingDirectory(m_folder.path());
    shell.start("/bin/sh"_s, {"-c"_s, command});
    return shell.waitForFinished() ? QString::fromUtf8(shell.readAll()) : shell.errorString();
}

void tst_SpecReadme::commandsPrintWhatTheReadmeSays()
{
    QVERIFY(QFile::link(qEnvironmentVariable("SCRIBON_EXAMPLES"), m_folder.filePath("examples"_s)));
    const QVector<Example> examples = examplesOfTheReadme();
    QVERIFY(examples.size() >= 7);
    for (const Example& example : examples)
        QCOMPARE(run(example.command), example.output);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_SpecReadme)
#include "tst_spec_readme.moc"
