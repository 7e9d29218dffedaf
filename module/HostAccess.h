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

//! The host operations that the module uses. HostAccess.cpp is the only file that calls the host's services.
//! docs/PORTING.md lists what else changes for a host with an interface of its own.
//!
//! If the host lacks something (services, list, window), queries return nothing and requests have no effect.
//! Call all functions on the GUI thread; readPreview() can be called on any thread. Exceptions from the host
//! are passed on after all references have been released.
namespace HostAccess {

//! True if the host provides services.
bool hasServices();

//! The recent documents, most recent first, exactly as the host returns them; nullopt if the host has no such
//! list.
std::optional<std::vector<CFxString>> recentFiles();
//! True if the host has a list of recent documents, even an empty one.
bool hasRecentFileList();

//! The host's main window, owned by the host; null if there is none.
QWidget *mainFrame();

//! Requests that the host open the drawing at the full path. May run an event loop, in which the caller's
//! widgets may be deleted.
void openDocument(const CFxString &path);
//! Requests that the host run a command without an argument. May run an event loop, too.
void runCommand(const CFxString &name);

// Reactors are not owned; they must be removed before they are destroyed.
void addDocumentReactor(CFxDocumentManagerReactor *reactor);
void removeDocumentReactor(CFxDocumentManagerReactor *reactor);
void addEditorReactor(OdEditorReactor *reactor);
void removeEditorReactor(OdEditorReactor *reactor);

//! Registers command, which must live until it is removed.
void addCommand(OdEdCommand *command);
//! Removes the registered command with the same group and names.
void removeCommand(OdEdCommand *command);
//! True if any group contains a command with this global or local name.
bool isCommandRegistered(const OdString &name);

// The host's customisable menus and keys. The host owns the groups and their contents.
//! The first primary group; null if there is none.
CFxUIGroup *primaryGroup();
//! All groups in the host's order, except the group of the start-up menus.
std::vector<CFxUIGroup *> groups();
//! The group of the start-up menus, which are shown while no drawing is open; null if there is none.
CFxUIGroup *startUpGroup();
//! The command definition in group with this identifier, compared exactly; null if there is none.
CFxUICommand *findCommand(const CFxUIGroup &group, const CFxString &identifier);
// The following create objects that are not in any group or menu yet. Null if the host cannot create one.
std::unique_ptr<CFxUICommand> createCommand(const CFxString &identifier);
//! The entry has no command, label or help string.
std::unique_ptr<CFxUIMenuItem> createMenuItem(const CFxString &identifier);
//! The accelerator has no key or identifier.
std::unique_ptr<CFxUIAccelerator> createAccelerator(CFxUICommand *command);
//! Updates the visible menus and the active keys.
void refreshMenus();

//! Sets image to the picture stored in the drawing at path; leaves image unchanged if there is none. Can be
//! called on several threads at the same time. Throws what the host's reader throws.
void readPreview(const CFxString &path, QImage &image);

} // namespace HostAccess
