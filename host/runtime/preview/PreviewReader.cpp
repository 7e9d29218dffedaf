// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "host/runtime/preview/PictureDevice.h"
#include "host/runtime/preview/PictureLimits.h"
#include "host/runtime/preview/PreviewSection.h"
#include "host/runtime/preview/StoredBitmap.h"
#include "host/runtime/preview/StoredPng.h"

#include <QImageReader>

#include <cstdlib>
#include <new>

namespace fxhost {

namespace {

QImage decode(const RegularFile &file, const PictureLayout &layout, DecodingLimit &limit)
{
    PictureDevice device(file, layout);
    const qint64 storedSize = device.bytesAvailable();
    QImageReader reader(&device, layout.format);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);

    const QSize claimed = reader.size(); // the height is negative if a bitmap starts with its top row
    const QSize size(claimed.width(), std::abs(claimed.height()));
    if (!isDecodable(size.width(), size.height(), layout.bitsPerPixel))
        return {};
    limit.storedBytes -= storedSize;
    limit.decodedBytes -= qint64(size.width()) * size.height() * layout.bitsPerPixel / 8;
    if (limit.storedBytes < 0 || limit.decodedBytes < 0)
        return {};

    QImage image;
    if (layout.isInRuns) {
        // Runs may skip pixels. The decoder uses this image if size and format match; in an image of its own,
        // skipped pixels would show former contents of the memory.
        image = QImage(size, reader.imageFormat());
        image.fill(0);
    }
    if (!reader.read(&image) || device.hasFailed())
        return {};
    return image;
}

QImage readFirst(PreviewCode code, const RegularFile &file, const std::vector<PreviewEntry> &entries,
                 DecodingLimit &limit)
{
    for (const PreviewEntry &entry : entries) {
        if (entry.code != code)
            continue;
        if (--limit.pictures < 0)
            break;
        const std::optional<PictureLayout> layout =
            code == PreviewCode::Png ? layOutPng(file, entry.data) : layOutBitmap(file, entry.data);
        const QImage image = layout ? decode(file, *layout, limit) : QImage();
        if (!image.isNull())
            return image;
    }
    return {};
}

} // namespace

QImage readPreview(const QString &path)
{
    return readPreview(RegularFile(path));
}

QImage readPreview(const RegularFile &file)
{
    try {
        const std::vector<PreviewEntry> entries = readPreviewEntries(file);
        DecodingLimit limit;
        const QImage png = readFirst(PreviewCode::Png, file, entries, limit);
        return png.isNull() ? readFirst(PreviewCode::Bitmap, file, entries, limit) : png;
    } catch (const std::bad_alloc &) {
        return {}; // rather no picture than a crash
    }
}

} // namespace fxhost
