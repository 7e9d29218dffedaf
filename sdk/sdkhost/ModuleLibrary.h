// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>
#include <sdkhost/Outcome.h>

#include <QString>

#include <typeinfo>

namespace sdkhost {

//! A shared library, which is unloaded when this object is destroyed. GUI thread.
class FXSDK_API ModuleLibrary
{
public:
    ModuleLibrary() = default;
    ~ModuleLibrary();

    ModuleLibrary(const ModuleLibrary &) = delete;
    ModuleLibrary &operator=(const ModuleLibrary &) = delete;

    //! Loads the library, with all symbols resolved; other libraries do not see its symbols. Call this only
    //! once.
    //! \param path absolute
    Outcome load(const QString &path);

    //! The system's handle, the same for the same file; null before load().
    void *handle() const { return m_handle; }

    //! The function that the library exports with this name (C linkage), or null.
    template<class Function>
    Function function(const char *name) const
    {
        return reinterpret_cast<Function>(symbol(name));
    }

    //! True if the library defines this class. Objects of the class must not exist when the library is
    //! unloaded.
    bool defines(const std::type_info &type) const { return contains(&type); }
    //! True if the address is in the library's code or static data.
    bool contains(const void *address) const;
    //! True if a function of the library is on the call stack. It could not return after unloading.
    bool isOnStack() const;

private:
    void *symbol(const char *name) const;

    void *m_handle = nullptr;
};

} // namespace sdkhost
