// The model of a tab in the window: a TreeModel that a screen reader can read out, too.
#pragma once

#include "treemodel.h"

class SpokenModel final : public TreeModel {
    Q_OBJECT

public:
    using TreeModel::TreeModel;

    // A cell is read out as it is shown, with what is wrong with it as its description.
    QVariant data(const QModelIndex& index, int role) const override;
};
