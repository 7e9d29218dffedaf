// SPDX-License-Identifier: MIT
#include "samples/DrawingWriter.h"
#include "tests/fuzz/Seeds.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <array>

using namespace testbytes;

namespace fuzz {

namespace {

class Seeds
{
public:
    void add(const QByteArray &bytes) { seeds.push_back({bytes, isCostly}); }
    //! A drawing without padding, because every byte costs time.
    void add(DrawingBytes drawing)
    {
        drawing.sectionAt = 24;
        drawing.bytesAfter = 0;
        add(drawing.bytes());
    }
    void addBitmap(const BitmapBytes &bitmap) { add(drawingWith(bitmapEntry(bitmap.bytes()))); }
    void addPng(const QByteArray &png) { add(drawingWith(pngEntry(png))); }

    bool isCostly = false; //!< of the next seeds
    std::vector<Seed> seeds;
};

constexpr int width = patternSize.width();
constexpr int height = patternSize.height();

void addWrittenDrawings(Seeds &to)
{
    using namespace fxsamples;
    const QImage picture = patternPicture(24);
    for (const Version version : allVersions) {
        to.add(drawingFile(picture, {version, Picture::Bitmap8}));
        if (supportsPng(version))
            to.add(drawingFile(picture, {version, Picture::Png}));
    }
    const Version version = Version::AC1018;
    to.add(drawingFile(picture, {version, Picture::Bitmap24}));
    to.add(drawingFile(picture, {version, Picture::Bitmap32}));
    to.add(drawingFile(picture, {version, Picture::Bitmap24, Placement::AfterFilling}));
}

void addBitmaps(Seeds &to)
{
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
        const BitmapBytes bitmap = patternBitmap(bits);
        to.addBitmap(bitmap);
        to.addBitmap(topDown(bitmap));
    }
    BitmapBytes fewColors = patternBitmap(8);
    constexpr int colors = 5;
    fewColors.colorsUsed = colors;
    fewColors.palette.truncate(4 * colors);
    to.addBitmap(fewColors);
    for (const quint32 headerSize : {52U, 56U, 64U, 108U, 124U})
        to.addBitmap(with(patternBitmap(4), &BitmapBytes::headerSize, headerSize));
}

void addRunsAndMasks(Seeds &to)
{
    BitmapBytes runs = patternBitmap(8);
    runs.palette.truncate(4 * 16);
    runs.colorsUsed = 16;
    to.addBitmap(inRuns(runs));

    // Run, literal pixels, jump, row's end, picture's end.
    runs.compression = 1;
    runs.pixels = QByteArray::fromHex("0503"
                                      "00030102030000"
                                      "00020101"
                                      "0000"
                                      "0D01"
                                      "0000"
                                      "0001")
                      .repeated(2);
    to.addBitmap(runs);
    runs.bits = 4;
    runs.compression = 2;
    runs.pixels = QByteArray::fromHex("0534"
                                      "0005123450"
                                      "00020101"
                                      "0000"
                                      "0D01"
                                      "0000"
                                      "0001");
    to.addBitmap(runs);

    for (const int bits : {16, 32}) {
        BitmapBytes masked = patternBitmap(bits);
        masked.compression = 3;
        masked.masks = bits == 16 ? std::array<quint32, 3>{0xF800, 0x07E0, 0x001F}
                                  : std::array<quint32, 3>{0xFF000000, 0x00FF0000, 0x0000FF00};
        to.addBitmap(masked);
        masked.headerSize = 108;
        to.addBitmap(masked);
    }
}

//! PNGs whose rows have every filter, with few colours and uncompressed, so that changes are not seen as
//! broken data only.
void addUncompressedPngs(Seeds &to)
{
    for (const auto &[colorType, channels] :
         std::initializer_list<std::pair<int, int>>{{0, 1}, {2, 3}, {3, 1}, {4, 2}, {6, 4}}) {
        QByteArray raw;
        for (char filter = 0; filter < 5; ++filter) {
            raw += filter;
            for (int i = 0; i < width * channels; ++i)
                raw += static_cast<char>(i * i);
        }
        constexpr int qtsOwnPrefix = 4; // bytes before the zlib stream
        to.addPng(QByteArray("\x89PNG\r\n\x1a\n") + PngHeader{width, 5, 8, colorType}.bytes() +
                  (colorType == 3 ? pngChunk("PLTE", "redgrnblu") + pngChunk("tRNS", "\x20\x80") : "") +
                  pngChunk("IDAT", qCompress(raw, 0).mid(qtsOwnPrefix)) + pngChunk("IEND", {}));
    }
}

void addPngs(Seeds &to)
{
    addUncompressedPngs(to);
    to.addPng(pngOf(patternPicture(24)));
    to.addPng(pngOf(patternPicture(4).convertToFormat(QImage::Format_Indexed8)));
    to.addPng(pngOf(patternPicture(1).convertToFormat(QImage::Format_Mono)));
    // Colour type and depths.
    const std::initializer_list<std::pair<int, std::vector<int>>> kinds = {
        {0, {1, 2, 4, 8, 16}}, {2, {8, 16}}, {3, {1, 2, 4, 8}}, {4, {8, 16}}, {6, {8, 16}}};
    for (const auto &[colorType, depths] : kinds) {
        constexpr int withPalette = 3;
        const QByteArray palette =
            colorType == withPalette ? pngChunk("PLTE", "redgrnblu") + pngChunk("tRNS", "\x20\x80") : "";
        for (const int depth : depths) {
            for (const bool isInterlaced : {false, true})
                to.addPng(blankPng({width, height, depth, colorType, isInterlaced}, palette));
        }
    }
    to.addPng(blankPng({width, height, 8, 2}, pngChunk("tRNS", QByteArray(6, '\0'))));
    to.addPng(blankPng({width, height, 8, 2}, pngChunk("PLTE", {}))); // refused, though no pixel needs it
    to.addPng(
        blankPng({width, height, 8, 2}, pngChunk("gAMA", QByteArray::fromHex("0000B18F")) +
                                            pngChunk("sRGB", QByteArray(1, '\0')) +
                                            pngChunk("pHYs", QByteArray::fromHex("00000EC400000EC401")) +
                                            pngChunk("tEXt", QByteArray("Title\0a drawing", 15))));
}

//! Small files with pictures as large as allowed.
void addLargest(Seeds &to)
{
    constexpr int side = 2560;
    BitmapBytes runs = inRuns(patternBitmap(8));
    runs.width = runs.height = side;
    to.addBitmap(runs);
    to.addPng(blankPng({side, side, 1, 0}));
    to.addPng(blankPng({side, side, 1, 0, true}));
    constexpr int longest = 32767;
    to.addPng(blankPng({1, longest, 1, 0}));
    to.addPng(blankPng({2, longest, 1, 0, true}));
    runs.width = 1;
    runs.height = longest;
    to.addBitmap(runs);
    // Pictures without their data; there are more of them than the reader tries.
    const StoredEntry claimed = pngEntry(withHeader(blankPng({width, height}), {side, side}));
    const StoredEntry interlaced = pngEntry(withHeader(blankPng({width, height}), {side, side, 8, 6, true}));
    to.add(drawingOf({claimed, interlaced, claimed, interlaced}));
}

void addLists(Seeds &to)
{
    const StoredEntry bitmap = bitmapEntry(patternBitmap(24).bytes());
    const StoredEntry png = pngEntry(pngOf(patternPicture(24)));
    StoredEntry broken = bitmap;
    broken.data.chop(1);
    to.add(drawingOf({}));
    to.add(drawingOf({zerosEntry(), metafileEntry()}));
    to.add(drawingOf({zerosEntry(), broken, bitmap}));
    to.add(drawingOf({zerosEntry(), bitmap, png}));
    to.add(drawingOf({bitmapEntry(png.data), pngEntry(bitmap.data)}));
    to.add(with(drawingWith(bitmap), &DrawingBytes::version, "AC1009")); // which has no preview
    to.add("AC2.10");
}

} // namespace

std::vector<Seed> previewSeeds()
{
    Seeds to;
    addWrittenDrawings(to);
    addBitmaps(to);
    addRunsAndMasks(to);
    addPngs(to);
    addLists(to);

    to.isCostly = true;
    addLargest(to);
    return to.seeds;
}

} // namespace fuzz
