// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Browser.h"

#include <QMenu>
#include <QMetaType>
#include <QPointer>

class RecentDocDialog;
class RecentDocMainWindow;

//! A host with four drawings, a menu of the module's entries that is open, and a popup; and the ways in which
//! the user opens drawings there. What the host does meanwhile is FakeHost's onOpen.
class OpeningHost
{
public:
    enum class Way { Enter, TwoClicks, MenuEntry, DragOut };
    using Deed = void (*)(OpeningHost &);

    OpeningHost();

    //! Opens by that way, through the events that Qt would send. \return the paths that should be opened
    QStringList open(Way way) const;
    //! Presses the mouse on a tile, as a drag of it begins.
    void hold(const RecentDocDialog *tile) const;

    RecentDocDialog *tile(int index) const { return browser.tiles().at(index); }
    //! Runs "_RECENT". \return the popup that it opens
    static RecentDocMainWindow *runRecent();

    Browser browser{4};
    FakeHost &host = browser.host;
    QPointer<QMenu> menu;
    QPointer<RecentDocMainWindow> popup;

    ~OpeningHost() { delete menu; }
    Q_DISABLE_COPY(OpeningHost)
};

Q_DECLARE_METATYPE(OpeningHost::Way)
Q_DECLARE_METATYPE(OpeningHost::Deed)
