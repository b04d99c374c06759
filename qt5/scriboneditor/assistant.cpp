#include "assistant.h"

#include <QFile>
#include <QMessageBox>
#include <QStringList>

namespace {

const auto COLLECTION =
    QStringLiteral("/usr/local/share/doc/marvane/qt/scriboneditor/scriboneditor.qhc");
const auto DOCUMENTATION_PACKAGE = QStringLiteral("scriboneditor_docs");

constexpr int START_TIMEOUT_MS = 30000;
constexpr int END_TIMEOUT_MS = 3000;

// Commands for Qt Assistant's remote control: show only the expanded contents and the first page of
// the help.
constexpr auto SHOW_HELP =
    "hide bookmarks;"
    "hide index;"
    "hide search;"
    "expandToc -1;"
    "setSource qthelp://marvane.scriboneditor.1.0/doc/scriboneditorHelp.htm\n";

// The viewer below the directory that QT5DIR names. The first environment entry that contains
// "QT5DIR" anywhere is used; without one, QStringList::first() ends the program by an assertion.
// Existing behaviour, kept for compatibility.
QString viewerPath()
{
    const QStringList entries =
        QProcess::systemEnvironment().filter(QStringLiteral("QT5DIR"), Qt::CaseSensitive);
    return entries.first().split(QLatin1Char('=')).last() + QStringLiteral("/bin/assistant");
}

// The viewer outlives the editor, so its output must not go to a pipe of the editor: a write would
// end it by SIGPIPE then, and QProcess would buffer all output until then.
std::unique_ptr<QProcess> makeProcess()
{
    auto process = std::make_unique<QProcess>();
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    return process;
}

}  // namespace

Assistant::Assistant() = default;

Assistant::~Assistant()
{
    if (proc == nullptr || proc->state() != QProcess::Running)
        return;
    proc->terminate();
    proc->waitForFinished(END_TIMEOUT_MS);
}

void Assistant::showDocumentation()
{
    if (!QFile::exists(COLLECTION)) {
        QMessageBox::information(
            nullptr, tr("Documentation Error"),
            tr("The documentation for this program isn't installed on your system.\n\n"
               "You can install it by using your system's package manager to install the package "
               "'%1'.")
                .arg(DOCUMENTATION_PACKAGE),
            QMessageBox::Ok);
        return;
    }
    if (startAssistant())
        proc->write(SHOW_HELP);
}

bool Assistant::startAssistant()
{
    if (proc == nullptr)
        proc = makeProcess();
    if (proc->state() == QProcess::Running)
        return true;
    const QString viewer = viewerPath();
    proc->start(
        viewer,
        {QStringLiteral("-collectionFile"), COLLECTION, QStringLiteral("-enableRemoteControl")},
        QIODevice::ReadWrite);
    if (proc->waitForStarted(START_TIMEOUT_MS))
        return true;
    QMessageBox::critical(nullptr, tr("scriboneditor"),
                          tr("Unable to launch Qt Assistant (%1)").arg(viewer), QMessageBox::Ok);
    return false;
}
