// SPDX-License-Identifier: MIT
#pragma once

#include <OdAssert.h>
#include <OdRxAlloc.h>
#include <OdRxModule.h>

#include <atomic>
#include <cstdint>
#include <new>

// Every module library defines these, and exports them by this declaration even if its symbols are hidden.
extern "C" {
//! See OdrxGetApiVersionFn.
FXSDK_API void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild); // [gui-thread]
//! See OdrxCreateModuleObjectFn.
FXSDK_API OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName); // [gui-thread]
//! Resets the library's pointer to its only module object, without deleting the object.
FXSDK_API void deleteModuleObject(); // [gui-thread]
}

//! Implements what is the same for the module object of every library: reference count, name, handle and
//! memory.
//! \tparam TCoClass the module's class
//! \tparam TInterface the class to derive from; TCoClass or a class derived from it
template<class TCoClass, class TInterface>
class OdRxUnixModule : public TInterface
{
public:
    //! \param sysData stored unchanged
    //! \param moduleName copied
    // [gui-thread]
    OdRxUnixModule(void *sysData, const OdChar *moduleName) : m_sysData(sysData), m_moduleName(moduleName) {}

    void addRef() override { m_nLockCount.fetch_add(1); } // [any-thread]

    //! Never deletes the object: deleteModule() does.
    // [any-thread]
    void release() override
    {
        if (m_nLockCount.load() == 0)
            odaAssertFailed("m_nLockCount", "RxDynamicModule", 379);
        m_nLockCount.fetch_sub(1);
    }

    int numRefs() const override { return m_nLockCount.load(); }  // [any-thread]
    void *sysData() override { return m_sysData; }                // [gui-thread]
    OdString moduleName() const override { return m_moduleName; } // [gui-thread]

    // [gui-thread]
    void deleteModule() override
    {
        deleteModuleObject();
        delete this;
    }

    // The loader may delete the object through its base class, so allocation and deallocation must match.
    // [any-thread]
    static void *operator new(std::size_t size)
    {
        if (void *memory = odrxAlloc(size))
            return memory;
        throw std::bad_alloc();
    }
    static void operator delete(void *memory) { odrxFree(memory); } // [any-thread]

private:
    std::atomic<std::int32_t> m_nLockCount{0};
    void *m_sysData;
    OdString m_moduleName;
};
