// SPDX-License-Identifier: MIT
#pragma once

class RecentDocDialog;

//! Describes the browser to assistive programs, such as screen readers: the popup is a dialog with a list of
//! the drawings, a tile is a selectable item of that list, and the small buttons and the help icon can be
//! pressed. If no such program is running, nothing is created or sent. GUI thread.
namespace Accessibility {

//! Installs the factory of the module's accessible interfaces, until end() or the end of the application. Can
//! be called more than once.
void begin();
//! Removes the factory. Existing interfaces are deleted with their widgets, so the caller must delete the
//! widgets next.
void end();

//! Notifies assistive programs that the tile was highlighted or is no longer highlighted.
void highlightChanged(RecentDocDialog *tile);
//! Notifies assistive programs that the highlight moved to this tile, which is presented to them as having
//! the keyboard focus.
void highlightMovedTo(RecentDocDialog *tile);

} // namespace Accessibility
