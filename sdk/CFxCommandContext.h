// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <OdEdCommandContext.h>

//! What a running command may ask of the application. Lives as long as the call that it is passed to.
class FXSDK_API CFxCommandContext : public OdEdCommandContext
{
public:
    ~CFxCommandContext() override;

    //! What stood behind the command's name on its line, without the blanks around it; may be empty.
    virtual CFxString argument() const = 0; // [gui-thread]
    //! True once the person has asked for the command to end. A command that waits looks at this.
    virtual bool isCancelled() const = 0; // [gui-thread]
};
