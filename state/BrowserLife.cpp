// SPDX-License-Identifier: MIT
#include "state/BrowserLife.h"

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
