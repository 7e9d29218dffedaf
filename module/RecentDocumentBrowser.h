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

//! The module: what the host starts, tells of events and ends, and, as static members, the registry through
//! which the browser's objects find each other.
//!
//! The registry's lists hold raw pointers that they do not own, and nothing takes an object off a list when
//! it dies: a list is good from one rebuild until the window that owns its objects goes away. Everything
//! here is for the GUI thread, but for GetQImage().
class BROWSER_API RecentDocumentBrowser : public vela_OdRxModule,
                                          public CFxDocumentManagerReactor,
                                          public CFxEditorReactor
{
public:
    RecentDocumentBrowser();
    //! Deletes whatever still runs the module's code: open popups, a balloon, the hidden menus.
    ~RecentDocumentBrowser() override;

    // Called by the host.
    void initApp() override;
    //! Does nothing: mainFrameDestroyed() has undone everything by then.
    void uninitApp() override;
    void DocumentCreated(CFxDocument *document) override;
    void mainFrameCreated(QWidget *mainFrame) override;
    void mainFrameDestroyed(QWidget *mainFrame) override;

    // The host's own menus and keys (module/MenuIntegration.cpp).
    //! Puts "Preview Recent Documents..." into the File menus where it is missing and there are recent
    //! documents to show.
    static void LoadMenu();
    //! The first top-level menu with this identifier, compared exactly, in any group but the start-up one;
    //! owned by the host, null when there is none.
    static CFxUIMenuItem *GetMenuItem(const CFxString &id);
    //! Looks at the File menu's entry and its accelerator, and leaves both: the host discards them with the
    //! main window. \param fileMenu may be null
    static void UnLoadMenu(CFxUIMenuItem *fileMenu);
    //! Binds F4 to the browser unless some command has that key. For the host to call, once LoadMenu() has
    //! made the command definition; the key works from the next refresh of the host's menus on.
    static void SetShortCutKey();

    //! Inserts an entry for each recent document into menu, between two separators. Remembers where, for
    //! later reordering. The caller clears menuPinButtonList first, since the browser makes a tile for each
    //! button in it. \param successor the entries go before it; null: at the end
    static void AddRecentFiles(QMenu *menu, QAction *successor);

    // Tiles (state/BrowserList.cpp).
    //! Creates a tile, as a child of parent, for each menu entry whose document has an image in the cache.
    static void CreateRecentDocList(QWidget *parent);
    //! The first highlighted tile in display order, or null.
    static RecentDocDialog *getHighlightedRecentDoc();
    //! All highlighted tiles in display order.
    static QList<RecentDocDialog *> getHighlightedRecentDocList();
    //! Their paths in display order.
    static QList<QString> getHighlightedRecentDocPathList();
    //! Both append whatever they are given, null and repeats included.
    static void AddInToMenuPinButtonList(FolderPinButton *button);
    static void AddInToDocPinButtonList(FolderPinButton *button);

    // Buttons (state/ButtonFactories.cpp). Each is owned by parent.
    static FolderPinButton *CreatePinButton(QWidget *parent, QString &path);
    static FolderPinButton *CreateFolderButton(QWidget *parent, QString &path);

    // Pins (state/PinnedOrder.cpp).
    //! Puts pinned documents first: in the recent-files menu, renumbered and with a separator behind them,
    //! and in menuPinButtonList. \param unused neither read nor written
    static void UpdatePin(QString &unused);

    // Thumbnails (state/ThumbnailCache.cpp).
    //! The picture stored in the drawing at path; null when there is none or it cannot be read. Any thread.
    static QImage GetQImage(const QString &path);
    //! Reads the pictures of all recent documents into recentFileImageMap, in place of what it held. Blocks
    //! until all are read.
    static void CreateRecentFileImageMap();

    //! The tiles of the newest popup, in display order.
    static QList<RecentDocDialog *> recentDocDialogList;
    //! Path to picture, null pictures included. Empty: not built yet.
    static QMap<QString, QImage> recentFileImageMap;
    //! The entries (RecentFileAction) of recentDocMenu, in the order in which the host listed them.
    static QList<QAction *> recentDocActionList;
    //! The pin buttons of the menu entries, in menu order.
    static QList<FolderPinButton *> menuPinButtonList;
    //! The pin buttons of the newest popup's tiles, in the order in which the tiles were made.
    static QList<FolderPinButton *> docPinButtonList;
    //! The menu that carries the entries, and the action that they stand in front of (null: the end). Whoever
    //! handed them in owns them, and may delete them: TileOwner knows.
    static QMenu *recentDocMenu;
    static QAction *before;

private:
    OdStaticRxObject<CFxRecentDocCommand> m_command;
};

//! Constructed and destroyed with the module, never filled.
extern QList<FolderPinButton *> folderButtonList;
