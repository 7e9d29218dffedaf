// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QByteArray>
#include <QString>

class QUrl;

namespace fxhost {

//! Converts the bytes of a file name to text. Names are UTF-8 only by convention: a byte that is not part of
//! valid UTF-8 becomes the lone surrogate U+DC00 + byte, which nothing else becomes, so that pathBytes()
//! restores every name exactly.
FXHOST_API QString pathFromBytes(const QByteArray &bytes);
//! The bytes of a file name that pathFromBytes() returned or the user typed.
FXHOST_API QByteArray pathBytes(const QString &path);
//! Makes Qt use the same conversion for all names (files, arguments, processes) in every locale. Must be
//! called at the start of a program, before threads are created.
FXHOST_API void keepBytesOfPaths();

//! The bytes, with each byte for which isToEncode returns true replaced with %XX.
QByteArray percentEncoded(const QByteArray &bytes, bool (*isToEncode)(uchar byte));
//! True for ASCII control characters.
inline bool isControl(uchar byte)
{
    return byte < 0x20 || byte == 0x7f;
}

//! The exact path in the URL of a local file. QUrl::toLocalFile() changes names that are not UTF-8.
FXHOST_API QString pathFromUrl(const QUrl &localFile);

//! The path of a program's argument, which is a path or, as file managers and browsers use it, the URL of a
//! file. A URL of another computer is returned unchanged, and a path that starts like a URL can be given as
//! "./file:".
FXHOST_API QString pathFromArgument(const QString &argument);

//! The path unchanged if it is absolute or empty; otherwise the working directory followed by the path.
FXHOST_API QString absolutePath(const QString &path);

//! Renames a file or directory that cannot be used to an unused name in the same folder, so that the next
//! write does not destroy it.
//! \return the new path; empty if it could not be renamed
QString setAside(const QString &path);

} // namespace fxhost
