// SPDX-License-Identifier: MIT
#include "tests/fuzz/Target.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace fuzz {

namespace {

//! A copy: the engine closes the standard error stream, because of the PNG library's messages.
const int standardError = ::dup(STDERR_FILENO);

} // namespace

void require(bool condition, const char *what)
{
    if (condition)
        return;
    ::dprintf(standardError, "does not hold: %s\n", what);
    std::abort();
}

void dropWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &) {
        if (type == QtFatalMsg)
            std::abort();
    });
}

} // namespace fuzz
