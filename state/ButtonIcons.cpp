// SPDX-License-Identifier: MIT
#include "state/ButtonIcons.h"

#include <QIcon>

namespace {

QIcon pinIcon;
QIcon folderIcon;

} // namespace

const QIcon &ButtonIcons::pin()
{
    if (pinIcon.isNull()) {
        pinIcon.addFile(QStringLiteral(":/Images/Resources/pin_down_hover.png"), size, QIcon::Normal,
                        QIcon::On);
        pinIcon.addFile(QStringLiteral(":/Images/Resources/pin_up_hover.png"), size, QIcon::Normal,
                        QIcon::Off);
    }
    return pinIcon;
}

const QIcon &ButtonIcons::folder()
{
    if (folderIcon.isNull())
        folderIcon.addFile(QStringLiteral(":/Images/Resources/Open_32x-32.svg"), size, QIcon::Normal,
                           QIcon::On);
    return folderIcon;
}

void ButtonIcons::drop()
{
    pinIcon = {};
    folderIcon = {};
}
