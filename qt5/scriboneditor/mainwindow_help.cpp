// The help and the About boxes.

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

// Empty if the platform library has no version text: MARVANE_VER is a weak symbol.
QString platformVersion()
{
    return &MARVANE_VER == nullptr ? QString() : QString::fromUtf8(MARVANE_VER);
}

}  // namespace

// The viewer stays open when the window is deleted, but ~Assistant() closes it. So Assistants are
// never deleted.
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
