// Builds the catalogue for each line of standard input and prints the number of groups.

#include <marvane_headers.h>

#include <cstdio>

#include "variablemaplist.h"

int main()
{
    marvane_init_fn(1);
    while (std::getchar() == '\n') {
        VariablesByGroup variables;
        const VariableMapList list(&variables, QT_MARVANE_ANY, nullptr);
        std::printf("%d groups\n", variables.size());
        std::fflush(stdout);
    }
    return 1;
}
