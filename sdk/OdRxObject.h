// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

//! Root of everything that the drawing engine and its modules hand to each other by reference.
//!
//! Whoever is given a reference that the giver's contract calls "owned by the caller" calls release() once.
//! addRef() and release() may be called from any thread.
class FXSDK_API OdRxObject
{
public:
    OdRxObject() = default;
    virtual ~OdRxObject();

    virtual void addRef() = 0; // [any-thread]
    //! Gives one reference back. Whether the last one deletes the object is the object's own contract.
    virtual void release() = 0;      // [any-thread]
    virtual int numRefs() const = 0; // [any-thread]

    OdRxObject(const OdRxObject &) = delete;
    OdRxObject &operator=(const OdRxObject &) = delete;
};
