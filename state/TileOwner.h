// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QAction;
class QMenu;
class QObject;
class QWidget;
class RecentDocDialog;

//! Tracks the popup that owns the tiles in the registry, and whether the objects in the registry, and the
//! registry itself, still exist. The registry's lists are not cleared when a popup is destroyed, and an older
//! popup may outlive the newest one, whose tiles they contain. GUI thread.
namespace TileOwner {

//! Sets the owner of the listed tiles.
//! \param popup not owned; null if the tiles have no owner
void setOwnerOfTiles(const QWidget *popup);
//! Must be called when a tile is destroyed, with its popup or alone.
//! \param tile only compared; no longer a tile
void tileDestroyed(const QObject *tile);
//! False after the destruction of the owner or of one of its tiles has begun. True if no owner has been set:
//! then the lists contain what was added to them directly.
bool tilesExist();
//! If the listed tiles no longer exist, lists the tiles of popup and their pin buttons in their place.
//! \return false if the listed tiles still exist
bool listTilesOf(const QWidget *popup);
//! The listed tiles in display order; empty if they no longer exist.
QList<RecentDocDialog *> livingTiles();

//! Tracks the menu that contains the recent-file entries, and the action that follows them.
//! \param menu not owned
//! \param successor not owned; null if the entries are at the end of the menu
void watchMenu(QMenu *menu, QAction *successor);
//! The registry's menu and successor; null if their owner has deleted them.
QMenu *livingMenu();
QAction *livingSuccessor();

//! False after the destruction of the library's static objects has begun. A host that is a static object is
//! destroyed later, and still calls the module's code.
bool registryExists();
//! Must be called when the registry is destroyed.
void registryDestroyed();

} // namespace TileOwner
