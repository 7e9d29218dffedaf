// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace fxhost {

//! The program's icon, drawn for the usual sizes: a sheet with the axes and a line of a drawing.
QIcon appIcon();

} // namespace fxhost
