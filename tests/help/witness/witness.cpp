// A Qt plugin in the help viewer that writes to a file what the viewer shows.

#include <QAbstractItemView>
#include <QApplication>
#include <QDockWidget>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QSaveFile>
#include <QTimer>
#include <QTreeView>

namespace {

constexpr int TELLING_MS = 50;

// The texts of the visible rows, with those of expanded rows.
QJsonArray rows(const QAbstractItemView* view, const QModelIndex& parent = {})
{
    QJsonArray texts;
    const auto* const tree = qobject_cast<const QTreeView*>(view);
    for (int row = 0; view->model() != nullptr && row < view->model()->rowCount(parent); ++row) {
        const QModelIndex index = view->model()->index(row, 0, parent);
        texts.append(index.data().toString());
        if (tree != nullptr && tree->isExpanded(index)) {
            for (const QJsonValue child : rows(view, index))
                texts.append(child);
        }
    }
    return texts;
}

QJsonObject describe(const QAbstractItemView* view)
{
    if (view == nullptr)
        return {};
    return {{QStringLiteral("rows"), rows(view)},
            {QStringLiteral("current"), view->currentIndex().data().toString()}};
}

// The visible dock widgets by their titles, with their lists.
QJsonObject docks(const QMainWindow* window)
{
    QJsonObject shown;
    for (const QDockWidget* const dock : window->findChildren<QDockWidget*>()) {
        if (dock->isVisible())
            shown.insert(dock->windowTitle(), describe(dock->findChild<QAbstractItemView*>()));
    }
    return shown;
}

QJsonArray windows()
{
    QJsonArray list;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        const auto* const window = qobject_cast<const QMainWindow*>(widget);
        if (window != nullptr && window->isVisible())
            list.append(QJsonObject{{QStringLiteral("title"), window->windowTitle()},
                                    {QStringLiteral("docks"), docks(window)}});
    }
    return list;
}

void tell()
{
    QSaveFile file(qEnvironmentVariable("VIEWER_WITNESS_FILE"));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(QJsonDocument(windows()).toJson());
        file.commit();
    }
}

}  // namespace

class ViewerWitness : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "witness.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*specification*/) override
    {
        auto* const timer = new QTimer;
        connect(timer, &QTimer::timeout, timer, tell);
        timer->start(TELLING_MS);
        return timer;
    }
};

#include "witness.moc"
