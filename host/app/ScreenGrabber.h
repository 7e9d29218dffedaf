// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace fxhost {

//! A picture of the part of the screen that the program's visible windows take up, in the screen's own
//! pixels. Where the desktop lets no program read the screen, the windows are painted instead, without the
//! frames that the desktop draws around them. GUI thread.
//! \return null when no window is visible
QImage grabWindows();

} // namespace fxhost
