// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QByteArray>
#include <QString>

namespace fxhost {

//! Why a path cannot be opened as a drawing.
enum class DrawingError {
    None,
    Missing,     //!< nothing is there; a dangling symbolic link counts as nothing
    Unreadable,  //!< it is there, but the system refuses to open or read it
    NotAFile,    //!< a directory, a FIFO, a device or a socket
    NotADrawing, //!< a file that does not begin with a drawing version
};

//! What the first bytes of a drawing file say.
struct DrawingHeader
{
    QByteArray version; //!< "AC1032"; empty unless error is None
    DrawingError error = DrawingError::None;
    QString
        reason; //!< for people: one translated sentence that does not name the file; empty without an error
};

//! Reads the version at the start of the file at path. A drawing is any regular file that begins with the
//! version of a released format, however old, and however short the file: what stands behind is not looked
//! at. Any thread, does not block on special files.
FXHOST_API DrawingHeader readDrawingHeader(const QString &path);

//! The version for display, translated: "AC1032 (2018 format)", or the version alone where the format bears
//! no year.
FXHOST_API QString drawingFormatName(const QByteArray &version);

} // namespace fxhost
