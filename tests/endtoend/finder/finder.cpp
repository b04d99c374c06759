// A Qt plugin in the real program that reports positions and texts of its widgets. It changes
// nothing. All rectangles are [x, y, width, height] in screen coordinates.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QToolTip>
#include <QTreeView>

#include "plugin_requests.h"

namespace {

QJsonArray onScreen(const QWidget* widget, const QRect& rect)
{
    const QPoint corner = widget->mapToGlobal(rect.topLeft());
    return {corner.x(), corner.y(), rect.width(), rect.height()};
}

QJsonArray onScreen(const QWidget* widget)
{
    return onScreen(widget, widget->rect());
}

QString textOf(const QWidget* widget)
{
    if (const auto* const line = qobject_cast<const QLineEdit*>(widget))
        return line->text();
    if (const auto* const box = qobject_cast<const QComboBox*>(widget))
        return box->currentText();
    if (const auto* const spin = qobject_cast<const QSpinBox*>(widget))
        return spin->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (const auto* const label = qobject_cast<const QLabel*>(widget))
        return label->text();
    return {};
}

QString selectionOf(const QWidget* widget)
{
    if (const auto* const line = qobject_cast<const QLineEdit*>(widget))
        return line->selectedText();
    if (const auto* const box = qobject_cast<const QComboBox*>(widget))
        return box->lineEdit() == nullptr ? QString() : box->lineEdit()->selectedText();
    if (const auto* const spin = qobject_cast<const QSpinBox*>(widget))
        return spin->findChild<QLineEdit*>()->selectedText();
    return {};
}

QJsonObject describe(const QWidget* widget)
{
    if (widget == nullptr)
        return {};
    return {{QStringLiteral("class"), QLatin1String(widget->metaObject()->className())},
            {QStringLiteral("name"), widget->objectName()},
            {QStringLiteral("text"), textOf(widget)},
            {QStringLiteral("selection"), selectionOf(widget)},
            {QStringLiteral("window"), widget->window()->windowTitle()},
            {QStringLiteral("inTable"),
             widget->parentWidget() != nullptr &&
                 qobject_cast<const QTreeView*>(widget->parentWidget()->parentWidget()) != nullptr},
            {QStringLiteral("enabled"), widget->isEnabled()},
            {QStringLiteral("rect"), onScreen(widget)}};
}

QJsonArray windows()
{
    QJsonArray list;
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        if (!window->isVisible())
            continue;
        QJsonObject facts = describe(window);
        const QRect frame = window->frameGeometry();
        facts.insert(QStringLiteral("frame"),
                     QJsonArray{frame.x(), frame.y(), frame.width(), frame.height()});
        facts.insert(QStringLiteral("active"), window->isActiveWindow());
        if (const auto* const box = qobject_cast<const QMessageBox*>(window))
            facts.insert(QStringLiteral("text"), box->text());
        list.append(facts);
    }
    return list;
}

QJsonArray widgets()
{
    QJsonArray list;
    for (const QWidget* const widget : QApplication::allWidgets()) {
        if (widget->isVisible() && !widget->isWindow())
            list.append(describe(widget));
    }
    return list;
}

QJsonArray tabs(const QWidget* window)
{
    QJsonArray list;
    const auto* const bar = window->findChild<QTabBar*>();
    for (int i = 0; bar != nullptr && i < bar->count(); ++i)
        list.append(onScreen(bar, bar->tabRect(i)));
    return list;
}

template <typename Menu>
void appendActions(const Menu* menu, QJsonArray* list)
{
    for (QAction* const action : menu->actions()) {
        QString text = action->text();
        list->append(
            QJsonObject{{QStringLiteral("text"), text.remove(QLatin1Char('&'))},
                        {QStringLiteral("enabled"), action->isEnabled()},
                        {QStringLiteral("rect"), onScreen(menu, menu->actionGeometry(action))}});
    }
}

// The actions of the menu bar and of open menus.
QJsonArray actions()
{
    QJsonArray list;
    for (const QWidget* const widget : QApplication::allWidgets()) {
        if (!widget->isVisible())
            continue;
        if (const auto* const bar = qobject_cast<const QMenuBar*>(widget))
            appendActions(bar, &list);
        if (const auto* const menu = qobject_cast<const QMenu*>(widget))
            appendActions(menu, &list);
    }
    return list;
}

