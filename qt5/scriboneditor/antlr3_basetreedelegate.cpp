#include "antlr3_basetreedelegate.h"

QWidget* Antlr3_BaseTreeDelegate::createEditor(QWidget* /*parent*/,
                                               const QStyleOptionViewItem& /*option*/,
                                               const QModelIndex& /*index*/) const
{
    return nullptr;
}
