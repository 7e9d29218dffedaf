// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <utility>

namespace fxhost {

//! Makes a concrete object of an OdRxObject class T that the host owns. References are counted, so that one
//! that was never released can be found, but the last one does not delete the object.
template<class T>
class RxHostOwned : public T
{
public:
    template<class... Arguments>
    explicit RxHostOwned(Arguments &&...arguments) : T(std::forward<Arguments>(arguments)...)
    {
    }

    void addRef() override { m_references.fetch_add(1); }
    void release() override { m_references.fetch_sub(1); }
    //! 1, the host's own, when all others have been released.
    int numRefs() const override { return m_references.load(); }

private:
    std::atomic<int> m_references{1};
};

} // namespace fxhost
