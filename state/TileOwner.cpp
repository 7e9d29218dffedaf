// SPDX-License-Identifier: MIT
#include "state/TileOwner.h"

#include "module/RecentDocumentBrowser.h"
#include "ui/RecentDocDialog.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#include <algorithm>

namespace {

//! Detects whether an object in the registry still exists. An object that was put into the registry without
//! set() is assumed to exist.
template<class Object>
class Watch
{
public:
    void set(Object *object)
    {
        m_object = object;
        m_guard = object;
    }
    Object *living(Object *registered) const { return registered == m_object ? m_guard.data() : registered; }

private:
    const Object *m_object = nullptr;
    QPointer<Object> m_guard;
};

QPointer<const QWidget> owner;
bool hasOwner = false;
Watch<QMenu> menuWatch;
Watch<QAction> successorWatch;
bool isRegistryDestroyed = false;

} // namespace

void TileOwner::setOwnerOfTiles(const QWidget *popup)
{
    owner = popup;
    hasOwner = popup != nullptr;
}

void TileOwner::tileDestroyed(const QObject *tile)
{
    if (isRegistryDestroyed || !owner)
        return;
    const QList<RecentDocDialog *> &tiles = RecentDocumentBrowser::recentDocDialogList;
    if (std::any_of(tiles.begin(), tiles.end(),
                    [tile](const RecentDocDialog *listed) { return listed == tile; }))
        owner = nullptr;
}

bool TileOwner::tilesExist()
{
    return !isRegistryDestroyed && (!hasOwner || owner);
}

bool TileOwner::listTilesOf(const QWidget *popup)
{
    if (tilesExist() || isRegistryDestroyed)
        return false;
    setOwnerOfTiles(popup);
    // Children are in the order of their creation, which is the display order.
    RecentDocumentBrowser::recentDocDialogList =
        popup->findChildren<RecentDocDialog *>(QString(), Qt::FindDirectChildrenOnly);
    RecentDocumentBrowser::docPinButtonList.clear();
    for (const RecentDocDialog *tile : qAsConst(RecentDocumentBrowser::recentDocDialogList))
        RecentDocumentBrowser::AddInToDocPinButtonList(tile->pinButton());
    return true;
}

QList<RecentDocDialog *> TileOwner::livingTiles()
{
    return tilesExist() ? RecentDocumentBrowser::recentDocDialogList : QList<RecentDocDialog *>();
}

void TileOwner::watchMenu(QMenu *menu, QAction *successor)
{
    menuWatch.set(menu);
    successorWatch.set(successor);
}

QMenu *TileOwner::livingMenu()
{
    return menuWatch.living(RecentDocumentBrowser::recentDocMenu);
}

QAction *TileOwner::livingSuccessor()
{
    return successorWatch.living(RecentDocumentBrowser::before);
}

bool TileOwner::registryExists()
{
    return !isRegistryDestroyed;
}

void TileOwner::registryDestroyed()
{
    isRegistryDestroyed = true;
}
