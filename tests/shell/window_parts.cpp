#include "window_parts.h"

#include <QStatusBar>

QTreeView* viewOf(const QWidget& window, int tab)
{
    return window.findChild<QTreeView*>(QStringLiteral("view%1").arg(tab));
}

TreeModel* modelOf(const QWidget& window, int tab)
{
    return qobject_cast<TreeModel*>(viewOf(window, tab)->model());
}

QTabWidget* tabsOf(const QWidget& window)
{
    return window.findChild<QTabWidget*>(QStringLiteral("tabWidget"));
}

QAction* actionOf(const QWidget& window, const char* name)
{
    return window.findChild<QAction*>(QLatin1String(name));
}

QString titleOf(const QWidget& window)
{
    const auto program = QStringLiteral("Scribon Specification Editor:");
    const QString title = window.windowTitle();
    return title.startsWith(program) ? title.mid(program.size())
                                     : QStringLiteral("not the program's title: ") + title;
}

QString newsOf(const MainWindow& window)
{
    return window.findChild<QStatusBar*>(QStringLiteral("statusbar"))->currentMessage();
}

QStringList rowTexts(const QAbstractItemModel& model, int row)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.index(row, column).data().toString());
    return texts;
}

QStringList columnTexts(const QAbstractItemModel& model, int column)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, column).data().toString());
    return texts;
}

void goTo(QTreeView* view, int row, int column)
{
    view->selectionModel()->setCurrentIndex(view->model()->index(row, column),
                                            QItemSelectionModel::ClearAndSelect);
}
