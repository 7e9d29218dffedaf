// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace fxhost {

//! The program's icon in the usual sizes: a sheet with the axes and a curve of a drawing.
QIcon appIcon();

} // namespace fxhost
