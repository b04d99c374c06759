#include "errornavigation.h"

#include <QFontMetrics>
#include <QMainWindow>
#include <QShortcut>
#include <QStatusBar>
#include <QTabWidget>
#include <tuple>
#include <utility>

#include "statusbarform.h"
#include "statusmessage.h"
#include "tableview.h"
#include "treemodel.h"

namespace {

constexpr int SHOWN_MS = 10000;
constexpr int NO_ERRORS_SHOWN_MS = 2000;

}  // namespace

struct ErrorNavigation::Place {
    int tab;
    int row;
    int column;

    bool operator<(const Place& other) const
    {
        return std::tie(tab, row, column) < std::tie(other.tab, other.row, other.column);
    }
};

// Gets all wrong cells in their order and keeps the one that follows the start, or the farthest one
// the other way if none does.
class ErrorNavigation::Search {
public:
    Search(Direction direction, const Place& start) : m_direction(direction), m_start(start) {}

    void add(const Place& place)
    {
        ++m_count;
        const bool forward = m_direction == Next;
        const bool follows = forward ? m_start < place : place < m_start;
        const bool better = forward ? follows && !m_follows : follows || !m_follows;
        if (m_count > 1 && !better)
            return;
        m_found = place;
        m_number = m_count;
        m_follows = follows;
    }

    const Place& found() const { return m_found; }
    int number() const { return m_number; }
    int count() const { return m_count; }

private:
    Direction m_direction;
    Place m_start;
    Place m_found{};
    int m_number = 0;
    int m_count = 0;
    bool m_follows = false;
};

ErrorNavigation::ErrorNavigation(QMainWindow* window, QTabWidget* tabs, const Views& views,
                                 StatusBarForm* counters, Prepare prepare)
    : QObject(window), m_window(window), m_tabs(tabs), m_views(views), m_prepare(std::move(prepare))
{
    addShortcut(Qt::Key_F8, Next);
    addShortcut(Qt::SHIFT + Qt::Key_F8, Previous);
    connect(counters, &StatusBarForm::tabErrorsClicked, this, [this] { go(Next, InTab); });
    connect(counters, &StatusBarForm::totalErrorsClicked, this, [this] { go(Next, InFile); });
}

void ErrorNavigation::addShortcut(int key, Direction direction)
{
    auto* const shortcut = new QShortcut(QKeySequence(key), m_window);
    connect(shortcut, &QShortcut::activated, this, [this, direction] { go(direction, InFile); });
}

void ErrorNavigation::go(Direction direction, Scope scope)
{
    if (!m_prepare())
        return;
    Search search(direction, currentPlace());
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        if (scope == InFile || tab == m_tabs->currentIndex())
            addErrors(tab, &search);
    }
    if (search.count() == 0) {
        tellOfNone(scope);
        return;
    }
    show(search.found());
    tell(search);
}

TreeModel* ErrorNavigation::modelOf(int tab) const
{
    return static_cast<TreeModel*>(m_views[static_cast<size_t>(tab)]->model());
}

// Without a current cell, the place before the first one of the tab.
ErrorNavigation::Place ErrorNavigation::currentPlace() const
{
    const int tab = m_tabs->currentIndex();
    const QModelIndex current = m_views[static_cast<size_t>(tab)]->currentIndex();
    return {tab, current.row(), current.column()};
}

void ErrorNavigation::addErrors(int tab, Search* search) const
{
    modelOf(tab)->visitErrors([tab, search](int row, int column) {
        search->add({tab, row, column});
    });
}

// The view gets the focus, so that F2 opens the cell's editor next.
void ErrorNavigation::show(const Place& place)
{
    TableView* const view = m_views[static_cast<size_t>(place.tab)];
    m_tabs->setCurrentIndex(place.tab);
    view->setCurrentIndex(view->model()->index(place.row, place.column));
    view->setFocus();
}

// What is wrong comes first, since a narrow window has room for little more. The first line of the
// tool tip, which tells what belongs into the cell, follows if there is room for all of it.
void ErrorNavigation::tell(const Search& search)
{
    const Place& place = search.found();
    const QModelIndex cell = modelOf(place.tab)->index(place.row, place.column);
    const QString error = tr("%1 of %2: %3")
                              .arg(search.number())
                              .arg(search.count())
                              .arg(modelOf(place.tab)->errorText(cell));
    const QString help =
        cell.data(Qt::ToolTipRole).toString().section(QLatin1Char('\n'), 0, 0).trimmed();
    const QString all = help.isEmpty() ? error : error + QStringLiteral(" - ") + help;
    QStatusBar* const statusBar = m_window->statusBar();
    const bool fits = statusBar->fontMetrics().horizontalAdvance(all) <= messageWidth(*statusBar);
    showFitting(statusBar, fits ? all : error, SHOWN_MS);
}

void ErrorNavigation::tellOfNone(Scope scope)
{
    m_window->statusBar()->showMessage(
        scope == InTab ? tr("No errors on this tab") : tr("No errors"), NO_ERRORS_SHOWN_MS);
}
