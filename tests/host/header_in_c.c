/* The contract in the eyes of a C compiler. */
#include "marvane_headers.h"

size_t handleSizeInC(void);

size_t handleSizeInC(void)
{
    return sizeof(SHARED_MEMORY);
}
