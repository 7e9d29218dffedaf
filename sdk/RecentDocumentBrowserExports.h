// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <QList>

#include <dlfcn.h>

class FolderPinButton;
class QAction;
class QMenu;

//! The functions that the module RecentDocumentBrowser exports for hosts. They are looked up by name in the
//! loaded library, so that a host needs no header of the module, and neither links it.
namespace RecentDocumentBrowserExports {

//! Inserts an entry for each recent document into a menu of the host, between two separators. From then on,
//! the pins of this menu are those of the browser, which has a tile for each entry. Nothing is pinned at
//! first.
//!
//! An entry is a QWidgetAction with three QToolButtons: the first shows the number and the path, and opens
//! the document; the second shows it in its folder; the third, which alone is checkable, pins it. The
//! entry's text() is an ampersand, the number, a blank and the path.
//!
//! **When.** After each CFxDocumentManagerReactor::DocumentCreated(), as soon as the module has been
//! notified: it has unpinned everything then, and made entries of its own, which have the browser's pins
//! until this call. Before the first, the browser is empty: a host that starts without a drawing calls this
//! after loading. A host may also call this when its list has changed, and then call click() on the pins of
//! the entries that were pinned. Only one menu can have the browser's pins: that of the last call.
//!
//! **Ownership.** The module owns the entries, and deletes them before it is unloaded. Until the next call
//! the browser uses them, so the host must not delete them, but may delete the menu and the successor. After
//! the next call the host should delete the former entries, with deleteLater(), because the document may
//! have been opened by a click on one of them; otherwise each call costs about 31 KB of memory for each
//! entry until the module is unloaded. The separators belong to the menu: these two, and another one each
//! time pinned entries are moved. They remain when the module is unloaded; QMenu::clear() deletes them.
//!
//! **In the menu.**
//! - triggered() of an entry is emitted when it is chosen with the keyboard, or with the mouse beside its
//!   buttons. The module does not handle it: the host should open the document.
//! - A click on a button does not close the menu.
//! - Pinned entries move to the front, followed by another separator. The first buttons show the new numbers,
//!   but text(), from which QMenu takes the keys, does not change. The host can set the number in it.
//! - The path is black on every desktop. QMenu does not highlight an entry with a widget when it is reached
//!   with the keyboard.
//!
//! \param library a module's handle, as dlopen() returned it
//! \param menu not null
//! \param successor the action to insert the entries before; null to append them
//! \return false if the library is another module's; nothing is done then
inline bool addRecentFiles(void *library, QMenu *menu, QAction *successor) // [gui-thread]
{
    if (!library)
        return false;
    auto *const pinButtons = static_cast<QList<FolderPinButton *> *>(
        dlsym(library, "_ZN21RecentDocumentBrowser17menuPinButtonListE"));
    auto *const add = reinterpret_cast<void (*)(QMenu *, QAction *)>(
        dlsym(library, "_ZN21RecentDocumentBrowser14AddRecentFilesEP5QMenuP7QAction"));
    if (!pinButtons || !add)
        return false;
    pinButtons->clear(); // of the former entries, which would have a second tile each
    add(menu, successor);
    return true;
}

//! Binds F4 to the browser in the host's primary customisation group, unless another command has that key.
//! Call this after the module's mainFrameCreated(), which creates the browser's command definition. The key
//! works after the next refresh of the host's menus.
//! \param library a module's handle, as dlopen() returned it
//! \return false if the library is another module's; nothing is done then
inline bool setShortCutKey(void *library) // [gui-thread]
{
    auto *const set = reinterpret_cast<void (*)()>(
        library ? dlsym(library, "_ZN21RecentDocumentBrowser14SetShortCutKeyEv") : nullptr);
    if (!set)
        return false;
    set();
    return true;
}

} // namespace RecentDocumentBrowserExports
