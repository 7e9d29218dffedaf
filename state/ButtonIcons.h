// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QIcon;

//! The pictures that all buttons of a kind share. If each button had its own, Qt would draw the folder anew
//! for each one, and keep all of them in the application's cache of pictures, where they push out the
//! application's. GUI thread.
namespace ButtonIcons {

//! Of the pictures, in pixels, and of the buttons.
constexpr QSize size(21, 21);

//! A pin that is down where the button is checked, and up where it is not.
const QIcon &pin();
const QIcon &folder();
//! Drops them, while the application that they were made for still exists.
void drop();

} // namespace ButtonIcons
