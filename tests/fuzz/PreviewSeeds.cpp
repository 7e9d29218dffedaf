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
    void add(const QByteArray &bytes)
    {
        seeds.push_back({QStringLiteral("drawing-%1").arg(seeds.size() + 1), bytes, isCostly});
    }
    //! A drawing without padding, because every byte costs time.
    void add(DrawingBytes drawing)
    {
        drawing.sectionAt = 24;
        drawing.bytesAfter = 0;
        add(drawing.bytes());
    }
    void addList(const QVector<StoredEntry> &entries)
    {
        DrawingBytes drawing;
        drawing.entries = entries;
        add(drawing);
    }
    void addBitmap(const BitmapBytes &bitmap) { add(drawingWith(bitmapEntry(bitmap.bytes()))); }
    void addPng(const QByteArray &png) { add(drawingWith(pngEntry(png))); }

    bool isCostly = false; //!< of the next seeds
    std::vector<Seed> seeds;
};

constexpr int width = 13; // odd, so that rows are padded
constexpr int height = 7;

void addWrittenDrawings(Seeds &to)
{
    using namespace fxsamples;
    const QImage picture = patternPicture(24, width, height);
    for (const Version version : allVersions) {
        to.add(drawingFile(picture, {version, Picture::Bitmap8}));
        if (carriesPng(version))
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
        const BitmapBytes bitmap = patternBitmap(bits, width, height);
        to.addBitmap(bitmap);
        to.addBitmap(topDown(bitmap));
    }
    BitmapBytes fewColors = patternBitmap(8, width, height);
    constexpr int colors = 5;
    fewColors.colorsUsed = colors;
    fewColors.palette.truncate(4 * colors);
    to.addBitmap(fewColors);
    for (const quint32 headerSize : {52U, 56U, 64U, 108U, 124U}) {
        BitmapBytes bitmap = patternBitmap(4, width, height);
        bitmap.headerSize = headerSize;
        to.addBitmap(bitmap);
    }
}

void addRunsAndMasks(Seeds &to)
{
    BitmapBytes runs = patternBitmap(8, width, height);
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
        BitmapBytes masked = patternBitmap(bits, width, height);
        masked.compression = 3;
        masked.masks = bits == 16 ? std::array<quint32, 3>{0xF800, 0x07E0, 0x001F}
                                  : std::array<quint32, 3>{0xFF000000, 0x00FF0000, 0x0000FF00};
        to.addBitmap(masked);
        masked.headerSize = 108;
        to.addBitmap(masked);
    }
}

void addPngs(Seeds &to)
{
    to.addPng(pngOf(patternPicture(24, width, height)));
    to.addPng(pngOf(patternPicture(4, width, height).convertToFormat(QImage::Format_Indexed8)));
    to.addPng(pngOf(patternPicture(1, width, height).convertToFormat(QImage::Format_Mono)));
    for (const PngHeader &kind : std::initializer_list<PngHeader>{{width, height, 1, 0},
                                                                  {width, height, 2, 0},
                                                                  {width, height, 4, 0},
                                                                  {width, height, 8, 0},
                                                                  {width, height, 16, 0},
                                                                  {width, height, 8, 2},
                                                                  {width, height, 16, 2},
                                                                  {width, height, 1, 3},
                                                                  {width, height, 2, 3},
                                                                  {width, height, 4, 3},
                                                                  {width, height, 8, 3},
                                                                  {width, height, 8, 4},
                                                                  {width, height, 16, 4},
                                                                  {width, height, 8, 6},
                                                                  {width, height, 16, 6}}) {
        constexpr int withPalette = 3;
        const QByteArray palette =
            kind.colorType == withPalette ? pngChunk("PLTE", "redgrnblu") + pngChunk("tRNS", "\x20\x80") : "";
        PngHeader header = kind;
        for (const bool isInterlaced : {false, true}) {
            header.isInterlaced = isInterlaced;
            to.addPng(blankPng(header, palette));
        }
    }
    to.addPng(blankPng({width, height, 8, 2}, pngChunk("tRNS", QByteArray(6, '\0'))));
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
    BitmapBytes runs = inRuns(patternBitmap(8, width, height));
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
    to.addList({claimed, interlaced, claimed, interlaced});
}

void addLists(Seeds &to)
{
    const StoredEntry bitmap = bitmapEntry(patternBitmap(24, width, height).bytes());
    const StoredEntry png = pngEntry(pngOf(patternPicture(24, width, height)));
    StoredEntry broken = bitmap;
    broken.data.chop(1);
    to.addList({});
    to.addList({zerosEntry(), metafileEntry()});
    to.addList({zerosEntry(), broken, bitmap});
    to.addList({zerosEntry(), bitmap, png});
    to.addList({bitmapEntry(png.data), pngEntry(bitmap.data)});
    DrawingBytes old = drawingWith(bitmap);
    old.version = "AC1009"; // which has no preview
    to.add(old);
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
