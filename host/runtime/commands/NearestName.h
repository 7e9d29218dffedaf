// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace fxhost {

//! The name that a user most likely meant: the one with the fewest different letters; empty if none is
//! similar. Ignores case and a leading underscore.
QString nearestName(const QString &typed, const QStringList &names);

} // namespace fxhost
