// SPDX-License-Identifier: MIT
#include "state/SharedIcons.h"

#include <QIcon>

#include <utility>

namespace {

// Plain pointers, because a static host, and with it the buttons, outlives the library's static objects.
const QIcon *pinIcon = nullptr;
const QIcon *folderIcon = nullptr;
const QIcon *drawingIcon = nullptr;

} // namespace

const QIcon &SharedIcons::pin()
{
    if (!pinIcon) {
        auto *icon = new QIcon;
        icon->addFile(QStringLiteral(":/Images/Resources/pin_down_hover.png"), size, QIcon::Normal,
                      QIcon::On);
        icon->addFile(QStringLiteral(":/Images/Resources/pin_up_hover.png"), size, QIcon::Normal, QIcon::Off);
        pinIcon = icon;
    }
    return *pinIcon;
}

const QIcon &SharedIcons::folder()
{
    if (!folderIcon) {
        auto *icon = new QIcon;
        icon->addFile(QStringLiteral(":/Images/Resources/Open_32x-32.svg"), size, QIcon::Normal, QIcon::On);
        folderIcon = icon;
    }
    return *folderIcon;
}

const QIcon &SharedIcons::drawing()
{
    if (!drawingIcon) {
        auto *icon = new QIcon;
        icon->addFile(QStringLiteral(":/Images/Resources/VELA_DWG.png"), size, QIcon::Normal, QIcon::Off);
        drawingIcon = icon;
    }
    return *drawingIcon;
}

void SharedIcons::drop()
{
    delete std::exchange(pinIcon, nullptr);
    delete std::exchange(folderIcon, nullptr);
    delete std::exchange(drawingIcon, nullptr);
}
