// The program scribon-spec: checks and prints spec files without a window, a display and a
// platform.

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTextCodec>
#include <algorithm>
#include <csignal>
#include <cstring>

#include "commands.h"

namespace {

QString usage()
{
    QString text = QStringLiteral(
        "Usage: scribon-spec COMMAND [OPTION]... [FILE]...\n"
        "\n"
        "FILE is a spec file, a folder, which is searched for scrib*, or - for standard input.\n"
        "\n"
        "Commands:\n");
    for (const Command& command : COMMANDS) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -8)
                    .arg(QLatin1String(command.summary));
    }
    return text + QStringLiteral(
                      "\n"
                      "scribon-spec COMMAND --help tells the options of a command.\n");
}

const Command* commandOfName(const QString& name)
{
    const auto* const found = std::find_if(
        COMMANDS.begin(), COMMANDS.end(),
        [&name](const Command& command) { return name == QLatin1String(command.name); });
    return found == COMMANDS.end() ? nullptr : found;
}

int printAndEnd(const QString& text)
{
    print(text.toLocal8Bit());
    return EXIT_CLEAN;
}

int run(QStringList arguments)
{
    const QString name = arguments.value(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h"))
        return printAndEnd(usage());
    if (name == QLatin1String("--version"))
        return printAndEnd(QStringLiteral("scribon-spec %1\n").arg(QLatin1String(SCRIBON_VERSION)));
    const Command* const command = commandOfName(name);
    if (command == nullptr) {
        return complain(name.isEmpty()
                            ? QStringLiteral("no command; try --help")
                            : QStringLiteral("unknown command %1; try --help").arg(name));
    }
    arguments.removeAt(1);
    arguments.first() = QStringLiteral("scribon-spec ") + name;
    return command->run(arguments);
}

// A descriptor that the caller has closed would be given to the next file that is opened, and what
// is printed would go there.
void openStandardStreams()
{
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) < 0)
            open("/dev/null", O_RDONLY);
    }
}

int statusOfOutput(int status)
{
    if (hasPrintedAll())
        return status;
    return complain(QStringLiteral("cannot write to standard output: %1")
                        .arg(QString::fromLocal8Bit(std::strerror(printError()))));
}

}  // namespace

// The encoding of a file must not depend on where it is checked: UTF-8, as on the cells.
int main(int argc, char* argv[])
{
    openStandardStreams();
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("scribon-spec"));
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return statusOfOutput(run(QCoreApplication::arguments()));
}
