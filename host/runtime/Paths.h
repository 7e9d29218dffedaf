// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QByteArray>
#include <QString>

class QUrl;

namespace fxhost {

//! What a file name's bytes are as text. Names are UTF-8 by custom alone: a byte that is none is carried as
//! the lone surrogate U+DC00 + byte, which no other name gives, so that pathBytes() gives every name back.
FXHOST_API QString pathFromBytes(const QByteArray &bytes);
//! The bytes of a file name as pathFromBytes() gave it, or as the user typed it.
FXHOST_API QByteArray pathBytes(const QString &path);
//! From now on Qt does the same wherever it turns names into text and back: files, arguments, processes,
//! whatever the locale. To be called at the start of a program, before threads.
FXHOST_API void keepBytesOfPaths();

//! The bytes, with those that isToEncode returns true for written as %XX.
QByteArray percentEncoded(const QByteArray &bytes, bool (*isToEncode)(uchar byte));
//! Whether a byte is a control character of ASCII.
inline bool isControl(uchar byte)
{
    return byte < 0x20 || byte == 0x7f;
}

//! The path in the URL of a local file, to the byte, which QUrl::toLocalFile() does not give where a name is
//! not UTF-8.
FXHOST_API QString pathFromUrl(const QUrl &localFile);

//! path itself when it is absolute or empty, however it is spelled; else what it means in the working
//! directory.
FXHOST_API QString absolutePath(const QString &path);

//! Renames a file or directory that cannot be used to a name beside it that nothing has yet, so that the next
//! write does not destroy it.
//! \return the new path; empty when it could not be renamed
QString setAside(const QString &path);

} // namespace fxhost
