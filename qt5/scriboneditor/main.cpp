// Entry point: attaches to the platform and shows the main window.

#include <sys/mman.h>

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <cstdlib>

#include "editor_antlr3.h"
#include "mainwindow.h"
#include "marvane_headers.h"
#include "messageoutput.h"
#include "treeitem.h"

namespace {

// The style sheet, up to its first NUL byte; empty if the resource cannot be read.
QString readStyle(QFile* styleFile)
{
    styleFile->open(QIODevice::ReadOnly);
    const QByteArray bytes = styleFile->readAll();
    if (styleFile->isOpen())
        styleFile->close();
    return QString::fromUtf8(bytes.constData());
}

bool platformIsRunning()
{
    void* Sys_attr = nullptr;
    return static_cast<quint16>(link_to_memory(SYS_ATTR_MEM, &Sys_attr)) != 0;
}

[[noreturn]] void endWithoutPlatform()
{
    const QString text =
        QStringLiteral("%1 must be running to use this command").arg(QStringLiteral("Marvane"));
    QMessageBox::information(nullptr, QStringLiteral("Marvane Not Running Error"), text,
                             QMessageBox::Ok);
    std::exit(1);
}

}  // namespace

// The order matters: the platform's calls come before the QApplication is made, and munlockall()
// comes after them, so that no page of the process stays locked in memory.
int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(scriboneditor);  // needed: the resources are in a static library
    QFile styleFile(QStringLiteral(":/resources/qss/default.qss"));
    marvane_init_fn(1);
    qRegisterMetaType<pANTLR3_BASE_TREE>("pANTLR3_BASE_TREE");
    join_layer(5);
    const QString style = readStyle(&styleFile);
    munlockall();
    qInstallMessageHandler(myMessageOutput);
    QApplication app(argc, argv);
    app.setStyleSheet(style);
    if (!platformIsRunning())
        endWithoutPlatform();
    // Never deleted: closeEvent() does the cleanup.
    auto* const mainWindow = new MainWindow(nullptr);
    if (QCoreApplication::arguments().size() > 1)
        mainWindow->loadFile(QString::fromLocal8Bit(argv[1]), false);
    mainWindow->readSettings();
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles, true);
    mainWindow->ensurePolished();
    mainWindow->show();
    return QApplication::exec();
}
