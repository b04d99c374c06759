#include "closedrowsdelegate.h"

// Without this state, icons are grey.
void ClosedRowsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyleOptionViewItem closed = option;
    closed.state.setFlag(QStyle::State_Enabled, false);
    Antlr3_BaseTreeDelegate::paint(painter, closed, index);
}

QWidget* ClosedRowsDelegate::createEditor(QWidget* /*parent*/,
                                          const QStyleOptionViewItem& /*option*/,
                                          const QModelIndex& /*index*/) const
{
    return nullptr;
}

// The model gives each cell a colour of its own, which the base class sets.
void ClosedRowsDelegate::initStyleOption(QStyleOptionViewItem* option,
                                         const QModelIndex& index) const
{
    Antlr3_BaseTreeDelegate::initStyleOption(option, index);
    option->palette.setBrush(QPalette::All, QPalette::Text, Qt::darkGray);
}
