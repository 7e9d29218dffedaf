// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class CFxUIAccelerator;
class CFxUICommand;
class CFxUIGroup;
class CFxUIMenuItem;

//! Iterates over the customisation groups in the host's order. GUI thread.
class FXSDK_API CFxUIGroupEnumerator
{
public:
    CFxUIGroupEnumerator() = default;
    //! Only for the host; modules call Release().
    virtual ~CFxUIGroupEnumerator();

    //! The next group, owned by the host; null after the last one.
    virtual CFxUIGroup *Next() = 0; // [gui-thread]
    //! Destroys the enumerator.
    virtual void Release() = 0; // [gui-thread]

    CFxUIGroupEnumerator(const CFxUIGroupEnumerator &) = delete;
    CFxUIGroupEnumerator &operator=(const CFxUIGroupEnumerator &) = delete;
};

//! The host's customisable menus and keys. What modules add to them contains no code of a module, and stays
//! when the module is unloaded. GUI thread.
class FXSDK_API CFxUICustomization
{
public:
    CFxUICustomization() = default;
    virtual ~CFxUICustomization();

    //! Enumerates all groups except that of the start-up menus. The caller must call Release(). Null if the
    //! host cannot enumerate them.
    virtual CFxUIGroupEnumerator *EnumerateGroups() = 0; // [gui-thread]
    //! True for one group, to which modules add command definitions and keys. Without one, the browser adds
    //! nothing to any menu.
    virtual bool IsPrimary(const CFxUIGroup *group) const = 0; // [gui-thread]
    //! The group of the start-up menus, which are shown while no drawing is open. Owned by the host; null if
    //! there is none.
    virtual CFxUIGroup *GetStartUpGroup() = 0; // [gui-thread]

    //! Finds a command definition.
    //! \param groupName the group to search, also that of the start-up menus; an unknown name finds nothing
    //! \param identifier compared exactly
    //! \return the definition, owned by the host; null if there is none
    // [gui-thread]
    virtual CFxUICommand *FindCommand(const CFxString &groupName, const CFxString &identifier) const = 0;
    // These return null if the host cannot create the object.
    //! Creates a definition, which the caller owns until it is appended to a group.
    virtual CFxUICommand *CreateCommand(const CFxString &identifier) = 0; // [gui-thread]
    //! Creates an entry, which the caller owns until it is inserted into a menu.
    //! \param command the definition that the entry runs; may be null
    // [gui-thread]
    virtual CFxUIMenuItem *CreateMenuItem(CFxUICommand *command, const CFxString &label,
                                          const CFxString &helpString, const CFxString &identifier) = 0;
    //! Creates an accelerator without a key, which the caller owns until it is appended to a group.
    // [gui-thread]
    virtual CFxUIAccelerator *CreateAccelerator(CFxUICommand *command, const CFxString &identifier) = 0;

    //! Updates the visible menus and the active keys from the data. The browser calls this only if there is a
    //! group of the start-up menus: a host without one must update them itself after mainFrameCreated() and
    //! DocumentCreated().
    virtual void Refresh() = 0; // [gui-thread]

    CFxUICustomization(const CFxUICustomization &) = delete;
    CFxUICustomization &operator=(const CFxUICustomization &) = delete;
};
