// Looks into the real program from within: a plugin that the toolkit loads while it makes the
// application object.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QGenericPlugin>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QMessageBox>
#include <QMetaType>
#include <QStatusBar>
#include <functional>

#include "plugin_requests.h"

namespace {

QJsonObject describe(const QWidget* widget)
{
    QJsonObject facts{{QStringLiteral("class"), QLatin1String(widget->metaObject()->className())},
                      {QStringLiteral("title"), widget->windowTitle()},
                      {QStringLiteral("visible"), widget->isVisible()}};
    if (const auto* const box = qobject_cast<const QMessageBox*>(widget)) {
        facts.insert(QStringLiteral("text"), box->text());
        facts.insert(QStringLiteral("icon"), box->icon());
        facts.insert(QStringLiteral("buttons"), static_cast<int>(box->standardButtons()));
        facts.insert(QStringLiteral("hasParent"), box->parentWidget() != nullptr);
    }
    if (const auto* const bar = widget->findChild<QStatusBar*>(QStringLiteral("statusbar")))
        facts.insert(QStringLiteral("news"), bar->currentMessage());
    return facts;
}

QJsonArray windows()
{
    QJsonArray list;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QMainWindow") || widget->inherits("QDialog") || widget->isVisible())
            list.append(describe(widget));
    }
    return list;
}

// Each resource of the program with its size, -1 when it does not open, and whether it is a
// picture.
QJsonObject resources()
{
    QJsonObject list;
    QDirIterator names(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (names.hasNext()) {
        QFile file(names.next());
        const bool opened = file.open(QIODevice::ReadOnly);
        list.insert(file.fileName(),
                    QJsonArray{opened ? static_cast<int>(file.readAll().size()) : -1,
                               !QImage(file.fileName()).isNull()});
    }
    return list;
}

void writeToLog()
{
    qDebug("a debug text");
    qWarning("a warning");
    qCritical("a critical text");
    qInfo("an info");
}

void press(QMessageBox::StandardButton which)
{
    if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
        box->button(which)->click();
}

// Triggers an action of the window by its object name, as its menu does.
void trigger(const QString& action)
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const found = widget->findChild<QAction*>(action))
            found->trigger();
    }
}

}  // namespace

class Probe : public PluginRequests {
public:
    Probe();

private:
    QJsonValue answer(const QString& request) const override;
    QJsonObject state() const;

    // As they were before the application object was complete.
    const int m_metaType = QMetaType::type("pANTLR3_BASE_TREE");
};

Probe::Probe()
{
    qCritical("the application object is being made");
}

QJsonObject Probe::state() const
{
    return {{QStringLiteral("windows"), windows()},
            {QStringLiteral("arguments"), QJsonArray::fromStringList(QApplication::arguments())},
            {QStringLiteral("styleSheet"), qApp->styleSheet()},
            {QStringLiteral("metaType"), m_metaType},
            {QStringLiteral("stylePropagation"),
             QApplication::testAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles)}};
}

QJsonValue Probe::answer(const QString& request) const
{
    const QHash<QString, std::function<void()>> deeds{
        {QStringLiteral("log"), [] { writeToLog(); }},
        {QStringLiteral("fatal"), [] { qFatal("the end"); }},
        {QStringLiteral("press ok"), [] { press(QMessageBox::Ok); }},
        {QStringLiteral("close"), [] { QApplication::closeAllWindows(); }}};
    const auto triggering = QStringLiteral("trigger ");
    if (request.startsWith(triggering)) {
        const QString action = request.mid(triggering.size());
        QMetaObject::invokeMethod(
            qApp, [action] { trigger(action); }, Qt::QueuedConnection);
    }
    if (request == QLatin1String("resources"))
        return resources();
    if (deeds.contains(request))
        QMetaObject::invokeMethod(qApp, deeds.value(request), Qt::QueuedConnection);
    return state();
}

class ProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*specification*/) override
    {
        return new Probe;
    }
};

#include "probe.moc"
