// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

//! What style sheets draw behind widgets: the background and the border. It is drawn once for all widgets of
//! the same sheets, state and size, because a border alone takes longer to draw than a whole tile to copy.
//! GUI thread.
namespace StyledGrounds {

//! Paints the widget's ground, as QWidget does before a paint event. To be called in the paint event of a
//! widget with Qt::WA_NoSystemBackground.
void paint(QWidget *widget);
//! Called for each new popup, because the style may have changed since the last one, and at the end: the
//! grounds should not outlive the application.
void clear();

} // namespace StyledGrounds
