// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

//! A command definition: what a menu entry or an accelerator runs. Owned by the host. GUI thread.
class FXSDK_API CFxUICommand
{
public:
    CFxUICommand() = default;
    virtual ~CFxUICommand();

    virtual CFxString GetIdentifier() const = 0;     // [gui-thread]
    virtual CFxString GetName() const = 0;           // [gui-thread]
    virtual void SetName(const CFxString &name) = 0; // [gui-thread]
    //! The macro to run: each leading `^C` cancels the running command, the rest is a command line.
    virtual CFxString GetMacro() const = 0;            // [gui-thread]
    virtual void SetMacro(const CFxString &macro) = 0; // [gui-thread]
    //! Shown in the status bar.
    virtual CFxString GetHelpString() const = 0;           // [gui-thread]
    virtual void SetHelpString(const CFxString &text) = 0; // [gui-thread]

    CFxUICommand(const CFxUICommand &) = delete;
    CFxUICommand &operator=(const CFxUICommand &) = delete;
};
