// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/Outcome.h>

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QString>

namespace fxhost {

//! The contents of a drawing file, as far as a host shows them.
struct DrawingFile
{
    //! Whether the file is a drawing. The reason does not contain the file's name: the file does not exist,
    //! cannot be read, is not a regular file, or does not start with a drawing version.
    Outcome outcome;
    // The other members are empty if the file is not a drawing.
    QByteArray version; //!< "AC1032"
    qint64 size = 0;    //!< in bytes
    QDateTime modified;
    QImage preview;              //!< the stored picture; null if there is none
    bool isPreviewAlone = false; //!< true if it contains only a header and the picture, as samples do
};

//! Reads the drawing at path, which is opened once. A drawing is a regular file that starts with a version of
//! the format, even if it is old, or if nothing follows. Any thread, also several at once. Does not block on
//! special files.
FXHOST_API DrawingFile readDrawing(const QString &path);

//! The version for display, translated: "AC1032 (2018 format)", or only the version if the format has no
//! year.
FXHOST_API QString drawingFormatName(const QByteArray &version);

} // namespace fxhost
