// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

class QString;

namespace fxhost {

class FileProbe;

//! The path that a user means by an argument: quotes around it fall away, and a leading ~ is the home
//! directory. But where a file really has such a name, that file is meant. GUI thread.
FXHOST_API QString typedPath(const QString &argument, FileProbe &probe);

} // namespace fxhost
