#include "commentspans.h"

#include <QHeaderView>
#include <utility>

#include "editor_types.h"
#include "tableview.h"
#include "treemodel.h"

namespace {

// QTreeView compares each row with each span at a layout. So many comparisons take some ten
// milliseconds.
constexpr qint64 MAX_COMPARISONS = 4'000'000;

constexpr int USUAL_PRECISION = 1000;  // rows that QHeaderView measures
constexpr int ONLY_ROWS_IN_SIGHT = 0;

}  // namespace

CommentSpans::CommentSpans(TableView* view, SetSpan setSpan)
    : QObject(view), m_view(view), m_setSpan(std::move(setSpan))
{
    connect(view, &TableView::sightChanged, this, &CommentSpans::updateSight);
}

// The view forgot its spans when it got the model.
void CommentSpans::watch(TreeModel* model)
{
    m_model = model;
    m_spans.clear();
    m_onlyInSight = false;
    m_view->header()->setResizeContentsPrecision(USUAL_PRECISION);
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& topLeft, const QModelIndex& bottomRight) {
                if (topLeft.column() == KeywordsTab::KEYWORD)
                    update(topLeft.row(), bottomRight.row());
            });
    connect(
        model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
        [this](const QModelIndex& /*parent*/, int first, int last) { removeSpans(first, last); });
    update(0, model->rowCount() - 1);
}

// A row that has just been inserted is empty.
void CommentSpans::update(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        if (!m_onlyInSight || isInSight(row))
            setSpan(row, m_model->isComment(row));
    }
}

bool CommentSpans::isInSight(int row) const
{
    return row >= m_top && row <= m_bottom;
}

void CommentSpans::setSpan(int row, bool span)
{
    if (!span && m_spans.isEmpty())
        return;
    const QPersistentModelIndex cell(m_model->index(row, KeywordsTab::KEYWORD));
    if (span == m_spans.contains(cell))
        return;
    if (span)
        m_spans.insert(cell);
    else
        m_spans.remove(cell);
    m_setSpan(row, span);
    if (tooMany())
        keepToSight();
}

bool CommentSpans::tooMany() const
{
    return !m_onlyInSight && qint64{m_spans.size()} * m_model->rowCount() > MAX_COMPARISONS;
}

// Comments out of sight must not be measured either, since they do not span the columns.
void CommentSpans::keepToSight()
{
    m_onlyInSight = true;
    m_view->header()->setResizeContentsPrecision(ONLY_ROWS_IN_SIGHT);
    updateSight();
}

void CommentSpans::updateSight()
{
    if (!m_onlyInSight || m_view->model() != m_model)
        return;
    findSight();
    const QSet<QPersistentModelIndex> spans = m_spans;
    for (const QPersistentModelIndex& cell : spans) {
        if (!isInSight(cell.row()))
            setSpan(cell.row(), false);
    }
    update(m_top, m_bottom);
}

// A view that no row fills to its lower edge has fewer rows than pixels.
void CommentSpans::findSight()
{
    const QRect area = m_view->viewport()->rect();
    const QModelIndex bottom = m_view->indexAt(area.bottomLeft());
    m_top = qMax(0, m_view->indexAt(area.topLeft()).row());
    m_bottom =
        bottom.isValid() ? bottom.row() : qMin(m_top + area.height(), m_model->rowCount()) - 1;
}

// QTreeView would keep the span of a removed row for ever.
void CommentSpans::removeSpans(int first, int last)
{
    for (int row = first; row <= last; ++row)
        setSpan(row, false);
}
