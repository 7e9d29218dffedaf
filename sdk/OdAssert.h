// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

//! Receives a failed assertion, on the thread in which it failed. Must not throw.
using OdAssertHandler = void (*)(const char *expression, const char *source, int line);

//! Reports a failed ODA assertion to the installed handler and returns: an assertion never terminates the
//! process.
FXSDK_API void odaAssertFailed(const char *expression, const char *source, int line); // [any-thread]

//! Installs the handler of failed assertions for all threads.
//! \param handler null restores the default, which writes a line to the standard error stream
//! \return the previous handler; null for the default
FXSDK_API OdAssertHandler odaSetAssertHandler(OdAssertHandler handler); // [any-thread]
