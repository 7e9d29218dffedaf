// SPDX-License-Identifier: MIT
#pragma once

#include <CFxCommand.h>

//! "_RHELP": opens the host's help at the browser's page.
class velaCommandHelp : public CFxCommand
{
public:
    OdString globalName() const override;
    OdString localName() const override;
    //! Always CFxCommand::normalCompletion.
    int Execute(CFxCommandContext *context) override;
    //! The number of the browser's page in the host's help.
    int GetHelpId() const override;
};
