// SPDX-License-Identifier: MIT
#pragma once

namespace sdkhost {
class Customization;
}

namespace fxhost {

//! Adds the program's menus, keys and command definitions, in the language of the translators that are
//! installed: the primary group, and the start-up group for the time when no drawing is open. Must be called
//! once.
void addMenus(sdkhost::Customization &customization);

} // namespace fxhost
