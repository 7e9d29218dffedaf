// SPDX-License-Identifier: MIT
#pragma once

#include <CFxCommand.h>

//! The command "_RHELP": opens the browser's page in the host's help.
class velaCommandHelp : public CFxCommand
{
public:
    OdString globalName() const override;
    OdString localName() const override;
    //! Always returns CFxCommand::normalCompletion.
    int Execute(CFxCommandContext *context) override;
    //! The topic of the browser's page in the host's help.
    int GetHelpId() const override;
};
