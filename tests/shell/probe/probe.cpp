// A Qt plugin in the real program that reports its state and triggers actions. It is loaded when
// the QApplication is constructed.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QFile>
#include <QGenericPlugin>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaType>
#include <QPushButton>
#include <QStatusBar>
#include <QThread>
#include <QTreeView>
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
    // The notice may be hidden while a message is shown.
    if (const auto* const label = widget->findChild<QLabel*>(QStringLiteral("noticeLabel")))
        facts.insert(QStringLiteral("notice"), label->text());
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

// Each Qt resource of the program with its size, -1 if it cannot be opened, and whether it is a
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

// Triggers an action of the window, given by its object name, like its menu.
void trigger(const QString& action)
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const found = widget->findChild<QAction*>(action))
            found->trigger();
    }
}

QTreeView* viewOfTab(int tab)
{
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const found = widget->findChild<QTreeView*>(QStringLiteral("view%1").arg(tab)))
            return found;
    }
    return nullptr;
}

QJsonArray cellsOf(const QAbstractItemModel& model, int row)
{
    QJsonArray cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells.append(model.index(row, column).data(Qt::EditRole).toString());
    return cells;
}

// The texts of all cells: an array of tabs, each an array of rows.
QJsonArray document()
{
    QJsonArray tabs;
    for (int tab = 0; const QTreeView* const view = viewOfTab(tab); ++tab) {
        QJsonArray rows;
        for (int row = 0; view->model() != nullptr && row < view->model()->rowCount(); ++row)
            rows.append(cellsOf(*view->model(), row));
        tabs.append(rows);
    }
    return tabs;
}

void type(QWidget* widget, int key, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
}

// Opens the editor of a value on the Keywords tab. Returns it if it is in the cell, otherwise null.
QWidget* openEditor(int row)
{
    QTreeView* const view = viewOfTab(0);
    const QModelIndex index = view->model()->index(row, 1);
    view->setCurrentIndex(index);
    view->edit(index);
    return view->indexWidget(index);
}

// Replaces a value on the Keywords tab by typing, and presses Return.
void edit(int row, const QString& text)
{
    auto* const line = qobject_cast<QLineEdit*>(openEditor(row));
    if (line == nullptr)
        return;
    line->selectAll();
    type(line, 0, text);
    type(line, Qt::Key_Return, QString());
}

// Accepts the open file dialog with this file name.
void choose(const QString& file)
{
    const QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr)
        return;
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
}

}  // namespace

class Probe : public PluginRequests {
public:
    Probe();
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QJsonValue answer(const QString& request) const override;
    QJsonObject state() const;

    // The values before the QApplication is completely constructed.
    const int m_metaType = QMetaType::type("pANTLR3_BASE_TREE");

    bool m_polishedHidden = false;  // the main window, before it was asked to show itself
};

Probe::Probe()
{
    qCritical("the application object is being made");
    qApp->installEventFilter(this);
}

bool Probe::eventFilter(QObject* object, QEvent* event)
{
    const auto* const widget = qobject_cast<const QWidget*>(object);
    if (event->type() == QEvent::Polish && widget != nullptr && widget->inherits("QMainWindow"))
        m_polishedHidden = !widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
    return PluginRequests::eventFilter(object, event);
}

QJsonObject Probe::state() const
{
    return {{QStringLiteral("windows"), windows()},
            {QStringLiteral("arguments"), QJsonArray::fromStringList(QApplication::arguments())},
            {QStringLiteral("styleSheet"), qApp->styleSheet()},
            // A closed dialog returns from exec() a little later, so the loop level tells.
            {QStringLiteral("settled"), QThread::currentThread()->loopLevel() == 1 ||
                                            QApplication::activeModalWidget() != nullptr},
            {QStringLiteral("metaType"), m_metaType},
            {QStringLiteral("polishedHidden"), m_polishedHidden},
            {QStringLiteral("stylePropagation"),
             QApplication::testAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles)}};
}

QJsonValue Probe::answer(const QString& request) const
{
    const QHash<QString, std::function<void()>> deeds{
        {QStringLiteral("log"), [] { writeToLog(); }},
        {QStringLiteral("fatal"), [] { qFatal("the end"); }},
        {QStringLiteral("press ok"), [] { press(QMessageBox::Ok); }},
        {QStringLiteral("announce the end"),
         [] { QMetaObject::invokeMethod(qApp, "aboutToQuit", Qt::DirectConnection); }},
        {QStringLiteral("close"), [] { QApplication::closeAllWindows(); }}};
    // Requests with an argument, which may have blanks.
    const QHash<QString, std::function<void(const QString&)>> deedsWith{
        {QStringLiteral("trigger"), [](const QString& action) { trigger(action); }},
        {QStringLiteral("choose"), [](const QString& file) { choose(file); }},
        {QStringLiteral("open"), [](const QString& row) { openEditor(row.toInt()); }},
        {QStringLiteral("edit"), [](const QString& rowAndText) {
             edit(rowAndText.section(QLatin1Char(' '), 0, 0).toInt(),
                  rowAndText.section(QLatin1Char(' '), 1));
         }}};
    const QString verb = request.section(QLatin1Char(' '), 0, 0);
    const QString argument = request.section(QLatin1Char(' '), 1);
    if (request == QLatin1String("resources"))
        return resources();
    if (request == QLatin1String("document"))
        return document();
    if (deeds.contains(request))
        QMetaObject::invokeMethod(qApp, deeds.value(request), Qt::QueuedConnection);
    if (deedsWith.contains(verb)) {
        const auto deed = [deed = deedsWith.value(verb), argument] { deed(argument); };
        QMetaObject::invokeMethod(qApp, deed, Qt::QueuedConnection);
    }
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
