// Chooses the editor for every cell of every tab.
#pragma once

#include <QStyledItemDelegate>

class Antlr3_BaseTreeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Null: a stock editor would write its value past the undo stack.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
};
