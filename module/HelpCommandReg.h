// SPDX-License-Identifier: MIT
#pragma once

class velaCommandHelp;

//! Registers the help command in the host's command stack and removes it. GUI thread.
class HelpCommandReg
{
public:
    //! Registers command, unless a command with that name is already registered.
    static void AddHelpcommand(velaCommandHelp *command);
    //! Removes the registered help command. command need not be the object that was added: the host finds the
    //! registered one by group and names.
    static void RemoveHelpcommand(velaCommandHelp *command);
};
