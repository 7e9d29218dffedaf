// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/Outcome.h"
#include "host/runtime/customization/UIGroup.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace fxhost {

struct CustomizationData
{
    std::vector<std::unique_ptr<UIGroup>> groups; //!< in the data's order; exactly one is primary
    std::unique_ptr<UIGroup> startUp;             //!< null when the data have none
    //! Whether the data can be used; there are no groups otherwise. The reason names the line of a syntax
    //! error, else the place, such as `groups[0].menus[1].items[4]`.
    Outcome outcome;
};

//! Reads customisation data: a JSON object, UTF-8. Unknown members are errors, since they are misspelled
//! ones.
//!
//!     {
//!       "groups": [ GROUP, … ],                 one of them with "primary": true
//!       "startUp": GROUP                        may be left out
//!     }
//!     GROUP = {
//!       "name": "FXHOST",                       no two the same
//!       "primary": true,                        false when left out
//!       "commands": [ { "identifier": "ID_Open", "name": "Open", "macro": "^C^C_OPEN",
//!                       "help": "Opens a drawing." }, … ],      help may be left out
//!       "menus": [ { "identifier": "ID_MnFile", "label": "&File", "items": [ ITEM, … ] }, … ],
//!       "accelerators": [ { "identifier": "ACC_Open", "label": "Open", "key": "Ctrl+O",
//!                           "command": "ID_Open" }, … ]          label may be left out
//!     }                                         commands, menus and accelerators may be left out
//!     ITEM = { "identifier": "MI_Open", "label": "&Open…", "command": "ID_Open", "help": "…" }
//!          | { "identifier": "MN_Zoom", "label": "&Zoom", "items": [ ITEM, … ] }
//!          | { "identifier": "ID_RECENT_FILES_MENU", "label": "Open &Recent", "kind": "recentFiles" }
//!          | { "identifier": "ID_WINDOWS_MENU", "label": "…", "kind": "windows" }
//!          | { "separator": true }
//!
//! An entry's "command" must be among its group's commands; its help may be left out: the command's then. An
//! accelerator's need not be: the accelerator has no effect until such a definition is appended to
//! the group. Keys are as QKeySequence::PortableText has them.
FXHOST_API CustomizationData readCustomization(const QByteArray &json);

} // namespace fxhost
