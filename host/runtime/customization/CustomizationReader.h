// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/Customization.h>
#include <sdkhost/Outcome.h>

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace fxhost {

struct CustomizationData
{
    std::vector<std::unique_ptr<UIGroup>> groups; //!< in the data's order; exactly one is primary
    std::unique_ptr<UIGroup> startUp;             //!< null if the data have none
    //! Whether the data are valid; if not, there are no groups. The reason contains the line of a syntax
    //! error, or the place of another one, for example `groups[0].menus[1].items[4]`.
    Outcome outcome;
};

//! Reads customisation data: a JSON object in UTF-8. Unknown members are errors, because they are probably
//! misspelled.
//!
//!     {
//!       "groups": [ GROUP, … ],                 exactly one with "primary": true
//!       "startUp": GROUP                        optional
//!     }
//!     GROUP = {
//!       "name": "FXHOST",                       unique
//!       "primary": true,                        optional; default: false
//!       "commands": [ { "identifier": "ID_Open", "name": "Open", "macro": "^C^C_OPEN",
//!                       "help": "Opens a drawing." }, … ],      help is optional
//!       "menus": [ { "identifier": "ID_MnFile", "label": "&File", "items": [ ITEM, … ] }, … ],
//!       "accelerators": [ { "identifier": "ACC_Open", "label": "Open", "key": "Ctrl+O",
//!                           "command": "ID_Open" }, … ]          label is optional
//!     }                                         commands, menus and accelerators are optional
//!     ITEM = { "identifier": "MI_Open", "label": "&Open…", "command": "ID_Open", "help": "…" }
//!          | { "identifier": "MN_Zoom", "label": "&Zoom", "items": [ ITEM, … ] }
//!          | { "identifier": "ID_RECENT_FILES_MENU", "label": "Open &Recent", "kind": "recentFiles" }
//!          | { "identifier": "ID_WINDOWS_MENU", "label": "…", "kind": "windows" }
//!          | { "separator": true }
//!
//! An entry's "command" must be one of its group's commands. Its "help" is optional; the default is the
//! command's. An accelerator's "command" can be missing in the group: the accelerator has no effect until the
//! command is appended to the group. Keys are written as in QKeySequence::PortableText.
FXHOST_API CustomizationData readCustomization(const QByteArray &json);

//! Replaces the groups of customization with those that readCustomization() reads.
//! \return a failure if the data are not valid; nothing is changed then
FXHOST_API Outcome loadCustomization(Customization &customization, const QByteArray &json);

} // namespace fxhost
