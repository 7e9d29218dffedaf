// SPDX-License-Identifier: MIT
#include "tests/support/TestProgram.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace {

using Entry = std::pair<const char *, RunTests>;

std::vector<Entry> &entries()
{
    static std::vector<Entry> all;
    return all;
}

} // namespace

bool addTests(const char *name, RunTests run)
{
    entries().emplace_back(name, run);
    return true;
}

int main(int argc, char **argv)
{
    for (const Entry &entry : entries()) {
        if (argc > 1 && qstricmp(entry.first, argv[1]) == 0) {
            argv[1] = argv[0];
            return entry.second(argc - 1, argv + 1);
        }
    }
    std::fprintf(stderr, "usage: %s CLASS [QT-TEST-ARGUMENT...], with one of these classes:\n", argv[0]);
    for (const Entry &entry : entries())
        std::fprintf(stderr, "  %s\n", entry.first);
    return 2;
}
