// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

namespace fxhost {

//! The arguments that Qt's application object is to be given instead of the program's own. Qt takes some of
//! them away before the program reads the rest. To be called before there is an application object.
//!
//! With them, the geometry stays the program's: on X11 Qt would take it, and start with whatever it makes of
//! a wrong one. Where there is an X server beside a Wayland one, Qt is asked to use X, on which windows can
//! be placed and tiles dragged out; the user's own choice goes before. \param arguments the program's name
//! first
QByteArrayList argumentsForQt(const QByteArrayList &arguments);

} // namespace fxhost
