// SPDX-License-Identifier: MIT
#include <OdRxAlloc.h>

#include <algorithm>
#include <cstdlib>

void *odrxAlloc(std::size_t size)
{
    return std::malloc(
        std::max<std::size_t>(size, 1)); // malloc(0) may give null, which would mean "no memory"
}

void odrxFree(void *memory)
{
    std::free(memory);
}
