// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

//! Receives a failed assertion. Must not throw; runs on the thread that failed.
using OdAssertHandler = void (*)(const char *expression, const char *source, int line);

//! Reports a failed ODA assertion to the installed handler. It returns: an assertion never ends the process.
FXSDK_API void odaAssertFailed(const char *expression, const char *source, int line); // [any-thread]

//! Installs what hears of failed assertions from now on, in any thread.
//! \param handler null brings the default back, which writes a line to the standard error stream
//! \return the handler that was in force; null for the default
FXSDK_API OdAssertHandler odaSetAssertHandler(OdAssertHandler handler); // [any-thread]
