// SPDX-License-Identifier: MIT
#include <OdAssert.h>

#include <atomic>
#include <cstdio>

namespace {

std::atomic<OdAssertHandler> currentHandler{nullptr}; // null: the default

} // namespace

void odaAssertFailed(const char *expression, const char *source, int line)
{
    if (const OdAssertHandler handler = currentHandler.load())
        handler(expression, source, line);
    else
        std::fprintf(stderr, "ODA assertion failed: %s (%s:%d)\n", expression, source, line);
}

OdAssertHandler odaSetAssertHandler(OdAssertHandler handler)
{
    return currentHandler.exchange(handler);
}
