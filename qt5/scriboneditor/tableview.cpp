#include "tableview.h"

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
        return QTreeView::visualRect(index);
    const QModelIndex bottom = indexAt(area.bottomLeft());
    QRect rect(columnViewportPosition(index.column()), 0, columnWidth(index.column()),
               rowHeight(index));
    const int near = verticalScrollBar()->pageStep();
    if (index.row() < top.row() - near)
        rect.moveBottom(area.top() - 1);
    else if (bottom.isValid() && index.row() > bottom.row() + near)
        rect.moveTop(area.bottom() + 1);
    else
        return QTreeView::visualRect(index);
    return rect;
}

int TableView::verticalOffset() const
{
    return verticalScrollBar()->value();
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
