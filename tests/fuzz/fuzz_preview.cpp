// SPDX-License-Identifier: MIT
// Input: a drawing file. Output: its picture or none.
#include "host/runtime/preview/DrawingFile.h"
#include "host/runtime/preview/PictureLimits.h"
#include "host/runtime/preview/PreviewReader.h"
#include "tests/fuzz/Costs.h"
#include "tests/fuzz/MemoryFile.h"
#include "tests/fuzz/Repair.h"
#include "tests/fuzz/Target.h"

#include <QCoreApplication>

#include <malloc.h>

using fuzz::require;

namespace {

QImage pictureIn(const QString &path)
{
    QImage picture;
    fuzz::runWithinLimits([&] { picture = fxhost::readPreview(path); });
    return picture;
}

//! Reads the picture again while all allocated memory is filled with one value, then with another: pixels
//! that the reader does not write differ.
void requireEveryPixelWritten(const QString &path, const QImage &picture)
{
    for (const int filling : {0x55, 0xAA}) {
        ::mallopt(M_PERTURB, filling); // NOLINT(concurrency-mt-unsafe): there is only this thread
        const QImage again = fxhost::readPreview(path);
        ::mallopt(M_PERTURB, 0); // NOLINT(concurrency-mt-unsafe)
        require(again == picture, "a picture depends on the file only");
    }
}

void checkPicture(const QImage &picture, const QByteArray &file)
{
    if (picture.isNull())
        return;
    require(picture.width() <= fxhost::maxSide && picture.height() <= fxhost::maxSide,
            "no side of a picture is longer than the limit");
    require(picture.sizeInBytes() <= fxhost::maxDecodedBytes, "no picture takes more than the limit");
    require(!picture.hasAlphaChannel() || file.contains("\x89PNG"), "a bitmap is opaque");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static fuzz::MemoryFile file;
    static const bool isPrepared = [] {
        fuzz::dropWarnings();
        // Both decoders are built in; asking every plug-in takes longer than everything else.
        QCoreApplication::setLibraryPaths({});
        return true;
    }();
    static_cast<void>(isPrepared);

    const QByteArray bytes = fuzz::bytesOf(data, size);
    file.write(bytes);
    const QImage picture = pictureIn(file.path());
    checkPicture(picture, bytes);
    if (!picture.isNull() && !fuzz::isSanitized()) // which has its own allocator
        requireEveryPixelWritten(file.path(), picture);

    const fxhost::DrawingFile drawing = fxhost::readDrawing(file.path());
    const bool isDrawing = bool(drawing.outcome);
    require(isDrawing == !drawing.version.isEmpty() && isDrawing == drawing.outcome.reason().isEmpty(),
            "a file is a drawing of some version, or there is a reason why not");
    require(isDrawing || (picture.isNull() && !drawing.isPreviewAlone), "only a drawing has a picture");
    require(drawing.preview == picture, "a drawing's picture is its preview");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed)
{
    const std::size_t newSize = LLVMFuzzerMutate(data, size, maxSize);
    // Not always, because the reader must notice wrong ones too.
    if (seed % 4 != 0)
        fuzz::repairAddresses(data, newSize);
    if (seed % 8 != 1)
        fuzz::repairPngChecksums(data, newSize);
    return newSize;
}
