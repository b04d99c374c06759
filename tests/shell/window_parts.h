// Finds widgets and actions of the window by their object names.
#pragma once

#include <QAction>
#include <QStringList>
#include <QTabWidget>
#include <QTreeView>

#include "mainwindow.h"
#include "treemodel.h"

QTreeView* viewOf(const QWidget& window, int tab);
TreeModel* modelOf(const QWidget& window, int tab);
QTabWidget* tabsOf(const QWidget& window);
QAction* actionOf(const QWidget& window, const char* name);

// The window title behind the program's name and the colon.
QString titleOf(const QWidget& window);
QString newsOf(const MainWindow& window);

QStringList rowTexts(const QAbstractItemModel& model, int row);
QStringList columnTexts(const QAbstractItemModel& model, int column);

// Makes the cell current and selects it.
void goTo(QTreeView* view, int row, int column);