// The open popup list of a combo box or completer; null if there is none.
const QAbstractItemView* openList()
{
    const QWidget* const popup = QApplication::activePopupWidget();
    if (popup == nullptr || popup->inherits("QMenu"))
        return nullptr;
    const auto* const view = qobject_cast<const QAbstractItemView*>(popup);
    return view != nullptr ? view : popup->findChild<QAbstractItemView*>();
}

QJsonArray items()
{
    QJsonArray list;
    const QAbstractItemView* const view = openList();
    if (view == nullptr || !view->isVisible())
        return list;
    const int rows = view->model()->rowCount(view->rootIndex());
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = view->model()->index(row, 0, view->rootIndex());
        // Items may be wider than the popup list.
        const QRect rect = view->visualRect(index);
        const QRect seen = rect & view->viewport()->rect();
        list.append(QJsonObject{
            {QStringLiteral("text"), index.data().toString()},
            {QStringLiteral("current"), view->currentIndex() == index},
            {QStringLiteral("shown"), !seen.isEmpty() && seen.height() == rect.height()},
            {QStringLiteral("rect"), onScreen(view->viewport(), seen.isEmpty() ? rect : seen)}});
    }
    return list;
}

QWidget* mainWindow()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->inherits("MainWindow"))
            return window;
    }
    return nullptr;
}

template <typename Widget>
QString textOfChild(const QWidget* window, const char* name)
{
    return textOf(window->findChild<Widget*>(QLatin1String(name)));
}

QJsonObject look()
{
    const QWidget* const window = mainWindow();
    if (window == nullptr)
        return {};
    return {{QStringLiteral("windows"), windows()},
            {QStringLiteral("widgets"), widgets()},
            {QStringLiteral("focus"), describe(QApplication::focusWidget())},
            {QStringLiteral("tabs"), tabs(window)},
            {QStringLiteral("tab"), window->findChild<QTabBar*>()->currentIndex()},
            {QStringLiteral("actions"), actions()},
            {QStringLiteral("items"), items()},
            {QStringLiteral("tip"), QToolTip::isVisible() ? QToolTip::text() : QString()},
            {QStringLiteral("news"),
             window->findChild<QStatusBar*>(QStringLiteral("statusbar"))->currentMessage()},
            {QStringLiteral("counter"), textOfChild<QLabel>(window, "label")},
            {QStringLiteral("tabErrors"), textOfChild<QSpinBox>(window, "tabErrs").toInt()},
            {QStringLiteral("allErrors"), textOfChild<QSpinBox>(window, "errors").toInt()}};
}

QJsonObject describeCell(const QTreeView* view, const QModelIndex& index)
{
    const QVariant code = index.data(Qt::UserRole);
    return {{QStringLiteral("text"), index.data(Qt::EditRole).toString()},
            {QStringLiteral("code"), code.isNull() ? 0 : code.toInt()},
            {QStringLiteral("current"), view->currentIndex() == index},
            {QStringLiteral("rect"), onScreen(view->viewport(), view->visualRect(index))}};
}

QJsonObject table(const QString& tab)
{
    const QWidget* const window = mainWindow();
    const auto* const view = window->findChild<QTreeView*>(QLatin1String("view") + tab);
    if (view == nullptr || view->model() == nullptr)
        return {};
    QJsonArray rows;
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < view->model()->columnCount(); ++column)
            cells.append(describeCell(view, view->model()->index(row, column)));
        rows.append(cells);
    }
    return {{QStringLiteral("viewport"), onScreen(view->viewport())},
            {QStringLiteral("rows"), rows}};
}

class Finder : public PluginRequests {
    QJsonValue answer(const QString& request) const override
    {
        const auto aboutTable = QStringLiteral("table ");
        if (request.startsWith(aboutTable))
            return table(request.mid(aboutTable.size()));
        return look();
    }
};

}  // namespace

class FinderPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "finder.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*specification*/) override
    {
        return new Finder;
    }
};

#include "finder.moc"
