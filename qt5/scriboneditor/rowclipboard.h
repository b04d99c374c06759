// Rows to and from a spreadsheet: Ctrl+Shift+C copies the current row, Ctrl+V pastes a text into
// the current cell or a table as new rows. QTreeView copies the text of a cell by itself.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>
#include <array>
#include <functional>

#include "editor_types.h"

class QMainWindow;
class QTabWidget;
class TableView;
class TreeModel;

class RowClipboard : public QObject {
    Q_OBJECT

public:
    using Views = std::array<TableView*, TAB_SLOTS>;

    // Called first: commits open editors. False if no document is loaded.
    using Prepare = std::function<bool()>;

    // Owned by the window, which must have a status bar. The views have TreeModels whenever a
    // document is loaded.
    RowClipboard(QMainWindow* window, QTabWidget* tabs, const Views& views, Prepare prepare);

    // Copies what the user sees of the current row.
    void copyRow();

    // One field is an edit of the current cell; more become rows below the current one, or below
    // the first if there is none. All of it is one command on the active undo stack. What is
    // refused changes nothing; the status bar tells why.
    void paste();

private:
    void addShortcut(int keys, void (RowClipboard::*action)());
    bool isReady();
    TableView* view() const;
    TreeModel* model() const;
    QModelIndex currentCell() const;
    void pasteIntoCell(const QString& text);
    void pasteRows(const QVector<QStringList>& lines);
    void insertRows(const QVector<QStringList>& rows, int row);
    void insertRow(const QStringList& texts, int row);
    void refuse(const QString& reason);

    QMainWindow* m_window;
    QTabWidget* m_tabs;
    Views m_views;
    Prepare m_prepare;
};
