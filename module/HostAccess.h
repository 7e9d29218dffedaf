// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>

#include <optional>
#include <vector>

class CFxDocumentManagerReactor;
class OdEdCommand;
class OdEditorReactor;
class OdString;
class QImage;
class QWidget;

//! The host operations that the module needs, by what they do for it. HostAccess.cpp is the one file that
//! knows how a host spells them: a host with its own SDK needs that file changed and no other.
//!
//! Whatever the host lacks (no services, no list, no window) makes a query empty and a request void. GUI
//! thread, but for readPreview(). Exceptions from the host pass through, after every reference that was
//! taken has been released.
namespace HostAccess {

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

//! Writes the picture stored in the drawing at path into image; leaves image alone when there is none. Any
//! thread, from several at once. Throws what the host's reader throws.
void readPreview(const CFxString &path, QImage &image);

} // namespace HostAccess
