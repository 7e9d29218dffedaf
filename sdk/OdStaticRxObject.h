// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

//! Makes a concrete object of an OdRxObject class T whose lifetime is not counted: a member, a static, or a
//! heap object that is meant to stay.
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
    //! Always 1: the holder's.
    int numRefs() const override { return 1; } // [any-thread]
};
