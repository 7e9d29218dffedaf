// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QIcon;

//! The icons shared by all buttons of a kind, and by all tiles. If each button had an icon of its own, Qt
//! would render the folder once per button, and the results would displace the application's pictures from
//! QPixmapCache. GUI thread.
namespace SharedIcons {

//! Size of the icons and of the buttons, in device-independent pixels.
constexpr QSize size(21, 21);

//! A pin that points down if the button is checked, and up if it is not.
const QIcon &pin();
const QIcon &folder();
//! The type of a tile's document.
const QIcon &drawing();
//! Deletes the icons, which should not outlive the application. They are created again on next use.
void drop();

} // namespace SharedIcons
