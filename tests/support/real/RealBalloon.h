// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

//! The balloon inside the loaded module. The module itself shows none, and the library does not export the
//! function, so it is found by its offset in the file's symbol table.
namespace RealBalloon {

//! Shows a balloon with a picture. The module must be loaded.
void show(const QString &title);
//! Whether one is on screen.
bool isVisible();
//! Closes it as a window manager does.
void close();

} // namespace RealBalloon
