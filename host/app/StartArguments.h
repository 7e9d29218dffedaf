// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

namespace fxhost {

//! The arguments to pass to Qt's application object instead of the program's own. Qt removes some of its
//! arguments before the program reads the rest. Must be called before the application object is created.
//!
//! The result prevents Qt from handling the geometry option: on X11, Qt would use it, even with an invalid
//! value. If both an X server and a Wayland compositor are available, the result selects X, on which windows
//! can be placed and tiles dragged out, unless the user has selected a platform.
//! \param arguments includes the program's name as the first argument
QByteArrayList argumentsForQt(const QByteArrayList &arguments);

} // namespace fxhost
