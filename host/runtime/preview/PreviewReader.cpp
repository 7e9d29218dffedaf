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

QImage decode(const RegularFile &file, const PictureLayout &layout, DecodingBudget *budget)
{
    PictureDevice device(file, layout);
    const qint64 storedSize = device.bytesAvailable();
    QImageReader reader(&device, layout.format);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);

    const QSize claimed = reader.size(); // of a negative height where a bitmap's top row comes first
    const QSize size(claimed.width(), std::abs(claimed.height()));
    if (!isDecodable(size.width(), size.height(), layout.bitsPerPixel))
        return {};
    budget->cost -=
        decodingCost(size.width(), size.height(), layout.bitsPerPixel, storedSize, layout.isInRuns);
    if (budget->cost < 0)
        return {};

    QImage image;
    if (layout.isInRuns) {
        // Runs may leave pixels out, and the decoder writes into an image that suits it. One of its own
        // making would show what was in memory before wherever pixels are left out.
        image = QImage(size, reader.imageFormat());
        image.fill(0);
    }
    if (!reader.read(&image) || device.hasFailed())
        return {};
    return image;
}

QImage readFirst(PreviewCode code, const RegularFile &file, const std::vector<PreviewEntry> &entries,
                 DecodingBudget *budget)
{
    for (const PreviewEntry &entry : entries) {
        if (entry.code != code)
            continue;
        const std::optional<PictureLayout> layout =
            code == PreviewCode::Png ? layOutPng(file, entry.data, budget) : layOutBitmap(file, entry.data);
        const QImage image = layout ? decode(file, *layout, budget) : QImage();
        if (!image.isNull())
            return image;
    }
    return {};
}

} // namespace

QImage readPreview(const QString &path)
{
    try {
        const RegularFile file(path);
        const std::vector<PreviewEntry> entries = readPreviewEntries(file);
        DecodingBudget budget;
        const QImage png = readFirst(PreviewCode::Png, file, entries, &budget);
        return png.isNull() ? readFirst(PreviewCode::Bitmap, file, entries, &budget) : png;
    } catch (const std::bad_alloc &) {
        return {}; // a picture is not worth the application
    }
}

bool holdsPreviewAlone(const QString &path)
{
    return holdsPreviewAlone(RegularFile(path));
}

} // namespace fxhost
