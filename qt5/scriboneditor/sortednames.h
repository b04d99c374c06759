// A proxy model of names in which an exact search takes a few comparisons. QComboBox searches all
// of its items for the text at each Return.
#pragma once

#include <QSortFilterProxyModel>

class SortedNames : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    // Call it when the rows are in the order of their texts. They count as sorted until their
    // number changes.
    void markSorted();
    bool isSorted() const;

    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    int firstRowFrom(const QString& text) const;

    int m_sortedRows = 0;
};
