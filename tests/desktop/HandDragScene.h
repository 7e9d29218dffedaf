// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/HandDrag.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QList>
#include <QPointer>
#include <QRect>

//! The built module's popup on screen over the host's main window, its first tile highlighted, and a hand
//! that drags. The screen has room beside the main window.
class HandDragScene
{
public:
    //! Of so many drawings.
    explicit HandDragScene(int documents);
    //! The same with files of these names.
    explicit HandDragScene(const QStringList &names);

    //! Opens a popup where there is none any more.
    void openPopup();

    // Whether the popup's rectangle, as the X server has it, is that one; false when it is gone.
    bool isStrip() const;
    bool isFull() const;
    //! The tiles that can be seen, by their place in the list.
    QList<int> shown() const;

    //! In which way the popup, its tiles or the host's drawings differ from the time before any drag; empty
    //! when they do not.
    QString whatHasChanged() const;

    QStringList opened() const { return browser.opened(); }
    QStringList opening(const QList<int> &indices) const { return browser.opening(indices); }

    // What the hand shall do next.
    //! Takes hold of a tile's middle and begins to drag it.
    void dragTile(int index);
    //! Carries it to the popup's lower rim, waits for the strip, and goes on to the main window.
    void carryOut();
    //! Carries it to the strip's own inner area, and waits for the popup.
    void carryBackIn();

    RealBrowser browser;
    QPointer<QDialog> popup;
    QList<QPointer<QDialog>> tiles;
    QRect place;    //!< the popup's, in global coordinates
    QRect strip;    //!< what is left of it
    QPoint outside; //!< below the popup, on the main window
    HandDrag hand;
};
