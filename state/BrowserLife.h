// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QWidget;
class RecentDocDialog;

//! Whether the objects that the registry's tile lists point to still exist. The lists themselves are not
//! emptied when a popup goes away, and an older popup may outlive the newest, whose tiles they hold.
namespace BrowserLife {

//! \param popup the window whose tiles are listed from now on
void setOwnerOfTiles(const QWidget *popup);
//! A listed tile is being destroyed alone, without its window.
void listedTileGone();
//! False from the moment when that window, or one of its tiles, starts to be destroyed; true while there
//! never was one, since then the lists hold what was put into them by hand.
bool tilesExist();
//! The listed tiles in display order; empty once they are gone.
QList<RecentDocDialog *> livingTiles();

} // namespace BrowserLife
