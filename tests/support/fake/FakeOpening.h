// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/fake/FakeBrowser.h"

#include <QMenu>
#include <QMetaType>
#include <QPointer>

class RecentDocDialog;
class RecentDocMainWindow;

//! A host with four drawings, a menu of the module's entries that is open, and a popup; and the ways in which
//! the user opens drawings there. FakeHost::onOpen is called meanwhile.
class FakeOpening
{
public:
    enum class Way { Enter, TwoClicks, MenuEntry, DragOut };
    using Action = void (*)(FakeOpening &);

    FakeOpening();

    //! Opens by that way, through the events that Qt would send. \return the paths that should be opened
    QStringList open(Way way) const;
    //! Presses the mouse on a tile, as a drag of it begins.
    void hold(const RecentDocDialog *tile) const;

    RecentDocDialog *tile(int index) const { return browser.tiles().at(index); }
    //! Runs "_RECENT". \return the popup that it opens
    static RecentDocMainWindow *runRecent();

    FakeBrowser browser{4};
    FakeHost &host = browser.host;
    QPointer<QMenu> menu;
    QPointer<RecentDocMainWindow> popup;

    ~FakeOpening() { delete menu; }
    Q_DISABLE_COPY(FakeOpening)
};

Q_DECLARE_METATYPE(FakeOpening::Way)
Q_DECLARE_METATYPE(FakeOpening::Action)
