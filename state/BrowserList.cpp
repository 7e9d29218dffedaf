// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "state/TileOwner.h"
#include "ui/RecentDocDialog.h"

#include <algorithm>

void RecentDocumentBrowser::CreateRecentDocList(QWidget *parent)
{
    // Copies, because creating a tile may run code that changes the cache or the list.
    const QMap<QString, QImage> images = recentFileImageMap;
    const QList<FolderPinButton *> menuButtons = menuPinButtonList;

    recentDocDialogList.clear();
    TileOwner::setOwnerOfTiles(parent);
    for (FolderPinButton *menuButton : menuButtons) {
        if (!menuButton)
            continue;
        const auto entry = images.constFind(menuButton->path());
        if (entry == images.constEnd())
            continue;
        QImage image = entry.value();
        auto *tile = new RecentDocDialog(parent, menuButton, entry.key(), image, false);
        recentDocDialogList.append(tile);
        QObject::connect(tile, &QObject::destroyed, tile, &TileOwner::tileDestroyed);
    }
}

RecentDocDialog *RecentDocumentBrowser::getHighlightedRecentDoc()
{
    const QList<RecentDocDialog *> tiles = TileOwner::livingTiles();
    const auto first = std::find_if(tiles.begin(), tiles.end(),
                                    [](const RecentDocDialog *tile) { return tile->isHighlighted(); });
    return first == tiles.end() ? nullptr : *first;
}

QList<RecentDocDialog *> RecentDocumentBrowser::getHighlightedRecentDocList()
{
    QList<RecentDocDialog *> highlighted;
    const QList<RecentDocDialog *> tiles = TileOwner::livingTiles();
    for (RecentDocDialog *tile : tiles) {
        if (tile->isHighlighted())
            highlighted.append(tile);
    }
    return highlighted;
}

QList<QString> RecentDocumentBrowser::getHighlightedRecentDocPathList()
{
    QList<QString> paths;
    const QList<RecentDocDialog *> tiles = getHighlightedRecentDocList();
    for (const RecentDocDialog *tile : tiles)
        paths.append(tile->path());
    return paths;
}

void RecentDocumentBrowser::AddInToMenuPinButtonList(FolderPinButton *button)
{
    menuPinButtonList.append(button);
}

void RecentDocumentBrowser::AddInToDocPinButtonList(FolderPinButton *button)
{
    docPinButtonList.append(button);
}
