// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QAction;
class QMenu;
class QObject;
class QWidget;
class RecentDocDialog;

//! Whether what the registry points to still exists, and the registry itself. Its lists are not emptied when
//! a popup goes away, and an older popup may outlive the newest, whose tiles they hold. GUI thread.
namespace TileOwner {

//! \param popup the window whose tiles are listed from now on
void setOwnerOfTiles(const QWidget *popup);
//! A tile is being destroyed, with its window or alone. \param tile an address, no longer a tile
void tileDestroyed(const QObject *tile);
//! False from the moment when that window, or one of its tiles, starts to be destroyed; true while there
//! never was one, since then the lists hold what was put into them by hand.
bool tilesExist();
//! Lists the tiles of popup, and their pins, in place of those that are gone. \return whether it did: not
//! while the listed ones exist
bool listTilesOf(const QWidget *popup);
//! The listed tiles in display order; empty once they are gone.
QList<RecentDocDialog *> livingTiles();

//! Remembers that the recent-file entries stand in menu before successor, which may be null.
void watchMenu(QMenu *menu, QAction *successor);
//! The registry's menu and successor; null once their owner has deleted them.
QMenu *livingMenu();
QAction *livingSuccessor();

//! False once the library's static objects are being destroyed. A host that is a static object itself ends
//! later, and still has the module's code run.
bool registryExists();
void registryDestroyed();

} // namespace TileOwner
