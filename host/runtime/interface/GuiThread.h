// SPDX-License-Identifier: MIT
#pragma once

#include <OdAssert.h>

#include <QCoreApplication>
#include <QThread>

//! Stands at the start of each call that is [gui-thread] and that other code may make from another thread. In
//! debug builds such a call is reported as a failed assertion; it is made nevertheless.
#ifdef NDEBUG
#define FXHOST_ASSERT_GUI_THREAD() static_cast<void>(0)
#else
#define FXHOST_ASSERT_GUI_THREAD()                                                                           \
    (!QCoreApplication::instance() || QThread::currentThread() == QCoreApplication::instance()->thread()     \
         ? static_cast<void>(0)                                                                              \
         : odaAssertFailed("on the GUI thread", __func__, __LINE__))
#endif
