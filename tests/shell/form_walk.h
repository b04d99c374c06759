// Walks through the widgets of a form: by Tab, and as a screen reader finds them.
#pragma once

#include <QAccessible>
#include <QStringList>
#include <QWidget>

// The field of these object names that has the focus, itself or by its line edit; empty if none
// has.
QString focusedOf(const QStringList& fields);

// Presses Tab or Backtab once for each field, and returns the fields that have got the focus.
QStringList visitedBy(Qt::Key key, const QStringList& fields);

// The fields in the order in which Tab or Backtab must visit them, from the focused one on.
QStringList roundFromFocus(Qt::Key key, const QStringList& fields);

// The object names of the visible widgets that take the focus and have no accessible name.
QStringList namelessFields(const QWidget& form);

// The object names of the visible labels that name no field.
QStringList labelsWithoutBuddy(const QWidget& form);

QAccessible::Role roleOf(QWidget* widget);
QString accessibleText(QWidget* widget, QAccessible::Text kind);

// The text of the label that names the widget; empty if it has none.
QString labelOf(QWidget* widget);
