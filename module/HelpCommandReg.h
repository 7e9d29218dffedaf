// SPDX-License-Identifier: MIT
#pragma once

class velaCommandHelp;

//! Puts the help command on the host's command stack and takes it off again. GUI thread.
class HelpCommandReg
{
public:
    //! Registers command, unless the host knows a command of that name: the first one wins.
    static void AddHelpcommand(velaCommandHelp *command);
    //! Removes the registered help command. command need not be the one that was added: its group and names
    //! tell the host which one is meant.
    static void RemoveHelpcommand(velaCommandHelp *command);
};
