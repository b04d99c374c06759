// Spec files as the window has them after loading: five models, judged.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <memory>
#include <vector>

#include "treemodel.h"

// A file of the folder of examples.
QByteArray example(const QString& name);

struct Document {
    int verdict = -1;
    std::vector<std::unique_ptr<TreeModel>> tabs;  // none when the verdict is not 0

    explicit Document(const QByteArray& text);

    TreeModel& tab(int number) const;  // EDIT_TAB1 to EDIT_TAB5

    QList<int> rowCounts() const;
    QList<int> errorCounts() const;

    // Of all tabs, as visibleRow gives them; rows that show nothing are left out.
    QStringList visibleRows() const;

    QByteArray saved() const;
};

// A tab's count of errors after judging all its rows.
int judge(TreeModel& tab);

QString cell(const TreeModel& tab, int row, int column);

// The row's cells that show something, with " | " between them.
QString visibleRow(const TreeModel& tab, int row);
