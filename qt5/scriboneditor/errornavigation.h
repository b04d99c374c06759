// Goes from one wrong cell to the next: F8 and Shift+F8 in the file, a click on a counter of the
// status bar in the tab or in the file.
#pragma once

#include <QObject>
#include <QString>
#include <array>
#include <functional>

#include "editor_types.h"

class QMainWindow;
class QTabWidget;
class StatusBarForm;
class TableView;
class TreeModel;

class ErrorNavigation : public QObject {
    Q_OBJECT

public:
    enum Direction { Next, Previous };
    enum Scope { InFile, InTab };

    using Views = std::array<TableView*, TAB_SLOTS>;

    // Called before each search: commits open editors and validates what has changed. False if no
    // document is loaded.
    using Prepare = std::function<bool()>;

    // Owned by the window, which must have a status bar. The views have TreeModels whenever a
    // document is loaded.
    ErrorNavigation(QMainWindow* window, QTabWidget* tabs, const Views& views,
                    StatusBarForm* counters, Prepare prepare);

    // Makes the next or previous wrong cell current, round the end, and tells in the status bar
    // which one it is and what is wrong with it.
    void go(Direction direction, Scope scope);

private:
    struct Place;
    class Search;

    void addShortcut(int key, Direction direction);
    TreeModel* modelOf(int tab) const;
    Place currentPlace() const;
    void addErrors(int tab, Search* search) const;
    void show(const Place& place);
    void tell(const Search& search);
    void tellOfNone(Scope scope);

    QMainWindow* m_window;
    QTabWidget* m_tabs;
    Views m_views;
    Prepare m_prepare;
};
