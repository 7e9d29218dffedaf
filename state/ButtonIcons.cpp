// SPDX-License-Identifier: MIT
#include "state/ButtonIcons.h"

#include <QIcon>

#include <utility>

namespace {

// Plain pointers, because a static host, and with it the buttons, outlives the library's static objects.
const QIcon *pinIcon = nullptr;
const QIcon *folderIcon = nullptr;

} // namespace

const QIcon &ButtonIcons::pin()
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

const QIcon &ButtonIcons::folder()
{
    if (!folderIcon) {
        auto *icon = new QIcon;
        icon->addFile(QStringLiteral(":/Images/Resources/Open_32x-32.svg"), size, QIcon::Normal, QIcon::On);
        folderIcon = icon;
    }
    return *folderIcon;
}

void ButtonIcons::drop()
{
    delete std::exchange(pinIcon, nullptr);
    delete std::exchange(folderIcon, nullptr);
}
