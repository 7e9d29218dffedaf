// SPDX-License-Identifier: MIT
#pragma once

#include <qwindowdefs.h>

class QByteArray;

namespace fxhost {

//! On X11, continues a start of the program that another process has handed over: this process can activate
//! its windows, which window managers allow only with the time of the user's request, and the desktop no
//! longer shows that a program is starting. Does nothing on other platforms, or without an ID.
//! \param startupId as in DESKTOP_STARTUP_ID
//! \param window any window of this process
void takeOverStartup(const QByteArray &startupId, WId window);

} // namespace fxhost
