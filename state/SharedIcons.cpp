// SPDX-License-Identifier: MIT
#include "state/SharedIcons.h"

#include <QIcon>

#include <initializer_list>
#include <utility>

namespace {

// Plain pointers, because a static host, and with it the buttons, outlives the library's static objects.
const QIcon *pinIcon = nullptr;
const QIcon *folderIcon = nullptr;
const QIcon *drawingIcon = nullptr;

struct IconPicture
{
    const char *file;
    QIcon::State state;
};

const QIcon &ensure(const QIcon *&icon, std::initializer_list<IconPicture> pictures)
{
    if (!icon) {
        auto *made = new QIcon;
        for (const IconPicture &picture : pictures)
            made->addFile(QLatin1String(picture.file), SharedIcons::size, QIcon::Normal, picture.state);
        icon = made;
    }
    return *icon;
}

} // namespace

const QIcon &SharedIcons::pin()
{
    return ensure(pinIcon, {{":/Images/Resources/pin_down_hover.png", QIcon::On},
                            {":/Images/Resources/pin_up_hover.png", QIcon::Off}});
}

const QIcon &SharedIcons::folder()
{
    return ensure(folderIcon, {{":/Images/Resources/Open_32x-32.svg", QIcon::On}});
}

const QIcon &SharedIcons::drawing()
{
    return ensure(drawingIcon, {{":/Images/Resources/VELA_DWG.png", QIcon::Off}});
}

void SharedIcons::drop()
{
    delete std::exchange(pinIcon, nullptr);
    delete std::exchange(folderIcon, nullptr);
    delete std::exchange(drawingIcon, nullptr);
}
