// SPDX-License-Identifier: MIT
#pragma once

class RecentDocDialog;

//! How the browser is described to assistive programs, such as screen readers: the popup is a dialog with a
//! list of the drawings, a tile is a selectable item of that list, and the small buttons and the help icon
//! can be pressed. Without such a program nothing is made and nothing is sent. GUI thread.
namespace Accessibility {

//! From now on Qt asks the module for what describes its widgets, until the application ends. May be called
//! again.
void begin();
//! No longer. What describes a widget is deleted with the widget, so the widgets go next.
void end();

//! The tile's highlight has come or gone.
void highlightChanged(RecentDocDialog *tile);
//! The highlight has moved, and to this tile last: for users who cannot see it, the tile has the keyboard
//! focus.
void highlightMovedTo(RecentDocDialog *tile);

} // namespace Accessibility
