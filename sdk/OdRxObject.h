// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

//! Base class of the objects that the drawing engine and its modules share by reference.
//!
//! A caller that receives a reference documented as "owned by the caller" must call release() once. addRef(),
//! release() and numRefs() can be called on any thread.
class FXSDK_API OdRxObject
{
public:
    OdRxObject() = default;
    virtual ~OdRxObject();

    virtual void addRef() = 0; // [any-thread]
    //! Releases one reference. The concrete class determines whether the last release deletes the object.
    virtual void release() = 0;      // [any-thread]
    virtual int numRefs() const = 0; // [any-thread]

    OdRxObject(const OdRxObject &) = delete;
    OdRxObject &operator=(const OdRxObject &) = delete;
};
