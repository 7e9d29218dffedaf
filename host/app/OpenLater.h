// SPDX-License-Identifier: MIT
#pragma once

class QStringList;

namespace fxhost {

class CommandRunner;

//! Opens drawings with _OPEN, one after the other, when control returns to the event loop: the caller may be
//! a menu, a dialog or a drop, which ends first. GUI thread.
//! \param commands if it is deleted before that, nothing is opened
void openLater(CommandRunner &commands, const QStringList &paths);

} // namespace fxhost
