// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewCache.h"

#include "host/runtime/preview/PreviewReader.h"
#include "host/runtime/preview/PreviewSection.h"

#include <QMutexLocker>

#include <algorithm>
#include <chrono>

namespace fxhost {

namespace {

using namespace std::chrono_literals;

//! Whether a change of the file from now on changes its identity too. A file that has just been written can
//! be written again before the clock advances that its times are taken from: in steps of up to 10 ms, or of 2
//! s if the file system does not store fractions of a second.
bool isSettled(const FileIdentity &identity)
{
    const std::chrono::nanoseconds latest(std::max(identity.modified, identity.changed));
    const bool isWhole = latest % 1s == 0ns;
    const std::chrono::nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
    return latest < now - (isWhole ? 4s : 20ms); // in this order, because a file's times may be any
}

} // namespace

QImage PreviewCache::read(const QString &path)
{
    const RegularFile file(path);
    if (!file.isOpen())
        return {};
    {
        const QMutexLocker lock(&m_mutex);
        if (const QImage *picture = m_pictures.object(file.identity()))
            return *picture;
    }
    // Before the reading, because the file may change meanwhile.
    const bool isKept = isSettled(file.identity());
    const QImage picture = readPreview(file, readPreviewSection(file));
    if (isKept && !picture.isNull()) { // a null one may be due to an error of the disk
        const QMutexLocker lock(&m_mutex);
        m_pictures.insert(file.identity(), new QImage(picture), static_cast<int>(picture.sizeInBytes()));
    }
    return picture;
}

} // namespace fxhost
