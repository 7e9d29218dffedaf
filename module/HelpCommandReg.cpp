// SPDX-License-Identifier: MIT
#include "module/HelpCommandReg.h"

#include "module/HostAccess.h"
#include "module/velaCommandHelp.h"

void HelpCommandReg::AddHelpcommand(velaCommandHelp *command)
{
    if (!HostAccess::isCommandRegistered(command->globalName()))
        HostAccess::addCommand(command);
}

void HelpCommandReg::RemoveHelpcommand(velaCommandHelp *command)
{
    if (HostAccess::isCommandRegistered(command->globalName()))
        HostAccess::removeCommand(command);
}
