// SPDX-License-Identifier: MIT
#include "ui/TilePictures.h"

#include <QCache>
#include <QImage>
#include <QPair>
#include <QPixmap>

#include <utility>

namespace {

//! The source's cache key, and the size that it is scaled to; 0 by 0 for a whole picture.
using PictureKey = QPair<qint64, QPair<int, int>>;

// A plain pointer, because a static host, and with it the tiles, outlives the library's static objects.
QCache<PictureKey, QPixmap> *pictures = nullptr;

template<class Make>
QPixmap kept(const PictureKey &key, Make make)
{
    if (!pictures)
        pictures = new QCache<PictureKey, QPixmap>(TilePictures::mostBytes);
    if (const QPixmap *picture = pictures->object(key))
        return *picture;
    const QPixmap made = make();
    const qint64 bytes = qint64(4) * made.width() * made.height();
    if (bytes <= TilePictures::mostBytes) // so that the cost is an int
        pictures->insert(key, new QPixmap(made), static_cast<int>(bytes));
    return made;
}

} // namespace

QPixmap TilePictures::whole(const QImage &picture)
{
    const QPair<int, int> unscaled(0, 0);
    return kept({picture.cacheKey(), unscaled}, [&picture] { return QPixmap::fromImage(picture); });
}

QPixmap TilePictures::scaled(const QPixmap &picture, const QSize &size)
{
    return kept({picture.cacheKey(), {size.width(), size.height()}}, [&] {
        const QImage image = picture.toImage();
        return QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    });
}

void TilePictures::drop()
{
    delete std::exchange(pictures, nullptr);
}
