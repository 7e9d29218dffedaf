// SPDX-License-Identifier: MIT
#pragma once

namespace fxhost {

class CommandSet;
class FxHost;
class MainWindow;

//! Adds the commands that need the main window: ABOUT, QUIT, SCREENSHOT, RECENTMANAGE, CASCADE, TILE,
//! NEXTWINDOW and PREVIOUSWINDOW.
//! \param set receives the commands
//! \param host, window must outlive set
void addAppCommands(CommandSet &set, FxHost &host, MainWindow &window);

} // namespace fxhost
