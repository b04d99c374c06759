// Where the user learns about the editor: its help, and what it is.

#include <QMessageBox>
#include <vector>

#include "assistant.h"
#include "mainwindow.h"
#include "marvane_headers.h"

namespace {

constexpr auto ABOUT = QT_TRANSLATE_NOOP(
    "MainWindow",
    "The <b>Scribon Specifications Editor</b>( %1) allows a user to create and modify scribon "
    "specification files.<br><br><b>Special Thanks to</b><br>"
    "the developers of this editor for the Scribon editor's own icon set, which comes under the "
    "<a href=\"file:///usr/local/share/doc/marvane/qt/scriboneditor/LICENSE\">MIT License</a>.");

// Empty with a platform that tells none.
QString platformVersion()
{
    return &MARVANE_VER == nullptr ? QString() : QString::fromUtf8(MARVANE_VER);
}

}  // namespace

// Deleting an Assistant closes its viewer, which is to stay open when the window goes. So they live
// as long as the process.
Assistant* MainWindow::makeAssistant()
{
    static auto* const assistants = new std::vector<std::unique_ptr<Assistant>>;
    return assistants->emplace_back(std::make_unique<Assistant>()).get();
}

void MainWindow::showDocumentation()
{
    assistant->showDocumentation();
}

QString MainWindow::getVersionNumber()
{
    const QString text = platformVersion();
    const QString rest = text.mid(text.indexOf(QLatin1Char(' ')) + 1);
    const int blank = rest.indexOf(QLatin1Char(' '));
    return blank < 0 ? rest : rest.left(blank + 1);
}

void MainWindow::about()
{
    QMessageBox::about(this, tr("About Scribon Specification Editor"),
                       tr(ABOUT).arg(getVersionNumber()));
}

void MainWindow::aboutQt()
{
    QMessageBox::aboutQt(this);
}
