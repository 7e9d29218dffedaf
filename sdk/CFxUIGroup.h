// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class CFxUIAccelerator;
class CFxUICommand;
class CFxUIMenuItem;

//! A customisation group: command definitions, top-level menus and accelerators. Owns its contents; owned by
//! the host. Every Get…(index) returns null if index is out of range. GUI thread.
class FXSDK_API CFxUIGroup
{
public:
    CFxUIGroup() = default;
    virtual ~CFxUIGroup();

    virtual CFxString GetName() const = 0; // [gui-thread]

    virtual int GetCommandCount() const = 0;               // [gui-thread]
    virtual CFxUICommand *GetCommand(int index) const = 0; // [gui-thread]
    //! Takes ownership.
    //! \param command not null
    virtual void AppendCommand(CFxUICommand *command) = 0; // [gui-thread]

    virtual int GetMenuCount() const = 0;                // [gui-thread]
    virtual CFxUIMenuItem *GetMenu(int index) const = 0; // [gui-thread]

    virtual int GetAcceleratorCount() const = 0;                   // [gui-thread]
    virtual CFxUIAccelerator *GetAccelerator(int index) const = 0; // [gui-thread]
    //! Takes ownership.
    //! \param accelerator not null
    virtual void AppendAccelerator(CFxUIAccelerator *accelerator) = 0; // [gui-thread]

    CFxUIGroup(const CFxUIGroup &) = delete;
    CFxUIGroup &operator=(const CFxUIGroup &) = delete;
};
