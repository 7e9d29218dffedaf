// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace fxhost {

//! path itself when it is absolute or empty, however it is spelled; else what it means in the working
//! directory.
QString absolutePath(const QString &path);

//! Renames a file or directory that cannot be used to a name beside it that nothing has yet, so that the next
//! write does not destroy it.
//! \return the new path; empty when it could not be renamed
QString setAside(const QString &path);

} // namespace fxhost
