// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/HandDrag.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QList>
#include <QPointer>
#include <QRect>

//! The built module's popup on screen over the host's main window, its first tile highlighted, and drags. The
//! screen has room beside the main window.
class HandDragScene
{
public:
    //! With this number of drawings.
    explicit HandDragScene(int documents);
    //! With files of these names.
    explicit HandDragScene(const QStringList &names);

    //! Opens another popup after the former was closed.
    void openPopup();

    // Whether the popup has that rectangle on the X server; false when it is closed.
    bool isStrip() const;
    bool isFull() const;
    //! The indices of the visible tiles.
    QList<int> shown() const;

    //! How the popup, its tiles or the host's drawings differ from the time before any drag; empty when they
    //! do not.
    QString whatHasChanged() const;

    QStringList opened() const { return browser.opened(); }
    QStringList opening(const QList<int> &indices) const { return browser.opening(indices); }

    // The next steps of the hand.
    //! Begins to drag a tile by its centre.
    void dragTile(int index);
    //! Moves to the popup's lower rim, waits for the strip, and moves on to the main window.
    void carryOut();
    //! Moves to the centre of the strip, and waits for the full popup.
    void carryBackIn();

    //! Releases the button. \return the step that failed; empty when all succeeded
    QString drop();
    //! Drags a tile out of the popup and drops it on the main window, likewise.
    QString dropOutside(int index);

    RealBrowser browser;
    QPointer<QDialog> popup;
    QList<QPointer<QDialog>> tiles;
    QRect place;    //!< the popup's, in global coordinates
    QRect strip;    //!< the collapsed popup
    QPoint outside; //!< below the popup, on the main window
    HandDrag hand;
};
