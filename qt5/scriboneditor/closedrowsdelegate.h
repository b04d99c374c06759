// Shows the rows of a document that is not open any more: as they were, but in grey and without
// editors.
#pragma once

#include "antlr3_basetreedelegate.h"

class ClosedRowsDelegate : public Antlr3_BaseTreeDelegate {
    Q_OBJECT

public:
    using Antlr3_BaseTreeDelegate::Antlr3_BaseTreeDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    // Always null.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
