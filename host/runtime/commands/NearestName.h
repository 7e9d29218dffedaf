// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace fxhost {

//! The one of names that a user most likely meant, by the fewest letters that differ; empty when none is
//! near. Case and a leading underscore do not count.
QString nearestName(const QString &typed, const QStringList &names);

} // namespace fxhost
