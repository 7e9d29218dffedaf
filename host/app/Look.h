// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

//! The colours of the drawing area. All other parts of the window use the desktop's colours.
namespace fxhost::look {

//! Behind the drawing windows.
const QColor backdrop(0x4a, 0x4f, 0x57);
//! Inside a drawing window: dark, because stored pictures are mostly light lines or small and white.
const QColor sheet(0x26, 0x29, 0x2e);
//! The strip of facts below the sheet, and its text.
const QColor strip(0x33, 0x37, 0x3d);
const QColor ink(0xe6, 0xe8, 0xea);
const QColor faintInk(0xa4, 0xaa, 0xb2);
const QColor outline(0x5a, 0x60, 0x69);

} // namespace fxhost::look
