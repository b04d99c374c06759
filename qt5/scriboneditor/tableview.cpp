#include "tableview.h"

#include <QHeaderView>
#include <QScrollBar>

#include "editor_access.h"

// ---- Rows that are out of sight ----------------------------------------------------------------

// QTreeView adds up the heights of all rows in between, and measures the cells of each. Within a
// page it may: a key's selection goes by the place of the new current row, which scrollTo() takes
// for visible within the length of the last page, whatever the heights of the rows here.
QRect TableView::visualRect(const QModelIndex& index) const
{
    const QRect area = viewport()->rect();
    const QModelIndex top = indexAt(area.topLeft());
    if (!index.isValid() || !top.isValid() || isIndexHidden(index) || indexWidget(index) != nullptr)
        return nearRect(index);
    const QModelIndex bottom = indexAt(area.bottomLeft());
    QRect rect(columnViewportPosition(index.column()), 0, columnWidth(index.column()),
               rowHeight(index));
    const int near = verticalScrollBar()->pageStep();
    if (index.row() < top.row() - near)
        rect.moveBottom(area.top() - 1);
    else if (bottom.isValid() && index.row() > bottom.row() + near)
        rect.moveTop(area.bottom() + 1);
    else
        return nearRect(index);
    return rect;
}

// QTreeView ignores how far the view is scrolled sideways in a row that spans the columns.
QRect TableView::nearRect(const QModelIndex& index) const
{
    QRect rect = QTreeView::visualRect(index);
    if (rect.isValid() && isSpanned(index))
        rect.moveLeft(-header()->offset());
    return rect;
}

int TableView::verticalOffset() const
{
    return verticalScrollBar()->value();
}

// ---- Page keys ---------------------------------------------------------------------------------

int TableView::heightOf(int row) const
{
    return rowHeight(model()->index(row, 0));
}

// The row at which the rows from this one on are together taller than the height, or the last one.
int TableView::rowPageBelow(int row, int height) const
{
    const int last = model()->rowCount() - 1;
    int sum = heightOf(row);
    while (sum <= height && row < last)
        sum += heightOf(++row);
    return row;
}

// The row at which the rows from there to the one above this are at least as tall as the height, or
// the first one.
int TableView::rowPageAbove(int row, int height) const
{
    int sum = 0;
    while (sum < height && row > 0)
        sum += heightOf(--row);
    return row;
}

// By more than a page.
bool TableView::isFarAbove(int row, int top) const
{
    return row < top && rowPageBelow(row, viewport()->height()) < top;
}

bool TableView::isBelow(int row) const
{
    const QModelIndex bottom = indexAt(viewport()->rect().bottomLeft());
    return bottom.isValid() && row > bottom.row();
}

// QTreeView looks for a place above the viewport with each row at the place of the next one, the
// first of them with the height of the top row. Existing behaviour, kept for rows of mixed heights.
int TableView::pageDown(int row, int top) const
{
    const int page = viewport()->height();
    return row < top ? rowPageBelow(row, page + heightOf(top)) - 1 : rowPageBelow(row, page);
}

int TableView::pageUp(int row, int top) const
{
    const int page = viewport()->height();
    const int found =
        row < top ? rowPageAbove(row, page - heightOf(top)) - 1 : rowPageAbove(row, page);
    const int first = isRowHidden(0, rootIndex()) ? 1 : 0;
    return qMax(found, first);
}

// QTreeView adds up the heights of all rows between the viewport and a current row that was
// scrolled out of sight.
QModelIndex TableView::cursorAfter(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    const QModelIndex top = indexAt(viewport()->rect().topLeft());
    const bool byPage = action == MovePageUp || action == MovePageDown;
    if (!byPage || !current.isValid() || rowHeight(top) >= viewport()->height())
        return QTreeView::moveCursor(action, modifiers);
    if (!isFarAbove(current.row(), top.row()) && !isBelow(current.row()))
        return QTreeView::moveCursor(action, modifiers);
    const int row = action == MovePageDown ? pageDown(current.row(), top.row())
                                           : pageUp(current.row(), top.row());
    return current.sibling(row, current.column());
}

// ---- Widths of columns -------------------------------------------------------------------------

// QTreeView measures up to a thousand cells. The five passes after a load and the fitting after the
// settings were read ask for the same widths again.
int TableView::sizeHintForColumn(int column) const
{
    const Conditions now = conditions();
    if (!(now == m_measuredUnder))
        m_widths.clear();
    m_measuredUnder = now;
    const auto known = m_widths.constFind(column);
    if (known != m_widths.constEnd())
        return *known;
    const int width = QTreeView::sizeHintForColumn(column);
    m_widths.insert(column, width);
    return width;
}

// indexAt() does a layout that is due, which forgets the widths.
TableView::Conditions TableView::conditions() const
{
    indexAt(QPoint());
    return {verticalScrollBar()->value(), viewport()->height(), LoadingFile};
}

bool TableView::Conditions::operator==(const Conditions& other) const
{
    return topRow == other.topRow && viewportHeight == other.viewportHeight &&
           loading == other.loading;
}

// Called after all changes of rows, delegate, font and style.
void TableView::doItemsLayout()
{
    m_widths.clear();
    if (m_postponesLayout)
        scheduleDelayedItemsLayout();
    else
        QTreeView::doItemsLayout();
}

void TableView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                            const QVector<int>& roles)
{
    m_widths.clear();
    QTreeView::dataChanged(topLeft, bottomRight, roles);
}

void TableView::updateLooks()
{
    m_widths.clear();
    viewport()->update();
}

// ---- Rows that span the columns ----------------------------------------------------------------

void TableView::setFirstColumnSpanned(int row, const QModelIndex& parent, bool span)
{
    m_widths.clear();
    m_postponesLayout = true;
    QTreeView::setFirstColumnSpanned(row, parent, span);
    m_postponesLayout = false;
}

// Up, Down and the like lead past a row that spans the columns in the column where they came from.
QModelIndex TableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    const bool sideways = action == MoveLeft || action == MoveRight;
    const bool goesOn = !sideways && current == m_spannedStop && isSpanned(current);
    const int column = goesOn ? m_columnBeforeStop : current.column();
    const QModelIndex next = cursorAfter(action, modifiers);
    if (!isSpanned(next))
        return goesOn ? next.siblingAtColumn(column) : next;
    const QModelIndex stop = next.siblingAtColumn(0);
    m_spannedStop = stop;
    m_columnBeforeStop = qMax(column, 0);
    return stop;
}

bool TableView::isSpanned(const QModelIndex& index) const
{
    return index.isValid() && isFirstColumnSpanned(index.row(), index.parent());
}

// The delegate paints the icon of a row that spans the columns at the edge of the viewport,
// wherever that is scrolled sideways.
void TableView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    if (dx != 0)
        viewport()->update();
    Q_EMIT sightChanged();
}

void TableView::updateGeometries()
{
    QTreeView::updateGeometries();
    Q_EMIT sightChanged();
}
