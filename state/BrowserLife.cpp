// SPDX-License-Identifier: MIT
#include "state/BrowserLife.h"

#include "module/RecentDocumentBrowser.h"

#include <QPointer>
#include <QWidget>

namespace {
QPointer<const QWidget> owner;
bool hasOwner = false;
} // namespace

void BrowserLife::setOwnerOfTiles(const QWidget *popup)
{
    owner = popup;
    hasOwner = popup != nullptr;
}

void BrowserLife::listedTileGone()
{
    owner = nullptr;
}

bool BrowserLife::tilesExist()
{
    return !hasOwner || owner;
}

QList<RecentDocDialog *> BrowserLife::livingTiles()
{
    return tilesExist() ? RecentDocumentBrowser::recentDocDialogList : QList<RecentDocDialog *>();
}
