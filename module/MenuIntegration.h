// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>

class CFxUIGroup;
class CFxUIMenuItem;

// The browser's entries in the host's customisable menus. The host owns everything found or created there.
// GUI thread.

//! The identifier of the menu that contains the browser's entry.
inline constexpr const wchar_t *fileMenuIdentifier = L"ID_MnFile";

//! The host's primary customisation group; null if it has none.
CFxUIGroup *GetCommandGroup();
//! The top-level start-up menu with this identifier, compared exactly; null if there is none.
CFxUIMenuItem *GetStartUpMenuItem(const CFxString &id);
//! Creates the browser's command definition in group if it is missing and, if the host has recent documents,
//! the entry in fileMenu.
//! \param fileMenu may be null. Nothing is done if it is null or already contains the entry
//! \param group not null unless fileMenu is null
void addRecentDocMenu(CFxUIMenuItem *fileMenu, CFxUIGroup *group);
