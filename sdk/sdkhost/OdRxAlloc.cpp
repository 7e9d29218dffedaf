// SPDX-License-Identifier: MIT
#include <OdRxAlloc.h>

#include <algorithm>
#include <cstdlib>

void *odrxAlloc(std::size_t size)
{
    return std::malloc(
        std::max<std::size_t>(size, 1)); // malloc(0) may return null, which means "no memory" here
}

void odrxFree(void *memory)
{
    std::free(memory);
}
