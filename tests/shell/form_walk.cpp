#include "form_walk.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <algorithm>

namespace {

QAccessibleInterface& interfaceOf(QWidget* widget)
{
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(widget);
    if (interface == nullptr)
        qFatal("%s is not accessible", qPrintable(widget->objectName()));
    return *interface;
}

// The line edit of a combo box or spin box passes the focus on to it.
bool takesFocus(const QWidget& widget)
{
    return widget.isVisible() && widget.focusPolicy() != Qt::NoFocus &&
           widget.focusProxy() == nullptr;
}

}  // namespace

QString focusedOf(const QStringList& fields)
{
    const QWidget* field = QApplication::focusWidget();
    while (field != nullptr && !fields.contains(field->objectName()))
        field = field->parentWidget();
    return field == nullptr ? QString() : field->objectName();
}

QStringList visitedBy(Qt::Key key, const QStringList& fields)
{
    const auto modifier = key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    QStringList visited;
    for (int i = 0; i < fields.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), key, modifier);
        visited.append(focusedOf(fields));
    }
    return visited;
}

QStringList roundFromFocus(Qt::Key key, const QStringList& fields)
{
    QStringList order = fields;
    if (key == Qt::Key_Backtab)
        std::reverse(order.begin(), order.end());
    const int next = order.indexOf(focusedOf(fields)) + 1;
    std::rotate(order.begin(), order.begin() + next, order.end());
    return order;
}

QStringList namelessFields(const QWidget& form)
{
    QStringList names;
    for (QWidget* const widget : form.findChildren<QWidget*>()) {
        if (takesFocus(*widget) && accessibleText(widget, QAccessible::Name).trimmed().isEmpty())
            names.append(widget->objectName());
    }
    return names;
}

QStringList labelsWithoutBuddy(const QWidget& form)
{
    QStringList names;
    for (const QLabel* const label : form.findChildren<QLabel*>()) {
        if (label->isVisible() && label->buddy() == nullptr)
            names.append(label->objectName());
    }
    return names;
}

QAccessible::Role roleOf(QWidget* widget)
{
    return interfaceOf(widget).role();
}

QString accessibleText(QWidget* widget, QAccessible::Text kind)
{
    return interfaceOf(widget).text(kind);
}

QString labelOf(QWidget* widget)
{
    const auto relations = interfaceOf(widget).relations(QAccessible::Label);
    return relations.isEmpty() ? QString() : relations.first().first->text(QAccessible::Name);
}
