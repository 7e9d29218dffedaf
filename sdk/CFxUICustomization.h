// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

class CFxUIAccelerator;
class CFxUICommand;
class CFxUIGroup;
class CFxUIMenuItem;

//! Walks the customisation groups in the host's order.
class FXSDK_API CFxUIGroupEnumerator
{
public:
    CFxUIGroupEnumerator() = default;
    //! For the host alone: modules call Release().
    virtual ~CFxUIGroupEnumerator();

    //! The next group, owned by the host; null behind the last.
    virtual CFxUIGroup *Next() = 0; // [gui-thread]
    //! Ends the walk; the enumerator is gone afterwards.
    virtual void Release() = 0; // [gui-thread]

    CFxUIGroupEnumerator(const CFxUIGroupEnumerator &) = delete;
    CFxUIGroupEnumerator &operator=(const CFxUIGroupEnumerator &) = delete;
};

//! The host's customisable menus and keys. GUI thread.
class FXSDK_API CFxUICustomization
{
public:
    CFxUICustomization() = default;
    virtual ~CFxUICustomization();

    //! Owned by the caller, who calls Release(). Never null.
    virtual CFxUIGroupEnumerator *EnumerateGroups() = 0;       // [gui-thread]
    virtual bool IsPrimary(const CFxUIGroup *group) const = 0; // [gui-thread]
    //! The group of the menus that stand while no drawing is open; null when the host has none.
    virtual CFxUIGroup *GetStartUpGroup() = 0; // [gui-thread]

    //! \param groupName where to look; an unknown name finds nothing
    //! \param identifier compared exactly
    //! \return owned by the host; null when there is none
    // [gui-thread]
    virtual CFxUICommand *FindCommand(const CFxString &groupName, const CFxString &identifier) const = 0;
    //! A definition that belongs to the caller until it is appended to a group.
    virtual CFxUICommand *CreateCommand(const CFxString &identifier) = 0; // [gui-thread]
    //! An entry that belongs to the caller until it is inserted into a menu.
    //! \param command what the entry runs; may be null
    // [gui-thread]
    virtual CFxUIMenuItem *CreateMenuItem(CFxUICommand *command, const CFxString &label,
                                          const CFxString &helpString, const CFxString &identifier) = 0;
    //! An accelerator without a key that belongs to the caller until it is appended to a group.
    // [gui-thread]
    virtual CFxUIAccelerator *CreateAccelerator(CFxUICommand *command, const CFxString &identifier) = 0;

    //! Brings the menus and keys on screen up to date with the data.
    virtual void Refresh() = 0; // [gui-thread]

    CFxUICustomization(const CFxUICustomization &) = delete;
    CFxUICustomization &operator=(const CFxUICustomization &) = delete;
};
