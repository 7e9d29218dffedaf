// SPDX-License-Identifier: MIT
#pragma once

#include <OdRxObject.h>
#include <OdString.h>

class OdEdCommand;

//! The engine's registered commands. GUI thread.
class FXSDK_API OdEdCommandStack : public OdRxObject
{
public:
    //! Which names lookupCommand() compares; the bits may be combined.
    enum LookupFlags { GlobalNames = 1, LocalNames = 2 };

    ~OdEdCommandStack() override;

    //! Registers a command and takes a reference to it. A command of the same group and global name is
    //! replaced.
    //! \param command not null; must live until it is removed
    virtual void addCommand(OdEdCommand *command) = 0; // [gui-thread]
    //! Removes the command of the same group and names, which need not be the same object; none: nothing
    //! happens.
    //! \param command not null
    virtual void removeCommand(OdEdCommand *command) = 0; // [gui-thread]
    //! \param name compared whatever the case
    //! \param flags LookupFlags
    //! \param group the group to look in; empty: any
    //! \return a reference owned by the caller, or null
    // [gui-thread]
    virtual OdEdCommand *lookupCommand(const OdString &name, int flags, const OdString &group) const = 0;
};

//! The engine's one command stack: a reference owned by the caller. Null while no host is running.
FXSDK_API OdEdCommandStack *odedRegCmds(); // [gui-thread]
