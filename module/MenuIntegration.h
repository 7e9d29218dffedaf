// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>

class CFxUIGroup;
class CFxUIMenuItem;

// The browser's place in the host's customisable menus. Everything found or made there belongs to the host.
// GUI thread.

//! The identifier of the menu that carries the browser's entry.
inline constexpr const wchar_t *fileMenuIdentifier = L"ID_MnFile";

//! The host's primary customisation group; null when it has none.
CFxUIGroup *GetCommandGroup();
//! The top-level menu of the start-up menus with this identifier, compared exactly; null when there is none.
CFxUIMenuItem *GetStartUpMenuItem(const CFxString &id);
//! Makes the browser's command definition in group where it is missing and, if the host has recent documents,
//! the entry in fileMenu. \param fileMenu null, or one that has the entry already: nothing is done
void addRecentDocMenu(CFxUIMenuItem *fileMenu, CFxUIGroup *group);
