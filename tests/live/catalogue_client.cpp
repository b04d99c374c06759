// Makes the catalogue each time it is told a line, and says how many groups it has.

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
