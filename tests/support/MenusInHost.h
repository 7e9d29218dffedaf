// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/FakeCustomization.h"
#include "tests/support/MenuChildren.h"
#include "tests/support/ModuleInHost.h"

#include <QRegularExpression>

//! The module in a fake host with menus as hosts have them: a group of an extension, the primary one, and the
//! start-up menus, each of the last two with a File menu of a few entries. One document is recent.
struct MenusInHost : ModuleInHost
{
    MenusInHost()
    {
        host.hasCustomization = true;
        host.setRecent({QStringLiteral("/drawings/a.dwg")});
        for (const char *entry : {"MI_New", "MI_Open", "", "MI_Recent", "MI_Quit"})
            file.add(QLatin1String(entry));
        for (const char *entry : {"MI_New", "MI_Recent", "MI_Quit"})
            startUpFile.add(QLatin1String(entry));
    }

    //! The lines of what was asked of the menus, without the word that begins each.
    QStringList menuCalls() const
    {
        QStringList lines = host.calls.filter(QRegularExpression(QStringLiteral("^menus ")));
        return lines.replaceInStrings(QRegularExpression(QStringLiteral("^menus ")), QString());
    }

    FakeCustomization &menus = host.customization();
    FakeGroup &extension = menus.addGroup(QStringLiteral("EXTENSION"), false);
    FakeGroup &primary = menus.addGroup(QStringLiteral("MAIN"), true);
    FakeGroup &startUp = menus.setStartUpGroup(QStringLiteral("START"));
    FakeMenuItem &file = primary.addMenu(QStringLiteral("ID_MnFile"));
    FakeMenuItem &startUpFile = startUp.addMenu(QStringLiteral("ID_MnFile"));
};

//! What finding the primary group asks of those menus.
inline const QStringList primaryGroupSearch = {
    QStringLiteral("enumerate"), QStringLiteral("next EXTENSION"), QStringLiteral("primary? EXTENSION"),
    QStringLiteral("next MAIN"), QStringLiteral("primary? MAIN"),  QStringLiteral("enumerator released"),
};

inline const QString browserEntry = QStringLiteral("PMI_RECENT_DOCUMENT_BROWSER");
inline const QString browserDefinition = QStringLiteral("ID_RECENT_FILES");
inline const QString browserLabel = QStringLiteral("Preview Recent Documents...");
