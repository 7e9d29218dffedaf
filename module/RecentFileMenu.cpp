// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/ModuleLifetime.h"
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/TileOwner.h"

#include <QDir>
#include <QMenu>

void RecentDocumentBrowser::AddRecentFiles(QMenu *menu, QAction *successor)
{
    const std::vector<CFxString> paths = HostAccess::recentFiles().value_or(std::vector<CFxString>());

    recentDocMenu = new QMenu;
    ModuleLifetime::keep(recentDocMenu);
    recentDocActionList.clear();
    menu->insertSeparator(successor);
    int number = 1;
    for (const CFxString &path : paths) {
        // The number is the entry's mnemonic; from the tenth entry on, its first digit is.
        const CFxString prefix = CFxString::format("&%i ", number++);
        auto *action =
            new RecentFileAction(QString(prefix) + QDir::toNativeSeparators(path), path, menu, successor);
        ModuleLifetime::keep(action);
        recentDocActionList.append(action);
    }
    menu->insertSeparator(successor);
    before = successor;
    recentDocMenu = menu;
    TileOwner::watchMenu(menu, successor);
}
