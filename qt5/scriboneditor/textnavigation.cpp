#include "textnavigation.h"

#include <QMainWindow>
#include <QScrollBar>
#include <QShortcut>
#include <QTabWidget>
#include <algorithm>
#include <numeric>
#include <utility>

#include "findline.h"
#include "tableview.h"

namespace {

bool isInView(const QRect& cell, const TableView& table)
{
    return cell.top() >= 0 && cell.bottom() <= table.viewport()->rect().bottom();
}

// QTreeView would also put the column into the middle.
void scrollRowToMiddle(const QModelIndex& cell, TableView* table)
{
    const int across = table->horizontalScrollBar()->value();
    table->scrollTo(cell, QAbstractItemView::PositionAtCenter);
    table->horizontalScrollBar()->setValue(across);
}

}  // namespace

TextNavigation::TextNavigation(QMainWindow* window, QTabWidget* tabs, const Views& views,
                               Prepare prepare)
    : QObject(window),
      m_tabs(tabs),
      m_views(views),
      m_prepare(std::move(prepare)),
      m_line(new FindLine(tabs))
{
    auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL + Qt::Key_F), window);
    connect(shortcut, &QShortcut::activated, this, &TextNavigation::open);
    connect(tabs, &QTabWidget::currentChanged, this, &TextNavigation::changeTab);
    connectLine();
    m_changed.setSingleShot(true);
    connect(&m_changed, &QTimer::timeout, this, &TextNavigation::countAgain);
}

void TextNavigation::connectLine()
{
    connect(m_line, &FindLine::textChanged, this, &TextNavigation::search);
    connect(m_line, &FindLine::nextWanted, this, &TextNavigation::goToNext);
    connect(m_line, &FindLine::previousWanted, this, &TextNavigation::goToPrevious);
    connect(m_line, &FindLine::nextTabWanted, this, &TextNavigation::goToNextTab);
    connect(m_line, &FindLine::closeWanted, this, &TextNavigation::close);
}

// ---- Opening and closing -----------------------------------------------------------------------

void TextNavigation::open()
{
    if (!m_prepare())
        return;
    const bool wasHidden = m_line->isHidden();
    m_line->openOver(view());
    if (!wasHidden)
        return;
    for (int i = 0; i < TAB_COUNT; ++i)
        watch(m_views[static_cast<size_t>(i)]);
    countAgain();
}

// A change may consist of many signals.
void TextNavigation::watch(const TableView* table)
{
    const QAbstractItemModel* const model = table->model();
    const auto changed = [this] { m_changed.start(0); };
    connect(model, &QAbstractItemModel::dataChanged, this, changed);
    connect(model, &QAbstractItemModel::rowsInserted, this, changed);
    connect(model, &QAbstractItemModel::rowsRemoved, this, changed);
    connect(table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TextNavigation::tell);
}

void TextNavigation::close()
{
    if (m_line->isHidden())
        return;
    m_line->leave();
    m_changed.stop();
    for (int i = 0; i < TAB_COUNT; ++i) {
        const TableView* const table = m_views[static_cast<size_t>(i)];
        table->model()->disconnect(this);
        table->selectionModel()->disconnect(this);
        m_matches[static_cast<size_t>(i)] = {};
    }
}

void TextNavigation::changeTab()
{
    if (m_line->isHidden())
        return;
    m_line->moveOver(view());
    tell();
}

// ---- Going to a match --------------------------------------------------------------------------

void TextNavigation::search()
{
    if (m_line->isHidden() || !m_prepare())
        return;
    countAgain();
    const Matches& matches = m_matches[tab()];
    if (matches.empty())
        return;
    const auto next = std::lower_bound(matches.begin(), matches.end(), currentPlace());
    show(next == matches.end() ? matches.front() : *next);
}

// Commits what stands in an open editor, and counts what that or another change has changed.
bool TextNavigation::isReady()
{
    const bool isLoaded = m_prepare();
    if (m_changed.isActive())
        countAgain();
    return isLoaded;
}

void TextNavigation::goToNext()
{
    const bool ready = isReady();
    const Matches& matches = m_matches[tab()];
    if (!ready || matches.empty())
        return;
    const auto next = std::upper_bound(matches.begin(), matches.end(), currentPlace());
    show(next == matches.end() ? matches.front() : *next);
}

void TextNavigation::goToPrevious()
{
    const bool ready = isReady();
    const Matches& matches = m_matches[tab()];
    if (!ready || matches.empty())
        return;
    const auto here = std::lower_bound(matches.begin(), matches.end(), currentPlace());
    show(here == matches.begin() ? matches.back() : *std::prev(here));
}

void TextNavigation::goToNextTab()
{
    if (!isReady())
        return;
    for (size_t step = 1; step < TAB_COUNT; ++step) {
        const size_t other = (tab() + step) % TAB_COUNT;
        if (m_matches[other].empty())
            continue;
        m_tabs->setCurrentIndex(static_cast<int>(other));
        show(m_matches[other].front());
        return;
    }
}

// A row that was out of sight, or would be behind the line, comes into the middle.
void TextNavigation::show(const CellPlace& place)
{
    TableView* const table = view();
    const QModelIndex cell = table->model()->index(place.row, place.column);
    const bool wasInView = isInView(table->visualRect(cell), *table);
    table->scrollTo(cell);
    if (!wasInView || m_line->wouldCover(table->visualRect(cell)))
        scrollRowToMiddle(cell, table);
    table->setCurrentIndex(cell);
    m_line->makeWay();
}

void TextNavigation::uncover(const QModelIndex& cell)
{
    if (m_line->covers(view()->visualRect(cell)))
        scrollRowToMiddle(cell, view());
}

// ---- Counting ----------------------------------------------------------------------------------

void TextNavigation::countAgain()
{
    m_changed.stop();
    for (size_t i = 0; i < TAB_COUNT; ++i)
        m_matches[i] = cellsWith(m_line->text(), *m_views[i]);
    tell();
}

void TextNavigation::tell()
{
    const auto add = [](size_t sum, const Matches& matches) { return sum + matches.size(); };
    const size_t all = std::accumulate(m_matches.begin(), m_matches.end(), size_t(0), add);
    if (m_line->text().isEmpty())
        m_line->tell({}, true);
    else
        m_line->tell(news(all), all > 0);
}

QString TextNavigation::news(size_t all) const
{
    const size_t others = all - m_matches[tab()].size();
    if (all == 0)
        return tr("No match");
    return others == 0 ? newsOfTab() : tr("%1, %2 on other tabs").arg(newsOfTab()).arg(others);
}

// The current cell need not be a match, after a click or a change of tabs.
QString TextNavigation::newsOfTab() const
{
    const Matches& matches = m_matches[tab()];
    if (matches.empty())
        return tr("No match here");
    const CellPlace current = currentPlace();
    const auto found = std::lower_bound(matches.begin(), matches.end(), current);
    if (found == matches.end() || !(*found == current))
        return tr("%1 found").arg(matches.size());
    return tr("%1 of %2").arg(found - matches.begin() + 1).arg(matches.size());
}

// ---- The current tab ---------------------------------------------------------------------------

size_t TextNavigation::tab() const
{
    return static_cast<size_t>(m_tabs->currentIndex());
}

TableView* TextNavigation::view() const
{
    return m_views[tab()];
}

// Without a current cell, the place before the first one.
CellPlace TextNavigation::currentPlace() const
{
    const QModelIndex current = view()->currentIndex();
    return {current.row(), current.column()};
}
