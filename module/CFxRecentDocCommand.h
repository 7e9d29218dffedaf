// SPDX-License-Identifier: MIT
#pragma once

#include <CFxCommand.h>

//! "_RECENT": opens the browser. Where the host keeps no recent documents it does nothing, silently.
class CFxRecentDocCommand : public CFxCommand
{
public:
    OdString globalName() const override;
    OdString localName() const override;
    //! Returns at once, with the popup shown; always CFxCommand::normalCompletion.
    int Execute(CFxCommandContext *context) override;
};
