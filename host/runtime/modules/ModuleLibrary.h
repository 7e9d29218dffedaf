// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/Outcome.h"

#include <QString>

#include <typeinfo>

namespace fxhost {

//! A shared library in this process, loaded and unloaded with this object. GUI thread.
class ModuleLibrary
{
public:
    ModuleLibrary() = default;
    ~ModuleLibrary();

    ModuleLibrary(const ModuleLibrary &) = delete;
    ModuleLibrary &operator=(const ModuleLibrary &) = delete;

    //! To be called once. All that the library needs must be there; what it defines stays its own.
    //! \param path absolute
    Outcome load(const QString &path);

    //! The system's handle, the same for the same file; null before load().
    void *handle() const { return m_handle; }

    //! The function that the library exports under this plain name, or null.
    template<class Function>
    Function function(const char *name) const
    {
        return reinterpret_cast<Function>(symbol(name));
    }

    //! Whether a class is the library's: objects of such a class are dead once it is unloaded.
    bool defines(const std::type_info &type) const { return contains(&type); }
    //! Whether address lies in the library itself, in its code or among its static objects.
    bool contains(const void *address) const;
    //! Whether a function of the library is beneath this call: it would return to where nothing is any more.
    bool isOnStack() const;

private:
    void *symbol(const char *name) const;

    void *m_handle = nullptr;
};

} // namespace fxhost
