// SPDX-License-Identifier: MIT
#pragma once

#include <OdAssert.h>

#include <QCoreApplication>
#include <QThread>

//! At the start of a [gui-thread] function: in debug builds, reports a call from another thread as a failed
//! assertion. Execution continues.
#ifdef NDEBUG
#define SDKHOST_ASSERT_GUI_THREAD() static_cast<void>(0)
#else
#define SDKHOST_ASSERT_GUI_THREAD()                                                                          \
    (!QCoreApplication::instance() || QThread::currentThread() == QCoreApplication::instance()->thread()     \
         ? static_cast<void>(0)                                                                              \
         : odaAssertFailed("on the GUI thread", __func__, __LINE__))
#endif
