// The view of one tab: a QTreeView whose speed does not depend on the number of rows. Rows are as
// tall, columns as wide as in a plain QTreeView. For a model without child rows, of which one cell
// at a time is selected, scrolled by rows. A row that spans the columns is one cell, of column 0.
#pragma once

#include <QHash>
#include <QPersistentModelIndex>
#include <QTreeView>

class TableView : public QTreeView {
    Q_OBJECT

public:
    using QTreeView::QTreeView;

    // The exact rectangle of a row that is in sight, within a page of it or has an open editor. For
    // other rows, one that touches the viewport from above or below.
    QRect visualRect(const QModelIndex& index) const override;

    void doItemsLayout() override;

    // As in QTreeView, but without a layout if one is due: not each of many new rows needs one.
    void setFirstColumnSpanned(int row, const QModelIndex& parent, bool span);

Q_SIGNALS:
    // Other rows may be in sight.
    void sightChanged();

public Q_SLOTS:
    // To be called when error codes have changed: cells look different and have other widths.
    void updateLooks();

protected:
    int sizeHintForColumn(int column) const override;

    // In rows, since pixels would take the height of each row above.
    int verticalOffset() const override;

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void scrollContentsBy(int dx, int dy) override;

protected Q_SLOTS:
    void updateGeometries() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = QVector<int>()) override;

private:
    // What the rows whose cells are measured depend on, and whether these are empty.
    struct Conditions {
        int topRow;
        int viewportHeight;
        int loading;
        bool operator==(const Conditions& other) const;
    };

    Conditions conditions() const;
    QRect nearRect(const QModelIndex& index) const;
    bool isSpanned(const QModelIndex& index) const;

    // QTreeView::moveCursor(), at once from any row.
    QModelIndex cursorAfter(CursorAction action, Qt::KeyboardModifiers modifiers);

    int heightOf(int row) const;
    int rowPageBelow(int row, int height) const;
    int rowPageAbove(int row, int height) const;
    bool isFarAbove(int row, int top) const;
    bool isBelow(int row) const;
    int pageDown(int row, int top) const;
    int pageUp(int row, int top) const;

    // The widths that were measured under m_measuredUnder since the last change, by column.
    mutable QHash<int, int> m_widths;
    mutable Conditions m_measuredUnder{};

    bool m_postponesLayout = false;
    QPersistentModelIndex m_spannedStop;  // where a key has led to a row that spans the columns
    int m_columnBeforeStop = 0;
};
