// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <OdEdCommandContext.h>

//! The application's services for a running command. Valid until the call that it is passed to returns.
//! GUI thread.
class FXSDK_API CFxCommandContext : public OdEdCommandContext
{
public:
    ~CFxCommandContext() override;

    //! The text that follows the command's name on the command line, without leading and trailing blanks; may
    //! be empty.
    virtual CFxString argument() const = 0; // [gui-thread]
    //! True after the user has cancelled the command. A command that waits must check this.
    virtual bool isCancelled() const = 0; // [gui-thread]
};
