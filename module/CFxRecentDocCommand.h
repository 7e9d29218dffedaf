// SPDX-License-Identifier: MIT
#pragma once

#include <CFxCommand.h>

//! The command "_RECENT": opens the browser. Does nothing, silently, if the host has no list of recent
//! documents.
class CFxRecentDocCommand : public CFxCommand
{
public:
    OdString globalName() const override;
    OdString localName() const override;
    //! Shows the popup without waiting for it to close. Always returns CFxCommand::normalCompletion.
    int Execute(CFxCommandContext *context) override;
};
