// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <utility>

//! A concrete class for an OdRxObject class T without reference counting, for members, static objects and
//! heap objects with an explicit owner. A reference does not keep the object alive.
template<class T>
class OdStaticRxObject : public T
{
public:
    template<class... Arguments>
    // [any-thread]
    explicit OdStaticRxObject(Arguments &&...arguments) : T(std::forward<Arguments>(arguments)...)
    {
    }

    void addRef() override {}  // [any-thread]
    void release() override {} // [any-thread]
    //! Always 1: the owner's reference.
    int numRefs() const override { return 1; } // [any-thread]
};
