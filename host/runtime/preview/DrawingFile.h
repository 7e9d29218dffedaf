// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/Outcome.h"

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QString>

namespace fxhost {

//! The contents of a drawing file that a host shows.
struct DrawingFile
{
    //! Whether it is a drawing, or else why not, in a translated sentence that does not name the file:
    //! nothing is there, it cannot be read, it is not a regular file, or it does not begin with a drawing
    //! version.
    Outcome outcome;
    // The rest is empty unless it is a drawing.
    QByteArray version; //!< "AC1032"
    qint64 size = 0;    //!< in bytes
    QDateTime modified;
    QImage preview;              //!< the stored picture; null when there is none
    bool isPreviewAlone = false; //!< it holds a header and the picture and nothing more, as samples do
};

//! Reads the drawing at path, which is opened once. A drawing is any regular file that begins with the
//! version of a released format, however old, and however short the file. Any thread, several at once; does
//! not block on special files.
FXHOST_API DrawingFile readDrawing(const QString &path);

//! The version for display, translated: "AC1032 (2018 format)", or the version alone where the format has no
//! year.
FXHOST_API QString drawingFormatName(const QByteArray &version);

} // namespace fxhost
