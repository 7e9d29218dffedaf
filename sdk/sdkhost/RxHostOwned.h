// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <utility>

namespace sdkhost {

//! A concrete class for an OdRxObject class T whose objects the host owns. References are counted, so that
//! tests can find those that were not released, but releasing the last one does not delete the object.
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
    //! 1, the host's own reference, if all others have been released.
    int numRefs() const override { return m_references.load(); }

private:
    std::atomic<int> m_references{1};
};

} // namespace sdkhost
