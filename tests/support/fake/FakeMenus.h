// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/MenuChildren.h"
#include "tests/support/fake/FakeCustomization.h"
#include "tests/support/fake/FakeModule.h"

#include <QRegularExpression>

inline const QString browserEntry = QStringLiteral("PMI_RECENT_DOCUMENT_BROWSER");
inline const QString browserDefinition = QStringLiteral("ID_RECENT_FILES");

//! The calls by which the primary group of FileMenus is found.
inline const QStringList primaryGroupSearch = {"enumerate", "next EXTENSION", "primary? EXTENSION",
                                               "next MAIN", "primary? MAIN",  "enumerator released"};

//! Menus as hosts have them: a group of an extension, the primary one, and the start-up menus, each of the
//! last two with a File menu of a few entries.
struct FileMenus
{
    explicit FileMenus(FakeHost &fakeHost)
        : menus(fakeHost.customization()), extension(menus.addGroup("EXTENSION", false)),
          primary(menus.addGroup("MAIN", true)), startUp(menus.setStartUpGroup("START")),
          file(primary.addMenu("ID_MnFile")), startUpFile(startUp.addMenu("ID_MnFile")),
          m_calls(fakeHost.calls)
    {
        fakeHost.hasCustomization = true;
        for (const char *entry : {"MI_New", "MI_Open", "", "MI_Recent", "MI_Quit"})
            file.add(entry);
        for (const char *entry : {"MI_New", "MI_Recent", "MI_Quit"})
            startUpFile.add(entry);
    }

    //! The calls of the menu service, each without the word "menus".
    QStringList menuCalls() const
    {
        QStringList lines = m_calls.filter(QRegularExpression("^menus "));
        return lines.replaceInStrings(QRegularExpression("^menus "), QString());
    }
    //! How many of the browser's entries are in the File menu and in that of the start-up menus.
    QList<int> entries() const
    {
        return {childrenOf(file).count(browserEntry), childrenOf(startUpFile).count(browserEntry)};
    }
    //! How many command definitions are in the groups of these two.
    QList<int> definitions() const { return {primary.GetCommandCount(), startUp.GetCommandCount()}; }
    //! How many keys are in them, and in the extension's.
    QList<int> keys() const
    {
        return {primary.GetAcceleratorCount(), startUp.GetAcceleratorCount(),
                extension.GetAcceleratorCount()};
    }

    FakeCustomization &menus;
    FakeGroup &extension;
    FakeGroup &primary;
    FakeGroup &startUp;
    FakeMenuItem &file;
    FakeMenuItem &startUpFile;

private:
    const QStringList &m_calls;
};

//! The module in a fake host with those menus. One document is recent.
struct FakeMenus : FakeModule, FileMenus
{
    FakeMenus() : FileMenus(host) { host.setRecent({"/drawings/a.dwg"}); }
};
