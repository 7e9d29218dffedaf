// SPDX-License-Identifier: MIT
#include "tests/fuzz/Target.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace fuzz {

namespace {

//! The engine closes the usual one when it begins: the PNG library complains there of every broken picture.
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
