// SPDX-License-Identifier: MIT
#pragma once

namespace fxhost {

class CommandSet;
class FxHost;

//! Adds the commands that need no window: NEW, OPEN, CLOSE, HELP, DELAY, RECENTLIMIT, RECENTADD,
//! RECENTKEEP, RECENTREMOVE, RECENTCLEAR, MODULELOAD and MODULEUNLOAD.
//! \param host must outlive set
void addHostCommands(CommandSet &set, FxHost &host);

} // namespace fxhost
