// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace fxhost {

//! A picture of the screen area that contains the program's visible windows, in device pixels. If the desktop
//! does not allow programs to read the screen, the windows are painted instead, without the desktop's window
//! frames. GUI thread.
//! \return null if no window is visible
QImage grabWindows();

} // namespace fxhost
