#include "spec_program.h"

#include <QDir>
#include <QProcess>
#include <QTextCodec>

#include "places.h"

QString specProgram()
{
    return QStringLiteral(SCRIBON_SPEC_PROGRAM);
}

SpecRun runSpec(const QStringList& arguments, const QByteArray& input,
                const QProcessEnvironment& environment)
{
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(specProgram(), arguments);
    program.write(input);
    program.closeWriteChannel();
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        return {-1, {}, program.errorString().toUtf8()};
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

QStringList exampleSpecs()
{
    QStringList paths;
    const QDir examples(qEnvironmentVariable("SCRIBON_EXAMPLES"));
    for (const QString& name : examples.entryList({QStringLiteral("scrib_*")}, QDir::Files)) {
        if (!name.startsWith(QLatin1String("scrib_refused")))
            paths.append(examples.filePath(name));
    }
    return paths;
}

QByteArray exampleSpec(const QString& name)
{
    return readFile(qEnvironmentVariable("SCRIBON_EXAMPLES") + QLatin1Char('/') + name);
}

SpecFile loadedSpec(const QByteArray& text)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    SpecFile file = SpecFile::fromBytes(text, QStringLiteral("spec"));
    if (file.state() != SpecFile::State::Loaded)
        qFatal("not a spec file: %s", text.constData());
    return file;
}

QByteArray smallSpec()
{
    return "# start\n"
           "@SCRIBON\nsmall\n"
           "\n@MAX_SCANS\n10\n"
           "\n@RUNNING_AVERAGE\n10[sec]\t\ttake\n"
           "\n@SCAN_LIST\n"
           "# speeds\n"
           "eng_speed\t\t.AV\t\tN_ENG\n"
           "dyno_speed\t\tN_DYNO\n"
           "\n@META_DATA\nENGINE\t\tengine_name\n"
           "\n@SCAN_LIST_AUX_USER\noil_temp\t\tT_OIL\n"
           "\n@ECM_LIST\n1\t\t/specs/asam3_specs.1:ECM1:0\n";
}
