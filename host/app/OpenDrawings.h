// SPDX-License-Identifier: MIT
#pragma once

class QStringList;

namespace fxhost {

class CommandRunner;

//! Requests the command _OPEN for each of the paths. GUI thread.
//! \param paths absolute, so that the command takes them literally
//! \return false if the program is ending, and not all of them will be opened
bool openDrawings(CommandRunner &commands, const QStringList &paths);

//! The same from the event loop, after the caller has returned.
void openDrawingsLater(CommandRunner &commands, const QStringList &paths);

} // namespace fxhost
