// Spec files as they are after loading: five validated models.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <memory>
#include <vector>

#include "treemodel.h"

// The bytes of a file in examples/.
QByteArray example(const QString& name);

struct Document {
    int verdict = -1;
    std::vector<std::unique_ptr<TreeModel>> tabs;  // empty if the verdict is not 0

    explicit Document(const QByteArray& text);

    TreeModel& tab(int number) const;  // EDIT_TAB1 to EDIT_TAB5

    QList<int> rowCounts() const;
    QList<int> errorCounts() const;

    // The rows of all tabs, as visibleRow() returns them, without empty ones.
    QStringList visibleRows() const;

    QByteArray saved() const;
};

// Validates all rows of the tab and returns its error count.
int judge(TreeModel& tab);

QString cell(const TreeModel& tab, int row, int column);

// The non-empty cells of the row as displayed, joined by " | ".
QString visibleRow(const TreeModel& tab, int row);
