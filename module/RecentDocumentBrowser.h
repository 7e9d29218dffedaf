// SPDX-License-Identifier: MIT
#pragma once

#include "module/BrowserApi.h"
#include "module/CFxRecentDocCommand.h"

#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <OdStaticRxObject.h>
#include <vela_OdRxModule.h>

#include <QImage>
#include <QList>
#include <QMap>
#include <QString>

class CFxUIMenuItem;
class FolderPinButton;
class QAction;
class QMenu;
class RecentDocDialog;

//! The module, which the host starts, notifies of events and ends. Its static members are the registry
//! through which the browser's objects find each other.
//!
//! The registry's lists contain raw pointers and do not own the objects. Objects are not removed from a list
//! when they are deleted: a list is valid from one rebuild until the window that owns its objects is
//! destroyed. Everything here is for the GUI thread, except GetQImage().
class BROWSER_API RecentDocumentBrowser : public vela_OdRxModule,
                                          public CFxDocumentManagerReactor,
                                          public CFxEditorReactor
{
public:
    RecentDocumentBrowser();
    //! Deletes the remaining objects that run the module's code: open popups, the balloon, the hidden menus.
    ~RecentDocumentBrowser() override;

    // Called by the host.
    void initApp() override;
    //! Does nothing: mainFrameDestroyed() has already undone everything.
    void uninitApp() override;
    void DocumentCreated(CFxDocument *document) override;
    void mainFrameCreated(QWidget *mainFrame) override;
    void mainFrameDestroyed(QWidget *mainFrame) override;

    // The host's menus and keys (module/MenuIntegration.cpp).
    //! Adds "Preview Recent Documents..." to the File menus that do not contain it, if there are recent
    //! documents.
    static void LoadMenu();
    //! The first top-level menu with this identifier, compared exactly, in any group except the start-up
    //! group; owned by the host, null if there is none.
    static CFxUIMenuItem *GetMenuItem(const CFxString &id);
    //! Looks up the File menu's entry and its accelerator, and removes neither: the host discards them with
    //! the main window.
    //! \param fileMenu may be null
    static void UnLoadMenu(CFxUIMenuItem *fileMenu);
    //! Binds F4 to the browser, unless another command has that key. The host may call this after LoadMenu()
    //! has created the command definition. The key works after the next refresh of the host's menus.
    static void SetShortCutKey();

    //! Inserts an entry for each recent document into menu, between two separators. Stores the position for
    //! later reordering. The caller must clear menuPinButtonList first, because the browser creates a tile
    //! for each button in it.
    //! \param successor the action to insert the entries before; null to append them
    static void AddRecentFiles(QMenu *menu, QAction *successor);

    // Tiles (state/BrowserList.cpp).
    //! Creates a tile, as a child of parent, for each menu entry whose document is in the image cache.
    static void CreateRecentDocList(QWidget *parent);
    //! The first highlighted tile in display order, or null.
    static RecentDocDialog *getHighlightedRecentDoc();
    //! All highlighted tiles in display order.
    static QList<RecentDocDialog *> getHighlightedRecentDocList();
    //! The paths of all highlighted tiles in display order.
    static QList<QString> getHighlightedRecentDocPathList();
    //! Both append the given button, even if it is null or already in the list.
    static void AddInToMenuPinButtonList(FolderPinButton *button);
    static void AddInToDocPinButtonList(FolderPinButton *button);

    // Buttons (state/ButtonFactories.cpp). Each is owned by parent.
    static FolderPinButton *CreatePinButton(QWidget *parent, QString &path);
    static FolderPinButton *CreateFolderButton(QWidget *parent, QString &path);

    // Pins (state/PinnedOrder.cpp).
    //! Moves pinned documents to the front, in the recent-files menu, renumbered and followed by a separator,
    //! and in menuPinButtonList.
    //! \param unused neither read nor written
    static void UpdatePin(QString &unused);

    // Thumbnails (state/ThumbnailCache.cpp).
    //! The picture stored in the drawing at path; null if there is none or it cannot be read. Any thread.
    static QImage GetQImage(const QString &path);
    //! Replaces the contents of recentFileImageMap with the pictures of all recent documents. Blocks until
    //! all are read.
    static void CreateRecentFileImageMap();

    //! The tiles of the newest popup, in display order.
    static QList<RecentDocDialog *> recentDocDialogList;
    //! Maps paths to pictures, including null pictures. Empty if not built yet.
    static QMap<QString, QImage> recentFileImageMap;
    //! The entries (RecentFileAction) of recentDocMenu, in the order of the host's list.
    static QList<QAction *> recentDocActionList;
    //! The pin buttons of the menu entries, in menu order.
    static QList<FolderPinButton *> menuPinButtonList;
    //! The pin buttons of the newest popup's tiles, in the order in which the tiles were created.
    static QList<FolderPinButton *> docPinButtonList;
    //! The menu that contains the entries, and the action that follows them (null: the end). The caller of
    //! AddRecentFiles() owns both and may delete them; TileOwner detects this.
    static QMenu *recentDocMenu;
    static QAction *before;

private:
    OdStaticRxObject<CFxRecentDocCommand> m_command;
};

//! Constructed and destroyed with the module; always empty.
extern QList<FolderPinButton *> folderButtonList;
