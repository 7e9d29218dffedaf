// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

//! The balloon inside the loaded module. Nothing in the module shows one, and the library does not tell
//! others where that call is: it is found by its place in the file's symbol table.
namespace RealBalloon {

//! Shows a balloon with a picture. The module must be loaded.
void show(const QString &title);
//! Whether one is on screen.
bool isVisible();
//! Closes it as a person's window manager would.
void close();

} // namespace RealBalloon
