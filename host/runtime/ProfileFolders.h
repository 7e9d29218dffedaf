// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QString>

namespace fxhost {

//! Where a host stores what outlives it.
struct FXHOST_API ProfileFolders
{
    //! One folder for everything. Implicit, because a program that does not divide its profile only has a
    //! path. \param folder full path
    ProfileFolders(const QString &folder) : settings(folder), state(folder) {}
    //! The user's own, as the XDG base directory specification divides them; named like the application.
    static ProfileFolders ofUser();

    QString settings; //!< what the user has chosen; full path
    QString state;    //!< what the program remembers: the recent documents; full path
};

} // namespace fxhost
