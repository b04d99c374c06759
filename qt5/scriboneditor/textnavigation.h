// Find: goes to the cells that contain a text, in the line that Ctrl+F opens over the current tab's
// table.
#pragma once

#include <QModelIndex>
#include <QObject>
#include <QString>
#include <QTimer>
#include <array>
#include <functional>
#include <vector>

#include "cellsearch.h"
#include "editor_types.h"

class FindLine;
class QMainWindow;
class QTabWidget;
class TableView;

class TextNavigation : public QObject {
    Q_OBJECT

public:
    using Views = std::array<TableView*, TAB_SLOTS>;

    // Called before each search: commits open editors. False if no document is loaded.
    using Prepare = std::function<bool()>;

    // Owned by the window. The tabs get the line as a child.
    TextNavigation(QMainWindow* window, QTabWidget* tabs, const Views& views, Prepare prepare);

    // Opens the line, or selects its text if it is open. Does nothing without a document.
    void open();

    // Closes the line. Must be called before the views get other models.
    void close();

    // Scrolls a cell of the current tab that is in view, but behind the line. Does nothing for an
    // invalid index.
    void uncover(const QModelIndex& cell);

private:
    using Matches = std::vector<CellPlace>;

    void connectLine();
    void watch(const TableView* table);
    void changeTab();
    bool isReady();
    void search();
    void goToNext();
    void goToPrevious();
    void goToNextTab();
    void show(const CellPlace& place);
    void countAgain();
    void tell();
    QString news(size_t all) const;
    QString newsOfTab() const;
    size_t tab() const;
    TableView* view() const;
    CellPlace currentPlace() const;

    QTabWidget* m_tabs;
    Views m_views;
    Prepare m_prepare;
    FindLine* m_line;
    QTimer m_changed;  // running while m_matches are to be counted again
    std::array<Matches, TAB_COUNT> m_matches;
};
