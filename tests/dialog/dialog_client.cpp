// Opens a VariableSelectionDialog for each line of standard input, "any" or "strings", and leaves
// the earlier ones open.

#include <marvane_headers.h>

#include <QApplication>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "variableselectiondialog.h"

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    marvane_init_fn(1);
    QWidget parent;
    parent.show();
    std::vector<std::unique_ptr<VariableSelectionDialog>> dialogs;
    std::string line;
    while (std::getline(std::cin, line)) {
        const QT_MARVANE_FLAGS filter = line == "any" ? QT_MARVANE_ANY : QT_MARVANE_STRING;
        dialogs.push_back(std::make_unique<VariableSelectionDialog>(QModelIndex(), &parent, filter,
                                                                    QString(), QString()));
        dialogs.back()->show();
        QApplication::processEvents();
        std::puts("shown");
        std::fflush(stdout);
    }
    dialogs.clear();
    return 1;
}
