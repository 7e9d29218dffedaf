// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class QWidget;

//! What style sheets draw behind widgets: the background and the border. It is drawn once for all widgets of
//! a sheet and a size, because a border alone takes longer to draw than a whole tile to copy. GUI thread.
namespace StyledGrounds {

//! Paints the widget's ground, as QWidget does before a paint event. \param painter on the widget
void paint(QPainter *painter, const QWidget *widget);
//! Must be called when other style sheets or the application's style may have changed, and at the end: the
//! grounds should not outlive the application.
void clear();

} // namespace StyledGrounds
