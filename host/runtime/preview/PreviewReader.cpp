// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "host/runtime/preview/PictureDevice.h"
#include "host/runtime/preview/PictureLimits.h"
#include "host/runtime/preview/PreviewSection.h"
#include "host/runtime/preview/StoredBitmap.h"
#include "host/runtime/preview/StoredPng.h"

#include <QImageReader>

#include <algorithm>
#include <new>
#include <numeric>
#include <utility>

namespace fxhost {

namespace {

//! Most pictures are smaller, in bytes; one read gets them.
constexpr qint64 usualPicture = qint64{64} * 1024;

QImage decodeWithQt(const RegularFile &file, const PictureLayout &layout)
{
    PictureDevice device(file, layout);
    QImageReader reader(&device, layout.format);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);

    QImage image;
    if (layout.isInRuns) {
        // Runs can skip pixels. If this image has the size and the format that the decoder needs, it writes
        // into it; the pixels of one that it allocated would be arbitrary.
        image = QImage(layout.size, reader.imageFormat());
        image.fill(0);
    }
    if (!reader.read(&image) || device.hasFailed())
        return {};
    return image;
}

//! The picture in the format that is painted fastest, unless it is so large that both would take too much
//! memory.
QImage forPainting(QImage image)
{
    if (image.depth() != 32 && image.sizeInBytes() > maxDecodedBytes / 8)
        return image;
    const QImage::Format format =
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return image.isNull() ? image : std::move(image).convertToFormat(format);
}

QImage decode(const RegularFile &file, const PictureLayout &layout)
{
    if (layout.rows.bits != 0)
        return decodeRows(file, layout.size, layout.rows);
    const QImage image = decodePlainPng(file, layout.size, layout.png);
    return image.isNull() ? decodeWithQt(file, layout) : image;
}

using Decode = QImage(const RegularFile &file, const PictureLayout &layout);

QImage decodeWithin(DecodingLimit &limit, Decode *decode, const RegularFile &file,
                    const PictureLayout &layout)
{
    limit.storedBytes -=
        std::accumulate(layout.ranges.begin(), layout.ranges.end(), qint64(layout.head.size()),
                        [](qint64 sum, const FileRange &range) { return sum + range.size; });
    limit.decodedBytes -= qint64(layout.size.width()) * layout.size.height() * layout.bitsPerPixel / 8;
    if (limit.storedBytes < 0 || limit.decodedBytes < 0)
        return {};
    return forPainting(decode(file, layout));
}

QImage readFirst(PreviewCode code, Decode *decode, const RegularFile &file,
                 const std::vector<PreviewEntry> &entries, DecodingLimit &limit)
{
    for (const PreviewEntry &entry : entries) {
        if (entry.code != code)
            continue;
        if (--limit.pictures < 0)
            break;
        file.prefetch({entry.data.offset, std::min(entry.data.size, usualPicture)});
        const std::optional<PictureLayout> layout =
            code == PreviewCode::Png ? layOutPng(file, entry.data) : layOutBitmap(file, entry.data);
        const QImage image = layout ? decodeWithin(limit, decode, file, *layout) : QImage();
        if (!image.isNull())
            return image;
    }
    return {};
}

QImage readWith(Decode *decode, const RegularFile &file, const PreviewSection &section)
{
    try {
        DecodingLimit limit;
        const QImage png = readFirst(PreviewCode::Png, decode, file, section.entries, limit);
        return png.isNull() ? readFirst(PreviewCode::Bitmap, decode, file, section.entries, limit) : png;
    } catch (const std::bad_alloc &) {
        return {}; // rather no picture than a crash
    }
}

} // namespace

QImage readPreview(const QString &path)
{
    const RegularFile file(path);
    return readPreview(file, readPreviewSection(file));
}

QImage readPreview(const RegularFile &file, const PreviewSection &section)
{
    return readWith(decode, file, section);
}

QImage readPreviewWithQt(const QString &path)
{
    const RegularFile file(path);
    return readWith(decodeWithQt, file, readPreviewSection(file));
}

} // namespace fxhost
