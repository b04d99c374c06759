// The process: joins the platform, proves that it runs, and shows the one window.

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

// Ends at the first NUL byte; empty when the resource cannot be read.
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

// The order is the platform's: its calls come before the toolkit's application object, and nothing
// of the process stays locked in memory from then on.
int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(scriboneditor);  // the linker drops a static library's resources otherwise
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
    // Lives to the end of the process: the window's own close event does the cleaning up.
    auto* const mainWindow = new MainWindow(nullptr);
    if (QCoreApplication::arguments().size() > 1)
        mainWindow->loadFile(QString::fromLocal8Bit(argv[1]), false);
    mainWindow->readSettings();
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles, true);
    mainWindow->ensurePolished();
    mainWindow->show();
    return QApplication::exec();
}
