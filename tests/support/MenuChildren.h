// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUIMenuItem.h>

#include <QStringList>

//! The identifiers of a menu's children, in order.
inline QStringList childrenOf(const CFxUIMenuItem &menu)
{
    QStringList identifiers;
    for (int i = 0; i < menu.GetChildCount(); ++i)
        identifiers.append(menu.GetChild(i)->GetIdentifier());
    return identifiers;
}
