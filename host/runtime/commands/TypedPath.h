// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

class QString;

namespace fxhost {

class FileProbe;

//! The path in a typed argument: without surrounding quotes, and with the home directory in place of a
//! leading ~. But if a file with exactly the typed name exists, its path. GUI thread.
//! \param probe checks whether the file exists without waiting for an unresponsive one
FXHOST_API QString typedPath(const QString &argument, FileProbe &probe);

} // namespace fxhost
