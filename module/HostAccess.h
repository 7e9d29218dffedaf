// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>

#include <memory>
#include <optional>
#include <vector>

class CFxDocumentManagerReactor;
class CFxUIAccelerator;
class CFxUICommand;
class CFxUIGroup;
class CFxUIMenuItem;
class OdEdCommand;
class OdEditorReactor;
class OdString;
class QImage;
class QWidget;

//! The host operations that the module needs, by what they do for it. HostAccess.cpp is the one file that
//! knows how a host's services are called: a host with its own SDK needs that file changed, and, where its
//! menu classes differ, MenuIntegration.cpp.
//!
//! Whatever the host lacks (no services, no list, no window) makes a query empty and a request void. GUI
//! thread, but for readPreview(). Exceptions from the host pass through, after every reference that was
//! taken has been released.
namespace HostAccess {

//! Whether the host offers services at all.
bool hasServices();

//! The recent documents, most recent first, exactly as the host gives them; nothing when the host keeps no
//! such list.
std::optional<std::vector<CFxString>> recentFiles();
//! Whether the host keeps a list of recent documents, empty or not.
bool hasRecentFileList();

//! The host's main window, owned by the host; null when there is none.
QWidget *mainFrame();

//! Asks the host to open the drawing at the full path. May run an event loop: the caller's widgets may be
//! gone afterwards.
void openDocument(const CFxString &path);
//! Asks the host to run a command without an argument. May run an event loop as well.
void runCommand(const CFxString &name);

void addDocumentReactor(CFxDocumentManagerReactor *reactor);
void removeDocumentReactor(CFxDocumentManagerReactor *reactor);
void addEditorReactor(OdEditorReactor *reactor);
void removeEditorReactor(OdEditorReactor *reactor);

//! The command stack keeps no copy: command must live until it is removed.
void addCommand(OdEdCommand *command);
//! Removes the command of the same group and names.
void removeCommand(OdEdCommand *command);
//! Whether a command has this global or local name, in any group.
bool isCommandRegistered(const OdString &name);

// The host's customisable menus and keys. Groups, and all that is in one, are owned by the host.
//! The first group that the host calls primary; null when there is none.
CFxUIGroup *primaryGroup();
//! All groups in the host's order, without that of the start-up menus.
std::vector<CFxUIGroup *> groups();
//! The group of the menus that stand while no drawing is open; null when there is none.
CFxUIGroup *startUpGroup();
//! The command definition with this identifier, compared exactly; null when group has none.
CFxUICommand *findCommand(const CFxUIGroup &group, const CFxString &identifier);
// New ones, without a place in any group or menu yet; null when the host cannot make any.
std::unique_ptr<CFxUICommand> createCommand(const CFxString &identifier);
//! Runs nothing, and has neither label nor help string.
std::unique_ptr<CFxUIMenuItem> createMenuItem(const CFxString &identifier);
//! Has neither key nor identifier.
std::unique_ptr<CFxUIAccelerator> createAccelerator(CFxUICommand *command);
//! Brings menus and keys on screen up to date.
void refreshMenus();

//! Writes the picture stored in the drawing at path into image; leaves image alone when there is none. Any
//! thread, from several at once. Throws what the host's reader throws.
void readPreview(const CFxString &path, QImage &image);

} // namespace HostAccess
