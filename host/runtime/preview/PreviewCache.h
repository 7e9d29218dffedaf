// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/preview/RegularFile.h"

#include <QCache>
#include <QImage>
#include <QMutex>
#include <QString>

namespace fxhost {

//! Reads pictures of drawings, and keeps them as long as the files do not change: a file that has not changed
//! gives the same image, with the same cacheKey(). Any thread, also several at once.
class FXHOST_API PreviewCache
{
public:
    //! The most that is kept, in bytes of pixels. The pictures that have not been read for longest are
    //! dropped first.
    static constexpr int mostBytes = 64 * 1024 * 1024;

    //! As readPreview() does.
    QImage read(const QString &path);

private:
    QMutex m_mutex;
    QCache<FileIdentity, QImage> m_pictures{mostBytes};
};

} // namespace fxhost
